// "The next free ones": a value of a plan that stands for the first values of a parameter's list as it then is.
//
//   KSEXI:DIR=200&&219,EQU=next;    as many positions as there are numbers
//   KSEXI:DIR=next:20,EQU=next;     twenty of each
#pragma once

#include <vector>

#include "workbench/actions/UserAction.h"

namespace cordboard::workbench {

// Puts the values that are meant in the place of "next" and "next:20", where the parameter takes them; any other value
// stays. `all` are the values of the whole action, for the number of those that the parameter goes in step with. Gives
// false, and says why, where there are not as many.
bool TakeNext(Session& session, const std::vector<Assignment>& all, Assignment& assignment,
              std::vector<Problem>& problems);

}  // namespace cordboard::workbench
