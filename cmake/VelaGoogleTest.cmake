# Builds GoogleTest from its sources, so that every build (cross builds, sanitizers) compiles it with
# its own flags. Debian's package "googletest" puts them in /usr/src; elsewhere they are fetched.
set(VELA_GOOGLETEST_SOURCES /usr/src/googletest CACHE PATH "Folder with GoogleTest's sources")
set(gtest_force_shared_crt ON CACHE BOOL "" FORCE)
set(INSTALL_GTEST OFF CACHE BOOL "" FORCE)
if(EXISTS ${VELA_GOOGLETEST_SOURCES}/CMakeLists.txt)
  add_subdirectory(${VELA_GOOGLETEST_SOURCES} ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)
else()
  include(FetchContent)
  FetchContent_Declare(googletest
    URL https://github.com/google/googletest/archive/refs/tags/release-1.12.1.tar.gz)
  FetchContent_MakeAvailable(googletest)
endif()
foreach(library gtest gtest_main gmock gmock_main)
  if(NOT TARGET GTest::${library})
    add_library(GTest::${library} ALIAS ${library})
  endif()
endforeach()
