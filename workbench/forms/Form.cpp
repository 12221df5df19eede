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

Value Found(const std::map<std::string, Value>& values, const std::string& name) {
  const auto found = values.find(name);
  return found == values.end() ? Value() : found->second;
}

}  // namespace

// Of several foldings of a whole the one most of whose parameters are given; the first, while none is.
const Folding* Form::FoldingInForce(const std::string& whole) const {
  const Folding* inForce = nullptr;
  long most = -1;
  for (const Folding& folding : definition_.foldings) {
    if (folding.parameter != whole) continue;
    long given = 0;
    for (const DigitPlace& place : folding.places)
      given +=
          std::ranges::count_if(place.parameters, [&](const auto& name) { return !Found(values_, name).IsBlank(); });
    if (given > most) inForce = &folding;
    most = std::max(most, given);
  }
  return inForce;
}

std::string Form::Folded(const Folding& folding) const {
  const Value whole = Found(values_, folding.parameter);
  std::string digits = whole.IsText() ? whole.text() : "";
  for (const DigitPlace& place : folding.places) {
    long long sum = 0;
    bool here = false;
    for (const std::string& parameter : place.parameters) {
      const Value part = Found(values_, parameter);
      if (part.IsBlank()) continue;
      here = true;
      sum += static_cast<long long>(std::clamp(NumericValue(part), 0.0, greatestPart));
    }
    if (!here) continue;
    digits.resize(std::max<std::size_t>(digits.size(), static_cast<std::size_t>(folding.length)), folding.fill);
    std::string text = std::to_string(sum);
    const auto width = static_cast<std::size_t>(place.width);
    if (text.size() < width) text.insert(0, width - text.size(), '0');
    digits.replace(static_cast<std::size_t>(place.first - 1), width, text, text.size() - width, width);
  }
  return digits;
}

// The parts with the separator between them, or, where a part is missing, the whole as it was typed.
std::string Form::Composed(const Folding& folding) const {
  std::string whole;
  for (const DigitPlace& place : folding.places) {
    const Value part = Found(values_, place.parameters.front());
    if (part.IsBlank()) return Joined(Found(values_, folding.parameter));
    whole += (whole.empty() ? "" : folding.separator) + Joined(part);
  }
  return whole;
}

Value Form::Get(const std::string& name) const {
  if (const Folding* folding = FoldingInForce(name)) {
    const std::string digits = folding->separator.empty() ? Folded(*folding) : Composed(*folding);
    if (!digits.empty()) return digits;
  }
  const Value value = Found(values_, name);
  const ParameterDefinition* parameter = definition_.Find(name);
  return value.IsEmpty() && parameter != nullptr && parameter->text ? Value("") : value;
}

Value Form::Previous(const std::string& name) const { return Found(previous_, name); }

// Of several foldings of a whole the one that has as many digits as the text; the first, where none has.
const Folding* Form::FoldingOfText(const std::string& whole, const Value& text) const {
  const auto fits = [&](const Folding& folding) {
    return folding.parameter == whole && text.IsText() &&
           Length(text.text()) == static_cast<std::size_t>(folding.length);
  };
  const auto found = std::ranges::find_if(definition_.foldings, fits);
  return found == definition_.foldings.end() ? definition_.FoldingOf(whole) : &*found;
}

void Form::Set(const std::string& name, const Value& value) {
  previous_[name] = Get(name);
  values_[name] = value;
  ClearParts(name);
  const Folding* folding = FoldingOfText(name, value);
  if (folding == nullptr) return;
  if (value.IsText() && !folding->separator.empty()) return SetParts(*folding, value.text());
  for (const DigitPlace& place : folding->places) {
    // Parameters that add up to one place cannot be told apart in the whole.
    if (!value.IsText() || place.parameters.size() != 1) continue;
    const std::string digits = Middle(value.text(), place.first, place.width);
    // The beginning of a place would be read as its end.
    if (Length(digits) == static_cast<std::size_t>(place.width)) values_[place.parameters.front()] = digits;
  }
}

// The last part has all that is left.
void Form::SetParts(const Folding& folding, std::string whole) {
  for (const DigitPlace& place : folding.places) {
    const bool last = &place == &folding.places.back();
    const std::size_t end = last ? whole.npos : whole.find(folding.separator);
    values_[place.parameters.front()] = whole.substr(0, end);
    whole = end == whole.npos ? "" : whole.substr(end + folding.separator.size());
  }
}

void Form::Reset(const std::string& name) {
  previous_[name] = Get(name);
  values_.erase(name);
  ClearParts(name);
  if (const Folding* folding = definition_.FoldingWith(name)) ClearDigits(*folding, name);
}

// Nothing for a parameter that is no whole.
void Form::ClearParts(const std::string& whole) {
  for (const Folding& folding : definition_.foldings) {
    if (folding.parameter != whole) continue;
    for (const DigitPlace& place : folding.places) {
      for (const std::string& parameter : place.parameters) values_.erase(parameter);
    }
  }
}

void Form::ClearDigits(const Folding& folding, const std::string& subDigit) {
  const auto whole = values_.find(folding.parameter);
  if (whole == values_.end() || !whole->second.IsText()) return;
  std::string digits = whole->second.text();
  for (const DigitPlace& place : folding.places) {
    if (std::ranges::find(place.parameters, subDigit) == place.parameters.end()) continue;
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
  const ParameterDefinition* parameter = definition_.Find(name);
  return Flag(mandatory_, name, parameter != nullptr && parameter->mandatory);
}

bool Form::TakesRange(const std::string& name) const {
  const ParameterDefinition* parameter = definition_.Find(name);
  return Flag(range_, name, parameter != nullptr && parameter->range);
}

bool Form::TakesSeveral(const std::string& name) const {
  const ParameterDefinition* parameter = definition_.Find(name);
  return Flag(several_, name, parameter != nullptr && parameter->multiple);
}

int Form::ActiveDefinition(const std::string& name) const {
  const auto found = definitions_.find(name);
  return found == definitions_.end() ? 1 : found->second;
}

}  // namespace cordboard::workbench
