// One column of one record, written with a statement of its own. The value goes in quoted, as it stands. Each gives the
// statement's answer and reports nothing.
#pragma once

#include <cstdint>
#include <string>

#include "script/Value.h"

namespace cordboard {

// With a line break in front of WHERE. An empty or null value is written as the empty text.
bool UpdateColumn(const std::string& table, std::int32_t CmdId, const std::string& column, const Value& value);
// The same, but an empty value is written as Null. Only the empty state counts: a null is written as the empty text.
bool UpdateColumnOrNull(const std::string& table, std::int32_t CmdId, const std::string& column, const Value& value);

// The same two statements in one line.
bool UpdateColumnInLine(const std::string& table, std::int32_t CmdId, const std::string& column, const Value& value);
bool UpdateColumnOrNullInLine(const std::string& table, std::int32_t CmdId, const std::string& column,
                              const Value& value);

}  // namespace cordboard
