// A form as it is being filled in: values, what it lets the user give, and the definitions that are active.
#pragma once

#include <map>
#include <string>
#include <unordered_map>
#include <utility>

#include "script/Value.h"
#include "workbench/forms/FormDefinition.h"
#include "workbench/forms/FormValues.h"

namespace cordboard::workbench {

// The digits of a sum in a place of this width: the last ones. One digit holds up to 15, as a letter from 10 on.
std::string DigitsOf(long long sum, int width);

class Form {
 public:
  // Its foldings are those that the definition has now.
  explicit Form(const FormDefinition& definition) : definition_(&definition), values_(definition.foldings) {}

  const FormDefinition& definition() const { return *definition_; }

  // The present value, empty if none was given. A whole parameter is folded from its sub-digit parameters where one of
  // them has a value.
  Value Get(const std::string& name) const;
  // The value that the parameter had before its last Set or Reset; empty if it had none.
  Value Previous(const std::string& name) const;
  // Gives the parameter a value, and a whole parameter's digits to its sub-digit parameters.
  void Set(const std::string& name, const Value& value);
  // Clears the parameter, with all sub-digit parameters of a whole; the digits of a sub-digit parameter go back to the
  // fill in its whole. A whole with a separator stays as it was typed, until all its parts are given.
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

  // A sub-digit parameter has the definition of its whole, unless it has one of its own. A whole whose digits are
  // others in another definition is cleared by it.
  int ActiveDefinition(const std::string& name) const;
  void SetActiveDefinition(const std::string& name, int definition);
  // Whether the folding holds in the active definition of its whole.
  bool IsActive(const Folding& folding) const;
  // Whether the parameter is a digit of its whole in the active definition; yes for one that is no digit.
  bool IsInDefinition(const std::string& name) const;
  // The digits that a sub-digit parameter is, in the active definition; null for any other parameter.
  const DigitPlace* PlaceOf(const std::string& name) const;
  // The folding that makes the whole of its digits; nothing for a parameter that is no whole.
  const Folding* FoldingInForce(const std::string& whole) const;

 private:
  const Folding* InForce(const FoldedName& whole) const;
  const Folding* FoldingOfText(const FoldedName& whole, const Value& text) const;
  const Folding* FoldingFor(const FoldedName& subDigit) const;
  const DigitPlace* PlaceOf(const FoldedName& subDigit) const;
  bool IsGiven(std::size_t slot) const { return !values_[slot].IsBlank(); }
  std::string Digits(const DigitPlace& place) const;
  std::string Fold(const Folding& folding) const;
  const std::string& Folded(const Folding& folding) const;
  Value Get(const std::string& name, const FoldedName* folded) const;
  bool TakesOne(const ParameterDefinition* parameter) const;
  void Change(const std::string& name, const FoldedName* folded, const Value& value);
  void ClearParts(const FoldedName& whole);
  void ClearBeside(const FoldedName& subDigit);
  void ClearDigits(const Folding& folding, const std::string& subDigit);
  std::string Composed(const Folding& folding) const;
  void SetParts(const Folding& folding, std::string whole);

  const FormDefinition* definition_;
  FormValues values_;
  // What was folded, and of which state of the values.
  mutable std::unordered_map<const Folding*, std::pair<unsigned, std::string>> digits_;
  std::map<std::string, bool> mandatory_;
  std::map<std::string, bool> range_;
  std::map<std::string, bool> several_;
  std::map<std::string, int> definitions_;
  bool showsOneRecord_ = false;
};

}  // namespace cordboard::workbench
