#include "workbench/history/Undo.h"

#include <algorithm>

#include "workbench/database/DatabaseTransaction.h"
#include "workbench/history/History.h"
#include "workbench/history/Recording.h"

namespace cordboard::workbench {

namespace {

// Takes back a state, and counts what comes of it.
void TakeBack(Recording& recording, const State& state, StateNote& note) {
  recording.store().TakeBack(state.number);
  note.lines += state.note.lines;
  note.added += state.note.removed;
  note.changed += state.note.changed;
  note.removed += state.note.added;
}

}  // namespace

State Undo(Connection& exchange, std::optional<int> number, bool withLater, const std::string& message) {
  Recording recording(exchange);
  const History history(exchange);
  const std::vector<int> taken = history.TakenWith(number, withLater);
  StateNote note{.kind = StateKind::Undo, .message = message, .of = taken.front()};
  for (auto state = taken.rbegin(); state != taken.rend(); ++state) TakeBack(recording, history.Find(*state), note);
  const int made = recording.Commit(note);
  return History(exchange).Find(made);
}

State Redo(Connection& exchange, const std::string& message) {
  Recording recording(exchange);
  const History history(exchange);
  const State& undo = history.LastUndo();
  StateNote note{.kind = StateKind::Redo, .message = message, .of = undo.number};
  TakeBack(recording, undo, note);
  const int made = recording.Commit(note);
  return History(exchange).Find(made);
}

void GoBackTo(Connection& copy, int number) {
  DatabaseTransaction transaction(copy);
  StateStore store(copy);
  for (const int state : History(copy).After(number)) {
    store.TakeBack(state);
    store.Drop(state);
  }
  if (store.Exists()) store.Confirm();
  transaction.Commit();
}

std::size_t KeepNewest(Connection& exchange, std::size_t count) {
  DatabaseTransaction transaction(exchange);
  const History history(exchange);
  history.CheckUntouched();
  const std::vector<State>& states = history.states();
  const std::size_t dropped = states.size() - std::min(states.size(), std::max<std::size_t>(count, 1));
  if (dropped == 0) return 0;
  StateStore store(exchange);
  for (std::size_t i = 0; i < dropped; ++i) store.Drop(states[i].number);
  store.Confirm();
  transaction.Commit();
  return dropped;
}

}  // namespace cordboard::workbench
