// KSFKC: functions on the keys of a key extension, one record a key. The function "TNS" may be on a key that another
// command takes as well, and it alone carries digits in DIG.

#include "commands/keyextensions/KSFKC_lists.h"
#include "script/Conversions.h"
#include "script/Envelope.h"
#include "script/Generate.h"
#include "script/Module.h"
#include "script/Report.h"
#include "script/Text.h"
#include "shared/GenericRecord.h"
#include "shared/KeySpace.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

// --- Add and edit.

const List columns{"CmdId", "DIR", "KEY", "DIRK", "FCN", "DIG"};

bool Insert(const Action& action, const std::string& context, const List& values) {
  return OrReport(scSQLInsert(action.CmdName, columns, values), context, Message::InsertFailed, action.CmdName);
}

bool RefuseDigits(const std::string& context) {
  Report(context, Message::DigitsDoNotSuitFunction, "DIG", "FCN", "TNS");
  return false;
}

// One key on several extensions. The test of digits takes " TNS" for "TNS", the removal of the function that the new
// one displaces does not.
bool AddByDIR(const Action& action, const std::string& context) {
  List list;
  if (!OrReport(scGetValueArray("DIR", list), context, Message::ListNotBuilt, "DIR")) return false;
  for (const Value& DIR : list) {
    const Value CmdId = scBuildCmdID();
    const Value KEY = scGetParamValue("KEY");
    const Value FCN = scGetParamValue("FCN");
    const Value DIG = scGetParamValue("DIG");
    if (Differs(TrimLeft(FCN), "TNS") && !DIG.IsEmpty()) return RefuseDigits(context);
    if (!Insert(action, context, {CmdId, DIR, KEY, ComposeDIRK(DIR, KEY), FCN, DIG})) return false;
    if (Differs(FCN, "TNS") && !OrReport(scRunQuery(Sql("DELETE * FROM KSFKC WHERE KEY = '", KEY, "' AND DIR = '", DIR,
                                                        "' AND FCN = 'TNS' AND NOT CmdID = ", CmdId)),
                                         context, Message::StatementFailed))
      return false;
  }
  return true;
}

// A list of composite keys. Each is inserted as many times as it has characters, under one identifier, and the digits
// are not tested. A failed insert goes on with the next composite key, a failed removal with the next insert; so the
// answer is that of the last step.
bool AddByDIRK(const Action& action, const std::string& context) {
  List list;
  if (!OrReport(scGetValueArray("DIRK", list), context, Message::ListNotBuilt, "DIRK")) return false;
  bool flag = true;
  for (const Value& DIRK : list) {
    const Value CmdId = scBuildCmdID();
    std::string DIR;
    std::string KEY;
    SplitDIRK(DIRK, DIR, KEY);
    const std::size_t passes = Length(ToText(DIRK));
    for (std::size_t pass = 1; pass <= passes; ++pass) {
      const Value FCN = scGetParamValue("FCN");
      const Value DIG = scGetParamValue("DIG");
      flag = Insert(action, context, {CmdId, DIR, KEY, DIRK, FCN, DIG});
      if (!flag) break;
      if (Differs(FCN, "TNS"))
        flag = OrReport(scRunQuery(Sql("DELETE * FROM KSFKC WHERE KEY = '", KEY, "' ", NL, "AND DIR = '", DIR,
                                       "' AND FCN = 'TNS' AND NOT CmdID = ", CmdId)),
                        context, Message::StatementFailed);
    }
  }
  return flag;
}

bool Add(const Action& action) {
  const std::string context = "Add: " + action.CmdName;
  return InTransaction(context, [&] {
    const Value DIR = scGetParamValue("DIR");
    Debug("DIR = ", DIR);
    return DIR.IsEmpty() ? AddByDIRK(action, context) : AddByDIR(action, context);
  });
}

bool WriteParameter(const Action& action, const std::string& context, const std::string& name, const Value& value) {
  return OrReport(scRunQuery(Sql("UPDATE KSFKC SET ", name, " = '", value, "' WHERE CmdId = ", action.CmdId)), context,
                  Message::ColumnNotWritten, name);
}

// The digits and the function must suit each other, seen from the one that has changed.
bool DigitsSuit(const std::string& name, const Value& value) {
  if (name == "FCN" && Differs(TrimLeft(value), "TNS")) {
    const Value DIG = scGetParamValue("DIG");
    return DIG.IsEmpty() || DIG.IsNull();
  }
  if (name == "DIG") return !Differs(TrimLeft(scGetParamValue("FCN")), "TNS") || value.IsEmpty();
  return true;
}

// The composite key is written first. After that only a number that is too long ends the edit: behind any other
// refusal it goes on, and the last parameter decides.
bool Edit(const Action& action) {
  const std::string context = "Edit: " + action.CmdName;
  return InTransaction(context, [&] {
    const Value DIR = scGetParamValue("DIR");
    const Value KEY = scGetParamValue("KEY");
    const std::string DIRK = ComposeDIRK(DIR, KEY);
    bool flag = WriteParameter(action, context, "DIRK", DIRK);
    if (!flag) return false;
    for (const Value& parameter : action.ParamList) {
      const std::string name = ToText(parameter);
      const Value value = name == "DIRK" ? Value(DIRK) : scGetParamValue(name);
      if (name == "DIR" && Length(Joined(value)) > 5) {
        Report(context, Message::ValueNotValidHere, "DIR");
        return false;
      }
      flag = DigitsSuit(name, value) ? WriteParameter(action, context, name, value) : RefuseDigits(context);
    }
    return flag;
  });
}

// --- Generate.

// A record without DIR, KEY and FCN gives the text of the record before it once more.
bool Generate(const Action& action) {
  const std::string context = "Generating: " + action.CmdName;
  RowSet rows;
  scRunQuery("SELECT DIR,KEY,FCN,DIG FROM KSFKC", rows);
  bool flag = true;
  std::string line;
  Value ITYPE;
  for (std::size_t row = 0; row < rows.RowCount(); ++row) {
    const Value DIR = Trim(rows[0][row]);
    const Value KEY = Trim(rows[1][row]);
    const Value FCN = Trim(rows[2][row]);
    const Value DIG = Trim(rows[3][row]);
    if (!ReadITYPE(DIR, ITYPE)) return false;
    if (!DIR.IsNull() || !KEY.IsNull() || !FCN.IsNull())
      line =
          Text("KSFKC:DIR=", DIR, UnlessNull(",KEY=", KEY), UnlessNull(",FCN=", FCN), UnlessBlank(",DIG=", DIG), ";");
    if (Differs(FCN, "TNS")) line.insert(0, ReleaseOfFixedKey(ITYPE, DIR, KEY));
    flag = OrReport(InsertBuiltCmd(action, line), context, Message::GenerationFailed);
  }
  return flag;
}

}  // namespace

extern const Module KSFKC{
    .SetInfo = Add,
    .EditInfo = Edit,
    .DeleteInfo = GenericDeleteInfo,
    .GenerateCmd = Generate,
    .ValidValues = {{"DIR", functionkey::ListDIR},
                    {"FCN", functionkey::ListFCN},
                    {"ITYPE", GetValuesAndDescription},
                    {"KEY", functionkey::ListKEY}},
    .StatCheck = {{"DIR", functionkey::CheckDIR}, {"ITYPE", functionkey::CheckITYPE}},
};

}  // namespace cordboard
