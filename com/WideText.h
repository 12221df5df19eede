// The library's texts are UTF-8, the platform's are UTF-16. What is no character becomes the replacement character;
// zero characters are characters like others.
#pragma once

#include <string>
#include <string_view>

#include "com/Platform.h"

namespace cordboard::com {

std::wstring ToWide(std::string_view text);
std::string FromWide(std::wstring_view text);

// A null BSTR is the empty text.
std::string FromBstr(BSTR text);
// A new BSTR, owned by the caller.
BSTR ToBstr(std::string_view text);

}  // namespace cordboard::com
