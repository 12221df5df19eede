// No exception crosses the boundary: a method of the object answers with a result code and error information, which a
// script sees in Err and a C++ caller gets by GetErrorInfo.
//
//     Overflow 6   SubscriptOutOfRange 9   TypeMismatch 13   InvalidUseOfNull 94   InvalidCall 5   NoHost 91
//
// These are the numbers that scripts know, as result codes 0x800A0000 + number. HostFailure is 0x80040201.
#pragma once

#include <functional>
#include <string>

#include "com/Platform.h"
#include "script/RunTimeFailure.h"

namespace cordboard::com {

HRESULT ResultCode(RunTimeFailure::Cause cause);

// Does the work and answers S_OK, or what went wrong.
HRESULT Guarded(const std::function<void()>& work) noexcept;

}  // namespace cordboard::com
