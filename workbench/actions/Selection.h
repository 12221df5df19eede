// Which records an edit or a delete is about. Its parameters have one value each, and one record has them; or some have
// several ("DIR=200&&219"), and every record is meant that has one of them.
#pragma once

#include <string>
#include <variant>
#include <vector>

#include "workbench/actions/Records.h"

namespace cordboard::workbench {

struct Selection {
  struct Each {
    StoredRecord record;
    std::string name;  // by what tells it from the others: "DIR=205"
  };
  std::vector<Each> records;           // in the order typed
  bool several = false;                // whether any number of records was possible
  std::vector<Problem> notThere = {};  // the values that no record has
};

// The records that are selected, in whichever table of the form, or why there is none.
std::variant<Selection, Problem> FindRecords(Exchange& exchange, const FormDefinition& definition,
                                             const std::vector<Assignment>& selection);

// The other way round: by what a line of a plan finds this record, here and in another exchange. That is its key; where
// this does not tell it, more of what it has; and where nothing else does, its identifier, which is another one
// elsewhere. Secrets are no part of it. Nothing where no selection finds it alone.
std::vector<Assignment> SelectionOf(Exchange& exchange, const FormDefinition& command, const StoredRecord& record);

}  // namespace cordboard::workbench
