// The lists and checks of KSMDI.
#pragma once

#include "script/Action.h"

namespace cordboard::multiplenumber {

bool ListDIR(const Action& action);
bool ListKEY(const Action& action);
bool ListMDN(const Action& action);
bool CheckDIR(const Action& action);
bool CheckDIRKDigits(const Action& action);
bool CheckMNS(const Action& action);

}  // namespace cordboard::multiplenumber
