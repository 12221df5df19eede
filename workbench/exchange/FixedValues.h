// The fixed values of a release: lists of values (ParamValueDesc) and the other static tables (data/values/).
#pragma once

#include <string>

namespace cordboard::workbench {

class Connection;

// Enters what holds for the release in the static database.
void EnterFixedValues(Connection& database, const std::string& release);

}  // namespace cordboard::workbench
