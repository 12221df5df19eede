// NACDS: the categories CDCAT of a number NUM, joined by "&". No stored number may be the beginning of another.

#include "script/Conversions.h"
#include "script/Envelope.h"
#include "script/Module.h"
#include "script/Report.h"
#include "shared/Count.h"
#include "shared/GenericRecord.h"
#include "shared/Row.h"

namespace cordboard {

namespace {

// Whether the number and every stored one differ within the length of the shorter. The record `CmdId` itself is left
// out, and 0 leaves out none. A query that failed counts as taken.
bool CheckNumberFree(const Value& number, std::int32_t CmdId) {
  const std::string others =
      CmdId != 0 ? Sql("SELECT NUM FROM NACDS WHERE NOT CMDID = ", CmdId) : Sql("SELECT NUM FROM NACDS");
  RowSet rows;
  if (!scRunQuery(others, rows)) return false;
  for (std::size_t row = 0; row < rows.RowCount(); ++row) {
    const std::string stored = ToText(rows[0][row]);
    const std::string wanted = ToText(number);
    if (stored.starts_with(wanted) || wanted.starts_with(stored)) return false;
  }
  return true;
}

bool RefuseNumber(const Reporter& fail) {
  Debug(" This range is already in use, enter another value");
  return fail(NumberInUse);
}

std::string JoinedWithAmpersands(const List& values) {
  std::string text;
  for (std::size_t i = 0; i < values.size(); ++i) text += Text(i == 0 ? "" : "&", values[i]);
  return text;
}

// One record for each number. Only the answer of the second list counts; it fails without a message. Numbers that could
// not be delivered leave a list without bounds, which fails the call.
bool Add(const Action& action) {
  const Reporter fail("Add: " + action.CmdName);
  return InTransaction(fail, [&] {
    List numbers;
    List categories;
    scGetValueArray("NUM", numbers);
    if (!scGetValueArray("CDCAT", categories)) return false;
    for (const Value& NUM : numbers) {
      if (!CheckNumberFree(NUM, 0)) return RefuseNumber(fail);
      const Value CmdID = scBuildCmdID();
      const Value CDCAT = JoinedWithAmpersands(categories);
      if (!scSQLInsert(action.CmdName, {"CmdID", "NUM", "CDCAT"}, {CmdID, NUM, CDCAT}))
        return fail(InsertFailed, action.CmdName);
    }
    return true;
  });
}

// Adds the categories on the form to those of the record. A value that the form does not give stays as it was, but for
// an empty text, which becomes a null.
bool Merge(const Action& action) {
  const Reporter fail("Edit: " + action.CmdName);
  return InTransaction(fail, [&] {
    RowSet rows;
    if (!scRunQuery(Sql("SELECT NUM, CDCAT FROM NACDS WHERE CmdId = ", action.CmdId), rows))
      return fail(StatementFailed);
    const Value oldCDCAT = rows[1][0];

    const auto write = [&](const char* name, const Value& value) {
      return UpdateColumnOrNull(action.CmdName, action.CmdId, name, value) || fail(ColumnNotWritten, name);
    };
    if (!write("NUM", OrStored(scGetParamValue("NUM"), rows, 0))) return false;
    const Value CDCAT = scGetParamValue("CDCAT");
    const bool both = !CDCAT.IsBlank() && !oldCDCAT.IsBlank();
    return write("CDCAT", both ? Value(Text(oldCDCAT, "&", CDCAT)) : OrStored(CDCAT, rows, 1));
  });
}

// A number that is taken ends the edit. An update that fails does not: the answer is that of the last one. An empty
// value is written as the empty text.
bool Edit(const Action& action) {
  const Reporter fail("Edit: " + action.CmdName);
  return InTransaction(fail, [&] {
    bool flag = true;
    for (const Value& parameter : action.ParamList) {
      const std::string name = ToText(parameter);
      const Value value = scGetParamValue(name);
      if (name == "NUM" && !CheckNumberFree(value, action.CmdId)) return RefuseNumber(fail);
      flag = UpdateColumn(action.CmdName, action.CmdId, name, value) || fail(ColumnUpdateFailed, name, action.CmdName);
    }
    return flag;
  });
}

// A number has one record: an add of one that is stored merges into it.
bool AddOrMerge(const Action& action) {
  const Value NUM = scGetParamValue("NUM");
  if (Equals(UncheckedCount(Sql("SELECT Count(*) FROM NACDS WHERE NUM = '", NUM, "'")), 0)) return Add(action);
  RowSet record;
  scRunQuery(Sql("SELECT CMDID FROM NACDS WHERE NUM = '", NUM, "'"), record);
  Action merge = action;
  merge.CmdId = ToInt32(record[0][0]);
  return Merge(merge);
}

}  // namespace

extern const Module NACDS{
    .SetInfo = AddOrMerge,
    .EditInfo = Edit,
    .DeleteInfo = GenericDeleteInfo,
};

}  // namespace cordboard
