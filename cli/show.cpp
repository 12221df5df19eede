// cordboard show: what an exchange holds.

#include <algorithm>
#include <iostream>
#include <nlohmann/json.hpp>
#include <optional>

#include "cli/Files.h"
#include "cli/Output.h"
#include "cli/ShownLists.h"
#include "cli/Subcommands.h"
#include "script/Conversions.h"
#include "workbench/actions/RecordPages.h"
#include "workbench/actions/Records.h"
#include "workbench/database/Schema.h"
#include "workbench/text/Counted.h"
#include "workbench/text/Names.h"

namespace cordboard::cli {

namespace {

// The tables spell it in two ways.
const char* const identifier = "CmdId";

void ShowCommands(workbench::Exchange& exchange, bool json) {
  nlohmann::json data = nlohmann::json::array();
  std::vector<std::vector<std::string>> rows;
  for (const workbench::FormDefinition* form : workbench::Forms()) {
    const auto [records, blank] = CountRecords(exchange, *form);
    data.push_back({{"command", form->command}, {"title", form->title}, {"count", records}, {"blank", blank}});
    const std::string besides = blank == 0 ? "" : " (and " + workbench::Counted(blank, "blank row") + ")";
    rows.push_back({form->command, std::to_string(records), form->title + besides});
  }
  if (json) return PrintJson({{"release", exchange.release()}, {"commands", data}});
  std::cout << "Release " << exchange.release() << "\n\n";
  PrintTable({"COMMAND", "RECORDS", ""}, rows);
}

// The records of one table, as far as they are told: secrets are hidden from who does not ask for them.
class Records {
 public:
  Records(workbench::Exchange& exchange, const workbench::FormDefinition& form,
          const std::vector<workbench::Assignment>& selection, bool secrets)
      : pages_(exchange, form, selection), columns_(form.Database().Find(form.table)->columns) {
    for (const workbench::Column& column : columns_) {
      names_.push_back(workbench::SameName(column.name, identifier) ? identifier : column.name);
      hidden_.push_back(!secrets && form.IsSecret(column.name));
    }
  }

  void PrintAsTable() {
    const Table table(names_, Widths());
    for (RowSet page = pages_.Next(); !page.IsEmpty(); page = pages_.Next()) {
      for (std::size_t row = 0; row < page.RowCount(); ++row) {
        std::vector<std::string> cells;
        for (std::size_t i = 0; i < names_.size(); ++i) {
          const Value value = Told(page, i, row);
          cells.push_back(value.IsNull() ? "-" : Joined(value));
        }
        table.Print(cells);
      }
    }
  }

  void AddTo(JsonList& list) {
    for (RowSet page = pages_.Next(); !page.IsEmpty(); page = pages_.Next()) {
      for (std::size_t row = 0; row < page.RowCount(); ++row) {
        nlohmann::json record;
        for (std::size_t i = 0; i < names_.size(); ++i) record[names_[i]] = ToJson(Told(page, i, row));
        list.Add(record);
      }
    }
  }

 private:
  Value Told(const RowSet& page, std::size_t column, std::size_t row) const {
    const Value& stored = page[column][row];
    return hidden_[column] && !stored.IsNull() ? Value(workbench::hiddenValue) : stored;
  }

  // A secret must not be told by its length either, and a truth is printed as a word.
  std::vector<std::size_t> Widths() {
    std::vector<std::size_t> widths = pages_.Widths();
    for (std::size_t i = 0; i < widths.size(); ++i) {
      if (hidden_[i]) widths[i] = std::string(workbench::hiddenValue).size();
      if (columns_[i].type == workbench::Column::Type::Truth) widths[i] = std::string("False").size();
    }
    return widths;
  }

  workbench::RecordPages pages_;
  const std::vector<workbench::Column>& columns_;
  std::vector<std::string> names_;
  std::vector<bool> hidden_;
};

void ShowRecords(workbench::Exchange& exchange, const ShowOptions& options) {
  auto selection = AssignmentsOf(options.selection);
  for (workbench::Assignment& each : selection) {
    if (each.name == identifier) each.name = "CMDID";  // as forms have it
  }
  const auto tables = TablesWith(FormOf(options.command), selection);
  if (const auto* problem = std::get_if<workbench::Problem>(&tables)) throw Exit{NotFound, problem->message};
  std::optional<JsonList> json;
  if (options.json) json.emplace("records");
  for (const workbench::FormDefinition* table : std::get<0>(tables)) {
    const workbench::Folding* list = ListOf(*table);
    if (json) {
      Records(exchange, *table, selection, options.secrets).AddTo(*json);
    } else if (list != nullptr) {
      ShowLists(exchange, *table, *list, selection);
    } else {
      Records(exchange, *table, selection, options.secrets).PrintAsTable();
    }
  }
  if (json) json->End();
}

}  // namespace

int Show(const ShowOptions& options) { return Show(*OpenToRead(options.file), options); }

int Show(workbench::Exchange& exchange, const ShowOptions& options) {
  options.command.empty() ? ShowCommands(exchange, options.json) : ShowRecords(exchange, options);
  return Done;
}

}  // namespace cordboard::cli
