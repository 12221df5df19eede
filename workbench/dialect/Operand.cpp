// The values of an expression: literals, which become parameters, columns, functions, and what stands in brackets.
#include <array>
#include <charconv>
#include <string>

#include "workbench/dialect/Mapping.h"

namespace cordboard::workbench {
namespace {

constexpr std::array<std::string_view, 6> functions = {"COUNT", "MIN", "MAX", "SUM", "AVG", "VAL"};

// The function in its capitals; empty for a word that is none.
std::string_view FunctionOf(std::string_view word) {
  if (word.size() != 3 && word.size() != 5) return {};
  std::string capitals(word);
  for (char& c : capitals) c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
  for (const std::string_view function : functions) {
    if (function == capitals) return function;
  }
  return {};
}

void Parameter(Mapping& mapping, Value value) {
  mapping.Put("?");
  mapping.result.parameters.push_back(std::move(value));
  mapping.tokens.Advance();
}

void Number(Mapping& mapping, std::string_view token) {
  const auto number = NumberOf(token);
  if (!number) mapping.Refuse("this number is out of range");
  Parameter(mapping, *number);
}

void Function(Mapping& mapping) {
  const std::string_view function = FunctionOf(mapping.tokens.current().text);
  if (function.empty()) mapping.Refuse("the only functions are COUNT, MIN, MAX, SUM, AVG and VAL");
  if (mapping.query && function != "VAL") mapping.query->aggregate = true;
  mapping.Put(function);
  mapping.Join("(");
  mapping.tokens.Advance();
  mapping.Expect(Symbol::Open, "(");
  if (function == "COUNT" && mapping.Accept(Symbol::Star)) {
    mapping.Join("*");
  } else {
    const Nesting nesting(mapping);
    MapExpression(mapping);
  }
  mapping.Expect(Symbol::Close, ")");
  mapping.Join(")");
}

void Column(Mapping& mapping) {
  mapping.PutName("a column");
  if (!mapping.Accept(Symbol::Dot)) return;
  mapping.Join(".");
  mapping.PutName("a column after its table");
}

}  // namespace

std::string TextOf(std::string_view token) {
  std::string text;
  text.reserve(token.size());
  for (auto quote = token.find('\''); quote != token.npos; quote = token.find('\'')) {
    text += token.substr(0, quote + 1);
    token.remove_prefix(quote + 2);
  }
  text += token;
  return text;
}

std::optional<double> NumberOf(std::string_view token) {
  double number = 0;
  const auto read = std::from_chars(token.data(), token.data() + token.size(), number);
  return read.ec == std::errc() ? std::optional(number) : std::nullopt;
}

void MapBrackets(Mapping& mapping, bool list) {
  const Nesting nesting(mapping);
  mapping.Expect(Symbol::Open, "(");
  mapping.Put("(");
  if (mapping.At(Symbol::Select)) {
    MapSubSelect(mapping);
  } else {
    do {
      MapExpression(mapping);
    } while (list && mapping.AcceptComma());
  }
  mapping.Expect(Symbol::Close, ")");
  mapping.Join(")");
}

void MapOperand(Mapping& mapping) {
  const Token token = mapping.tokens.current();
  switch (token.symbol) {
    case Symbol::Text: return Parameter(mapping, TextOf(token.text));
    case Symbol::Number: return Number(mapping, token.text);
    case Symbol::True:
    case Symbol::Yes: return Parameter(mapping, true);
    case Symbol::False: return Parameter(mapping, false);
    case Symbol::Open: return MapBrackets(mapping, false);
    case Symbol::Null:
      mapping.Put("NULL");
      mapping.tokens.Advance();
      return;
    default: return mapping.AtNext(Symbol::Open) ? Function(mapping) : Column(mapping);
  }
}

}  // namespace cordboard::workbench
