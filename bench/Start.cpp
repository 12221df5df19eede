#include "bench/Start.h"

#include <cstdio>

#include "bench/Bounds.h"
#include "bench/Folder.h"
#include "bench/Valgrind.h"
#include "script/Statement.h"
#include "workbench/data/Resources.h"
#include "workbench/exchange/Exchange.h"
#include "workbench/exchange/Plant.h"

namespace cordboard::bench {

namespace {

struct Run {
  const char* words;
  double bound;  // millions of instructions
};
constexpr Run runs[] = {{"--version", 4.2},
                        {"help KSEXI", 11.6},
                        {"commands", 16.8},
                        {"values FILE KSEXI CAT", 12.6},
                        {"show FILE KSEXI", 13},
                        {"generate FILE", 17.1},
                        {"complete help KS", 17.9},
                        {"complete values FILE KSEXI C", 7},
                        {"complete explain FILE KSEXI:ITYPE=", 17.8}};

}  // namespace

void MeasureStart(const std::string& program) {
  std::printf("\nStart, on a new exchange\n");
  if (!HasValgrind()) {
    std::printf("  valgrind is not installed\n");
    return;
  }
  const Folder folder;
  const std::string file = folder.File("start");
  workbench::Exchange::Create(file, "R8", workbench::ParsePlant(workbench::Resource("plants/example.json"), "example"));
  for (const auto& [words, bound] : runs) {
    std::string command = words;
    if (const std::size_t at = command.find("FILE"); at != command.npos) command.replace(at, 4, "'" + file + "'");
    const double millions = InstructionsOf(Text("'", program, "' ", command)) / 1e6;
    std::printf("  %-36s %8.1f million instructions%s\n", words, millions, Held(words, millions, bound).c_str());
  }
}

}  // namespace cordboard::bench
