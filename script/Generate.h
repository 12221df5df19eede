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

// A piece of a line, such as ",CUST=" and its value, where the value is not null, or is not blank; otherwise nothing.
inline std::string UnlessNull(const char* name, const Value& value) { return value.IsNull() ? "" : Text(name, value); }
inline std::string UnlessBlank(const char* name, const Value& value) {
  return value.IsBlank() ? "" : Text(name, value);
}

}  // namespace cordboard
