// The records of a command as one list, in whichever tables they stand, of which a user sees some at a time: the
// database searches, sorts and counts, so that tens of thousands are as quick as ten.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "workbench/actions/Records.h"

namespace cordboard::workbench {

struct ListedRecord {
  std::vector<std::string> values;    // by the columns of the list, as they may be told: secrets are hidden
  std::vector<Assignment> selection;  // that finds this record alone: its key, or where that does not do its identifier
};

class RecordList {
 public:
  RecordList(Exchange& exchange, const FormDefinition& command);

  // The columns that the form shows and in which a record has a value, in the order of the form.
  const std::vector<std::string>& columns() const { return columns_; }
  // Whether the list can be sorted and searched by the column: it would tell a secret bit by bit.
  bool IsOpen(const std::string& column) const { return !command_.IsSecret(column); }
  // All records, but for rows that were prepared and are blank.
  std::size_t count() const { return count_; }

  // From now on the list has those records alone that contain the text, in capitals or not: in this column, or in any.
  void Find(const std::string& text, const std::optional<std::string>& column);
  // From now on it is sorted by the column: numbers by how great they are and in front of other texts, and at the end,
  // also downwards, the records that have no value there. Before, it has the order of adding.
  void SortBy(const std::string& column, bool downwards);

  // How many the list has, and some of them.
  std::size_t CountFound();
  std::vector<ListedRecord> Read(std::size_t from, std::size_t count);

 private:
  std::string AllRows() const;
  std::vector<Assignment> SelectionOf(const FormDefinition& table, const RowSet& rows, std::size_t row) const;

  Exchange& exchange_;
  const FormDefinition& command_;
  std::vector<const FormDefinition*> tables_;
  std::vector<std::string> columns_;  // of the form at first, and then those that have values
  std::size_t count_ = 0;
  std::string condition_ = "1";
  std::vector<Value> sought_ = {};
  std::string order_ = {};
};

}  // namespace cordboard::workbench
