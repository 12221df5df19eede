// SQLite has this hook where it is built with it; its header shows it on demand.
#define SQLITE_ENABLE_PREUPDATE_HOOK

#include "workbench/database/RowHook.h"

#include <sqlite3.h>

namespace cordboard::workbench {

std::size_t RowTouch::ColumnCount() const { return static_cast<std::size_t>(sqlite3_preupdate_count(database_)); }

sqlite3_value* RowTouch::Before(std::size_t column) const {
  sqlite3_value* value = nullptr;
  sqlite3_preupdate_old(database_, static_cast<int>(column), &value);
  return value;
}

sqlite3_value* RowTouch::After(std::size_t column) const {
  sqlite3_value* value = nullptr;
  sqlite3_preupdate_new(database_, static_cast<int>(column), &value);
  return value;
}

void RowHook::Add(sqlite3* database, RowListener& listener) {
  listeners_.push_back(&listener);
  sqlite3_preupdate_hook(database, Tell, this);
}

void RowHook::Remove(sqlite3* database, RowListener& listener) {
  std::erase(listeners_, &listener);
  if (listeners_.empty()) sqlite3_preupdate_hook(database, nullptr, nullptr);
}

void RowHook::TakenBack() noexcept {
  for (RowListener* listener : listeners_) listener->TakenBack();
}

void RowHook::Tell(void* hook, sqlite3* database, int operation, const char* schema, const char* table,
                   long long before, long long after) noexcept {
  const RowTouch::Kind kind = operation == SQLITE_INSERT   ? RowTouch::Kind::Insert
                              : operation == SQLITE_DELETE ? RowTouch::Kind::Delete
                                                           : RowTouch::Kind::Update;
  const RowTouch touch(database, kind, schema, table, kind == RowTouch::Kind::Insert ? after : before);
  for (RowListener* listener : static_cast<RowHook*>(hook)->listeners_) listener->BeforeChange(touch);
}

}  // namespace cordboard::workbench
