// cordboard show: what an exchange holds.

#include <algorithm>
#include <iostream>
#include <nlohmann/json.hpp>

#include "cli/Files.h"
#include "cli/Output.h"
#include "cli/Subcommands.h"
#include "script/Conversions.h"
#include "workbench/actions/Records.h"
#include "workbench/database/Schema.h"
#include "workbench/host/Session.h"

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

// The folding of the form whose whole is a list; null for a form without one.
const workbench::Folding* ListOf(const workbench::FormDefinition& form) {
  const auto found = std::ranges::find_if(form.foldings, &workbench::Folding::isList);
  return found == form.foldings.end() ? nullptr : &*found;
}

// The value, with its description where the list of the parameter has one.
std::string InWords(workbench::Session& session, const std::string& parameter) {
  std::string value = Joined(session.form().Get(parameter));
  const workbench::ValueList* list = value.empty() ? nullptr : session.host().FreshList(parameter);
  if (list == nullptr) return value;
  const std::vector<workbench::ValidValue> all = list->All();
  const auto found = std::ranges::find(all, value, &workbench::ValidValue::value);
  return found == all.end() || found->description.empty() ? value : value + " (" + found->description + ")";
}

// The parts of a list by the first thing that each tells, such as their positions.
void PrintList(workbench::Session& session, const workbench::Folding& list) {
  const workbench::FormDefinition& form = session.form().definition();
  std::vector<std::string> headings = {"ITEM"};
  std::vector<std::vector<std::string>> rows;
  for (const workbench::DigitPlace& place : list.places) {
    const std::string& part = place.parameters.front();
    if (session.form().Get(part).IsBlank()) continue;
    rows.push_back({part});
    const workbench::Folding* own = form.FoldingOf(part);
    for (const workbench::DigitPlace& digits : own->places) {
      const std::string& parameter = digits.parameters.front();
      if (rows.size() == 1) headings.push_back(form.Find(parameter)->title);
      rows.back().push_back(InWords(session, parameter));
    }
  }
  std::ranges::stable_sort(rows, {}, [](const auto& row) { return NumericValue(row[1]); });
  PrintTable(headings, rows);
  double sum = 0;
  for (const std::string& parameter : list.sum) sum += NumericValue(session.form().Get(parameter));
  if (!list.sum.empty()) std::cout << form.Find(list.sum.front())->title << " in all: " << Joined(Value(sum)) << '\n';
}

// Records with a list, one below the other: the other columns, then the parts of the list.
void ShowLists(workbench::Exchange& exchange, const workbench::FormDefinition& form, const workbench::Folding& list,
               const std::vector<workbench::Assignment>& selection) {
  const RowSet records = SelectRecords(exchange, form, "[CmdId]", selection, " ORDER BY rowid");
  workbench::Session session(exchange);
  for (std::size_t row = 0; row < records.RowCount(); ++row) {
    const workbench::Form& open = session.host().OpenForm(form);
    LoadRecord(exchange, form, ToInt32(records[0][row]), session.form());
    if (row > 0) std::cout << '\n';
    for (const std::string& column : form.columns) {
      const Value value = open.Get(column);
      if (column == list.parameter || list.Has(column) || value.IsBlank()) continue;
      std::cout << column << ' ' << Joined(value) << '\n';
    }
    PrintList(session, list);
  }
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
    for (const workbench::FormDefinition* table : std::get<0>(tables)) {
      if (const workbench::Folding* list = options.json ? nullptr : ListOf(*table)) {
        ShowLists(*exchange, *table, *list, selection);
      } else {
        ShowRecords(*exchange, *table, selection, options.secrets, options.json ? &data : nullptr);
      }
    }
    if (options.json) PrintJson({{"records", data}});
  }
  return Done;
}

}  // namespace cordboard::cli
