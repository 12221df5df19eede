#include "workbench/history/History.h"

#include <algorithm>

#include "workbench/text/Separated.h"

namespace cordboard::workbench {

namespace {

std::string Named(int number) { return "state " + std::to_string(number); }

std::string Listed(const std::vector<int>& numbers) {
  return Separated(numbers, ", ", [](int number) { return std::to_string(number); });
}

bool IsFromOutside(const State& state) { return state.note.kind == StateKind::Outside; }

const char* const byOthers = "another program, or an older cordboard,";

}  // namespace

History::History(Connection& exchange) : exchange_(exchange) {
  const StateStore store(exchange);
  if (!store.Exists()) return;
  states_ = store.All();
  course_ = FollowCourse(states_);
}

const State& History::Find(int number) const {
  const auto found = std::ranges::find(states_, number, &State::number);
  if (found != states_.end()) return *found;
  const std::string wanted = "there is no " + Named(number);
  if (states_.empty()) throw NoSuchState(wanted + ": the exchange has not been changed since there is a history");
  throw NoSuchState(wanted + "; there are " + std::to_string(states_.front().number) + " to " +
                    std::to_string(states_.back().number));
}

void History::CheckUntouched() const {
  if (states_.empty()) return;
  const State& last = states_.back();
  if (!IsFromOutside(last) && last.timesWritten == exchange_.TimesWritten()) return;
  const int known = IsFromOutside(last) ? last.number - 1 : last.number;
  throw HistoryError(std::string(byOthers) + " has written the file after " + Named(known) +
                     ": what was before cannot be reached any more");
}

void History::CheckUndo(const State& state) const {
  const std::string named = Named(state.number);
  switch (state.note.kind) {
    case StateKind::New:
    case StateKind::Start: throw HistoryError(named + " is the beginning of the history and cannot be taken back");
    case StateKind::Outside: throw HistoryError(named + " was made by " + byOthers + " and cannot be taken back");
    case StateKind::Undo:
      throw HistoryError(named + " has taken back " + Listed(state.concerns) + "; redo brings that again");
    case StateKind::Redo:
      throw HistoryError(named + " has brought again " + Listed(state.concerns) + ", which can be taken back");
    case StateKind::Apply:
    case StateKind::Plant: break;
  }
  if (state.takenBackBy != 0) throw HistoryError(named + " was taken back already, by " + Named(state.takenBackBy));
  if (std::ranges::find(course_.held, state.number) == course_.held.end())
    throw HistoryError(named + " was there before " + byOthers + " has written the file, and cannot be taken back");
}

std::vector<int> History::TakenWith(std::optional<int> number, bool withLater) const {
  if (!states_.empty() && IsFromOutside(states_.back())) CheckUntouched();
  if (!number) {
    if (course_.held.empty()) throw HistoryError("there is nothing to take back");
    return {course_.held.back()};
  }
  CheckUndo(Find(*number));
  std::vector<int> taken(std::ranges::find(course_.held, *number), course_.held.end());
  if (taken.size() == 1 || withLater) return taken;
  throw HistoryError(Named(*number) + " is not the last: " + Listed({taken.begin() + 1, taken.end()}) +
                     " came after it. Take back what came after it before, or all of it at once by --with-later");
}

const State& History::LastUndo() const {
  if (course_.undone.empty())
    throw HistoryError("there is nothing to bring again: only an undo can be, after which nothing was changed");
  return Find(course_.undone.back());
}

std::vector<int> History::After(int number) const {
  CheckUntouched();
  Find(number);
  std::vector<int> after;
  for (auto state = states_.rbegin(); state->number != number; ++state) {
    if (IsFromOutside(*state))
      throw HistoryError(Named(number) + " was there before " + byOthers +
                         " has written the file, and cannot be reached any more");
    after.push_back(state->number);
  }
  return after;
}

}  // namespace cordboard::workbench
