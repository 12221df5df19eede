// CBELI: groups that are called by a bell: a number of type EX on an equipment position.

#include "script/CommandLine.h"
#include "script/Conversions.h"
#include "script/Envelope.h"
#include "script/Module.h"
#include "script/Report.h"
#include "shared/Capacity.h"
#include "shared/Equipment.h"
#include "shared/GroupHead.h"
#include "shared/Rechecks.h"
#include "shared/Record.h"
#include "shared/Usage.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

// How many groups there may be in the system, and on the positions of one LIM.
constexpr int most = 50;

// --- Lists and checks.

// The free positions on the boards for bells, or those of them at the location on the form.
bool ListEQU(const Action& action) {
  const Value LOCATION = scGetParamValue("LOCATION");
  const bool anywhere = Equals(LOCATION, "");
  const std::string place = anywhere ? "" : Sql(" AND LIMs.Location = '", LOCATION, "'", NL);
  return CollectList(action, Sql(anywhere ? EquipmentOnBoards : EquipmentAtLocations,
                                 "WHERE Boards.BoardID IN ('2', '44', '87', '72', '43')", NL,
                                 " AND Equipment.Used = False", NL, place, EquipmentOrder()));
}

// In no order.
bool ListGRP(const Action& action) {
  return CollectList(action,
                     Sql("SELECT NUMSE ", NL, " FROM NANSI ", NL, " WHERE NUMTYP = 'EX' ", NL, " AND USED = FALSE "));
}

bool CheckLOCATION(const Action& action) { return StatCheck_EQU(action.Parameter()); }

// --- Add, edit and delete.

// Messages come under the command line of the host's process in the place of the command's name.
bool Add(const Action& action) {
  const Reporter fail("Add: " + CommandLine());
  return InTransaction(fail, [&] {
    if (!CheckGroupsPerSystem(action.CmdName, most)) return false;
    const List record = Record(action.ParamList, {{"NUMTYP", "EX"}});
    const Value EQU = ValueOf("EQU", action.ParamList, record);
    const Value GRP = ValueOf("GRP", action.ParamList, record);
    if (!CheckGroupsPerLIM_EQU(action.CmdName, EQU, most)) return false;
    if (!SetEquipmentUsed(EQU, true) || !InsertGroup(GRP, "EX")) return false;
    return scSQLInsert(action.CmdName, action.ParamList, record) || fail(InsertFailed, action.CmdName);
  });
}

// A move that the capacity forbids is reported as one of the LIM.
bool MoveToEQU(const Action& action, const Reporter& fail, const Value& EQU) {
  const Value old = OldValue(action, "EQU");
  if (old.IsEmptyText()) return fail(RecordNotFound);
  if (!CheckLIMCapacity(action.CmdName, old, EQU, most)) return fail(LIMChangeRefused, "LIM");
  return UpdateEQU(action.CmdName, action.CmdId, old, EQU) || fail(ColumnNotWritten, "EQU");
}

bool Edit(const Action& action) { return EditGroup(action, "EQU", MoveToEQU); }

// Frees the position and the number; the record itself is left to the host.
bool Delete(const Action& action) {
  const Reporter fail("Delete: " + action.CmdName);
  return InTransaction(fail, [&] {
    RowSet rows;
    if (!scRunQuery(Sql("SELECT GRP, EQU FROM CBELI", NL, "WHERE CmdID = ", action.CmdId), rows))
      return fail(ListNotBuilt, "GRP");
    const Value GRP = rows[0][0];
    const Value EQU = rows[1][0];
    if (GRP.IsEmptyText()) return fail(RecordNotFound);
    return SetEquipmentUsed(EQU, false) && DeleteExtOpeGrp(GRP);
  });
}

}  // namespace

extern const Module CBELI{
    .SetInfo = Add,
    .EditInfo = Edit,
    .DeleteInfo = Delete,
    .ValidValues = {{"CUST", GetValuesFor_CUST},
                    {"EQU", ListEQU},
                    {"GRP", ListGRP},
                    {"LOCATION", GetValuesFor_LOCATION},
                    {"SERV", GetValuesAndDescription}},
    .StatCheck = {{"LOCATION", CheckLOCATION}},
};

}  // namespace cordboard
