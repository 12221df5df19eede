#include "bench/Commands.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <map>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "bench/Actions.h"
#include "bench/Bounds.h"
#include "bench/LargeExchange.h"
#include "bench/Measure.h"
#include "tests/workbench/support/ExamplePlans.h"
#include "tests/workbench/support/Steps.h"
#include "workbench/forms/FormDefinition.h"

namespace cordboard::bench {

namespace {

constexpr int smallCount = 10000;
constexpr int largeCount = 100000;
constexpr double moreSteps = 1.25;
// The machine makes times differ, and what takes less than half a millisecond says nothing.
constexpr double moreTime = 4;
constexpr double leastTime = 0.5;

// What grows with the tables because of what the rules ask, by row: why.
using Reasons = std::map<std::string, std::string>;

Reasons Growing() {
  std::ifstream in(CORDBOARD_SOURCE_DIR "/bench/growing.json");
  const nlohmann::json reasons = nlohmann::json::parse(in);
  Reasons growing;
  for (const auto& [reason, rows] : reasons.items()) {
    for (const auto& row : rows) growing[row] = reason;
  }
  return growing;
}

std::vector<std::string> Examples() {
  std::vector<std::string> plans;
  for (const std::string& name : workbench::ExamplePlans()) plans.emplace_back(workbench::Resource("plans/" + name));
  return plans;
}

std::string Positions() {
  std::ifstream in(CORDBOARD_SOURCE_DIR "/bench/positions.plan");
  return {std::istreambuf_iterator<char>(in), {}};
}

// What a row costs where there is little, and where there is much.
struct Row {
  Cost small;
  Cost large;
  std::string why;  // the reason for which it grows; nothing where it must not

  double Growth() const { return why.empty() ? 1 : static_cast<double>(largeCount) / smallCount; }
  double Steps() const { return large.steps / std::max(small.steps, 1.0); }
  double Time() const { return large.milliseconds / std::max(small.milliseconds, leastTime); }
};
using Rows = std::map<std::string, Row>;

// A row that is not there has no time that could be less.
bool TakesTooLong(const Rows::value_type& row) {
  const double time = row.second.Time();
  return std::isfinite(time) && time > moreTime * row.second.Growth();
}

// `mark` ends the names of rows.
Rows RowsOf(const Costs& small, const Costs& large, const std::string& mark, const Reasons& growing) {
  Rows rows;
  for (const auto& [name, cost] : small) {
    const auto found = large.find(name);
    const Cost other = found == large.end() ? Cost{INFINITY, INFINITY} : found->second;  // an action went another way
    const auto grows = growing.find(name + mark);
    rows[name + mark] = {cost, other, grows == growing.end() ? "" : grows->second};
  }
  return rows;
}

// Holds the costs where there is much to those where there is little. Takes the rows that grow out of `idle`.
void Table(Front front, const std::vector<std::string>& plans, const std::string& mark, const Reasons& growing,
           Reasons& idle) {
  const workbench::StepCounter counter;
  const Costs small = CostsOn(*LargeExchange(smallCount, front), plans);
  Rows rows = RowsOf(small, CostsOn(*LargeExchange(largeCount, front), plans), mark, growing);
  // What cannot be done twice on one exchange is done on another one, where it took too long: the least time counts.
  for (int again = 1; again < repeats && std::ranges::any_of(rows, TakesTooLong); ++again) {
    for (const auto& [name, row] : RowsOf(small, CostsOn(*LargeExchange(largeCount, front), plans), mark, growing))
      rows[name].large.milliseconds = std::min(rows[name].large.milliseconds, row.large.milliseconds);
  }
  std::printf("\n%-38s %10d %10d %7s %22s\n", "steps of the database", smallCount, largeCount, "ratio", "milliseconds");
  for (const auto& [name, row] : rows) {
    if (row.Steps() > moreSteps) idle.erase(name);
    std::printf("  %-36s %10.0f %10.0f %7.2f%s %8.2f %8.2f%s %s\n", name.c_str(), row.small.steps, row.large.steps,
                row.Steps(), Held(name, row.Steps(), moreSteps * row.Growth()).c_str(), row.small.milliseconds,
                row.large.milliseconds, Held(name + ", time", row.Time(), moreTime * row.Growth()).c_str(),
                row.why.c_str());
  }
}

}  // namespace

void MeasureCommands() {
  workbench::Forms();  // they are read once
  const Reasons growing = Growing();
  Reasons idle = growing;
  Table(Front::ExamplePlant, Examples(), "", growing, idle);
  Table(Front::TakenPositions, {Positions()}, ", taken", growing, idle);
  for (const auto& [row, reason] : idle)
    Complain("growing.json: \"" + row + "\" grows no more, or is no row: take it out");
}

}  // namespace cordboard::bench
