#include "workbench/dialect/Mapping.h"

#include "workbench/text/Names.h"

namespace cordboard::workbench {
bool Mapping::Accept(Symbol symbol) {
  if (!At(symbol)) return false;
  tokens.Advance();
  return true;
}

bool Mapping::AcceptComma() {
  if (!Accept(Symbol::Comma)) return false;
  Join(",");
  return true;
}

void Mapping::Expect(Symbol symbol, std::string_view name) {
  if (!Accept(symbol)) Refuse("expected " + std::string(name));
}

void Mapping::Put(std::string_view text) {
  std::string& sql = result.sql;
  if (!sql.empty() && sql.back() != '(' && sql.back() != '.') sql += ' ';
  sql += text;
}

std::string_view Mapping::TakeName(std::string_view what) {
  if (!At(Symbol::Name)) Refuse("expected " + std::string(what));
  const std::string_view name = tokens.current().text;
  if (IsRowPlace(name)) Refuse("there is no such column");
  tokens.Advance();
  return name;
}

std::string_view Mapping::PutName(std::string_view what) {
  const std::string_view name = TakeName(what);
  Put("[");
  Join(name);
  Join("]");
  return name;
}

std::string_view Mapping::PutTable() {
  const std::string_view name = TakeName("the name of a table");
  Put("[");
  Join(tablePrefix);
  Join(name);
  Join("]");
  if (!tablePrefix.empty() && !At(Symbol::As)) Join(" AS [" + std::string(name) + "]");
  return name;
}

Nesting::Nesting(Mapping& mapping) : mapping_(mapping) {
  if (mapping.depth >= deepestNesting) mapping.Refuse("brackets are nested too deeply");
  ++mapping.depth;
}

}  // namespace cordboard::workbench
