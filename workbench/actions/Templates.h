// Templates: sets of values, stored by a command of their own, from which records of another command are made.
#pragma once

#include <string>

#include "workbench/actions/Filling.h"

namespace cordboard::workbench {

// Puts the values of the template on the form, as if they were typed: each has to be possible there. What the user
// gives anew is left out, and what the form does not take is told.
void PutTemplate(Filling& filling, const std::string& name);

}  // namespace cordboard::workbench
