#include "workbench/forms/FoldingList.h"

#include <algorithm>
#include <utility>

namespace cordboard::workbench {

bool DigitPlace::Has(std::string_view name) const {
  return name == digit || std::ranges::find(parameters, name) != parameters.end();
}

bool Folding::Has(std::string_view subDigit) const {
  return std::ranges::any_of(places, [&](const DigitPlace& place) { return place.Has(subDigit); });
}

FoldingList::FoldingList() {
  static const auto none = std::make_shared<const Kept>();
  kept_ = none;
}

FoldingList::FoldingList(std::vector<Folding> foldings) {
  const auto kept = std::make_shared<Kept>(Kept{std::move(foldings)});
  const auto named = [&](const std::string& name) -> FoldedName& {
    return kept->names.try_emplace(name, FoldedName{.slot = kept->names.size()}).first->second;
  };
  const auto slotIn = [&](const std::string& name, const Folding& folding) {
    FoldedName& digit = named(name);
    if (digit.with.empty() || digit.with.back() != &folding) digit.with.push_back(&folding);
    return digit.slot;
  };
  for (Folding& folding : kept->all) {
    FoldedName& whole = named(folding.parameter);
    whole.of.push_back(&folding);
    folding.slot = whole.slot;
    for (DigitPlace& place : folding.places) {
      if (!place.digit.empty()) place.digitSlot = slotIn(place.digit, folding);
      place.slots.clear();
      for (const std::string& parameter : place.parameters) place.slots.push_back(slotIn(parameter, folding));
    }
  }
  kept_ = kept;
}

const FoldedName* FoldingList::Find(std::string_view name) const {
  const auto found = kept_->names.find(name);
  return found == kept_->names.end() ? nullptr : &found->second;
}

const std::vector<const Folding*>& FoldingList::Of(std::string_view whole) const {
  static const std::vector<const Folding*> none;
  const FoldedName* name = Find(whole);
  return name == nullptr ? none : name->of;
}

const std::vector<const Folding*>& FoldingList::With(std::string_view subDigit) const {
  static const std::vector<const Folding*> none;
  const FoldedName* name = Find(subDigit);
  return name == nullptr ? none : name->with;
}

}  // namespace cordboard::workbench
