// Which parameters of a form are digits of which whole follows from their names: SERV_D7D8_SUB1 is the digits 7 and 8
// of SERV, and parameters of the same digits add up. What a name cannot tell stands in the form:
//   "folding": [{"wholes": ["DIRK"], "separator": "-"},
//               {"wholes": ["QUE"], "alternatives": [["QUE_D2D3", "QUE_D4D5"], ["QUE_D2D3D4", "QUE_D5D6D7"]]},
//               {"wholes": ["SERV"], "length": 12, "fill": "1"}]
// A whole has as many digits as its parameters tell, unless it has a length, and its fill is "0". Parameters of
// alternatives never have values together; those that stand in none belong to each.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "workbench/forms/FormDefinition.h"

namespace cordboard::workbench {

class DataItem;

// What the name of a sub-digit parameter tells.
struct SubDigit {
  std::string whole;
  int first = 1;
  int width = 1;
};
std::optional<SubDigit> SubDigitOf(const std::string& name);

// The foldings of a form that has its columns and parameters; `exceptions` is its "folding". What does not fit
// together is a DataError at `file` or in `exceptions`.
std::vector<Folding> FoldingsOf(const FormDefinition& form, const DataItem& file,
                                const std::optional<DataItem>& exceptions);

}  // namespace cordboard::workbench
