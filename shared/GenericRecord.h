// The workers of commands whose records need nothing special: one insert, one update a parameter, one delete.
// CmdName is the table. All run in the envelope.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

#include "script/Action.h"
#include "script/Report.h"
#include "shared/Record.h"

namespace cordboard {

// Adds a record of the columns of ParamList, with what is given in the place of the form's values. A value that the
// form leaves empty becomes a null.
bool AddRecord(const Action& action, std::initializer_list<GivenValue> given = {});

// The same with the number type, where there is such a column: the empty text for most commands.
bool GenericSetInfo(const Action& action, const std::string& NUMTYP);
bool GenericSetInfo(const Action& action);

// A column that has another name in a statement than its parameter; messages name the parameter.
struct ColumnName {
  std::string_view parameter;
  std::string column;
};

// Writes each parameter of ParamList with a statement of its own and stops at the first that fails.
bool EditRecord(const Action& action, std::initializer_list<ColumnName> renamed = {});
bool GenericEditInfo(const Action& action);

// The same within a transaction of the caller.
bool WriteParameters(const Action& action, const Reporter& fail, std::initializer_list<ColumnName> renamed = {});

// Deletes the record, without asking who uses it. One that does not exist counts as deleted.
bool GenericDeleteInfo(const Action& action);

}  // namespace cordboard
