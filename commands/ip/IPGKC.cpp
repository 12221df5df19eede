// IPGKC: gatekeepers: the identity of a LIM towards its gatekeeper, and the times of the dialogue.

#include "script/Conversions.h"
#include "script/Envelope.h"
#include "script/Generate.h"
#include "script/Module.h"
#include "script/Report.h"
#include "shared/Count.h"
#include "shared/Record.h"
#include "shared/Row.h"

namespace cordboard {

namespace {

// The LIMs without a record.
bool ListLIM(const Action& action) {
  const bool collected =
      scCollectValuesAndDesc(Sql("SELECT LIM, Description FROM LIMs ", NL, " ORDER BY LIM"), "dynamic") &&
      scSubtractSingleValues(Sql("SELECT LIM FROM IPGKC ", NL, " ORDER BY LIM"));
  return collected || Reporter("IPGKC_GetValuesFor_LIM")(DescribedListNotBuilt, action.Parameter());
}

// An identity that is taken is rolled back at once.
bool Insert(const Action& action, const Reporter& fail) {
  const Value GKID = scGetParamValue("GKID");
  Value count;
  if (!CheckedCount(fail, Sql("SELECT COUNT(*) FROM IPGKC WHERE GKID = '", GKID, "'"), count)) return false;
  if (Greater(count, 0)) {
    fail(ValueUsedTwice, "GKID");
    if (!scRollBackTransaction()) fail(RollBackFailed);
    return false;
  }
  return scSQLInsert(action.CmdName, action.ParamList, Record(action.ParamList)) || fail(InsertFailed, action.CmdName);
}

// No envelope: any other step that is refused is neither committed nor rolled back.
bool Add(const Action& action) {
  const Reporter fail("Add: " + action.CmdName);
  return InTransactionLeftOpen(fail, [&] { return Insert(action, fail); });
}

// All columns are written, whatever has changed. Identities that cannot be counted are reported and hold nobody up, and
// so is a blank LIM, which is written as Null. The record is read and not used.
bool Edit(const Action& action) {
  const Reporter fail("Edit: " + action.CmdName);
  return InTransaction(fail, [&] {
    const Value GKID = scGetParamValue("GKID");
    Value count = 0;
    CheckedCount(fail, Sql("SELECT COUNT(*) FROM IPGKC WHERE GKID = '", GKID, "' AND NOT (CMDID =", action.CmdId, ")"),
                 count);
    if (Greater(count, 0)) return fail(ValueUsedTwice, "GKID");
    RowSet stored;
    scRunQuery(Sql("SELECT LIM, GKID, TMLOAD, TIMNET FROM IPGKC WHERE CmdId = ", action.CmdId), stored);
    for (const std::string column : {"LIM", "GKID", "TMLOAD", "TIMNET"}) {
      const Value value = scGetParamValue(column);
      if (column == "LIM" && value.IsBlank()) fail(LIMMissing, column);
      if (!UpdateColumnOrNull("IPGKC", action.CmdId, column, value.IsBlank() ? Value() : value))
        return fail(ColumnNotWritten, column);
    }
    return true;
  });
}

// A record that cannot be deleted is not reported.
bool Delete(const Action& action) {
  return InTransaction(Reporter("Delete: " + action.CmdName), [&] { return DeleteRow("IPGKC", action.CmdId); });
}

bool Generate(const Action& action) {
  return GenerateLines(action, "SELECT LIM,GKID,TIMNET, TMLOAD  FROM IPGKC ", [](const LineRow& row) {
    return Text("IPGKC:LIM=", row[0], ",GKID=", row[1], ",TIMNET=", row[2], ",TMLOAD=", row[3], ";");
  });
}

}  // namespace

extern const Module IPGKC{
    .SetInfo = Add,
    .EditInfo = Edit,
    .DeleteInfo = Delete,
    .GenerateCmd = Generate,
    .ValidValues = {{"LIM", ListLIM}},
};

}  // namespace cordboard
