// The lists and checks of KSFKC.
#pragma once

#include "script/Action.h"

namespace cordboard::functionkey {

bool ListDIR(const Action& action);
bool ListKEY(const Action& action);
bool ListFCN(const Action& action);
bool CheckDIR(const Action& action);
bool CheckITYPE(const Action& action);

}  // namespace cordboard::functionkey
