// Templates: sets of values, stored by a command of their own, from which records of another command are made.
#pragma once

#include <string>
#include <variant>
#include <vector>

#include "workbench/actions/Filling.h"

namespace cordboard::workbench {

// The stored values of a template, but for its name, in the order of its form; or why there are none.
std::variant<std::vector<Assignment>, Problem> TemplateValues(Exchange& exchange, const FormDefinition& definition,
                                                              const std::string& name);
// Puts the values of the template on the form, as if they were typed: each has to be possible there. What the user
// gives anew is left out, and what the form does not take is told.
void PutTemplate(Filling& filling, const std::string& name);

}  // namespace cordboard::workbench
