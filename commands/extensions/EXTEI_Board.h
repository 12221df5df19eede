// The board on which a position lies, as general extensions and their templates ask for it.
#pragma once

#include "script/Report.h"
#include "script/Value.h"

namespace cordboard {

// A statement that fails is reported; a position without a board fails the call.
bool ReadBoard(const Reporter& fail, const Value& EQU, Value& BoardID);

}  // namespace cordboard
