// KSEXI: key extensions: a number on an equipment position, with its instrument and its class strings. Function keys,
// further and additional numbers hang on its DIR, terminals on its EQU.

#include "commands/keyextensions/KSEXI_lists.h"
#include "script/Conversions.h"
#include "script/Envelope.h"
#include "script/Generate.h"
#include "script/Module.h"
#include "script/Report.h"
#include "script/Text.h"
#include "shared/ClassStrings.h"
#include "shared/ExtensionADC.h"
#include "shared/KeySpace.h"
#include "shared/Release.h"
#include "shared/Usage.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

// --- Add.

// One record for each number, on the position of the same place in its list. There is no envelope: when a number
// fails, the records of those before it stay.
bool Add(const Action& action) {
  const std::string context = "Add: " + action.CmdName;
  List numbers;
  List positions;
  if (!OrReport(scGetValueArray("DIR", numbers), context, Message::ListNotBuilt, "DIR")) return false;
  scGetValueArray("EQU", positions);
  for (std::size_t k = 0; k < numbers.size(); ++k) {
    List values(std::vector<Value>(action.ParamList.size()));
    for (std::size_t i = 0; i < values.size(); ++i) {
      const std::string name = ToText(action.ParamList[i]);
      values[i] = name == "CMDID"    ? scBuildCmdID()
                  : name == "NUMTYP" ? Value("EX")
                  : name == "DIR"    ? numbers[k]
                  : name == "EQU"    ? positions[k]
                                     : scGetParamValue(name);
    }
    const bool added = InsertExtension(numbers[k], "EX") &&
                       OrReport(scSQLInsert(action.CmdName, action.ParamList, values), context, Message::InsertFailed,
                                action.CmdName) &&
                       SetEquipmentUsed(positions[k], true);
    if (!added) return false;
  }
  return true;
}

// --- Edit.

// What the record has in the column.
bool ReadOld(const Action& action, const std::string& context, const std::string& column, Value& old) {
  RowSet rows;
  if (!OrReport(scRunQuery(Sql(" SELECT ", column, " FROM ", action.CmdName, " WHERE CmdId = ", action.CmdId), rows),
                context, Message::StatementFailed))
    return false;
  old = rows[0][0];
  return true;
}

// The use of the number moves; the column DIR is left to the host.
bool EditDIR(const Action& action, const std::string& context, const Value& DIR) {
  Value old;
  if (!ReadOld(action, context, "DIR", old)) return false;
  if (old.IsEmpty()) {
    Report(context, Message::ColumnHasNoValue, "DIR");
    return false;
  }
  return OrReport(UpdateExtOpeGrp(old, DIR), context, Message::ColumnNotWritten, "DIR");
}

// A record without a position is reported, and that is no failure.
bool EditEQU(const Action& action, const std::string& context, const Value& EQU) {
  Value old;
  if (!ReadOld(action, context, "EQU", old)) return false;
  if (old.IsEmpty()) {
    Report(context, Message::ColumnHasNoValue, "EQU");
    return true;
  }
  return UpdateEQU(action.CmdName, action.CmdId, old, EQU);
}

// Deletes what is on keys that the new instrument does not have; the numbers of the deleted records stay in use. An
// instrument without any keys, or with keys that cannot be read, makes a list that is no statement, and so cannot be
// chosen.
bool EditITYPE(const Action& action, const std::string& context, const Value& ITYPE) {
  const Value DIR = scGetParamValue("DIR");
  RowSet rows;
  scRunQuery(Sql("SELECT Value FROM ParamValueDesc WHERE Command = 'KSANI' AND  Param = 'KEY' AND DefinitionNo = ",
                 KeyDefinition(ITYPE)),
             rows, "static");
  std::string keys;
  for (std::size_t row = 0; row < rows.RowCount(); ++row) keys += Text(row == 0 ? "('" : ",'", Trim(rows[0][row]), "'");
  if (!rows.IsEmpty()) keys += ")";

  bool flag = true;
  for (const char* table : {"KSFKC", "KSANI", "KSMDI"})
    flag = flag && scRunQuery(Sql("DELETE * FROM ", table, " WHERE DIR ='", DIR, "' AND Key NOT IN ", keys));
  flag = flag && scRunQuery(Sql("UPDATE KSEXI SET ITYPE = '", ITYPE, "' WHERE CmdId = ", action.CmdId));
  return OrReport(flag, context, Message::ColumnNotWritten, "ITYPE");
}

bool EditParameter(const Action& action, const std::string& context, const std::string& name, const Value& value) {
  if (name == "DIR") return EditDIR(action, context, value);
  if (name == "EQU") return EditEQU(action, context, value);
  if (name == "ITYPE") return EditITYPE(action, context, value);
  return OrReport(scRunQuery(Sql("UPDATE KSEXI SET ", name, " = '", value, "' WHERE CmdId = ", action.CmdId)), context,
                  Message::ColumnNotWritten, name);
}

// Only a number that is too long ends the edit. Behind any other failure it goes on, so that the last parameter
// decides.
bool Edit(const Action& action) {
  const std::string context = "Edit: " + action.CmdName;
  return InTransaction(context, [&] {
    bool flag = true;
    for (const Value& parameter : action.ParamList) {
      const std::string name = ToText(parameter);
      const Value value = scGetParamValue(name);
      if (name == "DIR" && Length(Joined(value)) > 5) {
        Report(context, Message::ValueNotValidHere, "DIR");
        return false;
      }
      flag = EditParameter(action, context, name, value);
    }
    return flag;
  });
}

// --- Delete.

// Frees the number and the position, and removes the terminals of the position. The record itself is left to the host,
// and what is on the keys stays. A record that cannot be read is reported under the name of another table.
bool Delete(const Action& action) {
  const std::string context = "Delete: " + action.CmdName;
  return InTransaction(context, [&] {
    RowSet rows;
    if (!OrReport(scRunQuery(Sql("SELECT DIR, EQU, ACCTYP FROM KSEXI  WHERE CmdID = ", action.CmdId), rows), context,
                  Message::ValueNotFound, "DIR, EQU", "EXTEIDIR"))
      return false;
    if (!OrReport(!rows.IsEmpty(), context, Message::RecordNotFound)) return false;
    const Value DIR = rows[0][0];
    const Value EQU = rows[1][0];
    const Value ACCTYP = rows[2][0];
    if (!DeleteExtOpeGrp(DIR) || !SetEquipmentUsed(EQU, false)) return false;
    return ACCTYP.IsBlank() ||
           OrReport(scRunQuery(Sql("DELETE * FROM ITNUI WHERE EQU = '", EQU, "'")), context, Message::StatementFailed);
  });
}

// --- Generate.

// The releases R6 and R6/1 do not have LANG, and there an empty text counts as a category too. The class strings stand
// all four in the place of a category, even without a value. A record without DIR, EQU and ITYPE gives the text of the
// record before it once more.
bool Generate(const Action& action) {
  const std::string context = "Generating: " + action.CmdName;
  const bool hasLANG = !IsR6(action);
  RowSet rows;
  scRunQuery(hasLANG ? "SELECT DIR,EQU,CAT,TRAF,SERV,CDIV,ROC,ITYPE,ADC,TRM,CUST,CALALT,LANG,ACCTYP FROM KSEXI"
                     : "SELECT DIR,EQU,CAT,TRAF,SERV,CDIV,ROC,ITYPE,ADC,TRM,CUST,CALALT,ACCTYP FROM KSEXI",
             rows);
  bool flag = true;
  std::string line;
  for (std::size_t row = 0; row < rows.RowCount(); ++row) {
    const auto field = [&](std::size_t column) { return Trim(rows[column][row]); };
    const Value DIR = field(0), EQU = field(1), CAT = field(2), ITYPE = field(7);
    const Value LANG = hasLANG ? field(12) : Value::Null();
    const Value ACCTYP = field(hasLANG ? 13 : 12);
    if (!DIR.IsNull() || !EQU.IsNull() || !ITYPE.IsNull()) {
      const bool hasCAT = hasLANG ? !CAT.IsBlank() : !CAT.IsNull();
      const std::string classes =
          hasCAT ? Text(",CAT=", CAT)
                 : Text(",TRAF=", field(3), ",SERV=", field(4), ",CDIV=", field(5), ",ROC=", field(6));
      line = Text("KSEXI:DIR=", DIR, UnlessNull(",ITYPE=", ITYPE), UnlessNull(",ACCTYP=", ACCTYP),
                  UnlessNull(",EQU=", EQU), classes, UnlessNull(",ADC=", field(8)), UnlessNull(",TRM=", field(9)),
                  UnlessNull(",CUST=", field(10)), UnlessNull(",CALALT=", field(11)), UnlessNull(",LANG=", LANG), ";");
    }
    flag = OrReport(InsertBuiltCmd(action, line), context, Message::GenerationFailed);
  }
  return flag;
}

}  // namespace

extern const Module KSEXI{
    .SetInfo = Add,
    .EditInfo = Edit,
    .DeleteInfo = Delete,
    .GenerateCmd = Generate,
    .ValidValues = {{ClassStringDigits, GetValuesAndDescription},
                    {{"SERV_D1", "SERV_D7D8_SUB1", "SERV_D7D8_SUB2"}, GetValuesAndDescription},
                    {CDIVTail, ListCDIVTail},
                    {"ADC_D1", ListADC_D1},
                    {{"ADC_D2", "ADC_D3", "ADC_D4", "ADC_D5", "ADC_D6", "ADC_D7", "ADC_D8", "ADC_D9", "ADC_D10"},
                     GetValuesAndDescription},
                    {"ADC_D11", ListADC_D11},
                    {{"ACCTYP", "CALALT", "ITYPE", "LANG"}, GetValuesAndDescription},
                    {"CAT", GetValuesFor_CAT},
                    {"CUST", GetValuesFor_CUST},
                    {"DIR", keyextension::ListDIR},
                    {"EQU", keyextension::ListEQU},
                    {"LOCATION", StatCheck_EQU_LOCATION}},
    .StatCheck = {{"ACCTYP", ResetADC_D11},
                  {{"CAT", "SERV_D7D8_SUB2"}, RecheckADC_D1},
                  {"CDIV_D6", ResetCDIVTail},
                  {"ITYPE", keyextension::CheckITYPE},
                  {"EQU", keyextension::ResetLOCATION}},
};

}  // namespace cordboard
