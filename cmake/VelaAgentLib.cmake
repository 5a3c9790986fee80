# VelaAgent.lib, the import library in the form of Microsoft's linker, made of the names in
# interface/VelaAgent.def, for x64.
if(MSVC OR CMAKE_SYSTEM_PROCESSOR STREQUAL ARM64)
  return()
endif()
find_program(VELA_LLVM_DLLTOOL NAMES llvm-dlltool llvm-dlltool-14)
if(NOT VELA_LLVM_DLLTOOL)
  message(STATUS "Not built: VelaAgent.lib (no llvm-dlltool)")
  return()
endif()
set(VELA_LIB ${CMAKE_ARCHIVE_OUTPUT_DIRECTORY}/VelaAgent.lib)
set(definitions ${CMAKE_SOURCE_DIR}/interface/VelaAgent.def)
add_custom_command(OUTPUT ${VELA_LIB}
  COMMAND ${VELA_LLVM_DLLTOOL} -m i386:x86-64 -D VelaAgent.dll -d ${definitions} -l ${VELA_LIB}
  DEPENDS ${definitions}
  COMMENT "Making VelaAgent.lib"
  VERBATIM)
add_custom_target(microsoft_import_library ALL DEPENDS ${VELA_LIB})
