// Links to information computers, and what voice mail systems add to them: a link goes by its indicator, and its ports
// have numbers of a format.
#pragma once

#include <string>

#include "script/Action.h"
#include "script/Report.h"
#include "script/Value.h"

namespace cordboard {

// The column of a link's indicator: ICUIND on R6 and R6/1, IFCIND on all other releases.
const char* LinkIndicator(const Action& action);

// The indicator that the action's record has in the table. A statement that fails is reported; a record that is missing
// fails the call.
bool ReadLinkIndicator(const Action& action, const Reporter& fail, const std::string& table, Value& indicator);

// The free positions on the boards for links, under a further condition. The order is always the same, whatever the
// user has chosen for other positions.
bool ListLinkPositions(const Action& action, const std::string& condition);

// Whether a port's number is as long as the format says: one that is missing has the length 0.
bool PortSuitsFormat(const Value& PORT, double POFMT);

}  // namespace cordboard
