# One test program for the library and one for the rooms above it; each test is a case of its own for ctest.
find_package(GTest REQUIRED)
include(GoogleTest)

file(GLOB library_tests CONFIGURE_DEPENDS tests/script/*.cpp tests/shared/*.cpp tests/commands/*/*.cpp)
file(GLOB test_support CONFIGURE_DEPENDS tests/support/*.cpp)
add_executable(library-tests ${library_tests} ${test_support})
target_include_directories(library-tests PRIVATE tests)
target_compile_definitions(library-tests PRIVATE CORDBOARD_SOURCE_DIR="${PROJECT_SOURCE_DIR}")
target_link_libraries(library-tests PRIVATE cordboard::cordboard GTest::gtest GTest::gmock GTest::gtest_main)
gtest_discover_tests(library-tests DISCOVERY_TIMEOUT 60 TEST_PREFIX library.)

if(CORDBOARD_WORKBENCH)
  file(GLOB workbench_tests CONFIGURE_DEPENDS tests/workbench/*.cpp)
  add_executable(workbench-tests ${workbench_tests} ${test_support})
  target_include_directories(workbench-tests PRIVATE tests)
  target_compile_definitions(workbench-tests PRIVATE CORDBOARD_SOURCE_DIR="${PROJECT_SOURCE_DIR}")
  target_link_libraries(workbench-tests PRIVATE cordboard_workbench GTest::gtest GTest::gmock GTest::gtest_main)
  gtest_discover_tests(workbench-tests DISCOVERY_TIMEOUT 60 TEST_PREFIX workbench.)
endif()

# Faults: every command with every call of its host going wrong.
if(CORDBOARD_WORKBENCH)
  file(GLOB fault_tests CONFIGURE_DEPENDS tests/fault/*.cpp)
  add_executable(fault-tests ${fault_tests} ${test_support})
  target_include_directories(fault-tests PRIVATE tests)
  target_link_libraries(fault-tests PRIVATE cordboard_workbench GTest::gtest GTest::gmock GTest::gtest_main)
  gtest_discover_tests(fault-tests DISCOVERY_TIMEOUT 60 TEST_PREFIX fault.)
endif()
