// ICFUI: links to information computers. A link stands in two tables: here what is kept of it, and in ICFUC, its twin,
// what the exchange is told. The twins have the same indicator.

#include <algorithm>

#include "script/Conversions.h"
#include "script/Envelope.h"
#include "script/Module.h"
#include "script/Report.h"
#include "shared/Links.h"
#include "shared/Record.h"
#include "shared/Release.h"
#include "shared/Row.h"
#include "shared/Usage.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

// --- Lists.

// The indicators of present links are taken out on R6, R6/1 and R7; all other releases keep them.
bool ListIndicators(const Action& action) {
  if (!scSQLSelectValuesAndDesc()) return DescribedListRefused(action);
  if (!IsR6(action) && action.oaRelease != "R7") return true;
  return scSubtractSingleValues(Sql("SELECT ", LinkIndicator(action), " FROM ICFUI")) || ListRefused(action);
}

// Asks a second time for free positions.
bool ListEQU(const Action& action) { return ListLinkPositions(action, Sql(" AND (Equipment.Used = False)", NL)); }

// --- Add.

const List twinColumns{"CmdId", "UPDTIM", "MWF",    "ICUIND", "IFCIND", "DFMT", "EQU",
                       "RATE",  "ICEXG",  "UPDFCN", "PARITY", "CCHECK", "TXC",  "FILLER"};

// Both records, each with an identifier of its own. A column that the twin does not have stands in the record alone,
// one that the action does not name stays empty in the twin.
void MakeRecords(const Action& action, List& record, List& twin) {
  for (const Value& column : action.ParamList) {
    const std::string name = ToText(column);
    if (name == "CMDID") {
      record.Append(scBuildCmdID());
      twin[0] = scBuildCmdID();
    } else {
      const Value value = scGetParamValue(name);
      record.Append(value);
      const auto place = std::find(twinColumns.begin(), twinColumns.end(), Value(name));
      if (place != twinColumns.end()) twin[static_cast<std::size_t>(place - twinColumns.begin())] = value;
    }
  }
}

bool Add(const Action& action) {
  const Reporter fail("Add: " + action.CmdName);
  return InTransaction(fail, [&] {
    List record(std::vector<Value>{});
    List twin(std::vector<Value>(twinColumns.size()));
    MakeRecords(action, record, twin);
    if (!scSQLInsert(action.CmdName, action.ParamList, record)) return fail(InsertFailed, action.CmdName);
    if (!scSQLInsert("ICFUC", twinColumns, twin)) return fail(InsertFailed, "ICFUC");
    return SetEquipmentUsed(ValueOf("EQU", twinColumns, twin), true);
  });
}

// --- Edit and delete.

// Gives False where there is no twin, and where it cannot be looked for.
bool FindTwin(const char* column, const Value& indicator, Value& twin) {
  RowSet rows;
  if (!scRunQuery(Sql("SELECT CmdId FROM ICFUC WHERE ", column, " = '", indicator, "'", NL), rows) || rows.IsEmpty())
    return false;
  twin = rows[0][0];
  return true;
}

// The position of the twin stays what it was.
bool MovePosition(const Action& action, const Reporter& fail, const Value& EQU) {
  RowSet rows;
  if (!scRunQuery(Sql(" SELECT EQU FROM ", action.CmdName, NL, " WHERE CmdId = ", action.CmdId), rows))
    return fail(StatementFailed);
  const Value old = rows[0][0];
  if (old.IsBlank()) return fail(ColumnHasNoValue, "EQU");
  return UpdateEQU(action.CmdName, action.CmdId, old, EQU);
}

bool WriteToBoth(const Action& action, const Reporter& fail, const Value& twin, const std::string& name,
                 const Value& value) {
  if (!UpdateColumnOrNull(action.CmdName, action.CmdId, name, value)) return fail(ColumnNotWritten, name);
  if (name == "IODEV" || name == "USER") return true;
  return UpdateColumnOrNull("ICFUC", twin, name, value) || fail(ColumnUpdateFailed, name, "ICFUC");
}

// The twin is found by the stored indicator of the release, whatever column the form says: an ICUIND on the form makes
// it that column. Without a twin nothing is written, and the edit has done its work.
bool Edit(const Action& action) {
  const Reporter fail("Edit: " + action.CmdName);
  return InTransaction(fail, [&] {
    Value indicator;
    if (!ReadLinkIndicator(action, fail, "ICFUI", indicator)) return false;
    const char* column = Differs(scGetParamValue("ICUIND"), "") ? "ICUIND" : "IFCIND";
    Value twin;
    if (!FindTwin(column, indicator, twin)) return true;
    for (const Value& parameter : action.ParamList) {
      const std::string name = ToText(parameter);
      const Value value = scGetParamValue(name);
      const bool written =
          name == "EQU" ? MovePosition(action, fail, value) : WriteToBoth(action, fail, twin, name, value);
      if (!written) return false;
    }
    return true;
  });
}

// The twin is found by the column of the release. A link that has none is deleted all the same.
bool Delete(const Action& action) {
  const Reporter fail("Delete: " + action.CmdName);
  return InTransaction(fail, [&] {
    RowSet rows;
    if (!scRunQuery(Sql("SELECT EQU FROM ICFUI ", NL, " WHERE CmdID = ", action.CmdId), rows))
      return fail(ValueNotFound, "", "EQU", "ICFUI");
    if (rows.IsEmpty()) return fail(RecordNotFound);
    Value indicator;
    if (!ReadLinkIndicator(action, fail, "ICFUI", indicator)) return false;
    if (!DeleteRow(action.CmdName, action.CmdId)) return fail(RecordNotDeleted, action.CmdName, action.CmdId);
    if (!SetEquipmentUsed(rows[0][0], false)) return false;
    Value twin;
    if (!FindTwin(LinkIndicator(action), indicator, twin)) return true;
    return scRunQuery(Sql("DELETE * FROM ICFUC ", NL, " WHERE CmdId = ", twin)) ||
           fail(RecordNotDeleted, "ICFUC", twin);
  });
}

}  // namespace

extern const Module ICFUI{
    .SetInfo = Add,
    .EditInfo = Edit,
    .DeleteInfo = Delete,
    .ValidValues = {{"EQU", ListEQU},
                    {{"IFCIND", "ICUIND"}, ListIndicators},
                    {{"CCHECK", "PARITY", "RATE", "TXC", "UPDFCN"}, GetValuesAndDescription}},
};

}  // namespace cordboard
