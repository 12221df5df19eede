#include "workbench/plans/Trial.h"

#include <algorithm>
#include <iterator>

#include "workbench/plans/ExchangeLine.h"
#include "workbench/plans/PlanLine.h"

namespace cordboard::workbench {

Trial::Trial(Session& session, Changes& changes)
    : session_(session), changes_(changes), transaction_(session.exchange()) {
  changes_.Forget();
}

std::vector<Problem> Trial::Do(const UserAction& action) {
  lines_.push_back({action.command, WrittenLine(action)});
  const std::string& text = lines_.back().text;
  const auto read = ReadableLine(text);
  if (!read || text.find('\n') != text.npos) return {{.message = "a plan cannot hold a line with these values"}};
  Outcome outcome = PerformLine(session_, *read);
  if (!outcome.done) return std::move(outcome.problems);
  changed_ = changes_.Take();
  return {};
}

std::vector<Record> Trial::Made(const RecordTable& table) const {
  std::vector<Record> made;
  for (const RecordChange& change : changed_) {
    if (&change.form() != &table.form() || change.kind() == RecordChange::Kind::Removed) continue;
    Record& record = made.emplace_back(table.columns().size());
    for (const Assignment& value : change.Now()) {
      const auto column = std::ranges::find(table.columns(), value.name);
      if (column != table.columns().end())
        record[static_cast<std::size_t>(column - table.columns().begin())] = value.value;
    }
  }
  return made;
}

void Trial::Keep(std::vector<TriedLine>& kept) {
  transaction_.Commit();
  std::ranges::move(lines_, std::back_inserter(kept));
}

}  // namespace cordboard::workbench
