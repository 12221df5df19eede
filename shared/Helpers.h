// Small helpers that several commands share.
#pragma once

#include <string>

#include "script/Action.h"
#include "script/List.h"

namespace cordboard {

// Whether an element of the list equals the value; numbers and texts of digits are equal when their values are. Fails
// for a list without bounds.
bool IsValueInList(const Value& value, const List& list);

// True, whatever the parameter.
bool AlwaysTrue(const Action& action);

// The number after `value`, with as many zeros in front as the old value was shorter than `width`, so that "9" with
// width 3 gives "0010". Empty where the value is not shorter than `width`.
Value NextNumberPadded(const Value& value, int width);

}  // namespace cordboard
