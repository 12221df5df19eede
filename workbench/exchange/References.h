// What refers to what in an exchange, read from data/references.json.
//
// The file lists the records of all commands:
//   {"table": "KSFKC", "is": "function key", "key": ["DIR", "KEY"]}      and "command" and "database", where the table
//                                                                        alone does not tell them
// then the things that records have to do with:
//   {"name": "number", "missing": "no series holds {}",
//    "at": {"table": "NANSI", "value": "NUMSE", "used": "[USED]", "trait": "'of type ' || [NUMTYP]"},
//    "takenBy": ["KSEXI.DIR"], "namedBy": ["SPEXI.DIR", "CUST"]}
// and at last the columns that name nothing. "value", "used", "where" and "trait" are SQL on a row of the table: what
// names the thing, whether it is taken, whether the row counts at all, and what else tells it apart. A column without
// a table stands for all columns of the name that are not listed with their table; in "DATA%" the sign stands for a
// number. No column holds several values.
//
// What takes a thing has it alone and marks it as used. A thing lists the exceptions: under "shared" columns whose
// value another record may have as well, under "unmarked" those that leave the mark as it is, and under "alsoTaken" a
// SELECT of the values that records take though no column has them as they are.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "script/List.h"
#include "workbench/data/DataFile.h"

namespace cordboard::workbench {

class Exchange;

struct RecordKind {
  std::string table;
  std::string database;          // in which the table stands: "dynamic", or "site" for templates
  std::string command;           // whose records they are
  std::string is;                // what a user calls one
  std::vector<std::string> key;  // the columns that tell one from the others; none where there is one record at most

  std::string Rows() const;  // what stands in a FROM
};

struct Thing;

// A column that has the name of a thing in it.
struct Reference {
  const RecordKind* record;
  std::string column;
  const Thing* thing;
  bool takes;
  bool shares;  // takes what another record may have as well
  bool marks;   // as used, what it takes
};

// Where a thing stands once it is there. All but the table is SQL, and empty where there is nothing to say.
struct Home {
  std::string table;
  std::string value;
  std::string used;
  std::string where;
  std::string trait;
};

struct Thing {
  std::string name;
  std::string missing;                    // what is said of one that there is not, with {} in its place
  const Thing* of = nullptr;              // what it is as well: a key extension is a number
  std::optional<Home> home = {};          // none: whatever its records name is there
  const RecordKind* definedBy = nullptr;  // the records that stand in its home, where they do
  std::string alsoTaken = {};
  std::vector<const Reference*> references = {};
};

// Whether a thing is there. `trait` tells it apart: "of type EX".
struct Standing {
  bool isThere = false;
  bool isUsed = false;
  std::string trait = {};
};

// Columns with their values.
using KeyValues = std::vector<std::pair<std::string, std::string>>;

// A record that holds a thing.
struct Holder {
  const RecordKind* record;
  std::int32_t CmdId;
  KeyValues key;  // without columns that have no value
};

class References {
 public:
  // Fails with a DataError, where the file is no such description of the shipped schema.
  explicit References(const DataItem& file);
  References(const References&) = delete;
  References& operator=(const References&) = delete;

  const std::vector<RecordKind>& records() const { return records_; }
  const std::vector<Thing>& things() const { return things_; }

  // The records that stand in a table, or null.
  const RecordKind* RecordsIn(std::string_view table) const;
  // The reference that a column is, or null. Of a view the first of its tables that has the column decides.
  const Reference* Find(std::string_view table, std::string_view column) const;
  // Whether it is said that the column names nothing.
  bool NamesNothing(std::string_view table, std::string_view column) const;
  // The thing that stands in the column of its home, or null.
  const Thing* DefinedIn(std::string_view table, std::string_view column) const;

 private:
  using Column = std::pair<std::string, std::string>;  // table and column
  // A column as the file lists it, with or without a table.
  struct Entry {
    std::string text;
    DataItem item;
    Thing* thing;
    bool takes;
    bool shares;
    bool marks;
  };

  void ReadThing(const DataItem& item, std::vector<Entry>& entries);
  void Enter(const Entry& entry);

  std::vector<RecordKind> records_;
  std::vector<Thing> things_;
  std::map<Column, Reference> references_;
  std::vector<std::string> nothing_;
};

// The one that the program carries.
const References& ShippedReferences();

Standing StandingOf(Exchange& exchange, const Thing& thing, const std::string& value);
// What a SELECT has to begin with so that HolderAt finds a record in each of its rows.
std::string HolderColumns(const RecordKind& record);
Holder HolderAt(const RowSet& rows, std::size_t row, const RecordKind& record);
// The records that hold the thing, under this name or as what it is as well: of number 200 also those that name the
// key extension 200. Of each column the first `most`.
std::vector<Holder> WhoHolds(Exchange& exchange, const Thing& thing, const std::string& value, std::size_t most);
// Those alone that take it under this name.
std::vector<Holder> WhoTakes(Exchange& exchange, const Thing& thing, const std::string& value, std::size_t most);
// The records of one kind that have these values; the empty text stands for none.
std::vector<Holder> RecordsWith(Exchange& exchange, const RecordKind& record, const KeyValues& values,
                                std::size_t most);

}  // namespace cordboard::workbench
