// Whether a text is well-formed UTF-8.
#pragma once

#include <string_view>

namespace cordboard::workbench {

bool IsUtf8(std::string_view text);

}  // namespace cordboard::workbench
