#include "workbench/text/Quoted.h"

namespace cordboard::workbench {

std::string Quoted(std::string_view text) {
  std::string quoted = "\"";
  for (const char c : text) {
    if (c == '"') quoted += '"';
    quoted += c;
  }
  return quoted + '"';
}

std::optional<std::string> TakeQuoted(std::string_view& rest) {
  std::string text;
  for (std::size_t i = 1; i < rest.size(); ++i) {
    if (rest[i] != '"') {
      text += rest[i];
    } else if (rest.substr(i + 1).starts_with('"')) {
      text += rest[i++];
    } else {
      rest.remove_prefix(i + 1);
      return text;
    }
  }
  return std::nullopt;
}

}  // namespace cordboard::workbench
