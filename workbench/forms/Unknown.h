// What a user is told of a name that there is not, with the nearest one that there is.
#pragma once

#include <string>

#include "workbench/forms/FormDefinition.h"

namespace cordboard::workbench {

std::string UnknownCommand(const std::string& command);
std::string UnknownParameter(const FormDefinition& form, const std::string& name);
// Of a column of the command's records.
std::string UnknownColumn(const FormDefinition& form, const std::string& name);

}  // namespace cordboard::workbench
