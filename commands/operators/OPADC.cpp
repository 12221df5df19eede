// OPADC: where the calls of a call origin group CORG are sent: to a number RERNUM. With NDIR "N" the group has no
// number.

#include "script/Conversions.h"
#include "script/Envelope.h"
#include "script/Module.h"
#include "script/Report.h"
#include "shared/Count.h"
#include "shared/GenericRecord.h"
#include "shared/Rechecks.h"
#include "shared/Record.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

// --- Lists and the check.

bool ListCORG(const Action& action) { return GetValuesFor_CORG(action, action.CmdName); }

// The numbers of all telephones, groups and operators, and the common numbers. Without NDIR there is no list.
bool ListRERNUM(const Action& action) {
  if (!Equals(scGetParamValue("NDIR"), "Y")) return true;
  return (scCollectSingleValues("SELECT DIR FROM EXTEIDIR ") && scAddSingleValues("SELECT DIR FROM KSEXI ") &&
          scAddSingleValues("SELECT ADN FROM KSANI ") && scAddSingleValues("SELECT DIR FROM CXAKI") &&
          scAddSingleValues("SELECT DIR FROM ITNUI ") && scAddSingleValues("SELECT GRP FROM CBELI") &&
          scAddSingleValues("SELECT GRP FROM GHGRI") && scAddSingleValues("SELECT GRP FROM ACGRI") &&
          scAddSingleValues(Sql("SELECT NUMSE FROM NANSI", NL, "WHERE NUMTYP = 'OC'")) &&
          scAddSingleValues("SELECT DIR FROM OPERI")) ||
         Reporter("GetValuesFor: " + action.Parameter())(ListNotBuilt, action.Parameter());
}

bool CheckNDIR(const Action& action) { return StatCheck_RecheckValue(action.CmdName, "RERNUM"); }

// --- Add.

// Enters a common number that is not in use yet. A number of no series fails the call, and so does a count that cannot
// be read.
bool TakeIntoUse(const Reporter& fail, const Value& RERNUM) {
  RowSet rows;
  if (!scRunQuery(Sql("SELECT NUMTYP FROM NANSI WHERE NUMSE = '", RERNUM, "' "), rows)) return fail(StatementFailed);
  const Value NUMTYP = rows[0][0];
  if (!Equals(NUMTYP, "OC")) return true;
  if (!Equals(UncheckedCount(Sql("SELECT COUNT(*) FROM USEDEXTOPEGRP WHERE DIR = '", RERNUM, "' ")), 0)) return true;
  return scRunQuery(Sql(" INSERT INTO UsedExtOpeGrp", NL, " (DIR, NUMTYP) ", NL, " VALUES ('", RERNUM, "', '", NUMTYP,
                        "')")) ||
         fail(StatementFailed);
}

// A record for each group. The number is looked up anew for each of them.
bool Add(const Action& action) {
  const Reporter fail("Add: " + action.CmdName);
  return InTransaction(fail, [&] {
    List groups;
    if (!scGetValueArray("CORG", groups)) return fail(ListNotBuilt, "CORG");
    for (const Value& CORG : groups) {
      const List record = Record(action.ParamList, {{"CORG", CORG}});
      const Value RERNUM = ValueOf("RERNUM", action.ParamList, record);
      if (!RERNUM.IsBlank() && !TakeIntoUse(fail, RERNUM)) return false;
      if (!scSQLInsert(action.CmdName, action.ParamList, record)) return fail(InsertFailed, action.CmdName);
    }
    return true;
  });
}

}  // namespace

extern const Module OPADC{
    .SetInfo = Add,
    .EditInfo = GenericEditInfo,
    .DeleteInfo = GenericDeleteInfo,
    .ValidValues = {{"CORG", ListCORG}, {"NDIR", GetValuesAndDescription}, {"RERNUM", ListRERNUM}},
    .StatCheck = {{"NDIR", CheckNDIR}},
};

}  // namespace cordboard
