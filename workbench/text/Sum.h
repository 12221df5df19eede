// A sum by which texts are compared: the same for the same texts, and for hardly any others (FNV-1a, 64 bits).
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace cordboard::workbench {

class Sum {
 public:
  void Add(std::string_view text) {
    for (const char c : text) sum_ = (sum_ ^ static_cast<unsigned char>(c)) * 0x100000001B3;
  }

  // 16 digits.
  std::string Written() const {
    constexpr std::string_view digits = "0123456789abcdef";
    std::string text;
    for (int shift = 60; shift >= 0; shift -= 4) text += digits[sum_ >> shift & 0xF];
    return text;
  }

 private:
  std::uint64_t sum_ = 0xCBF29CE484222325;
};

}  // namespace cordboard::workbench
