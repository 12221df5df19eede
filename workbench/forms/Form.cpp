#include "workbench/forms/Form.h"

#include <algorithm>

namespace cordboard::workbench {

namespace {

bool Flag(const std::map<std::string, bool>& changed, const std::string& name, bool otherwise) {
  if (changed.empty()) return otherwise;
  const auto found = changed.find(name);
  return found == changed.end() ? otherwise : found->second;
}

}  // namespace

Value Form::Get(const std::string& name, const FoldedName* folded) const {
  Value value = values_.Get(name, folded);
  if (!value.IsEmpty()) return value;
  if (const ParameterDefinition* parameter = definition_->Find(name)) return parameter->text ? Value("") : value;
  const auto assumed = std::ranges::find(definition_->assumed, name, &Assignment::name);
  return assumed == definition_->assumed.end() ? value : Value(assumed->value);
}

void Form::Set(const std::string& name, const Value& value) {
  const FoldedName* folded = values_.Find(name);
  values_.Set(name, folded, value, Get(name, folded));
}

void Form::Reset(const std::string& name) {
  const FoldedName* folded = values_.Find(name);
  values_.Reset(name, folded, Get(name, folded));
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

void Form::SetActiveDefinition(const std::string& name, int definition) {
  const bool isOther = definition != ActiveDefinition(name);
  const Folding* folding = definition_->FoldingOf(name);
  if (isOther && folding != nullptr && folding->definition != 0) Reset(name);
  values_.SetDefinition(name, definition);
}

bool Form::IsInDefinition(const std::string& name) const {
  const FoldedName* folded = values_.Find(name);
  return folded == nullptr || folded->with.empty() || values_.active().FoldingWith(*folded) != nullptr;
}

const DigitPlace* Form::PlaceOf(const std::string& name) const {
  const FoldedName* folded = values_.Find(name);
  return folded == nullptr ? nullptr : values_.active().PlaceOf(*folded);
}

}  // namespace cordboard::workbench
