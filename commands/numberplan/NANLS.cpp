// NANLS: the least and the greatest length (MIN, MAX) of the numbers that begin with the digits EXL.

#include "script/Conversions.h"
#include "script/Envelope.h"
#include "script/Module.h"
#include "script/Report.h"
#include "script/Text.h"
#include "shared/GenericRecord.h"
#include "shared/Row.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

bool RefuseMinimumAboveMaximum(const Reporter& fail) {
  fail(MinimumAboveMaximum, "MIN", "MAX");
  Debug(" Min Value cannot be greater than Max Value");
  return false;
}

// The digits alone may not be longer than the least length of the whole number.
bool DigitsFit(const Reporter& fail, const Value& EXL, const Value& MIN) {
  return !Greater(Length(Text(Trim(EXL))), MIN) || fail(LengthAboveMinimum, "MIN", "EXL");
}

// One record for each value of EXL. After a value that is refused the others are still checked and reported, but
// nothing more is inserted.
bool Add(const Action& action) {
  const Reporter fail("Add: " + action.CmdName);
  return InTransaction(fail, [&] {
    List digits;
    if (!scGetValueArray("EXL", digits)) return false;
    bool flag = true;
    for (const Value& EXL : digits) {
      const Value CmdID = scBuildCmdID();
      const Value MIN = scGetParamValue("MIN");
      const Value MAX = scGetParamValue("MAX");
      if (!MAX.IsEmpty() && Greater(ToInt16(MIN), MAX)) flag = RefuseMinimumAboveMaximum(fail);
      if (!DigitsFit(fail, EXL, MIN)) flag = false;
      if (flag && !scSQLInsert(action.CmdName, {"CmdID", "EXL", "MIN", "MAX"}, {CmdID, EXL, MIN, MAX}))
        return fail(InsertFailed, action.CmdName);
    }
    return flag;
  });
}

// A new MIN against the stored MAX and the digits on the form. A MAX that is missing or null sets no limit, and one
// that could not be read refuses the value without a message.
bool CheckMIN(const Action& action, const Reporter& fail, const Value& value) {
  RowSet rows;
  bool flag = scRunQuery(Sql("SELECT MAX FROM NANLS WHERE CmdId = ", action.CmdId), rows);
  if (!rows.IsEmpty() && !rows[0][0].IsNull() && Greater(ToInt16(value), rows[0][0]))
    flag = RefuseMinimumAboveMaximum(fail);
  return DigitsFit(fail, scGetParamValue("EXL"), value) && flag;
}

// A new MAX against the stored MIN, of any size. Here a record that is missing or could not be read fails the call, but
// for an empty value, which is not compared.
bool CheckMAX(const Action& action, const Reporter& fail, const Value& value) {
  RowSet rows;
  const bool flag = scRunQuery(Sql("SELECT MIN FROM NANLS WHERE CmdId = ", action.CmdId), rows);
  if (!value.IsEmpty() && Less(ToNumber(value), rows[0][0])) return RefuseMinimumAboveMaximum(fail);
  return flag;
}

// A refused value is not written, nor is what follows it, until a MIN or a MAX answers anew for the whole edit.
// An empty value is written as the empty text.
bool Edit(const Action& action) {
  const Reporter fail("Edit: " + action.CmdName);
  return InTransaction(fail, [&] {
    bool flag = true;
    for (const Value& parameter : action.ParamList) {
      const std::string name = ToText(parameter);
      const Value value = scGetParamValue(name);
      if (name == "MIN") {
        flag = CheckMIN(action, fail, value);
      } else if (name == "MAX") {
        flag = CheckMAX(action, fail, value);
      } else if (name == "EXL") {
        flag = DigitsFit(fail, value, scGetParamValue("MIN")) && flag;
      }
      if (!flag) continue;
      flag = UpdateColumn("NANLS", action.CmdId, name, value) || fail(ColumnUpdateFailed, name, action.CmdName);
    }
    return flag;
  });
}

}  // namespace

extern const Module NANLS{
    .SetInfo = Add,
    .EditInfo = Edit,
    .DeleteInfo = GenericDeleteInfo,
    .ValidValues = {{"MAX", GetValuesAndDescription}},
};

}  // namespace cordboard
