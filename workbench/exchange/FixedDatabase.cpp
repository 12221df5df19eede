#include "workbench/exchange/FixedDatabase.h"

#include <algorithm>

#include "script/Conversions.h"
#include "workbench/database/Schema.h"
#include "workbench/text/Separated.h"

namespace cordboard::workbench {

namespace {

void EnterList(Connection& database, const std::string& command, const FixedList& list) {
  for (const std::string& parameter : list.parameters) {
    for (const int definition : list.definitions) {
      for (const auto& [value, description] : list.values)
        database.Run(
            "INSERT INTO [ParamValueDesc] ([Command], [Param], [Value], [ValDesc], [DefinitionNo]) VALUES (?, ?, ?, ?, "
            "?)",
            {command, parameter, value, description, definition});
    }
  }
}

void EnterTable(Connection& database, const FixedTable& table) {
  const auto place = [](const std::string&) { return "?"; };
  const std::string insert = "INSERT INTO [" + table.name + "] (" + ColumnList(table.columns) + ") VALUES (" +
                             Separated(table.columns, ", ", place) + ")";
  for (const std::vector<Value>& row : table.rows) database.Run(insert, row);
}

}  // namespace

FixedDatabase::FixedDatabase(std::string release) : release_(std::move(release)) {
  for (const std::string& statement : CreateStatements(ShippedSchema().Database("static")))
    database_.Execute(statement);
  database_.Execute("PRAGMA query_only = 1");
}

Connection& FixedDatabase::With(const std::string& command) {
  if (whole_ || !entered_.insert(command).second) return database_;
  Change([&] {
    for (const FixedList* list : FixedListsOf(command)) Enter(command, *list);
  });
  return database_;
}

Connection& FixedDatabase::Whole() {
  if (whole_) return database_;
  Change([&] {
    for (const FixedTable& table : AllFixedValues().tables) EnterTable(database_, table);
    for (const FixedList& list : AllFixedValues().lists) {
      for (const std::string& command : list.commands) {
        if (!entered_.contains(command)) Enter(command, list);
      }
    }
  });
  whole_ = true;
  return database_;
}

std::shared_ptr<const DescribedValues> FixedDatabase::List(const std::string& command, const std::string& parameter,
                                                           int definition) {
  std::shared_ptr<const DescribedValues>& read = read_[{command, parameter, definition}];
  if (read != nullptr) return read;
  const RowSet rows = With(command).Run(
      "SELECT [Value], [ValDesc] FROM [ParamValueDesc] WHERE [Command] = ? AND [Param] = ? AND [DefinitionNo] = ? "
      "ORDER BY rowid",
      {command, parameter, definition});
  DescribedValues values;
  for (std::size_t row = 0; row < rows.RowCount(); ++row)
    values.emplace_back(Joined(rows[0][row]), Joined(rows[1][row]));
  return read = std::make_shared<const DescribedValues>(std::move(values));
}

template <typename Work>
void FixedDatabase::Change(Work work) {
  database_.Execute("PRAGMA query_only = 0");
  database_.Start();
  work();
  database_.Commit();
  database_.Execute("PRAGMA query_only = 1");
}

void FixedDatabase::Enter(const std::string& command, const FixedList& list) {
  if (std::ranges::find(list.releases, release_) != list.releases.end()) EnterList(database_, command, list);
}

}  // namespace cordboard::workbench
