// The commands: one explicit table, in the order of comparison (entry/Commands.def).
#pragma once

#include <span>
#include <string_view>

#include "script/Module.h"

namespace cordboard {

struct Command {
  std::string_view name;    // the command's name, in its own capitals
  std::string_view family;  // the folder under commands/
  const Module& module;     // what it serves, for whom, and by which worker
};

// The commands whose modules are built.
std::span<const Command> Registry();
// The names of all commands of the exchange, built or not.
std::span<const std::string_view> CommandNames();
// The module of a command; null for a name that no module serves.
inline const Module* FindModule(std::string_view name) {
  for (const Command& command : Registry()) {
    if (command.name == name) return &command.module;
  }
  return nullptr;
}

}  // namespace cordboard
