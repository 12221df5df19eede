// The forty items of an output format, DATA1 to DATA40, which the form shows by three digits each: the position
// (DATAn_D1D2), the length (DATAn_D3D4) and the letter of the kind (DATAn_D5).
#pragma once

#include <string>
#include <vector>

#include "script/Conversions.h"
#include "script/Statement.h"
#include "script/Text.h"

namespace cordboard {

inline constexpr std::size_t NumberOfItems = 40;

inline std::string ItemName(std::size_t number) { return Text("DATA", number); }

// The parameters of all items that end in these digits.
inline std::vector<std::string> OfEveryItem(const char* digits) {
  std::vector<std::string> names;
  for (std::size_t number = 1; number <= NumberOfItems; ++number) names.push_back(ItemName(number) + digits);
  return names;
}

// The item that a digit belongs to is told by the length of the digit's name alone: that of a position or a length,
// and that of a letter.
inline std::string ItemOfNumber(const std::string& digit) { return Left(digit, Length(digit) == 10 ? 5 : 6); }
inline std::string ItemOfLetter(const std::string& digit) { return Left(digit, Length(digit) == 8 ? 5 : 6); }

// Whether a choice was made. A null counts as one.
inline bool IsChosen(const Value& value) { return !value.IsEmptyOrEmptyText(); }

}  // namespace cordboard
