#include "bench/Transcript.h"

#include <sqlite3.h>

#include <algorithm>
#include <stdexcept>
#include <string_view>
#include <utility>

#include "bench/Measure.h"
#include "script/ForwardingHost.h"
#include "workbench/database/SqlFunctions.h"

namespace cordboard::bench {

namespace {

Recorder* current = nullptr;

// What a statement runs within itself is told as a comment, and is no statement of its own.
int TraceStatement(unsigned, void* database, void* statement, void* told) {
  if (std::string_view(static_cast<const char*>(told)).starts_with("--")) return 0;
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

// A look-up in a list of the rules: they gave the statement within it, and the workbench asks when it needs the answer.
bool IsLookUp(std::string_view sql) { return sql.starts_with("WITH list("); }

// Says what runs while the rules read or write rows, or begin or end a transaction.
class MarkingHost : public ForwardingHost {
 public:
  MarkingHost(std::shared_ptr<Host> next, bool& ofRules) : ForwardingHost(std::move(next)), ofRules_(ofRules) {}

  bool scRunQuery(const std::string& sql, RowSet* rows, const Selector& database) override {
    const Mark mark(ofRules_);
    return next().scRunQuery(sql, rows, database);
  }
  bool scSQLInsert(const std::string& table, const List& columns, const List& values) override {
    const Mark mark(ofRules_);
    return next().scSQLInsert(table, columns, values);
  }
  bool scSQLUpdate(const std::string& table, const List& columns, const List& values, const List& keys,
                   const List& keyValues) override {
    const Mark mark(ofRules_);
    return next().scSQLUpdate(table, columns, values, keys, keyValues);
  }
  RowSet scSQLSelect(const std::string& table, const List& columns, const List& keys, const List& keyValues) override {
    const Mark mark(ofRules_);
    return next().scSQLSelect(table, columns, keys, keyValues);
  }

  bool scStartTransaction() override {
    const Mark mark(ofRules_);
    return next().scStartTransaction();
  }
  bool scCommitTransaction() override {
    const Mark mark(ofRules_);
    return next().scCommitTransaction();
  }
  bool scRollBackTransaction() override {
    const Mark mark(ofRules_);
    return next().scRollBackTransaction();
  }

 private:
  struct Mark {
    explicit Mark(bool& mark) : set(mark) { set = true; }
    ~Mark() { set = false; }
    bool& set;
  };

  bool& ofRules_;
};

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
  statements_.push_back({static_cast<std::size_t>(number), sql, ofRules_ || IsLookUp(sql)});
}

std::shared_ptr<Host> Recorder::InFrontOf(std::shared_ptr<Host> workbench) {
  return std::make_shared<MarkingHost>(std::move(workbench), ofRules_);
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

double Replay::Run(std::span<const Statement> statements) {
  double ofRules = 0;
  for (auto begin = statements.begin(); begin != statements.end();) {
    const auto end =
        std::find_if(begin, statements.end(), [&](const Statement& each) { return each.ofRules != begin->ofRules; });
    const double seconds = Seconds([&] { RunEach({begin, end}); });
    if (begin->ofRules) ofRules += seconds;
    begin = end;
  }
  return ofRules;
}

void Replay::RunEach(std::span<const Statement> statements) {
  for (const auto& [number, sql, ofRules] : statements) {
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
