// An exchange in memory with rows in every table, for tests that drive commands that they know nothing about: values
// come from the plant, from the fixed values and from rows that stand in other tables under the same name of a column.
#pragma once

#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "fault/Random.h"
#include "workbench/database/RowHook.h"
#include "workbench/database/Schema.h"
#include "workbench/exchange/Exchange.h"

namespace cordboard {

class World final : private workbench::RowListener {
 public:
  explicit World(const std::string& release);
  ~World();
  World(const World&) = delete;
  World& operator=(const World&) = delete;

  workbench::Exchange& exchange() { return *exchange_; }

  // The tables of a command: the one of its name, or those whose names begin with it.
  static std::vector<const workbench::Table*> TablesOf(const std::string& command);
  // All tables that hold records of commands, but for the numbers.
  static std::vector<std::string> TablesOfRecords();
  // A value for a parameter of the command: often one that stands in a table or is a fixed one, sometimes any digits,
  // letters, nothing, or a text that breaks a statement. Values that are had for the same row tend to belong together.
  Value ValueFor(const std::string& command, const std::string& parameter, std::size_t row, Random& random);

  // Of which tables rows have been changed since this was asked last, also where that was rolled back.
  std::set<std::string> TakeTouched();
  // The content of these tables, a row a line. What the workbench has for itself has no lines.
  std::string Dump(const std::set<std::string>& tables);
  // Whether all tables hold what they held when it was made.
  bool IsAsItWasMade();

 private:
  void BeforeChange(const workbench::RowTouch& touch) noexcept override { touched_.insert(touch.table()); }

  void FillTable(workbench::Connection& database, const std::string& stored, const workbench::Table& table,
                 Random& random);
  Value CellFor(const workbench::Table& table, const workbench::Column& column, std::size_t row, Random& random);
  void Learn(const workbench::Table& table, const RowSet& rows);
  // The values that are known for a column, or for a parameter, of a command.
  const std::vector<Value>& Known(const std::string& command, const std::string& name);

  std::unique_ptr<workbench::Exchange> exchange_;
  std::map<std::string, std::vector<Value>> known_;  // by name of a column or a parameter, in capitals
  std::set<std::string> touched_;
  std::string made_;  // the content of all tables
};

}  // namespace cordboard
