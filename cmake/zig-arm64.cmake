# Cross build for Windows on ARM64 with zig's C and C++ compiler, which scripts/lib/zig unpacks. The
# build is a check (scripts/lint): what it makes is not shipped and has not run on any machine.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR ARM64)
set(zig ${CMAKE_CURRENT_LIST_DIR}/../build/zig/zig)
set(CMAKE_C_COMPILER ${zig} cc)
set(CMAKE_CXX_COMPILER ${zig} c++)
set(CMAKE_C_COMPILER_TARGET aarch64-windows-gnu)
set(CMAKE_CXX_COMPILER_TARGET aarch64-windows-gnu)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
# MinGW-w64's resource compiler makes no object files for ARM64, but .res files for any machine.
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)
set(CMAKE_RC_FLAGS_INIT "-O res")
# zig's compiler cannot write precompiled headers.
set(CMAKE_DISABLE_PRECOMPILE_HEADERS ON)
# zig compiles its C++ runtime anew for other levels of optimization, and again for programs that keep
# their symbols. With these settings all that is linked, CMake's own trials included, shares one.
set(CMAKE_TRY_COMPILE_CONFIGURATION Release)
set(CMAKE_EXE_LINKER_FLAGS_INIT -s)
