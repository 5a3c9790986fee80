# vela_header_only_library(TARGET FOLDER HEADER): headers of a package, as system headers of TARGET,
# which is not made when there are none. A link to FOLDER, because the folder that it is in holds the
# build machine's own headers too, which a cross build must not see.
function(vela_header_only_library target folder header)
  find_path(${target}_PARENT ${folder}/${header} PATHS /usr/include /usr/local/include
    NO_CMAKE_FIND_ROOT_PATH)
  if(NOT ${target}_PARENT)
    return()
  endif()
  set(links ${CMAKE_BINARY_DIR}/header-only/${target})
  file(MAKE_DIRECTORY ${links})
  file(CREATE_LINK ${${target}_PARENT}/${folder} ${links}/${folder} COPY_ON_ERROR SYMBOLIC)
  add_library(${target} INTERFACE)
  target_include_directories(${target} SYSTEM INTERFACE ${links})
endfunction()
