// KSEXITEMPLATE: templates for key extensions: named sets of their values in the site database, without a number or a
// position. Lists and checks are those of KSEXI, but for what hangs on these.

#include "commands/keyextensions/KSEXI_Edit.h"
#include "script/Envelope.h"
#include "script/Generate.h"
#include "script/Module.h"
#include "script/Report.h"
#include "shared/ClassStrings.h"
#include "shared/ExtensionADC.h"
#include "shared/Record.h"
#include "shared/Release.h"
#include "shared/TemplateID.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

// No number and no position is taken into use.
bool Add(const Action& action) {
  const Reporter fail("Add: " + action.CmdName);
  return InTransaction(fail, [&] {
    const List record =
        Record(action.ParamList, {{"CMDID", [] { return NextTemplateID("KSEXITEMPLATE"); }}, {"NUMTYP", "EX"}});
    return scSQLInsert(action.CmdName, action.ParamList, record) || fail(InsertFailed, action.CmdName);
  });
}

// The old DIR is asked for in the configuration. Of the keys that the new instrument lacks, the function keys alone
// are deleted in the site database; the others, and the position, are changed in the configuration.
bool Edit(const Action& action) {
  return EditKeyExtension(action, {.table = "KSEXITemplate", .updates = "site", .oldEQU = "site", .KSFKC = "site"});
}

// Frees nothing. A template that cannot be deleted is reported as a transaction that does not start.
bool Delete(const Action& action) {
  const Reporter fail("Delete: " + action.CmdName);
  return InTransaction(fail, [&] {
    return scRunQueryOn("site", Sql("Delete * FROM KSEXITEMPLATE  WHERE CmdID = ", action.CmdId)) || fail(StartFailed);
  });
}

// --- Generate.

// The releases R6 and R6/1 need more columns than they read: any template at all fails there, without a line.
bool GenerateWithoutLANG(const Reporter& fail) {
  RowSet rows;
  scRunQuery("SELECT TEMPLATENAME,CAT,TRAF,SERV,CDIV,ROC,ADC,TRM,CUST,CALALT,ACCTYP FROM KSEXITemplate", rows, "site");
  return rows.IsEmpty() || fail(GenerationFailed);
}

// The line is one of KSEXI. The class strings stand all four in the place of a category, even without a value; an empty
// text counts as a category. A template without a name gives the text of the one before it once more.
bool Generate(const Action& action) {
  const Reporter fail("Generating: " + action.CmdName);
  if (IsR6(action)) return GenerateWithoutLANG(fail);
  RowSet rows;
  scRunQuery("SELECT TEMPLATENAME,CAT,TRAF,SERV,CDIV,ROC,ADC,TRM,CUST,CALALT,LANG,ACCTYP FROM KSEXITemplate", rows,
             "site");
  std::string line;
  const auto lineOf = [&](const LineRow& row) {
    const Value TEMPLATENAME = row[0], CAT = row[1], ACCTYP = row[11];
    if (!TEMPLATENAME.IsNull()) {
      const std::string classes = CAT.IsNull()
                                      ? Text(",TRAF=", row[2], ",SERV=", row[3], ",CDIV=", row[4], ",ROC=", row[5])
                                      : Text(",CAT=", CAT);
      line = Text("KSEXI:TEMPLATENAME=", TEMPLATENAME, UnlessNull(",ACCTYP=", ACCTYP), classes,
                  UnlessNull(",ADC=", row[6]), UnlessNull(",TRM=", row[7]), UnlessNull(",CUST=", row[8]),
                  UnlessNull(",CALALT=", row[9]), UnlessNull(",LANG=", row[10]), ";");
    }
    return line;
  };
  return InsertLines(fail, action, rows, true, lineOf, "site");
}

}  // namespace

// The check of LOCATION is known and does nothing, and so it answers False as one that is not served.
extern const Module KSEXITEMPLATE{
    .SetInfo = Add,
    .EditInfo = Edit,
    .DeleteInfo = Delete,
    .GenerateCmd = Generate,
    .ValidValues = {{ClassStringDigits, GetValuesAndDescription},
                    {{"SERV_D1", "SERV_D7D8_SUB1", "SERV_D7D8_SUB2"}, GetValuesAndDescription},
                    {CDIVTail, ListCDIVTail},
                    {"ADC_D1", ListADC_D1},
                    {MiddleOfADC, GetValuesAndDescription},
                    {"ADC_D11", ListADC_D11},
                    {{"ACCTYP", "CALALT", "LANG"}, GetValuesAndDescription},
                    {"CAT", GetValuesFor_CAT},
                    {"CUST", GetValuesFor_CUST},
                    {"LOCATION", GetValuesFor_LOCATION}},
    .StatCheck = {{"ACCTYP", ResetADC_D11}, {{"CAT", "SERV_D7D8_SUB2"}, RecheckADC_D1}, {"CDIV_D6", ResetCDIVTail}},
    .isTemplate = true,
};

}  // namespace cordboard
