// cordboard show: what an exchange holds.

#include <iostream>
#include <nlohmann/json.hpp>

#include "cli/Files.h"
#include "cli/Output.h"
#include "cli/Subcommands.h"
#include "script/Conversions.h"
#include "workbench/actions/Records.h"
#include "workbench/database/Schema.h"

namespace cordboard::cli {

namespace {

void ShowTables(workbench::Exchange& exchange, bool json) {
  nlohmann::json data = nlohmann::json::array();
  std::vector<std::vector<std::string>> rows;
  for (const workbench::FormDefinition* form : workbench::Forms()) {
    double records = 0;
    for (const workbench::FormDefinition* table : form->OfEachTable())
      records += exchange.Dynamic().Single("SELECT COUNT(*) FROM " + table->Rows()).number();
    const Value count = records;
    data.push_back({{"command", form->command}, {"title", form->title}, {"records", ToJson(count)}});
    rows.push_back({form->command, Joined(count), form->title});
  }
  if (json) return PrintJson({{"release", exchange.release()}, {"tables", data}});
  std::cout << "Release " << exchange.release() << "\n\n";
  PrintTable({"COMMAND", "RECORDS", ""}, rows);
}

void ShowRecords(workbench::Exchange& exchange, const workbench::FormDefinition& form,
                 const std::vector<workbench::Assignment>& selection, bool secrets, nlohmann::json* json) {
  // Nothing but a table has a rowid: the rows of a view stand in the order of its tables.
  const std::string order = form.Database().IsView(form.table) ? "" : " ORDER BY rowid";
  const RowSet records = SelectRecords(exchange, form, "*", selection, order);
  std::vector<std::string> names;
  for (const workbench::Column& column : form.Database().Find(form.table)->columns) names.push_back(column.name);
  std::vector<std::vector<std::string>> rows;
  for (std::size_t row = 0; row < records.RowCount(); ++row) {
    nlohmann::json record;
    std::vector<std::string> cells;
    for (std::size_t column = 0; column < names.size(); ++column) {
      const Value& stored = records[column][row];
      const bool hidden = !secrets && !stored.IsNull() && form.IsSecret(names[column]);
      const Value value = hidden ? workbench::hiddenValue : stored;
      record[names[column]] = ToJson(value);
      cells.push_back(value.IsNull() ? "-" : Joined(value));
    }
    if (json != nullptr) json->push_back(record);
    rows.push_back(cells);
  }
  if (json == nullptr) PrintTable(names, rows);
}

}  // namespace

int Show(const ShowOptions& options) {
  const auto exchange = OpenExchange(options.file);
  if (options.command.empty()) {
    ShowTables(*exchange, options.json);
  } else {
    const auto selection = AssignmentsOf(options.selection);
    const auto tables = TablesWith(FormOf(options.command), selection);
    if (const auto* problem = std::get_if<workbench::Problem>(&tables)) throw Exit{NotFound, problem->message};
    nlohmann::json data = nlohmann::json::array();
    for (const workbench::FormDefinition* table : std::get<0>(tables))
      ShowRecords(*exchange, *table, selection, options.secrets, options.json ? &data : nullptr);
    if (options.json) PrintJson(data);
  }
  return Done;
}

}  // namespace cordboard::cli
