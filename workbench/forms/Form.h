// A form as it is being filled in: values, what it lets the user give, and the definitions that are active.
#pragma once

#include <map>
#include <string>

#include "script/Value.h"
#include "workbench/forms/FoldedValues.h"
#include "workbench/forms/FormDefinition.h"

namespace cordboard::workbench {

class Form {
 public:
  // Its foldings are those that the definition has now.
  explicit Form(const FormDefinition& definition) : definition_(&definition), values_(definition.foldings) {}

  const FormDefinition& definition() const { return *definition_; }

  // The present value, empty if none was given. Wholes and their digits follow one another
  // (workbench/forms/FoldedValues.h); what the form assumes is no part of a whole.
  Value Get(const std::string& name) const { return Get(name, values_.Find(name)); }
  // The value that the parameter had before its last Set or Reset; empty if it had none.
  Value Previous(const std::string& name) const { return values_.Previous(name); }
  void Set(const std::string& name, const Value& value);
  void Reset(const std::string& name);

  // What the form asks of the user at this moment; checks change it.
  bool IsMandatory(const std::string& name) const;
  bool IsMandatory(const ParameterDefinition& parameter) const;
  bool TakesRange(const std::string& name) const;
  bool TakesSeveral(const std::string& name) const;
  void SetMandatory(const std::string& name, bool mandatory) { mandatory_[name] = mandatory; }
  void SetTakesRange(const std::string& name, bool takes) { range_[name] = takes; }
  void SetTakesSeveral(const std::string& name, bool takes) { several_[name] = takes; }
  // The form shows one record from now on: parameters of which several values make a record each take one value,
  // whatever checks allow.
  void ShowOneRecord() { showsOneRecord_ = true; }

  int ActiveDefinition(const std::string& name) const { return values_.active().DefinitionOf(name); }
  // A whole whose digits are others in another definition is cleared by it.
  void SetActiveDefinition(const std::string& name, int definition);
  bool IsActive(const Folding& folding) const { return values_.active().IsActive(folding); }
  // Whether the parameter is a digit of its whole in the active definition; yes for one that is no digit.
  bool IsInDefinition(const std::string& name) const;
  // The digits that a sub-digit parameter is, in the active definition; null for any other parameter.
  const DigitPlace* PlaceOf(const std::string& name) const;
  // The folding that makes the whole of its digits; null for a parameter that is no whole.
  const Folding* FoldingInForce(const std::string& whole) const { return values_.FoldingInForce(whole); }

 private:
  Value Get(const std::string& name, const FoldedName* folded) const;
  bool TakesOne(const ParameterDefinition* parameter) const;

  const FormDefinition* definition_;
  FoldedValues values_;
  std::map<std::string, bool> mandatory_;
  std::map<std::string, bool> range_;
  std::map<std::string, bool> several_;
  bool showsOneRecord_ = false;
};

}  // namespace cordboard::workbench
