// SYIDI: the identity of the exchange, one record. Its number EXGID is one of NANSI, of type EN, and marked as used.

#include <optional>

#include "script/Conversions.h"
#include "script/Envelope.h"
#include "script/Module.h"
#include "shared/Row.h"
#include "shared/SingleRecord.h"
#include "shared/Usage.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

bool Add(const Action& action) {
  const Reporter fail("Add : " + action.CmdName);
  List values(std::vector<Value>(action.ParamList.size()));
  return InTransaction(fail, [&] {
    if (!IsStillEmpty(fail, action.CmdName)) return false;
    for (std::size_t i = 0; i < values.size(); ++i) {
      const std::string name = ToText(action.ParamList[i]);
      values[i] = name == "CMDID" ? scBuildCmdID() : name == "NUMTYP" ? Value("EN") : scGetParamValue(name);
      if (name == "EXGID" && !SetNumberUsed(values[i], true)) return false;
    }
    return scSQLInsert(action.CmdName, action.ParamList, values) || fail(InsertFailed, action.CmdName);
  });
}

// The number of the record as it stands; nothing where it cannot be read, and, without a message, where there is no
// record.
std::optional<Value> ReadEXGID(const Reporter& fail, const Action& action) {
  RowSet rows;
  const std::string query = Sql(" SELECT EXGID FROM SYIDI ", NL, " WHERE CmdId = ", action.CmdId);
  if (!scRunQuery(query, rows)) {
    fail(StatementFailed);
    return std::nullopt;
  }
  return rows.IsEmpty() ? std::nullopt : std::optional(rows[0][0]);
}

// Values are taken as texts, so one that the form leaves empty is written as the empty text, never as a null.
bool EditParameter(const Reporter& fail, const Action& action, const std::string& name) {
  std::string value = ToText(scGetParamValue(name));
  if (name == "EXGID") {
    const std::optional<Value> old = ReadEXGID(fail, action);
    if (!old || !UpdateNANSI(*old, value)) return false;
  }
  if (value.empty() && name == "NUMTYP") value = "EN";
  return UpdateColumn(action.CmdName, action.CmdId, name, value) || fail(ColumnNotWritten, name);
}

bool Edit(const Action& action) {
  const Reporter fail("Edit: " + action.CmdName);
  return InTransaction(fail, [&] {
    for (const Value& parameter : action.ParamList) {
      const std::string name = ToText(parameter);
      if (name != "CMDID" && !EditParameter(fail, action, name)) return false;
    }
    return true;
  });
}

bool Set(const Action& action) { return SetSingleRecord(action, Add, Edit); }

bool Delete(const Action& action) {
  const Reporter fail("Delete: " + action.CmdName);
  return InTransaction(fail, [&] {
    const std::optional<Value> EXGID = ReadEXGID(fail, action);
    if (!EXGID || !SetNumberUsed(*EXGID, false)) return false;
    return DeleteRow(action.CmdName, action.CmdId) || fail(RecordNotDeleted, action.CmdName, action.CmdId);
  });
}

bool ListEXGID(const Action& action) {
  return CollectList(action, Sql("SELECT NUMSE FROM NANSI ", NL, " WHERE NUMTYP = 'EN' ", NL, " AND USED = FALSE "));
}

}  // namespace

extern const Module SYIDI{
    .SetInfo = Set,
    .EditInfo = Edit,
    .DeleteInfo = Delete,
    .ValidValues = {{"EXGID", ListEXGID}},
};

}  // namespace cordboard
