// Expressions go through token by token: SQLite reads them as the dialect does, once names are in brackets and literals
// are parameters. What is looked at is where a value stands and where an operator, so that nothing gets past that
// SQLite would take for more than the dialect has.
#include <array>
#include <charconv>
#include <string>

#include "workbench/dialect/Like.h"
#include "workbench/dialect/Mapping.h"

namespace cordboard::workbench {
namespace {

constexpr std::array<std::string_view, 6> kFunctions = {"COUNT", "MIN", "MAX", "SUM", "AVG", "VAL"};

// The function in its capitals; empty for a word that is none.
std::string_view FunctionOf(std::string_view word) {
  if (word.size() != 3 && word.size() != 5) return {};
  std::string capitals(word);
  for (char& c : capitals) c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
  for (const std::string_view function : kFunctions) {
    if (function == capitals) return function;
  }
  return {};
}

void Parameter(Mapping& mapping, Value value) {
  mapping.Put("?");
  mapping.result.parameters.push_back(std::move(value));
  mapping.tokens.Advance();
}

// The text without the second of each two quotes.
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

Value NumberOf(const Mapping& mapping, std::string_view token) {
  double number = 0;
  if (std::from_chars(token.data(), token.data() + token.size(), number).ec != std::errc()) {
    mapping.Refuse("this number is out of range");
  }
  return number;
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
  mapping.PutName("a column behind its table");
}

// An expression or a sub-select in brackets; several expressions where a list may stand.
void Brackets(Mapping& mapping, bool list) {
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

void Operand(Mapping& mapping) {
  const Token token = mapping.tokens.current();
  switch (token.symbol) {
    case Symbol::Text: return Parameter(mapping, TextOf(token.text));
    case Symbol::Number: return Parameter(mapping, NumberOf(mapping, token.text));
    case Symbol::True:
    case Symbol::Yes: return Parameter(mapping, true);
    case Symbol::False: return Parameter(mapping, false);
    case Symbol::Open: return Brackets(mapping, false);
    case Symbol::Null:
      mapping.Put("NULL");
      mapping.tokens.Advance();
      return;
    default: return mapping.AtNext(Symbol::Open) ? Function(mapping) : Column(mapping);
  }
}

// Where an operand began, in the text and among the parameters.
struct Start {
  std::size_t text = 0;
  std::size_t parameter = 0;
};

// A pattern with a character class becomes a call, with the value to the left of LIKE as its second argument; SQLite
// knows no such classes. True where that was done.
bool LikeClass(Mapping& mapping, const Start& value, bool negated) {
  if (!mapping.At(Symbol::Text) || !HoldsCharacterClass(mapping.tokens.current().text)) return false;
  MappedStatement& result = mapping.result;
  const std::string left = result.sql.substr(value.text);
  result.sql.resize(value.text);
  mapping.Put(negated ? "NOT dialect_like(?," : "dialect_like(?,");
  mapping.Join(left + ")");
  result.parameters.insert(result.parameters.begin() + static_cast<std::ptrdiff_t>(value.parameter),
                           TextOf(mapping.tokens.current().text));
  mapping.tokens.Advance();
  return true;
}

}  // namespace

void MapExpression(Mapping& mapping) {
  bool complete = false;  // whether the last token ended a value, so that an operator or the end has to follow
  Start operand;
  const auto need_value = [&](std::string_view word) {
    if (!complete) mapping.Refuse("expected a value before " + std::string(word));
  };
  const auto need_operator = [&] {
    if (complete) mapping.Refuse("expected an operator or the end before this");
  };
  const auto put_operator = [&](std::string_view text) {
    mapping.Put(text);
    mapping.tokens.Advance();
    complete = false;
  };
  for (;;) {
    Symbol symbol = mapping.tokens.current().symbol;
    const bool negated = symbol == Symbol::Not && complete;  // NOT behind a value belongs to the operator behind it
    if (negated) {
      mapping.tokens.Advance();
      symbol = mapping.tokens.current().symbol;
      if (symbol != Symbol::In && symbol != Symbol::Like && symbol != Symbol::Between) {
        mapping.Refuse("expected IN, LIKE or BETWEEN behind NOT");
      }
    }
    switch (symbol) {
      case Symbol::Name:
      case Symbol::Text:
      case Symbol::Number:
      case Symbol::True:
      case Symbol::False:
      case Symbol::Yes:
      case Symbol::Null:
      case Symbol::Open:
        need_operator();
        operand = {mapping.result.sql.size(), mapping.result.parameters.size()};
        Operand(mapping);
        complete = true;
        break;
      case Symbol::Compare: put_operator(mapping.tokens.current().text); break;
      case Symbol::And: put_operator("AND"); break;
      case Symbol::Or: put_operator("OR"); break;
      case Symbol::Is: put_operator("IS"); break;
      case Symbol::Not: put_operator("NOT"); break;
      case Symbol::Between: put_operator(negated ? "NOT BETWEEN" : "BETWEEN"); break;
      case Symbol::In:
        need_value("IN");
        put_operator(negated ? "NOT IN" : "IN");
        Brackets(mapping, true);
        complete = true;
        break;
      case Symbol::Like:
        need_value("LIKE");
        mapping.tokens.Advance();
        complete = LikeClass(mapping, operand, negated);
        if (!complete) mapping.Put(negated ? "NOT LIKE" : "LIKE");
        break;
      case Symbol::Exists:
        need_operator();
        put_operator("EXISTS");
        Brackets(mapping, false);
        complete = true;
        break;
      default:
        if (!complete) mapping.Refuse("expected a value");
        return;
    }
  }
}

void MapWhere(Mapping& mapping) {
  if (!mapping.Accept(Symbol::Where)) return;
  mapping.Put("WHERE");
  MapExpression(mapping);
}

}  // namespace cordboard::workbench
