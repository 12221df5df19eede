#include "workbench/dialect/Mapper.h"

#include <map>
#include <unordered_map>
#include <utility>

#include "workbench/dialect/Mapping.h"
#include "workbench/dialect/Shape.h"
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

// A column to set may stand after the name of the table, which SQLite does not take there. Gives the column.
std::string_view Assignment(Mapping& mapping, std::string_view table) {
  if (mapping.AtNext(Symbol::Dot)) {
    if (!SameName(mapping.tokens.current().text, table)) mapping.Refuse("this is not the table to update");
    mapping.Expect(Symbol::Name, "the table to update");
    mapping.Expect(Symbol::Dot, ".");
  }
  const std::string_view column = mapping.PutName("a column");
  if (mapping.tokens.current().text != "=") mapping.Refuse("expected =");
  mapping.Expect(Symbol::Compare, "=");
  mapping.Put("=");
  MapExpression(mapping);
  return column;
}

// Whether one truth value is set, and nothing else.
bool IsMark(const MappedStatement& update, std::string_view column) {
  std::string set = " SET [";
  set.append(column).append("] = ?");
  return update.sql.ends_with(set) && update.parameters.front().IsTruth();
}

// A mark that stands already is not written once more: the rows that are passed over hold what would be written to
// them. Said by what the mark is not, so that an index of the marks finds the rows.
void MapWhereOtherMark(Mapping& mapping, std::string_view column) {
  MappedStatement& result = mapping.result;
  const Value mark = result.parameters.front();
  std::string name = "[";
  name.append(column).append("]");
  if (mapping.Accept(Symbol::Where)) {
    mapping.Put("WHERE (");
    MapExpression(mapping);
    mapping.Join(") AND");
  } else {
    mapping.Put("WHERE");
  }
  mapping.Put("(" + name + " IS NULL OR " + name + " < ? OR " + name + " > ?)");
  result.parameters.insert(result.parameters.end(), 2, mark);
}

void Update(Mapping& mapping) {
  mapping.tokens.Advance();
  mapping.Put("UPDATE");
  const std::string_view table = mapping.PutTable();
  mapping.Expect(Symbol::Set, "SET");
  mapping.Put("SET");
  std::string_view column;
  do {
    column = Assignment(mapping, table);
  } while (mapping.AcceptComma());
  IsMark(mapping.result, column) ? MapWhereOtherMark(mapping, column) : MapWhere(mapping);
}

void Delete(Mapping& mapping) {
  mapping.tokens.Advance();
  mapping.Accept(Symbol::Star);
  mapping.Expect(Symbol::From, "FROM");
  mapping.Put("DELETE FROM");
  mapping.PutTable();
  MapWhere(mapping);
}

// Literals become parameters in their order, beside truth values, which are words.
MappedStatement WithLiterals(MappedStatement mapped, std::vector<Value> literals) {
  auto literal = literals.begin();
  for (Value& parameter : mapped.parameters) {
    if (!parameter.IsTruth()) parameter = std::move(*literal++);
  }
  return mapped;
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

MappedStatement MapAgain(std::string_view statement, const std::string& tablePrefix) {
  constexpr std::size_t most = 500;
  static std::map<std::string, std::unordered_map<std::string, MappedStatement>> known;  // by prefix and shape
  if (statement.size() > longestStatement) return Map(statement, tablePrefix);
  std::optional<Shape> shape = ShapeOf(statement);
  if (!shape) return Map(statement, tablePrefix);
  auto& mapped = known[tablePrefix];
  auto found = mapped.find(shape->text);
  if (found == mapped.end()) {
    MappedStatement anew = Map(statement, tablePrefix);
    if (mapped.size() >= most) mapped.clear();
    found = mapped.emplace(std::move(shape->text), std::move(anew)).first;
  }
  return WithLiterals(found->second, std::move(shape->literals));
}

}  // namespace cordboard::workbench
