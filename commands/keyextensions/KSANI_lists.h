// The lists and checks of KSANI.
#pragma once

#include "script/Action.h"

namespace cordboard::additionalnumber {

bool ListDIR(const Action& action);
bool ListADN(const Action& action);
bool ListKEY(const Action& action);
bool ListADC_D1(const Action& action);
bool ListADC_D11(const Action& action);

bool CheckDIR(const Action& action);

}  // namespace cordboard::additionalnumber
