#include "workbench/forms/Form.h"

#include <algorithm>

#include "script/Conversions.h"
#include "script/Text.h"

namespace cordboard::workbench {

namespace {

constexpr double greatestPart = 1e15;

bool Flag(const std::map<std::string, bool>& changed, const std::string& name, bool otherwise) {
  const auto found = changed.find(name);
  return found == changed.end() ? otherwise : found->second;
}

const Value& Found(const std::unordered_map<std::string, Value>& values, const std::string& name) {
  static const Value none;
  const auto found = values.find(name);
  return found == values.end() ? none : found->second;
}

std::string InWidth(std::string text, int width) {
  const auto digits = static_cast<std::size_t>(width);
  if (text.size() < digits) text.insert(0, digits - text.size(), '0');
  return text.substr(text.size() - digits);
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
const Folding* Form::FoldingInForce(const std::string& whole) const {
  const auto& foldings = definition_->foldings.Of(whole);
  if (foldings.size() == 1) return IsActive(*foldings.front()) ? foldings.front() : nullptr;
  const Folding* inForce = nullptr;
  long most = -1;
  for (const Folding* folding : foldings) {
    if (!IsActive(*folding)) continue;
    const auto isGiven = [&](const std::string& name) { return !Found(values_, name).IsBlank(); };
    long given = 0;
    for (const DigitPlace& place : folding->places)
      given += std::ranges::count_if(place.parameters, isGiven) + (isGiven(place.digit) ? 1 : 0);
    if (given > most) inForce = folding;
    most = std::max(most, given);
  }
  return inForce;
}

// The first of the foldings that hold with the sub-digit parameter in it.
const Folding* Form::FoldingFor(const std::string& subDigit) const {
  const auto& with = definition_->foldings.With(subDigit);
  const auto found = std::ranges::find_if(with, [&](const Folding* folding) { return IsActive(*folding); });
  return found == with.end() ? nullptr : *found;
}

const DigitPlace* Form::PlaceOf(const std::string& name) const {
  const Folding* folding = FoldingFor(name);
  if (folding == nullptr) return nullptr;
  return &*std::ranges::find_if(folding->places, [&](const DigitPlace& place) { return place.Has(name); });
}

// What is given for a place: as many digits as it has, or nothing.
std::string Form::Digits(const DigitPlace& place) const {
  const std::string text = Joined(Found(values_, place.digit));
  if (!text.empty()) return InWidth(text, place.width);
  long long sum = 0;
  bool given = false;
  for (const std::string& parameter : place.parameters) {
    const Value& part = Found(values_, parameter);
    if (part.IsBlank()) continue;
    given = true;
    sum += static_cast<long long>(std::clamp(NumericValue(part), 0.0, greatestPart));
  }
  return given ? DigitsOf(sum, place.width) : "";
}

std::string Form::Folded(const Folding& folding) const {
  const Value& whole = Found(values_, folding.parameter);
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
    if (part.IsBlank()) return Joined(Found(values_, folding.parameter));
    whole += (whole.empty() ? "" : folding.separator) + Joined(part);
  }
  return whole.empty() ? Joined(Found(values_, folding.parameter)) : whole;
}

Value Form::Get(const std::string& name) const {
  if (const Folding* folding = FoldingInForce(name)) {
    const std::string digits = folding->separator.empty() ? Folded(*folding) : Composed(*folding);
    if (!digits.empty()) return digits;
  }
  const Value& value = Found(values_, name);
  if (!value.IsEmpty()) return value;
  if (const DigitPlace* place = PlaceOf(name); place != nullptr && place->digit == name) {
    const std::string digits = Digits(*place);
    if (!digits.empty()) return digits;
  }
  const ParameterDefinition* parameter = definition_->Find(name);
  if (parameter != nullptr) return parameter->text ? Value("") : value;
  const auto assumed = std::ranges::find(definition_->assumed, name, &Assignment::name);
  return assumed == definition_->assumed.end() ? value : Value(assumed->value);
}

Value Form::Previous(const std::string& name) const { return Found(previous_, name); }

// Of several foldings of a whole the one that has as many digits as the text; the first, where none has.
const Folding* Form::FoldingOfText(const std::string& whole, const Value& text) const {
  const Folding* first = nullptr;
  for (const Folding* folding : definition_->foldings.Of(whole)) {
    if (!IsActive(*folding)) continue;
    if (text.IsText() && Length(text.text()) == static_cast<std::size_t>(folding->length)) return folding;
    if (first == nullptr) first = folding;
  }
  return first;
}

void Form::Set(const std::string& name, const Value& value) {
  previous_[name] = Get(name);
  values_[name] = value;
  ClearParts(name);
  ClearBeside(name);
  const Folding* folding = FoldingOfText(name, value);
  if (folding == nullptr) return;
  if (value.IsText() && !folding->separator.empty()) return SetParts(*folding, value.text());
  for (const DigitPlace& place : folding->places) {
    // Parameters that add up to one place cannot be told apart in the whole.
    if (!value.IsText() || (place.digit.empty() && place.parameters.size() != 1)) continue;
    const std::string digits = Middle(value.text(), place.first, place.width);
    // The beginning of a place would be read as its end.
    if (Length(digits) == static_cast<std::size_t>(place.width))
      values_[place.digit.empty() ? place.parameters.front() : place.digit] = digits;
  }
}

// The last part has all that is left; a list has no more parts than are typed, and each may have parts of its own.
void Form::SetParts(const Folding& folding, std::string whole) {
  for (const DigitPlace& place : folding.places) {
    const bool last = &place == &folding.places.back();
    const std::size_t end = last ? whole.npos : whole.find(folding.separator);
    const std::string& part = place.parameters.front();
    const Value text = whole.substr(0, end);
    values_[part] = text;
    const Folding* own = folding.isList ? FoldingOfText(part, text) : nullptr;
    if (own != nullptr && !own->separator.empty()) SetParts(*own, text.text());
    if (folding.isList && end == whole.npos) return;
    whole = end == whole.npos ? "" : whole.substr(end + folding.separator.size());
  }
}

void Form::Reset(const std::string& name) {
  previous_[name] = Get(name);
  values_.erase(name);
  ClearParts(name);
  ClearBeside(name);
  const Folding* folding = FoldingFor(name);
  if (folding == nullptr) return;
  if (folding->isList) values_.erase(folding->parameter);  // as it was typed it has the part that is no more
  if (folding->separator.empty()) ClearDigits(*folding, name);
}

// A digit and its parts do not stand side by side.
void Form::ClearBeside(const std::string& name) {
  const DigitPlace* place = PlaceOf(name);
  if (place == nullptr || place->digit.empty()) return;
  if (name != place->digit) {
    values_.erase(place->digit);
  } else {
    for (const std::string& part : place->parameters) values_.erase(part);
  }
}

// Nothing for a parameter that is no whole.
void Form::ClearParts(const std::string& whole) {
  for (const Folding* folding : definition_->foldings.Of(whole)) {
    for (const DigitPlace& place : folding->places) {
      values_.erase(place.digit);
      for (const std::string& parameter : place.parameters) {
        values_.erase(parameter);
        if (folding->isList) ClearParts(parameter);
      }
    }
  }
}

void Form::ClearDigits(const Folding& folding, const std::string& subDigit) {
  const auto whole = values_.find(folding.parameter);
  if (whole == values_.end() || !whole->second.IsText()) return;
  std::string digits = whole->second.text();
  for (const DigitPlace& place : folding.places) {
    if (!place.Has(subDigit)) continue;
    const auto first = static_cast<std::size_t>(place.first - 1);
    for (std::size_t i = first; i < std::min(first + static_cast<std::size_t>(place.width), digits.size()); ++i)
      digits[i] = folding.fill;
  }
  // A whole in which nothing is left was never given.
  if (digits.find_first_not_of(folding.fill) == digits.npos) {
    values_.erase(whole);
  } else {
    whole->second = digits;
  }
}

bool Form::IsMandatory(const std::string& name) const {
  const ParameterDefinition* parameter = definition_->Find(name);
  return !definition_->IsElsewhere(name) && Flag(mandatory_, name, parameter != nullptr && parameter->mandatory);
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
  return definition_->FoldingWith(name) == nullptr || FoldingFor(name) != nullptr;
}

}  // namespace cordboard::workbench
