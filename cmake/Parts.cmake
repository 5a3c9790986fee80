# Decides which parts can be built besides the library, its headers and the examples: VELA_DRIVER,
# VELA_TOOLS, VELA_TESTS. A native build only needs a compiler and GoogleTest; without the headers of
# nlohmann json it leaves the tests of recordings out.
include(HeaderOnlyLibrary)
vela_header_only_library(json_headers nlohmann json.hpp)
if(NOT WIN32)
  set(VELA_TESTS ON)
  if(NOT TARGET json_headers)
    message(STATUS "Not built: the tests of recordings (no headers of nlohmann json)")
  endif()
  return()
endif()

# The driver is written for MinGW-w64, whose kernel headers are in a folder of their own beside the
# others.
if(MINGW)
  find_path(MINGW_DDK_FOLDER ntddk.h PATHS ${CMAKE_FIND_ROOT_PATH}/include/ddk
    NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH)
endif()
if(MINGW_DDK_FOLDER)
  set(VELA_DRIVER ON)
else()
  message(STATUS "Not built: the virtual touchpad's driver (no kernel headers of MinGW-w64)")
endif()

# The tools need the headers of CLI11 and nlohmann json.
vela_header_only_library(cli11_headers CLI CLI.hpp)
if(TARGET cli11_headers AND TARGET json_headers)
  set(VELA_TOOLS ON)
else()
  message(STATUS "Not built: the tools (no headers of CLI11 or nlohmann json)")
endif()

# The tests run the tools on the driver's touchpad.
if(VELA_DRIVER AND VELA_TOOLS)
  set(VELA_TESTS ON)
else()
  message(STATUS "Not built: the tests and the soaks (no driver or no tools)")
endif()
