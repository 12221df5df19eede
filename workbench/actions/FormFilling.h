// Setting values on a form with the checks that a form runs.
#pragma once

#include "workbench/actions/UserAction.h"

namespace cordboard::workbench {

// Sets one value: it has to be of the form, free of quotes, of as many elements as the form takes, in its list of valid
// values, and past its static check.
void SetValue(Session& session, const Assignment& assignment, std::vector<Problem>& problems,
              std::vector<Problem>& warnings);

// What the whole form asks once all values are set: mandatory parameters, one of several sets of parameters, as many
// values of each where they go in step, ranges and several values that a check has since forbidden, and values that a
// check has since cleared.
void CheckWhole(Session& session, const std::vector<Assignment>& values, std::vector<Problem>& problems);

// The messages that the library has reported, as problems of one parameter.
std::vector<Problem> TakeProblems(Session& session, const std::string& parameter, const std::string& value);

}  // namespace cordboard::workbench
