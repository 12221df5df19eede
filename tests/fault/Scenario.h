// What a command is run on: a form that is filled in, a record, and the changed parameters, all from a random source.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "fault/World.h"
#include "workbench/host/Session.h"

namespace cordboard {

// The form of a command. One that has no form yet gets one of the columns of its tables; names that the command asks
// its host for are added as they come to be known.
const workbench::FormDefinition& FormOf(const std::string& command);
void AddToForm(const std::string& command, const std::string& parameter);

struct Scenario {
  const workbench::FormDefinition* form = nullptr;
  std::vector<std::pair<std::string, Value>> values;  // in the order in which they come to the form
  std::int32_t CmdId = 0;
  bool loaded = false;  // the record's values stand on the form before the others
  int definition = 1;
  List columns;
  List changed;

  // Opens the form of the session and fills it in.
  void Fill(workbench::Session& session) const;
};

// Makes a scenario, and thins out the rows of the tables for it.
Scenario MakeScenario(World& world, const std::string& command, Random& random);

}  // namespace cordboard
