// The limits on groups and members. They count the rows of a command's own table, report with a message that tells the
// limit, and change nothing. Counts are 16-bit numbers; limits are constants of the callers.
#pragma once

#include <cstdint>
#include <string>

#include "script/Value.h"

namespace cordboard {

bool CheckGroupsPerSystem(const std::string& table, const std::string& column, int limit);
// The same on the column GRP.
bool CheckGroupsPerSystem(const std::string& table, int limit);
bool CheckGroupsPerLIM_EQU(const std::string& table, const Value& EQU, int limit);
// For a move to a new position, or to a new LIM. The second is for a LIM that has changed: equal ones give False.
bool CheckLIMCapacity(const std::string& table, const Value& oldEQU, const Value& newEQU, int limit);
bool CheckLIMCapacityFromLIM(const std::string& table, const Value& oldLIM, const Value& newLIM, int limit);
// The LIM of a position, -1 where it is not known.
std::int16_t GetLIMFromEQU(const Value& EQU);
bool CheckMembersPerGroup(const std::string& table, const Value& group, int toAdd, int limit);
bool CheckMembersPerSystem(const std::string& table, int toAdd, int limit);

}  // namespace cordboard
