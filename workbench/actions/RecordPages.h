// The records of one table, some at a time, since there may be many: what was read is not kept.
#pragma once

#include <string>
#include <vector>

#include "workbench/actions/UserAction.h"

namespace cordboard::workbench {

class RecordPages {
 public:
  // Of all records, or of those that have these values. `table` is the form of the table.
  RecordPages(Exchange& exchange, const FormDefinition& table, std::vector<Assignment> selection);

  // The next records in the order in which they were added, with all columns of the table; no rows after the last.
  RowSet Next();

  // How many characters the longest value of each column has; 0 where no record has a value.
  std::vector<std::size_t> Widths();

 private:
  Exchange& exchange_;
  const FormDefinition& table_;
  std::vector<Assignment> selection_;
  std::size_t read_ = 0;
};

}  // namespace cordboard::workbench
