// The commands: one explicit table, in the order of comparison (entry/Commands.def).
#pragma once

#include <span>
#include <string_view>
#include <unordered_map>

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
  static const auto modules = [] {
    std::unordered_map<std::string_view, const Module*> byName;
    for (const Command& command : Registry()) byName.emplace(command.name, &command.module);
    return byName;
  }();
  const auto found = modules.find(name);
  return found == modules.end() ? nullptr : found->second;
}

}  // namespace cordboard
