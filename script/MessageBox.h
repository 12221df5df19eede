// The plain message box: a text shown directly, without the host, in the few places that have one.
#pragma once

#include <functional>
#include <string>

namespace cordboard {

inline constexpr int PlainBox = 0;
inline constexpr int InformationBox = 64;

using MessageBoxHook = std::function<void(const std::string& text, const std::string& title, int style)>;

// Replaces how the whole process shows a box, and gives back what was there. An empty hook restores the default, which
// writes a line to standard error.
MessageBoxHook SetMessageBox(MessageBoxHook hook);

void ShowMessageBox(const std::string& text, const std::string& title, int style);

}  // namespace cordboard
