// EXTEITEMPLATE: templates of general extensions: named sets of the values of an EXTEI record without a number and a
// position. They stand in the site database.

#include "commands/extensions/EXTEI_Edit.h"
#include "script/Conversions.h"
#include "script/Envelope.h"
#include "script/Module.h"
#include "script/Report.h"
#include "shared/Record.h"

namespace cordboard {

namespace {

const List columns = {"CmdId", "TEMPLATENAME", "NUMTYP",    "CAT",      "TRAF",  "ROC",        "CDIV",
                      "SERV",  "TYPE",         "CUST",      "ADC",      "ICAT",  "LOCATION",   "BUILDING",
                      "ROOM",  "JACK",         "FIRSTNAME", "LASTNAME", "TITLE", "DEPARTMENT", "TRM"};

// The identifier after the greatest of the table; that of the first is 1, and also where the table cannot be read.
std::string NextCmdId() {
  RowSet rows;
  if (!scRunQuery("SELECT MAX(CMDID) FROM EXTEIDIRTEMPLATE", rows, "site") || rows[0][0].IsNull()) return "1";
  return Text(ToNumber(rows[0][0]) + 1);
}

// The form's NUMTYP is read as all other columns are, and does not count.
bool Add(const Action& action) {
  const Reporter fail("Add: " + action.CmdName);
  return InTransaction(fail, [&] {
    List record = Record(columns, {{"CmdId", NextCmdId()}});
    record[2] = "EX";
    return scSQLInsert("EXTEIDIRTEMPLATE", columns, record) || fail(InsertFailed, "EXTEIDIRTEMPLATE");
  });
}

bool Edit(const Action& action) {
  return EditExtension(action, [](const std::string& sql) { return scRunQueryOn("site", sql); });
}

// A record that cannot be deleted is reported as one of an extension that was not found.
bool Delete(const Action& action) {
  const Reporter fail("Delete: " + action.CmdName);
  return InTransaction(fail, [&] {
    return scRunQueryOn("site", Sql("Delete * FROM EXTEIDIRTEMPLATE ", NL, " WHERE CmdID = ", action.CmdId)) ||
           fail(ValueNotFound, "DIR, EQU", "EXTEIDIRTEMPLATE");
  });
}

}  // namespace

extern const Module EXTEITEMPLATE{
    .SetInfo = Add,
    .EditInfo = Edit,
    .DeleteInfo = Delete,
    .isTemplate = true,
};

}  // namespace cordboard
