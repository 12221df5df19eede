#include "workbench/dialect/Shape.h"

#include "workbench/dialect/Like.h"
#include "workbench/dialect/Mapping.h"
#include "workbench/dialect/Tokenizer.h"

namespace cordboard::workbench {

std::optional<Shape> ShapeOf(std::string_view statement) {
  if (statement.find('\0') != statement.npos) return std::nullopt;  // no literal holds one either
  Shape shape;
  shape.text.reserve(statement.size());
  std::size_t from = 0;  // what is left to copy
  const auto put = [&](std::size_t literal, char sign) {
    shape.text.append(statement, from, literal - from).push_back(sign);
  };
  for (std::size_t at = 0; at < statement.size();) {
    if (BeginsWord(statement, at)) {
      at = EndOfWord(statement, at);
    } else if (BeginsNumber(statement, at)) {
      put(at, '?');
      from = EndOfNumber(statement, at);
      const auto number = NumberOf(statement.substr(at, from - at));
      if (!number) return std::nullopt;
      shape.literals.emplace_back(*number);
      at = from;
    } else if (statement[at] == '\'') {
      put(at, '\'');
      from = EndOfText(statement, at);
      if (from == statement.npos) return std::nullopt;
      const std::string_view text = statement.substr(at + 1, from - at - 2);
      if (HoldsCharacterClass(text)) return std::nullopt;
      shape.literals.emplace_back(TextOf(text));
      at = from;
    } else if (statement[at] == '[') {
      at = EndOfBrackets(statement, at);
      if (at == statement.npos) return std::nullopt;
    } else if (statement[at] == '?') {
      return std::nullopt;  // it has no meaning, but as the sign for a number here
    } else {
      ++at;
    }
  }
  shape.text.append(statement, from);
  return shape;
}

}  // namespace cordboard::workbench
