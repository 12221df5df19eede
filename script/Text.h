// Texts are UTF-8; lengths and positions count characters, not bytes. Bytes in the shape of a character count as one,
// whatever they stand for; a byte that is part of none counts as one by itself.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace cordboard {

// The number of characters.
std::size_t Length(std::string_view text);
// The first and the last `count` characters, all of them where there are fewer. Fail with InvalidCall below 0.
std::string Left(std::string_view text, std::ptrdiff_t count);
std::string Right(std::string_view text, std::ptrdiff_t count);
// `count` characters from position `start`, which counts from 1; fewer where the text ends before. Fails with
// InvalidCall for a start below 1 or a count below 0.
std::string Middle(std::string_view text, std::ptrdiff_t start, std::ptrdiff_t count);

// Without blanks (character 32, no others) at both ends, and at the beginning.
std::string_view TrimBlanks(std::string_view text);
std::string_view TrimLeftBlanks(std::string_view text);

}  // namespace cordboard
