# Makes the same sources give the same bytes, whatever the folder and the time: paths of the build machine
# stay out of the files (assertions and debug information would bring them), and so does the time.
if(MINGW)
  # The compiler tries the last option first.
  add_compile_options(-ffile-prefix-map=${CMAKE_SOURCE_DIR}=. -ffile-prefix-map=${CMAKE_BINARY_DIR}=build)
  # zig's linker, which makes no release, rejects the option.
  if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
    add_link_options(-Wl,--no-insert-timestamp)
  endif()
endif()
