// ICFUC: what the exchange is told of a link to an information computer: the twin of a record of ICFUI with the same
// indicator. The exchange takes its lines on R6 and R6/1 alone.

#include "script/Conversions.h"
#include "script/Envelope.h"
#include "script/Generate.h"
#include "script/Module.h"
#include "script/Report.h"
#include "shared/Links.h"
#include "shared/Record.h"
#include "shared/Release.h"
#include "shared/Row.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

bool ListEQU(const Action& action) { return IsR6(action) && ListLinkPositions(action, ""); }

// --- Add.

// The indicator is read back from the new record. No record stands here without one in ICFUI.
bool FindTwin(const Action& action, const Reporter& fail, const Value& CmdId, Value& twin) {
  const char* indicator = LinkIndicator(action);
  RowSet own;
  if (!scRunQuery(Sql("SELECT ", indicator, " FROM ICFUC WHERE CmdID = ", CmdId), own)) return fail(StatementFailed);
  RowSet rows;
  if (!scRunQuery(Sql("SELECT CmdId FROM ICFUI WHERE ", indicator, " = '", own[0][0], "'"), rows))
    return fail(StatementFailed);
  if (rows.IsEmpty()) return fail(LinkNotDefined);
  twin = rows[0][0];
  return true;
}

// Writes what the form holds, as an edit of the twin.
bool WriteToTwin(const Action& action, const Value& twin) {
  const Reporter fail("Edit: ICFUI");
  for (const Value& column : action.ParamList) {
    const std::string name = ToText(column);
    if (name == "CMDID") continue;
    if (!UpdateColumnOrNull("ICFUI", twin, name, scGetParamValue(name))) return fail(ColumnNotWritten, name);
  }
  return true;
}

// The position is not marked here.
bool Add(const Action& action) {
  const Reporter fail("Add: " + action.CmdName);
  return InTransaction(fail, [&] {
    Value CmdId;
    const List record = Record(action.ParamList, {{"CMDID", [&CmdId] { return CmdId = scBuildCmdID(); }}});
    if (!scSQLInsert(action.CmdName, action.ParamList, record)) return fail(InsertFailed, action.CmdName);
    Value twin;
    return FindTwin(action, fail, CmdId, twin) && WriteToTwin(action, twin);
  });
}

// --- Generate.

// Values stand as they are stored, blanks included. EQU is read and not written; a row without ICUIND has no line.
std::optional<std::string> Line(const LineRow& row) {
  const Value& ICUIND = row.Stored(2);
  if (ICUIND.IsNull()) return std::nullopt;
  return Text("ICFUC:ICUIND=", ICUIND, UnlessNull(",UPDTIM=", row.Stored(0)), UnlessNull(",MWF=", row.Stored(1)),
              UnlessNull(",DFMT=", row.Stored(3)), UnlessNull(",RATE=", row.Stored(5)),
              UnlessNull(",ICEXG=", row.Stored(6)), UnlessNull(",UPDFCN=", row.Stored(7)),
              UnlessNull(",PARITY=", row.Stored(8)), UnlessNull(",CCHECK=", row.Stored(9)),
              UnlessNull(",TXC=", row.Stored(10)), UnlessNull(",FILLER=", row.Stored(11)), ";");
}

bool Generate(const Action& action) {
  if (!IsR6(action)) return false;
  return GenerateLines(
      action, "SELECT UPDTIM, MWF, ICUIND, DFMT, EQU, RATE, ICEXG, UPDFCN, PARITY, CCHECK, TXC, FILLER FROM ICFUC",
      Line);
}

}  // namespace

extern const Module ICFUC{
    .SetInfo = Add,
    .GenerateCmd = Generate,
    .ValidValues = {{"EQU", ListEQU}, {{"CCHECK", "PARITY", "RATE", "TXC", "UPDFCN"}, GetValuesAndDescription}},
};

}  // namespace cordboard
