#include "shared/SingleRecord.h"

#include "script/Conversions.h"
#include "script/Envelope.h"
#include "shared/Count.h"
#include "shared/GenericRecord.h"
#include "shared/Record.h"
#include "shared/Row.h"

namespace cordboard {

namespace {

Value CountRecords(const std::string& table) { return UncheckedCount(Sql("SELECT COUNT(*) FROM ", table)); }

}  // namespace

bool SetSingleRecord(const Action& action, Worker add, Worker edit) {
  return Equals(CountRecords(action.CmdName), 0) ? add(action) : OnSingleRecord(action, edit);
}

bool OnSingleRecord(const Action& action, Worker edit) {
  RowSet rows;
  scRunQuery(Sql("SELECT CmdID FROM ", action.CmdName), rows);
  Action onRecord = action;
  onRecord.CmdId = ToInt32(rows[0][0]);
  return edit(onRecord);
}

bool IsStillEmpty(const Reporter& fail, const std::string& table) {
  return !Differs(CountRecords(table), 0) || fail(TableHoldsRecord, table);
}

bool AddSingleRecord(const Action& action) {
  const Reporter fail("Add: " + action.CmdName);
  action.ParamList.RequireBounds();  // before the transaction
  return InTransaction(fail, [&] {
    return IsStillEmpty(fail, action.CmdName) &&
           (scSQLInsert(action.CmdName, action.ParamList, Record(action.ParamList)) ||
            fail(InsertFailed, action.CmdName));
  });
}

bool EditSingleRecord(const Action& action, const std::string& oldValues) {
  const Reporter fail("Edit: " + action.CmdName);
  return InTransaction(fail, [&] {
    RowSet unread;
    return scRunQuery(oldValues, unread) && WriteParameters(action, fail);
  });
}

bool RewriteSingleRecord(const Action& action, const std::string& oldValues, const std::vector<std::string>& columns) {
  const Reporter fail("Edit: " + action.CmdName);
  return InTransaction(fail, [&] {
    RowSet rows;
    if (!scRunQuery(oldValues, rows)) return false;
    for (std::size_t i = 0; i < columns.size(); ++i) rows[i][0];  // all are read before the first is written
    for (std::size_t i = 0; i < columns.size(); ++i) {
      const Value value = OrStored(scGetParamValue(columns[i]), rows, i);
      if (!UpdateColumnOrNull(action.CmdName, action.CmdId, columns[i], value))
        return fail(ColumnNotWritten, columns[i]);
    }
    return true;
  });
}

}  // namespace cordboard
