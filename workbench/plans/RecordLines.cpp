#include "workbench/plans/RecordLines.h"

#include <algorithm>
#include <iterator>

#include "workbench/text/Elements.h"
#include "workbench/text/Separated.h"

namespace cordboard::workbench {

namespace {

// The told columns in which the records differ.
std::vector<std::size_t> Different(const Record& one, const Record& other, const Columns& told) {
  std::vector<std::size_t> different;
  for (std::size_t i = 0; i < one.size(); ++i) {
    if (told[i] && one[i] != other[i]) different.push_back(i);
  }
  return different;
}

// Whether several values of the columns, each with its place among them, make a record each.
bool CanVary(const RecordTable& table, const std::vector<std::size_t>& columns) {
  const FormDefinition& form = table.form();
  const auto takesSeveral = [&](std::size_t i) { return form.Find(table.columns()[i])->multiple; };
  const auto goInStep = [&](const std::vector<std::string>& together) {
    return std::ranges::all_of(
        columns, [&](std::size_t i) { return std::ranges::find(together, table.columns()[i]) != together.end(); });
  };
  return !columns.empty() && std::ranges::all_of(columns, takesSeveral) &&
         (columns.size() == 1 || std::ranges::any_of(form.inStep, goInStep));
}

// How many of the first records one line may make.
std::size_t LengthOfRun(const RecordTable& table, std::span<const Record> records, const Begins& begins) {
  if (records.size() < 2) return records.size();
  const Record& first = records.front();
  // One line may make the same record several times.
  const auto other = std::ranges::find_if(records, [&](const Record& record) { return record != first; });
  const auto copies = static_cast<std::size_t>(other - records.begin());
  if (copies > 1) return std::min(copies, mostElements);
  const Columns told = ToldOf(table, first);
  const auto varying = Different(first, records[1], told);
  const auto hasOneValueOfEach = [&](const Record& record) {
    return std::ranges::all_of(varying, [&](std::size_t i) { return record[i].find('&') == std::string::npos; });
  };
  if (!CanVary(table, varying) || !hasOneValueOfEach(first)) return 1;
  const auto belongs = [&](const Record& record) {
    return !(begins && begins(record)) && ToldOf(table, record) == told && Different(first, record, told) == varying &&
           hasOneValueOfEach(record);
  };
  const auto end = std::find_if_not(records.begin() + 1, records.end(), belongs);
  return std::min(static_cast<std::size_t>(end - records.begin()), mostElements);
}

std::string ValueOf(const RecordTable& table, std::span<const Record> run, std::size_t column) {
  const std::string& first = run.front()[column];
  if (std::ranges::all_of(run, [&](const Record& record) { return record[column] == first; })) return first;
  std::vector<std::string> values;
  std::ranges::transform(run, std::back_inserter(values), [&](const Record& record) { return record[column]; });
  return Separated(table.form().Find(table.columns()[column])->range ? AsRanges(values) : values, "&");
}

}  // namespace

Columns GivenIn(const Record& record) {
  Columns given;
  for (const std::string& value : record) given.push_back(!value.empty());
  return given;
}

Columns ToldOf(const RecordTable& table, const Record& record) {
  Columns told = GivenIn(record);
  const auto place = [&](const std::string& name) {
    return static_cast<std::size_t>(std::ranges::find(table.columns(), name) - table.columns().begin());
  };
  const auto isGiven = [&](const std::string& name) { return place(name) < told.size() && told[place(name)]; };
  const auto& sets = table.form().oneOf;
  const auto first = std::ranges::find_if(sets, [&](const auto& names) { return std::ranges::all_of(names, isGiven); });
  if (first == sets.end()) return told;
  for (const auto& names : sets) {
    for (const std::string& name : names) {
      if (std::ranges::find(*first, name) == first->end() && place(name) < told.size()) told[place(name)] = false;
    }
  }
  return told;
}

std::vector<std::span<const Record>> Runs(const RecordTable& table, std::span<const Record> records,
                                          const Begins& begins) {
  std::vector<std::span<const Record>> runs;
  while (!records.empty()) {
    runs.push_back(records.first(LengthOfRun(table, records, begins)));
    records = records.subspan(runs.back().size());
  }
  return runs;
}

UserAction AddOf(const RecordTable& table, std::span<const Record> run, const Columns& told) {
  UserAction add{.command = table.form().command, .selection = {}, .values = {}};
  for (std::size_t i = 0; i < told.size(); ++i) {
    if (told[i]) add.values.push_back({table.columns()[i], ValueOf(table, run, i)});
  }
  return add;
}

UserAction EditOf(const RecordTable& table, const Record& before, const Record& now) {
  UserAction edit{
      .kind = UserAction::Kind::Edit, .command = table.form().command, .selection = table.KeyOf(before), .values = {}};
  for (std::size_t i = 0; i < now.size(); ++i) {
    if (before[i] != now[i]) edit.values.push_back({table.columns()[i], now[i]});
  }
  return edit;
}

UserAction DeleteOf(const RecordTable& table, const Record& record, Selected selected) {
  return {.kind = UserAction::Kind::Delete,
          .command = table.form().command,
          .selection = selected == Selected::ByKey ? table.KeyOf(record) : table.ValuesOf(record),
          .values = {}};
}

}  // namespace cordboard::workbench
