// The output of "GenerateCmd": exchange command lines in the table BuiltCmd. It follows from the records alone: no
// generation reads a parameter of the form, and a host need not have one.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>

#include "script/Action.h"
#include "script/Conversions.h"
#include "script/HostOperations.h"
#include "script/Report.h"
#include "script/Statement.h"

namespace cordboard {

// The statement that appends one line under the action's order number.
inline std::string LineStatement(const Action& action, const std::string& line) {
  return Sql("INSERT INTO BuiltCmd VALUES (", action.OrderNumber(), ",'", line, "')");
}

// Appends one line under the action's order number, to the lines of the exchange or of another database.
inline bool InsertLine(const Reporter& fail, const Action& action, const std::string& line,
                       const Selector& database = std::nullopt) {
  return scRunQueryOn(database, LineStatement(action, line)) || fail(GenerationFailed);
}

// A row as lines need it: its fields, in the order of the query, without outer blanks.
class LineRow {
 public:
  LineRow(const RowSet& rows, std::size_t row) : rows_(rows), row_(row) {}

  // A null stays null.
  Value operator[](std::size_t column) const { return Trim(rows_[column][row_]); }
  // The field as it stands in its row, blanks included.
  const Value& Stored(std::size_t column) const { return rows_[column][row_]; }
  // The first fields as texts. A null counts as the empty text.
  template <std::size_t count>
  std::array<std::string, count> Texts() const {
    std::array<std::string, count> texts;
    for (std::size_t column = 0; column < count; ++column) texts[column] = Joined((*this)[column]);
    return texts;
  }

 private:
  const RowSet& rows_;
  std::size_t row_;
};

// Inserts a line for each row: `line` makes it from a LineRow, or gives nothing for a row without one. A line that is
// not inserted is reported, and the next one follows. Gives the answer of the last insert, `flag` where there was none.
template <typename MakeLine>
bool InsertLines(const Reporter& fail, const Action& action, const RowSet& rows, bool flag, MakeLine line,
                 const Selector& database = std::nullopt) {
  for (std::size_t row = 0; row < rows.RowCount(); ++row) {
    const std::optional<std::string> made = line(LineRow(rows, row));
    if (made) flag = InsertLine(fail, action, *made, database);
  }
  return flag;
}

// The usual generation: a line for each row of the query. A query that fails is reported and gives no row.
template <typename MakeLine>
bool GenerateLines(const Action& action, const std::string& query, MakeLine line) {
  const Reporter fail("Generating: " + action.CmdName);
  RowSet rows;
  const bool read = scRunQuery(query, rows) || fail(GenerationFailed);
  return InsertLines(fail, action, rows, read, line);
}

// A piece of a line, such as ",CUST=" and its value, where the value is not null, or is not blank; otherwise nothing.
inline std::string UnlessNull(const char* name, const Value& value) { return value.IsNull() ? "" : Text(name, value); }
inline std::string UnlessBlank(const char* name, const Value& value) {
  return value.IsBlank() ? "" : Text(name, value);
}

}  // namespace cordboard
