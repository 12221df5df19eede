// The output of "GenerateCmd": exchange command lines in the table BuiltCmd.
#pragma once

#include <string>

#include "script/Action.h"
#include "script/HostOperations.h"
#include "script/Statement.h"

namespace cordboard {

// Appends one line under the action's order number, and gives the answer of the insert.
inline bool InsertBuiltCmd(const Action& action, const std::string& line) {
  return scRunQuery(Sql("INSERT INTO BuiltCmd VALUES (", action.OrderNumber(), ",'", line, "')"));
}

}  // namespace cordboard
