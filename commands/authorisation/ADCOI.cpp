// ADCOI: an abbreviated number ABB, drawn from the numbers of type AC, and its translation TRA.

#include "script/Conversions.h"
#include "script/Envelope.h"
#include "script/Module.h"
#include "script/Report.h"
#include "shared/Row.h"
#include "shared/Usage.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

// Every text begins with the empty text and holds it. A null does neither with anything.
bool BeginsWith(const Value& text, const Value& beginning) {
  return !text.IsNull() && !beginning.IsNull() && ToText(text).starts_with(ToText(beginning));
}
bool Contains(const Value& text, const Value& piece) {
  return !text.IsNull() && !piece.IsNull() && ToText(text).find(ToText(piece)) != std::string::npos;
}

// A list that could not be collected takes nothing out.
bool ListABB(const Action& action) {
  return CollectList(action, Sql("SELECT NUMSE FROM NANSI ", NL, " WHERE NUMTYP = 'AC' ", NL, " AND USED = FALSE ", NL,
                                 " ORDER BY NUMSE")) &&
         (scSubtractSingleValues("SELECT ABB FROM ADCOI") || ListRefused(action));
}

// --- Add.

// A translation may begin neither with its own abbreviated number, which ends the walk, nor with another number of type
// AC: each that it begins with is reported, and the walk goes on. `flag` turns False.
bool CheckTRA(const Reporter& fail, const Value& TRA, bool& flag) {
  const Value ABB = scGetParamValue("ABB");
  if (!ABB.IsEmpty() && BeginsWith(TRA, ABB)) return flag = fail(ValueAgainstPrefixRule, "TRA");
  RowSet rows;
  if (!scRunQuery("SELECT NUMSE FROM NANSI WHERE NUMTYP = 'AC'", rows)) return flag = fail(StatementFailed);
  for (std::size_t row = 0; row < rows.RowCount(); ++row) {
    if (BeginsWith(TRA, rows[0][row])) flag = fail(ValueAgainstPrefixRule, "TRA");
  }
  return true;
}

// Without a transaction: a number that was taken into use stays so, even where its record is refused. A record that is
// not inserted is not reported.
bool Add(const Action& action) {
  const Reporter fail("Add: " + action.CmdName);
  bool flag = true;
  List record(std::vector<Value>{});
  for (const Value& column : action.ParamList) {
    const std::string name = ToText(column);
    const Value value = name == "CMDID" ? scBuildCmdID() : name == "NUMTYP" ? "AC" : scGetParamValue(name);
    if (name == "ABB" && !InsertExtension(value, "AC")) return fail(InsertFailed, "USEDEXTOPEGRP");
    if (name == "TRA" && !CheckTRA(fail, value, flag)) return false;
    record.Append(value);
  }
  return flag && scSQLInsert(action.CmdName, action.ParamList, record);
}

// --- Edit.

// The use of the number moves with it. A record that is gone ends the edit in silence.
bool MoveABB(const Action& action, const Reporter& fail, const Value& ABB) {
  RowSet rows;
  if (!scRunQuery(Sql(" SELECT ABB FROM ADCOI ", NL, " WHERE CmdId = ", action.CmdId), rows))
    return fail(StatementFailed);
  if (rows.IsEmpty()) return false;
  if (BeginsWith(scGetParamValue("TRA"), ABB)) return fail(ValueAgainstPrefixRule, "TRA");
  return UpdateExtOpeGrp(rows[0][0], ABB);
}

// Where the add looks at the beginning of the translation, the edit of TRA looks for the number anywhere in it, and the
// other numbers of type AC do not count.
bool IsWithoutABB(const Value& TRA) {
  const Value ABB = scGetParamValue("ABB");
  return ABB.IsEmpty() || !Contains(TRA, ABB) || Reporter("Edit : ADCOI")(ValueAgainstPrefixRule, "TRA");
}

// A number or a translation that is refused ends the edit. An update that fails does not: the answer is that of the
// last one.
bool Edit(const Action& action) {
  const Reporter fail("Edit: " + action.CmdName);
  return InTransaction(fail, [&] {
    bool flag = true;
    for (const Value& parameter : action.ParamList) {
      const std::string name = ToText(parameter);
      const Value value = scGetParamValue(name);
      if (name == "ABB" && !MoveABB(action, fail, value)) return false;
      if (name == "TRA" && !IsWithoutABB(value)) return false;
      flag = UpdateColumn(action.CmdName, action.CmdId, name, value) || fail(ColumnUpdateFailed, name, action.CmdName);
    }
    return flag;
  });
}

// --- Delete.

// Frees the number. The record is left to the host; one that is gone already answers False in silence.
bool Delete(const Action& action) {
  const Reporter fail("Delete: " + action.CmdName);
  return InTransaction(fail, [&] {
    RowSet rows;
    if (!scRunQuery(Sql(" SELECT ABB FROM ADCOI ", NL, " WHERE CmdId = ", action.CmdId), rows))
      return fail(StatementFailed);
    if (rows.IsEmpty()) return false;
    return DeleteExtOpeGrp(rows[0][0]) || fail(RecordNotDeleted, action.CmdName, action.CmdId);
  });
}

}  // namespace

extern const Module ADCOI{
    .SetInfo = Add,
    .EditInfo = Edit,
    .DeleteInfo = Delete,
    .ValidValues = {{"ABB", ListABB}},
};

}  // namespace cordboard
