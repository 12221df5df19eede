// Statements and lines are texts put together from pieces; values go in as they stand, without escaping.
#pragma once

#include <string>

#include "script/Conversions.h"

namespace cordboard {

// The line end that statements hold between their clauses.
inline constexpr const char* NL = "\r\n";

// Joins the pieces into one statement. Empty and null give no characters, truth values the words True and False.
template <typename... Pieces>
std::string Sql(const Pieces&... pieces) {
  std::string statement;
  (statement.append(Joined(Value(pieces))), ...);
  return statement;
}

// The same for exchange command lines and for other texts.
template <typename... Pieces>
std::string Text(const Pieces&... pieces) {
  return Sql(pieces...);
}

}  // namespace cordboard
