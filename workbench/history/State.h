// A state of an exchange: how it stood when one of its changes was done, and what that change was.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace cordboard::workbench {

enum class StateKind {
  New,      // the exchange was made
  Start,    // it stood there when its history began
  Apply,    // plans were applied
  Plant,    // the plant was added to
  Undo,     // states were taken back
  Redo,     // what an undo took back was brought again
  Outside,  // somebody wrote the file who keeps no history: what is before it cannot be reached any more
};

// What a change was for, as its user tells it, and how much it did: lines of plans, and records of commands.
struct StateNote {
  StateKind kind = StateKind::Apply;
  std::string message = {};
  std::size_t lines = 0;
  std::size_t added = 0;
  std::size_t changed = 0;
  std::size_t removed = 0;
  int of = 0;  // of an undo the first state that it took back, of a redo the undo
};

struct State {
  int number = 0;  // 0 and on; they are never given again but to what was rolled back
  StateNote note = {};
  std::string time = {};  // "2025-02-28T16:05:00Z"
  std::string user = {};
  std::vector<std::string> plans = {};  // the names of the files
  std::string mark = {};                // by which it is told from all others, also of other exchanges
  std::uint32_t timesWritten = 0;       // of the file, with this state

  // From the states that came after it: what an undo took back or a redo brought again, and which undo took it back.
  std::vector<int> concerns = {};
  int takenBackBy = 0;  // 0 where it holds
};

// "apply", "undo", as a user reads it.
std::string Named(StateKind kind);

}  // namespace cordboard::workbench
