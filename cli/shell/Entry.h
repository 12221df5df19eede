// One thing that was typed at a shell.
#pragma once

#include <cstddef>
#include <string>

namespace cordboard::cli::shell {

struct Entry {
  std::string text;         // lines of a plan, or a word with what it is given
  std::size_t row = 0;      // in the input, from 1 on
  bool isOneRow = true;     // as it was typed
  std::size_t prompt = 0;   // the width of what stood before that row
  std::size_t columns = 0;  // of the terminal; 0 where there is none
};

}  // namespace cordboard::cli::shell
