# Makes the same sources give the same bytes, whatever the folder and the time: paths of the build machine
# stay out of the files (assertions and debug information would bring them), and so does the time.
if(MINGW)
  add_compile_options(-ffile-prefix-map=${CMAKE_SOURCE_DIR}=.)
  add_link_options(-Wl,--no-insert-timestamp)
endif()
