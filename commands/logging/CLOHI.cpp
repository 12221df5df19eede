// CLOHI: the heads of logging: each binds a file to a format of CLFOC. What is logged into files (CLODI, CLOMI) lasts
// as long as any head does.

#include "script/Conversions.h"
#include "script/Envelope.h"
#include "script/Module.h"
#include "script/Report.h"
#include "shared/Count.h"
#include "shared/GenericRecord.h"
#include "shared/Row.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

// --- Lists and checks.

// The files of devices and of logging that have no head yet.
bool ListFILE(const Action& action) {
  return (scCollectSingleValues("SELECT FILE FROM EDDFI") && scAddSingleValues("SELECT FILE FROM CLDFI") &&
          scSubtractSingleValues("SELECT FILE FROM CLOHI")) ||
         Reporter("GetValues")(ListNotBuilt, action.Parameter());
}

bool ListFORM(const Action& action) {
  return scCollectValuesAndDesc(Sql("SELECT FORM, DESCRIPTION ", NL, " FROM CLFOC ", NL, " ORDER BY VAL(FORM)"),
                                "dynamic") ||
         Reporter("GetValuesFor: FORM")(DescribedListNotBuilt, action.Parameter());
}

// The formats that lines are generated for, and a form without a format, have all values; any other has NO alone.
bool ListLOGABN(const Action& action) {
  const Value FORM = scGetParamValue("FORM");
  const bool all = FORM.IsBlank() || Equals(FORM, "4") || Equals(FORM, "5") || Equals(FORM, "6");
  return (all ? scSQLSelectValuesAndDesc()
              : scCollectValuesAndDesc(Sql("SELECT Value, ValDesc FROM ParamValueDesc ", NL, "WHERE Command = 'CLOHI' ",
                                           NL, "AND Param = 'LOGABN' AND Value = 'NO'"))) ||
         Reporter("GetValidValues ")(DescribedListNotBuilt, action.Parameter());
}

// The answer is that of the reset, which is not reported.
bool CheckFORM(const Action&) { return scResetParam("LOGABN"); }

// A logging file with a path has other sizes than the rest. Whether a size can be taken out is not tested.
bool CheckFILE(const Action& action) {
  if (!scResetParam("DMPSIZ")) return false;
  const Value FILE = scGetParamValue(action.Parameter());
  const Value count = UncheckedCount(Sql("SELECT COUNT(*) FROM CLDFI WHERE FILE = '", FILE, "' AND PATH <> ''"));
  const bool hasPath = Differs(count, 0);
  for (const char* size : {hasPath ? "1" : "4", hasPath ? "2" : "5", "6"}) scRemoveFromValidValues("DMPSIZ", size);
  return true;
}

// --- Add.

// The format has to be defined when the turn of its column comes. Where it is not, that has been reported.
bool MakeRecord(const Action& action, const Reporter& fail, List& record) {
  for (const Value& column : action.ParamList) {
    const std::string name = ToText(column);
    const Value value = name == "CMDID" ? scBuildCmdID() : name == "NUMTYP" ? Value("") : scGetParamValue(name);
    record.Append(value);
    if (name != "FORM") continue;
    const Value count = UncheckedCount(Sql("SELECT COUNT(*) FROM CLFOC", NL, "WHERE FORM = '", value, "'"));
    if (Equals(count, 0)) return fail(RecordNeededElsewhere, "CLFOC", "CLOHI");
  }
  return true;
}

bool Add(const Action& action) {
  const Reporter fail("Add: " + action.CmdName);
  action.ParamList.RequireBounds();  // before the transaction
  return InTransaction(fail, [&] {
    List record(std::vector<Value>{});
    if (!MakeRecord(action, fail, record)) return false;
    return scSQLInsert(action.CmdName, action.ParamList, record) || fail(InsertFailed, action.CmdName);
  });
}

// --- Delete.

// Deletes the records one by one. Whether they can be read is not tested: without them nothing is deleted.
bool Clear(const Reporter& fail, const char* table) {
  RowSet rows;
  scRunQuery(Sql("SELECT CmdID FROM ", table), rows);
  for (std::size_t i = 0; i < rows.RowCount(); ++i) {
    const Value& CmdID = rows[0][i];
    if (!scRunQuery(Sql("DELETE * FROM ", table, " WHERE CmdID = ", CmdID)))
      return fail(RecordNotDeleted, table, CmdID);
  }
  return true;
}

// With the last head goes what is logged, into whatever file.
bool Delete(const Action& action) {
  const Reporter fail("Delete: " + action.CmdName);
  return InTransaction(fail, [&] {
    if (!DeleteRow(action.CmdName, action.CmdId)) return fail(RecordNotDeleted, action.CmdName, action.CmdId);
    if (!Equals(UncheckedCount("SELECT COUNT(*) FROM CLOHI"), 0)) return true;
    return Clear(fail, "CLODI") && Clear(fail, "CLOMI");
  });
}

}  // namespace

extern const Module CLOHI{
    .SetInfo = Add,
    .EditInfo = GenericEditInfo,
    .DeleteInfo = Delete,
    .ValidValues = {{"FILE", ListFILE},
                    {"FORM", ListFORM},
                    {{"DMPSIZ", "HRTBT"}, GetValuesAndDescription},
                    {"LOGABN", ListLOGABN}},
    .StatCheck = {{"FORM", CheckFORM}, {"FILE", CheckFILE}},
};

}  // namespace cordboard
