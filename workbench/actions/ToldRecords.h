// The records that an add tells of, and which of them stand.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "workbench/actions/Records.h"

namespace cordboard::workbench {

// One of the records of an add.
struct ToldRecord {
  std::vector<Assignment> values;             // the add's, each with the record's own
  std::optional<StoredRecord> standing = {};  // with the same key
  std::string name = {};                      // by its key: "DIR=205"
};

struct ToldRecords {
  std::vector<ToldRecord> records = {};
  bool several = false;                 // whether a parameter has several values, of which each makes a record
  std::optional<Problem> problem = {};  // why it cannot be said which records these are
  std::vector<std::string> last = {};   // the parameter that was taken apart last, with those that go in step with it

  // The adds of the records that do not stand. One has all that are alike but for the parameters that were taken apart
  // last: some rules take records together alone.
  std::vector<std::vector<Assignment>> Missing() const;
};

// Takes the add apart by the parameters that tell one record from another, and finds those that stand. What the form
// will refuse anyhow, such as values that do not go in pairs, is not taken apart.
ToldRecords FindTold(Exchange& exchange, const FormDefinition& definition, const std::vector<Assignment>& values);

}  // namespace cordboard::workbench
