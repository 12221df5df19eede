#include "bench/Instructions.h"

#include <cstdio>

#include "bench/Bounds.h"
#include "bench/Folder.h"
#include "bench/Valgrind.h"
#include "bench/Workload.h"

namespace cordboard::bench {

namespace {

constexpr int series = 100;

}  // namespace

void MeasureInstructions(const std::string& program) {
  std::printf("\nThe workload with %d series, on an exchange in a file with its history\n", series);
  if (!HasValgrind()) {
    std::printf("  valgrind is not installed\n");
    return;
  }
  for (const Workload::Step& step : Workload::steps) {
    const Folder folder;
    const std::string command =
        "'" + program + "' workload " + std::to_string(series) + " '" + folder.File("exchange") + "'";
    const double all = InstructionsOf(command, std::string("cordboard::bench::Workload::") + step.function + "()");
    const double thousands = all / Workload::ActionsOf(step, series) / 1e3;
    std::printf("  %-36s %8.1f thousand instructions%s\n", step.name, thousands,
                Held(step.name, thousands, step.instructions).c_str());
  }
}

}  // namespace cordboard::bench
