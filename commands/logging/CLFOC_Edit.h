// The edit of an output format, and the append to one, which is an edit of another kind.
#pragma once

#include <cstdint>

#include "script/Action.h"

namespace cordboard {

// Writes the parameters named. The items of DATA go to their columns as well, in every format that there is.
bool EditFormat(const Action& action);

// Adds the items of DATA to those that the format has, and writes its FORM and DESCRIPTION. The items go to their
// columns in every format here too.
bool AppendToFormat(const Action& action, std::int32_t CmdId);

}  // namespace cordboard
