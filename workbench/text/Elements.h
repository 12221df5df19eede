// Several values and ranges as they are typed: "1&2&5", "100&&199", and both together.
#pragma once

#include <stdexcept>
#include <string>
#include <vector>

namespace cordboard::workbench {

// A value that cannot be taken apart; the message says why.
class ElementsError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// How many elements one value may stand for.
inline constexpr std::size_t mostElements = 100000;

// The single values, in the order typed. The ends of a range have the same length, the same beginning and end in digits
// that rise: "098&&101", "001-0-10-00&&001-0-10-07".
std::vector<std::string> Elements(const std::string& typed);
// The same, with the values of each part between single "&" by themselves: the numbers of a range stay together.
std::vector<std::vector<std::string>> ElementsByPart(const std::string& typed);
// The other way round: elements that follow each other, of at most 18 digits, as ranges and the rest as they are.
std::vector<std::string> AsRanges(const std::vector<std::string>& elements);

// Whether the text holds a range, and whether it holds several values side by side.
bool HoldsRange(const std::string& typed);
bool HoldsSeveral(const std::string& typed);

}  // namespace cordboard::workbench
