// Applying a plan: many lines, one result.
#pragma once

#include <functional>
#include <istream>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "workbench/actions/Changes.h"
#include "workbench/actions/UserAction.h"
#include "workbench/host/Session.h"
#include "workbench/plans/PlanLine.h"

namespace cordboard::workbench {

// A plan that cannot be read to its end; the message names the file.
class PlanError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// What a line of a file says, as an action or nothing; fails with PlanLineError.
using ReadAction = std::function<std::optional<UserAction>(std::string_view line)>;

struct PlanFile {
  std::string name;
  std::istream& in;
  ReadAction read = ParsePlanLine;
};

// What happened to one line: why it was refused, or what it did and its user should know.
struct LineReport {
  std::string file;
  std::size_t line = 0;
  std::string command;
  bool refused = false;
  std::vector<Problem> problems;
  std::vector<RecordChange> changes = {};
  std::size_t standing = 0;                  // records that were as told already
  std::vector<Assignment> taken = {};        // the values that "next" stood for
  std::vector<std::string> debugLines = {};  // what the library traced
};

struct RecordCounts {
  std::size_t added = 0;
  std::size_t changed = 0;
  std::size_t removed = 0;
  std::size_t standing = 0;  // left alone, since they were as told
};

struct PlanOptions {
  using Read = std::function<void(const std::string& file, const std::string& line)>;

  bool dryRun = false;       // the same road, rolled back
  bool keepGoing = false;    // keeps the good lines where others are refused
  bool strict = false;       // refuses a line of which its user would be warned
  bool ensure = false;       // does of each line what is not so yet
  std::string message = {};  // for the history of the exchange: what the plan is for
  Read read = {};            // each line, before it is tried
  std::function<void(std::size_t lines)> progress = {};
  std::function<void(const LineReport& report)> done = {};  // after each line that was done
};

// As many problems are told, of refused lines and of others. The rest is counted alone, so that no plan costs more
// memory than that.
inline constexpr std::size_t mostProblems = 100000;

struct ProblemCount {
  std::size_t told = 0;  // in reports
  std::size_t untold = 0;
};

struct PlanResult {
  std::size_t done = 0;
  std::size_t refused = 0;
  bool kept = false;                                  // whether what was done stays
  std::optional<int> state = {};                      // of the exchange's history, where what was kept changed anything
  std::string key = {};                               // where it is the same, a plan does the same
  std::map<std::string, RecordCounts> commands = {};  // what became of the records of each, by the lines that were done
  std::vector<LineReport> reports = {};               // of the lines with problems, without what they did
  ProblemCount errors = {};
  ProblemCount warnings = {};
};

// Applies the lines in order. A refused line leaves nothing; with one or more of them nothing at all is kept,
// unless the options say so. Every line is tried, so that all that is wrong is reported. Fails with PlanError, and
// keeps nothing, where a file breaks off: what is missing would not be noticed; with StalePlan where one was saved and
// the exchange or the plan is another now; with StorageError and Interrupted, and keeps nothing, as a Connection does.
PlanResult ApplyPlan(Session& session, const std::vector<PlanFile>& files, const PlanOptions& options);

}  // namespace cordboard::workbench
