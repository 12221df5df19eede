#include "script/Registry.h"

namespace cordboard {

#define COMMAND(family, name) bool name(const Action& action);
#include "commands/Commands.def"
#undef COMMAND

std::span<const Command> Registry() {
  static const Command commands[] = {
#define COMMAND(family, name) {#name, #family, name},
#include "commands/Commands.def"
#undef COMMAND
  };
  return commands;
}

}  // namespace cordboard
