#include "workbench/plans/Plan.h"

#include <optional>

#include "workbench/plans/PlanLine.h"

namespace cordboard::workbench {

namespace {

// The next line, cut where it is longer than any line may be, so that a hostile file costs no memory.
bool ReadLine(std::istream& in, std::string& line) {
  line.clear();
  int c = in.get();
  if (c == std::istream::traits_type::eof()) return false;
  for (; c != std::istream::traits_type::eof() && c != '\n'; c = in.get()) {
    if (line.size() <= longestLine) line += static_cast<char>(c);
  }
  return true;
}

// The mark that some editors put in front of UTF-8 text.
void DropByteOrderMark(std::string& line) {
  if (line.starts_with("\xEF\xBB\xBF")) line.erase(0, 3);
}

// Performs one line in a transaction of its own, so that a refused one leaves nothing.
std::optional<LineReport> ApplyLine(Session& session, const std::string& line) {
  LineReport report;
  try {
    const auto action = ParsePlanLine(line);
    if (!action) return std::nullopt;
    report.command = action->command;
    Transaction transaction(session.exchange());
    Outcome outcome = Perform(session, *action);
    report.refused = !outcome.done;
    report.problems = outcome.done ? std::move(outcome.warnings) : std::move(outcome.problems);
    if (outcome.done) transaction.Commit();
  } catch (const PlanLineError& error) {
    report.refused = true;
    report.problems.push_back({.message = error.what()});
  }
  return report;
}

}  // namespace

PlanResult ApplyPlan(Session& session, const std::vector<PlanFile>& files, const PlanOptions& options) {
  PlanResult result;
  Transaction whole(session.exchange());
  std::size_t lines = 0;
  for (const PlanFile& file : files) {
    std::string line;
    for (std::size_t number = 1; ReadLine(file.in, line); ++number) {
      if (number == 1) DropByteOrderMark(line);
      auto report = ApplyLine(session, line);
      if (options.progress) options.progress(++lines);
      if (!report) continue;
      ++(report->refused ? result.refused : result.done);
      if (!report->refused && report->problems.empty()) continue;
      report->file = file.name;
      report->line = number;
      result.reports.push_back(std::move(*report));
    }
    if (file.in.bad()) throw PlanError(file.name + " cannot be read to its end; nothing was kept");
  }
  result.kept = !options.dryRun && result.done > 0 && (result.refused == 0 || options.keepGoing);
  if (result.kept) {
    whole.Commit();
  } else {
    whole.RollBack();
  }
  return result;
}

}  // namespace cordboard::workbench
