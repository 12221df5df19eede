#include "bench/Plans.h"

#include <cstdio>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/Bounds.h"
#include "bench/Measure.h"
#include "bench/Plants.h"
#include "tests/workbench/support/Steps.h"
#include "workbench/exchange/Exchange.h"
#include "workbench/plans/Plan.h"

namespace cordboard::bench {

namespace {

constexpr const char* release = "R8";
constexpr int positions = 50000;
constexpr const char* numbers = "NANSI:NUMTYP=EX,NUMSE=10000&&99999;\n";
const std::string extension = ",ITYPE=9,EQU=next,TRAF=00,SERV=000000000,CDIV=000000000,ROC=010000;";

struct LargePlan {
  const char* title;
  int actions;  // lines, or values of the one line
  std::string before;
  std::string plan;
  double bound;  // steps of the database for each action
};

// The line as often, with {n} for a number that counts up.
std::string Lines(const std::string& line, int first, int count) {
  std::string plan;
  const std::size_t at = line.find("{n}");
  for (int number = first; number < first + count; ++number)
    plan += line.substr(0, at) + std::to_string(number) + line.substr(at + 3) + "\n";
  return plan;
}

std::vector<LargePlan> Plans() {
  const std::string twenty = "KSEXI:DIR=10000&&29999" + extension + "\n";
  return {{"NACDS, 4000 lines", 4000, "", Lines("NACDS:NUM={n},CDCAT=1;", 10000, 4000), 150},
          {"NACDS, one line with 9000 values", 9000, "", "NACDS:NUM=10000&&18999,CDCAT=1;\n", 105},
          {"KSEXI, 4000 lines", 4000, "", Lines("KSEXI:DIR={n}" + extension, 10000, 4000), 560},
          {"KSEXI, one line with 9000 values", 9000, "", "KSEXI:DIR=10000&&18999" + extension + "\n", 600},
          {"delete NANSI, 1000 lines", 1000, "", Lines("delete NANSI NUMSE={n};", 50000, 1000), 260},
          {"the same, 20,000 positions taken", 1000, twenty, Lines("delete NANSI NUMSE={n};", 50000, 1000), 520},
          {"KSEXI, 1000 lines that are refused", 1000, "", Lines("KSEXI:DIR={n},ITYPE=9,EQU=9;", 50000, 1000), 14000}};
}

void Apply(workbench::Session& session, const std::string& plan) {
  std::istringstream in(plan);
  const workbench::PlanResult result = workbench::ApplyPlan(session, {{"plan", in}}, {.keepGoing = true});
  if (result.done > 0 && result.refused > 0) throw std::runtime_error(result.reports.front().problems.front().message);
}

}  // namespace

void MeasurePlans() {
  std::printf("\n%-38s %10s %14s %16s\n", "90,000 numbers and 50,000 positions", "ms", "us per action",
              "steps per action");
  const workbench::StepCounter counter;
  for (const LargePlan& large : Plans()) {
    const auto exchange = workbench::Exchange::CreateInMemory(release, PlantWith("77", 32, positions));
    workbench::Session session(*exchange);
    Apply(session, numbers + large.before);
    double seconds = 0;
    const long all = workbench::StepCounter::Steps([&] { seconds = Seconds([&] { Apply(session, large.plan); }); });
    const double steps = static_cast<double>(all) / large.actions;
    std::printf("  %-36s %10.1f %14.1f %16.1f%s\n", large.title, seconds * 1e3, seconds * 1e6 / large.actions, steps,
                Held(large.title, steps, large.bound).c_str());
  }
}

}  // namespace cordboard::bench
