// A hash of short names, for tables that are asked many times for each action.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace cordboard::workbench {

struct NameHash {
  using is_transparent = void;

  // Of the first eight bytes and the last eight: names that differ between them alone are few. Of a function that says
  // that it does not fail a table would keep no results, and compare more names.
  std::size_t operator()(std::string_view name) const {
    std::uint64_t first = 0;
    std::uint64_t last = 0;
    if (name.size() >= sizeof first) {
      std::memcpy(&first, name.data(), sizeof first);
      std::memcpy(&last, name.data() + name.size() - sizeof last, sizeof last);
    } else {
      for (const char c : name) first = first << 8 | static_cast<unsigned char>(c);
    }
    const std::uint64_t mixed = (first ^ name.size()) * 0x9E3779B97F4A7C15u + last * 0xC2B2AE3D27D4EB4Fu;
    return mixed ^ mixed >> 32;
  }
};

// Finds by a view of a name, too.
template <typename Content>
using ByName = std::unordered_map<std::string, Content, NameHash, std::equal_to<>>;

}  // namespace cordboard::workbench
