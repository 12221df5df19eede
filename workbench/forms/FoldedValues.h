// The values of a form of which some are wholes: a whole is folded from its sub-digit parameters, and gives them its
// digits. Which of them a whole has follows from its active definition.
#pragma once

#include <string>
#include <unordered_map>
#include <utility>

#include "script/Value.h"
#include "workbench/forms/ActiveFoldings.h"
#include "workbench/forms/FoldingList.h"
#include "workbench/forms/FormValues.h"

namespace cordboard::workbench {

// The digits of a sum in a place of this width: the last ones. One digit holds up to 15, as a letter from 10 on.
std::string DigitsOf(long long sum, int width);

class FoldedValues {
 public:
  explicit FoldedValues(const FoldingList& foldings) : active_(foldings), values_(foldings) {}

  // Null for a name that stands in no folding. Below, `folded` is what it has given for the name.
  const FoldedName* Find(const std::string& name) const { return values_.Find(name); }

  // The present value; a whole parameter is folded from its sub-digit parameters where one of them has a value.
  Value Get(const std::string& name, const FoldedName* folded) const;
  Value Previous(const std::string& name) const { return values_.Of(name, Find(name)).previous; }
  // Gives the parameter a value, and a whole parameter's digits to its sub-digit parameters. `previous` is the value
  // that it had before.
  void Set(const std::string& name, const FoldedName* folded, const Value& value, Value previous);
  // Clears the parameter, with all sub-digit parameters of a whole; the digits of a sub-digit parameter go back to the
  // fill in its whole. A whole with a separator stays as it was typed, until all its parts are given.
  void Reset(const std::string& name, const FoldedName* folded, Value previous);

  const ActiveFoldings& active() const { return active_; }
  void SetDefinition(const std::string& name, int definition) { active_.SetDefinition(name, definition); }
  // Of several foldings of a whole the one that makes it; null for a parameter that is no whole.
  const Folding* FoldingInForce(const std::string& whole) const;

 private:
  const Folding* InForce(const FoldedName& whole) const;
  const Folding* FoldingOfText(const FoldedName& whole, const Value& text) const;
  bool IsGiven(std::size_t slot) const { return !values_[slot].IsBlank(); }
  std::string Digits(const DigitPlace& place) const;
  std::string Fold(const Folding& folding) const;
  const std::string& Folded(const Folding& folding) const;
  std::string Composed(const Folding& folding) const;
  void Change(const std::string& name, const FoldedName* folded, FormValues::Entry entry);
  void ClearParts(const FoldedName& whole);
  void ClearBeside(const FoldedName& subDigit);
  void ClearDigits(const Folding& folding, const std::string& subDigit);
  void SetParts(const Folding& folding, std::string whole);

  ActiveFoldings active_;
  FormValues values_;
  // What was folded, and of which state of the values.
  mutable std::unordered_map<const Folding*, std::pair<unsigned, std::string>> digits_;
};

}  // namespace cordboard::workbench
