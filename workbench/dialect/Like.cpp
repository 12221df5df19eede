#include "workbench/dialect/Like.h"

#include <cstddef>

namespace cordboard::workbench {
namespace {

constexpr std::size_t none = std::string_view::npos;

char Small(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

// Where the class that begins at the bracket ends; `none` where the bracket is a character like others.
std::size_t ClassEnd(std::string_view pattern, std::size_t open) {
  const std::size_t close = pattern.find(']', open);
  return close == open + 1 ? none : close;
}

// The content is what stands between the brackets: characters and ranges, all of them excluded after a leading "!".
bool InClass(std::string_view content, char c) {
  const bool excluded = content.size() > 1 && content.front() == '!';
  if (excluded) content.remove_prefix(1);
  const auto wanted = static_cast<unsigned char>(Small(c));
  bool found = false;
  for (std::size_t i = 0; i < content.size(); ++i) {
    const auto from = static_cast<unsigned char>(Small(content[i]));
    auto to = from;
    if (i + 2 < content.size() && content[i + 1] == '-') to = static_cast<unsigned char>(Small(content[i += 2]));
    found = found || (from <= wanted && wanted <= to);
  }
  return (found && wanted < 0x80) != excluded;
}

// The bytes of the character that begins here: its first, and those that go on with it.
std::size_t CharacterLength(std::string_view text, std::size_t place) {
  std::size_t length = 1;
  while (place + length < text.size() && (static_cast<unsigned char>(text[place + length]) & 0xC0) == 0x80) ++length;
  return length;
}

}  // namespace

bool HoldsCharacterClass(std::string_view pattern) {
  for (auto open = pattern.find('['); open != none; open = pattern.find('[', open + 1)) {
    if (ClassEnd(pattern, open) != none) return true;
  }
  return false;
}

// Goes along both; on a mismatch it goes back to the last % and lets it take one character more. Earlier ones need no
// second look, so the time is the product of the two lengths at worst.
bool LikeMatches(std::string_view pattern, std::string_view text) {
  std::size_t p = 0;
  std::size_t t = 0;
  std::size_t afterRun = none;  // the place in the pattern after the last %
  std::size_t runEnd = 0;       // how far that % reaches in the text
  while (t < text.size() || p < pattern.size()) {
    const std::size_t close = p < pattern.size() && pattern[p] == '[' ? ClassEnd(pattern, p) : none;
    if (p < pattern.size() && pattern[p] == '%') {
      afterRun = ++p;
      runEnd = t;
    } else if (p < pattern.size() && t < text.size() && pattern[p] == '_') {
      ++p;
      t += CharacterLength(text, t);
    } else if (close != none && t < text.size() && InClass(pattern.substr(p + 1, close - p - 1), text[t])) {
      p = close + 1;
      t += CharacterLength(text, t);
    } else if (close == none && p < pattern.size() && t < text.size() && Small(pattern[p]) == Small(text[t])) {
      ++p;
      ++t;
    } else if (afterRun != none && runEnd < text.size()) {
      p = afterRun;
      runEnd += CharacterLength(text, runEnd);
      t = runEnd;
    } else {
      return false;
    }
  }
  return true;
}

}  // namespace cordboard::workbench
