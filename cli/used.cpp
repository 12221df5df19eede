// cordboard used: everything that refers to a number, a position, a category or another thing.

#include <iostream>
#include <nlohmann/json.hpp>

#include "cli/Files.h"
#include "cli/Output.h"
#include "cli/Subcommands.h"
#include "workbench/actions/Called.h"
#include "workbench/actions/Uses.h"

namespace cordboard::cli {

namespace {

using workbench::Use;

void Print(const std::vector<Use>& uses, const std::string& value) {
  for (const Use& use : uses) {
    std::cout << Printed(InWords(use, value)) << '\n';
    for (const auto& [reference, holder] : use.holders)
      std::cout << "  " << Printed(InWords(*reference, holder)) << '\n';
  }
}

nlohmann::json ToJson(const Use& use) {
  nlohmann::json holders = nlohmann::json::array();
  for (const auto& [reference, holder] : use.holders)
    holders.push_back({{"command", holder.record->command},
                       {"record", Called(holder)},
                       {"parameter", reference->column},
                       {"takes", reference->takes}});
  return {{"thing", use.thing->name},
          {"there", use.standing.isThere},
          {"used", use.standing.isUsed || !use.holders.empty()},
          {"trait", use.standing.trait},
          {"holders", holders}};
}

}  // namespace

int Used(const UsedOptions& options) { return Used(*OpenToRead(options.file), options); }

int Used(workbench::Exchange& exchange, const UsedOptions& options) {
  if (!options.thing.empty()) {
    if (const std::string unknown = workbench::UnknownThing(options.thing); !unknown.empty())
      throw Exit{NotFound, unknown};
  }
  const std::vector<Use> uses = FindUses(exchange, options.value, options.thing);
  if (options.json) {
    nlohmann::json things = nlohmann::json::array();
    for (const Use& use : uses) things.push_back(ToJson(use));
    PrintJson({{"value", options.value}, {"things", things}});
  } else {
    Print(uses, options.value);
  }
  if (!uses.empty()) return Done;
  Error(options.file + " has no " + workbench::NoUse(options.value, options.thing));
  return NotFound;
}

}  // namespace cordboard::cli
