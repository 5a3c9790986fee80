# vela_header_only_library(TARGET FOLDER HEADER): adds TARGET with a package's headers as system
# headers, unless the package is missing. The include path has a link to FOLDER only, because its
# parent folder also has the build machine's own headers, which a cross build must not use.
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
