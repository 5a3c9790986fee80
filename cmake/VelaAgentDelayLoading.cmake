# hid.dll and setupapi.dll are loaded at the library's first call to them, not with it: they, and what they
# need themselves, take several times as long as the library, and many hosts never find a touchpad.
set(delay_loaded hid setupapi)
if(MSVC)
  target_link_libraries(VelaAgent PRIVATE ${delay_loaded} delayimp)
  list(TRANSFORM delay_loaded REPLACE "(.+)" "/DELAYLOAD:\\1.dll")
  target_link_options(VelaAgent PRIVATE ${delay_loaded})
  return()
endif()

# The import libraries are made by GNU's dlltool, for GNU's linker.
if(NOT CMAKE_CXX_COMPILER_ID STREQUAL GNU)
  target_link_libraries(VelaAgent PRIVATE ${delay_loaded})
  return()
endif()

foreach(system_library IN LISTS delay_loaded)
  set(definition ${CMAKE_SOURCE_DIR}/cmake/delay-loaded/${system_library}.def)
  set(name lib${system_library}_delayed.a)
  set(import_library ${CMAKE_CURRENT_BINARY_DIR}/${name})
  # The output's name, as it is given, becomes a part of the symbols' names: a path would differ between
  # two builds.
  add_custom_command(OUTPUT ${import_library}
    COMMAND ${CMAKE_DLLTOOL} --deterministic-libraries --temp-prefix ${system_library}_delayed
      --input-def ${definition} --output-delaylib ${name}
    WORKING_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}
    DEPENDS ${definition}
    VERBATIM)
  target_sources(VelaAgent PRIVATE ${import_library})
  target_link_libraries(VelaAgent PRIVATE ${import_library})
endforeach()
target_link_libraries(VelaAgent PRIVATE delayimp)
