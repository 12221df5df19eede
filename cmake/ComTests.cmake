# Tests of the in-process object, on Linux under the layer that runs Windows programs: a C++ client, scripts, and a look
# at what the module imports. The prefix that the layer works in is a fixture: made new and ended with its services.
find_package(Python3 REQUIRED COMPONENTS Interpreter)
enable_testing()
set(com_tests ${PROJECT_SOURCE_DIR}/tests/com)
set(in_layer WINEPREFIX=${PROJECT_BINARY_DIR}/wine-prefix)

add_test(NAME com.layer.start COMMAND ${com_tests}/layer start)
add_test(NAME com.layer.end COMMAND ${com_tests}/layer end)
set_tests_properties(com.layer.start PROPERTIES FIXTURES_SETUP layer)
set_tests_properties(com.layer.end PROPERTIES FIXTURES_CLEANUP layer)

# The test library, from its sources as Debian has them.
add_library(gtest_windows STATIC /usr/src/googletest/googletest/src/gtest-all.cc)
target_include_directories(gtest_windows SYSTEM PUBLIC /usr/src/googletest/googletest/include
                                                PRIVATE /usr/src/googletest/googletest)
target_compile_options(gtest_windows PRIVATE -w)

file(GLOB com_test_sources CONFIGURE_DEPENDS tests/com/*.cpp tests/com/support/*.cpp)
add_executable(com-tests ${com_test_sources} tests/support/EveryOperation.cpp)
target_include_directories(com-tests PRIVATE tests)
target_link_libraries(com-tests PRIVATE cordboard_com gtest_windows)
cordboard_precompile(com-tests <gtest/gtest.h> tests/com/support/AutomationHost.h)
target_link_options(com-tests PRIVATE -static)
add_dependencies(com-tests cordboard_dll)
add_test(NAME com.client COMMAND ${com_tests}/wine $<TARGET_FILE:com-tests> --gtest_brief=1)

# There are no includes in scripts: the build puts the prelude in front. An unhandled error ends a script with status 0,
# so the last line is required.
file(GLOB scripts RELATIVE ${com_tests}/scripts CONFIGURE_DEPENDS tests/com/scripts/*_test.vbs)
foreach(script ${scripts})
  set(whole ${PROJECT_BINARY_DIR}/scripts/${script})
  file(READ ${com_tests}/scripts/prelude.vbs prelude)
  file(READ ${com_tests}/scripts/${script} body)
  file(WRITE ${whole} "${prelude}\n${body}")
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${com_tests}/scripts/prelude.vbs
                                                                 ${com_tests}/scripts/${script})
  string(REPLACE "_test.vbs" "" name ${script})
  add_test(NAME com.script.${name} COMMAND ${com_tests}/wine cscript //nologo ${script}
           WORKING_DIRECTORY ${PROJECT_BINARY_DIR}/scripts)
  set_tests_properties(com.script.${name} PROPERTIES PASS_REGULAR_EXPRESSION "all is well"
                       FAIL_REGULAR_EXPRESSION "FAILED" FIXTURES_REQUIRED "layer;registered")
endforeach()
add_test(NAME com.script.example COMMAND ${com_tests}/wine cscript //nologo host.vbs
         WORKING_DIRECTORY ${PROJECT_SOURCE_DIR}/examples/script-host)
set_tests_properties(com.script.example PROPERTIES FIXTURES_REQUIRED "layer;registered"
                     PASS_REGULAR_EXPRESSION "'NANSI:NUMTYP=EX,NUMSE=100&&199;'")
add_test(NAME com.register COMMAND ${com_tests}/wine regsvr32 /s $<TARGET_FILE:cordboard_dll>)
add_test(NAME com.unregister COMMAND ${com_tests}/wine regsvr32 /s /u $<TARGET_FILE:cordboard_dll>)
set_tests_properties(com.register PROPERTIES FIXTURES_SETUP registered FIXTURES_REQUIRED layer)
set_tests_properties(com.unregister PROPERTIES FIXTURES_CLEANUP registered FIXTURES_REQUIRED layer)

add_test(NAME com.imports COMMAND Python3::Interpreter ${com_tests}/imports_test.py $<TARGET_FILE:cordboard_dll>)

# The client registers and unregisters on its own: never at the same time as the scripts.
set_tests_properties(com.client PROPERTIES FIXTURES_REQUIRED layer)
get_property(all DIRECTORY PROPERTY TESTS)
set_tests_properties(${all} PROPERTIES ENVIRONMENT "${in_layer}" TIMEOUT 60 RUN_SERIAL ON)
