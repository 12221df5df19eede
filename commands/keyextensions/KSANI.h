// The one worker of KSANI that another command runs: an edit of a category in EXCCS frees the numbers that use it.
#pragma once

#include "script/Action.h"

namespace cordboard {

// Frees the additional number of the record CmdId, in a transaction of its own. The record is left to the host.
bool KSANI_DeleteInfo(const Action& action);

}  // namespace cordboard
