// SQLite has this hook where it is built with it; its header shows it on demand.
#define SQLITE_ENABLE_PREUPDATE_HOOK

#include "workbench/database/RowWatch.h"

#include <sqlite3.h>

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

}  // namespace

RowWatch::RowWatch(Connection& connection, Find find) : connection_(connection), find_(std::move(find)) {
  // Statements that were prepared without the hook empty a table without a word.
  connection_.ForgetStatements();
  sqlite3_preupdate_hook(connection_.database_.get(), BeforeChange, this);
}

RowWatch::~RowWatch() { sqlite3_preupdate_hook(connection_.database_.get(), nullptr, nullptr); }

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

RowImage RowWatch::ImageBefore(const WatchedTable& table) const {
  RowImage image;
  for (const std::size_t column : table.columns) {
    sqlite3_value* value = nullptr;
    sqlite3_preupdate_old(connection_.database_.get(), static_cast<int>(column), &value);
    image.push_back(Noted(value, table.table->columns[column].type));
  }
  return image;
}

// Whether the update that is about to be made alters a watched column: most set a mark that nobody watches.
bool RowWatch::IsAltered(const WatchedTable& table) const {
  for (const std::size_t column : table.columns) {
    sqlite3_value* before = nullptr;
    sqlite3_value* after = nullptr;
    sqlite3_preupdate_old(connection_.database_.get(), static_cast<int>(column), &before);
    sqlite3_preupdate_new(connection_.database_.get(), static_cast<int>(column), &after);
    const Column::Type type = table.table->columns[column].type;
    if (Noted(before, type) != Noted(after, type)) return true;
  }
  return false;
}

// No statement changes the place of a row.
void RowWatch::BeforeChange(void* watch, sqlite3*, int operation, const char*, const char* table, long long before,
                            long long after) noexcept {
  RowWatch& self = *static_cast<RowWatch*>(watch);
  Watched& watched = self.Named(table);
  if (!watched.table) return;
  if (operation == SQLITE_INSERT) {
    watched.touched.try_emplace(after);
  } else if (!watched.touched.contains(before) && (operation == SQLITE_DELETE || self.IsAltered(*watched.table))) {
    watched.touched.emplace(before, self.ImageBefore(*watched.table));
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
