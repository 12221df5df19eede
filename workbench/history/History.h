// The history of an exchange: its states, and which of them can be taken back or brought again.
#pragma once

#include <optional>
#include <utility>
#include <vector>

#include "workbench/database/Connection.h"
#include "workbench/history/Course.h"
#include "workbench/history/State.h"
#include "workbench/history/StateStore.h"

namespace cordboard::workbench {

// There is no state of that number.
class NoSuchState : public HistoryError {
 public:
  using HistoryError::HistoryError;
};

class History {
 public:
  explicit History(Connection& exchange);

  // The oldest first; none where the exchange was made before there was a history, and has not been changed since.
  const std::vector<State>& states() const& { return states_; }
  std::vector<State> states() && { return std::move(states_); }
  // Fails with NoSuchState.
  const State& Find(int number) const;
  // Fails with a HistoryError where somebody wrote the file last who keeps no history.
  void CheckUntouched() const;

  // The states that an undo takes back, in their order: the last that holds, or the one of this number, which has to
  // be the last unless those after it are to go with it. Fails with a HistoryError where that cannot be.
  std::vector<int> TakenWith(std::optional<int> number, bool withLater) const;
  // The undo that a redo takes back.
  const State& LastUndo() const;
  // The states that have to be taken back to come to one, the last first.
  std::vector<int> After(int number) const;

 private:
  void CheckUndo(const State& state) const;

  Connection& exchange_;
  std::vector<State> states_;
  Course course_;
};

}  // namespace cordboard::workbench
