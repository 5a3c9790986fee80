# Builds everything, GoogleTest too, with the sanitizers named; presets native-asan and native-tsan
# set them. What ThreadSanitizer is not to report is in thread-sanitizer.supp, with its reason.
set(VELA_SANITIZERS "" CACHE STRING "Sanitizers to build with, as \"address,undefined\"")
if(VELA_SANITIZERS)
  add_compile_options(-fsanitize=${VELA_SANITIZERS} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${VELA_SANITIZERS})
endif()
