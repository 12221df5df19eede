// EXTEITEMPLATE: templates of general extensions: named sets of the values of an EXTEI record without a number and a
// position. They stand in the site database.

#include "commands/extensions/EXTEI_Checks.h"
#include "commands/extensions/EXTEI_Edit.h"
#include "commands/extensions/EXTEI_ICAT.h"
#include "commands/extensions/EXTEI_Lists.h"
#include "script/Envelope.h"
#include "script/Module.h"
#include "script/Report.h"
#include "shared/ClassStrings.h"
#include "shared/Record.h"
#include "shared/TemplateID.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

// --- Checks.

// A template without a position keeps its ADC_D1.
bool CheckTYPE(const Action& action) {
  const Value EQU = scGetParamValue("EQU");
  const Value TYPE = scGetParamValue("TYPE");
  if (TYPE.IsBlank()) return true;
  return SuitICATToTYPE(action, TYPE, EQU) && (EQU.IsEmpty() || SuitADCAndEQUToTYPE(TYPE, EQU));
}

// --- Add, edit and delete.

const List columns = {"CmdId", "TEMPLATENAME", "NUMTYP",    "CAT",      "TRAF",  "ROC",        "CDIV",
                      "SERV",  "TYPE",         "CUST",      "ADC",      "ICAT",  "LOCATION",   "BUILDING",
                      "ROOM",  "JACK",         "FIRSTNAME", "LASTNAME", "TITLE", "DEPARTMENT", "TRM"};

// The form's NUMTYP is read as all other columns are, and does not count.
Value ReadNUMTYP() {
  scGetParamValue("NUMTYP");
  return "EX";
}

bool Add(const Action& action) {
  const Reporter fail("Add: " + action.CmdName);
  return InTransaction(fail, [&] {
    const List record = Record(columns, {{"CmdId", NextTemplateID("EXTEIDIRTEMPLATE")}, {"NUMTYP", ReadNUMTYP}});
    return scSQLInsert("EXTEIDIRTEMPLATE", columns, record) || fail(InsertFailed, "EXTEIDIRTEMPLATE");
  });
}

bool Edit(const Action& action) {
  return EditExtension(action, [](const std::string& sql) { return scRunQueryOn("site", sql); });
}

// A record that cannot be deleted is reported with the columns that the delete of an extension reads, and the
// templates' own table.
bool Delete(const Action& action) {
  const Reporter fail("Delete: " + action.CmdName);
  return InTransaction(fail, [&] {
    return scRunQueryOn("site", Sql("Delete * FROM EXTEIDIRTEMPLATE ", NL, " WHERE CmdID = ", action.CmdId)) ||
           fail(ValueNotFound, "DIR, EQU", "EXTEIDIRTEMPLATE");
  });
}

}  // namespace

// LOCATION does not follow from the position here, and the check of the position leaves it alone.
extern const Module EXTEITEMPLATE{
    .SetInfo = Add,
    .EditInfo = Edit,
    .DeleteInfo = Delete,
    .ValidValues = {{ClassStringDigits, GetValuesAndDescription},
                    {PlainParameters, GetValuesAndDescription},
                    {CDIVTail, ListCDIVTail},
                    {"AUX", ListAUX},
                    {"CAT", GetValuesFor_CAT},
                    {"CUST", GetValuesFor_CUST},
                    {"DIR", GetValuesFor_EX},
                    {"DIR_AUX", ListDIR_AUX},
                    {"EQU", ListEQU},
                    {ICATDigits(), ListICAT},
                    {"LOCATION", GetValuesFor_LOCATION}},
    .StatCheck = {{"AUX", CheckAUX},
                  {"CDIV_D6", ResetCDIVTail},
                  {"DIR_AUX", CheckDIR_AUX},
                  {"TYPE", CheckTYPE},
                  {"ICAT_D1_SUB1", CheckICAT_D1_SUB1},
                  {"ICAT_D3_SUB1", CheckICAT_D3_SUB1},
                  {"ICAT_D3_SUB2", CheckICAT_D3_SUB2},
                  {"ICAT_D3_SUB3", CheckICAT_D3_SUB3},
                  {"EQU", CheckICATOfEQU}},
    .isTemplate = true,
};

}  // namespace cordboard
