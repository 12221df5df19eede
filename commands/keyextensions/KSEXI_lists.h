// The lists and checks that only KSEXI has: free numbers, free positions, and the position of a changed instrument.
#pragma once

#include "script/Action.h"

namespace cordboard::keyextension {

bool ListDIR(const Action& action);
bool ListEQU(const Action& action);
bool CheckITYPE(const Action& action);
bool ResetLOCATION(const Action& action);

}  // namespace cordboard::keyextension
