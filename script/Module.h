// A command module: a plain set of workers, and the table of what they serve.
#pragma once

#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#include "script/Action.h"

namespace cordboard {

using Worker = bool (*)(const Action& action);

// The parameters that one worker serves: one name, or several that share it.
class ParameterNames {
 public:
  ParameterNames(const char* name) : names_{name} {}
  ParameterNames(std::initializer_list<const char*> names) : names_(names.begin(), names.end()) {}
  ParameterNames(std::vector<std::string> names) : names_(std::move(names)) {}

  const std::vector<std::string>& all() const { return names_; }

 private:
  std::vector<std::string> names_;
};

struct ParameterWorker {
  ParameterNames names;
  Worker worker;
};

struct Module {
  Worker SetInfo = nullptr;
  Worker EditInfo = nullptr;
  Worker DeleteInfo = nullptr;
  Worker GenerateCmd = nullptr;
  std::vector<ParameterWorker> ValidValues = {};
  std::vector<ParameterWorker> StatCheck = {};
  bool unserved = false;    // the answer for an action or a parameter that is not served
  bool isTemplate = false;  // a template command: the host is told so first, whatever the action is

  // The worker that builds the list of a parameter, and the one that checks it; null where none does.
  Worker ListOf(const std::string& parameter) const;
  Worker CheckOf(const std::string& parameter) const;

  // Runs the worker for the action and gives its answer. Nothing more happens for what is not served. All names are
  // compared exactly.
  bool Run(const Action& action) const;
};

}  // namespace cordboard
