// The records of one table, some at a time, since there may be many: what was read is not kept, and between two pages
// nothing is locked.
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

  // Whether somebody else has changed the exchange meanwhile: the pages may not be those of one moment.
  bool IsChangedMeanwhile() const { return Version() != version_; }

 private:
  double Version() const;

  Exchange& exchange_;
  const FormDefinition& table_;
  std::vector<Assignment> selection_;
  double version_;
  std::size_t read_ = 0;
};

}  // namespace cordboard::workbench
