// The lists of the digits of ICAT. Which digits have one depends on the definition, which follows from the TYPE: 1 is
// EL6, 2 is EL7 and 3 is EL8.
#pragma once

#include "script/Action.h"
#include "script/Module.h"

namespace cordboard {

// The names of all digits, in whatever definition they have a list.
ParameterNames ICATDigits();

// The list of a digit. One that has none in the action's definition answers False, and nothing is done.
bool ListICAT(const Action& action);

}  // namespace cordboard
