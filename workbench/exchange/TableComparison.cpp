#include "workbench/exchange/TableComparison.h"

#include <algorithm>
#include <unordered_map>

#include "script/Conversions.h"
#include "workbench/database/Schema.h"
#include "workbench/exchange/Exchange.h"
#include "workbench/text/Names.h"
#include "workbench/text/Separated.h"

namespace cordboard::workbench {

namespace {

// How often each row stands there; the texts of two rows that differ are different.
using Rows = std::unordered_map<std::string, long>;

Rows RowsOf(Exchange& exchange, const DatabaseSchema& database, const Table& table) {
  std::vector<std::string> columns;
  for (const Column& column : table.columns) {
    if (!SameName(column.name, "CmdId")) columns.push_back("[" + column.name + "]");
  }
  Rows rows;
  const RowSet found =
      exchange.Dynamic().Run("SELECT " + Separated(columns, ", ") + " FROM " + database.RowsOf(table.name));
  for (std::size_t row = 0; row < found.RowCount(); ++row) {
    std::string text;
    for (std::size_t i = 0; i < columns.size(); ++i) {
      const Value& value = found[i][row];
      text += value.IsNull() ? "-" : std::to_string(Joined(value).size()) + ":" + Joined(value);
    }
    ++rows[text];
  }
  return rows;
}

std::size_t Different(const Rows& one, Rows other) {
  long onlyOne = 0;
  long onlyOther = 0;
  for (const auto& [row, count] : one) other[row] -= count;
  for (const auto& [row, more] : other) (more < 0 ? onlyOne : onlyOther) += std::abs(more);
  return static_cast<std::size_t>(std::max(onlyOne, onlyOther));
}

}  // namespace

std::vector<TableDifference> DifferentTables(Exchange& one, Exchange& other) {
  std::vector<TableDifference> different;
  for (const char* selector : {"dynamic", "site"}) {
    const DatabaseSchema& database = ShippedSchema().Database(selector);
    for (const Table& table : database.tables) {
      if (table.name == "BuiltCmd") continue;
      const std::size_t rows = Different(RowsOf(one, database, table), RowsOf(other, database, table));
      if (rows > 0) different.push_back({database.prefix + table.name, rows});
    }
  }
  return different;
}

}  // namespace cordboard::workbench
