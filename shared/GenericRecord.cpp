#include "shared/GenericRecord.h"

#include <algorithm>

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

bool WriteParameters(const Action& action, const Reporter& fail, std::initializer_list<ColumnName> renamed) {
  for (const Value& parameter : action.ParamList) {
    const std::string name = ToText(parameter);
    const auto* found = std::ranges::find(renamed, name, &ColumnName::parameter);
    const std::string column = found != renamed.end() ? found->column : name;
    if (!UpdateColumnOrNull(action.CmdName, action.CmdId, column, scGetParamValue(name)))
      return fail(ColumnNotWritten, name);
  }
  return true;
}

bool EditRecord(const Action& action, std::initializer_list<ColumnName> renamed) {
  const Reporter fail("Edit: " + action.CmdName);
  return InTransaction(fail, [&] { return WriteParameters(action, fail, renamed); });
}

bool GenericEditInfo(const Action& action) { return EditRecord(action); }

bool GenericDeleteInfo(const Action& action) {
  const Reporter fail("Delete: " + action.CmdName);
  return InTransaction(fail, [&] {
    return DeleteRow(action.CmdName, action.CmdId) || fail(RecordNotDeleted, action.CmdName, action.CmdId);
  });
}

}  // namespace cordboard
