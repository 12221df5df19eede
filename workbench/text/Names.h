// Names of tables and columns are the same in any capitals.
#pragma once

#include <algorithm>
#include <string_view>

namespace cordboard::workbench {

inline bool SameName(std::string_view left, std::string_view right) {
  const auto small = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
  return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                    [&](char a, char b) { return small(a) == small(b); });
}

// SQLite's names for the place of a row in its table: no table has such a column, and no statement may name it.
inline bool IsRowPlace(std::string_view name) {
  return SameName(name, "rowid") || SameName(name, "oid") || SameName(name, "_rowid_");
}

}  // namespace cordboard::workbench
