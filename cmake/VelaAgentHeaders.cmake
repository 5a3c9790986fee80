# What a host compiles against, for those that load the DLL themselves; the version comes from the
# project.
set(VELA_VERSION_HEADER ${CMAKE_BINARY_DIR}/include/VelaAgentVersion.h)
configure_file(include/VelaAgentVersion.h.in ${VELA_VERSION_HEADER} @ONLY)
add_library(VelaAgentHeaders INTERFACE)
target_include_directories(VelaAgentHeaders INTERFACE
  $<BUILD_INTERFACE:${CMAKE_CURRENT_SOURCE_DIR}/include>
  $<BUILD_INTERFACE:${CMAKE_BINARY_DIR}/include>)
set_target_properties(VelaAgentHeaders PROPERTIES EXPORT_NAME headers)
