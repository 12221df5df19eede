// An exchange in memory with rows in every table, for tests that drive commands that they know nothing about: values
// come from the plant, from the fixed values and from rows that stand in other tables under the same name of a column.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "fault/Random.h"
#include "workbench/database/Schema.h"
#include "workbench/exchange/Exchange.h"

namespace cordboard {

class World {
 public:
  explicit World(const std::string& release);

  workbench::Exchange& exchange() { return *exchange_; }

  // The tables of a command: the one of its name, or those whose names begin with it.
  static std::vector<const workbench::Table*> TablesOf(const std::string& command);
  // All tables that hold records of commands, but for the numbers.
  static std::vector<std::string> TablesOfRecords();
  // A value for a parameter of the command: often one that stands in a table or is a fixed one, sometimes any digits,
  // letters, nothing, or a text that breaks a statement. Values that are had for the same row tend to belong together.
  Value ValueFor(const std::string& command, const std::string& parameter, std::size_t row, Random& random);

  // A number that grows with every change of a row, also with one that is rolled back.
  Value Changes();
  // The content of all tables, a row a line.
  std::string Dump();

 private:
  void FillTable(workbench::Connection& database, const std::string& stored, const workbench::Table& table,
                 Random& random);
  Value CellFor(const workbench::Table& table, const workbench::Column& column, std::size_t row, Random& random);
  void Learn(const workbench::Table& table, const RowSet& rows);
  // The values that are known for a column, or for a parameter, of a command.
  const std::vector<Value>& Known(const std::string& command, const std::string& name);

  std::unique_ptr<workbench::Exchange> exchange_;
  std::map<std::string, std::vector<Value>> known_;  // by name of a column or a parameter, in capitals
};

}  // namespace cordboard
