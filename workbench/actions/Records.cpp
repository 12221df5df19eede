#include "workbench/actions/Records.h"

#include <algorithm>
#include <iterator>
#include <nlohmann/json.hpp>

#include "script/Conversions.h"
#include "workbench/database/Schema.h"
#include "workbench/forms/Unknown.h"
#include "workbench/text/Elements.h"
#include "workbench/text/Separated.h"

namespace cordboard::workbench {

namespace {

bool HasColumn(const FormDefinition& definition, const std::string& name) {
  return std::ranges::find(definition.columns, name) != definition.columns.end();
}

// Whether the text can stand for several values: not where the sign is part of it, as in a name.
bool CanBeSeveral(const FormDefinition& definition, const Assignment& given) {
  const ParameterDefinition* parameter = definition.Find(given.name);
  return parameter != nullptr && !parameter->secret && given.value.find('&') != given.value.npos &&
         (parameter->TakesElements() || parameter->list || parameter->fixed);
}

// "KSEXI with DIR=100"
std::string Described(const FormDefinition& definition, const std::vector<Assignment>& selection) {
  const std::string given =
      Separated(selection, ",", [&](const Assignment& each) { return each.name + "=" + definition.Told(each); });
  return definition.command + (given.empty() ? "" : " with " + given);
}

}  // namespace

std::variant<std::vector<const FormDefinition*>, Problem> TablesWith(const FormDefinition& definition,
                                                                     const std::vector<Assignment>& selection) {
  const std::vector<const FormDefinition*> tables = definition.OfEachTable();
  for (const Assignment& each : selection) {
    if (std::ranges::none_of(tables, [&](const FormDefinition* table) { return HasColumn(*table, each.name); }))
      return Problem{
          .parameter = each.name, .value = definition.Told(each), .message = UnknownColumn(definition, each.name)};
    try {
      if (CanBeSeveral(definition, each)) Elements(each.value);
    } catch (const ElementsError& error) {
      return Problem{.parameter = each.name, .value = each.value, .message = error.what()};
    }
  }
  std::vector<const FormDefinition*> with;
  std::ranges::copy_if(tables, std::back_inserter(with), [&](const FormDefinition* table) {
    return std::ranges::all_of(selection, [&](const Assignment& each) { return HasColumn(*table, each.name); });
  });
  return with;
}

std::vector<std::string> SelectedValues(Exchange& exchange, const FormDefinition& definition, const Assignment& given) {
  const auto isHeld = [&](const FormDefinition* table) {
    return HasColumn(*table, given.name) && IsHeld(exchange, *table, given.name, given.value);
  };
  if (!CanBeSeveral(definition, given) || std::ranges::any_of(definition.OfEachTable(), isHeld)) return {given.value};
  return Elements(given.value);
}

// The names are columns of the table, so that they can stand in a statement. However many values there are, one
// statement looks for them all.
RowSet SelectRecords(Exchange& exchange, const FormDefinition& table, const std::string& what,
                     const std::vector<Assignment>& selection, const std::string& end) {
  std::vector<Value> values;
  const auto condition = [&](const Assignment& each) {
    const std::vector<std::string> several = SelectedValues(exchange, table, each);
    values.emplace_back(several.size() == 1 ? several.front() : nlohmann::json(several).dump());
    return "[" + each.name + (several.size() == 1 ? "] = ?" : "] IN (SELECT [value] FROM json_each(?))");
  };
  const std::string conditions = Separated(selection, " AND ", condition);
  return exchange.Dynamic().Run(
      "SELECT " + what + " FROM " + table.Rows() + (selection.empty() ? "" : " WHERE " + conditions) + end, values);
}

std::variant<StoredRecord, Problem> FindRecord(Exchange& exchange, const FormDefinition& definition,
                                               const std::vector<Assignment>& selection) {
  const auto tables = TablesWith(definition, selection);
  if (const auto* problem = std::get_if<Problem>(&tables)) return *problem;
  std::vector<StoredRecord> found;
  for (const FormDefinition* table : std::get<0>(tables)) {
    const RowSet rows = SelectRecords(exchange, *table, "[CmdId]", selection, " LIMIT 2");
    for (std::size_t row = 0; row < rows.RowCount(); ++row) found.push_back({table, ToInt32(rows[0][row])});
  }
  if (found.size() == 1) return found.front();
  if (found.empty()) return Problem{.message = NoRecord(definition, selection)};
  return Problem{.message = "there are several records of " + Described(definition, selection) +
                            "; select one by more of its parameters"};
}

std::string NoRecord(const FormDefinition& definition, const std::vector<Assignment>& selection) {
  return "there is no record of " + Described(definition, selection);
}

std::string IsBlankRow(const FormDefinition& table) {
  std::vector<std::string> filled;
  std::ranges::copy_if(table.columns, std::back_inserter(filled),
                       [&](const std::string& column) { return column != "CMDID" && column != table.prepared; });
  return Separated(filled, " AND ", [](const std::string& column) { return "COALESCE([" + column + "], '') = ''"; });
}

RecordCount CountRecords(Exchange& exchange, const FormDefinition& definition) {
  const auto rows = [&exchange](const FormDefinition& table, const std::string& condition = "") {
    const Value count = exchange.Dynamic().Single("SELECT COUNT(*) FROM " + table.Rows() + condition);
    return static_cast<std::size_t>(count.number());
  };
  RecordCount count;
  for (const FormDefinition* table : definition.OfEachTable()) {
    count.records += rows(*table);
    if (!table->prepared.empty()) count.blank += rows(*table, " WHERE " + IsBlankRow(*table));
  }
  count.records -= count.blank;
  return count;
}

bool HoldsSecrets(Exchange& exchange) {
  const auto holds = [&exchange](const FormDefinition& table, const std::string& column) {
    return table.IsSecret(column) &&
           !exchange.Dynamic().Run("SELECT 1 FROM " + table.Rows() + " WHERE [" + column + "] <> '' LIMIT 1").IsEmpty();
  };
  for (const FormDefinition* form : Forms()) {
    for (const FormDefinition* table : form->OfEachTable()) {
      if (std::ranges::any_of(table->columns, [&](const std::string& column) { return holds(*table, column); }))
        return true;
    }
  }
  return false;
}

bool IsHeld(Exchange& exchange, const FormDefinition& definition, const std::string& column, const std::string& value) {
  return !exchange.Dynamic()
              .Run("SELECT 1 FROM " + definition.Rows() + " WHERE [" + column + "] = ? LIMIT 1", {value})
              .IsEmpty();
}

std::optional<std::int32_t> StandingRecord(Exchange& exchange, const FormDefinition& definition) {
  if (!definition.single) return std::nullopt;
  const auto found = FindRecord(exchange, definition, {});
  const auto* record = std::get_if<StoredRecord>(&found);
  return record == nullptr ? std::nullopt : std::optional(record->CmdId);
}

StoredValues ReadRecord(Exchange& exchange, const FormDefinition& definition, std::int32_t CmdId) {
  // A whole comes even where the form shows its digits alone: an edit of one digit keeps the others.
  const RowSet stored = exchange.Dynamic().Run(
      "SELECT " + ColumnList(definition.shown) + " FROM " + definition.Rows() + " WHERE [CmdId] = ? LIMIT 1", {CmdId});
  StoredValues values;
  values.reserve(definition.shown.size());
  for (std::size_t i = 0; i < definition.shown.size(); ++i)
    values.emplace_back(definition.shown[i], stored.IsEmpty() ? Value() : stored[i][0]);
  return values;
}

void PutOnForm(const StoredValues& values, Form& form) {
  for (const auto& [column, value] : values) {
    // Some commands write the empty text for nothing: on the form neither was given.
    if (value.IsBlank()) {
      form.Reset(column);
    } else {
      form.Set(column, Joined(value));
    }
  }
}

void LoadRecord(Exchange& exchange, const FormDefinition& definition, std::int32_t CmdId, Form& form) {
  PutOnForm(ReadRecord(exchange, definition, CmdId), form);
}

void WriteKeysAfterEdit(Exchange& exchange, const FormDefinition& definition, std::int32_t CmdId,
                        const std::vector<std::string>& changed, const Form& form) {
  for (const std::string& column : definition.handling.writeAfterEdit) {
    if (std::ranges::find(changed, column) == changed.end()) continue;
    exchange.Dynamic().Run("UPDATE " + definition.Rows() + " SET [" + column + "] = ? WHERE [CmdId] = ?",
                           {form.Get(column), CmdId});
  }
}

void RemoveRow(Exchange& exchange, const FormDefinition& definition, std::int32_t CmdId) {
  exchange.Dynamic().Run("DELETE FROM " + definition.Rows() + " WHERE [CmdId] = ?", {CmdId});
}

}  // namespace cordboard::workbench
