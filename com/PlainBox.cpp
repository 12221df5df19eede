#include "com/PlainBox.h"

#include <iostream>

#include "com/Platform.h"
#include "com/WideText.h"

namespace cordboard::com {

namespace {

// Whether somebody can see this process's windows.
bool HasDesktop() {
  USEROBJECTFLAGS flags{};
  DWORD needed = 0;
  return GetUserObjectInformationW(GetProcessWindowStation(), UOI_FLAGS, &flags, sizeof flags, &needed) &&
         (flags.dwFlags & WSF_VISIBLE) != 0;
}

}  // namespace

void ShowPlainBox(const std::string& text, const std::string& title, int style) {
  // Only a number above 0 is the answer of a user. Without a desktop the box may be said to be answered at once.
  const auto shown = [&] {
    return MessageBoxW(nullptr, ToWide(text).c_str(), ToWide(title).c_str(), style | MB_TASKMODAL) > 0;
  };
  if (HasDesktop() && shown()) return;
  const std::string line = (title.empty() ? "" : title + ": ") + text + "\n";
  std::cerr << line;
  OutputDebugStringW(ToWide(line).c_str());
}

}  // namespace cordboard::com
