#include "workbench/forms/FoldedValues.h"

#include <algorithm>
#include <utility>

#include "script/Conversions.h"
#include "script/Text.h"

namespace cordboard::workbench {

namespace {

constexpr double greatestPart = 1e15;
constexpr int digitsOfPart = 15;  // of any that is less

std::string InWidth(std::string text, int width) {
  const auto digits = static_cast<std::size_t>(width);
  if (text.size() < digits) text.insert(0, digits - text.size(), '0');
  return text.substr(text.size() - digits);
}

// Whether the value is as many digits as the place has, as most are: it need not be read as a number.
bool AreDigits(const Value& value, int width) {
  return value.IsText() && std::cmp_equal(value.text().size(), width) && width <= digitsOfPart &&
         std::ranges::all_of(value.text(), [](char c) { return c >= '0' && c <= '9'; });
}

}  // namespace

std::string DigitsOf(long long sum, int width) {
  if (width == 1 && sum >= 10 && sum <= 15) return std::string(1, static_cast<char>('A' + (sum - 10)));
  return InWidth(std::to_string(sum), width);
}

// Of several foldings of a whole the one most of whose parameters are given; the first, while none is.
const Folding* FoldedValues::InForce(const FoldedName& whole) const {
  if (whole.of.size() == 1) return active_.IsActive(*whole.of.front()) ? whole.of.front() : nullptr;
  const Folding* inForce = nullptr;
  long most = -1;
  for (const Folding* folding : whole.of) {
    if (!active_.IsActive(*folding)) continue;
    long given = 0;
    for (const DigitPlace& place : folding->places) {
      given += std::ranges::count_if(place.slots, [this](std::size_t slot) { return IsGiven(slot); });
      if (!place.digit.empty() && IsGiven(place.digitSlot)) ++given;
    }
    if (given > most) inForce = folding;
    most = std::max(most, given);
  }
  return inForce;
}

const Folding* FoldedValues::FoldingInForce(const std::string& whole) const {
  const FoldedName* folded = Find(whole);
  return folded == nullptr ? nullptr : InForce(*folded);
}

// What is given for a place: as many digits as it has, or nothing.
std::string FoldedValues::Digits(const DigitPlace& place) const {
  const std::string text = place.digit.empty() ? "" : Joined(values_[place.digitSlot]);
  if (!text.empty()) return InWidth(text, place.width);
  if (place.slots.size() == 1 && AreDigits(values_[place.slots.front()], place.width))
    return values_[place.slots.front()].text();
  long long sum = 0;
  bool given = false;
  for (const std::size_t slot : place.slots) {
    if (!IsGiven(slot)) continue;
    given = true;
    sum += static_cast<long long>(std::clamp(NumericValue(values_[slot]), 0.0, greatestPart));
  }
  return given ? DigitsOf(sum, place.width) : "";
}

std::string FoldedValues::Fold(const Folding& folding) const {
  const Value& whole = values_[folding.slot];
  std::string digits = whole.IsText() ? whole.text() : "";
  for (const DigitPlace& place : folding.places) {
    const std::string text = Digits(place);
    if (text.empty()) continue;
    digits.resize(std::max<std::size_t>(digits.size(), static_cast<std::size_t>(folding.length)), folding.fill);
    digits.replace(static_cast<std::size_t>(place.first - 1), text.size(), text);
  }
  return digits;
}

// The parts with the separator between them, or, where a part is missing that has to be there, the whole as it was
// typed.
std::string FoldedValues::Composed(const Folding& folding) const {
  std::string whole;
  for (const DigitPlace& place : folding.places) {
    const std::string& name = place.parameters.front();
    const Value part = Get(name, Find(name));
    if (part.IsBlank() && folding.isList) continue;
    if (part.IsBlank()) return Joined(values_[folding.slot]);
    whole += (whole.empty() ? "" : folding.separator) + Joined(part);
  }
  return whole.empty() ? Joined(values_[folding.slot]) : whole;
}

// A whole is asked for again and again while nothing changes.
const std::string& FoldedValues::Folded(const Folding& folding) const {
  auto& [state, digits] = digits_[&folding];
  if (state != values_.state()) digits = Fold(folding);
  state = values_.state();
  return digits;
}

Value FoldedValues::Get(const std::string& name, const FoldedName* folded) const {
  if (const Folding* folding = folded == nullptr ? nullptr : InForce(*folded)) {
    const std::string digits = folding->separator.empty() ? Folded(*folding) : Composed(*folding);
    if (!digits.empty()) return digits;
  }
  const Value& value = values_.Of(name, folded).value;
  if (!value.IsEmpty()) return value;
  const DigitPlace* place = folded == nullptr ? nullptr : active_.PlaceOf(*folded);
  if (place == nullptr || place->digit != name) return value;
  const std::string digits = Digits(*place);
  return digits.empty() ? value : Value(digits);
}

// Of several foldings of a whole the one that has as many digits as the text; the first, where none has.
const Folding* FoldedValues::FoldingOfText(const FoldedName& whole, const Value& text) const {
  const Folding* first = nullptr;
  for (const Folding* folding : whole.of) {
    if (!active_.IsActive(*folding)) continue;
    if (text.IsText() && Length(text.text()) == static_cast<std::size_t>(folding->length)) return folding;
    if (first == nullptr) first = folding;
  }
  return first;
}

void FoldedValues::Change(const std::string& name, const FoldedName* folded, FormValues::Entry entry) {
  values_.Set(name, folded, std::move(entry));
  if (folded == nullptr) return;
  ClearParts(*folded);
  ClearBeside(*folded);
}

void FoldedValues::Set(const std::string& name, const FoldedName* folded, const Value& value, Value previous) {
  Change(name, folded, {.value = value, .previous = std::move(previous)});
  const Folding* folding = folded == nullptr ? nullptr : FoldingOfText(*folded, value);
  if (folding == nullptr) return;
  if (value.IsText() && !folding->separator.empty()) return SetParts(*folding, value.text());
  for (const DigitPlace& place : folding->places) {
    // Parameters that add up to one place cannot be told apart in the whole.
    if (!value.IsText() || (place.digit.empty() && place.slots.size() != 1)) continue;
    const std::string digits = Middle(value.text(), place.first, place.width);
    // The beginning of a place would be read as its end.
    if (Length(digits) == static_cast<std::size_t>(place.width))
      values_.Set(place.digit.empty() ? place.slots.front() : place.digitSlot, digits);
  }
}

// The last part has all that is left; a list has no more parts than are typed, and each may have parts of its own.
void FoldedValues::SetParts(const Folding& folding, std::string whole) {
  for (const DigitPlace& place : folding.places) {
    const bool last = &place == &folding.places.back();
    const std::size_t end = last ? whole.npos : whole.find(folding.separator);
    const Value text = whole.substr(0, end);
    values_.Set(place.slots.front(), text);
    const Folding* own = folding.isList ? FoldingOfText(*Find(place.parameters.front()), text) : nullptr;
    if (own != nullptr && !own->separator.empty()) SetParts(*own, text.text());
    if (folding.isList && end == whole.npos) return;
    whole = end == whole.npos ? "" : whole.substr(end + folding.separator.size());
  }
}

void FoldedValues::Reset(const std::string& name, const FoldedName* folded, Value previous) {
  Change(name, folded, {.value = {}, .previous = std::move(previous)});
  const Folding* folding = folded == nullptr ? nullptr : active_.FoldingWith(*folded);
  if (folding == nullptr) return;
  if (folding->isList) values_.Set(folding->slot, Value());  // as it was typed it has the part that is no more
  if (folding->separator.empty()) ClearDigits(*folding, name);
}

// A digit and its parts do not stand side by side.
void FoldedValues::ClearBeside(const FoldedName& subDigit) {
  const DigitPlace* place = active_.PlaceOf(subDigit);
  if (place == nullptr || place->digit.empty()) return;
  if (subDigit.slot != place->digitSlot) {
    values_.Set(place->digitSlot, Value());
  } else {
    for (const std::size_t slot : place->slots) values_.Set(slot, Value());
  }
}

// Nothing for a parameter that is no whole.
void FoldedValues::ClearParts(const FoldedName& whole) {
  for (const Folding* folding : whole.of) {
    for (const DigitPlace& place : folding->places) {
      if (!place.digit.empty()) values_.Set(place.digitSlot, Value());
      for (const std::size_t slot : place.slots) values_.Set(slot, Value());
      if (!folding->isList) continue;
      for (const std::string& part : place.parameters) ClearParts(*Find(part));
    }
  }
}

void FoldedValues::ClearDigits(const Folding& folding, const std::string& subDigit) {
  const Value& whole = values_[folding.slot];
  if (!whole.IsText()) return;
  std::string digits = whole.text();
  for (const DigitPlace& place : folding.places) {
    if (!place.Has(subDigit)) continue;
    const auto first = static_cast<std::size_t>(place.first - 1);
    for (std::size_t i = first; i < std::min(first + static_cast<std::size_t>(place.width), digits.size()); ++i)
      digits[i] = folding.fill;
  }
  // A whole in which nothing is left was never given.
  const bool isLeft = digits.find_first_not_of(folding.fill) != digits.npos;
  values_.Set(folding.slot, isLeft ? Value(digits) : Value());
}

}  // namespace cordboard::workbench
