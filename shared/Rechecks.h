// Static checks of a parameter whose list depends on another one: remember the value, reset the parameter, and put the
// value back only if it still fits. A value that no longer fits is dropped in silence.
#pragma once

#include <string>

#include "script/Action.h"
#include "script/List.h"
#include "script/Report.h"

namespace cordboard {

// Whether an element of the list equals the value; numbers and texts of digits are equal when their values are. Fails
// for a list without bounds.
bool IsValueInList(const Value& value, const List& list);

// The check that finds nothing, whatever the parameter.
bool AlwaysTrue(const Action& action);

// The check of a parameter on which the location hangs. Its answer is that of the reset, which is not reported.
bool ResetLOCATION(const Action& action);

// Resets the parameter and puts `kept` back if it stands in the list as it now is. Each step that fails is reported
// with the parameter's name: 61013 the reset, 61020 the list, 61016 the value. The two halves stand alone for a check
// that tells them apart.
bool Revalidate(const Reporter& fail, const std::string& parameter, const Value& kept);
bool ResetForRecheck(const Reporter& fail, const std::string& parameter);
bool PutBackIfListed(const Reporter& fail, const std::string& parameter, const Value& kept);

// The same for the parameter's present value, but a list that cannot be read is reported with the command's name.
bool StatCheck_RecheckValue(const std::string& CmdName, const std::string& parameter);

// LIM against the LOCATION on the form. A LIM that the exchange does not have fails the call, as does such an EQU.
bool StatCheck_LIM(const Action& action);
// EQU and BPOS against the named location parameter. A BPOS without a board is dropped.
bool StatCheck_EQU(const std::string& locationParameter);
bool StatCheck_BPOS(const std::string& locationParameter);

}  // namespace cordboard
