#include "workbench/dialect/Tokenizer.h"

#include <algorithm>
#include <array>
#include <string>

#include "workbench/dialect/DialectError.h"
#include "workbench/text/Names.h"

namespace cordboard::workbench {
namespace {

// The words of the grammar, in the order of their symbols.
constexpr std::array<std::string_view, 35> words = {
    "AND",    "AS",    "ASC",   "BETWEEN", "BY",     "DELETE", "DESC", "DISTINCT", "EXISTS", "FALSE", "FROM", "GROUP",
    "HAVING", "IN",    "INNER", "INSERT",  "INTO",   "IS",     "JOIN", "LEFT",     "LIKE",   "NOT",   "NULL", "ON",
    "OR",     "ORDER", "OUTER", "RIGHT",   "SELECT", "SET",    "TRUE", "UPDATE",   "VALUES", "WHERE", "YES"};
static_assert(std::is_sorted(words.begin(), words.end()));
static_assert(static_cast<std::size_t>(Symbol::Yes) - static_cast<std::size_t>(Symbol::And) + 1 == words.size());

// Where the words with each letter from A to Z begin.
constexpr auto beginnings = [] {
  std::array<const std::string_view*, 'Z' - 'A' + 1> first{};
  for (std::size_t letter = 0; letter < first.size(); ++letter)
    first[letter] =
        std::ranges::lower_bound(words, std::string_view(std::array{static_cast<char>('A' + letter)}.data(), 1));
  return first;
}();

constexpr bool IsDigit(char c) { return c >= '0' && c <= '9'; }
constexpr bool IsLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_'; }

// A table, since every rule's statement is looked through letter by letter.
constexpr auto wordCharacters = [] {
  std::array<bool, 256> inWords{};
  for (char c = '0'; c <= 'z'; ++c) inWords[static_cast<unsigned char>(c)] = IsDigit(c) || IsLetter(c);
  return inWords;
}();
bool IsInWords(char c) { return wordCharacters[static_cast<unsigned char>(c)]; }

bool IsWhiteSpace(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }
char Capital(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

Symbol SymbolOf(std::string_view word) {
  const char first = Capital(word.front());
  if (first < 'A' || first > 'Z') return Symbol::Name;
  for (auto each = beginnings[static_cast<std::size_t>(first - 'A')]; each != words.end() && each->front() == first;
       ++each) {
    if (each->size() == word.size() && SameName(*each, word))
      return static_cast<Symbol>(static_cast<std::ptrdiff_t>(Symbol::And) + (each - words.begin()));
  }
  return Symbol::Name;
}

}  // namespace

bool BeginsWord(std::string_view statement, std::size_t place) { return IsLetter(statement[place]); }

bool BeginsNumber(std::string_view statement, std::size_t place) {
  if (statement[place] == '-') ++place;
  return place < statement.size() && IsDigit(statement[place]);
}

std::size_t EndOfWord(std::string_view statement, std::size_t place) {
  while (place < statement.size() && IsInWords(statement[place])) ++place;
  return place;
}

std::size_t EndOfNumber(std::string_view statement, std::size_t place) {
  std::size_t end = place + 1;
  const auto digits = [&] {
    while (end < statement.size() && IsDigit(statement[end])) ++end;
  };
  const auto at = [&](std::size_t there, auto is) { return there < statement.size() && is(statement[there]); };
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
  return end;
}

std::size_t EndOfText(std::string_view statement, std::size_t place) {
  for (std::size_t end = place + 1;; end += 2) {
    end = statement.find('\'', end);
    if (end == statement.npos) return end;
    if (end + 1 == statement.size() || statement[end + 1] != '\'') return end + 1;
  }
}

std::size_t EndOfBrackets(std::string_view statement, std::size_t place) {
  const std::size_t end = statement.find(']', place);
  return end == statement.npos ? end : end + 1;
}

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
  if (BeginsWord(statement_, position_)) return ReadWord();
  if (BeginsNumber(statement_, position_)) return ReadNumber();
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
  const std::size_t end = EndOfText(statement_, start);
  if (end == statement_.npos) Refuse("the quote of this text is not closed", start);
  position_ = end;
  return {Symbol::Text, statement_.substr(start + 1, end - start - 2), start};
}

Token Tokenizer::ReadBracketedName() {
  const std::size_t start = position_;
  const std::size_t end = EndOfBrackets(statement_, start);
  if (end == statement_.npos) Refuse("the bracket of this name is not closed", start);
  if (end == start + 2) Refuse("a name stands between square brackets", start);
  position_ = end;
  return {Symbol::Name, statement_.substr(start + 1, end - start - 2), start};
}

Token Tokenizer::ReadNumber() {
  const std::size_t end = EndOfNumber(statement_, position_);
  if (end < statement_.size() && BeginsWord(statement_, end)) Refuse("a number runs into a word", position_);
  return Take(Symbol::Number, end - position_);
}

Token Tokenizer::ReadWord() {
  const std::string_view word = statement_.substr(position_, EndOfWord(statement_, position_) - position_);
  return Take(SymbolOf(word), word.size());
}

}  // namespace cordboard::workbench
