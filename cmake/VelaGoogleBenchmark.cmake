# Builds Google Benchmark from its sources with each build's own compiler, because Debian packages
# only the native library. The archive is Debian's copy of the release. The builds share the download,
# so that only the first of them needs the network.
include(FetchContent)

# The function's scope keeps Google Benchmark's settings away from our own targets.
function(vela_google_benchmark)
  set(BENCHMARK_ENABLE_TESTING OFF)
  set(BENCHMARK_ENABLE_INSTALL OFF)
  set(BENCHMARK_ENABLE_WERROR OFF)
  # Every C++17 library has these. In a cross build Google Benchmark would warn that it cannot try
  # them.
  set(HAVE_STD_REGEX ON)
  set(HAVE_STEADY_CLOCK ON)
  # It queries git for its version, but the repository around it is ours, with other tags.
  set(CMAKE_DISABLE_FIND_PACKAGE_Git ON)
  FetchContent_Declare(googlebenchmark
    URL http://deb.debian.org/debian/pool/main/b/benchmark/benchmark_1.7.1.orig.tar.gz
    URL_HASH SHA256=6430e4092653380d9dc4ccb45a1e2dc9259d581f4866dc0759713126056bc1d7
    DOWNLOAD_DIR ${CMAKE_SOURCE_DIR}/build/downloads)
  FetchContent_MakeAvailable(googlebenchmark)
  # As system headers its headers are exempt from our warnings.
  set_target_properties(benchmark PROPERTIES SYSTEM ON)
endfunction()
vela_google_benchmark()
