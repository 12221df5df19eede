// What a command is run on: a form that is filled in, a record, and the changed parameters, all from a random source.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "fault/World.h"
#include "workbench/host/Session.h"

namespace cordboard {

struct Scenario {
  workbench::Form form;                               // as it is filled in
  std::vector<std::pair<std::string, Value>> values;  // in the order in which they came to the form
  std::int32_t CmdId = 0;
  List columns;
  List changed;
};

// Makes a scenario, and thins out the rows of the tables for it.
Scenario MakeScenario(World& world, const std::string& command, Random& random);

}  // namespace cordboard
