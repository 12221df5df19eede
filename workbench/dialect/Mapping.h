// One statement on its way through the mapper: the tokens that are left, and what has been put together so far.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "workbench/dialect/Mapper.h"
#include "workbench/dialect/Tokenizer.h"

namespace cordboard::workbench {

// What the mapper has to know of a SELECT when it comes to the order of its rows.
struct Query {
  std::vector<std::string_view> tables;  // by the names under which they are known, in order of appearance
  bool aggregate = false;                // one of COUNT, MIN, MAX, SUM, AVG occurs
};

struct Mapping {
  Mapping(std::string_view statement, std::string_view prefix) : tokens(statement), tablePrefix(prefix) {}

  Tokenizer tokens;
  std::string_view tablePrefix;
  MappedStatement result;
  Query* query = nullptr;  // the innermost SELECT, if there is one
  int depth = 0;

  bool At(Symbol symbol) const { return tokens.current().symbol == symbol; }
  bool AtNext(Symbol symbol) const { return tokens.next().symbol == symbol; }
  // Goes past the symbol if it stands here.
  bool Accept(Symbol symbol);
  // The same for a comma, which is put as well.
  bool AcceptComma();
  // Goes past the symbol, or refuses the statement: "expected FROM".
  void Expect(Symbol symbol, std::string_view name);
  // Refuses the statement at the current token.
  [[noreturn]] void Refuse(std::string_view message) const { tokens.Refuse(message, tokens.current().place); }

  // Adds to the text, with a blank in front except after an opening bracket and a dot.
  void Put(std::string_view text);
  // Adds to the text just after what is there.
  void Join(std::string_view text) { result.sql += text; }
  // Puts the name that stands here, in the square brackets that keep SQLite from taking it for anything else, and goes
  // past it. `what` is for the message where no name stands here.
  std::string_view PutName(std::string_view what);
  // The same for a table, with the prefix: it stays known by the name that stands here.
  std::string_view PutTable();

 private:
  std::string_view TakeName(std::string_view what);
};

// Nesting, for as long as it lives; refuses what is nested too deeply.
class Nesting {
 public:
  explicit Nesting(Mapping& mapping);
  ~Nesting() { --mapping_.depth; }
  Nesting(const Nesting&) = delete;
  Nesting& operator=(const Nesting&) = delete;

 private:
  Mapping& mapping_;
};

// The parts of a statement, each from the current token to the first one that does not belong to it.
void MapSelect(Mapping& mapping);      // the whole statement
void MapSubSelect(Mapping& mapping);   // a SELECT within one, without its brackets
void MapFrom(Mapping& mapping);        // what stands after FROM
void MapWhere(Mapping& mapping);       // WHERE and its condition, if there is one
void MapExpression(Mapping& mapping);  // one expression: a comma outside of its brackets ends it
void MapOperand(Mapping& mapping);     // one value within it
// An expression or a sub-select in brackets; several expressions where a list may stand.
void MapBrackets(Mapping& mapping, bool list);

// The text of a literal, without the second of each two quotes.
std::string TextOf(std::string_view token);
// The number that a literal is; nothing where it is out of range.
std::optional<double> NumberOf(std::string_view token);

}  // namespace cordboard::workbench
