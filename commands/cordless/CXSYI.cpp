// CXSYI: the cordless system, one record for the whole exchange: its identity SARI, and the number SMSN of its message
// service, one of GEDII.

#include "script/Conversions.h"
#include "script/Envelope.h"
#include "script/Generate.h"
#include "script/Module.h"
#include "script/Text.h"
#include "shared/DirectoryNumbers.h"
#include "shared/Record.h"
#include "shared/Row.h"
#include "shared/SingleRecord.h"

namespace cordboard {

namespace {

// A failure is not reported.
bool ListSMSN(const Action&) { return scCollectSingleValues("SELECT DIR FROM GEDII WHERE TYPE IS Null "); }

// At least 8 characters. One that does not begin with F is to lie between 10000000 and FFFFFFFF as well (61043), but
// the answer of the comparison with the lower bound is what the upper one is compared with, and that always holds:
// there is no upper bound, and the characters need not be hexadecimal digits.
bool CheckSARI(const Action& action) {
  const Value SARI = scGetParamValue(action.Parameter());
  if (SARI.IsEmpty()) return true;
  return Length(Joined(SARI)) >= 8 || Reporter("StatCheck")(ValueTooShort, action.Parameter(), 8);
}

// A number that cannot be taken is not reported.
bool Add(const Action& action) {
  const Reporter fail("Add: " + action.CmdName);
  action.ParamList.RequireBounds();  // before the transaction
  return InTransaction(fail, [&] {
    if (!IsStillEmpty(fail, action.CmdName)) return false;
    bool taken = true;
    const auto takeSMSN = [&taken] {
      Value SMSN = scGetParamValue("SMSN");
      if (!SMSN.IsEmpty()) taken = TakeDirectoryNumber(SMSN, "SMSN");
      return SMSN;
    };
    const List record = Record(action.ParamList, {{"SMSN", takeSMSN}});
    return taken && (scSQLInsert(action.CmdName, action.ParamList, record) || fail(InsertFailed, action.CmdName));
  });
}

// The old number is freed behind the new one, so that a number that stays the same ends free.
bool MoveSMSN(const Action& action, const Value& SMSN) {
  const Value old = StoredNumber(action, "SMSN");
  return UpdateColumnOrNull(action.CmdName, action.CmdId, "SMSN", SMSN) &&
         (SMSN.IsEmpty() || TakeDirectoryNumber(SMSN, "SMSN")) && FreeDirectoryNumber(old);
}

bool Edit(const Action& action) {
  const Reporter fail("Edit: " + action.CmdName);
  return InTransaction(fail, [&] {
    for (const Value& parameter : action.ParamList) {
      const std::string name = ToText(parameter);
      if (name == "CMDID") continue;
      const Value value = scGetParamValue(name);
      const bool written =
          name == "SMSN" ? MoveSMSN(action, value) : UpdateColumnOrNull(action.CmdName, action.CmdId, name, value);
      if (!written) return fail(ColumnNotWritten, name);
    }
    return true;
  });
}

// A count that cannot be read ends the action in silence; the one of the add is not tested.
bool Set(const Action& action) {
  RowSet rows;
  if (!scRunQuery("SELECT COUNT(*) FROM CXSYI", rows)) return false;
  return Equals(rows[0][0], 0) ? Add(action) : OnSingleRecord(action, Edit);
}

// Neither the count nor its answer, nor that of the list of boards, is looked at.
bool DeleteAllBoards(const Reporter& fail) {
  RowSet unread;
  scRunQuery("SELECT COUNT(*) FROM CXSYI", unread);
  RowSet boards;
  scRunQuery("SELECT CmdID FROM CXCFI", boards);
  for (std::size_t i = 0; i < boards.RowCount(); ++i) {
    const Value& board = boards[0][i];
    if (!scRunQuery(Sql("DELETE * FROM CXCFI WHERE CmdID = ", board))) return fail(RecordNotDeleted, "CXCFI", board);
  }
  return true;
}

// The boards go with their system; their radio ports (CXRFI) stay.
bool Delete(const Action& action) {
  const Reporter fail("Delete: " + action.CmdName);
  return InTransaction(fail, [&] {
    if (!DeleteRowAndFreeNumber(action, "SMSN")) return fail(RecordNotDeleted, action.CmdName, action.CmdId);
    return DeleteAllBoards(fail);
  });
}

// A line for each of the two values; without SARI always one for SMSN. A query that fails is not reported, and neither
// is the first of two lines: the last one decides.
bool Generate(const Action& action) {
  const Reporter fail("Generating: " + action.CmdName);
  RowSet rows;
  if (!scRunQuery("SELECT SARI, SMSN FROM CXSYI", rows) || rows.IsEmpty()) return false;
  const LineRow row(rows, 0);
  const Value SARI = row[0];
  const Value SMSN = row[1];
  const std::string lineOfSARI = Text("CXSYI:SARI=", SARI, ";");
  const std::string lineOfSMSN = Text("CXSYI:SMSN=", SMSN, ";");
  if (SARI.IsNull()) return InsertLine(fail, action, lineOfSMSN);
  if (SMSN.IsNull()) return InsertLine(fail, action, lineOfSARI);
  scRunQuery(LineStatement(action, lineOfSARI));
  return InsertLine(fail, action, lineOfSMSN);
}

}  // namespace

extern const Module CXSYI{
    .SetInfo = Set,
    .EditInfo = Edit,
    .DeleteInfo = Delete,
    .GenerateCmd = Generate,
    .ValidValues = {{"SMSN", ListSMSN}},
    .StatCheck = {{"SARI", CheckSARI}},
};

}  // namespace cordboard
