// The lists of valid values that many commands show in the same way. Each provider fills the host's list of the
// action's parameter, and reports a failure under its own name. None reads the form but where told.
#pragma once

#include <string>

#include "script/Action.h"

namespace cordboard {

// Report a list of the action's parameter that could not be built, as "GetValidValForParam": one of single values, and
// one of values and descriptions.
bool ListRefused(const Action& action);
bool DescribedListRefused(const Action& action);

// A list of the action's parameter by one statement on the configuration; a failure is reported as
// "GetValidValForParam" with the parameter's name.
bool CollectList(const Action& action, const std::string& sql);

// Offers the whole numbers from the one to the other, in one push of a list.
bool PushWholeNumbers(int from, int to);

// The fixed values of the parameter, in the active definition or in the action's.
bool GetValuesAndDescription(const Action& action);
bool GetValuesAndDescriptionByDefinition(const Action& action);

bool GetValuesFor_CUST(const Action& action);
bool GetValuesFor_LOCATION(const Action& action);
// All LIMs, or those of the LOCATION on the form; ordered as the column is, not by numeric value as CUST, CAT and ROU.
// The first reports nothing.
bool CollectLIMs();
bool GetValuesFor_LIM(const Action& action);
// The categories that are defined: those whose SERV is not null.
bool GetValuesFor_CAT(const Action& action);
// The call origin groups, less those that `table` holds; with the empty text nothing is taken out.
bool GetValuesFor_CORG(const Action& action, const std::string& table);
bool GetValuesFor_CSP(const Action& action);
bool GetValuesFor_ROU(const Action& action);
// The free numbers of a type, and those of type EX. Some commands ask for theirs with other blanks and line ends, and
// have the statement themselves.
bool ListFreeNumbers(const Action& action, const char* NUMTYP);
bool GetValuesFor_EX(const Action& action);
// In spite of its name a list: the locations, or the one location of the LIM in the EQU on the form.
bool StatCheck_EQU_LOCATION(const Action& action);

}  // namespace cordboard
