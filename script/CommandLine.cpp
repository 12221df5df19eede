#include "script/CommandLine.h"

#include <fstream>
#include <utility>

namespace cordboard {

namespace {

CommandLineHook current;

}  // namespace

CommandLineHook SetCommandLine(CommandLineHook hook) { return std::exchange(current, std::move(hook)); }

std::string CommandLine() {
  if (current) return current();
  std::ifstream listed("/proc/self/cmdline", std::ios::binary);
  std::string line;
  for (std::string word; std::getline(listed, word, '\0');) line += (line.empty() ? "" : " ") + word;
  return line;
}

}  // namespace cordboard
