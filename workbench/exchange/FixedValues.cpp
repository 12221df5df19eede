#include "workbench/exchange/FixedValues.h"

#include <algorithm>

#include "workbench/data/DataFile.h"
#include "workbench/data/Resources.h"
#include "workbench/database/Schema.h"
#include "workbench/exchange/Exchange.h"
#include "workbench/text/Elements.h"

namespace cordboard::workbench {

namespace {

using Texts = std::vector<std::string>;

// The description of one value of a range.
std::string Described(const std::string& description, const std::string& value) {
  const std::size_t at = description.find('%');
  if (at == description.npos) return description;
  const std::size_t digits = std::min(value.find_first_not_of('0'), value.size() - 1);
  return std::string(description).replace(at, 1, value.substr(digits));
}

std::vector<std::pair<std::string, std::string>> ReadEntries(const DataItem& item) {
  std::vector<std::pair<std::string, std::string>> entries;
  for (const auto& [typed, text] : item.Entries()) {
    const std::string description = text.Text();
    if (typed.empty()) text.Fail("a value is not blank");
    if (!HoldsRange(typed)) {
      entries.emplace_back(typed, description);
      continue;
    }
    try {
      for (const std::string& value : Elements(typed)) entries.emplace_back(value, Described(description, value));
    } catch (const ElementsError& error) {
      text.Fail(error.what());
    }
  }
  return entries;
}

Texts ReadReleases(Fields& list) {
  const auto item = list.Find("releases");
  if (!item) return Releases();
  for (const DataItem& release : item->List()) {
    if (std::ranges::find(Releases(), release.Text()) == Releases().end())
      release.Fail("there is no release " + release.Text());
  }
  return item->As<Texts>();
}

FixedTable ReadTable(Fields& file) {
  FixedTable table{.name = file.Get<std::string>("table"), .columns = file.Get<Texts>("columns"), .rows = {}};
  for (const DataItem& item : file.At("rows").List()) {
    std::vector<Value>& row = table.rows.emplace_back();
    for (const DataItem& cell : item.List()) row.push_back(cell.Cell());
    if (row.size() != table.columns.size())
      item.Fail("the row has " + std::to_string(row.size()) + " cells, and there are " +
                std::to_string(table.columns.size()) + " columns");
  }
  return table;
}

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
  std::string columns;
  std::string places;
  for (const std::string& column : table.columns) {
    columns += (columns.empty() ? "[" : ", [") + column + "]";
    places += places.empty() ? "?" : ", ?";
  }
  const std::string insert = "INSERT INTO [" + table.name + "] (" + columns + ") VALUES (" + places + ")";
  for (const std::vector<Value>& row : table.rows) database.Run(insert, row);
}

}  // namespace

void ReadFixedValues(std::string_view json, const std::string& file, FixedValues& values) {
  ReadData(json, file).Object([&](Fields& fields) {
    if (fields.Has("table")) {
      values.tables.push_back(ReadTable(fields));
      return;
    }
    const auto commands = fields.Get<Texts>("commands");
    for (const DataItem& item : fields.At("lists").List()) {
      values.lists.push_back(item.Object([&](Fields& list) {
        return FixedList{.commands = commands,
                         .parameters = list.Get<Texts>("parameters"),
                         .releases = ReadReleases(list),
                         .definitions = list.Get("definitions", std::vector<int>{1}),
                         .values = ReadEntries(list.At("values"))};
      }));
    }
  });
}

const FixedValues& AllFixedValues() {
  static const FixedValues all = [] {
    FixedValues values;
    for (const std::string_view path : ResourcesIn("values/"))
      ReadFixedValues(Resource(path), std::string(path), values);
    return values;
  }();
  return all;
}

FixedDatabase::FixedDatabase(std::string release) : release_(std::move(release)) {
  for (const std::string& statement : CreateStatements(ShippedSchema().Database("static")))
    database_.Execute(statement);
  for (const FixedTable& table : AllFixedValues().tables) EnterTable(database_, table);
  database_.Execute("PRAGMA query_only = 1");
}

Connection& FixedDatabase::With(const std::string& command) {
  if (!entered_.contains(command)) Enter({command});
  return database_;
}

Connection& FixedDatabase::Whole() {
  if (whole_) return database_;
  std::set<std::string> commands;
  for (const FixedList& list : AllFixedValues().lists) commands.insert(list.commands.begin(), list.commands.end());
  for (const std::string& command : entered_) commands.erase(command);
  Enter(commands);
  whole_ = true;
  return database_;
}

void FixedDatabase::Enter(const std::set<std::string>& commands) {
  database_.Execute("PRAGMA query_only = 0");
  database_.Start();
  for (const FixedList& list : AllFixedValues().lists) {
    if (std::ranges::find(list.releases, release_) == list.releases.end()) continue;
    for (const std::string& command : list.commands) {
      if (commands.contains(command)) EnterList(database_, command, list);
    }
  }
  database_.Commit();
  database_.Execute("PRAGMA query_only = 1");
  entered_.insert(commands.begin(), commands.end());
}

}  // namespace cordboard::workbench
