// The lists of the digits of ICAT. Which digits have one depends on the definition, which follows from the TYPE: 1 is
// EL6, 2 is EL7 and 3 is EL8.
#pragma once

#include "script/Action.h"
#include "script/Module.h"

namespace cordboard {

inline const ParameterNames ICATDigits{"ICAT_D1",      "ICAT_D1_SUB1", "ICAT_D1_SUB2", "ICAT_D1_SUB3",
                                       "ICAT_D1_SUB4", "ICAT_D2",      "ICAT_D2_SUB1", "ICAT_D2_SUB2",
                                       "ICAT_D3",      "ICAT_D3_SUB1", "ICAT_D3_SUB2", "ICAT_D3_SUB3",
                                       "ICAT_D4",      "ICAT_D4_SUB1", "ICAT_D4_SUB2", "ICAT_D4_SUB3"};

// The list of a digit. One that has none in the action's definition answers False, and nothing is done.
bool ListICAT(const Action& action);

}  // namespace cordboard
