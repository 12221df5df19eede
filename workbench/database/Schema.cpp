#include "workbench/database/Schema.h"

#include <algorithm>
#include <array>
#include <nlohmann/json.hpp>

#include "workbench/text/Names.h"
#include "workbench/text/Separated.h"

namespace cordboard::workbench {
namespace {

using Json = nlohmann::ordered_json;

constexpr std::array<std::string_view, 7> kKeys = {"name", "columns", "further", "types", "unique", "indexes", "note"};

template <typename Named>
const Named* FindNamed(const std::vector<Named>& all, std::string_view name) {
  const auto found = std::find_if(all.begin(), all.end(), [&](const Named& one) { return SameName(one.name, name); });
  return found == all.end() ? nullptr : &*found;
}

// A name goes into square brackets as it is.
std::string ReadName(const Json& json) {
  std::string name = json.get<std::string>();
  if (name.empty() || name.find_first_of(std::string("[]\0", 3)) != name.npos) throw SchemaError("a name is not valid");
  if (IsRowPlace(name)) throw SchemaError("no column is named " + name);
  return name;
}

void ReadColumns(const Json& names, bool further, Table& table) {
  for (const Json& entry : names) {
    const std::string name = ReadName(entry);
    if (table.Find(name)) throw SchemaError("the column " + name + " stands there twice");
    table.columns.push_back({.name = name, .further = further});
  }
}

Column& ColumnOf(Table& table, const std::string& name) {
  for (Column& column : table.columns) {
    if (SameName(column.name, name)) return column;
  }
  throw SchemaError("there is no column " + name);
}

void ReadTypes(const Json& types, Table& table) {
  for (const auto& [name, type] : types.items()) {
    if (type != "whole" && type != "truth") throw SchemaError("the type of " + name + " is neither whole nor truth");
    ColumnOf(table, name).type = type == "whole" ? Column::Type::Whole : Column::Type::Truth;
  }
}

void ReadIndexes(const Json& indexes, Table& table, std::vector<std::vector<std::string>>& into) {
  for (const Json& index : indexes) {
    std::vector<std::string>& columns = into.emplace_back();
    for (const Json& name : index) columns.push_back(ColumnOf(table, name.get<std::string>()).name);
    if (columns.empty()) throw SchemaError("an index has no columns");
  }
}

void ReadTable(const Json& json, Table& table) {
  for (const auto& [key, value] : json.items()) {
    if (std::find(kKeys.begin(), kKeys.end(), key) == kKeys.end()) throw SchemaError("\"" + key + "\" has no meaning");
  }
  const auto part = [&](const char* key) { return json.contains(key) ? json.at(key) : Json(); };
  ReadColumns(part("columns"), false, table);
  ReadColumns(part("further"), true, table);
  if (table.columns.empty()) throw SchemaError("it has no columns");
  ReadTypes(part("types"), table);
  ReadIndexes(part("unique"), table, table.unique);
  ReadIndexes(part("indexes"), table, table.indexes);
  table.note = json.value("note", "");
}

std::string_view DeclaredType(Column::Type type) {
  switch (type) {
    case Column::Type::Whole: return "INTEGER";
    case Column::Type::Truth: return "BOOLEAN";
    case Column::Type::Text: break;
  }
  return "TEXT";
}

std::string CreateTable(const Table& table) {
  const auto declared = [](const Column& column) {
    return "[" + column.name + "] " + std::string(DeclaredType(column.type));
  };
  return "CREATE TABLE [" + table.name + "] (" + Separated(table.columns, ", ", declared) + ")";
}

std::string CreateIndex(const char* kind, const Table& table, const std::vector<std::string>& columns) {
  const std::string name = table.name + " by " + Separated(columns, " ");
  return kind + (" [" + name + "] ON [" + table.name + "] ([" + Separated(columns, "], [") + "])");
}

}  // namespace

const Column* Table::Find(std::string_view column) const { return FindNamed(columns, column); }

const Table* DatabaseSchema::Find(std::string_view table) const { return FindNamed(tables, table); }

const DatabaseSchema& Schema::Database(std::string_view name) const {
  if (const DatabaseSchema* database = FindNamed(databases, name)) return *database;
  throw SchemaError("there is no database " + std::string(name));
}

Schema ReadSchema(std::string_view json) try {
  Schema schema;
  const Json root = Json::parse(json);
  for (const auto& [name, tables] : root.items()) {
    DatabaseSchema& database = schema.databases.emplace_back(DatabaseSchema{.name = name, .tables = {}});
    for (const Json& entry : tables) {
      Table table;
      table.name = ReadName(entry.at("name"));
      if (database.Find(table.name)) throw SchemaError("table " + table.name + " stands in " + name + " twice");
      try {
        ReadTable(entry, table);
      } catch (const std::exception& error) {
        throw SchemaError("table " + table.name + ": " + error.what());
      }
      database.tables.push_back(std::move(table));
    }
  }
  return schema;
} catch (const Json::exception& error) {
  throw SchemaError(std::string("the schema cannot be read: ") + error.what());
}

std::vector<std::string> CreateStatements(const DatabaseSchema& database) {
  std::vector<std::string> statements;
  for (const Table& table : database.tables) {
    statements.push_back(CreateTable(table));
    for (const auto& index : table.unique) statements.push_back(CreateIndex("CREATE UNIQUE INDEX", table, index));
    for (const auto& index : table.indexes) statements.push_back(CreateIndex("CREATE INDEX", table, index));
  }
  return statements;
}

}  // namespace cordboard::workbench
