// Reading a range of numbers as typed.
#pragma once

#include <string>

#include "script/Value.h"

namespace cordboard {

// Splits "100&&199" into from and to. A value that is numeric as a whole is all from, with an empty to. Always True.
// A null fails.
bool SplitRange(const Value& value, std::string& from, std::string& to);

}  // namespace cordboard
