# The workbench (a host around the library, on SQLite) and the program.
find_package(SQLite3 REQUIRED)
find_package(nlohmann_json REQUIRED)
find_package(CLI11 REQUIRED)

# The data files and the documentation are carried in the program.
add_executable(embed tools/embed.cpp workbench/data/DataTree.cpp workbench/text/Utf8.cpp)
target_include_directories(embed PRIVATE ${PROJECT_SOURCE_DIR})
target_link_libraries(embed PRIVATE nlohmann_json::nlohmann_json)
file(GLOB_RECURSE carried_files CONFIGURE_DEPENDS data/*.json data/*.plan docs/*.md web/assets/*)
set(resources ${PROJECT_BINARY_DIR}/Resources_data.cpp)
add_custom_command(OUTPUT ${resources}
                   COMMAND embed ${resources} ${PROJECT_SOURCE_DIR}/data ${PROJECT_SOURCE_DIR}/docs
                           ${PROJECT_SOURCE_DIR}/web/assets
                   DEPENDS embed ${carried_files} VERBATIM)

file(GLOB workbench_sources CONFIGURE_DEPENDS workbench/*.cpp workbench/*/*.cpp)
add_library(cordboard_workbench STATIC ${workbench_sources} ${resources})
target_link_libraries(cordboard_workbench PUBLIC cordboard::cordboard PRIVATE SQLite::SQLite3
                      nlohmann_json::nlohmann_json)
cordboard_precompile(cordboard_workbench ${standard_headers} workbench/actions/UserAction.h workbench/text/Separated.h)
if(CORDBOARD_SANITIZE)
  # Under sanitizers its tests take longer than to compile it.
  target_compile_options(cordboard_workbench PRIVATE -O1)
endif()

# Of an inline function that many objects have, the first one's is taken. Under sanitizers that is to be the
# workbench's, which is optimised: its tests take a third less.
function(link_workbench_first target)
  if(CORDBOARD_SANITIZE)
    target_link_options(${target} PRIVATE
                        LINKER:--whole-archive,$<TARGET_FILE:cordboard_workbench>,--no-whole-archive)
  endif()
endfunction()

# The page for a browser.
find_package(Boost REQUIRED)
file(GLOB web_sources CONFIGURE_DEPENDS web/*.cpp web/pages/*.cpp)
add_library(cordboard_web STATIC ${web_sources})
target_link_libraries(cordboard_web PUBLIC cordboard_workbench PRIVATE Boost::headers)
cordboard_precompile(cordboard_web <algorithm> web/Frame.h web/Selecting.h)

# What the program says of its build is looked up by every build, and compiled where it has changed.
set(version ${PROJECT_BINARY_DIR}/Version.cpp)
add_custom_target(cordboard_version BYPRODUCTS ${version}
  COMMAND ${CMAKE_COMMAND} -DSOURCE=${PROJECT_SOURCE_DIR} -DOUTPUT=${version} -DVERSION=${PROJECT_VERSION}
          -DBUILD_TYPE=$<CONFIG> -P ${PROJECT_SOURCE_DIR}/cmake/Version.cmake
  COMMENT "Looking up the version" VERBATIM)

# The shell stands on libedit. All but main is a library, for tests.
find_path(EDIT_INCLUDE histedit.h REQUIRED)
find_library(EDIT_LIBRARY edit REQUIRED)
file(GLOB cli_sources CONFIGURE_DEPENDS cli/*.cpp cli/*/*.cpp)
list(FILTER cli_sources EXCLUDE REGEX /main\\.cpp$)
add_library(cordboard_cli STATIC ${cli_sources} ${version})
add_dependencies(cordboard_cli cordboard_version)
target_include_directories(cordboard_cli PRIVATE ${EDIT_INCLUDE})
target_link_libraries(cordboard_cli PUBLIC cordboard_workbench nlohmann_json::nlohmann_json
                      PRIVATE cordboard_web cordboard_remote CLI11::CLI11 SQLite::SQLite3 ${EDIT_LIBRARY})
cordboard_precompile(cordboard_cli <iostream> <nlohmann/json.hpp> cli/Files.h cli/Output.h)
add_executable(cordboard cli/main.cpp)
target_link_libraries(cordboard PRIVATE cordboard_cli)
link_workbench_first(cordboard)
if(NOT CORDBOARD_SANITIZE)
  # To bind thousands of names of the standard library takes a quarter of a short run.
  target_link_options(cordboard PRIVATE -static-libstdc++ -static-libgcc)
endif()

# The manual pages, as the program prints them.
set(man_pages ${PROJECT_BINARY_DIR}/man)
add_custom_command(OUTPUT ${man_pages}.stamp
                   COMMAND ${CMAKE_COMMAND} -E rm -rf ${man_pages}
                   COMMAND cordboard man --pages ${man_pages}
                   COMMAND ${CMAKE_COMMAND} -E touch ${man_pages}.stamp
                   DEPENDS cordboard COMMENT "Writing the manual pages" VERBATIM)
add_custom_target(cordboard_man ALL DEPENDS ${man_pages}.stamp)
