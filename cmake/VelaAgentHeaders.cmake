# The headers for hosts, as a target for those that load the DLL themselves. The version comes from
# the project.
set(VELA_VERSION_HEADER ${CMAKE_BINARY_DIR}/include/VelaAgentVersion.h)
configure_file(include/VelaAgentVersion.h.in ${VELA_VERSION_HEADER} @ONLY)
add_library(VelaAgentHeaders INTERFACE)
target_include_directories(VelaAgentHeaders INTERFACE
  $<BUILD_INTERFACE:${CMAKE_CURRENT_SOURCE_DIR}/include>
  $<BUILD_INTERFACE:${CMAKE_BINARY_DIR}/include>)
set_target_properties(VelaAgentHeaders PROPERTIES EXPORT_NAME headers)
# VelaAgentWatch.hpp with the platform's libraries that it calls.
add_library(VelaAgentWatch INTERFACE)
target_link_libraries(VelaAgentWatch INTERFACE VelaAgentHeaders hid setupapi user32)
set_target_properties(VelaAgentWatch PROPERTIES EXPORT_NAME watch)

# Every build compiles each header by itself, with its own compiler and all of our warnings.
function(vela_compile_header header extension)
  set(source ${CMAKE_CURRENT_BINARY_DIR}/headers/${header}.${extension})
  file(CONFIGURE OUTPUT ${source} CONTENT "#include \"${header}\"\n#include \"VelaAgentVersion.h\"\n")
  target_sources(header_check PRIVATE ${source})
endfunction()
add_library(header_check OBJECT)
vela_compile_header(VelaAgent.h c)
vela_compile_header(VelaAgent.h cpp)
vela_compile_header(VelaAgent.hpp cpp)
vela_compile_header(VelaAgentDevices.hpp cpp)
vela_compile_header(VelaAgentExit.hpp cpp)
vela_compile_header(VelaAgentSettings.hpp cpp)
vela_compile_header(VelaAgentWatch.hpp cpp)
target_link_libraries(header_check PRIVATE VelaAgentHeaders vela_warnings)
set_target_properties(header_check PROPERTIES C_STANDARD 11)
