// The rows of a statement that reads a table whole, kept from one run to the next. Rules compare a record with every
// row of its table before they add it at the end: of the rows that were read before, only the new ones are read.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "script/List.h"
#include "workbench/database/ChangeClock.h"

namespace cordboard::workbench {

class WholeTable {
 public:
  // Nothing where the statement is not SELECT [A], [B] FROM [T] ORDER BY [T].rowid.
  static std::optional<WholeTable> Of(const std::string& sql);

  // The statement that reads the place and the columns of the rows behind a place, and the place of the last row that
  // is kept.
  const std::string& statement() const { return statement_; }
  const Value& last() const { return last_; }

  // What is kept, as it was found at a time.
  ChangeClock::Time time() const { return time_; }
  RowSet Rows() const { return RowSet(columns_); }

  void Forget();
  // Adds what the statement has found.
  void Append(const RowSet& found, ChangeClock::Time time);

 private:
  WholeTable(std::string statement, std::size_t columns) : statement_(std::move(statement)), columns_(columns) {}

  std::string statement_;
  std::vector<std::vector<Value>> columns_;
  Value last_ = 0;
  ChangeClock::Time time_ = 0;
};

}  // namespace cordboard::workbench
