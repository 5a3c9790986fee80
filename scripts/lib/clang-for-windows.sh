# shellcheck shell=bash
# Sourced: clang's options for compiling for Windows with the headers of MinGW-w64. Clang finds those
# of the platform by itself, but not those of the C++ library.

cxx_library=()
while read -r folder; do
  cxx_library+=("-isystem$folder")
done < <(x86_64-w64-mingw32-g++-posix -xc++ -E -v /dev/null 2>&1 | sed -n 's/^ \(\/.*c++.*\)/\1/p')

# shellcheck disable=SC2034 # for those that source this
clang_for_windows=(--target=x86_64-w64-mingw32)
# shellcheck disable=SC2034
clangxx_for_windows=("${clang_for_windows[@]}" -std=c++17 -DUNICODE -D_UNICODE -I. "${cxx_library[@]}")
