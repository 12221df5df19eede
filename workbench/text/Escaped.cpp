#include "workbench/text/Escaped.h"

namespace cordboard::workbench {

namespace {

std::string Escape(unsigned char code) {
  constexpr char digits[] = "0123456789abcdef";
  switch (code) {
    case '\n': return "\\n";
    case '\r': return "\\r";
    case '\t': return "\\t";
    default: return std::string("\\u00") + digits[code >> 4] + digits[code & 0xF];
  }
}

}  // namespace

std::string Escaped(std::string_view text) {
  std::string escaped;
  escaped.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    const auto next = static_cast<unsigned char>(i + 1 < text.size() ? text[i + 1] : 0);
    if (byte < 0x20 || byte == 0x7F) {
      escaped += Escape(byte);
    } else if (byte == 0xC2 && next >= 0x80 && next < 0xA0) {
      escaped += Escape(next);
      ++i;
    } else {
      escaped += text[i];
    }
  }
  return escaped;
}

}  // namespace cordboard::workbench
