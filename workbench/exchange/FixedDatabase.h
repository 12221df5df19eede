// The static database: the fixed values that hold for a release. The lists of a command are entered when they are asked
// for, since all that there is takes longer than most of what a program is started for.
#pragma once

#include <map>
#include <memory>
#include <set>
#include <string>
#include <tuple>

#include "workbench/database/Connection.h"
#include "workbench/exchange/FixedValues.h"

namespace cordboard::workbench {

class FixedDatabase {
 public:
  explicit FixedDatabase(std::string release);

  // With the lists of this command, at least.
  Connection& With(const std::string& command);
  // With all lists and tables.
  Connection& Whole();
  // The list of a parameter in one definition, which is read once.
  std::shared_ptr<const DescribedValues> List(const std::string& command, const std::string& parameter, int definition);

 private:
  template <typename Work>
  void Change(Work work);
  void Enter(const std::string& command, const FixedList& list);

  std::string release_;
  Connection database_;
  std::set<std::string> entered_;  // commands
  std::map<std::tuple<std::string, std::string, int>, std::shared_ptr<const DescribedValues>> read_;
  bool whole_ = false;
};

}  // namespace cordboard::workbench
