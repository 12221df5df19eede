// Counts, by statements that give one row with one value. No row is a failure of the call.
#pragma once

#include <string>

#include "script/Report.h"
#include "script/Value.h"

namespace cordboard {

// The count, whatever the statement's answer: one that fails gives no row.
Value CountOf(const std::string& sql);
// The same with the answer tested: a statement that fails is reported (62000).
bool Count(const Reporter& fail, const std::string& sql, Value& count);

}  // namespace cordboard
