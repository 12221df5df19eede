#include "workbench/actions/Selection.h"

#include <algorithm>
#include <unordered_map>

#include "script/Conversions.h"
#include "workbench/text/Elements.h"
#include "workbench/text/Escaped.h"
#include "workbench/text/Separated.h"

namespace cordboard::workbench {

namespace {

// A parameter that is selected by several values, and which of them records have.
class SeveralValues {
 public:
  SeveralValues(std::string name, std::vector<std::string> values)
      : name_(std::move(name)), values_(std::move(values)) {
    for (std::size_t i = 0; i < values_.size(); ++i) places_.emplace(values_[i], Place{i});
  }

  const std::string& name() const { return name_; }

  // The place of a value that a record has, in the order typed.
  std::size_t Found(const std::string& value) {
    const auto place = places_.find(value);
    if (place == places_.end()) return values_.size();
    place->second.isFound = true;
    return place->second.number;
  }

  std::string NotFound() const {
    std::vector<std::string> rest;
    for (const std::string& value : values_) {
      if (!places_.at(value).isFound) rest.push_back(value);
    }
    return Separated(AsRanges(rest), "&");
  }

 private:
  struct Place {
    std::size_t number;
    bool isFound = false;
  };

  std::string name_;
  std::vector<std::string> values_;
  std::unordered_map<std::string, Place> places_;
};

struct FoundRecord {
  Selection::Each record;
  std::vector<std::size_t> places;  // by which it was found
};

// By its key, or where its form has none by what it was selected by.
std::vector<std::string> NamingColumns(const FormDefinition& table, const std::vector<SeveralValues>& several) {
  std::vector<std::string> columns;
  for (const std::string& name : table.key) {
    if (std::ranges::find(table.columns, name) != table.columns.end()) columns.push_back(name);
  }
  if (columns.empty()) std::ranges::transform(several, std::back_inserter(columns), &SeveralValues::name);
  return columns;
}

void Find(Exchange& exchange, const FormDefinition& table, const std::vector<Assignment>& selection,
          std::vector<SeveralValues>& several, std::vector<FoundRecord>& found) {
  const std::vector<std::string> naming = NamingColumns(table, several);
  std::string what = "[CmdId]";
  for (const SeveralValues& each : several) what += ", CAST([" + each.name() + "] AS TEXT)";
  for (const std::string& column : naming) what += ", [" + column + "]";
  const RowSet rows = SelectRecords(exchange, table, what, selection, "");
  for (std::size_t row = 0; row < rows.RowCount(); ++row) {
    FoundRecord& record = found.emplace_back(FoundRecord{{{&table, ToInt32(rows[0][row])}, ""}, {}});
    std::size_t column = 1;
    for (SeveralValues& each : several) record.places.push_back(each.Found(Joined(rows[column++][row])));
    for (const std::string& name : naming) {
      const std::string value = Joined(rows[column++][row]);
      std::string& text = record.record.name;
      if (!value.empty()) text += (text.empty() ? "" : ",") + name + "=" + table.Told({name, value});
    }
  }
}

}  // namespace

std::variant<Selection, Problem> FindRecords(Exchange& exchange, const FormDefinition& definition,
                                             const std::vector<Assignment>& selection) {
  const auto tables = TablesWith(definition, selection);
  if (const auto* problem = std::get_if<Problem>(&tables)) return *problem;
  std::vector<SeveralValues> several;
  for (const Assignment& each : selection) {
    std::vector<std::string> values = SelectedValues(exchange, definition, each);
    if (values.size() > 1) several.emplace_back(each.name, std::move(values));
  }
  if (several.empty()) {
    const auto one = FindRecord(exchange, definition, selection);
    if (const auto* problem = std::get_if<Problem>(&one)) return *problem;
    return Selection{.records = {{std::get<StoredRecord>(one), ""}}};
  }

  std::vector<FoundRecord> found;
  for (const FormDefinition* table : std::get<0>(tables)) Find(exchange, *table, selection, several, found);
  if (found.empty()) return Problem{.message = NoRecord(definition, selection)};
  std::ranges::stable_sort(found, {}, &FoundRecord::places);
  Selection selected{.records = {}, .several = true};
  for (FoundRecord& record : found) selected.records.push_back(std::move(record.record));
  for (const SeveralValues& each : several) {
    const std::string rest = each.NotFound();
    if (rest.empty()) continue;
    std::vector<Assignment> missed = selection;
    std::ranges::find(missed, each.name(), &Assignment::name)->value = rest;
    selected.notThere.push_back({.message = NoRecord(definition, missed)});
  }
  return selected;
}

namespace {

bool Finds(Exchange& exchange, const FormDefinition& command, const std::vector<Assignment>& selection,
           const StoredRecord& record) {
  if (selection.empty()) return false;
  const auto found = FindRecord(exchange, command, selection);
  const auto* one = std::get_if<StoredRecord>(&found);
  return one != nullptr && one->CmdId == record.CmdId && one->definition == record.definition;
}

}  // namespace

std::vector<Assignment> SelectionOf(Exchange& exchange, const FormDefinition& command, const StoredRecord& record) {
  const FormDefinition& table = *record.definition;
  Form form(table);
  LoadRecord(exchange, table, record.CmdId, form);
  std::vector<Assignment> key;
  std::vector<Assignment> all;
  for (const std::string& column : table.columns) {
    const std::string value = Joined(form.Get(column));
    if (value.empty() || !table.Shows(column) || table.IsSecret(column)) continue;
    // No line can hold a line end.
    if (Escaped(value) != value) continue;
    const bool isKey = std::ranges::find(table.key, column) != table.key.end();
    (isKey ? key : all).push_back({column, value});
  }
  all.insert(all.begin(), key.begin(), key.end());
  for (const auto& selection : {key, all, std::vector<Assignment>{{"CMDID", std::to_string(record.CmdId)}}})
    if (Finds(exchange, command, selection, record)) return selection;
  return {};
}

}  // namespace cordboard::workbench
