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
#include "tests/workbench/support/ExamplePlans.h"
#include "tests/workbench/support/Steps.h"
#include "workbench/forms/FormDefinition.h"

namespace cordboard::bench {

namespace {

constexpr int few = 10000;
constexpr int many = 100000;
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

// Holds the costs where there is much to those where there is little; `mark` ends the names of rows. Takes those that
// grow out of `idle`.
void Table(Front front, const std::vector<std::string>& plans, const std::string& mark, const Reasons& growing,
           Reasons& idle) {
  const workbench::StepCounter counter;
  const Costs small = CostsOn(*LargeExchange(few, front), plans);
  const Costs large = CostsOn(*LargeExchange(many, front), plans);
  std::printf("\n%-38s %10d %10d %7s %22s\n", "steps of the database", few, many, "ratio", "milliseconds");
  for (const auto& [name, cost] : small) {
    const std::string row = name + mark;
    const auto found = large.find(name);
    const Cost other = found == large.end() ? Cost{INFINITY, INFINITY} : found->second;  // an action went another way
    const auto grows = growing.find(row);
    const double growth = grows == growing.end() ? 1 : static_cast<double>(many) / few;
    const double steps = other.steps / std::max(cost.steps, 1.0);
    const double time = other.milliseconds / std::max(cost.milliseconds, leastTime);
    if (steps > moreSteps) idle.erase(row);
    std::printf("  %-36s %10.0f %10.0f %7.2f%s %8.2f %8.2f%s %s\n", row.c_str(), cost.steps, other.steps, steps,
                Held(row, steps, moreSteps * growth).c_str(), cost.milliseconds, other.milliseconds,
                Held(row + ", time", time, moreTime * growth).c_str(),
                grows == growing.end() ? "" : grows->second.c_str());
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
