// One Run of the library on a scenario, with one of the host's operations going wrong or none, and what came of it.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "fault/Scenario.h"
#include "script/Module.h"
#include "script/TracingHost.h"
#include "support/FailingHost.h"

namespace cordboard {

// An action of a command; lists and checks are of a parameter, and parameters may share a worker.
struct Deed {
  std::string function;
  std::string parameter = {};
  Worker worker = nullptr;  // null where none serves it
};

struct Course {
  std::vector<TracedCall> calls;
  bool answer = false;
  std::optional<std::string> failure;  // of the call
  std::optional<std::string> escaped;  // an exception of any other kind
  bool box = false;                    // whether a message box was shown
  int openBefore = 0;                  // transactions
  int openAfter = 0;
  std::string left;  // what an action that answers False or fails has changed in the tables: lines gone, lines come

  bool Succeeded() const { return answer && !failure; }
  // How often an operation was called, and how often with the answer True.
  std::size_t Count(const std::string& operation) const;
  std::size_t CountTrue(const std::string& operation) const;
  // The greatest number of transactions that the library had open at once.
  int Deepest() const;
  // The last call that the host answered with False; empty where there is none.
  std::string LastRefused() const;
  // The road that the worker took: operations, statements without their values, answers.
  std::string Road() const;
  std::string Transcript() const;
};

// A call without the values in it, and its operation.
std::string WithoutValues(const std::string& call);
std::string OperationOf(const TracedCall& call);

// Runs the deed and undoes what it did.
Course Go(World& world, const Scenario& scenario, const Deed& deed, std::size_t wrongCall = 0,
          Fault fault = Fault::Fails);

}  // namespace cordboard
