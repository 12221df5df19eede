// The tables of the databases, read from data/schema.json.
//
// The file holds for each database ("dynamic", "static", "site") a list of tables:
//   {"name": "NANSI", "columns": ["CmdId", "NUMSE", "NUMTYP", "USED"],  in the order of an insert without names
//    "further": [],                             columns after these, which only some statement or the host names
//    "types": {"CmdId": "whole", "USED": "truth"},                       every other column is text
//    "command": "NANSI",                        whose records stand there, where it has another name
//    "unique": [],                              for tables alone that the host fills: no rule adds a row there
//    "indexes": [["NUMSE"], ["NUMTYP", "USED", "NUMSE"]],
//    "patterns": [],                            text columns that are found by how they begin, with LIKE
//    "kinds": {"of": "EQU", "column": "Kind", "by": ["Boards.BoardID", "Equipment.Individual", "LIMs.Location"],
//              "mark": "USED", "order": ["LIM", "Magazine", "Slot", "Individual"]},
//                                               of a pool, the kinds of its rows (struct Kinds)
//    "note": "..."}
// and after them views, each of which shows the rows of several tables as one:
//   {"name": "NIINI", "of": ["NIINI_DIR", "NIINI_GRP"]}                  with the columns of all, "further" ones apart
// The tables of "site", the templates, are stored in the exchange's file beside those of "dynamic", under names that
// begin with "site.". Names of tables and columns are the same in any capitals.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace cordboard::workbench {

class DataItem;

struct Column {
  // A text column keeps '007' as it is, a whole column makes 7 of it, a truth column holds true and false.
  enum class Type { Text, Whole, Truth };

  std::string name;
  Type type = Type::Text;
  bool further = false;
};

// A pool is a table that the host fills and of whose rows the rules take one and mark it. Those rows are of one kind
// that nothing tells apart but their place in the order and the mark: each has what `by` names in common, in its own
// table and in those to which its place leads.
struct Kinds {
  std::string of;                       // the column that names a row
  std::string ending;                   // the sign in that name behind which stands what the kind has in common
  std::string column;                   // the column that says its kind
  std::string mark;                     // the truth column that says whether it is taken
  std::vector<std::string> by = {};     // what makes the kind, as "table.column"
  std::vector<std::string> order = {};  // the columns by whose order rows are taken
};

struct Table {
  std::string name;
  std::string command = {};  // whose records stand there; of the name of the table itself there may be no command
  std::vector<Column> columns = {};
  std::vector<std::vector<std::string>> unique = {};   // what no two rows share, by the names of its columns
  std::vector<std::vector<std::string>> indexes = {};  // by the names of their columns
  std::vector<std::string> patterns = {};              // the columns that are found by how they begin
  std::optional<Kinds> kinds = {};                     // of a pool
  std::string note = {};

  const Column* Find(std::string_view column) const;  // null where there is none
};

// It stands in statements of the workbench alone, never in a database.
struct View {
  Table table;                  // its name and columns
  std::vector<std::string> of;  // the tables
};

struct DatabaseSchema {
  std::string name;
  std::string prefix;  // of the names under which its tables are stored
  std::vector<Table> tables;
  std::vector<View> views;

  const Table* Find(std::string_view table) const;  // a table or a view; null where there is none
  bool IsView(std::string_view table) const;
  // The stored name of a table, in brackets.
  std::string Stored(std::string_view table) const { return "[" + prefix + std::string(table) + "]"; }
  // What stands in a FROM for the rows of a table or a view. Those of a view come in the order of its tables, with
  // nulls in the columns that a table does not have or has for statements alone.
  std::string RowsOf(std::string_view table) const;
};

struct Schema {
  std::vector<DatabaseSchema> databases;

  const DatabaseSchema& Database(std::string_view name) const;  // fails with a DataError where there is none
};

// Fails with a DataError that names the table and the place, where the file holds no schema.
Schema ReadSchema(const DataItem& file);
// The one that the program carries.
const Schema& ShippedSchema();

// Columns, one at least, as a statement names them: "[DIR], [CUST]".
std::string ColumnList(const std::vector<std::string>& columns);

// The statements that create the database's tables and indexes, in SQLite's own language and always in the same
// order. The declared types are TEXT, INTEGER and BOOLEAN. No column is a key, so that rows stand in the order of
// insertion.
std::vector<std::string> CreateStatements(const DatabaseSchema& database);
// The names of those indexes, without brackets, in the same order.
std::vector<std::string> IndexNames(const DatabaseSchema& database);

}  // namespace cordboard::workbench
