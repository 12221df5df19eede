#include "workbench/plans/Plan.h"

#include <algorithm>
#include <functional>
#include <optional>
#include <utility>

#include "workbench/history/Recording.h"
#include "workbench/plans/Ensure.h"
#include "workbench/plans/ExchangeLine.h"
#include "workbench/plans/PlanLine.h"
#include "workbench/plans/SavedPlan.h"
#include "workbench/system/Signals.h"

namespace cordboard::workbench {

namespace {

// The lines of a file, each with the one behind it. Each that is come to is handed to `take`.
class Lines {
 public:
  using Take = std::function<void(const std::string& line)>;
  Lines(std::istream& in, Take take) : in_(in), take_(std::move(take)), hasNext_(FirstLine(in, behind_)) {}

  bool HasNext() const { return hasNext_; }
  bool Next() {
    if (!hasNext_) return false;
    std::swap(line_, behind_);
    hasNext_ = NextLine(in_, behind_);
    ++number_;
    take_(line_);
    return true;
  }

  const std::string& line() const { return line_; }
  const std::string& behind() const { return behind_; }  // blank behind the last
  std::size_t number() const { return number_; }

 private:
  std::istream& in_;
  Take take_;
  std::string line_;
  std::string behind_;
  bool hasNext_;
  std::size_t number_ = 0;
};

// Performs an add or a line in a transaction of its own, so that a refused one leaves nothing.
LineReport Apply(Session& session, const UserAction& action, const PlanOptions& options, Changes& changes) {
  LineReport report;
  report.command = action.command;
  changes.Forget();
  Transaction transaction(session.exchange());
  Outcome outcome = options.ensure ? EnsureLine(session, action) : PerformLine(session, action);
  report.refused = !outcome.done || (options.strict && !outcome.warnings.empty());
  report.problems = outcome.done ? std::move(outcome.warnings) : std::move(outcome.problems);
  report.taken = std::move(outcome.taken);
  report.debugLines = std::move(outcome.debugLines);
  if (!report.refused) {
    report.changes = changes.Take();
    report.standing = outcome.standing;
    // What writes no record was so before, such as a line that comes with the records of another command.
    if (options.ensure && report.changes.empty()) report.standing = std::max<std::size_t>(report.standing, 1);
    transaction.Commit();
  }
  return report;
}

// Performs the line, or the two lines of one record that begin here. Where those are refused together, each is on its
// own, so that what is wrong is told of the right one. Nothing for a line without an action.
std::optional<LineReport> ApplyNext(Session& session, Lines& at, const ReadAction& read, const PlanOptions& options,
                                    Changes& changes) {
  try {
    const auto action = read(at.line());
    if (!action) return std::nullopt;
    if (const auto together = Together(*action, at.behind())) {
      LineReport report = Apply(session, *together, options, changes);
      if (!report.refused) {
        at.Next();
        return report;
      }
    }
    return Apply(session, *action, options, changes);
  } catch (const PlanLineError& error) {
    LineReport report;
    report.refused = true;
    report.problems.push_back({.message = error.what()});
    return report;
  }
}

void Count(const std::vector<RecordChange>& changes, std::map<std::string, RecordCounts>& commands) {
  for (const RecordChange& change : changes) {
    RecordCounts& counts = commands[change.command()];
    const RecordChange::Kind kind = change.kind();
    ++(kind == RecordChange::Kind::Added     ? counts.added
       : kind == RecordChange::Kind::Changed ? counts.changed
                                             : counts.removed);
  }
}

// Keeps the problems of a line, as far as there is room for them.
void Keep(LineReport report, PlanResult& result) {
  ProblemCount& count = report.refused ? result.errors : result.warnings;
  const std::size_t told = std::min(report.problems.size(), mostProblems - count.told);
  count.told += told;
  count.untold += report.problems.size() - told;
  if (told == 0) return;
  report.problems.resize(told);
  report.changes.clear();
  report.taken.clear();
  result.reports.push_back(std::move(report));
}

StateNote NoteOf(const PlanResult& result, const std::string& message) {
  StateNote note{.message = message, .lines = result.done};
  for (const auto& [command, counts] : result.commands) {
    note.added += counts.added;
    note.changed += counts.changed;
    note.removed += counts.removed;
  }
  return note;
}

}  // namespace

PlanResult ApplyPlan(Session& session, const std::vector<PlanFile>& files, const PlanOptions& options) {
  PlanResult result;
  Changes changes(session.exchange());
  // The exchange is held from the first line on, so that nobody is kept out by a plan that is still to come.
  std::optional<Recording> whole;
  std::size_t seen = 0;
  for (const PlanFile& file : files) {
    SavedPlanCheck saved(file.name);
    Lines at(file.in, [&](const std::string& line) {
      saved.Take(line, result.key);
      if (saved.IsSaved() && files.size() > 1) throw StalePlan(file.name + " was saved to be applied alone");
      if (options.read) options.read(file.name, line);
      whole->AddText(file.name, line + "\n");
    });
    if (at.HasNext() && !whole) {
      whole.emplace(session.exchange().Dynamic());
      result.key = whole->mark() + (options.ensure ? "-ensure" : "");
    }
    while (at.Next()) {
      EndOnSignal();
      const std::size_t first = at.number();
      auto report = ApplyNext(session, at, file.read, options, changes);
      const std::size_t lines = at.number() - first + 1;
      for (std::size_t line = 0; options.progress && line < lines; ++line) options.progress(++seen);
      if (!report) continue;
      (report->refused ? result.refused : result.done) += lines;
      report->file = file.name;
      report->line = at.number();
      Count(report->changes, result.commands);
      if (report->standing > 0) result.commands[report->command].standing += report->standing;
      if (options.done && !report->refused) options.done(*report);
      Keep(std::move(*report), result);
      whole->Relieve();
    }
    EndOnSignal();
    if (file.in.bad()) throw PlanError(file.name + " cannot be read to its end; nothing was kept");
    saved.End();
  }
  result.kept = !options.dryRun && result.done > 0 && (result.refused == 0 || options.keepGoing);
  if (result.kept) {
    result.state = whole->CommitChanges(NoteOf(result, options.message));
  } else if (whole) {
    whole->RollBack();
  }
  return result;
}

}  // namespace cordboard::workbench
