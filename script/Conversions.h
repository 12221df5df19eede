// The platform's rules for values, stated once.
//
// Numbers as text   A whole number below 10^15 has no point: 5 is "5". Others have up to 15 digits: 0.5 is "0.5",
//                   10^15 is "1E+15".
// Truth values      True is -1 as a number and "True" as a text, False 0 and "False".
// Numeric texts     A text is numeric when it is, as a whole, an optional sign, digits with at most one point among or
//                   beside them, and an optional exponent; blanks around it do not count. "12A" and "" are not numeric.
//                   One beyond what a number holds is read as the greatest or least there is.
// Whole numbers     Halves round to the even neighbour: 0.5 is 0, 1.5 is 2, 2.5 is 2. What is beyond 16 or 32 bits then
//                   is an Overflow.
// Leading digits    NumericValue reads as much of a text as is a number, passing over blanks, tabs and line ends
//                   anywhere: "12A" is 12, "1e2" is 100, " 3 4" is 34, "A" and "" are 0. It never fails on a text.
// Empty             0 as a number, the empty text as a text, False as a truth value.
// Null              Fails every conversion with InvalidUseOfNull, but gives no characters in a joined text.
// Comparison        With null nothing is known: neither equal nor different. Otherwise empty is equal to empty, to the
//                   empty text, to 0 and to False. Two texts compare by their characters, and so does empty with a
//                   text. A text that is numeric compares with a number or a truth value as a number; any other text is
//                   different, and greater: "True" is not True.
// Blanks            Trims take the blank (character 32) alone, neither tabs nor line ends.
#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>

#include "script/Value.h"

namespace cordboard {

// Whether the value is a number as a whole. Empty, numbers and truth values are; null is not.
bool IsNumeric(const Value& value);

// Strict conversions: TypeMismatch for a text that is not numeric, InvalidUseOfNull for null, Overflow out of range.
double ToNumber(const Value& value);
std::int16_t ToInt16(const Value& value);
std::int32_t ToInt32(const Value& value);

// The numeric value of the leading digits of the value read as text. Fails for null alone.
double NumericValue(const Value& value);

// The value read as text; fails for null.
std::string ToText(const Value& value);
// The value joined into a statement, a line or a message: empty and null give no characters.
std::string Joined(const Value& value);
// Any non-zero value is True; the texts "True" and "False", in any capitals, count as such. Fails for null.
bool ToTruth(const Value& value);
// As a condition sees it: null counts as False.
bool IsTrue(const Value& value);

// Null stays null, anything else becomes a text without its outer (leading) blanks.
Value Trim(const Value& value);
Value TrimLeft(const Value& value);

// Nothing where one of the two is null.
std::optional<std::partial_ordering> Compare(const Value& left, const Value& right);
// True only when known to be so: with a null both are False.
bool Equals(const Value& left, const Value& right);
bool Differs(const Value& left, const Value& right);
bool Less(const Value& left, const Value& right);
bool Greater(const Value& left, const Value& right);

}  // namespace cordboard
