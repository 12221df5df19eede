// Methods called by their names at run time.
#pragma once

#include <string>
#include <vector>

#include "com/Pointer.h"
#include "com/Variant.h"

namespace cordboard::com {

// Calls a method of the object, arguments in their own order, and gives its result. What the object answers instead
// leaves as a RunTimeFailure with the cause HostFailure, which tells the method, the description and the number.
Variant CallByName(const Pointer<IDispatch>& object, const std::string& method, std::vector<Variant>& arguments);

}  // namespace cordboard::com
