// Which foldings hold in a form: those of the definitions that are active, which checks change.
#pragma once

#include <map>
#include <string>

#include "workbench/forms/FoldingList.h"

namespace cordboard::workbench {

class ActiveFoldings {
 public:
  explicit ActiveFoldings(const FoldingList& foldings) : foldings_(foldings) {}

  // A sub-digit parameter has the definition of its whole, unless it has one of its own.
  int DefinitionOf(const std::string& name) const;
  void SetDefinition(const std::string& name, int definition) { definitions_[name] = definition; }
  // Whether the folding holds in the active definition of its whole.
  bool IsActive(const Folding& folding) const {
    return folding.definition == 0 || folding.definition == DefinitionOf(folding.parameter);
  }
  // The folding that holds and has the sub-digit parameter, and the digits that it is there; null where none does.
  const Folding* FoldingWith(const FoldedName& subDigit) const;
  const DigitPlace* PlaceOf(const FoldedName& subDigit) const;

 private:
  FoldingList foldings_;
  std::map<std::string, int> definitions_;
};

}  // namespace cordboard::workbench
