// Which parameters of a form are digits of which whole follows from their names: SERV_D7D8_SUB1 is the digits 7 and 8
// of SERV, and parameters of the same digits add up. What a name cannot tell stands in the form:
//   "folding": [{"wholes": ["DIRK"], "separator": "-"},
//               {"wholes": ["QUE"], "alternatives": [["QUE_D2D3", "QUE_D4D5"], ["QUE_D2D3D4", "QUE_D5D6D7"]]},
//               {"wholes": ["ICAT"], "definitions": [["ICAT_D1", "ICAT_D2"], ["ICAT_D1_SUB1", "ICAT_D1_SUB2"]]},
//               {"wholes": ["SERV"], "length": 12, "fill": "1"},
//               {"each": "01&&40", "wholes": ["DATA%"], "separator": "-"},
//               {"wholes": ["DATA"], "separator": "&", "list": {"each": "01&&40", "of": "DATA%", "sum": "DATA%_D3D4"}}]
// A whole has as many digits as its parameters tell, unless it has a length, and its fill is "0". Parameters of
// alternatives never have values together; definitions are alternatives of which the first holds in definition 1 of the
// whole, the second in definition 2. Parameters that stand in none belong to each. Beside parameters that add up,
// ICAT_D3_SUB1 and ICAT_D3_SUB2, the name without a SUB is the whole digit. "each" makes an entry for each number,
// which stands for % in its names; a list is made of parameters whose names do not tell that they are parts of it.
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

// The numbers that an entry of a form stands for, without zeros in front, or one empty text for an entry without
// "each"; and a text of such an entry for one of them.
std::vector<std::string> EachOf(const DataItem& entry);
std::string WithNumber(std::string text, const std::string& number);

// The foldings of a form that has its columns and parameters; `exceptions` is its "folding". What does not fit
// together is a DataError at `file` or in `exceptions`.
std::vector<Folding> FoldingsOf(const FormDefinition& form, const DataItem& file,
                                const std::optional<DataItem>& exceptions);

}  // namespace cordboard::workbench
