// What users read of one parameter beside its traits (workbench/forms/CommandPage.h): what it goes with, and the values
// that are fixed.
#pragma once

#include <string>
#include <vector>

#include "workbench/exchange/FixedValues.h"
#include "workbench/forms/FormDefinition.h"

namespace cordboard::workbench {

// What other parameters it goes with, in sentences.
std::vector<std::string> Companions(const FormDefinition& form, const ParameterDefinition& parameter);

std::vector<const FixedList*> FixedListsOf(const FormDefinition& form, const ParameterDefinition& parameter);
// For which releases and, where it is not the first alone, for which definitions of the parameter: which of them is
// active follows from what else the form holds.
std::string HoldsFor(const FixedList& list);

}  // namespace cordboard::workbench
