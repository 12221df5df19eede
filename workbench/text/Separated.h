// Several things as one text, with a separator between them: "a, b, c".
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace cordboard::workbench {

// `written` gives the text of each.
template <typename Things, typename Written = std::identity>
std::string Separated(const Things& things, std::string_view separator, Written written = {}) {
  std::string text;
  bool first = true;
  for (const auto& thing : things) {
    if (!first) text += separator;
    first = false;
    text += std::invoke(written, thing);
  }
  return text;
}

}  // namespace cordboard::workbench
