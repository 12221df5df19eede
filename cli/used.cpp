// cordboard used: everything that refers to a number, a position, a category or another thing.

#include <algorithm>
#include <iostream>
#include <limits>
#include <nlohmann/json.hpp>

#include "cli/Files.h"
#include "cli/Output.h"
#include "cli/Subcommands.h"
#include "workbench/actions/Called.h"
#include "workbench/exchange/References.h"
#include "workbench/text/Nearest.h"

namespace cordboard::cli {

namespace {

using workbench::Holder;
using workbench::Reference;
using workbench::Thing;

constexpr std::size_t all = std::numeric_limits<std::int32_t>::max();

// A thing of this name, and who refers to it.
struct Use {
  const Thing* thing;
  workbench::Standing standing;
  std::vector<std::pair<const Reference*, Holder>> holders;
};

std::vector<Use> FindUses(workbench::Exchange& exchange, const UsedOptions& options) {
  std::vector<Use> uses;
  for (const Thing& thing : workbench::ShippedReferences().things()) {
    if (!options.thing.empty() && thing.name != options.thing) continue;
    Use use{.thing = &thing, .standing = StandingOf(exchange, thing, options.value), .holders = {}};
    for (const Reference* reference : thing.references) {
      for (Holder& holder : RecordsWith(exchange, *reference->record, {{reference->column, options.value}}, all))
        use.holders.emplace_back(reference, std::move(holder));
    }
    if (use.standing.isThere || !use.holders.empty()) uses.push_back(std::move(use));
  }
  return uses;
}

std::string InWords(const Use& use, const std::string& value) {
  std::string text = use.thing->name + " " + value;
  if (!use.standing.isThere) return text + ", which there is not";
  if (!use.standing.trait.empty()) text += " " + use.standing.trait;
  if (use.thing->home && !use.thing->home->used.empty()) text += use.standing.isUsed ? ", in use" : ", free";
  return text;
}

void Print(const std::vector<Use>& uses, const std::string& value) {
  for (const Use& use : uses) {
    std::cout << Printed(InWords(use, value)) << '\n';
    for (const auto& [reference, holder] : use.holders)
      std::cout << "  " << (reference->takes ? "taken" : "named") << " by the " << Printed(Called(holder)) << " as "
                << reference->column << '\n';
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

void CheckThing(const std::string& name) {
  std::vector<std::string> names;
  for (const Thing& thing : workbench::ShippedReferences().things()) names.push_back(thing.name);
  if (std::ranges::find(names, name) == names.end())
    throw Exit{NotFound, "nothing is called " + name + "." + workbench::DidYouMean(name, names)};
}

}  // namespace

int Used(const UsedOptions& options) {
  if (!options.thing.empty()) CheckThing(options.thing);
  const auto exchange = OpenToRead(options.file);
  const std::vector<Use> uses = FindUses(*exchange, options);
  if (options.json) {
    nlohmann::json things = nlohmann::json::array();
    for (const Use& use : uses) things.push_back(ToJson(use));
    PrintJson({{"value", options.value}, {"things", things}});
  } else {
    Print(uses, options.value);
  }
  if (!uses.empty()) return Done;
  Error(options.file + " has no " + (options.thing.empty() ? "thing" : options.thing) + " " + options.value +
        ", and nothing refers to one");
  return NotFound;
}

}  // namespace cordboard::cli
