#include "entry/Registry.h"

namespace cordboard {

#define COMMAND(family, name) extern const Module name;
#define PLANNED(family, name)
#include "entry/Commands.def"
#undef COMMAND
#undef PLANNED

std::span<const Command> Registry() {
  static constexpr Command commands[] = {
#define COMMAND(family, name) {#name, #family, name},
#define PLANNED(family, name)
#include "entry/Commands.def"
#undef COMMAND
#undef PLANNED
  };
  return commands;
}

std::span<const std::string_view> CommandNames() {
  static constexpr std::string_view names[] = {
#define COMMAND(family, name) #name,
#define PLANNED(family, name) #name,
#include "entry/Commands.def"
#undef COMMAND
#undef PLANNED
  };
  return names;
}

}  // namespace cordboard
