// Text in double quotes, in which two double quotes stand for one.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace cordboard::workbench {

std::string Quoted(std::string_view text);

// The text that begins at a double quote, which is taken off the rest together with the one that ends it. Nothing, and
// nothing taken, where none ends it.
std::optional<std::string> TakeQuoted(std::string_view& rest);

}  // namespace cordboard::workbench
