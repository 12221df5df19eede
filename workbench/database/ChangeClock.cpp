#include "workbench/database/ChangeClock.h"

#include <algorithm>

namespace cordboard::workbench {

ChangeClock::Table ChangeClock::Named(std::string_view name) {
  if (const auto found = numbers_.find(name); found != numbers_.end()) return found->second;
  tables_.emplace_back();
  return numbers_[std::string(name)] = tables_.size() - 1;
}

bool ChangeClock::NoneSince(Time time, const std::vector<Table>& tables) const {
  return everything_ <= time && std::ranges::all_of(tables, [&](Table table) {
           return tables_[table].appended <= time && tables_[table].rewritten <= time;
         });
}

bool ChangeClock::OnlyAppendedSince(Time time, Table table) const {
  return everything_ <= time && tables_[table].rewritten <= time;
}

void ChangeClock::Start() {
  if (starts_.empty()) Everything();
  starts_.push_back(now_);
}

// What has changed since the start has now changed back.
void ChangeClock::RollBack() {
  const Time start = starts_.back();
  starts_.pop_back();
  for (Table table = 0; table < tables_.size(); ++table) {
    if (tables_[table].appended > start || tables_[table].rewritten > start) Rewritten(table);
  }
}

}  // namespace cordboard::workbench
