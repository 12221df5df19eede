#include "workbench/text/Nearest.h"

#include <algorithm>
#include <cctype>
#include <numeric>

namespace cordboard::workbench {

namespace {

char Lower(char c) { return static_cast<char>(std::tolower(static_cast<unsigned char>(c))); }

// The number of letters to insert, drop or change; a letter in other capitals counts as the same.
std::size_t Distance(std::string_view left, std::string_view right) {
  std::vector<std::size_t> row(right.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 1; i <= left.size(); ++i) {
    std::size_t diagonal = row[0];
    row[0] = i;
    for (std::size_t j = 1; j <= right.size(); ++j) {
      const std::size_t changed = diagonal + (Lower(left[i - 1]) == Lower(right[j - 1]) ? 0 : 1);
      diagonal = row[j];
      row[j] = std::min({row[j] + 1, row[j - 1] + 1, changed});
    }
  }
  return row.back();
}

}  // namespace

std::string DidYouMean(std::string_view typed, const std::vector<std::string>& names) {
  const std::size_t longest = 64;
  const std::string* nearest = nullptr;
  std::size_t best = std::min<std::size_t>(2, typed.size() / 2) + 1;
  for (const std::string& name : names) {
    const std::size_t distance = typed.size() > longest ? best : Distance(typed, name);
    if (distance < best) {
      best = distance;
      nearest = &name;
    }
  }
  return nearest == nullptr ? "" : " Did you mean " + *nearest + "?";
}

}  // namespace cordboard::workbench
