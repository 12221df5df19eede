// SYIDI: the identity of the exchange, one record. Its number EXGID is one of NANSI, of type EN, and marked as used.

#include <optional>

#include "script/Conversions.h"
#include "script/Envelope.h"
#include "script/Module.h"
#include "shared/GenericRecord.h"
#include "shared/SingleRecord.h"
#include "shared/Usage.h"

namespace cordboard {

namespace {

bool Add(const Action& action) {
  const std::string context = "Add : " + action.CmdName;
  List values(std::vector<Value>(action.ParamList.size()));
  return InTransaction(context, [&] {
    if (!IsStillEmpty(context, action.CmdName)) return false;
    for (std::size_t i = 0; i < values.size(); ++i) {
      const std::string name = ToText(action.ParamList[i]);
      values[i] = name == "CMDID" ? scBuildCmdID() : name == "NUMTYP" ? Value("EN") : scGetParamValue(name);
      if (name == "EXGID" && !SetNumberUsed(values[i], true)) return false;
    }
    return OrReport(scSQLInsert(action.CmdName, action.ParamList, values), context, Message::InsertFailed,
                    action.CmdName);
  });
}

// The number of the record as it stands; nothing where it cannot be read, and, without a message, where there is no
// record.
std::optional<Value> ReadEXGID(const std::string& context, const Action& action) {
  RowSet rows;
  const std::string query = Sql(" SELECT EXGID FROM SYIDI ", NL, " WHERE CmdId = ", action.CmdId);
  if (!OrReport(scRunQuery(query, rows), context, Message::StatementFailed) || rows.IsEmpty()) return std::nullopt;
  return rows[0][0];
}

// Values are taken as texts, so an EXGID that the form leaves empty is written as the empty text, never as a null.
bool EditParameter(const std::string& context, const Action& action, const std::string& name) {
  std::string value = ToText(scGetParamValue(name));
  if (name == "EXGID") {
    const std::optional<Value> old = ReadEXGID(context, action);
    if (!old || !UpdateNANSI(*old, value)) return false;
  }
  if (value.empty() && name == "NUMTYP") value = "EN";
  return OrReport(WriteColumn(action.CmdName, action.CmdId, name, value), context, Message::ColumnNotWritten, name);
}

bool Edit(const Action& action) {
  const std::string context = "Edit: " + action.CmdName;
  return InTransaction(context, [&] {
    for (const Value& parameter : action.ParamList) {
      const std::string name = ToText(parameter);
      if (name != "CMDID" && !EditParameter(context, action, name)) return false;
    }
    return true;
  });
}

bool Set(const Action& action) { return SetSingleRecord(action, Add, Edit); }

bool Delete(const Action& action) {
  const std::string context = "Delete: " + action.CmdName;
  return InTransaction(context, [&] {
    const std::optional<Value> EXGID = ReadEXGID(context, action);
    if (!EXGID || !SetNumberUsed(*EXGID, false)) return false;
    return OrReport(scRunQuery(Sql("DELETE * FROM ", action.CmdName, NL, " WHERE CmdId = ", action.CmdId)), context,
                    Message::RecordNotDeleted, action.CmdName, action.CmdId);
  });
}

bool ListEXGID(const Action& action) {
  const std::string query = Sql("SELECT NUMSE FROM NANSI ", NL, " WHERE NUMTYP = 'EN' ", NL, " AND USED = FALSE ");
  return OrReport(scCollectSingleValues(query), "GetValidValForParam", Message::ListNotBuilt, action.Parameter());
}

}  // namespace

extern const Module SYIDI{
    .SetInfo = Set,
    .EditInfo = Edit,
    .DeleteInfo = Delete,
    .ValidValues = {{"EXGID", ListEXGID}},
};

}  // namespace cordboard
