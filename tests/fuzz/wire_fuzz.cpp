// The wire protocol: whatever the peer sends, the server ends in good order and writes nothing but JSON lines.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <nlohmann/json.hpp>
#include <sstream>

#include "remote/Serve.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::istringstream in(std::string(reinterpret_cast<const char*>(data), size));
  std::ostringstream out;
  std::ostringstream diagnostics;
  if (cordboard::remote::Serve(in, out, diagnostics) != 0) std::abort();
  std::istringstream lines(out.str());
  for (std::string line; std::getline(lines, line);) {
    if (!nlohmann::json::accept(line)) std::abort();
  }
  return 0;
}
