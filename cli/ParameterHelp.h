// What users read of one parameter: its traits, and the values that are fixed.
#pragma once

#include <nlohmann/json_fwd.hpp>

#include "workbench/forms/FormDefinition.h"

namespace cordboard::cli {

void PrintParameterHelp(const workbench::FormDefinition& form, const workbench::ParameterDefinition& parameter);
nlohmann::json ParameterHelpAsJson(const workbench::FormDefinition& form,
                                   const workbench::ParameterDefinition& parameter);

// As an entry of the help of its command.
nlohmann::json ToJson(const workbench::ParameterDefinition& parameter);

}  // namespace cordboard::cli
