# The fuzzers: libFuzzer, so clang. tests/fuzz/run builds and runs them.
# What they drive counts its branches. That is a quarter of compiling a file, and tests have no use for it.
foreach(driven cordboard_library cordboard_workbench cordboard_web cordboard_remote)
  target_compile_options(${driven} PRIVATE -fsanitize=fuzzer-no-link)
endforeach()
foreach(name plan dialect wire web)
  add_executable(${name}-fuzz tests/fuzz/${name}_fuzz.cpp)
  target_compile_options(${name}-fuzz PRIVATE -fsanitize=fuzzer-no-link)
  target_link_options(${name}-fuzz PRIVATE -fsanitize=fuzzer)
  target_link_libraries(${name}-fuzz PRIVATE cordboard_web cordboard_workbench cordboard_remote nlohmann_json::nlohmann_json)
endforeach()
