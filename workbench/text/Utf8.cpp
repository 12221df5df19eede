#include "workbench/text/Utf8.h"

#include <cstddef>

namespace cordboard::workbench {

bool IsUtf8(std::string_view text) {
  for (std::size_t i = 0; i < text.size();) {
    const auto first = static_cast<unsigned char>(text[i++]);
    if (first < 0x80) continue;
    if (first < 0xC2 || first > 0xF4) return false;
    int more = first < 0xE0 ? 1 : first < 0xF0 ? 2 : 3;
    // The second byte is bounded further where the first would allow an overlong form, a surrogate or too large a code.
    unsigned low = first == 0xE0 ? 0xA0 : first == 0xF0 ? 0x90 : 0x80;
    unsigned high = first == 0xED ? 0x9F : first == 0xF4 ? 0x8F : 0xBF;
    for (; more > 0; --more, low = 0x80, high = 0xBF) {
      if (i == text.size()) return false;
      const auto next = static_cast<unsigned char>(text[i++]);
      if (next < low || next > high) return false;
    }
  }
  return true;
}

}  // namespace cordboard::workbench
