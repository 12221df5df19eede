// Members of groups: numbers, one row each. What differs between the commands are the type that a number's row takes
// and what is asked of the group.
#pragma once

#include <functional>
#include <string>

#include "script/Action.h"
#include "script/Report.h"

namespace cordboard {

// The type of a number, and whether a group takes the row that is being made. Both are asked when the turn of their
// column comes, NUMTYP and GRP, once for each number. A group that answers False ends the add, and has reported why.
struct MemberRules {
  std::function<Value(const Value& DIR)> NUMTYP;
  std::function<bool(const Value& GRP)> GRP;
};

// Inserts a row for each number, of the columns of ParamList: beside those of the rules, DIR is the number and any
// other column as in Record. The first number that is refused ends it; rows before it are left to the caller's
// transaction.
bool InsertMembers(const Action& action, const Reporter& fail, const List& numbers, const MemberRules& rules);

// EX, whatever the number.
Value ExtensionType(const Value& DIR);
// That of an operator with the number, EX where there is none. Operators that cannot be read are reported, and leave
// the type empty.
Value OperatorOrExtensionType(const Reporter& fail, const Value& DIR);

// Whether the table of heads has the group. A table that cannot be read is reported.
bool FindHead(const Reporter& fail, const std::string& heads, const Value& GRP, bool& found);
bool InsertHead(const Reporter& fail, const std::string& heads, const List& columns, const List& values);
// A group comes into being with its first member: gives it a head of its number alone where it has none.
bool FindOrInsertHead(const Reporter& fail, const std::string& heads, const Value& GRP);

}  // namespace cordboard
