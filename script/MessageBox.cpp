#include "script/MessageBox.h"

#include <iostream>
#include <utility>

namespace cordboard {

namespace {

MessageBoxHook current;

}  // namespace

MessageBoxHook SetMessageBox(MessageBoxHook hook) { return std::exchange(current, std::move(hook)); }

void ShowMessageBox(const std::string& text, const std::string& title, int style) {
  if (current) return current(text, title, style);
  std::cerr << (title.empty() ? "" : title + ": ") << text << '\n';
}

}  // namespace cordboard
