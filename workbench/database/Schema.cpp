#include "workbench/database/Schema.h"

#include <algorithm>

#include "workbench/data/DataFile.h"
#include "workbench/text/Names.h"
#include "workbench/text/Separated.h"

namespace cordboard::workbench {
namespace {

template <typename Named>
const Named* FindNamed(const std::vector<Named>& all, std::string_view name) {
  const auto found = std::find_if(all.begin(), all.end(), [&](const Named& one) { return SameName(one.name, name); });
  return found == all.end() ? nullptr : &*found;
}

// A name goes into square brackets as it is.
std::string ReadName(const DataItem& item) {
  std::string name = item.Text();
  if (name.empty() || name.find_first_of(std::string_view("[]\0", 3)) != name.npos) item.Fail("the name is not valid");
  if (IsRowPlace(name)) item.Fail("no column is named " + name);
  return name;
}

void ReadColumns(const DataItem& names, bool further, Table& table) {
  for (const DataItem& item : names.List()) {
    const std::string name = ReadName(item);
    if (table.Find(name)) item.Fail("the column " + name + " stands there twice");
    table.columns.push_back({.name = name, .further = further});
  }
}

Column& ColumnOf(Table& table, const std::string& name, const DataItem& item) {
  for (Column& column : table.columns) {
    if (SameName(column.name, name)) return column;
  }
  item.Fail("there is no column " + name);
}

Column::Type ReadType(const DataItem& item) {
  const std::string type = item.Text();
  if (type == "whole") return Column::Type::Whole;
  if (type == "truth") return Column::Type::Truth;
  item.Fail("a type is \"whole\" or \"truth\", and every other column is text");
}

std::vector<std::vector<std::string>> ReadIndexes(const DataItem& indexes, Table& table) {
  std::vector<std::vector<std::string>> read;
  for (const DataItem& index : indexes.List()) {
    std::vector<std::string>& columns = read.emplace_back();
    for (const DataItem& item : index.List()) columns.push_back(ColumnOf(table, item.Text(), item).name);
    if (columns.empty()) index.Fail("an index has no columns");
  }
  return read;
}

Kinds ReadKinds(const DataItem& item, Table& table) {
  return item.Object([&](Fields& fields) {
    const auto column = [&](const DataItem& name) { return ColumnOf(table, name.Text(), name).name; };
    Kinds kinds{.of = column(fields.At("of")),
                .ending = fields.Get<std::string>("ending"),
                .column = column(fields.At("column")),
                .mark = column(fields.At("mark"))};
    for (const DataItem& name : fields.At("by").List()) kinds.by.push_back(name.Text());
    for (const DataItem& name : fields.At("order").List()) kinds.order.push_back(column(name));
    return kinds;
  });
}

Table ReadTable(Fields& fields) {
  Table table{.name = ReadName(fields.At("name"))};
  table.command = fields.Get<std::string>("command", table.name);
  const DataItem columns = fields.At("columns");
  ReadColumns(columns, false, table);
  if (table.columns.empty()) columns.Fail("the table has no columns");
  if (const auto further = fields.Find("further")) ReadColumns(*further, true, table);
  if (const auto types = fields.Find("types")) {
    for (const auto& [name, item] : types->Entries()) ColumnOf(table, name, item).type = ReadType(item);
  }
  if (const auto unique = fields.Find("unique")) table.unique = ReadIndexes(*unique, table);
  if (const auto indexes = fields.Find("indexes")) table.indexes = ReadIndexes(*indexes, table);
  if (const auto patterns = fields.Find("patterns")) {
    for (const DataItem& item : patterns->List()) table.patterns.push_back(ColumnOf(table, item.Text(), item).name);
  }
  if (const auto kinds = fields.Find("kinds")) table.kinds = ReadKinds(*kinds, table);
  table.note = fields.Get<std::string>("note", "");
  return table;
}

// The view has the columns of its tables, in the order in which they first stand there.
View ReadView(Fields& fields, const DatabaseSchema& database) {
  View view{.table = {.name = ReadName(fields.At("name"))}, .of = {}};
  for (const DataItem& item : fields.At("of").List()) {
    const Table* table = database.Find(item.Text());
    if (table == nullptr) item.Fail("there is no table " + item.Text() + " before it");
    view.of.push_back(table->name);
    for (const Column& column : table->columns) {
      if (!column.further && view.table.Find(column.name) == nullptr) view.table.columns.push_back(column);
    }
  }
  view.table.note = fields.Get<std::string>("note", "");
  return view;
}

const View* FindView(const std::vector<View>& views, std::string_view name) {
  const auto found = std::ranges::find_if(views, [&](const View& view) { return SameName(view.table.name, name); });
  return found == views.end() ? nullptr : &*found;
}

std::string_view DeclaredType(Column::Type type) {
  switch (type) {
    case Column::Type::Whole: return "INTEGER";
    case Column::Type::Truth: return "BOOLEAN";
    case Column::Type::Text: break;
  }
  return "TEXT";
}

std::string CreateTable(const DatabaseSchema& database, const Table& table) {
  const auto declared = [](const Column& column) {
    return "[" + column.name + "] " + std::string(DeclaredType(column.type));
  };
  return "CREATE TABLE " + database.Stored(table.name) + " (" + Separated(table.columns, ", ", declared) + ")";
}

std::string IndexName(const DatabaseSchema& database, const Table& table, const std::vector<std::string>& columns) {
  return database.prefix + table.name + " by " + Separated(columns, " ");
}

std::string PatternIndexName(const DatabaseSchema& database, const Table& table, const std::string& column) {
  return database.prefix + table.name + " by pattern of " + column;
}

std::string CreateIndex(const std::string& kind, const DatabaseSchema& database, const Table& table,
                        const std::vector<std::string>& columns) {
  return kind + " [" + IndexName(database, table, columns) + "] ON " + database.Stored(table.name) + " (" +
         ColumnList(columns) + ")";
}

// LIKE takes no notice of capitals, and uses only an index that takes none either.
std::string CreatePatternIndex(const DatabaseSchema& database, const Table& table, const std::string& column) {
  const std::string name = PatternIndexName(database, table, column);
  return "CREATE INDEX [" + name + "] ON " + database.Stored(table.name) + " ([" + column + "] COLLATE NOCASE)";
}

}  // namespace

const Column* Table::Find(std::string_view column) const { return FindNamed(columns, column); }

const Table* DatabaseSchema::Find(std::string_view table) const {
  if (const Table* found = FindNamed(tables, table)) return found;
  const View* view = FindView(views, table);
  return view == nullptr ? nullptr : &view->table;
}

const DatabaseSchema& Schema::Database(std::string_view name) const {
  if (const DatabaseSchema* database = FindNamed(databases, name)) return *database;
  throw DataError("schema.json", "there is no database " + std::string(name));
}

Schema ReadSchema(const DataItem& file) {
  Schema schema;
  for (const auto& [name, tables] : file.Entries()) {
    DatabaseSchema& database = schema.databases.emplace_back(
        DatabaseSchema{.name = name, .prefix = name == "site" ? "site." : "", .tables = {}, .views = {}});
    for (const DataItem& item : tables.List()) {
      item.Object([&](Fields& fields) {
        const bool isView = fields.Find("of").has_value();
        View view = isView ? ReadView(fields, database) : View{.table = ReadTable(fields), .of = {}};
        if (database.Find(view.table.name)) item.Fail("the table " + view.table.name + " stands there twice");
        isView ? database.views.push_back(std::move(view)) : database.tables.push_back(std::move(view.table));
      });
    }
  }
  return schema;
}

const Schema& ShippedSchema() {
  static const Schema schema = ReadSchema(ReadResource("schema.json"));
  return schema;
}

bool DatabaseSchema::IsView(std::string_view table) const { return FindView(views, table) != nullptr; }

std::string DatabaseSchema::RowsOf(std::string_view table) const {
  const View* view = FindView(views, table);
  if (view == nullptr) return Stored(table);
  const auto rows = [&](const std::string& each) {
    const auto shown = [own = Find(each)](const Column& column) {
      const Column* found = own->Find(column.name);
      return (found == nullptr || found->further ? "NULL AS [" : "[") + column.name + "]";
    };
    return "SELECT " + Separated(view->table.columns, ", ", shown) + " FROM " + Stored(each);
  };
  return "(" + Separated(view->of, " UNION ALL ", rows) + ")";
}

std::string ColumnList(const std::vector<std::string>& columns) { return "[" + Separated(columns, "], [") + "]"; }

std::vector<std::string> CreateStatements(const DatabaseSchema& database) {
  std::vector<std::string> statements;
  for (const Table& table : database.tables) {
    statements.push_back(CreateTable(database, table));
    for (const auto& index : table.unique)
      statements.push_back(CreateIndex("CREATE UNIQUE INDEX", database, table, index));
    for (const auto& index : table.indexes) statements.push_back(CreateIndex("CREATE INDEX", database, table, index));
    for (const auto& column : table.patterns) statements.push_back(CreatePatternIndex(database, table, column));
  }
  return statements;
}

std::vector<std::string> IndexNames(const DatabaseSchema& database) {
  std::vector<std::string> names;
  for (const Table& table : database.tables) {
    for (const auto& index : table.unique) names.push_back(IndexName(database, table, index));
    for (const auto& index : table.indexes) names.push_back(IndexName(database, table, index));
    for (const auto& column : table.patterns) names.push_back(PatternIndexName(database, table, column));
  }
  return names;
}

}  // namespace cordboard::workbench
