#include "workbench/plans/RecordAdds.h"

#include <algorithm>

namespace cordboard::workbench {

namespace {

using Run = std::span<const Record>;

std::vector<Record> Sorted(std::vector<Record> records) {
  std::ranges::sort(records);
  return records;
}

bool AreThese(const std::vector<Record>& made, Run wanted) {
  return Sorted(made) == Sorted({wanted.begin(), wanted.end()});
}

// The values that are others than those that were wanted.
std::string Others(const RecordTable& table, const Record& wanted, const std::vector<Record>& made) {
  if (made.size() != 1) return "there would be " + std::to_string(made.size()) + " records";
  std::string text;
  for (std::size_t i = 0; i < table.columns().size(); ++i) {
    const std::string& column = table.columns()[i];
    if (made.front()[i] == wanted[i]) continue;
    text += (text.empty() ? "" : ", ") + column + "=" + table.form().Told({column, made.front()[i]});
  }
  return text;
}

// Leaves out the column that holds the value of a parameter, which may be a digit of it. Gives whether it was told.
bool LeaveOut(const RecordTable& table, const std::string& parameter, Columns& told) {
  const Folding* folding = table.form().FoldingWith(parameter);
  const std::string& name = folding == nullptr ? parameter : folding->parameter;
  const std::vector<std::string>& columns = table.columns();
  const auto column = static_cast<std::size_t>(std::ranges::find(columns, name) - columns.begin());
  if (column == columns.size() || !told[column]) return false;
  told[column] = false;
  return true;
}

}  // namespace

std::string Refusal(const Problem& problem) {
  const std::string about =
      problem.parameter + (problem.parameter.empty() || problem.value.empty() ? "" : "=") + problem.value;
  return about + (about.empty() ? "" : ": ") + WithReason(problem);
}

// What served for records with the same columns is tried first, and all columns at last.
std::string RecordAdds::Add(const RecordTable& table, Run run) {
  const Columns given = GivenIn(run.front());
  const auto& learnt = learnt_[&table.form()];
  const auto found = learnt.find(given);
  const Columns first = found == learnt.end() ? ToldOf(table, run.front()) : found->second;
  std::string refusal = AddTelling(table, run, first);
  if (refusal.empty() || first == given) return refusal;
  return AddTelling(table, run, given).empty() ? "" : refusal;
}

// A value that the form refuses may follow from the others: it is left out then.
std::string RecordAdds::AddTelling(const RecordTable& table, Run run, Columns told) {
  std::string refusal;
  for (;;) {
    Trial trial(session_, changes_);
    const std::vector<Problem> problems = Try(table, run, told, trial);
    if (problems.empty()) {
      trial.Keep(kept_);
      learnt_[&table.form()][GivenIn(run.front())] = told;
      return "";
    }
    if (refusal.empty()) refusal = Refusal(problems.front());
    if (!LeaveOut(table, problems.front().parameter, told)) return refusal;
  }
}

// Where all was told, and one record comes out with other values, these are changed.
std::vector<Problem> RecordAdds::Try(const RecordTable& table, Run run, const Columns& told, Trial& trial) {
  if (auto problems = trial.Do(AddOf(table, run, told)); !problems.empty()) return problems;
  const std::vector<Record> made = trial.Made(table);
  if (AreThese(made, run)) return {};
  std::vector<Problem> refusal = {
      {.message = "the record would not have these values: " + Others(table, run.front(), made)}};
  if (run.size() != 1 || made.size() != 1 || told != GivenIn(run.front())) return refusal;
  const bool changed = trial.Do(EditOf(table, made.front(), run.front())).empty();
  return changed && AreThese(trial.Made(table), run) ? std::vector<Problem>{} : refusal;
}

bool RecordAdds::Replace(const RecordTable& table, const Record& standing, const Record& now) {
  Trial trial(session_, changes_);
  if (!trial.Do(DeleteOf(table, standing, Selected::ByAll)).empty()) return false;
  if (!Try(table, Run(&now, 1), GivenIn(now), trial).empty()) return false;
  trial.Keep(kept_);
  return true;
}

bool RecordAdds::AddAlike(const RecordTable& table, Run standing, Run records, std::size_t column) {
  Trial trial(session_, changes_);
  for (const Record& record : standing) {
    if (!trial.Do(DeleteOf(table, record, Selected::ByAll)).empty()) return false;
  }
  std::vector<Record> alike(records.size(), records.front());
  for (std::size_t i = 0; i < records.size(); ++i) alike[i][column] = records[i][column];
  if (!trial.Do(AddOf(table, alike, ToldOf(table, alike.front()))).empty()) return false;
  if (!AreThese(trial.Made(table), alike)) return false;
  for (std::size_t i = 0; i < records.size(); ++i) {
    if (alike[i] == records[i]) continue;
    if (!trial.Do(EditOf(table, alike[i], records[i])).empty()) return false;
    if (!AreThese(trial.Made(table), records.subspan(i, 1))) return false;
  }
  trial.Keep(kept_);
  return true;
}

}  // namespace cordboard::workbench
