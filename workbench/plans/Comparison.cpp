#include "workbench/plans/Comparison.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <nlohmann/json.hpp>
#include <utility>

#include "workbench/actions/Generation.h"
#include "workbench/exchange/PlantTables.h"
#include "workbench/text/Names.h"
#include "workbench/text/Separated.h"

namespace cordboard::workbench {

namespace {

// The columns of the records in the table. They have no identifier: the first column stands for it.
WatchedTable Watched(const RecordTable& records) {
  const Table& table = *records.form().Database().Find(records.form().table);
  WatchedTable watched{.table = &table, .columns = {0}};
  for (const std::string& name : records.columns()) {
    const auto column =
        std::ranges::find_if(table.columns, [&](const Column& each) { return SameName(each.name, name); });
    watched.columns.push_back(static_cast<std::size_t>(column - table.columns.begin()));
  }
  return watched;
}

RowImage Image(const Record& record) {
  RowImage image = {Value::Null()};
  for (const std::string& value : record) image.push_back(value.empty() ? Value::Null() : Value(value));
  return image;
}

// Numbers by how great they are, and in front of all other texts.
bool IsLess(const std::string& one, const std::string& other) {
  const auto isNumber = [](const std::string& text) { return text.find_first_not_of("0123456789") == text.npos; };
  if (isNumber(one) != isNumber(other)) return isNumber(one);
  if (isNumber(one) && one.size() != other.size()) return one.size() < other.size();
  return one < other;
}

using Key = std::vector<Assignment>;

bool ComesBefore(const Key& one, const Key& other) {
  return std::ranges::lexicographical_compare(one, other, [](const Assignment& a, const Assignment& b) {
    return a.name == b.name ? IsLess(a.value, b.value) : a.name < b.name;
  });
}

using Lines = std::vector<GeneratedLine>;

// How often each line is there.
using Counts = std::map<std::string, std::size_t, std::less<>>;
Counts CountsOf(const Lines& lines) {
  Counts counts;
  for (const GeneratedLine& line : lines) ++counts[line.text];
  return counts;
}

// The lines that are not among the others.
std::vector<GeneratedLine> Without(const Lines& lines, Counts others) {
  Lines rest;
  std::ranges::copy_if(lines, std::back_inserter(rest), [&others](const GeneratedLine& line) {
    const auto found = others.find(line.text);
    if (found == others.end() || found->second == 0) return true;
    --found->second;
    return false;
  });
  return rest;
}

// A session of its own: the library has one at a time.
Generated LinesFrom(Exchange& exchange, const std::vector<std::string>& commands) {
  Session session(exchange);
  return Generate(session, "dynamic", commands);
}

}  // namespace

std::vector<RecordChange> RecordComparison::ChangesOf(const FormDefinition& command) {
  std::vector<RecordChange> changes;
  for (const FormDefinition* form : command.OfEachTable()) Compare(*form, changes);
  std::vector<std::pair<Key, RecordChange>> byKey;
  for (RecordChange& change : changes) {
    Key key = change.Key();
    byKey.emplace_back(std::move(key), std::move(change));
  }
  std::ranges::stable_sort(byKey, ComesBefore, &std::pair<Key, RecordChange>::first);
  changes.clear();
  for (auto& [key, change] : byKey) changes.push_back(std::move(change));
  return changes;
}

void RecordComparison::Compare(const FormDefinition& form, std::vector<RecordChange>& changes) {
  const RecordTable records(form);
  const RecordDifferences differences = records.Compare(records.Read(first_), records.Read(second_));
  const WatchedTable* table = &tables_.emplace_back(Watched(records));
  for (const Record& record : differences.surplus)
    changes.emplace_back(form, RowDifference{table, Image(record), std::nullopt});
  for (const auto& [before, now] : differences.changed)
    changes.emplace_back(form, RowDifference{table, Image(before), Image(now)});
  for (const Record& record : differences.missing)
    changes.emplace_back(form, RowDifference{table, std::nullopt, Image(record)});
}

std::vector<std::string> OtherDifferences(Exchange& first, Exchange& second) {
  std::vector<std::string> differences;
  if (first.release() != second.release())
    differences.push_back("the releases differ: " + first.release() + " and " + second.release());
  const nlohmann::json one = JsonOf(PlantOf(first));
  const nlohmann::json other = JsonOf(PlantOf(second));
  std::vector<std::string> names;
  for (const auto& [name, value] : one.items()) {
    if (!other.contains(name) || other[name] != value) names.push_back(name);
  }
  if (!names.empty()) differences.push_back("the plants differ, in " + Separated(names, ", "));
  return differences;
}

DifferentLines CompareLines(Exchange& first, Exchange& second, const std::vector<std::string>& commands) {
  Generated one = LinesFrom(first, commands);
  Generated other = LinesFrom(second, commands);
  const Lines firstAlone = Without(one.lines, CountsOf(other.lines));
  const Lines secondAlone = Without(other.lines, CountsOf(one.lines));
  DifferentLines different;
  for (const std::string& command : GenerationOrder()) {
    for (const auto& [lines, inSecond] : {std::pair(&firstAlone, false), std::pair(&secondAlone, true)}) {
      for (const GeneratedLine& line : *lines) {
        if (line.command == command) different.lines.push_back({command, line.text, inSecond});
      }
    }
  }
  different.problems = std::move(one.problems);
  std::ranges::move(other.problems, std::back_inserter(different.problems));
  return different;
}

ExportedPlan PlanInto(Exchange& first, Exchange& second) {
  ExportedPlan plan{.header = {}, .plan = TurnInto(first, second), .different = {}};
  plan.different = DifferentTables(first, second);
  return plan;
}

}  // namespace cordboard::workbench
