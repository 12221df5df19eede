#include "shared/GenericRecord.h"

#include "script/Conversions.h"
#include "script/Envelope.h"
#include "shared/Row.h"

namespace cordboard {

bool AddRecord(const Action& action, std::initializer_list<GivenValue> given) {
  const Reporter fail("Add: " + action.CmdName);
  action.ParamList.RequireBounds();  // before the transaction
  return InTransaction(fail, [&] {
    return scSQLInsert(action.CmdName, action.ParamList, Record(action.ParamList, given)) ||
           fail(InsertFailed, action.CmdName);
  });
}

bool GenericSetInfo(const Action& action, const std::string& NUMTYP) { return AddRecord(action, {{"NUMTYP", NUMTYP}}); }

bool GenericSetInfo(const Action& action) { return GenericSetInfo(action, ""); }

bool GenericEditInfo(const Action& action) {
  const Reporter fail("Edit: " + action.CmdName);
  return InTransaction(fail, [&] {
    for (const Value& parameter : action.ParamList) {
      const std::string name = ToText(parameter);
      if (!UpdateColumnOrNull(action.CmdName, action.CmdId, name, scGetParamValue(name)))
        return fail(ColumnNotWritten, name);
    }
    return true;
  });
}

bool GenericDeleteInfo(const Action& action) {
  const Reporter fail("Delete: " + action.CmdName);
  return InTransaction(fail, [&] {
    return DeleteRow(action.CmdName, action.CmdId) || fail(RecordNotDeleted, action.CmdName, action.CmdId);
  });
}

}  // namespace cordboard
