# Google Benchmark from its sources, so that every build compiles it with its own compiler: Debian
# packages only the native library. The archive is Debian's copy of the release. It is kept beside
# the builds, which share it, so that only the first of them needs the network.
include(FetchContent)

# A function, so that what is said to Google Benchmark is not said to us.
function(vela_google_benchmark)
  set(BENCHMARK_ENABLE_TESTING OFF)
  set(BENCHMARK_ENABLE_INSTALL OFF)
  set(BENCHMARK_ENABLE_WERROR OFF)
  # Every C++17 library has these; asked in a cross build, it warns that it cannot try them out.
  set(HAVE_STD_REGEX ON)
  set(HAVE_STEADY_CLOCK ON)
  # It asks git for its version. The repository around it is ours, whose tags are not its own.
  set(CMAKE_DISABLE_FIND_PACKAGE_Git ON)
  FetchContent_Declare(googlebenchmark
    URL http://deb.debian.org/debian/pool/main/b/benchmark/benchmark_1.7.1.orig.tar.gz
    URL_HASH SHA256=6430e4092653380d9dc4ccb45a1e2dc9259d581f4866dc0759713126056bc1d7
    DOWNLOAD_DIR ${CMAKE_SOURCE_DIR}/build/downloads)
  FetchContent_MakeAvailable(googlebenchmark)
  # Our warnings are not for its headers.
  set_target_properties(benchmark PROPERTIES SYSTEM ON)
endfunction()
vela_google_benchmark()
