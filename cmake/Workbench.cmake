# The workbench (a host around the library, on SQLite) and the program.
find_package(SQLite3 REQUIRED)
find_package(nlohmann_json REQUIRED)
find_package(CLI11 REQUIRED)

# The data files are carried in the program.
add_executable(embed tools/embed.cpp)
file(GLOB_RECURSE data_files CONFIGURE_DEPENDS data/*.json data/*.plan)
set(resources ${PROJECT_BINARY_DIR}/Resources_data.cpp)
add_custom_command(OUTPUT ${resources} COMMAND embed ${PROJECT_SOURCE_DIR}/data ${resources}
                   DEPENDS embed ${data_files} VERBATIM)

file(GLOB workbench_sources CONFIGURE_DEPENDS workbench/*.cpp workbench/*/*.cpp)
add_library(cordboard_workbench STATIC ${workbench_sources} ${resources})
target_link_libraries(cordboard_workbench PUBLIC cordboard::cordboard PRIVATE SQLite::SQLite3
                      nlohmann_json::nlohmann_json)

file(GLOB cli_sources CONFIGURE_DEPENDS cli/*.cpp)
add_executable(cordboard ${cli_sources})
target_compile_definitions(cordboard PRIVATE CORDBOARD_VERSION="${PROJECT_VERSION}")
target_link_libraries(cordboard PRIVATE cordboard_workbench cordboard_remote CLI11::CLI11 nlohmann_json::nlohmann_json)
install(TARGETS cordboard RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
