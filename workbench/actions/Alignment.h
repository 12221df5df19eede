// Making a stored record as it is told to be.
#pragma once

#include <vector>

#include "workbench/actions/Records.h"

namespace cordboard::workbench {

// Whether two values of a parameter are the same, however several of them are typed: "1&&3" and "1&2&3".
bool AreSame(const FormDefinition& definition, const std::string& parameter, const std::string& one,
             const std::string& other);

// Makes the record have these values, as an edit does it with those that differ; one that has them already is left
// alone and counted as standing. "next" stands for whatever value the record has.
Outcome Align(Session& session, const StoredRecord& record, const std::vector<Assignment>& told);

}  // namespace cordboard::workbench
