# Lists the library's folders and their sources. Each folder may include itself and those before it.
file(STRINGS ${CMAKE_CURRENT_LIST_DIR}/library-folders.txt VELA_LIBRARY_FOLDERS)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS
  ${CMAKE_CURRENT_LIST_DIR}/library-folders.txt)
set(VELA_AGENT_SOURCES)
foreach(folder ${VELA_LIBRARY_FOLDERS})
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/${folder}/*.cpp)
  list(APPEND VELA_AGENT_SOURCES ${sources})
endforeach()

# The part of the library that finds its devices; tools that search for devices link it too, with a
# logger of their own.
file(GLOB VELA_DISCOVERY_SOURCES CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/hid/*.cpp)
list(APPEND VELA_DISCOVERY_SOURCES
  ${CMAKE_SOURCE_DIR}/haptic/HapticDiscovery.cpp
  ${CMAKE_SOURCE_DIR}/platform/ModuleHandle.cpp
  ${CMAKE_SOURCE_DIR}/platform/Utf8.cpp
  ${CMAKE_SOURCE_DIR}/touchpad/TouchpadDiscovery.cpp)
