// Cuts a statement into tokens, one at a time and with one token in view after the current one.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace cordboard::workbench {

// What a token is. Each word of the grammar is a symbol of its own; any other word is a Name.
// clang-format off
enum class Symbol : std::uint8_t {
  End, Name, Text, Number, Open, Close, Comma, Dot, Star, Compare,
  And, As, Asc, Between, By, Delete, Desc, Distinct, Exists, False, From, Group, Having, In, Inner, Insert, Into, Is,
  Join, Left, Like, Not, Null, On, Or, Order, Outer, Right, Select, Set, True, Update, Values, Where, Yes  // A to Z
};
// clang-format on

struct Token {
  Symbol symbol = Symbol::End;
  // A name without its brackets, a literal text without its quotes (a quote inside still doubled), a number with its
  // sign, the characters themselves for all others.
  std::string_view text;
  std::size_t place = 0;  // where it begins in the statement
};

// What begins at a place of a statement, and where it ends: a text and a name in brackets that nothing closes, at npos.
bool BeginsWord(std::string_view statement, std::size_t place);
bool BeginsNumber(std::string_view statement, std::size_t place);
std::size_t EndOfWord(std::string_view statement, std::size_t place);
std::size_t EndOfNumber(std::string_view statement, std::size_t place);
std::size_t EndOfText(std::string_view statement, std::size_t place);
std::size_t EndOfBrackets(std::string_view statement, std::size_t place);

class Tokenizer {
 public:
  // The statement must outlive the tokenizer and its tokens.
  explicit Tokenizer(std::string_view statement);

  const Token& current() const { return current_; }
  const Token& next() const { return next_; }
  // Goes on to the next token; after the last one stands End, as often as asked.
  void Advance();

  [[noreturn]] void Refuse(std::string_view message, std::size_t place) const;

 private:
  Token Read();
  Token Take(Symbol symbol, std::size_t length);
  Token ReadText();
  Token ReadBracketedName();
  Token ReadNumber();
  Token ReadWord();

  std::string_view statement_;
  std::size_t position_ = 0;
  Token current_;
  Token next_;
};

}  // namespace cordboard::workbench
