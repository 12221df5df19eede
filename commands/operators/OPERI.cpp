// OPERI: operators: a number of type OI on an equipment position, with what their console is.

#include "script/Conversions.h"
#include "script/Envelope.h"
#include "script/Module.h"
#include "script/Report.h"
#include "script/Text.h"
#include "shared/Capacity.h"
#include "shared/Equipment.h"
#include "shared/Rechecks.h"
#include "shared/Row.h"
#include "shared/Usage.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

constexpr int mostOperators = 250;

// --- Lists and checks.

bool ListDIR(const Action& action) { return ListFreeNumbers(action, "OI"); }

// The boards that a console of this type is connected to.
const char* BoardsFor(const Value& TYPE) {
  if (Equals(TYPE, "0") || Equals(TYPE, "1") || Equals(TYPE, "2")) return "'31'";
  if (Equals(TYPE, "3") || Equals(TYPE, "4") || Equals(TYPE, "5")) return "'59', '77'";
  return "'31', '59', '77'";
}

// The free positions on these boards, or those of them at the location on the form.
bool ListEQU(const Action& action) {
  const Value LOCATION = scGetParamValue("LOCATION");
  const Value TYPE = scGetParamValue("TYPE");
  const bool anywhere = Equals(LOCATION, "");
  const std::string place = anywhere ? "" : Sql(" AND LIMs.Location = '", LOCATION, "'", NL);
  return scCollectSingleValues(Sql(anywhere ? EquipmentOnBoardsFromInLine : EquipmentAtLocations,
                                   "WHERE Boards.BoardID IN (", BoardsFor(TYPE), ")", NL, " AND Equipment.Used = False",
                                   NL, place, EquipmentOrder())) ||
         Reporter("GetValuesFor: " + action.Parameter())(ListNotBuilt, action.Parameter());
}

bool HasPCM() { return Equals(scGetParamValue("TYPE"), "5"); }

bool ListPCM(const Action& action) { return HasPCM() && GetValuesAndDescription(action); }

bool CheckLOCATION(const Action& action) { return StatCheck_EQU(action.Parameter()); }

// The position stays where the list for the new type still has it. PCM is mandatory for type 5, and has to be given
// anew for every type, unless what it has to be cannot be said to the form.
bool CheckTYPE(const Action& action) {
  const Reporter fail("StatCheck: " + action.CmdName);
  if (!StatCheck_RecheckValue(action.CmdName, "EQU")) return false;
  if (!scSetParamOptional("PCM", !HasPCM())) return fail(StaticCheckFailed, "PCM");
  return scResetParam("PCM") || fail(ResetFailed, "PCM");
}

// --- Add.

// The limit is asked, and the number and the position are taken into use, when the turn of their column comes. What is
// refused there has been reported.
bool MakeRecord(const Action& action, const Value& number, const List& positions, std::size_t index, List& record) {
  for (const Value& column : action.ParamList) {
    const std::string name = ToText(column);
    if (name == "CMDID") {
      record.Append(scBuildCmdID());
    } else if (name == "NUMTYP") {
      record.Append("OI");
    } else if (name == "DIR") {
      record.Append(number);
      if (!CheckGroupsPerSystem(action.CmdName, "DIR", mostOperators) || !InsertOperator(number, "OI")) return false;
    } else if (name == "EQU") {
      record.Append(positions[index]);
      if (!SetEquipmentUsed(positions[index], true)) return false;
    } else {
      record.Append(scGetParamValue(name));
    }
  }
  return true;
}

// One record for each number, on the position of the same place in its list. A record that the table refuses is
// reported and the next one follows, so that the last one decides.
bool Add(const Action& action) {
  const Reporter fail("Add: " + action.CmdName);
  return InTransaction(fail, [&] {
    List numbers;
    List positions;
    if (!scGetValueArray("DIR", numbers)) return fail(ListNotBuilt, "DIR");
    if (!scGetValueArray("EQU", positions)) return fail(ListNotBuilt, "EQU");
    bool flag = true;
    for (std::size_t k = 0; k < numbers.size(); ++k) {
      List record(std::vector<Value>{});
      if (!MakeRecord(action, numbers[k], positions, k, record)) return false;
      flag = scSQLInsert(action.CmdName, action.ParamList, record) || fail(InsertFailed, action.CmdName);
    }
    return flag;
  });
}

// --- Edit.

bool ReadColumn(const Action& action, const Reporter& fail, const char* column, RowSet& rows) {
  return scRunQuery(Sql(" SELECT ", column, " FROM OPERI ", NL, " WHERE CmdID = ", action.CmdId), rows) ||
         fail(StatementFailed);
}

// Of a new number only the use moves: the column DIR is left to the host. A record that is not there, or a use that
// cannot be moved, does not end the edit, and a later parameter makes up for it, be it a position without a record.
bool Edit(const Action& action) {
  const Reporter fail("Edit: " + action.CmdName);
  return InTransaction(fail, [&] {
    bool flag = true;
    for (const Value& parameter : action.ParamList) {
      const std::string name = ToText(parameter);
      const Value value = scGetParamValue(name);
      RowSet rows;
      if (name == "DIR") {
        if (Length(Joined(value)) > 5) return fail(ValueNotValidHere, "DIR");
        if (!ReadColumn(action, fail, "DIR", rows)) return false;
        flag = !rows.IsEmpty() && UpdateExtOpeGrp(rows[0][0], value);
      } else if (name == "EQU") {
        if (!ReadColumn(action, fail, "EQU", rows)) return false;
        flag = rows.IsEmpty() || UpdateEQU(action.CmdName, action.CmdId, rows[0][0], value);
        if (!flag) return false;
      } else {
        flag = UpdateColumnOrNull(action.CmdName, action.CmdId, name, value) || fail(ColumnNotWritten, name);
        if (!flag) return false;
      }
    }
    return flag;
  });
}

// --- Delete.

// Frees the position and the number; the record itself is left to the host. A record that is not there is refused
// without a message.
bool Delete(const Action& action) {
  const Reporter fail("Delete: " + action.CmdName);
  return InTransaction(fail, [&] {
    RowSet rows;
    if (!scRunQuery(Sql(" SELECT DIR, EQU FROM ", action.CmdName, NL, " WHERE CmdId = ", action.CmdId), rows))
      return fail(StatementFailed);
    return !rows.IsEmpty() && SetEquipmentUsed(rows[1][0], false) && DeleteExtOpeGrp(rows[0][0]);
  });
}

}  // namespace

extern const Module OPERI{
    .SetInfo = Add,
    .EditInfo = Edit,
    .DeleteInfo = Delete,
    .ValidValues = {{"DIR", ListDIR},
                    {"EQU", ListEQU},
                    {"LOCATION", GetValuesFor_LOCATION},
                    {{"MODE", "OPC_D1", "OPC_D2", "OPC_D3", "OPC_D4", "PRG", "TYPE"}, GetValuesAndDescription},
                    {"OCUST", GetValuesFor_CUST},
                    {"PCM", ListPCM}},
    .StatCheck = {{"LOCATION", CheckLOCATION}, {"TYPE", CheckTYPE}},
};

}  // namespace cordboard
