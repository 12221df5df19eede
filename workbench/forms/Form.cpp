#include "workbench/forms/Form.h"

#include <algorithm>
#include <utility>

#include "script/Conversions.h"
#include "script/Text.h"

namespace cordboard::workbench {

namespace {

constexpr double greatestPart = 1e15;
constexpr int digitsOfPart = 15;  // of any that is less

bool Flag(const std::map<std::string, bool>& changed, const std::string& name, bool otherwise) {
  if (changed.empty()) return otherwise;
  const auto found = changed.find(name);
  return found == changed.end() ? otherwise : found->second;
}

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

bool Form::IsActive(const Folding& folding) const {
  return folding.definition == 0 || folding.definition == ActiveDefinition(folding.parameter);
}

// Of several foldings of a whole the one most of whose parameters are given; the first, while none is.
const Folding* Form::InForce(const FoldedName& whole) const {
  if (whole.of.size() == 1) return IsActive(*whole.of.front()) ? whole.of.front() : nullptr;
  const Folding* inForce = nullptr;
  long most = -1;
  for (const Folding* folding : whole.of) {
    if (!IsActive(*folding)) continue;
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

const Folding* Form::FoldingInForce(const std::string& whole) const {
  const FoldedName* folded = values_.Find(whole);
  return folded == nullptr ? nullptr : InForce(*folded);
}

// The first of the foldings that hold with the sub-digit parameter in it.
const Folding* Form::FoldingFor(const FoldedName& subDigit) const {
  const auto found = std::ranges::find_if(subDigit.with, [&](const Folding* folding) { return IsActive(*folding); });
  return found == subDigit.with.end() ? nullptr : *found;
}

const DigitPlace* Form::PlaceOf(const FoldedName& subDigit) const {
  const Folding* folding = FoldingFor(subDigit);
  if (folding == nullptr) return nullptr;
  const auto has = [&](const DigitPlace& place) {
    return (!place.digit.empty() && place.digitSlot == subDigit.slot) ||
           std::ranges::find(place.slots, subDigit.slot) != place.slots.end();
  };
  return &*std::ranges::find_if(folding->places, has);
}

const DigitPlace* Form::PlaceOf(const std::string& name) const {
  const FoldedName* folded = values_.Find(name);
  return folded == nullptr ? nullptr : PlaceOf(*folded);
}

// What is given for a place: as many digits as it has, or nothing.
std::string Form::Digits(const DigitPlace& place) const {
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

std::string Form::Fold(const Folding& folding) const {
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
std::string Form::Composed(const Folding& folding) const {
  std::string whole;
  for (const DigitPlace& place : folding.places) {
    const Value part = Get(place.parameters.front());
    if (part.IsBlank() && folding.isList) continue;
    if (part.IsBlank()) return Joined(values_[folding.slot]);
    whole += (whole.empty() ? "" : folding.separator) + Joined(part);
  }
  return whole.empty() ? Joined(values_[folding.slot]) : whole;
}

// A whole is asked for again and again while nothing changes.
const std::string& Form::Folded(const Folding& folding) const {
  auto& [state, digits] = digits_[&folding];
  if (state != values_.state()) digits = Fold(folding);
  state = values_.state();
  return digits;
}

Value Form::Get(const std::string& name) const { return Get(name, values_.Find(name)); }

Value Form::Get(const std::string& name, const FoldedName* folded) const {
  if (const Folding* folding = folded == nullptr ? nullptr : InForce(*folded)) {
    const std::string digits = folding->separator.empty() ? Folded(*folding) : Composed(*folding);
    if (!digits.empty()) return digits;
  }
  const Value& value = values_.Of(name, folded).value;
  if (!value.IsEmpty()) return value;
  const DigitPlace* place = folded == nullptr ? nullptr : PlaceOf(*folded);
  if (place != nullptr && place->digit == name) {
    const std::string digits = Digits(*place);
    if (!digits.empty()) return digits;
  }
  const ParameterDefinition* parameter = definition_->Find(name);
  if (parameter != nullptr) return parameter->text ? Value("") : value;
  const auto assumed = std::ranges::find(definition_->assumed, name, &Assignment::name);
  return assumed == definition_->assumed.end() ? value : Value(assumed->value);
}

Value Form::Previous(const std::string& name) const { return values_.Of(name, values_.Find(name)).previous; }

// Of several foldings of a whole the one that has as many digits as the text; the first, where none has.
const Folding* Form::FoldingOfText(const FoldedName& whole, const Value& text) const {
  const Folding* first = nullptr;
  for (const Folding* folding : whole.of) {
    if (!IsActive(*folding)) continue;
    if (text.IsText() && Length(text.text()) == static_cast<std::size_t>(folding->length)) return folding;
    if (first == nullptr) first = folding;
  }
  return first;
}

void Form::Change(const std::string& name, const FoldedName* folded, const Value& value) {
  values_.Set(name, folded, {.value = value, .previous = Get(name, folded)});
  if (folded == nullptr) return;
  ClearParts(*folded);
  ClearBeside(*folded);
}

void Form::Set(const std::string& name, const Value& value) {
  const FoldedName* folded = values_.Find(name);
  Change(name, folded, value);
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
void Form::SetParts(const Folding& folding, std::string whole) {
  for (const DigitPlace& place : folding.places) {
    const bool last = &place == &folding.places.back();
    const std::size_t end = last ? whole.npos : whole.find(folding.separator);
    const Value text = whole.substr(0, end);
    values_.Set(place.slots.front(), text);
    const Folding* own = folding.isList ? FoldingOfText(*values_.Find(place.parameters.front()), text) : nullptr;
    if (own != nullptr && !own->separator.empty()) SetParts(*own, text.text());
    if (folding.isList && end == whole.npos) return;
    whole = end == whole.npos ? "" : whole.substr(end + folding.separator.size());
  }
}

void Form::Reset(const std::string& name) {
  const FoldedName* folded = values_.Find(name);
  Change(name, folded, Value());
  const Folding* folding = folded == nullptr ? nullptr : FoldingFor(*folded);
  if (folding == nullptr) return;
  if (folding->isList) values_.Set(folding->slot, Value());  // as it was typed it has the part that is no more
  if (folding->separator.empty()) ClearDigits(*folding, name);
}

// A digit and its parts do not stand side by side.
void Form::ClearBeside(const FoldedName& subDigit) {
  const DigitPlace* place = PlaceOf(subDigit);
  if (place == nullptr || place->digit.empty()) return;
  if (subDigit.slot != place->digitSlot) {
    values_.Set(place->digitSlot, Value());
  } else {
    for (const std::size_t slot : place->slots) values_.Set(slot, Value());
  }
}

// Nothing for a parameter that is no whole.
void Form::ClearParts(const FoldedName& whole) {
  for (const Folding* folding : whole.of) {
    for (const DigitPlace& place : folding->places) {
      if (!place.digit.empty()) values_.Set(place.digitSlot, Value());
      for (const std::size_t slot : place.slots) values_.Set(slot, Value());
      if (!folding->isList) continue;
      for (const std::string& part : place.parameters) ClearParts(*values_.Find(part));
    }
  }
}

void Form::ClearDigits(const Folding& folding, const std::string& subDigit) {
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

bool Form::IsMandatory(const std::string& name) const {
  const ParameterDefinition* parameter = definition_->Find(name);
  if (parameter != nullptr) return IsMandatory(*parameter);
  return !definition_->IsElsewhere(name) && Flag(mandatory_, name, false);
}

bool Form::IsMandatory(const ParameterDefinition& parameter) const {
  return !definition_->IsElsewhere(parameter.name) && Flag(mandatory_, parameter.name, parameter.mandatory);
}

bool Form::TakesOne(const ParameterDefinition* parameter) const {
  return showsOneRecord_ && parameter != nullptr && parameter->oneInEdit;
}

bool Form::TakesRange(const std::string& name) const {
  const ParameterDefinition* parameter = definition_->Find(name);
  return !TakesOne(parameter) && Flag(range_, name, parameter != nullptr && parameter->range);
}

bool Form::TakesSeveral(const std::string& name) const {
  const ParameterDefinition* parameter = definition_->Find(name);
  return !TakesOne(parameter) && Flag(several_, name, parameter != nullptr && parameter->multiple);
}

int Form::ActiveDefinition(const std::string& name) const {
  if (const auto found = definitions_.find(name); found != definitions_.end()) return found->second;
  const Folding* folding = definition_->FoldingWith(name);
  return folding == nullptr ? 1 : ActiveDefinition(folding->parameter);
}

void Form::SetActiveDefinition(const std::string& name, int definition) {
  const bool isOther = definition != ActiveDefinition(name);
  const Folding* folding = definition_->FoldingOf(name);
  if (isOther && folding != nullptr && folding->definition != 0) Reset(name);
  definitions_[name] = definition;
}

bool Form::IsInDefinition(const std::string& name) const {
  const FoldedName* folded = values_.Find(name);
  return folded == nullptr || folded->with.empty() || FoldingFor(*folded) != nullptr;
}

}  // namespace cordboard::workbench
