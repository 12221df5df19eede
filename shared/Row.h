// The row of one record, by its identifier: a column is read and written with a statement of its own, the value quoted
// as it stands. What writes gives the statement's answer and reports nothing.
#pragma once

#include <string>

#include "script/Host.h"
#include "script/List.h"
#include "script/Report.h"
#include "script/Value.h"

namespace cordboard {

// What the record has in the column: `old` stays where there is no record. A statement that fails is reported.
bool ReadOld(const Reporter& fail, const std::string& table, const Value& CmdId, const std::string& column, Value& old,
             const Selector& database = std::nullopt);

// With a line break in front of WHERE. An empty or null value is written as the empty text.
bool UpdateColumn(const std::string& table, const Value& CmdId, const std::string& column, const Value& value);
// The same, but an empty value is written as Null. Only the empty state counts: a null is written as the empty text.
bool UpdateColumnOrNull(const std::string& table, const Value& CmdId, const std::string& column, const Value& value);

// The same two statements in one line, the first also on another database.
bool UpdateColumnInLine(const std::string& table, const Value& CmdId, const std::string& column, const Value& value,
                        const Selector& database = std::nullopt);
bool UpdateColumnOrNullInLine(const std::string& table, const Value& CmdId, const std::string& column,
                              const Value& value);

// Deletes the row. One that is not there counts as deleted.
bool DeleteRow(const std::string& table, const Value& CmdId);

// What an edit that writes all columns writes into one: the value, where it is blank what the first of the stored rows
// has there, and where that is blank too nothing. Fails where it needs a row that is missing.
Value OrStored(const Value& value, const RowSet& stored, std::size_t column);

}  // namespace cordboard
