# Warnings for our own sources; they are errors, so that a clean build means something.
add_library(vela_warnings INTERFACE)
if(MSVC)
  target_compile_options(vela_warnings INTERFACE /W4 /WX /permissive-)
else()
  target_compile_options(vela_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Werror -Wshadow
    $<$<COMPILE_LANGUAGE:CXX>:-Wconversion>
    # What platform/ThreadAnnotations.h says of mutexes and what they guard.
    $<$<COMPILE_LANG_AND_ID:CXX,Clang>:-Wthread-safety>)
endif()
