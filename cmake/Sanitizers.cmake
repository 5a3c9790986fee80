# Builds everything, GoogleTest too, with these sanitizers; presets native-asan and native-tsan set
# them. ThreadSanitizer's suppressions are in thread-sanitizer.supp, with their reasons.
set(VELA_SANITIZERS "" CACHE STRING "Sanitizers to build with, as \"address,undefined\"")
if(VELA_SANITIZERS)
  add_compile_options(-fsanitize=${VELA_SANITIZERS} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${VELA_SANITIZERS})
endif()
