# The headers that clang-tidy checks in a build that runs it (preset native-clang). Those for C and
# C++ are left out: include/, testing/simulator/include/.
if(CMAKE_CXX_CLANG_TIDY)
  list(JOIN VELA_LIBRARY_FOLDERS "|" folders)
  list(APPEND CMAKE_CXX_CLANG_TIDY
    "--header-filter=/(${folders}|simulator(/api|/hid)?|virtual-touchpad/descriptor)/[A-Za-z]+\\.h$")
endif()
