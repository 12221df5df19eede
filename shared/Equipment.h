// Equipment positions: the order in which they are offered, and the board on which one lies.
#pragma once

#include <string>

#include "script/Value.h"

namespace cordboard {

// The end of a statement that lists positions: the user's ordering clause as the host gives it, else the default.
std::string EquipmentOrder();

// The board of a position, read by the statement that key extensions and terminals share. A statement that fails is
// reported; a position without a board fails the call.
bool ReadBoardID(const std::string& context, const Value& EQU, Value& BoardID);

}  // namespace cordboard
