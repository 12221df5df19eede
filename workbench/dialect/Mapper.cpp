#include "workbench/dialect/Mapper.h"

#include <utility>

#include "workbench/dialect/Mapping.h"
#include "workbench/text/Names.h"

namespace cordboard::workbench {
namespace {

void Values(Mapping& mapping) {
  mapping.Expect(Symbol::Values, "VALUES");
  mapping.Expect(Symbol::Open, "(");
  mapping.Put("VALUES (");
  do {
    MapExpression(mapping);
  } while (mapping.AcceptComma());
  mapping.Expect(Symbol::Close, ")");
  mapping.Join(")");
}

void Insert(Mapping& mapping) {
  mapping.tokens.Advance();
  mapping.Expect(Symbol::Into, "INTO after INSERT");
  mapping.Put("INSERT INTO");
  mapping.PutTable();
  if (mapping.Accept(Symbol::Open)) {
    mapping.Put("(");
    do {
      mapping.PutName("a column");
    } while (mapping.AcceptComma());
    mapping.Expect(Symbol::Close, ")");
    mapping.Join(")");
  }
  Values(mapping);
}

// A column to set may stand after the name of the table, which SQLite does not take there.
void Assignment(Mapping& mapping, std::string_view table) {
  if (mapping.AtNext(Symbol::Dot)) {
    if (!SameName(mapping.tokens.current().text, table)) mapping.Refuse("this is not the table to update");
    mapping.Expect(Symbol::Name, "the table to update");
    mapping.Expect(Symbol::Dot, ".");
  }
  mapping.PutName("a column");
  if (mapping.tokens.current().text != "=") mapping.Refuse("expected =");
  mapping.Expect(Symbol::Compare, "=");
  mapping.Put("=");
  MapExpression(mapping);
}

void Update(Mapping& mapping) {
  mapping.tokens.Advance();
  mapping.Put("UPDATE");
  const std::string_view table = mapping.PutTable();
  mapping.Expect(Symbol::Set, "SET");
  mapping.Put("SET");
  do {
    Assignment(mapping, table);
  } while (mapping.AcceptComma());
  MapWhere(mapping);
}

void Delete(Mapping& mapping) {
  mapping.tokens.Advance();
  mapping.Accept(Symbol::Star);
  mapping.Expect(Symbol::From, "FROM");
  mapping.Put("DELETE FROM");
  mapping.PutTable();
  MapWhere(mapping);
}

}  // namespace

MappedStatement Map(std::string_view statement, std::string_view tablePrefix) {
  if (statement.size() > longestStatement) throw DialectError("the statement is too long", statement, 0);
  Mapping mapping(statement, tablePrefix);
  mapping.result.sql.reserve(statement.size() + statement.size() / 2);
  mapping.result.kind = mapping.At(Symbol::Select) ? MappedStatement::Kind::Read : MappedStatement::Kind::Write;
  switch (mapping.tokens.current().symbol) {
    case Symbol::Select: MapSelect(mapping); break;
    case Symbol::Insert: Insert(mapping); break;
    case Symbol::Update: Update(mapping); break;
    case Symbol::Delete: Delete(mapping); break;
    default: mapping.Refuse("a statement begins with SELECT, INSERT, UPDATE or DELETE");
  }
  if (!mapping.At(Symbol::End)) mapping.Refuse("expected the end of the statement");
  return std::move(mapping.result);
}

}  // namespace cordboard::workbench
