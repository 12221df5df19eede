#include "shared/UsedFiles.h"

#include "script/Conversions.h"
#include "script/Envelope.h"
#include "script/Statement.h"
#include "shared/Count.h"
#include "shared/Record.h"
#include "shared/Row.h"

namespace cordboard {

namespace {

bool ReadFile(const Action& action, RowSet& rows) {
  return scRunQuery(Sql("SELECT FILE FROM ", action.CmdName, " WHERE CMDID = ", action.CmdId), rows);
}

// A record that is not there renames nothing.
bool RenameUsedFile(const Action& action, const Value& FILE) {
  RowSet old;
  if (!ReadFile(action, old)) return false;
  return old.IsEmpty() ||
         scRunQuery(Sql("UPDATE USEDFILES SET FILE =  '", FILE, "'", NL, "WHERE FILE ='", old[0][0], "'", NL));
}

}  // namespace

bool AddFile(const Action& action) {
  const Reporter fail("Add: " + action.CmdName);
  action.ParamList.RequireBounds();  // before the transaction
  return InTransaction(fail, [&] {
    Value FILE;
    const List record =
        Record(action.ParamList, {{"FILE", [&FILE] { return FILE = scGetParamValue("FILE"); }}, {"NUMTYP", ""}});
    if (!scRunQuery(Sql("INSERT INTO USEDFILES VALUES ( '", FILE, "')"))) return false;
    return scSQLInsert(action.CmdName, action.ParamList, record) || fail(InsertFailed, action.CmdName);
  });
}

bool EditFile(const Action& action) {
  const Reporter fail("Edit: " + action.CmdName);
  return InTransaction(fail, [&] {
    for (const Value& parameter : action.ParamList) {
      const std::string name = ToText(parameter);
      const Value value = scGetParamValue(name);
      const bool written = name == "FILE" ? RenameUsedFile(action, value)
                                          : UpdateColumnOrNull(action.CmdName, action.CmdId, name, value);
      if (!written) return fail(ColumnNotWritten, name);
    }
    return true;
  });
}

// Whether the name can be read is not tested: without one nothing is taken out, and the answer is True.
bool DeleteFile(const Action& action) {
  const Reporter fail("Delete: " + action.CmdName);
  return InTransaction(fail, [&] {
    RowSet rows;
    ReadFile(action, rows);
    return rows.IsEmpty() || scRunQuery(Sql("DELETE * FROM USEDFILES", NL, " WHERE FILE = '", rows[0][0], "'")) ||
           fail(RecordNotDeleted, action.CmdName, action.CmdId);
  });
}

bool HasHead(const Action& action) {
  Value FILE;
  for (const Value& column : action.ParamList) {
    if (ToText(column) == "FILE") FILE = scGetParamValue("FILE");
  }
  return !Equals(UncheckedCount(Sql("SELECT COUNT(*) FROM CLOHI WHERE FILE = '", FILE, "'")), 0);
}

}  // namespace cordboard
