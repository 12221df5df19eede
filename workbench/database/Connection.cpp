#include "workbench/database/Connection.h"

#include <sqlite3.h>

#include <cmath>
#include <cstring>
#include <string_view>

namespace cordboard::workbench {

namespace {

// Shapes of statements are few; a list of values of every length could still make many.
constexpr std::size_t keptStatements = 2000;

void Bind(sqlite3_stmt* statement, int index, const Value& value) {
  switch (value.kind()) {
    case Value::Kind::Empty:
    case Value::Kind::Null: sqlite3_bind_null(statement, index); return;
    case Value::Kind::Text:
      sqlite3_bind_text64(statement, index, value.text().data(), value.text().size(), SQLITE_TRANSIENT, SQLITE_UTF8);
      return;
    case Value::Kind::Truth: sqlite3_bind_int(statement, index, value.truth() ? 1 : 0); return;
    case Value::Kind::Number: break;
  }
  const double number = value.number();
  if (number == std::trunc(number) && std::abs(number) < 9e15) {
    sqlite3_bind_int64(statement, index, static_cast<sqlite3_int64>(number));
  } else {
    sqlite3_bind_double(statement, index, number);
  }
}

Value Column(sqlite3_stmt* statement, int column, bool truth) {
  switch (sqlite3_column_type(statement, column)) {
    case SQLITE_NULL: return Value::Null();
    case SQLITE_INTEGER: {
      const sqlite3_int64 number = sqlite3_column_int64(statement, column);
      return truth ? Value(number != 0) : Value(number);
    }
    case SQLITE_FLOAT: return sqlite3_column_double(statement, column);
    default: break;
  }
  const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
  return std::string(text, static_cast<std::size_t>(sqlite3_column_bytes(statement, column)));
}

bool IsTruthColumn(sqlite3_stmt* statement, int column) {
  const char* declared = sqlite3_column_decltype(statement, column);
  return declared != nullptr && std::strcmp(declared, "BOOLEAN") == 0;
}

// The tables with such names are not the library's.
bool IsOwnTable(const char* name) {
  return name != nullptr && (std::string_view(name).starts_with("sqlite_") || std::string_view(name) == "Cordboard");
}

int RowsOnly(void*, int action, const char* first, const char*, const char*, const char*) {
  switch (action) {
    case SQLITE_SELECT:
    case SQLITE_FUNCTION: return SQLITE_OK;
    case SQLITE_READ:
    case SQLITE_INSERT:
    case SQLITE_UPDATE:
    case SQLITE_DELETE: return IsOwnTable(first) ? SQLITE_DENY : SQLITE_OK;
    default: return SQLITE_DENY;
  }
}

}  // namespace

void Connection::FinalizeStatement::operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }

void Connection::Execute(const std::string& sql) {
  const int code = sqlite3_exec(database_.get(), sql.c_str(), nullptr, nullptr, nullptr);
  if (code != SQLITE_OK) Fail(code);
}

sqlite3_stmt* Connection::Prepared(const std::string& sql, Statements& kept) {
  if (const auto found = kept.find(sql); found != kept.end()) return found->second.get();
  sqlite3_stmt* prepared = nullptr;
  const char* rest = nullptr;
  const int code = sqlite3_prepare_v3(database_.get(), sql.c_str(), static_cast<int>(sql.size()),
                                      SQLITE_PREPARE_PERSISTENT, &prepared, &rest);
  if (code != SQLITE_OK) Fail(code);
  Statement statement(prepared);
  if (!statement || rest != sql.c_str() + sql.size()) throw DatabaseError("this is not one statement");
  if (kept.size() >= keptStatements) kept.clear();
  kept[sql] = std::move(statement);
  return prepared;
}

sqlite3_stmt* Connection::PreparedRule(const std::string& sql) {
  // What a statement may do is asked when it is prepared, and only then.
  struct Guard {
    sqlite3* database;
    explicit Guard(sqlite3* guarded) : database(guarded) { sqlite3_set_authorizer(database, RowsOnly, nullptr); }
    ~Guard() { sqlite3_set_authorizer(database, nullptr, nullptr); }
  };
  if (const auto found = keptRules_.find(sql); found != keptRules_.end()) return found->second.get();
  const Guard guard(database_.get());
  return Prepared(sql, keptRules_);
}

void Connection::ForgetStatements() {
  kept_.clear();
  keptRules_.clear();
}

int Connection::PrepareRule(const std::string& sql) { return sqlite3_column_count(PreparedRule(sql)); }

RowSet Connection::Run(const std::string& sql, const std::vector<Value>& parameters) {
  return Step(Prepared(sql, kept_), parameters);
}

RowSet Connection::RunRule(const std::string& sql, const std::vector<Value>& parameters) {
  return Step(PreparedRule(sql), parameters);
}

RowSet Connection::Step(sqlite3_stmt* statement, const std::vector<Value>& parameters) {
  if (open_ > 0 && IsTransactionLost()) throw DatabaseError("the database has given up the transaction" + lostBy_);
  if (sqlite3_bind_parameter_count(statement) != static_cast<int>(parameters.size()))
    throw DatabaseError("the statement does not take these parameters");
  for (std::size_t i = 0; i < parameters.size(); ++i) Bind(statement, static_cast<int>(i) + 1, parameters[i]);

  const int count = sqlite3_column_count(statement);
  std::vector<std::vector<Value>> columns(static_cast<std::size_t>(count));
  std::vector<bool> truths(columns.size());
  for (int i = 0; i < count; ++i) truths[static_cast<std::size_t>(i)] = IsTruthColumn(statement, i);
  int code = sqlite3_step(statement);
  for (; code == SQLITE_ROW; code = sqlite3_step(statement)) {
    for (std::size_t i = 0; i < columns.size(); ++i)
      columns[i].push_back(Column(statement, static_cast<int>(i), truths[i]));
  }
  // The reset gives the step's failure once more; the message stays until the next call.
  const int reset = sqlite3_reset(statement);
  if (code != SQLITE_DONE || reset != SQLITE_OK) {
    if (open_ > 0 && IsTransactionLost()) lostBy_ = std::string(": ") + sqlite3_errmsg(database_.get());
    Fail(reset != SQLITE_OK ? reset : code);
  }
  return RowSet(std::move(columns));
}

Value Connection::Single(const std::string& sql, const std::vector<Value>& parameters) {
  const RowSet rows = Run(sql, parameters);
  return rows.IsEmpty() ? Value() : rows[0][0];
}

bool Connection::IsTransactionLost() const { return sqlite3_get_autocommit(database_.get()) != 0; }

void Connection::Start() {
  Run(open_ == 0 ? "BEGIN IMMEDIATE" : "SAVEPOINT level" + std::to_string(open_));
  ++open_;
}

void Connection::Commit() {
  if (open_ == 0) throw DatabaseError("there is no transaction to commit");
  Run(open_ == 1 ? "COMMIT" : "RELEASE level" + std::to_string(open_ - 1));
  --open_;
}

void Connection::RollBack() {
  if (open_ == 0) throw DatabaseError("there is no transaction to roll back");
  --open_;
  if (IsTransactionLost()) return;
  if (open_ == 0) {
    Run("ROLLBACK");
  } else {
    Run("ROLLBACK TO level" + std::to_string(open_));
    Run("RELEASE level" + std::to_string(open_));
  }
}

}  // namespace cordboard::workbench
