#include "shared/Capacity.h"

#include <optional>

#include "script/Conversions.h"
#include "script/Report.h"

namespace cordboard {

namespace {

std::int16_t Count(const RowSet& rows) { return ToInt16(rows.RowCount()); }

std::string SelectLIM(const Value& EQU) { return Sql("SELECT LIM FROM Equipment", NL, " WHERE EQU = '", EQU, "'"); }

// The LIM of a position; nothing, after a report, where it is not found.
std::optional<Value> FindLIM(const std::string& context, const Value& EQU) {
  RowSet rows;
  const bool found = scRunQuery(SelectLIM(EQU), rows) && !rows.IsEmpty();
  if (!OrReport(found, context, Message::EquipmentNotFound)) return std::nullopt;
  return rows[0][0];
}

// The number of groups that the statement gives; nothing, after a report with the LIM, where it fails.
std::optional<std::int16_t> CountGroups(const std::string& context, const Value& LIM, const std::string& sql) {
  RowSet rows;
  if (!OrReport(scRunQuery(sql, rows), context, Message::LIMNotCounted, LIM)) return std::nullopt;
  return Count(rows);
}

std::string SelectGroupsAtPositions(const std::string& table, const Value& LIM) {
  return Sql("SELECT ", table, ".GRP FROM ", table, NL, " INNER JOIN Equipment ON ", table, ".EQU = Equipment.EQU", NL,
             " WHERE Equipment.LIM = '", LIM, "'");
}

// Moving is refused at the limit exactly: a LIM that is beyond it already takes more.
bool MayMoveTo(const std::string& context, const Value& LIM, const std::string& sql, int limit) {
  const auto groups = CountGroups(context, LIM, sql);
  if (!groups) return false;
  Debug("GroupsInLIM = ", *groups);
  return OrReport(*groups != limit, context, Message::LIMIsFull, limit);
}

}  // namespace

bool CheckGroupsPerSystem(const std::string& table, const std::string& column, int limit) {
  const std::string context = "CheckGroupsPerSystem";
  RowSet rows;
  if (!OrReport(scRunQuery(Sql("SELECT ", column, " FROM ", table), rows), context, Message::GenerationFailed))
    return false;
  return OrReport(Count(rows) < limit, context, Message::SystemIsFull, limit);
}

bool CheckGroupsPerSystem(const std::string& table, int limit) { return CheckGroupsPerSystem(table, "GRP", limit); }

bool CheckGroupsPerLIM_EQU(const std::string& table, const Value& EQU, int limit) {
  const std::string context = "CheckGroupsPerLIM_EQU";
  const auto LIM = FindLIM(context, EQU);
  if (!LIM) return false;
  const auto groups = CountGroups(context, *LIM, SelectGroupsAtPositions(table, *LIM));
  if (!groups) return false;
  Debug("MaxGroupsPerLIM = ", limit);
  Debug("GroupsInLIM = ", *groups);
  return OrReport(*groups < limit, context, Message::LIMIsFull, limit);
}

bool CheckLIMCapacity(const std::string& table, const Value& oldEQU, const Value& newEQU, int limit) {
  const std::string context = "CheckLIMCapacity";
  Debug("Function CheckLIMCapacity called");
  Debug("  OldEQU = ", oldEQU);
  Debug("  NewEQU = ", newEQU);
  Debug("  MaxGroupsPerLIM = ", limit);
  const auto oldLIM = FindLIM(context, oldEQU);
  if (!oldLIM) return false;
  const auto newLIM = FindLIM(context, newEQU);
  if (!newLIM) return false;
  Debug("OldLIM = ", *oldLIM);
  Debug("NewLIM = ", *newLIM);
  if (Equals(*oldLIM, *newLIM)) return true;
  return MayMoveTo(context, *newLIM, SelectGroupsAtPositions(table, *newLIM), limit);
}

// Equal LIMs answer False, and nothing is read or reported.
bool CheckLIMCapacityFromLIM(const std::string& table, const Value& oldLIM, const Value& newLIM, int limit) {
  Debug("Function CheckLIMCapacityFromLIM called");
  Debug("  OldLIM = ", oldLIM);
  Debug("  NewLIM = ", newLIM);
  Debug("  MaxGroupsPerLIM = ", limit);
  if (Equals(oldLIM, newLIM)) return false;
  return MayMoveTo("CheckLIMCapacityFromLIM", newLIM, Sql("SELECT GRP FROM ", table, NL, " WHERE LIM = '", newLIM, "'"),
                   limit);
}

std::int16_t GetLIMFromEQU(const Value& EQU) {
  RowSet rows;
  if (!OrReport(scRunQuery(SelectLIM(EQU), rows), "GetLIMFromEQU", Message::StatementFailed)) return -1;
  return rows.IsEmpty() ? std::int16_t{-1} : ToInt16(rows[0][0]);
}

bool CheckMembersPerGroup(const std::string& table, const Value& group, int toAdd, int limit) {
  const std::string context = "CheckMembersPerGroup";
  RowSet rows;
  if (!OrReport(scRunQuery(Sql("SELECT DIR FROM ", table, NL, " WHERE GRP = '", group, "'"), rows), context,
                Message::GroupMembersNotCounted, group))
    return false;
  const int count = Count(rows);
  return OrReport(count != limit, context, Message::GroupIsFull, group, limit) &&
         OrReport(count + toAdd <= limit, context, Message::GroupMembersBeyondLimit, group, count, toAdd, limit);
}

// On a table without members there is no limit on what is added at once.
bool CheckMembersPerSystem(const std::string& table, int toAdd, int limit) {
  const std::string context = "CheckMembersPerSystem";
  RowSet rows;
  if (!OrReport(scRunQuery(Sql("SELECT DIR FROM ", table), rows), context, Message::SystemMembersNotCounted))
    return false;
  if (rows.IsEmpty()) return true;
  const int count = Count(rows);
  return OrReport(count != limit, context, Message::SystemMembersFull, limit) &&
         OrReport(count + toAdd <= limit, context, Message::SystemMembersBeyondLimit, count, toAdd, limit);
}

}  // namespace cordboard
