#include "shared/DirectoryNumbers.h"

#include "script/Conversions.h"
#include "script/Envelope.h"
#include "script/HostOperations.h"
#include "script/Statement.h"
#include "shared/Record.h"
#include "shared/Row.h"

namespace cordboard {

namespace {

RowSet Stored(const Action& action, const std::string& column) {
  RowSet rows;
  scRunQuery(Sql("SELECT ", column, " FROM ", action.CmdName, " WHERE CmdId = ", action.CmdId), rows);
  return rows;
}

}  // namespace

bool ListFreeDirectoryNumbers(const Action&) {
  return scCollectSingleValues("SELECT DIR FROM GEDII WHERE TYPE IS NULL");
}

bool TakeDirectoryNumber(const Value& DIR, const std::string& TYPE) {
  return scRunQuery(Sql("UPDATE GEDII SET TYPE = '", TYPE, "'", NL, " WHERE DIR = '", DIR, "'"));
}

bool FreeDirectoryNumber(const Value& DIR) {
  return scRunQuery(Sql("UPDATE GEDII SET TYPE = Null", NL, " WHERE DIR = '", DIR, "'"));
}

Value StoredNumber(const Action& action, const std::string& column) {
  const RowSet rows = Stored(action, column);
  return rows.IsEmpty() ? Value() : rows[0][0];
}

bool MoveDirectoryNumber(const Action& action, const std::string& column, const Value& value, const std::string& TYPE) {
  return FreeDirectoryNumber(StoredNumber(action, column)) &&
         UpdateColumnOrNull(action.CmdName, action.CmdId, column, value) &&
         (value.IsEmpty() || TakeDirectoryNumber(value, TYPE));
}

bool DeleteRowAndFreeNumber(const Action& action, const std::string& column) {
  const RowSet rows = Stored(action, column);
  return DeleteRow(action.CmdName, action.CmdId) && (rows.IsEmpty() || FreeDirectoryNumber(rows[0][0]));
}

bool DeleteWithDirectoryNumber(const Action& action, const std::string& column) {
  return InTransaction(Reporter("Delete: " + action.CmdName), [&] { return DeleteRowAndFreeNumber(action, column); });
}

bool InsertWithDirectoryNumber(const Action& action, const Reporter& fail, const std::string& column,
                               const std::string& TYPE) {
  bool taken = true;
  const auto take = [&] {
    Value number = scGetParamValue(column);
    taken = TakeDirectoryNumber(number, TYPE);
    return number;
  };
  const List record = Record(action.ParamList, {{column, take}});
  if (!taken) return false;
  return scSQLInsert(action.CmdName, action.ParamList, record) || fail(InsertFailed, action.CmdName);
}

bool EditWithDirectoryNumber(const Action& action, const Reporter& fail, const std::string& column,
                             const std::string& TYPE) {
  for (const Value& parameter : action.ParamList) {
    const std::string name = ToText(parameter);
    if (name == "CMDID") continue;
    const Value value = scGetParamValue(name);
    const bool written = name == column ? MoveDirectoryNumber(action, column, value, TYPE)
                                        : UpdateColumnOrNull(action.CmdName, action.CmdId, name, value);
    if (!written) return fail(ColumnNotWritten, name);
  }
  return true;
}

}  // namespace cordboard
