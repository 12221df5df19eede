// The number that follows another one in a column of numbers of one width.
#pragma once

#include "script/Value.h"

namespace cordboard {

// The number after `value`, with as many zeros in front as the old value was shorter than `width`, so that "9" with
// width 3 gives "0010". Empty where the value is not shorter than `width`. Fails for what is no 16-bit number.
Value NextNumberPadded(const Value& value, int width);

}  // namespace cordboard
