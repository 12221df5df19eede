// What Tab makes of what is typed at a shell.
#pragma once

#include <string>

#include "cli/Candidates.h"

namespace cordboard::cli::shell {

// Whole texts that what is typed may become, with descriptions; there may be others among them.
Candidates Continuations(const LookUp& lookUp, const std::string& typed);

// What is done at Tab: characters are put in, or a list is shown of what may follow.
struct Completed {
  std::string insert;
  std::string list;  // rows, the last one without its end
};
// In so many rows and columns of a terminal.
struct Room {
  std::size_t rows;
  std::size_t columns;
};
Completed Complete(const std::string& typed, const Candidates& candidates, const Room& room);

// So many values are looked for: a list that has more ends with "and more".
inline constexpr std::size_t mostLookedFor = 500;

}  // namespace cordboard::cli::shell
