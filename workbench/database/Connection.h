// A connection to one SQLite database: opening, values both ways, kept statements, nested transactions.
#pragma once

#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <unordered_map>
#include <vector>

#include "script/List.h"

struct sqlite3;
struct sqlite3_stmt;

namespace cordboard::workbench {

// The database refuses: a statement that does not fit the schema, a locked file, a full disk. The message is SQLite's.
class DatabaseError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

class Connection {
 public:
  enum class Mode { Create, ReadWrite, ReadOnly };

  // Opens a file; Create makes a new one. A file that may not be written is opened for reading. Fails with
  // DatabaseError.
  Connection(const std::filesystem::path& file, Mode mode);
  // A database in memory.
  Connection();

  // Runs statements of the workbench's own, without parameters and rows.
  void Execute(const std::string& sql);

  // Runs one statement with its parameters and gives its rows. The statement is prepared once and kept by its text.
  // Columns declared BOOLEAN come back as truth values; numbers, texts and nulls keep their kind.
  RowSet Run(const std::string& sql, const std::vector<Value>& parameters = {});
  // The first column of the first row, empty where there is none.
  Value Single(const std::string& sql, const std::vector<Value>& parameters = {});
  // The same for a statement of the library: it may read and write rows of its tables and nothing else.
  RowSet RunRule(const std::string& sql, const std::vector<Value>& parameters);
  // Prepares and keeps a statement of the library, and gives the number of its columns. Fails where it does not fit.
  int PrepareRule(const std::string& sql);

  // Transactions nest: the outermost is one of the database, the inner ones are savepoints in it. Where the database
  // gives one up by itself, as it may on a full disk, every statement fails until all are rolled back: nothing of it is
  // kept piece by piece.
  void Start();
  void Commit();
  void RollBack();
  int OpenTransactions() const { return open_; }

  bool IsReadOnly() const { return readOnly_; }

 private:
  friend class RowWatch;  // puts a hook on the database

  struct CloseDatabase {
    void operator()(sqlite3* database) const;
  };
  struct FinalizeStatement {
    void operator()(sqlite3_stmt* statement) const;
  };
  using Statement = std::unique_ptr<sqlite3_stmt, FinalizeStatement>;

  using Statements = std::unordered_map<std::string, Statement>;

  void Open(const std::string& name, int flags);
  sqlite3_stmt* Prepared(const std::string& sql, Statements& kept);
  sqlite3_stmt* PreparedRule(const std::string& sql);
  RowSet Step(sqlite3_stmt* statement, const std::vector<Value>& parameters);
  void ForgetStatements();
  bool IsTransactionLost() const;
  [[noreturn]] void Fail() const;

  std::unique_ptr<sqlite3, CloseDatabase> database_;
  Statements kept_;
  Statements keptRules_;
  bool readOnly_ = false;
  std::string lostBy_;  // why the database gave up a transaction
  int open_ = 0;
};

}  // namespace cordboard::workbench
