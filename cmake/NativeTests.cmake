# vela_native_tests(NAME FOLDER): adds the program NAME_tests of a folder's files *_test.cpp. Every test
# runs in a process of its own, because the library's singletons and the product string of a session
# live as long as the process. Suites named "Slow..." really wait.
function(vela_native_tests name folder)
  file(GLOB sources CONFIGURE_DEPENDS ${folder}/*_test.cpp ${folder}/*/*_test.cpp)
  set(program ${name}_tests)
  add_executable(${program} ${sources})
  target_link_libraries(${program} PRIVATE native_fixtures GTest::gtest_main vela_warnings)
  target_precompile_headers(${program} REUSE_FROM native_fixtures)
  if(VELA_SANITIZERS AND name MATCHES "^(simulator|hid|haptic|log)$")
    # With a sanitizer a process takes longer than a test. These programs run all tests in one process:
    # they start no session, or end what they start.
    add_test(NAME ${name} COMMAND ${program} --gtest_filter=-Slow* --gtest_brief=1)
    set_tests_properties(${name} PROPERTIES TIMEOUT 300)
    return()
  endif()
  gtest_discover_tests(${program} TEST_FILTER "-Slow*" TEST_LIST ${name}_quick NO_PRETTY_VALUES
    DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 60)
  gtest_discover_tests(${program} TEST_FILTER "Slow*" TEST_LIST ${name}_slow NO_PRETTY_VALUES
    DISCOVERY_TIMEOUT 60 PROPERTIES LABELS slow TIMEOUT 180)
endfunction()
