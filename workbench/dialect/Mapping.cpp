#include "workbench/dialect/Mapping.h"

#include <algorithm>

namespace cordboard::workbench {
namespace {

char Small(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

// SQLite's names for the place of a row in its table, which no table has as a column.
bool IsRowPlace(std::string_view name) {
  return SameName(name, "rowid") || SameName(name, "oid") || SameName(name, "_rowid_");
}

}  // namespace

bool SameName(std::string_view left, std::string_view right) {
  return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                    [](char a, char b) { return Small(a) == Small(b); });
}

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

std::string_view Mapping::PutName(std::string_view what) {
  if (!At(Symbol::Name)) Refuse("expected " + std::string(what));
  const std::string_view name = tokens.current().text;
  if (IsRowPlace(name)) Refuse("there is no such column");
  Put("[");
  Join(name);
  Join("]");
  tokens.Advance();
  return name;
}

Nesting::Nesting(Mapping& mapping) : mapping_(mapping) {
  if (mapping.depth >= kDeepestNesting) mapping.Refuse("brackets are nested too deeply");
  ++mapping.depth;
}

}  // namespace cordboard::workbench
