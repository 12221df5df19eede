// The values of a record that an exchange's line does not tell, such as the protocol of a route.
#pragma once

#include <vector>

#include "workbench/actions/UserAction.h"

namespace cordboard::workbench {

// Gives the add those of the untold values that its user has not given. They are looked for among all that are
// possible, by what line each of them would give: it has to have the derived values of the line that was read. Gives
// why they are not found, where none of them or several do; the exchange is left as it is.
std::vector<Problem> FindUntold(Session& session, const FormDefinition& form, UserAction& add,
                                const std::vector<Assignment>& derived);

}  // namespace cordboard::workbench
