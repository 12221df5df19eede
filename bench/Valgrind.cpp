#include "bench/Valgrind.h"

#include <cstdio>
#include <cstdlib>
#include <stdexcept>

namespace cordboard::bench {

bool HasValgrind() { return std::system("valgrind --version >/dev/null 2>&1") == 0; }

// The number that callgrind gives after "Collected :".
double InstructionsOf(const std::string& command, const std::string& within) {
  const std::string collected = within.empty() ? "" : "--toggle-collect='" + within + "' ";
  const std::string whole = "valgrind --tool=callgrind --callgrind-out-file=/dev/null " + collected + command + " 2>&1";
  FILE* output = popen(whole.c_str(), "r");
  if (output == nullptr) throw std::runtime_error("valgrind cannot be started");
  std::string text;
  for (int c = 0; (c = std::fgetc(output)) != EOF;) text += static_cast<char>(c);
  const std::string mark = "Collected : ";
  const std::size_t at = text.find(mark);
  if (pclose(output) != 0 || at == text.npos) throw std::runtime_error("valgrind failed: " + text);
  return std::stod(text.substr(at + mark.size()));
}

}  // namespace cordboard::bench
