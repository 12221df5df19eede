// "The next free ones": a value of a plan that stands for the first values of a parameter's list as it then is.
//
//   KSEXI:DIR=200&&219,EQU=next;    as many positions as there are numbers
//   KSEXI:DIR=next:20,EQU=next;     twenty of each
#pragma once

#include <optional>
#include <string>

#include "workbench/actions/Filling.h"

namespace cordboard::workbench {

// Whether a value is "next" or "next:20", and the parameter takes that.
bool IsNext(const FormDefinition& definition, const Assignment& assignment);
// The values that "next" and "next:20" stand for, where the parameter takes them; any other value means itself. Gives
// nothing, and refuses the value, where there are not as many.
std::optional<std::string> MeantValue(Filling& filling, const Assignment& assignment);

}  // namespace cordboard::workbench
