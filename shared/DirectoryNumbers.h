// The numbers of GEDII that other commands take: TYPE says who has one ("CX", "SMSN", "IP", "IVM", "RE"), and is null
// while the number is free.
#pragma once

#include <string>

#include "script/Action.h"
#include "script/Report.h"
#include "script/Value.h"

namespace cordboard {

// Offers the free numbers. A failure is not reported. Two commands ask with other letters and blanks, and have the
// statement themselves.
bool ListFreeDirectoryNumbers(const Action& action);

bool TakeDirectoryNumber(const Value& DIR, const std::string& TYPE);
bool FreeDirectoryNumber(const Value& DIR);

// The number that the action's record has in the column: Empty where there is no record. Whether the statement fails is
// not tested.
Value StoredNumber(const Action& action, const std::string& column);

// Frees the number that the record has, writes the value into the column and takes it; an empty value is written as
// Null and takes nothing. Ends at the first step that fails, and reports nothing. Without a record the empty number is
// freed.
bool MoveDirectoryNumber(const Action& action, const std::string& column, const Value& value, const std::string& TYPE);

// Deletes the record, then frees its number; without a record nothing is freed. Reports nothing.
bool DeleteRowAndFreeNumber(const Action& action, const std::string& column);
// The same as a delete of its own, in the envelope.
bool DeleteWithDirectoryNumber(const Action& action, const std::string& column);

// The work of an add and of an edit whose records have such a number in a column, inside the caller's transaction.
//
// Inserts the record, and takes the number when the turn of its column comes. One that cannot be taken is not reported:
// the other values are read all the same, but nothing is inserted.
bool InsertWithDirectoryNumber(const Action& action, const Reporter& fail, const std::string& column,
                               const std::string& TYPE);
// Writes each parameter of ParamList but CMDID with a statement of its own, and moves the number. Ends at the first
// that fails, and reports it.
bool EditWithDirectoryNumber(const Action& action, const Reporter& fail, const std::string& column,
                             const std::string& TYPE);

}  // namespace cordboard
