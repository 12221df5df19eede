// OPCTS: call origin groups: for each group CORG the kinds of calls CALT that come under it, each with the number OACC
// and the route ROU that it is about. The groups in use stand in a side table, one row each.

#include <algorithm>
#include <initializer_list>

#include "script/Conversions.h"
#include "script/Envelope.h"
#include "script/Module.h"
#include "script/Report.h"
#include "shared/Count.h"
#include "shared/Rechecks.h"
#include "shared/Record.h"
#include "shared/Release.h"
#include "shared/Row.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

// --- Lists.

bool ListCORG(const Action& action) { return PushWholeNumbers(1, IsR6(action) ? 32 : 100) || ListRefused(action); }

// A group has each kind at most once.
bool ListCALT(const Action& action) {
  return (scSQLSelectValuesAndDesc() &&
          scSubtractSingleValues(Sql(" SELECT CALT FROM OPCTS WHERE CORG = '", scGetParamValue("CORG"), "'"))) ||
         Reporter("GetValidValues")(DescribedListNotBuilt, action.Parameter());
}

bool IsOneOf(const Value& CALT, std::initializer_list<const char*> kinds) {
  return std::ranges::any_of(kinds, [&](const char* kind) { return Equals(CALT, kind); });
}

bool ListNumbers(const Action& action, const char* types) {
  return CollectList(action,
                     Sql(" SELECT NUMSE FROM NANSI ", NL, " WHERE NUMTYP IN (", types, ") ", NL, " ORDER BY NUMSE "));
}

// The kinds 4 and 5 need no number. Other kinds than these are none and refuse the list.
bool ListOACC(const Action& action) {
  const Value CALT = scGetParamValue("CALT");
  if (CALT.IsBlank()) return ListNumbers(action, "'OC', 'OD', 'OE'");
  if (Equals(CALT, "0")) return ListNumbers(action, "'OE'");
  if (IsOneOf(CALT, {"1", "2", "3"})) return ListNumbers(action, "'OC'");
  if (IsOneOf(CALT, {"6", "7"})) return ListNumbers(action, " 'OD'");
  return IsOneOf(CALT, {"4", "5"}) || ListRefused(action);
}

// --- Checks.

// Which of OACC and ROU are optional follows from the kind. The answer is that of the reset; nothing is reported.
bool CheckCALT(const Action&) {
  const Value CALT = scGetParamValue("CALT");
  scSetParamOptional("OACC", !IsOneOf(CALT, {"0", "1", "2", "3", "6", "7"}));
  scSetParamOptional("ROU", !IsOneOf(CALT, {"4", "5", "6", "7"}));
  return scResetParam("OACC");
}

// Keeps the kind where the new group can have it. Whether it could be reset does not count.
bool CheckCORG(const Action&) {
  const Reporter fail("StatCheck");
  const Value kept = scGetParamValue("CALT");
  scResetParam("CALT");
  List kinds;
  if (!scGetValidValues("CALT", kinds)) return fail(ListNotBuilt, "CALT");
  return !IsValueInList(kept, kinds) || scSetParamValue("CALT", kept) || fail(SetFailed, "CALT");
}

// --- Add.

// Whether the table holds a record of these values already. ROU counts where it was given.
bool IsDouble() {
  const Value CORG = scGetParamValue("CORG");
  const Value CALT = scGetParamValue("CALT");
  const Value OACC = scGetParamValue("OACC");
  const Value ROU = scGetParamValue("ROU");
  const std::string route = ROU.IsEmpty() ? "" : Sql(" AND ROU = '", ROU, "'");
  return Differs(UncheckedCount(Sql("SELECT COUNT(*) FROM OPCTS WHERE CORG =  '", CORG, "'", NL, " AND CALT = '", CALT,
                                    "' AND OACC = '", OACC, "'", NL, route)),
                 0);
}

bool TakeIntoUse(const Reporter& fail, const Value& CORG, const Value& NUMTYP) {
  const Value count = UncheckedCount(Sql("SELECT COUNT(*) FROM USEDCALLORIGINGROUPS WHERE CORG =  '", CORG, "'"));
  return !Equals(count, 0) || scSQLInsert("USEDCALLORIGINGROUPS", {"CORG", "NUMTYP"}, {CORG, NUMTYP}) ||
         fail(InsertFailed, "USEDCALLORIGINGROUPS");
}

// A double is refused before there is a transaction. The side table takes the group as the record has it.
bool Add(const Action& action) {
  const Reporter fail("Add: " + action.CmdName);
  if (IsDouble()) return fail(CallOriginInTheWay);
  return InTransaction(fail, [&] {
    const List record = Record(action.ParamList);
    const auto value = [&](const char* column) { return ValueOf(column, action.ParamList, record); };
    return TakeIntoUse(fail, value("CORG"), value("NUMTYP")) &&
           (scSQLInsert(action.CmdName, action.ParamList, record) || fail(InsertFailed, action.CmdName));
  });
}

// --- Edit and delete.

// Of a new group only the side table is told: the column CORG of the record is left to the host.
bool MoveUse(const Action& action, const Reporter& fail, const Value& CORG) {
  RowSet rows;
  if (!scRunQuery(Sql("SELECT CORG FROM OPCTS WHERE CmdId = ", action.CmdId), rows)) return fail(StatementFailed);
  return scRunQuery(
             Sql("UPDATE USEDCALLORIGINGROUPS SET CORG = '", CORG, "'", NL, " WHERE CORG = '", rows[0][0], "'")) ||
         fail(ColumnNotWritten, "CORG");
}

bool Edit(const Action& action) {
  const Reporter fail("Edit: " + action.CmdName);
  return InTransaction(fail, [&] {
    for (const Value& parameter : action.ParamList) {
      const std::string name = ToText(parameter);
      const Value value = scGetParamValue(name);
      const bool written = name == "CORG" ? MoveUse(action, fail, value)
                                          : UpdateColumnOrNull(action.CmdName, action.CmdId, name, value) ||
                                                fail(ColumnNotWritten, name);
      if (!written) return false;
    }
    return true;
  });
}

// The last record of a group frees the group and is itself left to the host; one of several is deleted, and the group
// stays in use. Neither of the two reads is tested.
bool Delete(const Action& action) {
  const Reporter fail("Delete: " + action.CmdName);
  return InTransaction(fail, [&] {
    RowSet rows;
    scRunQuery(Sql("SELECT CORG FROM OPCTS WHERE CMDID = ", action.CmdId), rows);
    const Value CORG = rows[0][0];
    if (Equals(UncheckedCount(Sql("SELECT COUNT(*) FROM OPCTS WHERE CORG = '", CORG, "'")), 1))
      return scRunQuery(Sql("DELETE * FROM USEDCALLORIGINGROUPS ", NL, " WHERE CORG = '", CORG, "'")) ||
             fail(CleanUpFailed, "USEDCALLORIGINGROUPS");
    return DeleteRow(action.CmdName, action.CmdId) || fail(RecordNotDeleted, action.CmdName, action.CmdId);
  });
}

}  // namespace

extern const Module OPCTS{
    .SetInfo = Add,
    .EditInfo = Edit,
    .DeleteInfo = Delete,
    .ValidValues = {{"CALT", ListCALT},
                    {"CORG", ListCORG},
                    {"CUST", GetValuesFor_CUST},
                    {"OACC", ListOACC},
                    {"ROU", GetValuesFor_ROU}},
    .StatCheck = {{"CALT", CheckCALT}, {"CORG", CheckCORG}},
};

}  // namespace cordboard
