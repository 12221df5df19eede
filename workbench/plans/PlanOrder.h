// The order in which records can be made: what others refer to comes first.
#pragma once

#include <vector>

#include "workbench/forms/FormDefinition.h"

namespace cordboard::workbench {

// The forms of all commands. Those that give lines stand in the order of their lines, as far as references let them.
const std::vector<const FormDefinition*>& PlanOrder();

}  // namespace cordboard::workbench
