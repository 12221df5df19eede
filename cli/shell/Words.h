// The words of a shell: what is typed in small letters, beside "edit" and "delete".
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "cli/Definition.h"
#include "cli/shell/Work.h"

namespace cordboard::cli::shell {

// What a word acts on.
struct Setting {
  Work& work;
  const Definition& program;  // for the help
  bool quits = false;         // the shell ends
};

using Arguments = std::vector<std::string>;

struct Word {
  const char* name;
  const char* takes;  // its arguments, as the program's are written: "COMMAND PARAM [NAME=VALUE...]"
  const char* help;
  int (*run)(Setting& setting, const Arguments& given);

  std::string Written() const;  // with its arguments
  // The kinds of its arguments, in their order; of the last there may be any number.
  struct Kinds {
    std::vector<std::string> names;
    std::size_t least = 0;
    bool several = false;

    // Of the argument at a place, from 0 on; nothing where none is expected.
    std::string At(std::size_t place) const;
  };
  Kinds ArgumentKinds() const;
};

std::span<const Word> Words();
const Word* FindWord(std::string_view name);

// A text at its blanks; what stands in double quotes stays together, without them. An open quote ends with the text.
Arguments Split(std::string_view text);

// Runs a word with what it is given; ends with an Exit where there is no such word, or it takes something else.
int RunWord(Setting& setting, const std::string& text);

}  // namespace cordboard::cli::shell
