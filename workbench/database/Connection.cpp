#include "workbench/database/Connection.h"

#include <sqlite3.h>

#include <cmath>
#include <cstring>

#include "script/Conversions.h"
#include "workbench/database/RowHook.h"
#include "workbench/database/StoredText.h"

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

bool IsTruthColumn(sqlite3_stmt* statement, int column) {
  const char* declared = sqlite3_column_decltype(statement, column);
  return declared != nullptr && std::strcmp(declared, "BOOLEAN") == 0;
}

// The value itself may be read, since the connection takes no locks: kind and content cost one look-up.
Value Column(sqlite3_stmt* statement, int column) {
  sqlite3_value* value = sqlite3_column_value(statement, column);
  switch (sqlite3_value_type(value)) {
    case SQLITE_NULL: return Value::Null();
    case SQLITE_INTEGER: {
      const sqlite3_int64 number = sqlite3_value_int64(value);
      return IsTruthColumn(statement, column) ? Value(number != 0) : Value(number);
    }
    case SQLITE_FLOAT: return sqlite3_value_double(value);
    default: return StoredText(value);
  }
}

// What is no text in the database is written to `written`.
std::string_view Text(sqlite3_stmt* statement, int column, std::string& written) {
  sqlite3_value* value = sqlite3_column_value(statement, column);
  if (sqlite3_value_type(value) == SQLITE_TEXT) return StoredText(value);
  return written = Joined(Column(statement, column));
}

}  // namespace

void Connection::FinalizeStatement::operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }

void Connection::Execute(const std::string& sql) {
  clock_->Everything();
  const int code = sqlite3_exec(database_.get(), sql.c_str(), nullptr, nullptr, nullptr);
  if (code == SQLITE_OK) return;
  hook_->TakenBack();
  Fail(code);
}

Connection::Statement& Connection::Prepared(const std::string& sql, Statements& kept) {
  if (const auto found = kept.find(sql); found != kept.end()) return found->second;
  sqlite3_stmt* prepared = nullptr;
  const char* rest = nullptr;
  Footprint footprint = footprints_->Of(&kept == &keptRules_, [&] {
    const int code = sqlite3_prepare_v3(database_.get(), sql.c_str(), static_cast<int>(sql.size()),
                                        SQLITE_PREPARE_PERSISTENT, &prepared, &rest);
    if (code != SQLITE_OK) Fail(code);
  });
  Statement statement;
  statement.prepared.reset(prepared);
  statement.footprint = std::move(footprint);
  if (prepared == nullptr || rest != sql.c_str() + sql.size()) throw DatabaseError("this is not one statement");
  if (kept.size() >= keptStatements) kept.clear();
  return kept[sql] = std::move(statement);
}

int Connection::PrepareRule(const std::string& sql) {
  return sqlite3_column_count(Prepared(sql, keptRules_).prepared.get());
}

void Connection::ForgetStatements() {
  kept_.clear();
  keptRules_.clear();
}

void Connection::Listen(RowListener& listener) {
  // Statements that were prepared without the hook empty a table without a word.
  ForgetStatements();
  hook_->Add(database_.get(), listener);
}

void Connection::StopListening(RowListener& listener) { hook_->Remove(database_.get(), listener); }

RowSet Connection::Run(const std::string& sql, const std::vector<Value>& parameters) {
  return Step(Prepared(sql, kept_), parameters);
}

RowSet Connection::RunRule(const std::string& sql, const std::vector<Value>& parameters) {
  Statement& statement = Prepared(sql, keptRules_);
  if (IsIdle(statement, parameters)) return {};
  // What is read once alone need not be kept.
  if (statement.runs < 2 && ++statement.runs == 2) statement.whole = WholeTable::Of(sql);
  return statement.whole ? WholeRows(statement) : Step(statement, parameters);
}

void Connection::ReadValues(const std::string& sql, const std::vector<Value>& parameters, const TakeValue& take) {
  Statement& statement = Prepared(sql, keptRules_);
  const int count = sqlite3_column_count(statement.prepared.get());
  std::string first;
  std::string second;
  EachRow(statement, parameters, [&](sqlite3_stmt* row) {
    const std::string_view value = Text(row, 0, first);
    return value.empty() || take(value, count > 1 ? Text(row, 1, second) : std::string_view());
  });
}

RowSet Connection::Step(Statement& statement, const std::vector<Value>& parameters) {
  const int count = sqlite3_column_count(statement.prepared.get());
  std::vector<std::vector<Value>> columns(static_cast<std::size_t>(count));
  EachRow(statement, parameters, [&](sqlite3_stmt* row) {
    for (int i = 0; i < count; ++i) columns[static_cast<std::size_t>(i)].push_back(Column(row, i));
    return true;
  });
  return RowSet(std::move(columns));
}

template <typename Take>
void Connection::EachRow(Statement& kept, const std::vector<Value>& parameters, Take take) {
  sqlite3_stmt* statement = kept.prepared.get();
  if (open_ > 0 && IsTransactionLost()) throw DatabaseError("the database has given up the transaction" + lostBy_);
  if (sqlite3_bind_parameter_count(statement) != static_cast<int>(parameters.size()))
    throw DatabaseError("the statement does not take these parameters");
  for (std::size_t i = 0; i < parameters.size(); ++i) Bind(statement, static_cast<int>(i) + 1, parameters[i]);
  int code = sqlite3_step(statement);
  while (code == SQLITE_ROW) code = take(statement) ? sqlite3_step(statement) : SQLITE_DONE;
  // The reset gives the step's failure once more; the message stays until the next call.
  const int reset = sqlite3_reset(statement);
  const bool succeeded = code == SQLITE_DONE && reset == SQLITE_OK;
  NoteChanges(kept, parameters, succeeded);
  if (succeeded) return;
  hook_->TakenBack();
  if (open_ > 0 && IsTransactionLost()) lostBy_ = std::string(": ") + sqlite3_errmsg(database_.get());
  Fail(reset != SQLITE_OK ? reset : code);
}

void Connection::NoteChanges(Statement& statement, const std::vector<Value>& parameters, bool succeeded) {
  const Footprint& footprint = statement.footprint;
  if (!footprint.Writes()) return;
  if (succeeded && sqlite3_changes(database_.get()) == 0) {
    statement.idle = {clock_->Now(), parameters};
    return;
  }
  for (const ChangeClock::Table table : footprint.appended) clock_->Appended(table);
  for (const ChangeClock::Table table : footprint.rewritten) clock_->Rewritten(table);
}

// Nobody else changes a table while a transaction is open, and what changed nothing changes nothing once more.
bool Connection::IsIdle(const Statement& statement, const std::vector<Value>& parameters) const {
  return open_ > 0 && !IsTransactionLost() && statement.idle && statement.idle->parameters == parameters &&
         clock_->NoneSince(statement.idle->time, statement.footprint.touched);
}

RowSet Connection::WholeRows(Statement& statement) {
  WholeTable& whole = *statement.whole;
  const ChangeClock::Table table = statement.footprint.touched.front();
  if (open_ == 0 || !clock_->OnlyAppendedSince(whole.time(), table)) whole.Forget();
  whole.Append(Run(whole.statement(), {whole.last()}), clock_->Now());
  return whole.Rows();
}

Value Connection::Single(const std::string& sql, const std::vector<Value>& parameters) {
  const RowSet rows = Run(sql, parameters);
  return rows.IsEmpty() ? Value() : rows[0][0];
}

bool Connection::IsTransactionLost() const { return sqlite3_get_autocommit(database_.get()) != 0; }

void Connection::Start() {
  Run(open_ == 0 ? "BEGIN IMMEDIATE" : "SAVEPOINT level" + std::to_string(open_));
  ++open_;
  clock_->Start();
}

void Connection::Commit() {
  if (open_ == 0) throw DatabaseError("there is no transaction to commit");
  Run(open_ == 1 ? "COMMIT" : "RELEASE level" + std::to_string(open_ - 1));
  --open_;
  clock_->Commit();
}

void Connection::RollBack() {
  if (open_ == 0) throw DatabaseError("there is no transaction to roll back");
  --open_;
  clock_->RollBack();
  hook_->TakenBack();
  if (IsTransactionLost()) return;
  if (open_ == 0) {
    Run("ROLLBACK");
  } else {
    Run("ROLLBACK TO level" + std::to_string(open_));
    Run("RELEASE level" + std::to_string(open_));
  }
}

}  // namespace cordboard::workbench
