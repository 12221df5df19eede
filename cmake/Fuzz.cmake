# The fuzzers: libFuzzer, so clang. tests/fuzz/run builds and runs them.
foreach(name plan dialect wire web)
  add_executable(${name}-fuzz tests/fuzz/${name}_fuzz.cpp)
  target_link_options(${name}-fuzz PRIVATE -fsanitize=fuzzer)
  target_link_libraries(${name}-fuzz PRIVATE cordboard_web cordboard_workbench cordboard_remote nlohmann_json::nlohmann_json)
endforeach()
