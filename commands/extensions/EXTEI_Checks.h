// The checks of a general extension and of its template. They refuse nothing: they reset what no longer fits, and set
// what follows from the new value.
#pragma once

#include "script/Action.h"
#include "script/Value.h"

namespace cordboard {

// A further number takes the position of a main number, so that EQU has to be chosen anew.
bool CheckAUX(const Action& action);
// The position of a further number follows from its main number.
bool CheckDIR_AUX(const Action& action);

// The digits of ICAT on which the list of another one hangs. A digit whose check has a condition answers False where
// that does not hold, and nothing is done.
bool CheckICAT_D1_SUB1(const Action& action);
bool CheckICAT_D3_SUB1(const Action& action);
bool CheckICAT_D3_SUB2(const Action& action);
bool CheckICAT_D3_SUB3(const Action& action);
// The digits that hang on the board of a new position.
bool CheckICATOfEQU(const Action& action);

// The two halves of the check of TYPE: the definition of ICAT with the digits that hang on it; then the values of
// ADC_D1, and the position, which stays if its board suits the TYPE.
bool SuitICATToTYPE(const Action& action, const Value& TYPE, const Value& EQU);
bool SuitADCAndEQUToTYPE(const Value& TYPE, const Value& EQU);

}  // namespace cordboard
