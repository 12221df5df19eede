// Expressions go through token by token: SQLite reads them as the dialect does, once names are in brackets and literals
// are parameters. What is looked at is where a value stands and where an operator, so that nothing gets past that
// SQLite would take for more than the dialect has.
#include <string>

#include "workbench/dialect/Like.h"
#include "workbench/dialect/Mapping.h"

namespace cordboard::workbench {
namespace {

class Expression {
 public:
  explicit Expression(Mapping& mapping) : mapping_(mapping) {}

  void Map() {
    while (Part()) continue;
    if (!complete_) mapping_.Refuse("expected a value");
  }

 private:
  // Maps a value or an operator; false where neither stands here.
  bool Part() {
    // After a value, NOT belongs to the operator that follows.
    const bool negated = complete_ && mapping_.Accept(Symbol::Not);
    const Symbol symbol = mapping_.tokens.current().symbol;
    if (negated && symbol != Symbol::In && symbol != Symbol::Like && symbol != Symbol::Between)
      mapping_.Refuse("expected IN, LIKE or BETWEEN after NOT");
    switch (symbol) {
      case Symbol::Name:
      case Symbol::Text:
      case Symbol::Number:
      case Symbol::True:
      case Symbol::False:
      case Symbol::Yes:
      case Symbol::Null:
      case Symbol::Open: Operand(); return true;
      case Symbol::Compare: Operator(mapping_.tokens.current().text); return true;
      case Symbol::And: Operator("AND"); return true;
      case Symbol::Or: Operator("OR"); return true;
      case Symbol::Is: Operator("IS"); return true;
      case Symbol::Not: Operator("NOT"); return true;
      case Symbol::Between: Operator(negated ? "NOT BETWEEN" : "BETWEEN"); return true;
      case Symbol::In: In(negated); return true;
      case Symbol::Like: Like(negated); return true;
      case Symbol::Exists: Exists(); return true;
      default: return false;
    }
  }

  void Operand() {
    NeedOperator();
    operandText_ = mapping_.result.sql.size();
    operandParameter_ = mapping_.result.parameters.size();
    MapOperand(mapping_);
    complete_ = true;
  }

  void Operator(std::string_view text) {
    mapping_.Put(text);
    mapping_.tokens.Advance();
    complete_ = false;
  }

  void In(bool negated) {
    NeedValue("IN");
    Operator(negated ? "NOT IN" : "IN");
    MapBrackets(mapping_, true);
    complete_ = true;
  }

  void Exists() {
    NeedOperator();
    Operator("EXISTS");
    MapBrackets(mapping_, false);
    complete_ = true;
  }

  void Like(bool negated) {
    NeedValue("LIKE");
    mapping_.tokens.Advance();
    complete_ = mapping_.At(Symbol::Text) && HoldsCharacterClass(mapping_.tokens.current().text);
    if (complete_) {
      LikeClass(negated);
    } else {
      mapping_.Put(negated ? "NOT LIKE" : "LIKE");
    }
  }

  // A pattern with a character class becomes a call, with the value to the left of LIKE as its second argument; SQLite
  // knows no such classes.
  void LikeClass(bool negated) {
    MappedStatement& result = mapping_.result;
    const std::string left = result.sql.substr(operandText_);
    result.sql.resize(operandText_);
    mapping_.Put(negated ? "NOT dialect_like(?," : "dialect_like(?,");
    mapping_.Join(left + ")");
    result.parameters.insert(result.parameters.begin() + static_cast<std::ptrdiff_t>(operandParameter_),
                             TextOf(mapping_.tokens.current().text));
    mapping_.tokens.Advance();
  }

  void NeedValue(const std::string& word) const {
    if (!complete_) mapping_.Refuse("expected a value before " + word);
  }

  void NeedOperator() const {
    if (complete_) mapping_.Refuse("expected an operator or the end before this");
  }

  Mapping& mapping_;
  bool complete_ = false;  // whether the last token ended a value, so that an operator or the end has to follow
  // Where the last operand began, in the text and among the parameters.
  std::size_t operandText_ = 0;
  std::size_t operandParameter_ = 0;
};

}  // namespace

void MapExpression(Mapping& mapping) { Expression(mapping).Map(); }

void MapWhere(Mapping& mapping) {
  if (!mapping.Accept(Symbol::Where)) return;
  mapping.Put("WHERE");
  MapExpression(mapping);
}

}  // namespace cordboard::workbench
