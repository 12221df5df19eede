// Rows of one table as they were at some moment, written as bytes: how they are gathered, looked at again and put back.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "workbench/database/Connection.h"

struct sqlite3_value;

namespace cordboard::workbench {

// The values of a row one after the other, each as it is stored. Two rows are the same where their bytes are.
void AppendValue(std::string& row, sqlite3_value* value);

// A block of rows: each has its place in the table, and its bytes, or nothing where there was no row.
struct RowBlock {
  std::string table;  // its stored name
  std::string rows = {};

  void Append(std::int64_t place, const std::optional<std::string>& row);
};

// The rows of a block against those of a database. Fails with a DatabaseError where the block cannot be read.
class BlockOfRows {
 public:
  BlockOfRows(Connection& connection, const RowBlock& block);

  struct Now {
    bool differs = false;  // one of the rows at least is not as it was
    std::string sum;       // the same where all rows are the same
  };
  Now Look();
  // Takes the rows out that are there now.
  void Remove();
  // Puts the rows in that were there. Their places are free.
  void PutBack();

 private:
  template <typename Take>
  void EachRow(Take take) const;

  Connection& connection_;
  const RowBlock& block_;
  std::string columns_;  // "[A], [B]"
  std::string values_;   // "?, ?"
};

}  // namespace cordboard::workbench
