// Reads the parameters of a form (workbench/forms/FormReader.h).
//
//   {"name": "DIR", "title": "Directory number", "mandatory": true, "multiple": true}
//
// A parameter has the flags of ParameterFlags() that the form says, "releases", "characters", "pool" {"table",
// "column"}, "narrowed" {"by", "without"}, "beside" {"from", "to"}, whole numbers beside the list, and "otherwise",
// what rules put where none is given. Parameters that differ in a number alone are one entry: with "each": "01&&40" it
// stands for forty parameters, and % in its name for the number of each.
#pragma once

#include <string>

#include "workbench/forms/ParameterList.h"

namespace cordboard::workbench {

class DataItem;

// From the entries of a form's "parameters". What the command serves of them, and which values are fixed, is not said
// there. Fails with a DataError.
ParameterList ReadParameters(const std::string& command, const DataItem& entries);

}  // namespace cordboard::workbench
