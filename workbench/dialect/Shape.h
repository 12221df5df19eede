// The shape of a statement: what it is without its literals. Statements of one shape become the same text, and differ
// in its parameters alone.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "script/Value.h"

namespace cordboard::workbench {

struct Shape {
  std::string text;             // the statement, with a sign for each text and number
  std::vector<Value> literals;  // those texts and numbers, in order
};

// Nothing for a statement that has to be looked at as a whole: a text with a character class may be the pattern of a
// LIKE and decide what becomes of it, and what belongs in no statement is for the mapper to refuse.
std::optional<Shape> ShapeOf(std::string_view statement);

}  // namespace cordboard::workbench
