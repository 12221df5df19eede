// The library's statements on an exchange's databases: mapped from their dialect, refused where they are malformed, and
// traced to the debug window when they fail.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "script/Host.h"

namespace cordboard::workbench {

class Connection;
class Exchange;

using DebugLines = std::vector<std::string>;

// A statement of the rules as SQLite takes it, on its database.
struct ListStatement {
  Connection* database;
  std::string sql;
  std::vector<Value> parameters;
  std::size_t order = std::string::npos;  // as in MappedStatement (workbench/dialect/Mapper.h)
};

// The database that a selector names; an empty one, and none at all, name the default.
std::string SelectorName(const Selector& selector, const char* otherwise);

// Runs one statement. Nothing where it fails.
std::optional<RowSet> RunRule(Exchange& exchange, const std::string& sql, const std::string& selector,
                              DebugLines& debug);
// A query as a step of a list, checked against the schema but not run. Nothing where it would fail.
std::optional<ListStatement> PrepareList(Exchange& exchange, const std::string& sql, const std::string& selector,
                                         DebugLines& debug);

// Rows by names and values, without statement text, in the database of a selector. An empty value becomes a null; a key
// without a name counts for nothing.
bool InsertRow(Exchange& exchange, const std::string& selector, const std::string& table, const List& columns,
               const List& values, DebugLines& debug);
bool UpdateRows(Exchange& exchange, const std::string& selector, const std::string& table, const List& columns,
                const List& values, const List& keys, const List& keyValues, DebugLines& debug);
RowSet SelectRows(Exchange& exchange, const std::string& selector, const std::string& table, const List& columns,
                  const List& keys, const List& keyValues, DebugLines& debug);

}  // namespace cordboard::workbench
