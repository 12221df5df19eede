// A connection to one SQLite database: opening, values both ways, kept statements, nested transactions.
#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "script/List.h"
#include "workbench/database/ChangeClock.h"
#include "workbench/database/Footprint.h"
#include "workbench/database/WholeTable.h"

struct sqlite3;
struct sqlite3_stmt;

namespace cordboard::workbench {

// The database refuses a statement that does not fit the schema. The message is SQLite's.
class DatabaseError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Whatever the statement, it cannot be done: the disk is full, the file is damaged or held by another process. The
// message names the file.
class StorageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// What can be done about a damaged file.
inline constexpr const char* adviceOnDamage =
    "put a copy from before in its place; what can still be read of it `cordboard generate` prints";

class RowHook;
class RowListener;

class Connection {
 public:
  // A database in memory.
  Connection();
  // A file that is there, to be written: nothing reaches it before a commit, and other processes read it meanwhile.
  // Where another process holds it, that one is waited for so long. Fails with StorageError, as whatever follows may;
  // and with Interrupted where a signal waits that was held back.
  explicit Connection(const std::filesystem::path& file, std::chrono::milliseconds patience = std::chrono::seconds(5));
  ~Connection();
  Connection(Connection&&) noexcept;
  // A copy in memory of what stands in a file now. It needs no right but that of reading, leaves nothing beside the
  // file, and keeps nobody from it any longer.
  static Connection CopyOf(const std::filesystem::path& file);

  // The content that a file with this database has.
  std::string Content() const;
  // What is wrong with its tables and indexes, in SQLite's words; nothing where they are whole. Fails with StorageError
  // where it cannot be read to its end.
  std::vector<std::string> FindDamage();

  // Runs statements of the workbench's own, without parameters and rows.
  void Execute(const std::string& sql);

  // Runs one statement with its parameters and gives its rows. The statement is prepared once and kept by its text.
  // Columns declared BOOLEAN come back as truth values; numbers, texts and nulls keep their kind.
  RowSet Run(const std::string& sql, const std::vector<Value>& parameters = {});
  // The first column of the first row, empty where there is none.
  Value Single(const std::string& sql, const std::vector<Value>& parameters = {});
  // The same for a statement of the library: it may read and write rows of its tables and nothing else. While nothing
  // that it touches has changed since, one that changed nothing is not run again, and of a table that it reads whole
  // only new rows are read.
  RowSet RunRule(const std::string& sql, const std::vector<Value>& parameters);
  // Hands on what a statement of the library lists, row by row: the first column as the value, the second, where there
  // is one, as its description, both as texts. A row without a value, a null or the empty text, is passed over. `take`
  // runs no statement and does not fail; where it answers false, that is all.
  using TakeValue = std::function<bool(std::string_view value, std::string_view description)>;
  void ReadValues(const std::string& sql, const std::vector<Value>& parameters, const TakeValue& take);
  // Prepares and keeps a statement of the library, and gives the number of its columns. Fails where it does not fit.
  int PrepareRule(const std::string& sql);

  // Transactions nest: the outermost is one of the database, the inner ones are savepoints in it. Where the database
  // gives one up by itself, as it may on a full disk, every statement fails until all are rolled back: nothing of it is
  // kept piece by piece.
  void Start();
  void Commit();
  void RollBack();
  int OpenTransactions() const { return open_; }

  // Tells of every row that is going to be changed from now on. The listener lives until it listens no more.
  void Listen(RowListener& listener);
  void StopListening(RowListener& listener);

  // How often the file has been written, as it counts itself, whoever wrote it; a copy and a database in memory stay as
  // they were. In a transaction also how often when it is committed.
  std::uint32_t TimesWritten() const;
  std::uint32_t TimesWrittenAfterCommit() const;

 private:
  struct CloseDatabase {
    void operator()(sqlite3* database) const;
  };
  struct FinalizeStatement {
    void operator()(sqlite3_stmt* statement) const;
  };
  // A run of a statement that changed nothing.
  struct Idle {
    ChangeClock::Time time;
    std::vector<Value> parameters;
  };
  struct Statement {
    std::unique_ptr<sqlite3_stmt, FinalizeStatement> prepared;
    Footprint footprint;
    std::optional<Idle> idle = {};
    std::optional<WholeTable> whole = {};  // from the second run on, of a statement of the library
    int runs = 0;
  };

  using Statements = std::unordered_map<std::string, Statement>;

  Connection(const std::filesystem::path& file, int flags, std::chrono::milliseconds patience);
  void Open(const std::string& name, int flags);
  // Gives false where the file has to be put in order before it can be read.
  bool CopyTo(Connection& other) const;
  Statement& Prepared(const std::string& sql, Statements& kept);
  RowSet Step(Statement& statement, const std::vector<Value>& parameters);
  template <typename Take>
  void EachRow(Statement& statement, const std::vector<Value>& parameters, Take take);
  void NoteChanges(Statement& statement, const std::vector<Value>& parameters, bool succeeded);
  bool IsIdle(const Statement& statement, const std::vector<Value>& parameters) const;
  RowSet WholeRows(Statement& statement);
  void ForgetStatements();
  bool IsTransactionLost() const;
  std::string Held() const;
  std::vector<std::string> Findings(const std::string& pragma);
  StorageError Damaged(const std::string& how) const;
  [[noreturn]] void Fail(int code) const;

  std::string file_ = "the database in memory";  // as it was named, also for a copy of it
  std::unique_ptr<std::chrono::milliseconds> patience_;
  std::unique_ptr<sqlite3, CloseDatabase> database_;
  // Both stay where they are when the connection is moved.
  std::unique_ptr<ChangeClock> clock_ = std::make_unique<ChangeClock>();
  std::unique_ptr<FootprintReader> footprints_;
  std::unique_ptr<RowHook> hook_;
  Statements kept_;
  Statements keptRules_;
  std::string lostBy_;  // why the database gave up a transaction
  int open_ = 0;
  std::uint32_t timesCopied_ = 0;  // how often the file had been written of which this is a copy
};

}  // namespace cordboard::workbench
