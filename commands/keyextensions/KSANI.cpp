// KSANI: additional numbers, each on a key of a key extension DIR. The additional number ADN is a number of its own, of
// type EX, with its own category or class strings.

#include "commands/keyextensions/KSANI.h"

#include "script/Conversions.h"
#include "script/Envelope.h"
#include "script/Generate.h"
#include "script/Module.h"
#include "script/Report.h"
#include "script/Text.h"
#include "shared/ClassStrings.h"
#include "shared/ExtensionADC.h"
#include "shared/KeySpace.h"
#include "shared/Rechecks.h"
#include "shared/Record.h"
#include "shared/Release.h"
#include "shared/Row.h"
#include "shared/Usage.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

// --- Lists and checks.

bool ListDIR(const Action& action) {
  return CollectList(action, " SELECT DIR FROM KSEXI  WHERE NUMTYP = 'EX'  ORDER BY DIR ");
}

// The free numbers, without that of the owner.
bool ListADN(const Action& action) {
  if (!CollectList(action, "SELECT NUMSE FROM NANSI  WHERE NUMTYP = 'EX'  AND USED = FALSE  ORDER BY NUMSE"))
    return false;
  const Value DIR = scGetParamValue("DIR");
  return DIR.IsEmpty() || scSubtractSingleValues(Sql("SELECT DIR FROM KSEXI  WHERE DIR = '", DIR, "' ")) ||
         ListRefused(action);
}

// A key with the function "TNS" counts as free.
bool ListKEY(const Action& action) {
  if (!scSQLSelectValuesAndDescByDefinition(action.Definition)) return DescribedListRefused(action);
  const Value DIR = scGetParamValue("DIR");
  if (DIR.IsBlank()) return true;
  return SubtractTakenKeys(action, DIR, Sql("SELECT KEY FROM KSFKC WHERE DIR =  '", DIR, "' AND NOT(FCN = 'TNS')"));
}

// An additional number may not go beyond the first digit of its owner: an owner without ADC counts as one with "0". An
// owner that is not in KSEXI gives no list.
bool ListADC_D1OfOwner(const Action& action) {
  const Reporter fail(" GetValues : " + action.Parameter());
  const Value DIR = scGetParamValue("DIR");
  bool zeroAlone = false;
  if (!DIR.IsEmpty()) {
    RowSet rows;
    if (!scRunQuery(Sql("SELECT ADC FROM KSEXI  WHERE DIR = '", DIR, "'"), rows)) return fail(StatementFailed);
    if (rows.IsEmpty()) return true;
    const Value& ADC = rows[0][0];
    zeroAlone = ADC.IsBlank() || Left(ToText(ADC), 1) == "0";
  }
  const bool listed =
      zeroAlone ? scCollectValuesAndDesc(
                      "SELECT Value, ValDesc FROM ParamValueDesc WHERE Command = 'KSEXI' AND Param = 'ADC_D1' AND "
                      "Value = '0'")
                : scSQLSelectValuesAndDesc();
  return listed || fail(DescribedListNotBuilt, action.Parameter());
}

// The releases R6 and R6/1 have no list.
bool ListADC_D11ByRelease(const Action& action) { return !IsR6(action) && GetValuesAndDescription(action); }

// The definition follows the instruments 0 to 24, compared as texts; any other, or one that the form does not take,
// leaves it as it was. An owner that cannot be read or is not in KSEXI changes nothing.
bool CheckDIR(const Action& action) {
  const Reporter fail("StatCheck: " + action.CmdName);
  const Value DIR = scGetParamValue("DIR");
  const Value KEY = scGetParamValue("KEY");
  if (DIR.IsNull()) return true;
  RowSet rows;
  if (!scRunQuery(Sql("SELECT ITYPE FROM KSEXI  WHERE DIR = '", DIR, "'"), rows)) return false;
  if (rows.IsEmpty()) return true;
  const std::string ITYPE = Joined(rows[0][0]);
  for (int instrument = 0; instrument <= 24; ++instrument) {
    if (ITYPE == std::to_string(instrument)) scActiveDefinition("KEY", instrument + 1);
  }
  return Revalidate(fail, "KEY", KEY) && scResetParam("ADC_D1");
}

bool ReadSERV(const Reporter& fail, const Value& CAT, RowSet& rows) {
  return scRunQuery(Sql("SELECT SERV FROM EXCCS WHERE CAT = '", CAT, "'"), rows) || fail(StatementFailed);
}

// --- Add.

// What stood on the key goes, whatever its function. SERV of the category is read, and no use is made of it.
bool Add(const Action& action) {
  const Reporter fail("Add: " + action.CmdName);
  return InTransaction(fail, [&] {
    const List columns{"CmdId", "DIR",  "NUMTYP", "KEY", "ADN",  "CAT",    "TRAF",
                       "SERV",  "CDIV", "ROC",    "ADC", "CUST", "CALALT", "DESCRIPTION"};
    const List record = Record(columns, {{"CmdId", scBuildCmdID()}, {"NUMTYP", "EX"}});
    const Value &DIR = record[1], &KEY = record[3], &ADN = record[4], &CAT = record[5];

    RowSet rows;
    if (!CAT.IsBlank() && !ReadSERV(fail, CAT, rows)) return false;
    if (!InsertExtension(ADN, "EX")) return fail(InsertFailed);
    if (!scSQLInsert(action.CmdName, columns, record)) return fail(InsertFailed, action.CmdName);
    return scRunQuery(Sql("DELETE * FROM KSFKC WHERE KEY = '", KEY, "' AND DIR = '", DIR, "'")) ||
           fail(StatementFailed);
  });
}

// --- Edit.

// The use of the number moves; the column ADN is left to the host.
bool EditADN(const Action& action, const Reporter& fail, const std::string& ADN) {
  RowSet rows;
  if (!scRunQuery(Sql("SELECT ADN FROM KSANI WHERE CmdId = ", action.CmdId), rows))
    return fail(ValueNotFound, "ADN", action.CmdName);
  if (rows.IsEmpty()) return fail(ColumnHasNoValue, "ADN");
  const Value& old = rows[0][0];
  return UpdateExtOpeGrp(old, ADN) || fail(ColumnUpdateFailed, old, fail.context());
}

// An empty parameter is written as an empty text, but for CAT.
bool WriteParameter(const Action& action, const Reporter& fail, const std::string& name, const std::string& value) {
  const bool toNull = name == "CAT" && value.empty();
  return UpdateColumnOrNullInLine(action.CmdName, action.CmdId, name, toNull ? Value() : Value(value)) ||
         fail(ColumnNotWritten, name);
}

// A category that is defined is refused: it would pass if the last two digits of its SERV were "00" and "01" at once.
// The edit goes on after that, so that a later parameter can still decide for the record; every other
// failure ends it.
bool Edit(const Action& action) {
  const Reporter fail("Edit: " + action.CmdName);
  return InTransaction(fail, [&] {
    bool flag = true;
    for (const Value& parameter : action.ParamList) {
      const std::string name = ToText(parameter);
      const std::string value = ToText(scGetParamValue(name));
      if (name == "CAT" && !value.empty()) {
        RowSet rows;
        if (!ReadSERV(fail, value, rows)) return false;
        if (!rows.IsEmpty() && !rows[0][0].IsBlank()) {
          flag = fail(AdditionalNumberRefused);
          continue;
        }
      }
      flag = name == "ADN" ? EditADN(action, fail, value) : WriteParameter(action, fail, name, value);
      if (!flag) return false;
    }
    return flag;
  });
}

// --- Delete.

// Frees the additional number. The record is left to the host.
bool Delete(const Action& action) {
  const Reporter fail("Delete: " + action.CmdName);
  return InTransaction(fail, [&] {
    RowSet rows;
    if (!scRunQuery(Sql("SELECT ADN FROM KSANI  WHERE CmdID = ", action.CmdId), rows))
      return fail(RecordNotRead, action.CmdName);
    if (rows.IsEmpty() || rows[0][0].IsBlank()) return fail(ColumnHasNoValue, "ADN");
    return DeleteExtOpeGrp(rows[0][0]) || fail(CleanUpFailed);
  });
}

// --- Generate.

// The class strings stand all four in the place of a category, even without a value. An owner that is not in KSEXI
// counts as an instrument like that of the line before.
bool Generate(const Action& action) {
  const Reporter fail("Generating: " + action.CmdName);
  RowSet rows;
  const bool read = scRunQuery("SELECT ADC,ADN,CALALT,CAT,CDIV,CUST,DIR,KEY,ROC,SERV,TRAF FROM KSANI", rows) ||
                    fail(GenerationFailed);
  return InsertKeyLines(fail, action, rows, 6, read, [](const LineRow& row, const Value& ITYPE) {
    const Value ADC = row[0], ADN = row[1], CALALT = row[2], CAT = row[3], CDIV = row[4], CUST = row[5], DIR = row[6],
                KEY = row[7], ROC = row[8], SERV = row[9], TRAF = row[10];
    const std::string classes =
        CAT.IsNull() ? Text(",TRAF=", TRAF, ",SERV=", SERV, ",CDIV=", CDIV, ",ROC=", ROC) : Text(",CAT=", CAT);
    return Text(ReleaseOfFixedKey(ITYPE, DIR, KEY), "KSANI:DIR=", DIR, UnlessNull(",ADN=", ADN),
                UnlessNull(",KEY=", KEY), classes, UnlessNull(",ADC=", ADC), UnlessNull(",CUST=", CUST),
                UnlessNull(",CALALT=", CALALT), ";");
  });
}

}  // namespace

extern const Module KSANI{
    .SetInfo = Add,
    .EditInfo = Edit,
    .DeleteInfo = Delete,
    .GenerateCmd = Generate,
    .ValidValues = {{ClassStringDigits, GetValuesAndDescription},
                    {"SERV_D7D8", GetValuesAndDescription},
                    {CDIVTail, ListCDIVTail},
                    {"ADC_D1", ListADC_D1OfOwner},
                    {{"ADC_D3", "ADC_D4", "ADC_D5", "ADC_D6", "ADC_D7", "ADC_D8", "ADC_D9", "ADC_D10"},
                     GetValuesAndDescription},
                    {"ADC_D11", ListADC_D11ByRelease},
                    {{"CALALT", "CATTYP"}, GetValuesAndDescription},
                    {"ADN", ListADN},
                    {"CAT", GetValuesFor_CAT},
                    {"CUST", GetValuesFor_CUST},
                    {"DIR", ListDIR},
                    {"KEY", ListKEY}},
    .StatCheck = {{"CAT", RecheckADC_D1}, {"CDIV_D6", ResetCDIVTail}, {"DIR", CheckDIR}},
};

}  // namespace cordboard
