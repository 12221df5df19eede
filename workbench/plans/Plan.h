// Applying a plan: many lines, one result.
#pragma once

#include <functional>
#include <istream>
#include <stdexcept>
#include <string>
#include <vector>

#include "workbench/actions/UserAction.h"
#include "workbench/host/Session.h"

namespace cordboard::workbench {

// A plan that cannot be read to its end; the message names the file.
class PlanError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

struct PlanFile {
  std::string name;
  std::istream& in;
};

// What happened to one line: why it was refused, or what its user should know.
struct LineReport {
  std::string file;
  std::size_t line = 0;
  std::string command;
  bool refused = false;
  std::vector<Problem> problems;
};

struct PlanOptions {
  bool dryRun = false;     // the same road, rolled back
  bool keepGoing = false;  // keeps the good lines where others are refused
  std::function<void(std::size_t lines)> progress = {};
};

struct PlanResult {
  std::size_t done = 0;
  std::size_t refused = 0;
  bool kept = false;  // whether the exchange was changed
  std::vector<LineReport> reports;
};

// Applies the lines in order. A refused line leaves nothing; with one or more of them nothing at all is kept,
// unless the options say so. Every line is tried, so that all that is wrong is reported. Fails with PlanError, and
// keeps nothing, where a file breaks off: what is missing would not be noticed; with StorageError and Interrupted, and
// keeps nothing, as a Connection does.
PlanResult ApplyPlan(Session& session, const std::vector<PlanFile>& files, const PlanOptions& options);

}  // namespace cordboard::workbench
