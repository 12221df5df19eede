// The heads of groups that have a number of their own, one row a group: ACGRI and GHGRI, of which a LIM carries each
// group, and CBELI, whose groups stand on equipment positions. CmdName is the table.
#pragma once

#include <string>

#include "script/Action.h"
#include "script/Report.h"

namespace cordboard {

// What an add writes to the debug window: the record, column by column, or the limits with what is counted.
enum class AddTrace { Record, Limits };

// What the groups of one kind have of their own.
struct GroupKind {
  List columns;   // of a record, "CMDID" first
  int perSystem;  // how many groups an add allows, in the system and in a LIM
  int perLIM;
  AddTrace trace;
};

// Adds a group to the LIM on the form, and takes its number into use. Both limits refuse their exact number alone: what
// is beyond a limit takes more.
bool AddGroupInLIM(const Action& action, const GroupKind& kind);

// Moves a group to the place in `value`. It reports its failures.
using MoveGroup = bool (*)(const Action& action, const Reporter& fail, const Value& value);

// What the record has in the column, traced. The statement's answer is not tested: a record that is not there fails the
// call.
Value OldValue(const Action& action, const std::string& column);

// Writes the changed parameters: GRP by moving the use of the number, where the column is left to the host, the
// parameter `place` by `move`, any other as it stands. An edit goes on after a failure, so that the last parameter
// decides.
bool EditGroup(const Action& action, const std::string& place, MoveGroup move);
// The same for groups that a LIM carries. A move allows 100 groups in a LIM, whatever an add allows.
bool EditGroupInLIM(const Action& action);

// Frees the number of a group that a LIM carries. The record itself is left to the host.
bool DeleteGroupInLIM(const Action& action);

}  // namespace cordboard
