#include "shared/Capacity.h"

#include <optional>

#include "script/Conversions.h"
#include "script/Report.h"

namespace cordboard {

namespace {

std::int16_t Count(const RowSet& rows) { return ToInt16(rows.RowCount()); }

std::string SelectLIM(const Value& EQU) { return Sql("SELECT LIM FROM Equipment", NL, " WHERE EQU = '", EQU, "'"); }

// The LIM of a position; nothing, after a report, where it is not found.
std::optional<Value> FindLIM(const Reporter& fail, const Value& EQU) {
  RowSet rows;
  if (scRunQuery(SelectLIM(EQU), rows) && !rows.IsEmpty()) return rows[0][0];
  fail(EquipmentNotFound);
  return std::nullopt;
}

// The number of groups that the statement gives; nothing, after a report with the LIM, where it fails.
std::optional<std::int16_t> CountGroups(const Reporter& fail, const Value& LIM, const std::string& sql) {
  RowSet rows;
  if (scRunQuery(sql, rows)) return Count(rows);
  fail(LIMNotCounted, LIM);
  return std::nullopt;
}

std::string SelectGroupsAtPositions(const std::string& table, const Value& LIM) {
  return Sql("SELECT ", table, ".GRP FROM ", table, NL, " INNER JOIN Equipment ON ", table, ".EQU = Equipment.EQU", NL,
             " WHERE Equipment.LIM = '", LIM, "'");
}

// Moving is refused at the limit exactly: a LIM that is beyond it already takes more.
bool MayMoveTo(const Reporter& fail, const Value& LIM, const std::string& sql, int limit) {
  const auto groups = CountGroups(fail, LIM, sql);
  if (!groups) return false;
  Debug("GroupsInLIM = ", *groups);
  return *groups != limit || fail(LIMIsFull, limit);
}

}  // namespace

bool CheckGroupsPerSystem(const std::string& table, const std::string& column, int limit) {
  const Reporter fail("CheckGroupsPerSystem");
  RowSet rows;
  if (!scRunQuery(Sql("SELECT ", column, " FROM ", table), rows)) return fail(GenerationFailed);
  return Count(rows) < limit || fail(SystemIsFull, limit);
}

bool CheckGroupsPerSystem(const std::string& table, int limit) { return CheckGroupsPerSystem(table, "GRP", limit); }

bool CheckGroupsPerLIM_EQU(const std::string& table, const Value& EQU, int limit) {
  const Reporter fail("CheckGroupsPerLIM_EQU");
  const auto LIM = FindLIM(fail, EQU);
  if (!LIM) return false;
  const auto groups = CountGroups(fail, *LIM, SelectGroupsAtPositions(table, *LIM));
  if (!groups) return false;
  Debug("MaxGroupsPerLIM = ", limit);
  Debug("GroupsInLIM = ", *groups);
  return *groups < limit || fail(LIMIsFull, limit);
}

bool CheckLIMCapacity(const std::string& table, const Value& oldEQU, const Value& newEQU, int limit) {
  const Reporter fail("CheckLIMCapacity");
  Debug("Function CheckLIMCapacity called");
  Debug("  OldEQU = ", oldEQU);
  Debug("  NewEQU = ", newEQU);
  Debug("  MaxGroupsPerLIM = ", limit);
  const auto oldLIM = FindLIM(fail, oldEQU);
  if (!oldLIM) return false;
  const auto newLIM = FindLIM(fail, newEQU);
  if (!newLIM) return false;
  Debug("OldLIM = ", *oldLIM);
  Debug("NewLIM = ", *newLIM);
  return Equals(*oldLIM, *newLIM) || MayMoveTo(fail, *newLIM, SelectGroupsAtPositions(table, *newLIM), limit);
}

// Equal LIMs answer False, and nothing is read or reported.
bool CheckLIMCapacityFromLIM(const std::string& table, const Value& oldLIM, const Value& newLIM, int limit) {
  Debug("Function CheckLIMCapacityFromLIM called");
  Debug("  OldLIM = ", oldLIM);
  Debug("  NewLIM = ", newLIM);
  Debug("  MaxGroupsPerLIM = ", limit);
  if (Equals(oldLIM, newLIM)) return false;
  return MayMoveTo(Reporter("CheckLIMCapacityFromLIM"), newLIM,
                   Sql("SELECT GRP FROM ", table, NL, " WHERE LIM = '", newLIM, "'"), limit);
}

std::int16_t GetLIMFromEQU(const Value& EQU) {
  const Reporter fail("GetLIMFromEQU");
  RowSet rows;
  if (!scRunQuery(SelectLIM(EQU), rows)) {
    fail(StatementFailed);
    return -1;
  }
  return rows.IsEmpty() ? std::int16_t{-1} : ToInt16(rows[0][0]);
}

bool CheckMembersPerGroup(const std::string& table, const Value& group, int toAdd, int limit) {
  const Reporter fail("CheckMembersPerGroup");
  RowSet rows;
  if (!scRunQuery(Sql("SELECT DIR FROM ", table, NL, " WHERE GRP = '", group, "'"), rows))
    return fail(GroupMembersNotCounted, group);
  const int count = Count(rows);
  if (count == limit) return fail(GroupIsFull, group, limit);
  return count + toAdd <= limit || fail(GroupMembersBeyondLimit, group, count, toAdd, limit);
}

// On a table without members there is no limit on what is added at once.
bool CheckMembersPerSystem(const std::string& table, int toAdd, int limit) {
  const Reporter fail("CheckMembersPerSystem");
  RowSet rows;
  if (!scRunQuery(Sql("SELECT DIR FROM ", table), rows)) return fail(SystemMembersNotCounted);
  if (rows.IsEmpty()) return true;
  const int count = Count(rows);
  if (count == limit) return fail(SystemMembersFull, limit);
  return count + toAdd <= limit || fail(SystemMembersBeyondLimit, count, toAdd, limit);
}

}  // namespace cordboard
