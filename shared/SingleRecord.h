// Commands whose table holds one record at most, for the exchange as a whole: "SetInfo" adds the record or edits the
// one that is there.
#pragma once

#include <string>
#include <vector>

#include "script/Action.h"
#include "script/Module.h"
#include "script/Report.h"

namespace cordboard {

// "SetInfo": calls `add` while the table is empty, and `edit` for the record that it holds otherwise; the record that
// the action itself names does not count. A count that cannot be read fails the call.
bool SetSingleRecord(const Action& action, Worker add, Worker edit);
// The second half of it: calls `edit` for the record that the table holds. Without one the call fails.
bool OnSingleRecord(const Action& action, Worker edit);

// Adds count once more inside their transaction: a table that is not empty is reported (60031).
bool IsStillEmpty(const Reporter& fail, const std::string& table);

// Adds the record in the envelope: "CMDID" takes a new identifier, any other column the form's value.
bool AddSingleRecord(const Action& action);

// The two edits run in the envelope and begin with the statement `oldValues`, which selects the record's columns; when
// it fails they end without a message. Each column has an update of its own; the first that fails ends the edit.
//
// "EditInfo": writes the parameters of ParamList as the form has them, so that an empty one becomes a null.
bool EditSingleRecord(const Action& action, const std::string& oldValues);
// "SetInfo" on a record: writes all of `columns`, whatever ParamList holds. One that the form leaves blank keeps what
// stood there, so a rewrite never clears a column. `oldValues` has to select `columns`, in their order.
bool RewriteSingleRecord(const Action& action, const std::string& oldValues, const std::vector<std::string>& columns);

}  // namespace cordboard
