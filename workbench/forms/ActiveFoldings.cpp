#include "workbench/forms/ActiveFoldings.h"

#include <algorithm>

namespace cordboard::workbench {

int ActiveFoldings::DefinitionOf(const std::string& name) const {
  if (const auto found = definitions_.find(name); found != definitions_.end()) return found->second;
  const FoldedName* folded = foldings_.Find(name);
  return folded == nullptr || folded->with.empty() ? 1 : DefinitionOf(folded->with.front()->parameter);
}

// The first of the foldings that hold with the sub-digit parameter in it.
const Folding* ActiveFoldings::FoldingWith(const FoldedName& subDigit) const {
  const auto found = std::ranges::find_if(subDigit.with, [&](const Folding* folding) { return IsActive(*folding); });
  return found == subDigit.with.end() ? nullptr : *found;
}

const DigitPlace* ActiveFoldings::PlaceOf(const FoldedName& subDigit) const {
  const Folding* folding = FoldingWith(subDigit);
  if (folding == nullptr) return nullptr;
  const auto has = [&](const DigitPlace& place) {
    return (!place.digit.empty() && place.digitSlot == subDigit.slot) ||
           std::ranges::find(place.slots, subDigit.slot) != place.slots.end();
  };
  return &*std::ranges::find_if(folding->places, has);
}

}  // namespace cordboard::workbench
