#include "workbench/plans/PlanBetween.h"

#include <algorithm>
#include <map>
#include <set>
#include <span>

#include "workbench/exchange/NumberSeries.h"
#include "workbench/plans/ExchangeLine.h"
#include "workbench/plans/PlanLine.h"
#include "workbench/plans/PlanOrder.h"
#include "workbench/plans/RecordAdds.h"
#include "workbench/plans/RecordLines.h"
#include "workbench/system/Signals.h"

namespace cordboard::workbench {

namespace {

using Run = std::span<const Record>;

// More than any exchange needs; an end, should two records drive each other out for ever.
constexpr int mostRounds = 20;
// A longer line is no longer readable.
constexpr std::size_t longestWritten = 2000;
// So many records come together at most, since those that stand are made anew for it.
constexpr std::size_t mostTogether = 100;

bool Holds(const std::vector<Record>& records, const Record& record) {
  return std::ranges::find(records, record) != records.end();
}

class Turning {
 public:
  Turning(Exchange& scratch, Exchange& exchange, std::string oneALine)
      : scratch_(scratch),
        exchange_(exchange),
        session_(scratch),
        changes_(scratch),
        adds_(session_, changes_, result_.lines),
        oneALine_(std::move(oneALine)),
        seriesStarts_(SeriesStarts(exchange)) {
    for (const FormDefinition* form : PlanOrder()) {
      for (const FormDefinition* table : form->OfEachTable()) tables_.emplace_back(*table);
    }
  }

  PlanBetween Do() {
    Transaction whole(scratch_);
    for (int round = 0; round < mostRounds; ++round) {
      const std::size_t before = result_.lines.size();
      for (auto table = tables_.rbegin(); table != tables_.rend(); ++table) Remove(*table);
      for (const RecordTable& table : tables_) ChangeAndAdd(table);
      if (result_.lines.size() > before) continue;
      for (const RecordTable& table : tables_) AddWithOthers(table);
      if (result_.lines.size() == before) break;
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
    if (!problems.empty()) return Note(table, record, remove, Refusal(problems.front()));
    trial.Keep(result_.lines);
    return true;
  }

  void ChangeAndAdd(const RecordTable& table) {
    const RecordDifferences differences = Compared(table);
    for (const auto& [before, now] : differences.changed) {
      // What cannot be changed is added anew.
      if (!Change(table, before, now)) adds_.Replace(table, before, now);
    }
    for (const Run run : Runs(table, differences.missing, BeginsRun(table))) Add(table, run);
  }

  // A series of numbers is a line of the exchange, so that it stays what it is.
  Begins BeginsRun(const RecordTable& table) const {
    if (table.form().command == oneALine_) return [](const Record&) { return true; };
    if (table.form().command != "NANSI") return {};
    const auto column = static_cast<std::size_t>(std::ranges::find(table.columns(), "NUMSE") - table.columns().begin());
    return [this, column](const Record& record) { return seriesStarts_.contains(record[column]); };
  }

  bool Change(const RecordTable& table, const Record& before, const Record& now) {
    Trial trial(session_, changes_);
    const UserAction edit = EditOf(table, before, now);
    if (const auto problems = trial.Do(edit); !problems.empty())
      return Note(table, now, edit, Refusal(problems.front()));
    if (!Holds(trial.Made(table), now)) return Note(table, now, edit, "the record does not have these values then");
    trial.Keep(result_.lines);
    return true;
  }

  // Where one of several records is refused they are tried in halves.
  void Add(const RecordTable& table, Run run) {
    const UserAction add = AddOf(table, run, ToldOf(table, run.front()));
    if (run.size() == 1 || WrittenLine(add).size() <= longestWritten) {
      const std::string refusal = adds_.Add(table, run);
      if (refusal.empty()) return;
      if (run.size() == 1) {
        Note(table, run.front(), add, refusal);
        return;
      }
    }
    Add(table, run.first(run.size() / 2));
    Add(table, run.subspan(run.size() / 2));
  }

  // A record that is refused where others stand may come together with those, if they differ in one column of the key.
  void AddWithOthers(const RecordTable& table) {
    const std::vector<Record> missing = Compared(table).missing;
    for (std::size_t column = 0; !missing.empty() && column < table.columns().size(); ++column) {
      if (!table.IsKey(column) || !table.form().Find(table.columns()[column])->multiple) continue;
      auto alike = ByRestOfKey(table, exchange_, column);
      auto standing = ByRestOfKey(table, scratch_, column);
      for (const Record& record : missing) {
        const auto group = alike.extract(table.MarkedKey(record, column));
        if (group.empty() || group.mapped().size() < 2 || group.mapped().size() > mostTogether) continue;
        adds_.AddAlike(table, standing[group.key()], group.mapped(), column);
      }
    }
  }

  static std::map<std::string, std::vector<Record>> ByRestOfKey(const RecordTable& table, Exchange& exchange,
                                                                std::size_t column) {
    std::map<std::string, std::vector<Record>> records;
    for (Record& record : table.Read(exchange)) {
      std::vector<Record>& same = records[table.MarkedKey(record, column)];
      same.push_back(std::move(record));
    }
    return records;
  }

  bool Note(const RecordTable& table, const Record& record, const UserAction& action, const std::string& reason) {
    untold_[&table.form()][record] = {table.form().command, WrittenLine(action), reason};
    return false;
  }

  void TellUntold(const RecordTable& table) {
    const RecordDifferences differences = Compared(table);
    const UntoldRecord unsettled{table.form().command, "", "other lines undo what makes it, over and over"};
    const auto tell = [&](const Record& record) {
      result_.untold.push_back(untold_[&table.form()].try_emplace(record, unsettled).first->second);
    };
    for (const Record& record : differences.surplus) tell(record);
    for (const auto& [before, now] : differences.changed) tell(now);
    for (const Record& record : differences.missing) tell(record);
  }

  Exchange& scratch_;
  Exchange& exchange_;
  Session session_;
  Changes changes_;
  PlanBetween result_;
  RecordAdds adds_;
  std::string oneALine_;
  std::set<std::string> seriesStarts_;
  std::vector<RecordTable> tables_;
  std::map<const FormDefinition*, std::map<Record, UntoldRecord>> untold_;
};

// What stands between two lines.
std::string Between(const TriedLine& line, const TriedLine& behind) {
  if (line.command != behind.command) return "\n# " + behind.command + ": " + FindForm(behind.command)->title + "\n";
  const auto action = ReadableLine(line.text);
  return action && Together(*action, behind.text) ? "#\n" : "";
}

}  // namespace

PlanBetween TurnInto(Exchange& scratch, Exchange& exchange, const std::string& oneALine) {
  return Turning(scratch, exchange, oneALine).Do();
}

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
