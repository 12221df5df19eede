#include "shared/GroupHead.h"

#include "script/Conversions.h"
#include "script/Envelope.h"
#include "shared/Capacity.h"
#include "shared/Record.h"
#include "shared/Row.h"
#include "shared/Usage.h"

namespace cordboard {

namespace {

bool SystemHasRoom(const Action& action, const Reporter& fail, const GroupKind& kind) {
  RowSet groups;
  if (!scRunQuery(Sql("SELECT GRP FROM ", action.CmdName), groups)) return fail(GenerationFailed);
  if (kind.trace == AddTrace::Limits) {
    Debug("MaxGroupsPerSystem = ", kind.perSystem);
    Debug("GroupsInSystem = ", groups.RowCount());
  }
  return groups.RowCount() != static_cast<std::size_t>(kind.perSystem) || fail(SystemIsFull, kind.perSystem);
}

// Each column is traced as it is read.
List ReadRecord(const GroupKind& kind) {
  List record(std::vector<Value>{});
  for (const Value& column : kind.columns) {
    const std::string name = ToText(column);
    record.Append(name == "CMDID" ? scBuildCmdID() : name == "NUMTYP" ? Value("EX") : scGetParamValue(name));
    if (kind.trace == AddTrace::Record) Debug(name == "CMDID" ? "CmdId" : name, " = ", record[record.size() - 1]);
  }
  return record;
}

bool LIMHasRoom(const Action& action, const Reporter& fail, const GroupKind& kind, const Value& LIM) {
  const std::string& table = action.CmdName;
  if (kind.trace == AddTrace::Limits) Debug("LIM = ", LIM);
  RowSet groups;
  if (!scRunQuery(Sql("SELECT ", table, ".GRP FROM ", table, NL, " WHERE ", table, ".LIM = '", LIM, "'"), groups))
    return fail(LIMNotCounted, LIM);
  if (kind.trace == AddTrace::Limits) {
    Debug("MaxGroupsPerLIM = ", kind.perLIM);
    Debug("GroupsInLIM = ", groups.RowCount());
  }
  return groups.RowCount() != static_cast<std::size_t>(kind.perLIM) || fail(LIMIsFull, kind.perLIM);
}

bool MoveNumber(const Action& action, const Reporter& fail, const Value& GRP) {
  const Value old = OldValue(action, "GRP");
  if (old.IsEmptyText()) return fail(RecordNotFound);
  return UpdateExtOpeGrp(old, GRP) || fail(ColumnNotWritten, "GRP");
}

// The LIM that a group is in already needs no room, and is written all the same.
bool MoveToLIM(const Action& action, const Reporter& fail, const Value& LIM) {
  constexpr int perLIM = 100;
  const Value old = OldValue(action, "LIM");
  if (old.IsEmptyText()) return fail(EquipmentNotFound);
  if (Joined(old) != Joined(LIM) && !CheckLIMCapacityFromLIM(action.CmdName, old, LIM, perLIM))
    return fail(LIMChangeRefused, "LIM");
  return UpdateLIM(action.CmdName, action.CmdId, old, LIM) || fail(ColumnNotWritten, "LIM");
}

}  // namespace

bool AddGroupInLIM(const Action& action, const GroupKind& kind) {
  const Reporter fail("Add: " + action.CmdName);
  return InTransaction(fail, [&] {
    if (!SystemHasRoom(action, fail, kind)) return false;
    const List record = ReadRecord(kind);
    const Value LIM = ValueOf("LIM", kind.columns, record);
    const Value GRP = ValueOf("GRP", kind.columns, record);
    if (!LIMHasRoom(action, fail, kind, LIM) || !InsertGroup(GRP, "EX")) return false;
    return scSQLInsert(action.CmdName, kind.columns, record) || fail(InsertFailed, action.CmdName);
  });
}

bool EditGroup(const Action& action, const std::string& place, MoveGroup move) {
  const Reporter fail("Edit: " + action.CmdName);
  return InTransaction(fail, [&] {
    Debug("Number of changed parameters = ", action.ParamList.size());
    bool flag = true;
    for (const Value& parameter : action.ParamList) {
      const std::string name = ToText(parameter);
      const Value value = scGetParamValue(name);
      Debug("NewValue for ", name, " = ", value);
      if (name == "GRP") {
        flag = MoveNumber(action, fail, value);
      } else if (name == place) {
        flag = move(action, fail, value);
      } else {
        flag = UpdateColumn(action.CmdName, action.CmdId, name, value) || fail(ColumnNotWritten, name);
      }
    }
    return flag;
  });
}

bool EditGroupInLIM(const Action& action) { return EditGroup(action, "LIM", MoveToLIM); }

Value OldValue(const Action& action, const std::string& column) {
  RowSet rows;
  scRunQuery(Sql("SELECT ", column, " FROM ", action.CmdName, NL, " WHERE CmdID = ", action.CmdId), rows);
  Value old = rows[0][0];
  Debug("OldValue for ", column, " = ", old);
  return old;
}

bool DeleteGroupInLIM(const Action& action) {
  const Reporter fail("Delete: " + action.CmdName);
  return InTransaction(fail, [&] {
    RowSet rows;
    if (!scRunQuery(Sql("SELECT GRP FROM ", action.CmdName, NL, " WHERE CmdId = ", action.CmdId), rows))
      return fail(ListNotBuilt, "GRP");
    return DeleteExtOpeGrp(rows[0][0]);
  });
}

}  // namespace cordboard
