// The commands that are built: one explicit table, in the order of comparison (commands/Registry.cpp).
#pragma once

#include <span>
#include <string_view>

#include "script/Module.h"

namespace cordboard {

struct Command {
  std::string_view name;    // the command's name, in its own capitals
  std::string_view family;  // the folder under commands/
  Worker entry;
};

std::span<const Command> Registry();

}  // namespace cordboard
