// The plain message box of the platform.
#pragma once

#include <string>

namespace cordboard::com {

// Shows the box and waits for the user. Where there is nobody to see it (a service, a session without a desktop) the
// text goes to standard error and to the debugger instead, and nothing waits.
void ShowPlainBox(const std::string& text, const std::string& title, int style);

}  // namespace cordboard::com
