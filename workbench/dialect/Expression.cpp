// Expressions go through token by token: SQLite reads them as the dialect does, once names are in brackets and literals
// are parameters. What is looked at is where a value stands and where an operator, so that nothing gets past that
// SQLite would take for more than the dialect has.
#include <string>

#include "workbench/dialect/Like.h"
#include "workbench/dialect/Mapping.h"

namespace cordboard::workbench {
namespace {

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
    const bool negated = symbol == Symbol::Not && complete;  // after a value, NOT belongs to the operator that follows
    if (negated) {
      mapping.tokens.Advance();
      symbol = mapping.tokens.current().symbol;
      if (symbol != Symbol::In && symbol != Symbol::Like && symbol != Symbol::Between) {
        mapping.Refuse("expected IN, LIKE or BETWEEN after NOT");
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
        MapOperand(mapping);
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
        MapBrackets(mapping, true);
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
        MapBrackets(mapping, false);
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
