#include "shared/SingleRecord.h"

#include "script/Conversions.h"
#include "script/Envelope.h"
#include "shared/GenericRecord.h"

namespace cordboard {

namespace {

// Counts without a test of the answer: no row is a failure of the call.
Value CountOf(const std::string& table) {
  RowSet rows;
  scRunQuery(Sql("SELECT COUNT(*) FROM ", table), rows);
  return rows[0][0];
}

bool WriteParameter(const std::string& context, const Action& action, const std::string& name, const Value& value) {
  return OrReport(WriteColumn(action.CmdName, action.CmdId, name, value), context, Message::ColumnNotWritten, name);
}

}  // namespace

bool SetSingleRecord(const Action& action, Worker add, Worker edit) {
  if (Equals(CountOf(action.CmdName), 0)) return add(action);
  RowSet rows;
  scRunQuery(Sql("SELECT CmdID FROM ", action.CmdName), rows);
  Action onRecord = action;
  onRecord.CmdId = ToInt32(rows[0][0]);
  return edit(onRecord);
}

bool IsStillEmpty(const std::string& context, const std::string& table) {
  return OrReport(!Differs(CountOf(table), 0), context, Message::TableHoldsRecord, table);
}

bool AddSingleRecord(const Action& action) {
  const std::string context = "Add: " + action.CmdName;
  List values(std::vector<Value>(action.ParamList.size()));
  return InTransaction(context, [&] {
    if (!IsStillEmpty(context, action.CmdName)) return false;
    for (std::size_t i = 0; i < values.size(); ++i) {
      const std::string name = ToText(action.ParamList[i]);
      values[i] = name == "CMDID" ? scBuildCmdID() : scGetParamValue(name);
    }
    return OrReport(scSQLInsert(action.CmdName, action.ParamList, values), context, Message::InsertFailed,
                    action.CmdName);
  });
}

bool EditSingleRecord(const Action& action, const std::string& oldValues) {
  const std::string context = "Edit: " + action.CmdName;
  return InTransaction(context, [&] {
    RowSet unread;
    if (!scRunQuery(oldValues, unread)) return false;
    for (const Value& parameter : action.ParamList) {
      const std::string name = ToText(parameter);
      if (!WriteParameter(context, action, name, scGetParamValue(name))) return false;
    }
    return true;
  });
}

bool RewriteSingleRecord(const Action& action, const std::string& oldValues, const std::vector<std::string>& columns) {
  const std::string context = "Edit: " + action.CmdName;
  return InTransaction(context, [&] {
    RowSet rows;
    if (!scRunQuery(oldValues, rows)) return false;
    std::vector<Value> old;
    for (std::size_t i = 0; i < columns.size(); ++i) old.push_back(rows[i][0]);
    for (std::size_t i = 0; i < columns.size(); ++i) {
      Value value = scGetParamValue(columns[i]);
      if (value.IsBlank()) value = old[i];
      if (!WriteParameter(context, action, columns[i], value.IsBlank() ? Value() : value)) return false;
    }
    return true;
  });
}

}  // namespace cordboard
