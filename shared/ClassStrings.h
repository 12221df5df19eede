// The class strings CDIV, ROC and SERV, which forms show digit by digit: the same for categories, extensions, their
// templates and terminals. The form folds the digits; the library meets them only in lists and checks.
#pragma once

#include "script/Action.h"
#include "script/Module.h"

namespace cordboard {

// The digits that every command with class strings shows, each with a plain list of values. Commands add their own
// beside them, and the tail of CDIV.
inline const ParameterNames ClassStringDigits{
    "CDIV_D1",        "CDIV_D2",      "CDIV_D3",      "CDIV_D4D5", "CDIV_D6",        "ROC_D2",
    "ROC_D3",         "ROC_D4",       "ROC_D5D6",     "SERV_D2",   "SERV_D3D4_SUB1", "SERV_D3D4_SUB2",
    "SERV_D3D4_SUB3", "SERV_D5_SUB1", "SERV_D5_SUB2", "SERV_D6",   "SERV_D9"};

// The tail of CDIV: with digit 6 "0" the list of each has "0" alone, with digit 6 not given there is no list.
inline const ParameterNames CDIVTail{"CDIV_D7", "CDIV_D8", "CDIV_D9"};
bool ListCDIVTail(const Action& action);

// The check of CDIV_D6: resets the tail, and stops at the first digit that cannot be reset.
bool ResetCDIVTail(const Action& action);

// Makes '0' the only value of the action's parameter. Gives the answer of the list operation and reports nothing.
bool CollectZeroAlone(const Action& action);

}  // namespace cordboard
