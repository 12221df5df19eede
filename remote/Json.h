// Values, lists and row sets as JSON, and messages as lines.
//
// Empty is {"empty": true}, null is null, texts are strings, truth values true and false. A whole number has no point.
// A list is an array of values, a row set an array of columns: [column][row].
#pragma once

#include <nlohmann/json.hpp>
#include <string>

#include "script/List.h"
#include "script/Value.h"

namespace cordboard::remote {

// What the peer has written.
using Json = nlohmann::json;
// What the library writes: members stay in the order in which they were put.
using Message = nlohmann::ordered_json;

// What stands inside more than this many arrays and objects is refused.
inline constexpr int MaximumDepth = 100;

// One line of the peer. Fails with RequestError NotJson.
Json Parse(const std::string& line);
// One line for the peer, without its end. A byte that is part of no character becomes a replacement character.
std::string Line(const Message& message);

// Fail with Overflow for a number that is not finite: JSON has none.
Message ToJson(const Value& value);
Message ToJson(const List& list);

// Fail with TypeMismatch for any other shape. Columns without rows, or no columns, make an empty row set.
Value ToValue(const Json& json);
List ToList(const Json& json);
RowSet ToRowSet(const Json& json);

}  // namespace cordboard::remote
