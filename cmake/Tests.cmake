# One test program for each room; a program is one case for ctest, since a process for each of its tests costs minutes
# under the sanitizers.
find_package(GTest REQUIRED)

# What several test programs use. One file alone knows where the sources lie.
file(GLOB test_support CONFIGURE_DEPENDS tests/support/*.cpp)
list(FILTER test_support EXCLUDE REGEX _test\\.cpp$)
add_library(cordboard_test_support STATIC ${test_support})
set_source_files_properties(tests/support/SourceFolder.cpp PROPERTIES
  COMPILE_DEFINITIONS CORDBOARD_SOURCE_DIR="${PROJECT_SOURCE_DIR}")
target_include_directories(cordboard_test_support PUBLIC tests)
target_link_libraries(cordboard_test_support PUBLIC cordboard::cordboard GTest::gtest GTest::gmock GTest::gtest_main)

# What has been precompiled for a library serves this target too, which is built with the same options.
function(reuse_precompiled target other)
  if(CORDBOARD_PRECOMPILE)
    target_precompile_headers(${target} REUSE_FROM ${other})
  endif()
endfunction()
cordboard_precompile(cordboard_test_support <gmock/gmock.h> tests/support/Outcome.h tests/support/ScriptedHost.h
                     tests/support/Transcript.h)

file(GLOB library_tests CONFIGURE_DEPENDS tests/script/*.cpp tests/shared/*.cpp tests/commands/*.cpp
     tests/commands/*/*.cpp tests/entry/*.cpp tests/support/*_test.cpp)
add_executable(library-tests ${library_tests})
target_link_libraries(library-tests PRIVATE cordboard_test_support)
reuse_precompiled(library-tests cordboard_test_support)
add_test(NAME library COMMAND library-tests --gtest_brief=1)

# What the tests of the workbench, and of what stands on it, have in common; then its own tests.
if(CORDBOARD_WORKBENCH)
  file(GLOB workbench_support CONFIGURE_DEPENDS tests/workbench/support/*.cpp)
  add_library(cordboard_workbench_test_support STATIC ${workbench_support})
  target_link_libraries(cordboard_workbench_test_support PUBLIC cordboard_test_support cordboard_workbench)
  cordboard_precompile(cordboard_workbench_test_support <gmock/gmock.h> tests/support/Road.h
                       tests/workbench/support/RoadTest.h)

  file(GLOB_RECURSE workbench_tests CONFIGURE_DEPENDS tests/workbench/*_test.cpp)
  add_executable(workbench-tests ${workbench_tests})
  target_link_libraries(workbench-tests PRIVATE cordboard_workbench_test_support)
  link_workbench_first(workbench-tests)
  reuse_precompiled(workbench-tests cordboard_workbench_test_support)
  add_test(NAME workbench COMMAND workbench-tests --gtest_brief=1)
endif()

find_package(Python3 REQUIRED COMPONENTS Interpreter)

# The pages for a browser.
if(CORDBOARD_WORKBENCH)
  file(GLOB web_tests CONFIGURE_DEPENDS tests/web/*.cpp)
  add_executable(web-tests ${web_tests})
  target_link_libraries(web-tests PRIVATE cordboard_workbench_test_support cordboard_web)
  link_workbench_first(web-tests)
  reuse_precompiled(web-tests cordboard_workbench_test_support)
  add_test(NAME web COMMAND web-tests --gtest_brief=1)
  add_test(NAME web.wire COMMAND Python3::Interpreter ${PROJECT_SOURCE_DIR}/tests/web/wire_test.py
                                 $<TARGET_FILE:cordboard>)
  if(CORDBOARD_SANITIZE)
    set_tests_properties(web.wire PROPERTIES ENVIRONMENT CORDBOARD_SANITIZED=1)
  endif()
  # In a real browser: Debian's, which Debian's own Python drives.
  add_test(NAME web.browser COMMAND /usr/bin/python3 ${PROJECT_SOURCE_DIR}/tests/web/browser_test.py
                                    $<TARGET_FILE:cordboard>)
endif()

# The habits of the project: what stands in the tree, and the tools that put it there.
add_test(NAME tree.habits COMMAND Python3::Interpreter ${PROJECT_SOURCE_DIR}/tests/tree/check_tree.py)
add_test(NAME tree.check_tree COMMAND Python3::Interpreter ${PROJECT_SOURCE_DIR}/tests/tree/check_tree_test.py)
add_test(NAME tree.calls COMMAND Python3::Interpreter ${PROJECT_SOURCE_DIR}/tests/tree/check_calls.py
                                 ${PROJECT_BINARY_DIR})
add_test(NAME tree.check_calls COMMAND Python3::Interpreter ${PROJECT_SOURCE_DIR}/tests/tree/check_calls_test.py)
add_test(NAME tree.new_command COMMAND Python3::Interpreter ${PROJECT_SOURCE_DIR}/tests/tree/new_command_test.py)
add_test(NAME tree.tidy COMMAND Python3::Interpreter ${PROJECT_SOURCE_DIR}/tests/tree/tidy_test.py)
set_tests_properties(tree.check_tree tree.calls tree.check_calls tree.new_command tree.tidy PROPERTIES
  ENVIRONMENT "PYTHONDONTWRITEBYTECODE=1")
# What new-command makes is built into the programs of this build.
if(CORDBOARD_WORKBENCH AND CMAKE_GENERATOR STREQUAL "Ninja")
  add_test(NAME tree.new_command_builds COMMAND Python3::Interpreter
           ${PROJECT_SOURCE_DIR}/tests/tree/new_command_build_test.py ${PROJECT_BINARY_DIR})
  set_tests_properties(tree.new_command_builds PROPERTIES LABELS slow ENVIRONMENT "PYTHONDONTWRITEBYTECODE=1")
endif()

# What is installed serves an embedder.
if(CORDBOARD_SANITIZE)
  set(embed_flags -fsanitize=${CORDBOARD_SANITIZE})
endif()
add_test(NAME install.embed COMMAND ${CMAKE_COMMAND}
  -DBUILD=${PROJECT_BINARY_DIR} -DSOURCE=${PROJECT_SOURCE_DIR} -DWORK=${PROJECT_BINARY_DIR}/embed-test
  -DCXX=${CMAKE_CXX_COMPILER} -DFLAGS=${embed_flags}
  -P ${PROJECT_SOURCE_DIR}/tests/install/embed.cmake)
set_tests_properties(install.embed PROPERTIES LABELS slow)
if(CORDBOARD_WORKBENCH)
  add_test(NAME install.program COMMAND Python3::Interpreter ${PROJECT_SOURCE_DIR}/tests/install/install_test.py
                                        ${PROJECT_BINARY_DIR})
  set_tests_properties(install.program PROPERTIES LABELS slow)
endif()

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
  add_test(NAME remote COMMAND remote-tests --gtest_brief=1)

  add_test(NAME remote.process COMMAND Python3::Interpreter ${PROJECT_SOURCE_DIR}/tests/remote/process_test.py
                                       $<TARGET_FILE:cordboard> serve)
endif()

# The page of every command says what its form says.
if(CORDBOARD_WORKBENCH)
  add_test(NAME tree.pages COMMAND ${PROJECT_SOURCE_DIR}/tools/command-pages --check
                                   --program $<TARGET_FILE:cordboard>)
endif()

# Faults: every command with every call of its host going wrong, the families side by side. They take longest, so they
# start first.
if(CORDBOARD_WORKBENCH)
  file(GLOB fault_tests CONFIGURE_DEPENDS tests/fault/*.cpp)
  add_executable(fault-tests ${fault_tests})
  target_link_libraries(fault-tests PRIVATE cordboard_workbench_test_support)
  link_workbench_first(fault-tests)
  reuse_precompiled(fault-tests cordboard_workbench_test_support)
  file(GLOB modules CONFIGURE_DEPENDS RELATIVE ${PROJECT_SOURCE_DIR}/commands commands/*/*.cpp)
  list(TRANSFORM modules REPLACE "/.*" "")
  list(REMOVE_DUPLICATES modules)
  foreach(family IN LISTS modules)
    add_test(NAME fault.${family} COMMAND fault-tests --gtest_brief=1 --gtest_filter=Of/Faults.*/${family}_*)
    set_tests_properties(fault.${family} PROPERTIES COST 1000)
  endforeach()
  add_test(NAME fault.host COMMAND fault-tests --gtest_brief=1 --gtest_filter=-Of/Faults.*)
endif()

# Those parts of the program that are more than what its users see.
if(CORDBOARD_WORKBENCH)
  file(GLOB cli_tests CONFIGURE_DEPENDS tests/cli/*_test.cpp)
  add_executable(cli-tests ${cli_tests})
  target_link_libraries(cli-tests PRIVATE cordboard_workbench_test_support cordboard_cli)
  link_workbench_first(cli-tests)
  reuse_precompiled(cli-tests cordboard_workbench_test_support)
  add_test(NAME cli COMMAND cli-tests --gtest_brief=1)
endif()

# The program as its users run it, one class of tests at a time.
if(CORDBOARD_WORKBENCH)
  find_package(Python3 REQUIRED COMPONENTS Interpreter)
  set(program_test ${PROJECT_SOURCE_DIR}/tests/cli/program_test.py)
  file(STRINGS ${program_test} classes REGEX "^class .*\\(ProgramTest\\)")
  foreach(class IN LISTS classes)
    string(REGEX REPLACE "^class (.*)\\(ProgramTest\\).*" "\\1" class "${class}")
    add_test(NAME program.${class} COMMAND Python3::Interpreter ${program_test} $<TARGET_FILE:cordboard> ${class})
  endforeach()
  foreach(class Piped Typing)
    add_test(NAME shell.${class} COMMAND Python3::Interpreter ${PROJECT_SOURCE_DIR}/tests/cli/shell_test.py
                                         $<TARGET_FILE:cordboard> ${class})
  endforeach()
  set_tests_properties(shell.Piped shell.Typing PROPERTIES ENVIRONMENT "PYTHONDONTWRITEBYTECODE=1")
endif()
