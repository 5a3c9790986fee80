# The warnings for our own sources, all of them errors.
add_library(vela_warnings INTERFACE)
if(MSVC)
  target_compile_options(vela_warnings INTERFACE /W4 /WX /permissive- /utf-8)
  # Microsoft's runtime deprecates _vsnprintf and the like, although they take the size of their
  # buffers, in favour of functions that other platforms' runtimes lack.
  target_compile_definitions(vela_warnings INTERFACE _CRT_SECURE_NO_WARNINGS)
else()
  target_compile_options(vela_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Werror -Wshadow
    $<$<COMPILE_LANGUAGE:CXX>:-Wconversion>
    # Checks the annotations of platform/ThreadAnnotations.h about mutexes and what they guard.
    $<$<COMPILE_LANG_AND_ID:CXX,Clang>:-Wthread-safety>)
endif()
