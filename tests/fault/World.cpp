#include "fault/World.h"

#include <algorithm>
#include <utility>

#include "script/Conversions.h"
#include "workbench/data/Resources.h"
#include "workbench/exchange/NumberSeries.h"
#include "workbench/exchange/Plant.h"
#include "workbench/forms/FormDefinition.h"
#include "workbench/text/Names.h"

namespace cordboard {

namespace {

using workbench::Column;
using workbench::Connection;
using workbench::DatabaseSchema;
using workbench::Table;

constexpr std::uint32_t seed = 20;
constexpr std::size_t rowsPerTable = 4;
constexpr std::size_t mostKnown = 100;
constexpr int categories = 6;

const workbench::Schema& Tables() { return workbench::ShippedSchema(); }

std::string Capitals(std::string name) {
  for (char& c : name) c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
  return name;
}

bool StartsWith(const std::string& name, const std::string& beginning) {
  return name.size() > beginning.size() && workbench::SameName(name.substr(0, beginning.size()), beginning);
}

// The generated lines are the library's output; no row of them stands before.
bool IsOutput(const Table& table) { return workbench::SameName(table.name, "BuiltCmd"); }

RowSet Rows(Connection& database, const std::string& stored) {
  return database.Run("SELECT * FROM " + stored + " ORDER BY rowid");
}

bool HasNull(const RowSet& rows) {
  for (std::size_t column = 0; column < rows.ColumnCount(); ++column) {
    for (std::size_t row = 0; row < rows.RowCount(); ++row) {
      if (rows[column][row].IsNull()) return true;
    }
  }
  return false;
}

// Puts all rows of a table into one text, each with the table's name.
std::string DumpStatement(const DatabaseSchema& database, const Table& table) {
  std::string row = "'" + database.prefix + table.name + ":'";
  for (const Column& column : table.columns) row += " || ' ' || quote([" + column.name + "])";
  return "SELECT group_concat(" + row + ", x'0A') FROM " + database.Stored(table.name);
}

// By the names under which the tables are stored.
const std::map<std::string, std::string>& DumpStatements() {
  static const std::map<std::string, std::string> statements = [] {
    std::map<std::string, std::string> all;
    for (const char* selector : {"dynamic", "site"}) {
      const DatabaseSchema& database = Tables().Database(selector);
      for (const Table& table : database.tables) all[database.prefix + table.name] = DumpStatement(database, table);
    }
    return all;
  }();
  return statements;
}

std::set<std::string> AllTables() {
  std::set<std::string> tables;
  for (const auto& [table, statement] : DumpStatements()) tables.insert(table);
  return tables;
}

Value AsText(const Value& value) { return value.IsNull() ? value : Value(Joined(value)); }

// The value of the row, with that chance, or any.
const Value& Choose(const std::vector<Value>& known, std::size_t row, unsigned percent, Random& random) {
  return random.Chance(percent) ? known[row % known.size()] : random.Of(known);
}

}  // namespace

World::World(const std::string& release) {
  workbench::Plant plant = workbench::ReadPlant("example");
  plant.categories = categories;
  exchange_ = workbench::Exchange::CreateInMemory(release, plant);
  Random random(seed, release);
  known_["RELEASE"] = {release};

  // Numbers of every type.
  Connection& fixed = *exchange_->Database("static");
  const RowSet types =
      fixed.Run("SELECT DISTINCT [Value] FROM [ParamValueDesc] WHERE [Command] = 'NANSI' AND [Param] = 'NUMTYP'");
  for (std::size_t i = 0; i < types.RowCount(); ++i) {
    const std::string first = std::to_string(300 + 10 * i);
    workbench::InitiateSeries(*exchange_, first + "&&" + std::to_string(305 + 10 * i), Joined(types[0][i]));
  }

  fixed.Execute("PRAGMA query_only = 0");
  for (const char* selector : {"static", "dynamic", "site"}) {
    const DatabaseSchema& database = Tables().Database(selector);
    for (const Table& table : database.tables)
      FillTable(*exchange_->Database(selector), database.Stored(table.name), table, random);
  }
  fixed.Execute("PRAGMA query_only = 1");
  made_ = Dump(AllTables());
  exchange_->Dynamic().Listen(*this);
}

World::~World() { exchange_->Dynamic().StopListening(*this); }

// A table that the plant or the release has filled keeps its rows; what is null there gets values in most rows, and
// where nothing is null there is nothing to do.
void World::FillTable(Connection& database, const std::string& stored, const Table& table, Random& random) {
  if (IsOutput(table)) return;
  const RowSet given = Rows(database, stored);
  if (!given.IsEmpty() && !HasNull(given)) return Learn(table, given);
  database.Run("DELETE FROM " + stored);
  const std::size_t count = given.IsEmpty() ? rowsPerTable : given.RowCount();
  for (std::size_t row = 0; row < count; ++row) {
    std::vector<Value> values;
    std::string places;
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
      const Value stands = given.IsEmpty() ? Value::Null() : given[i][row];
      values.push_back(stands.IsNull() ? CellFor(table, table.columns[i], row, random) : stands);
      places += places.empty() ? "?" : ", ?";
    }
    database.Run("INSERT INTO " + stored + " VALUES (" + places + ")", values);
  }
  Learn(table, Rows(database, stored));
}

// The first table that has a column of the name tells its values, in the order of the rows, so that columns of one
// table go together. Fixed values are told under the name of their parameter.
void World::Learn(const Table& table, const RowSet& rows) {
  for (std::size_t column = 0; column < rows.ColumnCount(); ++column) {
    std::vector<Value>& known = known_[Capitals(table.columns[column].name)];
    if (!known.empty()) continue;
    for (std::size_t row = 0; row < std::min(rows.RowCount(), mostKnown); ++row) known.push_back(rows[column][row]);
  }
  if (table.name != "ParamValueDesc") return;
  for (std::size_t row = 0; row < rows.RowCount(); ++row) {
    const std::string parameter = Capitals(Joined(rows[1][row]));
    known_[parameter].push_back(rows[2][row]);
    known_[Capitals(Joined(rows[0][row])) + "." + parameter].push_back(rows[2][row]);
  }
}

const std::vector<Value>& World::Known(const std::string& command, const std::string& name) {
  const std::vector<Value>& own = known_[Capitals(command + "." + name)];
  return own.empty() ? known_[Capitals(name)] : own;
}

Value World::CellFor(const Table& table, const Column& column, std::size_t row, Random& random) {
  if (workbench::SameName(column.name, "CmdId")) return exchange_->NewCmdId();
  if (column.type == Column::Type::Truth) return random.Chance(50);
  if (random.Chance(4)) return Value::Null();
  if (column.type == Column::Type::Whole) return random.Below(4);
  const std::vector<Value>* known = &Known(table.name, column.name);
  if (known->empty() && random.Chance(60)) known = &known_["NUMSE"];
  if (!known->empty() && random.Chance(95)) return AsText(Choose(*known, row, 92, random));
  return random.Chance(70) ? random.TextOf("0123456789", 1, 5) : random.TextOf("ABCDEFX", 1, 6);
}

std::vector<const Table*> World::TablesOf(const std::string& command) {
  const DatabaseSchema& database = workbench::FindForm(command)->Database();
  if (const Table* table = database.Find(command); table != nullptr && !database.IsView(command)) return {table};
  std::vector<const Table*> tables;
  for (const Table& table : database.tables) {
    if (StartsWith(table.name, command)) tables.push_back(&table);
  }
  return tables;
}

std::vector<std::string> World::TablesOfRecords() {
  std::vector<std::string> tables;
  for (const Table& table : Tables().Database("dynamic").tables) {
    if (table.Find("CmdId") != nullptr && table.name != "NANSI") tables.push_back(table.name);
  }
  return tables;
}

Value World::ValueFor(const std::string& command, const std::string& parameter, std::size_t row, Random& random) {
  const std::vector<Value>& known = Known(command, parameter);
  if (!known.empty() && random.Chance(60)) return Joined(Choose(known, row, 50, random));
  switch (random.Below(10)) {
    case 0:
    case 1: return {};
    case 2: return "";
    case 3: return random.Chance(20) ? Value("it's") : Value(random.TextOf("ABCDEF", 1, 4));
    case 4: return random.TextOf("0123456789", 8, 30);
    case 5: return random.TextOf("0123456789ABab &-.", 1, 8);
    case 6: return Joined(random.Of(known_["NUMSE"]));
    default: return random.TextOf("0123456789", 1, 4);
  }
}

std::set<std::string> World::TakeTouched() { return std::exchange(touched_, {}); }

std::string World::Dump(const std::set<std::string>& tables) {
  std::string content;
  for (const std::string& table : tables) {
    if (table.starts_with("Cordboard")) continue;
    content += Joined(exchange_->Dynamic().Single(DumpStatements().at(table))) + "\n";
  }
  return content;
}

bool World::IsAsItWasMade() { return Dump(AllTables()) == made_; }

}  // namespace cordboard
