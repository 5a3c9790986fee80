# Warnings for our own sources; they are errors, so that a clean build means something.
add_library(vela_warnings INTERFACE)
if(MSVC)
  target_compile_options(vela_warnings INTERFACE /W4 /WX /permissive- /utf-8)
  # Its runtime deprecates _vsnprintf and its like, though they are told the size of their buffers,
  # for functions that other platforms' runtimes do not have.
  target_compile_definitions(vela_warnings INTERFACE _CRT_SECURE_NO_WARNINGS)
else()
  target_compile_options(vela_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Werror -Wshadow
    $<$<COMPILE_LANGUAGE:CXX>:-Wconversion>
    # What platform/ThreadAnnotations.h says of mutexes and what they guard.
    $<$<COMPILE_LANG_AND_ID:CXX,Clang>:-Wthread-safety>)
endif()
