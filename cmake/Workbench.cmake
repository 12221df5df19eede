# The workbench: a host around the library, with a database, the statement dialect, forms and messages.
find_package(SQLite3 REQUIRED)
find_package(nlohmann_json REQUIRED)

file(GLOB workbench_sources CONFIGURE_DEPENDS RELATIVE ${PROJECT_SOURCE_DIR} workbench/*.cpp workbench/*/*.cpp)
add_library(cordboard_workbench STATIC ${workbench_sources})
target_link_libraries(cordboard_workbench PUBLIC cordboard::cordboard SQLite::SQLite3 nlohmann_json::nlohmann_json)
