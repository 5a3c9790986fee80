# What a debugger needs for a crash dump: VelaAgent.pdb with the functions' names and lines. The DLL's RSDS
# record names it.
if(MSVC)
  target_compile_options(VelaAgent PRIVATE /Zi)
  target_link_options(VelaAgent PRIVATE /DEBUG /OPT:REF /OPT:ICF /PDBALTPATH:VelaAgent.pdb)
  return()
endif()
# A DLL that is only a check (cmake/zig-arm64.cmake) has no symbols.
if(NOT CMAKE_CXX_COMPILER_ID STREQUAL GNU)
  target_link_options(VelaAgent PRIVATE -s)
  return()
endif()

# The linker writes the record, and a PDB that lacks lines and local functions and contains this machine's
# paths. It is not used: make-pdb makes another from the DWARF information, where LLVM's library is.
set(symbols ${CMAKE_BINARY_DIR}/symbols)
file(MAKE_DIRECTORY ${symbols})
target_compile_options(VelaAgent PRIVATE -g1)
target_link_options(VelaAgent PRIVATE -Wl,--pdb=${symbols}/VelaAgent.pdb)
add_custom_command(TARGET VelaAgent POST_BUILD
  COMMAND ${CMAKE_SOURCE_DIR}/scripts/lib/strip-dll
    $<TARGET_FILE:VelaAgent> ${symbols}/VelaAgent.unstripped
  VERBATIM)
set_property(TARGET VelaAgent APPEND PROPERTY LINK_DEPENDS ${CMAKE_SOURCE_DIR}/scripts/lib/strip-dll)

find_program(VELA_LLVM_CONFIG llvm-config-14)
find_program(VELA_HOST_CXX g++)
if(NOT VELA_LLVM_CONFIG OR NOT VELA_HOST_CXX)
  message(STATUS "Not built: VelaAgent.pdb (no library of LLVM 14, or no g++ for this machine)")
  return()
endif()
set(VELA_SYMBOLS ON)

# make-pdb runs on the build machine, so its compiler is not the cross compiler.
execute_process(COMMAND ${VELA_LLVM_CONFIG} --includedir
  OUTPUT_VARIABLE llvm_headers OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND ${VELA_LLVM_CONFIG} --ldflags --libs
  OUTPUT_VARIABLE llvm_libraries OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
separate_arguments(llvm_libraries UNIX_COMMAND "${llvm_libraries}")
file(GLOB make_pdb_sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/tools/make-pdb/*.cpp)
file(GLOB make_pdb_headers CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/tools/make-pdb/*.h)
add_custom_command(OUTPUT ${symbols}/make-pdb
  COMMAND ${VELA_HOST_CXX} -O1 -std=c++17 -fno-exceptions -Wall -Wextra -Werror
    -I${CMAKE_SOURCE_DIR} -isystem ${llvm_headers} ${make_pdb_sources} ${llvm_libraries}
    -o ${symbols}/make-pdb
  DEPENDS ${make_pdb_sources} ${make_pdb_headers}
  COMMENT "Building make-pdb"
  VERBATIM)

set(VELA_PDB ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/VelaAgent.pdb)
add_custom_command(OUTPUT ${VELA_PDB}
  COMMAND ${symbols}/make-pdb ${symbols}/VelaAgent.unstripped ${VELA_PDB}
  DEPENDS VelaAgent ${symbols}/make-pdb
  COMMENT "Making VelaAgent.pdb"
  VERBATIM)
add_custom_target(symbols ALL DEPENDS ${VELA_PDB})
