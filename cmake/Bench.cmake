# The benchmark: bench/run builds and runs it.
file(GLOB bench_sources CONFIGURE_DEPENDS bench/*.cpp)
add_executable(cordboard-bench ${bench_sources})
target_compile_definitions(cordboard-bench PRIVATE CORDBOARD_SOURCE_DIR="${PROJECT_SOURCE_DIR}")
target_link_libraries(cordboard-bench PRIVATE cordboard_workbench SQLite::SQLite3 nlohmann_json::nlohmann_json)
