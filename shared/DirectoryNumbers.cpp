#include "shared/DirectoryNumbers.h"

#include "script/Envelope.h"
#include "script/HostOperations.h"
#include "script/Statement.h"
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

}  // namespace cordboard
