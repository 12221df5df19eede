#include "workbench/dialect/Tokenizer.h"

#include <algorithm>
#include <array>
#include <string>

#include "workbench/dialect/DialectError.h"

namespace cordboard::workbench {
namespace {

// The words of the grammar, in the order of their symbols.
constexpr std::array<std::string_view, 35> words = {
    "AND",    "AS",    "ASC",   "BETWEEN", "BY",     "DELETE", "DESC", "DISTINCT", "EXISTS", "FALSE", "FROM", "GROUP",
    "HAVING", "IN",    "INNER", "INSERT",  "INTO",   "IS",     "JOIN", "LEFT",     "LIKE",   "NOT",   "NULL", "ON",
    "OR",     "ORDER", "OUTER", "RIGHT",   "SELECT", "SET",    "TRUE", "UPDATE",   "VALUES", "WHERE", "YES"};
constexpr std::size_t longestWord = 8;
static_assert(std::is_sorted(words.begin(), words.end()));
static_assert(static_cast<std::size_t>(Symbol::Yes) - static_cast<std::size_t>(Symbol::And) + 1 == words.size());

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_'; }
bool IsWhiteSpace(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }
char Capital(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

Symbol SymbolOf(std::string_view word) {
  if (word.size() > longestWord) return Symbol::Name;
  std::array<char, longestWord> letters;
  std::transform(word.begin(), word.end(), letters.begin(), Capital);
  const std::string_view capitals(letters.data(), word.size());
  const auto found = std::lower_bound(words.begin(), words.end(), capitals);
  if (found == words.end() || *found != capitals) return Symbol::Name;
  return static_cast<Symbol>(static_cast<std::ptrdiff_t>(Symbol::And) + (found - words.begin()));
}

}  // namespace

Tokenizer::Tokenizer(std::string_view statement) : statement_(statement) {
  if (const auto zero = statement.find('\0'); zero != statement.npos) Refuse("a statement holds no zero byte", zero);
  Advance();
  Advance();
}

void Tokenizer::Advance() {
  current_ = next_;
  next_ = Read();
}

void Tokenizer::Refuse(std::string_view message, std::size_t place) const {
  throw DialectError(message, statement_, place);
}

Token Tokenizer::Read() {
  while (position_ < statement_.size() && IsWhiteSpace(statement_[position_])) ++position_;
  if (position_ == statement_.size()) return Take(Symbol::End, 0);
  const char first = statement_[position_];
  const char second = position_ + 1 < statement_.size() ? statement_[position_ + 1] : '\0';
  if (IsLetter(first)) return ReadWord();
  if (IsDigit(first) || (first == '-' && IsDigit(second))) return ReadNumber();
  switch (first) {
    case '\'': return ReadText();
    case '[': return ReadBracketedName();
    case '(': return Take(Symbol::Open, 1);
    case ')': return Take(Symbol::Close, 1);
    case ',': return Take(Symbol::Comma, 1);
    case '.': return Take(Symbol::Dot, 1);
    case '*': return Take(Symbol::Star, 1);
    case '=': return Take(Symbol::Compare, 1);
    case '<': return Take(Symbol::Compare, second == '=' || second == '>' ? 2 : 1);
    case '>': return Take(Symbol::Compare, second == '=' ? 2 : 1);
    case ';': Refuse("a call takes one statement and no semicolon", position_);
    case '"': Refuse("a text stands in single quotes and a name in square brackets, not in double quotes", position_);
    default: break;
  }
  if ((first == '-' && second == '-') || (first == '/' && second == '*')) {
    Refuse("a statement holds no comment", position_);
  }
  Refuse("this character has no meaning in a statement", position_);
}

Token Tokenizer::Take(Symbol symbol, std::size_t length) {
  const Token token{symbol, statement_.substr(position_, length), position_};
  position_ += length;
  return token;
}

Token Tokenizer::ReadText() {
  const std::size_t start = position_;
  std::size_t end = start + 1;
  for (;; end += 2) {
    end = statement_.find('\'', end);
    if (end == statement_.npos) Refuse("the quote of this text is not closed", start);
    if (end + 1 == statement_.size() || statement_[end + 1] != '\'') break;
  }
  position_ = end + 1;
  return {Symbol::Text, statement_.substr(start + 1, end - start - 1), start};
}

Token Tokenizer::ReadBracketedName() {
  const std::size_t start = position_;
  const std::size_t end = statement_.find(']', start);
  if (end == statement_.npos) Refuse("the bracket of this name is not closed", start);
  if (end == start + 1) Refuse("a name stands between square brackets", start);
  position_ = end + 1;
  return {Symbol::Name, statement_.substr(start + 1, end - start - 1), start};
}

Token Tokenizer::ReadNumber() {
  std::size_t end = position_ + 1;
  const auto digits = [&] {
    while (end < statement_.size() && IsDigit(statement_[end])) ++end;
  };
  const auto at = [&](std::size_t place, auto is) { return place < statement_.size() && is(statement_[place]); };
  digits();
  if (at(end, [](char c) { return c == '.'; }) && at(end + 1, IsDigit)) {
    ++end;
    digits();
  }
  if (at(end, [](char c) { return c == 'E' || c == 'e'; })) {
    const std::size_t sign = at(end + 1, [](char c) { return c == '+' || c == '-'; }) ? 1 : 0;
    if (at(end + 1 + sign, IsDigit)) {
      end += 1 + sign;
      digits();
    }
  }
  if (at(end, IsLetter)) Refuse("a number runs into a word", position_);
  return Take(Symbol::Number, end - position_);
}

Token Tokenizer::ReadWord() {
  std::size_t end = position_ + 1;
  while (end < statement_.size() && (IsLetter(statement_[end]) || IsDigit(statement_[end]))) ++end;
  const std::string_view word = statement_.substr(position_, end - position_);
  return Take(SymbolOf(word), word.size());
}

}  // namespace cordboard::workbench
