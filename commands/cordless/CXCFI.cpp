// CXCFI: the radio exchange boards of the cordless system: each has a number FPI of its own and stands at a position.

#include "script/Conversions.h"
#include "script/Envelope.h"
#include "script/Module.h"
#include "shared/BoardPositions.h"
#include "shared/Count.h"
#include "shared/GenericRecord.h"
#include "shared/Rechecks.h"
#include "shared/Row.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

bool ListBPOS(const Action& action) { return ListBoardPositions(action, "108", " SELECT BPOS FROM CXCFI "); }

bool CheckLOCATION(const Action&) { return StatCheck_BPOS("LOCATION"); }

// Any record that has the FPI counts, the one that is edited too.
bool IsFree(const Reporter& fail, const Value& FPI) {
  RowSet rows;
  if (!scRunQuery(Sql(" SELECT FPI FROM CXCFI ", NL, " WHERE FPI = '", FPI, "'"), rows)) return fail(StatementFailed);
  return rows.IsEmpty() || fail(CordlessRecordNotAdded, FPI);
}

// There is no board without a system.
bool Add(const Action& action) {
  const Reporter fail("Add: " + action.CmdName);
  return InTransaction(fail, [&] {
    if (Equals(UncheckedCount("SELECT COUNT(*) FROM CXSYI"), 0)) return fail(RecordNeededElsewhere, "CXSYI", "CXCFI");
    const List record = Record(action.ParamList);
    return IsFree(fail, ValueOf("FPI", action.ParamList, record)) &&
           (scSQLInsert(action.CmdName, action.ParamList, record) || fail(InsertFailed, action.CmdName));
  });
}

// FPI has to be a new one, and is the empty text where it is not given.
bool EditParameter(const Reporter& fail, const Action& action, const std::string& name) {
  const Value value = scGetParamValue(name);
  return name == "FPI" ? IsFree(fail, value) && UpdateColumn(action.CmdName, action.CmdId, name, value)
                       : UpdateColumnOrNull(action.CmdName, action.CmdId, name, value);
}

// A parameter that fails does not end the edit: the last one decides.
bool Edit(const Action& action) {
  const Reporter fail("Edit: " + action.CmdName);
  return InTransaction(fail, [&] {
    bool written = true;
    for (const Value& parameter : action.ParamList) {
      const std::string name = ToText(parameter);
      written = EditParameter(fail, action, name) || fail(ColumnNotWritten, name);
    }
    return written;
  });
}

}  // namespace

extern const Module CXCFI{
    .SetInfo = Add,
    .EditInfo = Edit,
    .DeleteInfo = GenericDeleteInfo,
    .ValidValues = {{"BPOS", ListBPOS}, {"LOCATION", GetValuesFor_LOCATION}},
    .StatCheck = {{"LOCATION", CheckLOCATION}},
};

}  // namespace cordboard
