#include "workbench/Form.h"

#include <algorithm>

#include "script/Conversions.h"
#include "script/Text.h"

namespace cordboard::workbench {

namespace {

bool Flag(const std::map<std::string, bool>& changed, const std::string& name, bool otherwise) {
  const auto found = changed.find(name);
  return found == changed.end() ? otherwise : found->second;
}

Value Found(const std::map<std::string, Value>& values, const std::string& name) {
  const auto found = values.find(name);
  return found == values.end() ? Value() : found->second;
}

}  // namespace

std::string Form::Folded(const Folding& folding) const {
  const Value whole = Found(values_, folding.parameter);
  std::string digits = whole.IsText() ? whole.text() : "";
  for (const DigitPlace& place : folding.places) {
    int sum = 0;
    bool here = false;
    for (const std::string& parameter : place.parameters) {
      const Value part = Found(values_, parameter);
      if (part.IsBlank()) continue;
      here = true;
      sum += static_cast<int>(NumericValue(part));
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
  if (const Folding* folding = definition_.FoldingOf(name)) {
    const std::string digits = folding->separator.empty() ? Folded(*folding) : Composed(*folding);
    if (!digits.empty()) return digits;
  }
  const Value value = Found(values_, name);
  const ParameterDefinition* parameter = definition_.Find(name);
  return value.IsEmpty() && parameter != nullptr && parameter->text ? Value("") : value;
}

Value Form::Previous(const std::string& name) const { return Found(previous_, name); }

void Form::Set(const std::string& name, const Value& value) {
  previous_[name] = Get(name);
  values_[name] = value;
  const Folding* folding = definition_.FoldingOf(name);
  if (folding == nullptr || !value.IsText()) return;
  if (!folding->separator.empty()) return SetParts(*folding, value.text());
  for (const DigitPlace& place : folding->places) {
    // Parameters that add up to one place cannot be told apart in the whole.
    if (place.parameters.size() != 1) continue;
    const std::string digits = Middle(value.text(), place.first, place.width);
    if (!digits.empty()) values_[place.parameters.front()] = digits;
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
  values_.erase(name);
  if (const Folding* folding = definition_.FoldingWith(name)) {
    // Without its sub-digit parameters a whole is nothing more than what they left in it.
    values_.erase(folding->parameter);
  }
  if (const Folding* folding = definition_.FoldingOf(name)) {
    for (const DigitPlace& place : folding->places) {
      for (const std::string& parameter : place.parameters) values_.erase(parameter);
    }
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
