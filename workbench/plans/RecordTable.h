// The records of one table as texts, as far as its form shows them, and in what those of two exchanges differ.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "workbench/exchange/Exchange.h"
#include "workbench/forms/FormDefinition.h"

namespace cordboard::workbench {

// The values of a record, by the columns of its table; nothing, or a null, is the empty text.
using Record = std::vector<std::string>;

struct RecordDifferences {
  std::vector<Record> surplus;                     // the first exchange alone has them
  std::vector<std::pair<Record, Record>> changed;  // both have a record of this key
  std::vector<Record> missing;                     // the second exchange alone has them
};

class RecordTable {
 public:
  // `form` is that of one table.
  explicit RecordTable(const FormDefinition& form);

  const FormDefinition& form() const { return *form_; }
  const std::vector<std::string>& columns() const { return columns_; }  // that the form shows, in its order

  // All records in the order in which they were added, but for rows that were prepared and are blank.
  std::vector<Record> Read(Exchange& exchange) const;

  // What a record has: all of it, or its key.
  std::vector<Assignment> ValuesOf(const Record& record) const;
  std::vector<Assignment> KeyOf(const Record& record) const;

  // Whether the column belongs to the key, and the key as one text: of another key it is another one. Without one
  // column of it, where that is said.
  bool IsKey(std::size_t column) const { return isKey_[column]; }
  std::string MarkedKey(const Record& record, std::size_t without = std::string::npos) const;

  // Several records of one key are paired in their order.
  RecordDifferences Compare(std::vector<Record> first, std::vector<Record> second) const;

 private:
  bool IsBlank(const Record& record) const;

  const FormDefinition* form_;
  std::vector<std::string> columns_;
  std::vector<bool> isKey_;
};

}  // namespace cordboard::workbench
