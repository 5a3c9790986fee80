# Builds VelaAgent.dll with the exports of interface/VelaAgent.def and a version resource. It needs no
# runtime files beside it.
enable_language(RC)
configure_file(interface/VelaAgent.rc.in ${CMAKE_CURRENT_BINARY_DIR}/VelaAgent.rc @ONLY)

add_library(VelaAgent SHARED
  ${VELA_AGENT_SOURCES}
  interface/VelaAgent.def
  ${CMAKE_CURRENT_BINARY_DIR}/VelaAgent.rc)
set_target_properties(VelaAgent PROPERTIES PREFIX "")
target_include_directories(VelaAgent PUBLIC $<BUILD_INTERFACE:${CMAKE_CURRENT_SOURCE_DIR}>)
target_link_libraries(VelaAgent PRIVATE vela_warnings)
target_compile_definitions(VelaAgent PRIVATE UNICODE _UNICODE)

if(MSVC)
  set_property(TARGET VelaAgent PROPERTY MSVC_RUNTIME_LIBRARY "MultiThreaded$<$<CONFIG:Debug>:Debug>")
  # Control Flow Guard needs both: the compiler inserts the checks, the linker declares them.
  target_compile_options(VelaAgent PRIVATE /guard:cf)
  target_link_options(VelaAgent PRIVATE /DYNAMICBASE /HIGHENTROPYVA /NXCOMPAT /guard:cf)
else()
  target_compile_options(VelaAgent PRIVATE -fvisibility=hidden)
  target_link_options(VelaAgent PRIVATE
    -static -Wl,--gc-sections -Wl,--dynamicbase,--high-entropy-va,--nxcompat)
endif()
include(VelaAgentDelayLoading)
include(VelaAgentSymbols)
