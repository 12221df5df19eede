// ITNUI: terminals: numbers of type EX of which up to 32 share one equipment position. It is on a board of type 77,
// beside a key extension with an access type for them, or on a board of type 70, which has nothing but terminals.

#include "commands/keyextensions/ITNUI_Terminal.h"
#include "script/Envelope.h"
#include "script/Module.h"
#include "script/Report.h"
#include "shared/ClassStrings.h"
#include "shared/Equipment.h"
#include "shared/Rechecks.h"
#include "shared/Usage.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

// --- Lists and checks.

// Positions that have room, first those of the boards 77, then those of the boards 70. The order is asked for anew for
// each. With a LOCATION the first statement names a table that it does not join, and the second closes a bracket that
// it does not open: a database refuses both.
bool ListEQU(const Action& action) {
  const Value LOCATION = scGetParamValue("LOCATION");
  const std::string atLOCATION = LOCATION.IsEmpty() ? "" : Sql(" AND LIMs.Location = '", LOCATION, "'");
  const std::string onBoards70 =
      LOCATION.IsEmpty()
          ? "SELECT Equipment.EQU  FROM Boards  INNER JOIN Equipment  ON (Boards.Slot = Equipment.Slot)  AND "
            "(Boards.Magazine = Equipment.Magazine) AND (Boards.LIM = Equipment.LIM) WHERE "
          : "SELECT Equipment.EQU FROM Locations INNER JOIN (Boards INNER JOIN Equipment ON (Boards.Slot = "
            "Equipment.Slot) AND (Boards.Magazine = Equipment.Magazine) AND (Boards.LIM = Equipment.LIM)) INNER JOIN "
            "LIMs ON Boards.LIM = LIMs.LIM) ON Locations.Location = LIMs.Location WHERE ";
  const bool collected =
      scCollectSingleValues(
          Sql("SELECT EQU FROM KSEXI WHERE EQU IN ( SELECT Equipment.EQU From Boards INNER JOIN Equipment  ON "
              "(Boards.Slot = Equipment.Slot) AND (Boards.Magazine = Equipment.Magazine) AND (Boards.LIM = "
              "Equipment.LIM)  WHERE Boards.BoardID IN ('77')",
              atLOCATION, "  AND (SELECT COUNT (*) FROM ITNUI WHERE EQU = Equipment.EQU) < 32  AND ACCTYP IS NOT NULL ",
              EquipmentOrder(), ")")) &&
      scAddSingleValues(Sql(onBoards70, "Boards.BoardID IN ('70')", atLOCATION,
                            " AND (SELECT COUNT (*) FROM ITNUI WHERE EQU = Equipment.EQU) < 32 AND "
                            "Equipment.Individual IN ('00','02','04','06')",
                            EquipmentOrder()));
  return collected || Reporter("GetValuesFor: " + action.Parameter())(ListNotBuilt, action.Parameter());
}

// --- Add and edit.

bool Add(const Action& action) {
  return AddTerminal(action, [](const Reporter& fail, const std::string& column, Value& value) {
    return TakeColumn(column, scBuildCmdID, value) &&
           (column != "ACCTYP" || TestBoard(fail, scGetParamValue("EQU"), value));
  });
}

bool Edit(const Action& action) { return EditTerminal(action); }

// --- Delete.

// Frees the number, and the position as well, whatever else still stands on it. The record itself is left to the host.
bool Delete(const Action& action) {
  const Reporter fail("Delete: " + action.CmdName);
  return InTransaction(fail, [&] {
    RowSet rows;
    if (!scRunQuery(Sql("SELECT DIR, EQU FROM ITNUI  WHERE CmdID = ", action.CmdId), rows))
      return fail(ValueNotFound, "DIR, EQU", "ITNUI");
    if (rows.IsEmpty()) return fail(RecordNotFound);
    const Value DIR = rows[0][0];
    const Value EQU = rows[1][0];
    return DeleteExtOpeGrp(DIR) && SetEquipmentUsed(EQU, false);
  });
}

}  // namespace

extern const Module ITNUI{
    .SetInfo = Add,
    .EditInfo = Edit,
    .DeleteInfo = Delete,
    .ValidValues = {{ClassStringDigits, GetValuesAndDescription},
                    {TerminalValues, GetValuesAndDescription},
                    {CDIVTail, ListCDIVTail},
                    {"CAT", GetValuesFor_CAT},
                    {"CUST", GetValuesFor_CUST},
                    {"DIR", GetValuesFor_EX},
                    {"EQU", ListEQU},
                    {"LOCATION", StatCheck_EQU_LOCATION}},
    .StatCheck = {{"CDIV_D6", ResetCDIVTail}, {"EQU", ResetLOCATION}},
};

}  // namespace cordboard
