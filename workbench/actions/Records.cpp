#include "workbench/actions/Records.h"

#include <algorithm>

#include "script/Conversions.h"
#include "workbench/database/Schema.h"
#include "workbench/forms/Unknown.h"
#include "workbench/text/Separated.h"

namespace cordboard::workbench {

namespace {

std::string Rows(const FormDefinition& definition) {
  return ShippedSchema().Database("dynamic").RowsOf(definition.table);
}

}  // namespace

std::variant<std::int32_t, Problem> FindRecord(Exchange& exchange, const FormDefinition& definition,
                                               const std::vector<Assignment>& selection) {
  std::vector<Value> values;
  for (const auto& [name, value] : selection) {
    // The names come from the form's own columns, so that they can stand in a statement.
    if (std::ranges::find(definition.columns, name) == definition.columns.end())
      return Problem{.parameter = name, .value = value, .message = UnknownColumn(definition, name)};
    values.emplace_back(value);
  }
  const std::string condition =
      Separated(selection, " AND ", [](const Assignment& each) { return "[" + each.name + "] = ?"; });
  const RowSet rows = exchange.Dynamic().Run(
      "SELECT [CmdId] FROM " + Rows(definition) + (selection.empty() ? "" : " WHERE " + condition) + " LIMIT 2",
      values);
  if (rows.RowCount() == 1) return ToInt32(rows[0][0]);
  const std::string described =
      Separated(selection, ",", [](const Assignment& each) { return each.name + "=" + each.value; });
  const std::string records = definition.command + (selection.empty() ? "" : " with " + described);
  if (rows.IsEmpty()) return Problem{.message = "there is no record of " + records};
  return Problem{.message = "there are several records of " + records + "; select one by more of its parameters"};
}

bool IsHeld(Exchange& exchange, const FormDefinition& definition, const std::string& column, const std::string& value) {
  return !exchange.Dynamic()
              .Run("SELECT 1 FROM " + Rows(definition) + " WHERE [" + column + "] = ? LIMIT 1", {value})
              .IsEmpty();
}

std::optional<std::int32_t> StandingRecord(Exchange& exchange, const FormDefinition& definition) {
  if (!definition.single) return std::nullopt;
  const auto found = FindRecord(exchange, definition, {});
  const auto* CmdId = std::get_if<std::int32_t>(&found);
  return CmdId == nullptr ? std::nullopt : std::optional(*CmdId);
}

void LoadRecord(Exchange& exchange, const FormDefinition& definition, std::int32_t CmdId, Form& form) {
  for (const std::string& column : definition.columns) {
    // A whole comes even where the form shows its digits alone: an edit of one digit keeps the others.
    if (definition.Find(column) == nullptr && definition.FoldingOf(column) == nullptr) continue;
    const Value stored =
        exchange.Dynamic().Single("SELECT [" + column + "] FROM " + Rows(definition) + " WHERE [CmdId] = ?", {CmdId});
    // Some commands write the empty text for nothing: on the form neither was given.
    if (stored.IsBlank()) {
      form.Reset(column);
    } else {
      form.Set(column, Joined(stored));
    }
  }
}

void WriteKeysAfterEdit(Exchange& exchange, const FormDefinition& definition, std::int32_t CmdId,
                        const std::vector<std::string>& changed, const Form& form) {
  for (const std::string& column : definition.handling.writeAfterEdit) {
    if (std::ranges::find(changed, column) == changed.end()) continue;
    exchange.Dynamic().Run("UPDATE [" + definition.table + "] SET [" + column + "] = ? WHERE [CmdId] = ?",
                           {form.Get(column), CmdId});
  }
}

void RemoveRow(Exchange& exchange, const FormDefinition& definition, std::int32_t CmdId) {
  exchange.Dynamic().Run("DELETE FROM [" + definition.table + "] WHERE [CmdId] = ?", {CmdId});
}

}  // namespace cordboard::workbench
