// KSANI: additional numbers, each on a key of a key extension DIR. The additional number ADN is a number of its own, of
// type EX, with its own category or class strings.

#include "commands/keyextensions/KSANI.h"

#include "commands/keyextensions/KSANI_lists.h"
#include "script/Conversions.h"
#include "script/Envelope.h"
#include "script/Generate.h"
#include "script/Module.h"
#include "script/Report.h"
#include "shared/ClassStrings.h"
#include "shared/ExtensionADC.h"
#include "shared/KeySpace.h"
#include "shared/Usage.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

bool ReadSERV(const std::string& context, const Value& CAT, RowSet& rows) {
  return OrReport(scRunQuery(Sql("SELECT SERV FROM EXCCS WHERE CAT = '", CAT, "'"), rows), context,
                  Message::StatementFailed);
}

// --- Add.

// What stood on the key goes, whatever its function. SERV of the category is read, and no use is made of it.
bool Add(const Action& action) {
  const std::string context = "Add: " + action.CmdName;
  return InTransaction(context, [&] {
    const List columns{"CmdId", "DIR",  "NUMTYP", "KEY", "ADN",  "CAT",    "TRAF",
                       "SERV",  "CDIV", "ROC",    "ADC", "CUST", "CALALT", "DESCRIPTION"};
    const Value CmdId = scBuildCmdID();
    const Value DIR = scGetParamValue("DIR");
    List values{CmdId, DIR, "EX"};
    for (std::size_t i = values.size(); i < columns.size(); ++i) values.Append(scGetParamValue(ToText(columns[i])));
    const Value& KEY = values[3];
    const Value& ADN = values[4];
    const Value& CAT = values[5];

    RowSet rows;
    if (!CAT.IsBlank() && !ReadSERV(context, CAT, rows)) return false;
    return OrReport(InsertExtension(ADN, "EX"), context, Message::InsertFailed) &&
           OrReport(scSQLInsert(action.CmdName, columns, values), context, Message::InsertFailed, action.CmdName) &&
           OrReport(scRunQuery(Sql("DELETE * FROM KSFKC WHERE KEY = '", KEY, "' AND DIR = '", DIR, "'")), context,
                    Message::StatementFailed);
  });
}

// --- Edit.

// The use of the number moves; the column ADN is left to the host.
bool EditADN(const Action& action, const std::string& context, const std::string& ADN) {
  RowSet rows;
  if (!OrReport(scRunQuery(Sql("SELECT ADN FROM KSANI WHERE CmdId = ", action.CmdId), rows), context,
                Message::ValueNotFound, "ADN", action.CmdName) ||
      !OrReport(!rows.IsEmpty(), context, Message::ColumnHasNoValue, "ADN"))
    return false;
  const Value& old = rows[0][0];
  return OrReport(UpdateExtOpeGrp(old, ADN), context, Message::ColumnUpdateFailed, old, context);
}

// An empty parameter is written as an empty text, but for CAT.
bool WriteParameter(const Action& action, const std::string& context, const std::string& name,
                    const std::string& value) {
  const bool toNull = name == "CAT" && value.empty();
  return OrReport(scRunQuery(toNull ? Sql("UPDATE ", action.CmdName, " SET CAT = Null WHERE CmdId = ", action.CmdId)
                                    : Sql("UPDATE ", action.CmdName, " SET ", name, " = '", value,
                                          "' WHERE CmdId = ", action.CmdId)),
                  context, Message::ColumnNotWritten, name);
}

// A category that is defined is refused: its last two digits of SERV cannot be both "00" and "01", which is what would
// let it pass. The edit goes on behind that, so that a later parameter can still decide for the record; every other
// failure ends it.
bool Edit(const Action& action) {
  const std::string context = "Edit: " + action.CmdName;
  return InTransaction(context, [&] {
    bool flag = true;
    for (const Value& parameter : action.ParamList) {
      const std::string name = ToText(parameter);
      const std::string value = ToText(scGetParamValue(name));
      if (name == "CAT" && !value.empty()) {
        RowSet rows;
        if (!ReadSERV(context, value, rows)) return false;
        if (!rows.IsEmpty() && !rows[0][0].IsBlank()) {
          Report(context, Message::AdditionalNumberRefused);
          flag = false;
          continue;
        }
      }
      flag = name == "ADN" ? EditADN(action, context, value) : WriteParameter(action, context, name, value);
      if (!flag) return false;
    }
    return flag;
  });
}

// --- Delete.

// Frees the additional number. The record is left to the host.
bool Delete(const Action& action) {
  const std::string context = "Delete: " + action.CmdName;
  return InTransaction(context, [&] {
    RowSet rows;
    if (!OrReport(scRunQuery(Sql("SELECT ADN FROM KSANI  WHERE CmdID = ", action.CmdId), rows), context,
                  Message::RecordNotRead, action.CmdName))
      return false;
    const Value& ADN = rows[0][0];
    return OrReport(!ADN.IsEmpty(), context, Message::ColumnHasNoValue, "ADN") &&
           OrReport(DeleteExtOpeGrp(ADN), context, Message::CleanUpFailed);
  });
}

// --- Generate.

// The class strings stand all four in the place of a category, even without a value. An owner that is not in KSEXI
// counts as an instrument like that of the line before.
bool Generate(const Action& action) {
  const std::string context = "Generating: " + action.CmdName;
  RowSet rows;
  bool flag = OrReport(scRunQuery("SELECT ADC,ADN,CALALT,CAT,CDIV,CUST,DIR,KEY,ROC,SERV,TRAF FROM KSANI", rows),
                       context, Message::GenerationFailed);
  Value ITYPE;
  for (std::size_t row = 0; row < rows.RowCount(); ++row) {
    const auto field = [&](std::size_t column) { return Trim(rows[column][row]); };
    const Value ADC = field(0), ADN = field(1), CALALT = field(2), CAT = field(3), CDIV = field(4), CUST = field(5),
                DIR = field(6), KEY = field(7), ROC = field(8), SERV = field(9), TRAF = field(10);
    if (!ReadITYPE(DIR, ITYPE)) return false;
    const std::string classes =
        CAT.IsNull() ? Text(",TRAF=", TRAF, ",SERV=", SERV, ",CDIV=", CDIV, ",ROC=", ROC) : Text(",CAT=", CAT);
    const std::string line =
        Text(ReleaseOfFixedKey(ITYPE, DIR, KEY), "KSANI:DIR=", DIR, UnlessNull(",ADN=", ADN), UnlessNull(",KEY=", KEY),
             classes, UnlessNull(",ADC=", ADC), UnlessNull(",CUST=", CUST), UnlessNull(",CALALT=", CALALT), ";");
    flag = OrReport(InsertBuiltCmd(action, line), context, Message::GenerationFailed);
  }
  return flag;
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
                    {"ADC_D1", additionalnumber::ListADC_D1},
                    {{"ADC_D3", "ADC_D4", "ADC_D5", "ADC_D6", "ADC_D7", "ADC_D8", "ADC_D9", "ADC_D10"},
                     GetValuesAndDescription},
                    {"ADC_D11", additionalnumber::ListADC_D11},
                    {{"CALALT", "CATTYP"}, GetValuesAndDescription},
                    {"ADN", additionalnumber::ListADN},
                    {"CAT", GetValuesFor_CAT},
                    {"CUST", GetValuesFor_CUST},
                    {"DIR", additionalnumber::ListDIR},
                    {"KEY", additionalnumber::ListKEY}},
    .StatCheck = {{"CAT", RecheckADC_D1}, {"CDIV_D6", ResetCDIVTail}, {"DIR", additionalnumber::CheckDIR}},
};

}  // namespace cordboard
