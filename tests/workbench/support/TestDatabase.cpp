#include "workbench/support/TestDatabase.h"

#include <cmath>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "script/Conversions.h"
#include "support/SourceFolder.h"
#include "workbench/dialect/Like.h"
#include "workbench/dialect/Mapper.h"

namespace cordboard::workbench {
namespace {

struct Finalize {
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};

std::string TextOf(sqlite3_value* value) {
  const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
  return {text, static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

void Val(sqlite3_context* context, int, sqlite3_value** values) {
  if (sqlite3_value_type(values[0]) == SQLITE_NULL) return sqlite3_result_null(context);
  sqlite3_result_double(context, NumericValue(Value(TextOf(values[0]))));
}

void DialectLike(sqlite3_context* context, int, sqlite3_value** values) {
  if (sqlite3_value_type(values[1]) == SQLITE_NULL) return sqlite3_result_null(context);
  sqlite3_result_int(context, LikeMatches(TextOf(values[0]), TextOf(values[1])));
}

void Bind(sqlite3_stmt* statement, int index, const Value& value) {
  if (value.IsText()) {
    sqlite3_bind_text64(statement, index, value.text().data(), value.text().size(), SQLITE_TRANSIENT, SQLITE_UTF8);
  } else if (value.IsTruth()) {
    sqlite3_bind_int(statement, index, value.truth());
  } else if (std::trunc(value.number()) == value.number() && std::abs(value.number()) < 1e15) {
    sqlite3_bind_int64(statement, index, static_cast<sqlite3_int64>(value.number()));
  } else {
    sqlite3_bind_double(statement, index, value.number());
  }
}

}  // namespace

std::string FileText(const std::string& path) {
  std::ifstream file(SourceFile(path), std::ios::binary);
  if (!file) throw std::runtime_error("cannot open " + path);
  return {std::istreambuf_iterator<char>(file), {}};
}

TestDatabase::TestDatabase(const std::string& name) : prefix_(ShippedSchema().Database(name).prefix) {
  sqlite3* database = nullptr;
  sqlite3_open(":memory:", &database);
  database_.reset(database);
  constexpr int kFlags = SQLITE_UTF8 | SQLITE_DETERMINISTIC;
  sqlite3_create_function(database, "VAL", 1, kFlags, nullptr, Val, nullptr, nullptr);
  sqlite3_create_function(database, "dialect_like", 2, kFlags, nullptr, DialectLike, nullptr, nullptr);
  for (const std::string& statement : CreateStatements(ShippedSchema().Database(name))) {
    if (sqlite3_exec(database, statement.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) {
      throw std::runtime_error(statement + ": " + sqlite3_errmsg(database));
    }
  }
}

std::vector<std::string> TestDatabase::Run(const std::string& statement) { return Execute("", statement); }

std::string TestDatabase::Plan(const std::string& statement) {
  std::string plan;
  for (const std::string& row : Execute("EXPLAIN QUERY PLAN ", statement))
    plan += row.substr(row.rfind('|') + 1) + '\n';
  return plan;
}

std::vector<std::string> TestDatabase::Execute(const std::string& prefix, const std::string& statement) {
  const MappedStatement mapped = Map(statement, prefix_);
  const std::string sql = prefix + mapped.sql;
  sqlite3_stmt* prepared = nullptr;
  const char* rest = nullptr;
  const int result = sqlite3_prepare_v2(database_.get(), sql.c_str(), -1, &prepared, &rest);
  const std::unique_ptr<sqlite3_stmt, Finalize> owner(prepared);
  if (result != SQLITE_OK) throw std::runtime_error(sql + ": " + sqlite3_errmsg(database_.get()));
  if (sqlite3_bind_parameter_count(prepared) != static_cast<int>(mapped.parameters.size())) {
    throw std::logic_error(sql + ": not one parameter for each ?");
  }
  if (*rest != '\0') throw std::logic_error(sql + ": not one statement");
  if (prefix.empty() && sqlite3_stmt_readonly(prepared) != (mapped.kind == MappedStatement::Kind::Read)) {
    throw std::logic_error(sql + ": not of its kind");
  }
  int index = 0;
  for (const Value& value : mapped.parameters) Bind(prepared, ++index, value);
  std::vector<std::string> rows;
  int step = sqlite3_step(prepared);
  for (; step == SQLITE_ROW; step = sqlite3_step(prepared)) {
    std::string& row = rows.emplace_back();
    for (int column = 0; column < sqlite3_column_count(prepared); ++column) {
      const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(prepared, column));
      row.append(column == 0 ? "" : "|").append(text == nullptr ? "NULL" : text);
    }
  }
  if (step != SQLITE_DONE) throw std::runtime_error(sql + ": " + sqlite3_errmsg(database_.get()));
  return rows;
}

}  // namespace cordboard::workbench
