#include "workbench/database/RowLog.h"

#include <utility>

namespace cordboard::workbench {

RowLog::RowLog(Connection& connection, IsNoted isNoted) : connection_(connection), isNoted_(isNoted) {
  connection_.Listen(*this);
}

RowLog::~RowLog() { connection_.StopListening(*this); }

bool RowLog::Places::Add(std::int64_t place) {
  auto bit = places_[place / together][static_cast<std::size_t>(place % together)];
  const bool isKnown = bit;
  bit = true;
  return !isKnown;
}

RowLog::Table& RowLog::Named(const char* stored) {
  if (const auto known = tables_.find(stored); known != tables_.end()) return known->second;
  return tables_.emplace(stored, Table{.isNoted = isNoted_(stored), .block = {.table = stored}}).first->second;
}

void RowLog::BeforeChange(const RowTouch& touch) noexcept {
  if (touch.IsTemporary()) return;
  auto& [isNoted, touched, block] = Named(touch.table());
  if (!isNoted || !touched.Add(touch.row())) return;
  std::optional<std::string> row;
  if (touch.kind() != RowTouch::Kind::Insert) {
    row.emplace();
    for (std::size_t column = 0; column < touch.ColumnCount(); ++column) AppendValue(*row, touch.Before(column));
  }
  size_ -= block.rows.size();
  block.Append(touch.row(), row);
  size_ += block.rows.size();
}

std::vector<RowBlock> RowLog::Take() {
  std::vector<RowBlock> blocks;
  for (auto& [stored, table] : tables_) {
    if (!table.block.rows.empty()) blocks.push_back({stored, std::exchange(table.block.rows, {})});
  }
  size_ = 0;
  return blocks;
}

}  // namespace cordboard::workbench
