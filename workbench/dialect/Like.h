// The patterns of LIKE that hold character classes.
#pragma once

#include <string_view>

namespace cordboard::workbench {

// Whether the pattern holds a class such as [1-2]; an opening bracket that nothing closes is a character like others.
bool HoldsCharacterClass(std::string_view pattern);

// Whether the whole text is like the pattern. % stands for any run of characters, also none; _ for one character;
// [abc] for one of these; [1-4] for one of this range; [!abc] for one that is none of these; anything else for itself.
// A to Z are the same as a to z. Characters are those of UTF-8, but classes name ASCII alone: others are in none.
bool LikeMatches(std::string_view pattern, std::string_view text);

}  // namespace cordboard::workbench
