#include "workbench/database/WholeTable.h"

#include <algorithm>
#include <string_view>

namespace cordboard::workbench {

namespace {

// Whether the text is a name in brackets, and nothing else.
bool IsName(std::string_view text) { return text.starts_with('[') && text.find(']') == text.size() - 1; }

bool AreNames(std::string_view list) {
  const std::size_t comma = list.find(", ");
  return IsName(list.substr(0, comma)) && (comma == list.npos || AreNames(list.substr(comma + 2)));
}

}  // namespace

std::optional<WholeTable> WholeTable::Of(const std::string& sql) {
  constexpr std::string_view select = "SELECT ";
  constexpr std::string_view from = " FROM ";
  constexpr std::string_view order = " ORDER BY ";
  const std::size_t fromAt = sql.find(from);
  const std::size_t orderAt = sql.find(order);
  if (!sql.starts_with(select) || fromAt == sql.npos || orderAt == sql.npos || orderAt < fromAt) return std::nullopt;
  const std::string columns = sql.substr(select.size(), fromAt - select.size());
  const std::string table = sql.substr(fromAt + from.size(), orderAt - fromAt - from.size());
  if (!AreNames(columns) || !IsName(table) || sql.substr(orderAt + order.size()) != table + ".rowid")
    return std::nullopt;
  return WholeTable("SELECT rowid, " + columns + " FROM " + table + " WHERE rowid > ? ORDER BY rowid",
                    static_cast<std::size_t>(std::ranges::count(columns, '[')));
}

void WholeTable::Forget() {
  for (auto& column : columns_) column.clear();
  last_ = 0;
}

void WholeTable::Append(const RowSet& found, ChangeClock::Time time) {
  time_ = time;
  if (found.IsEmpty()) return;
  for (std::size_t i = 0; i < columns_.size(); ++i)
    columns_[i].insert(columns_[i].end(), found[i + 1].begin(), found[i + 1].end());
  last_ = found[0][found.RowCount() - 1];
}

}  // namespace cordboard::workbench
