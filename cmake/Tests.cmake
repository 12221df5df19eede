# One test program for the library and one for the rooms above it; each test is a case of its own for ctest.
find_package(GTest REQUIRED)
include(GoogleTest)

file(GLOB library_tests CONFIGURE_DEPENDS tests/script/*.cpp tests/shared/*.cpp tests/commands/*/*.cpp)
file(GLOB test_support CONFIGURE_DEPENDS tests/support/*.cpp)
add_executable(library-tests ${library_tests} ${test_support})
target_include_directories(library-tests PRIVATE tests)
target_link_libraries(library-tests PRIVATE cordboard::cordboard GTest::gtest GTest::gmock GTest::gtest_main)
gtest_discover_tests(library-tests DISCOVERY_TIMEOUT 60 TEST_PREFIX library.)

# The remote host: its own test program, and a process that the tests talk to as a peer does.
if(TARGET cordboard_remote)
  file(GLOB remote_tests CONFIGURE_DEPENDS tests/remote/*_test.cpp)
  add_executable(remote-tests ${remote_tests} tests/remote/Conversation.cpp)
  target_include_directories(remote-tests PRIVATE tests)
  target_link_libraries(remote-tests PRIVATE cordboard_remote GTest::gtest GTest::gmock GTest::gtest_main)
  if(CORDBOARD_SANITIZE AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # A false alarm of GCC under sanitizers, about variants.
    target_compile_options(remote-tests PRIVATE -Wno-maybe-uninitialized)
  endif()
  gtest_discover_tests(remote-tests DISCOVERY_TIMEOUT 60 TEST_PREFIX remote.)

  add_executable(remote-serve-for-tests tests/remote/serve_main.cpp)
  target_link_libraries(remote-serve-for-tests PRIVATE cordboard_remote)
  find_package(Python3 3.8 COMPONENTS Interpreter)
  if(Python3_FOUND)
    add_test(NAME remote.process COMMAND ${Python3_EXECUTABLE} ${PROJECT_SOURCE_DIR}/tests/remote/process_test.py
                                         $<TARGET_FILE:remote-serve-for-tests>)
  endif()
endif()
