#include "workbench/database/RowWatch.h"

#include <sqlite3.h>

#include <algorithm>
#include <iterator>
#include <utility>

#include "workbench/database/StoredText.h"
#include "workbench/text/Separated.h"

namespace cordboard::workbench {

namespace {

Value Noted(sqlite3_value* value, Column::Type type) {
  switch (sqlite3_value_type(value)) {
    case SQLITE_NULL: return Value::Null();
    case SQLITE_INTEGER:
      if (type == Column::Type::Truth) return sqlite3_value_int64(value) != 0;
      return sqlite3_value_int64(value);
    case SQLITE_FLOAT: return sqlite3_value_double(value);
    default: break;
  }
  const std::string_view text = StoredText(value);
  return text.empty() ? Value::Null() : Value(text);
}

using ValueOfTouch = sqlite3_value* (RowTouch::*)(std::size_t column) const;

RowImage Image(const RowTouch& touch, const WatchedTable& table, ValueOfTouch value) {
  RowImage image;
  image.reserve(table.columns.size());
  for (const std::size_t column : table.columns)
    image.push_back(Noted((touch.*value)(column), table.table->columns[column].type));
  return image;
}

}  // namespace

RowWatch::RowWatch(Connection& connection, Find find) : connection_(connection), find_(std::move(find)) {
  connection_.Listen(*this);
}

RowWatch::~RowWatch() { connection_.StopListening(*this); }

RowWatch::Watched& RowWatch::Named(const char* stored) {
  if (const auto known = tables_.find(stored); known != tables_.end()) return known->second;
  Watched watched{.table = find_(stored), .select = {}};
  if (watched.table) {
    const auto name = [&](std::size_t column) { return ", [" + watched.table->table->columns[column].name + "]"; };
    watched.select = "SELECT rowid" + Separated(watched.table->columns, "", name) + " FROM [" + stored +
                     "] WHERE rowid BETWEEN ? AND ? ORDER BY rowid";
  }
  return tables_.emplace(stored, std::move(watched)).first->second;
}

void RowWatch::BeforeChange(const RowTouch& touch) noexcept {
  auto& [table, select, touched] = Named(touch.table());
  if (!table) return;
  std::optional<RowImage> now;
  if (touch.kind() != RowTouch::Kind::Delete) now = Image(touch, *table, &RowTouch::After);
  auto known = touched.find(touch.row());
  if (known == touched.end()) {
    std::optional<RowImage> before;
    if (touch.kind() != RowTouch::Kind::Insert) before = Image(touch, *table, &RowTouch::Before);
    if (before == now) return;  // most updates set a mark that nobody watches
    known = touched.emplace(touch.row(), Touch{.before = std::move(before)}).first;
  }
  known->second.now = std::move(now);
}

void RowWatch::Forget() {
  for (auto& [stored, watched] : tables_) watched.touched.clear();
  isTakenBack_ = false;
}

std::vector<RowDifference> RowWatch::Take() {
  if (isTakenBack_) {
    for (auto& [stored, watched] : tables_) ReadNow(watched);
  }
  std::vector<RowDifference> differences;
  for (auto& [stored, watched] : tables_) {
    for (auto& [row, touch] : watched.touched) {
      auto& [before, now] = touch;
      if (before == now) continue;
      if (before && now && before->front() != now->front())
        differences.push_back({&*watched.table, std::exchange(before, std::nullopt), std::nullopt});
      differences.push_back({&*watched.table, std::move(before), std::move(now)});
    }
  }
  Forget();
  return differences;
}

// Rows that follow each other are read by one statement.
void RowWatch::ReadNow(Watched& watched) {
  Touched& touched = watched.touched;
  for (auto from = touched.begin(); from != touched.end();) {
    auto to = std::next(from);
    for (std::int64_t row = from->first; to != touched.end() && to->first == row + 1; ++to) row = to->first;
    ReadNow(watched, from, to);
    from = to;
  }
}

void RowWatch::ReadNow(const Watched& watched, Touched::iterator from, Touched::iterator to) {
  const RowSet rows = connection_.Run(watched.select, {from->first, std::prev(to)->first});
  for (std::size_t row = 0; from != to; ++from) {
    std::optional<RowImage>& now = from->second.now;
    now.reset();
    if (row == rows.RowCount() || rows[0][row] != Value(from->first)) continue;
    now.emplace();
    for (std::size_t column = 1; column < rows.ColumnCount(); ++column)
      now->push_back(rows[column][row].IsBlank() ? Value::Null() : rows[column][row]);
    ++row;
  }
}

}  // namespace cordboard::workbench
