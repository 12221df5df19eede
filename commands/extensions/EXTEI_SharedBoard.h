// The check that the extensions on one board of type 52 go together.
#pragma once

#include <cstdint>
#include <string>

#include "script/Action.h"

namespace cordboard {

// Extensions on one board of type 52 have to agree in the digits 1, 2 and 4 of ICAT. Those of the oldest record on the
// board count, which may itself have any. A statement that fails is reported under no context.
bool CheckSharedBoardICAT(const Action& action, const std::string& ICAT, const std::string& EQU, std::int32_t CmdId);

}  // namespace cordboard
