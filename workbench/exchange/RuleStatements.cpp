#include "workbench/exchange/RuleStatements.h"

#include <utility>

#include "script/Conversions.h"
#include "workbench/database/Schema.h"
#include "workbench/dialect/Mapper.h"
#include "workbench/exchange/Exchange.h"
#include "workbench/text/Separated.h"

namespace cordboard::workbench {

namespace {

// Does the work, or traces why it could not be done.
template <typename Work>
auto Try(const std::string& what, DebugLines& debug, Work work) -> std::optional<decltype(work())> {
  try {
    return work();
  } catch (const DialectError& error) {
    debug.push_back("Malformed statement: " + std::string(error.what()) + ": " + what);
  } catch (const DatabaseError& error) {
    debug.push_back("Failed statement: " + std::string(error.what()) + ": " + what);
  }
  return std::nullopt;
}

Connection& Database(Exchange& exchange, const std::string& selector) {
  Connection* database = exchange.Database(selector);
  if (database == nullptr) throw DatabaseError("there is no database '" + selector + "'");
  return *database;
}

// What the stored names of the selector's tables begin with.
const std::string& Prefix(const std::string& selector) { return ShippedSchema().Database(selector).prefix; }

std::string Bracketed(const std::string& name) {
  if (name.find(']') != name.npos) throw DatabaseError("no name holds a bracket");
  return "[" + name + "]";
}

std::string BracketedTable(const std::string& selector, const std::string& table) {
  return Bracketed(Prefix(selector) + table);
}

// "[A] = ? AND [B] = ?", and the values to it.
std::string Assigned(const List& names, const List& given, const char* separator, std::vector<Value>& parameters) {
  std::string text;
  for (std::size_t i = 0; i < names.size(); ++i) {
    const std::string name = Joined(names[i]);
    if (name.empty()) continue;
    text += (text.empty() ? "" : separator) + Bracketed(name) + " = ?";
    parameters.push_back(given[i]);
  }
  return text;
}

std::string Where(const List& keys, const List& keyValues, std::vector<Value>& parameters) {
  const std::string condition = Assigned(keys, keyValues, " AND ", parameters);
  if (condition.empty()) throw DatabaseError("a key is missing");
  return " WHERE " + condition;
}

std::string Names(const List& columns) {
  return Separated(columns, ", ", [](const Value& column) { return Bracketed(Joined(column)); });
}

}  // namespace

std::string SelectorName(const Selector& selector, const char* otherwise) {
  return selector && !selector->IsBlank() ? Joined(*selector) : otherwise;
}

std::optional<RowSet> RunRule(Exchange& exchange, const std::string& sql, const std::string& selector,
                              DebugLines& debug) {
  return Try(sql, debug, [&] {
    Connection& database = Database(exchange, selector);
    const MappedStatement mapped = MapAgain(sql, Prefix(selector));
    return database.RunRule(mapped.sql, mapped.parameters);
  });
}

std::optional<ListStatement> PrepareList(Exchange& exchange, const std::string& sql, const std::string& selector,
                                         DebugLines& debug) {
  return Try(sql, debug, [&] {
    Connection& database = Database(exchange, selector);
    MappedStatement mapped = MapAgain(sql, Prefix(selector));
    if (database.PrepareRule(mapped.sql) == 0) throw DatabaseError("the statement gives no values");
    return ListStatement{&database, std::move(mapped.sql), std::move(mapped.parameters), mapped.order};
  });
}

bool InsertRow(Exchange& exchange, const std::string& selector, const std::string& table, const List& columns,
               const List& values, DebugLines& debug) {
  return Try("insert into " + table, debug,
             [&] {
               if (columns.size() != values.size()) throw DatabaseError("columns and values differ in number");
               const std::string places = Separated(values, ", ", [](const Value&) { return "?"; });
               return Database(exchange, selector)
                   .RunRule("INSERT INTO " + BracketedTable(selector, table) + " (" + Names(columns) + ") VALUES (" +
                                places + ")",
                            {values.begin(), values.end()});
             })
      .has_value();
}

bool UpdateRows(Exchange& exchange, const std::string& selector, const std::string& table, const List& columns,
                const List& values, const List& keys, const List& keyValues, DebugLines& debug) {
  return Try("update of " + table, debug,
             [&] {
               std::vector<Value> parameters;
               const std::string set = Assigned(columns, values, ", ", parameters);
               const std::string where = Where(keys, keyValues, parameters);
               return Database(exchange, selector)
                   .RunRule("UPDATE " + BracketedTable(selector, table) + " SET " + set + where, parameters);
             })
      .has_value();
}

RowSet SelectRows(Exchange& exchange, const std::string& selector, const std::string& table, const List& columns,
                  const List& keys, const List& keyValues, DebugLines& debug) {
  return Try("select from " + table, debug,
             [&] {
               std::vector<Value> parameters;
               const std::string where = Where(keys, keyValues, parameters);
               return Database(exchange, selector)
                   .RunRule("SELECT " + Names(columns) + " FROM " + BracketedTable(selector, table) + where +
                                " ORDER BY rowid",
                            parameters);
             })
      .value_or(RowSet());
}

}  // namespace cordboard::workbench
