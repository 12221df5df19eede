// The release of the exchange.
#pragma once

#include "script/Action.h"

namespace cordboard {

// Whether the action is for "R6" or "R6/1", which many rules set apart from all other releases.
inline bool IsR6(const Action& action) { return action.oaRelease == "R6" || action.oaRelease == "R6/1"; }

}  // namespace cordboard
