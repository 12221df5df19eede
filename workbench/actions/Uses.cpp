#include "workbench/actions/Uses.h"

#include <algorithm>
#include <limits>

#include "workbench/actions/Called.h"
#include "workbench/text/Nearest.h"

namespace cordboard::workbench {

namespace {

constexpr std::size_t all = std::numeric_limits<std::int32_t>::max();

}  // namespace

std::vector<Use> FindUses(Exchange& exchange, const std::string& value, const std::string& name) {
  std::vector<Use> uses;
  for (const Thing& thing : ShippedReferences().things()) {
    if (!name.empty() && thing.name != name) continue;
    Use use{.thing = &thing, .standing = StandingOf(exchange, thing, value), .holders = {}};
    for (const Reference* reference : thing.references) {
      for (Holder& holder : RecordsWith(exchange, *reference->record, {{reference->column, value}}, all))
        use.holders.emplace_back(reference, std::move(holder));
    }
    if (use.standing.isThere || !use.holders.empty()) uses.push_back(std::move(use));
  }
  return uses;
}

std::string UnknownThing(const std::string& name) {
  std::vector<std::string> names;
  for (const Thing& thing : ShippedReferences().things()) names.push_back(thing.name);
  if (std::ranges::find(names, name) != names.end()) return "";
  return "nothing is called " + name + "." + DidYouMean(name, names);
}

std::string InWords(const Use& use, const std::string& value) {
  std::string text = use.thing->name + " " + value;
  if (!use.standing.isThere) return text + ", which there is not";
  if (!use.standing.trait.empty()) text += " " + use.standing.trait;
  if (use.thing->home && !use.thing->home->used.empty()) text += use.standing.isUsed ? ", in use" : ", free";
  return text;
}

std::string InWords(const Reference& reference, const Holder& holder) {
  return (reference.takes ? "taken" : "named") + (" by the " + Called(holder)) + " as " + reference.column;
}

std::string NoUse(const std::string& value, const std::string& thing) {
  return (thing.empty() ? "thing" : thing) + " " + value + ", and nothing refers to one";
}

}  // namespace cordboard::workbench
