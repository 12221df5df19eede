// The class string ADC of a key extension, and of a template for one: lists and checks of its first and its last digit.
#pragma once

#include "script/Action.h"
#include "script/Module.h"

namespace cordboard {

// The digits between, each with a plain list of values.
inline const ParameterNames MiddleOfADC{"ADC_D2", "ADC_D3", "ADC_D4", "ADC_D5", "ADC_D6",
                                        "ADC_D7", "ADC_D8", "ADC_D9", "ADC_D10"};

// The first digit: the value 2 is forbidden to an extension with a high value in the last two digits of SERV.
bool ListADC_D1(const Action& action);
// The last digit: "0" alone for an extension without ACCTYP. The releases R6 and R6/1 have no list of it: False, and
// nothing else happens.
bool ListADC_D11(const Action& action);

// The check of ACCTYP.
bool ResetADC_D11(const Action& action);
// The check of a parameter on which the list of ADC_D1 depends: its value stays if it is still in the list. Silent.
bool RecheckADC_D1(const Action& action);

}  // namespace cordboard
