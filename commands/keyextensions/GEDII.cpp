// GEDII: directory records: numbers of type EX without equipment, each with a customer, a language and a location.
// Other commands take their numbers from here and mark them in TYPE.

#include "script/Conversions.h"
#include "script/Envelope.h"
#include "script/Module.h"
#include "script/Report.h"
#include "script/Text.h"
#include "shared/Rechecks.h"
#include "shared/Record.h"
#include "shared/Row.h"
#include "shared/Usage.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

// The locations, or the one location of the LIM on the form. A LIM that cannot be read answers False in silence; one
// that is in no location fails the call. The report is that of the same list for commands with an EQU.
bool ListLOCATION(const Action&) {
  const Value LIM = scGetParamValue("LIM");
  std::string sql = "SELECT Location, Description FROM Locations  ORDER BY Location";
  if (!LIM.IsEmpty()) {
    RowSet rows;
    if (!scRunQuery(Sql("SELECT LOCATION FROM LIMS WHERE LIM = '", LIM, "'"), rows)) return false;
    sql = Sql("SELECT LOCATION, DESCRIPTION  FROM LOCATIONS WHERE LOCATION = '", rows[0][0], "'");
  }
  return scCollectValuesAndDesc(sql, "dynamic") ||
         Reporter("StatCheck_EQU_LOCATION")(DescribedListNotBuilt, "Location");
}

// One record for each number.
bool Add(const Action& action) {
  const Reporter fail("Add: " + action.CmdName);
  return InTransaction(fail, [&] {
    List numbers;
    if (!scGetValueArray("DIR", numbers)) return fail(ListNotBuilt, "DIR");
    for (const Value& DIR : numbers) {
      const List record = Record(action.ParamList, {{"NUMTYP", "EX"}, {"DIR", DIR}});
      if (!InsertExtension(DIR, "EX")) return false;
      if (!scSQLInsert(action.CmdName, action.ParamList, record)) return fail(InsertFailed, action.CmdName);
    }
    return true;
  });
}

// The use of the number moves; the column DIR is left to the host. A record that is not there moves nothing.
bool EditDIR(const Action& action, const Reporter& fail, const std::string& DIR) {
  if (Length(DIR) > 5) return fail(ValueNotValidHere, "DIR");
  RowSet rows;
  if (!scRunQuery(Sql("SELECT DIR FROM GEDII WHERE CmdId = ", action.CmdId), rows)) return fail(StatementFailed);
  return rows.IsEmpty() || UpdateExtOpeGrp(rows[0][0], DIR) || fail(ColumnNotWritten, "DIR");
}

// Values are taken as texts: one that is not given is written as the empty text.
bool Edit(const Action& action) {
  const Reporter fail("Edit GEDII");
  return InTransaction(fail, [&] {
    for (const Value& parameter : action.ParamList) {
      const std::string name = ToText(parameter);
      const std::string value = ToText(scGetParamValue(name));
      const bool written =
          name == "DIR" ? EditDIR(action, fail, value)
                        : UpdateColumnInLine(action.CmdName, action.CmdId, name, value) || fail(ColumnNotWritten, name);
      if (!written) return false;
    }
    return true;
  });
}

// The cordless system may use the number as its SMSN: its record goes, unless it has an identity (SARI) to keep.
bool LeaveCordlessSystem(const Reporter& fail, const Value& DIR) {
  RowSet rows;
  if (!scRunQuery(Sql("SELECT SARI, SMSN FROM CXSYI WHERE SMSN = '", DIR, "'"), rows)) return fail(StatementFailed);
  if (rows.IsEmpty()) return true;
  const char* change = rows[0][0].IsNull() ? "DELETE * FROM CXSYI" : "UPDATE CXSYI SET SMSN = Null";
  return scRunQuery(Sql(change, " WHERE SMSN = '", DIR, "'")) || fail(StatementFailed);
}

// Frees the number; the record itself is left to the host.
bool Delete(const Action& action) {
  const Reporter fail("Delete: " + action.CmdName);
  return InTransaction(fail, [&] {
    RowSet rows;
    if (!scRunQuery(Sql("SELECT DIR FROM GEDII  WHERE CmdID = ", action.CmdId), rows))
      return fail(ValueNotFound, "DIR", "GEDII");
    if (rows.IsEmpty()) return fail(RecordNotFound);
    const Value DIR = rows[0][0];
    return DeleteExtOpeGrp(DIR) && LeaveCordlessSystem(fail, DIR);
  });
}

}  // namespace

extern const Module GEDII{
    .SetInfo = Add,
    .EditInfo = Edit,
    .DeleteInfo = Delete,
    .ValidValues = {{"CSP", GetValuesFor_CSP},
                    {"CUST", GetValuesFor_CUST},
                    {"DIR", GetValuesFor_EX},
                    {{"LANG", "LIC"}, GetValuesAndDescription},
                    {"LIM", GetValuesFor_LIM},
                    {"LOCATION", ListLOCATION}},
    .StatCheck = {{"LIM", ResetLOCATION}},
};

}  // namespace cordboard
