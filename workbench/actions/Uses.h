// Everything that refers to a number, a position, a category or another thing.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "workbench/exchange/References.h"

namespace cordboard::workbench {

// A thing of some name, and who refers to it.
struct Use {
  const Thing* thing;
  Standing standing;
  std::vector<std::pair<const Reference*, Holder>> holders;
};

// The things of this name, of all kinds or of the one that is called `thing`, as far as they are there or something
// refers to them.
std::vector<Use> FindUses(Exchange& exchange, const std::string& value, const std::string& thing);
// Why there is no kind of things of this name; nothing where there is one.
std::string UnknownThing(const std::string& name);

// "number 100 of type EX, in use"
std::string InWords(const Use& use, const std::string& value);
// "taken by the key extension DIR=100 (KSEXI) as DIR"
std::string InWords(const Reference& reference, const Holder& holder);
// That there is no such thing: "thing 100, and nothing refers to one".
std::string NoUse(const std::string& value, const std::string& thing);

}  // namespace cordboard::workbench
