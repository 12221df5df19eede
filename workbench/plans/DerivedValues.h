// The values of an exchange's line that follow from its record, such as the signalling of a route.
#pragma once

#include <string>
#include <vector>

#include "workbench/actions/UserAction.h"

namespace cordboard::workbench {

// The value of a parameter among others; the empty text where it is not there.
const std::string& ValueOf(const std::vector<Assignment>& values, const std::string& name);
bool Has(const std::vector<Assignment>& values, const std::string& name);

// Takes the derived values out of a line's. One that is given twice is left to the form, which refuses it.
std::vector<Assignment> TakeDerived(const FormDefinition& form, std::vector<Assignment>& values);

// The line of the command, as the exchange gives it now, that agrees with these values in whatever both of them have;
// no values where there is none.
std::vector<Assignment> LineWith(Session& session, const FormDefinition& form, const std::vector<Assignment>& values);

// The derived values in which the line that was read differs from the one that the exchange gives, each with both; or
// that it gives none.
std::vector<Problem> Differences(const FormDefinition& form, const std::vector<Assignment>& read,
                                 const std::vector<Assignment>& given);

}  // namespace cordboard::workbench
