// AOCOI: authorisation codes ACO, which hold for the whole exchange. No two records have the same code.

#include "script/Conversions.h"
#include "script/Envelope.h"
#include "script/Module.h"
#include "shared/GenericRecord.h"
#include "shared/Row.h"

namespace cordboard {

namespace {

// The statement of the add and that of the edit differ by a blank.
bool IsFree(const Reporter& fail, const std::string& sql, const Value& ACO) {
  RowSet rows;
  if (!scRunQuery(sql, rows)) return fail(StatementFailed);
  return rows.IsEmpty() || fail(CodeInUse, ACO);
}

// A code that is in use ends the add before the columns after it are read.
bool Add(const Action& action) {
  const Reporter fail("Add: " + action.CmdName);
  return InTransaction(fail, [&] {
    List record(std::vector<Value>{});
    for (const Value& column : action.ParamList) {
      const std::string name = ToText(column);
      const Value value = name == "CMDID" ? scBuildCmdID() : scGetParamValue(name);
      if (name == "ACO" && !IsFree(fail, Sql(" SELECT ACO FROM AOCOI", NL, " WHERE ACO = '", value, "'"), value))
        return false;
      record.Append(value);
    }
    return scSQLInsert(action.CmdName, action.ParamList, record) || fail(InsertFailed, action.CmdName);
  });
}

// The record itself counts as a user of its code: an edit that gives the code which it has already is refused.
bool Edit(const Action& action) {
  const Reporter fail("Edit: " + action.CmdName);
  return InTransaction(fail, [&] {
    for (const Value& parameter : action.ParamList) {
      const std::string name = ToText(parameter);
      const Value value = scGetParamValue(name);
      Debug("NewValue for ", name, " = ", value);
      if (name == "ACO" && !IsFree(fail, Sql(" SELECT ACO FROM AOCOI ", NL, " WHERE ACO = '", value, "'"), value))
        return false;
      if (!UpdateColumnOrNull(action.CmdName, action.CmdId, name, value)) return fail(ColumnNotWritten, name);
    }
    return true;
  });
}

}  // namespace

extern const Module AOCOI{
    .SetInfo = Add,
    .EditInfo = Edit,
    .DeleteInfo = GenericDeleteInfo,
};

}  // namespace cordboard
