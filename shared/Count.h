// Counts, by statements that give one row with one value. A statement that gives no row fails the call.
#pragma once

#include <string>

#include "script/Report.h"
#include "script/Value.h"

namespace cordboard {

// The count, whatever the statement's answer.
Value UncheckedCount(const std::string& sql);
// The same with the answer tested: a statement that fails is reported (62000).
bool CheckedCount(const Reporter& fail, const std::string& sql, Value& count);

}  // namespace cordboard
