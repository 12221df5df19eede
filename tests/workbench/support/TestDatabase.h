// A database in memory with the shipped tables, to which statements go through the mapper.
#pragma once

#include <sqlite3.h>

#include <memory>
#include <string>
#include <vector>

#include "workbench/database/Schema.h"

namespace cordboard::workbench {

// The text of a file of the repository.
std::string FileText(const std::string& path);

class TestDatabase {
 public:
  // "dynamic", "static" or "site".
  explicit TestDatabase(const std::string& name);

  // The rows, each with a bar between its values; null is "NULL". Fails with a std::runtime_error for what the dialect
  // or SQLite refuses, and
  // with a std::logic_error where the mapper broke its word: one statement, of its kind, a parameter for each literal.
  std::vector<std::string> Run(const std::string& statement);
  // What SQLite would do, one line a step.
  std::string Plan(const std::string& statement);

 private:
  struct Close {
    void operator()(sqlite3* database) const { sqlite3_close(database); }
  };

  std::vector<std::string> Execute(const std::string& prefix, const std::string& statement);

  std::unique_ptr<sqlite3, Close> database_;
  std::string prefix_;  // of the names under which its tables are stored
};

}  // namespace cordboard::workbench
