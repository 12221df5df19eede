// Going back and forth in the history of an exchange. Each does all or nothing, and fails with a HistoryError where
// nothing can be done.
#pragma once

#include <optional>
#include <string>

#include "workbench/database/Connection.h"
#include "workbench/history/State.h"

namespace cordboard::workbench {

// Takes back what History::TakenWith says, and gives the state that this makes.
State Undo(Connection& exchange, std::optional<int> number, bool withLater, const std::string& message);
// Brings again what the last undo has taken back, as long as nothing came after it.
State Redo(Connection& exchange, const std::string& message);

// Makes of a copy, which is nobody else's, the exchange as it stood at a state.
void GoBackTo(Connection& copy, int number);

// Forgets the oldest states, so that as many of the newest stay as are asked for, and one at least. Gives how many are
// forgotten.
std::size_t KeepNewest(Connection& exchange, std::size_t count);

}  // namespace cordboard::workbench
