#include "bench/Transcript.h"

#include <sqlite3.h>

#include <algorithm>
#include <stdexcept>

#include "workbench/database/SqlFunctions.h"

namespace cordboard::bench {

namespace {

Recorder* current = nullptr;

int TraceStatement(unsigned, void* database, void* statement, void*) {
  char* sql = sqlite3_expanded_sql(static_cast<sqlite3_stmt*>(statement));
  if (current != nullptr && sql != nullptr) current->Ran(static_cast<sqlite3*>(database), sql);
  sqlite3_free(sql);
  return 0;
}

int ConnectionOpened(sqlite3* database, char**, const void*) {
  current->Opened(database);
  sqlite3_trace_v2(database, SQLITE_TRACE_STMT, TraceStatement, database);
  return SQLITE_OK;
}

// SQLite calls it with three arguments, but takes it as a function without any.
auto Extension() { return reinterpret_cast<void (*)()>(ConnectionOpened); }

}  // namespace

Recorder::Recorder() {
  current = this;
  sqlite3_auto_extension(Extension());
}

Recorder::~Recorder() {
  sqlite3_cancel_auto_extension(Extension());
  current = nullptr;
}

void Recorder::Opened(sqlite3* database) { databases_.push_back(database); }

void Recorder::Ran(sqlite3* database, const char* sql) {
  const auto number = std::ranges::find(databases_, database) - databases_.begin();
  statements_.push_back({static_cast<std::size_t>(number), sql});
}

Replay::~Replay() {
  for (sqlite3* database : databases_) sqlite3_close_v2(database);
}

sqlite3* Replay::Database(std::size_t number) {
  while (databases_.size() <= number) {
    sqlite3* database = nullptr;
    if (sqlite3_open(":memory:", &database) != SQLITE_OK) throw std::runtime_error("no database in memory");
    workbench::RegisterSqlFunctions(database);
    databases_.push_back(database);
  }
  return databases_[number];
}

void Replay::Run(std::span<const Statement> statements) {
  for (const auto& [number, sql] : statements) {
    sqlite3* database = Database(number);
    sqlite3_stmt* statement = nullptr;
    int code = sqlite3_prepare_v2(database, sql.data(), static_cast<int>(sql.size()), &statement, nullptr);
    if (code == SQLITE_OK) {
      do code = sqlite3_step(statement);
      while (code == SQLITE_ROW);
    }
    if (sqlite3_finalize(statement) != SQLITE_OK || code != SQLITE_DONE)
      throw std::runtime_error(std::string(sqlite3_errmsg(database)) + ": " + sql);
  }
}

}  // namespace cordboard::bench
