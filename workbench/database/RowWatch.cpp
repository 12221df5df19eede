#include "workbench/database/RowWatch.h"

#include <sqlite3.h>

#include <algorithm>
#include <iterator>
#include <utility>

#include "workbench/text/Separated.h"

namespace cordboard::workbench {

namespace {

Value OrNothing(Value value) { return value.IsBlank() ? Value::Null() : std::move(value); }

Value Noted(sqlite3_value* value, Column::Type type) {
  switch (sqlite3_value_type(value)) {
    case SQLITE_NULL: return Value::Null();
    case SQLITE_INTEGER:
      if (type == Column::Type::Truth) return sqlite3_value_int64(value) != 0;
      return sqlite3_value_int64(value);
    case SQLITE_FLOAT: return sqlite3_value_double(value);
    default: break;
  }
  const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
  return OrNothing(std::string(text, static_cast<std::size_t>(sqlite3_value_bytes(value))));
}

RowImage ImageBefore(const RowTouch& touch, const WatchedTable& table) {
  RowImage image;
  for (const std::size_t column : table.columns)
    image.push_back(Noted(touch.Before(column), table.table->columns[column].type));
  return image;
}

// Whether the update that is about to be made alters a watched column: most set a mark that nobody watches.
bool IsAltered(const RowTouch& touch, const WatchedTable& table) {
  return std::ranges::any_of(table.columns, [&](std::size_t column) {
    const Column::Type type = table.table->columns[column].type;
    return Noted(touch.Before(column), type) != Noted(touch.After(column), type);
  });
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
  Watched& watched = Named(touch.table());
  if (!watched.table) return;
  if (touch.kind() == RowTouch::Kind::Insert) {
    watched.touched.try_emplace(touch.row());
  } else if (!watched.touched.contains(touch.row()) &&
             (touch.kind() == RowTouch::Kind::Delete || IsAltered(touch, *watched.table))) {
    watched.touched.emplace(touch.row(), ImageBefore(touch, *watched.table));
  }
}

void RowWatch::Forget() {
  for (auto& [stored, watched] : tables_) watched.touched.clear();
}

std::vector<RowDifference> RowWatch::Take() {
  std::vector<RowDifference> differences;
  for (const auto& [stored, watched] : tables_) {
    const Touched& touched = watched.touched;
    // Rows that follow each other are read by one statement.
    for (auto from = touched.begin(); from != touched.end();) {
      auto to = std::next(from);
      for (std::int64_t row = from->first; to != touched.end() && to->first == row + 1; ++to) row = to->first;
      Compare(watched, from, to, differences);
      from = to;
    }
  }
  Forget();
  return differences;
}

void RowWatch::Compare(const Watched& watched, Touched::const_iterator from, Touched::const_iterator to,
                       std::vector<RowDifference>& differences) {
  const auto add = [&](std::optional<RowImage> before, std::optional<RowImage> now) {
    differences.push_back({&*watched.table, std::move(before), std::move(now)});
  };
  const RowSet rows = connection_.Run(watched.select, {from->first, std::prev(to)->first});
  std::size_t row = 0;
  for (; from != to; ++from) {
    const std::optional<RowImage>& before = from->second;
    std::optional<RowImage> now;
    if (row < rows.RowCount() && rows[0][row] == Value(from->first)) {
      now.emplace();
      for (std::size_t column = 1; column < rows.ColumnCount(); ++column) now->push_back(OrNothing(rows[column][row]));
      ++row;
    }
    if (before == now) continue;
    const bool isAnother = before && now && before->front() != now->front();
    add(before, isAnother ? std::nullopt : now);
    if (isAnother) add(std::nullopt, now);
  }
}

}  // namespace cordboard::workbench
