// The lists of a general extension and of its template. Those of the digits of ICAT have a room of their own.
#pragma once

#include "script/Action.h"
#include "script/Module.h"

namespace cordboard {

// The parameters with a plain list of values, beside the digits that all class strings show.
inline const ParameterNames PlainParameters{"ADC_D1",  "ADC_D2",         "ADC_D3",         "ADC_D4", "ADC_D5",
                                            "ADC_D6",  "ADC_D7",         "ADC_D8",         "ADC_D9", "CATTYP",
                                            "SERV_D1", "SERV_D7D8_SUB1", "SERV_D7D8_SUB2", "TYPE"};

// The free numbers, in no order.
bool ListAUX(const Action& action);
// The main numbers that can take a further number.
bool ListDIR_AUX(const Action& action);
// The free positions on the boards of the TYPE; for a further number the positions of all main numbers.
bool ListEQU(const Action& action);

}  // namespace cordboard
