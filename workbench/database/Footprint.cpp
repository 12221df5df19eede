#include "workbench/database/Footprint.h"

#include <sqlite3.h>

#include <algorithm>
#include <string_view>

namespace cordboard::workbench {

namespace {

// The tables with such names are not the library's.
bool IsOwnTable(std::string_view name) { return name.starts_with("sqlite_") || name.starts_with("Cordboard"); }

// Where a statement leaves its mark; nothing for what does not touch rows.
struct Step {
  bool ofRows;
  std::vector<ChangeClock::Table> Footprint::*written;
};

Step StepOf(int action) {
  switch (action) {
    case SQLITE_READ: return {true, nullptr};
    case SQLITE_INSERT: return {true, &Footprint::appended};
    case SQLITE_UPDATE:
    case SQLITE_DELETE: return {true, &Footprint::rewritten};
    default: return {false, nullptr};
  }
}

void Add(std::vector<ChangeClock::Table>& tables, ChangeClock::Table table) {
  if (std::ranges::find(tables, table) == tables.end()) tables.push_back(table);
}

}  // namespace

FootprintReader::FootprintReader(sqlite3* database, ChangeClock& clock) : clock_(clock) {
  sqlite3_set_authorizer(database, Touch, this);
}

// The database also prepares statements once more, when its tables have become others: what they touch stays the same.
int FootprintReader::Touch(void* reader, int action, const char* first, const char*, const char*,
                           const char*) noexcept {
  auto& [clock, footprint, library] = *static_cast<FootprintReader*>(reader);
  if (footprint == nullptr) return SQLITE_OK;
  const Step step = StepOf(action);
  if (!step.ofRows) return !library || action == SQLITE_SELECT || action == SQLITE_FUNCTION ? SQLITE_OK : SQLITE_DENY;
  const std::string_view name = first == nullptr ? "" : first;
  if (library && IsOwnTable(name)) return SQLITE_DENY;
  const ChangeClock::Table table = clock.Named(name);
  Add(footprint->touched, table);
  if (step.written != nullptr) Add(footprint->*step.written, table);
  return SQLITE_OK;
}

}  // namespace cordboard::workbench
