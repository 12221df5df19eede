#include "shared/GenericRecord.h"

#include "script/Conversions.h"
#include "script/Envelope.h"

namespace cordboard {

bool GenericSetInfo(const Action& action, const std::string& NUMTYP) {
  const std::string context = "Add: " + action.CmdName;
  List values(std::vector<Value>(action.ParamList.size()));
  return InTransaction(context, [&] {
    for (std::size_t i = 0; i < values.size(); ++i) {
      const std::string name = ToText(action.ParamList[i]);
      values[i] = name == "CMDID" ? scBuildCmdID() : name == "NUMTYP" ? Value(NUMTYP) : scGetParamValue(name);
    }
    return OrReport(scSQLInsert(action.CmdName, action.ParamList, values), context, Message::InsertFailed,
                    action.CmdName);
  });
}

bool GenericSetInfo(const Action& action) { return GenericSetInfo(action, ""); }

bool WriteColumn(const std::string& table, std::int32_t CmdId, const std::string& column, const Value& value) {
  if (value.IsEmpty())
    return scRunQuery(Sql("UPDATE ", table, " SET ", column, " = Null", NL, " WHERE CmdId = ", CmdId));
  return scRunQuery(Sql("UPDATE ", table, " SET ", column, " = '", value, "'", NL, " WHERE CmdId = ", CmdId));
}

bool GenericEditInfo(const Action& action) {
  const std::string context = "Edit: " + action.CmdName;
  return InTransaction(context, [&] {
    for (const Value& parameter : action.ParamList) {
      const std::string name = ToText(parameter);
      if (!WriteColumn(action.CmdName, action.CmdId, name, scGetParamValue(name))) {
        Report(context, Message::ColumnNotWritten, name);
        return false;
      }
    }
    return true;
  });
}

bool GenericDeleteInfo(const Action& action) {
  const std::string context = "Delete: " + action.CmdName;
  return InTransaction(context, [&] {
    return OrReport(scRunQuery(Sql("DELETE * FROM ", action.CmdName, NL, " WHERE CmdId = ", action.CmdId)), context,
                    Message::RecordNotDeleted, action.CmdName, action.CmdId);
  });
}

}  // namespace cordboard
