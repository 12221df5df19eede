#include "workbench/plans/PlanBetween.h"

#include <algorithm>
#include <map>
#include <set>
#include <span>

#include "workbench/exchange/NumberSeries.h"
#include "workbench/plans/ExchangeLine.h"
#include "workbench/plans/PlanLine.h"
#include "workbench/plans/PlanOrder.h"
#include "workbench/plans/RecordLines.h"
#include "workbench/system/Signals.h"

namespace cordboard::workbench {

namespace {

using Run = std::span<const Record>;

// More than any exchange needs; an end, should two records drive each other out for ever.
constexpr int mostRounds = 20;
// A longer line is no longer readable.
constexpr std::size_t longestWritten = 2000;

std::string InWords(const Problem& problem) {
  const std::string about =
      problem.parameter + (problem.parameter.empty() || problem.value.empty() ? "" : "=") + problem.value;
  return about + (about.empty() ? "" : ": ") + problem.message + (problem.reason.empty() ? "" : ": " + problem.reason);
}

bool Holds(const std::vector<Record>& records, const Record& record) {
  return std::ranges::find(records, record) != records.end();
}

class Turning {
 public:
  Turning(Exchange& scratch, Exchange& exchange)
      : scratch_(scratch),
        exchange_(exchange),
        session_(scratch),
        changes_(scratch),
        seriesStarts_(SeriesStarts(exchange)) {
    for (const FormDefinition* form : PlanOrder()) {
      for (const FormDefinition* table : form->OfEachTable()) tables_.emplace_back(*table);
    }
  }

  PlanBetween Do() {
    Transaction whole(scratch_);
    std::size_t before = 0;
    for (int round = 0; round == 0 || (result_.lines.size() > before && round < mostRounds); ++round) {
      before = result_.lines.size();
      for (auto table = tables_.rbegin(); table != tables_.rend(); ++table) Remove(*table);
      for (const RecordTable& table : tables_) ChangeAndAdd(table);
    }
    whole.Commit();
    for (const RecordTable& table : tables_) TellUntold(table);
    return std::move(result_);
  }

 private:
  RecordDifferences Compared(const RecordTable& table) {
    EndOnSignal();
    return table.Compare(table.Read(scratch_), table.Read(exchange_));
  }

  void Remove(const RecordTable& table) {
    for (const Record& record : Compared(table).surplus) {
      if (!Remove(table, record, Selected::ByKey)) Remove(table, record, Selected::ByAll);
    }
  }

  bool Remove(const RecordTable& table, const Record& record, Selected selected) {
    Trial trial(session_, changes_);
    const UserAction remove = DeleteOf(table, record, selected);
    const auto problems = trial.Do(remove);
    if (!problems.empty()) return Note(table, record, remove, InWords(problems.front()));
    trial.Keep(result_.lines);
    return true;
  }

  void ChangeAndAdd(const RecordTable& table) {
    const RecordDifferences differences = Compared(table);
    for (const auto& [before, now] : differences.changed) {
      if (!Change(table, before, now)) Replace(table, before, now);
    }
    for (const Run run : Runs(table, differences.missing, BeginsSeries(table))) Add(table, run);
  }

  // A series of numbers is a line of the exchange, so that it stays what it is.
  Begins BeginsSeries(const RecordTable& table) const {
    if (table.form().command != "NANSI") return {};
    const auto column = static_cast<std::size_t>(std::ranges::find(table.columns(), "NUMSE") - table.columns().begin());
    return [this, column](const Record& record) { return seriesStarts_.contains(record[column]); };
  }

  bool Change(const RecordTable& table, const Record& before, const Record& now) {
    Trial trial(session_, changes_);
    const UserAction edit = EditOf(table, before, now);
    if (const auto problems = trial.Do(edit); !problems.empty())
      return Note(table, now, edit, InWords(problems.front()));
    if (!Holds(trial.Made(table), now)) return Note(table, now, edit, "the record does not have these values then");
    trial.Keep(result_.lines);
    return true;
  }

  // What cannot be changed is added anew.
  void Replace(const RecordTable& table, const Record& before, const Record& now) {
    Trial trial(session_, changes_);
    if (!trial.Do(DeleteOf(table, before, Selected::ByKey)).empty()) return;
    if (TryAdd(table, Run(&now, 1), GivenIn(now), trial).empty()) trial.Keep(result_.lines);
  }

  // Where one of several records is refused they are tried in halves.
  void Add(const RecordTable& table, Run run) {
    const UserAction add = AddOf(table, run, ToldOf(table, run.front()));
    if (run.size() == 1 || WrittenLine(add).size() <= longestWritten) {
      const std::string refusal = AddTogether(table, run);
      if (refusal.empty()) return;
      if (run.size() == 1) {
        Note(table, run.front(), add, refusal);
        return;
      }
    }
    Add(table, run.first(run.size() / 2));
    Add(table, run.subspan(run.size() / 2));
  }

  // Gives why the run cannot be added, or nothing. What served for records with the same columns is tried first, all
  // columns at last.
  std::string AddTogether(const RecordTable& table, Run run) {
    const Columns given = GivenIn(run.front());
    const auto learnt = learnt_[&table.form()].find(given);
    const Columns first = learnt == learnt_[&table.form()].end() ? ToldOf(table, run.front()) : learnt->second;
    const std::string refusal = AddTelling(table, run, first);
    if (refusal.empty() || first == given) return refusal;
    return AddTelling(table, run, given).empty() ? "" : refusal;
  }

  // A value that the form refuses may follow from the others: it is left out then.
  std::string AddTelling(const RecordTable& table, Run run, Columns told) {
    std::string refusal;
    for (;;) {
      Trial trial(session_, changes_);
      const std::vector<Problem> problems = TryAdd(table, run, told, trial);
      if (problems.empty()) {
        trial.Keep(result_.lines);
        learnt_[&table.form()][GivenIn(run.front())] = told;
        return "";
      }
      if (refusal.empty()) refusal = InWords(problems.front());
      if (!LeaveOut(table, problems.front().parameter, told)) return refusal;
    }
  }

  // Leaves out the column that holds the value of a parameter, which may be a digit of it.
  static bool LeaveOut(const RecordTable& table, const std::string& parameter, Columns& told) {
    const Folding* folding = table.form().FoldingWith(parameter);
    const std::string& name = folding == nullptr ? parameter : folding->parameter;
    const auto column = std::ranges::find(table.columns(), name) - table.columns().begin();
    if (static_cast<std::size_t>(column) == told.size() || !told[static_cast<std::size_t>(column)]) return false;
    told[static_cast<std::size_t>(column)] = false;
    return true;
  }

  // Adds the run. Where all was told and one record comes out with other values, these are changed.
  std::vector<Problem> TryAdd(const RecordTable& table, Run run, const Columns& told, Trial& trial) {
    if (auto problems = trial.Do(AddOf(table, run, told)); !problems.empty()) return problems;
    std::vector<Record> made = trial.Made(table);
    if (run.size() == 1 && Holds(made, run.front())) return {};
    std::vector<Record> wanted(run.begin(), run.end());
    std::ranges::sort(wanted);
    std::ranges::sort(made);
    if (made == wanted) return {};
    const std::vector<Problem> refusal = {
        {.message = "the record would not have these values: " + Others(table, run, made)}};
    if (run.size() != 1 || made.size() != 1 || told != GivenIn(run.front())) return refusal;
    const bool changed = trial.Do(EditOf(table, made.front(), run.front())).empty();
    return changed && Holds(trial.Made(table), run.front()) ? std::vector<Problem>{} : refusal;
  }

  // The values that are others than those that were wanted.
  static std::string Others(const RecordTable& table, Run run, const std::vector<Record>& made) {
    if (made.size() != 1) return "there would be " + std::to_string(made.size()) + " records";
    std::string text;
    for (std::size_t i = 0; i < table.columns().size(); ++i) {
      const std::string& column = table.columns()[i];
      if (made.front()[i] == run.front()[i]) continue;
      text += (text.empty() ? "" : ", ") + column + "=" + table.form().Told({column, made.front()[i]});
    }
    return text;
  }

  bool Note(const RecordTable& table, const Record& record, const UserAction& action, const std::string& reason) {
    untold_[&table.form()][record] = {table.form().command, WrittenLine(action), reason};
    return false;
  }

  void TellUntold(const RecordTable& table) {
    const RecordDifferences differences = Compared(table);
    const auto tell = [&](const Record& record) { result_.untold.push_back(untold_[&table.form()][record]); };
    for (const Record& record : differences.surplus) tell(record);
    for (const auto& [before, now] : differences.changed) tell(now);
    for (const Record& record : differences.missing) tell(record);
  }

  Exchange& scratch_;
  Exchange& exchange_;
  Session session_;
  Changes changes_;
  std::set<std::string> seriesStarts_;
  std::vector<RecordTable> tables_;
  // The columns that did for records that have these.
  std::map<const FormDefinition*, std::map<Columns, Columns>> learnt_;
  std::map<const FormDefinition*, std::map<Record, UntoldRecord>> untold_;
  PlanBetween result_;
};

// What stands between two lines.
std::string Between(const TriedLine& line, const TriedLine& behind) {
  if (line.command != behind.command) return "\n# " + behind.command + ": " + FindForm(behind.command)->title + "\n";
  const auto action = ReadableLine(line.text);
  return action && Together(*action, behind.text) ? "#\n" : "";
}

}  // namespace

PlanBetween TurnInto(Exchange& scratch, Exchange& exchange) { return Turning(scratch, exchange).Do(); }

std::string Written(const std::vector<TriedLine>& lines) {
  std::string text;
  const TriedLine none;
  for (const TriedLine* before = &none; const TriedLine& line : lines) {
    text += Between(*before, line) + line.text + "\n";
    before = &line;
  }
  return text;
}

}  // namespace cordboard::workbench
