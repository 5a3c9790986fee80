# shellcheck shell=bash
# Sourced from the top folder: the library's folders. Each may include itself and those before it.

# shellcheck disable=SC2034 # for those that source this
mapfile -t library_folders <cmake/library-folders.txt
