// Control characters made visible, so that a text from elsewhere cannot steer the terminal on which it is shown.
#pragma once

#include <string>
#include <string_view>

namespace cordboard::workbench {

// The text with \n, \r and \t for those characters and \u001b and the like for the others, also for those from 80 to
// 9F. Bytes that are no UTF-8 stay as they are.
std::string Escaped(std::string_view text);

}  // namespace cordboard::workbench
