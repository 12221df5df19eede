// The workers of commands whose records need nothing special: one insert, one update a parameter, one delete.
// CmdName is the table. All three run in the envelope.
#pragma once

#include <string>

#include "script/Action.h"

namespace cordboard {

// Adds a record: "CMDID" takes a new identifier, "NUMTYP" the given number type, any other column the form's value.
// Both names are compared exactly. A value that the form leaves empty becomes a null.
bool GenericSetInfo(const Action& action, const std::string& NUMTYP);
// The same with the empty text as the number type: what most commands give.
bool GenericSetInfo(const Action& action);

// Writes each parameter of ParamList with a statement of its own and stops at the first that fails.
bool GenericEditInfo(const Action& action);

// Deletes the record, without asking who uses it. One that does not exist counts as deleted.
bool GenericDeleteInfo(const Action& action);

// Runs the update of one column: to Null for an empty value, otherwise to the quoted value as it stands. Only the empty
// state counts as no value: a null gives a statement with nothing between the quotes.
bool WriteColumn(const std::string& table, std::int32_t CmdId, const std::string& column, const Value& value);

}  // namespace cordboard
