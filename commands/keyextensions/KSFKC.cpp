// KSFKC: functions on the keys of a key extension, one record a key. A key with the function "TNS" still counts as free
// for further and additional numbers, whose adds remove it (that of KSMDI on R6 and R6/1 does not). It alone carries
// digits in DIG.

#include <algorithm>

#include "script/Conversions.h"
#include "script/Envelope.h"
#include "script/Generate.h"
#include "script/Module.h"
#include "script/Report.h"
#include "script/Text.h"
#include "shared/GenericRecord.h"
#include "shared/KeySpace.h"
#include "shared/Rechecks.h"
#include "shared/Row.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

// --- Lists and checks.

bool ListDIR(const Action& action) { return CollectList(action, " SELECT DIR FROM KSEXI  ORDER BY DIR "); }

// The keys that are free on all of the extensions. A list that cannot be collected answers False in silence.
bool ListKEY(const Action& action) {
  List list;
  scGetValueArray("DIR", list);
  const Value given = scGetParamValue("DIR");
  if (!scCollectValuesAndDesc(Sql("SELECT Value, ValDesc FROM ParamValueDesc WHERE Command = 'KSANI' AND Param = 'KEY' "
                                  "AND DefinitionNo = ",
                                  action.Definition)))
    return false;
  if (given.IsEmpty() || list.IsEmpty() || list.IsNull()) return true;
  for (const Value& DIR : Given(list)) {
    if (!SubtractTakenKeys(action, DIR, Sql("SELECT KEY FROM KSFKC WHERE DIR =  '", DIR, "'"))) return false;
  }
  return true;
}

bool RemoveFunctionsInUse(const Value& DIR) {
  RowSet rows;
  if (!scRunQuery(Sql("SELECT FCN FROM KSFKC WHERE DIR = '", DIR, "' "), rows)) return false;
  for (std::size_t row = 0; row < rows.RowCount(); ++row) {
    const Value& FCN = rows[0][row];
    if (Differs(FCN, "TNS") && !scRemoveFromValidValues("FCN", FCN)) return false;
  }
  return true;
}

bool RemoveFunctionsOfAccess(const Value& DIR) {
  RowSet rows;
  if (!scRunQuery(Sql("SELECT ACCTYP FROM KSEXI WHERE DIR = '", DIR, "' "), rows)) return false;
  if (rows.IsEmpty() || !rows[0][0].IsBlank()) return true;
  return scRemoveFromValidValues("FCN", "SBC") && scRemoveFromValidValues("FCN", "RDC");
}

bool RemoveFunctionsOfADC(const Value& DIR) {
  RowSet rows;
  if (!scRunQuery(Sql("SELECT ADC FROM KSEXI WHERE DIR = '", DIR, "' "), rows)) return false;
  if (rows.IsEmpty()) return true;
  const std::string first = Left(Joined(rows[0][0]), 1);
  return first == "1" || first == "2" || scRemoveFromValidValues("FCN", "CLT");
}

// A function exists once for each extension, "TNS" any number of times.
bool ListFCN(const Action& action) {
  const Reporter fail("KSFKC_GetValuesFor_FCN");
  if (!scSQLSelectValuesAndDesc()) return fail(DescribedListNotBuilt, action.Parameter());
  List list;
  const bool given = scGetValueArray("DIR", list);
  if (!given || list.IsEmpty()) return given;
  for (const Value& DIR : Given(list)) {
    const bool removed = RemoveFunctionsInUse(DIR) && RemoveFunctionsOfAccess(DIR) && RemoveFunctionsOfADC(DIR);
    if (!removed) return fail(DescribedListNotBuilt, action.Parameter());
  }
  return true;
}

// Several extensions may get one key only when they are instruments of the same type.
bool CheckDIR(const Action& action) {
  const Reporter fail("StatCheck : " + action.CmdName);
  const Value KEY = scGetParamValue("KEY");
  const Value FCN = scGetParamValue("FCN");
  List list;
  if (!scGetValueArray("DIR", list)) return fail(ListNotBuilt, "DIR");
  if (list.IsEmpty() || list.size() == 0) return true;

  std::string numbers;
  for (const Value& DIR : list) numbers += Text(numbers.empty() ? "'" : ",'", DIR, "'");
  RowSet rows;
  if (!scRunQuery(Sql("SELECT DIR, ITYPE FROM KSEXI WHERE DIR IN (", numbers, ") ORDER BY DIR"), rows))
    return fail(StatementFailed);
  if (rows.IsEmpty()) return true;

  const List& instruments = rows[1];
  const bool mixed = std::any_of(instruments.begin(), instruments.end(),
                                 [&](const Value& ITYPE) { return Differs(ITYPE, instruments[0]); });
  if (mixed) return fail(KeyNotFound);
  return scActiveDefinition("KEY", KeyDefinition(instruments[0])) && Revalidate(fail, "KEY", KEY) &&
         Revalidate(fail, "FCN", FCN);
}

bool CheckITYPE(const Action&) {
  const Value ITYPE = scGetParamValue("ITYPE");
  return ITYPE.IsNull() ||
         (scActiveDefinition("KEY", KeyDefinition(ITYPE)) && scResetParam("KEY") && scResetParam("FCN"));
}

// --- Add and edit.

const List columns{"CmdId", "DIR", "KEY", "DIRK", "FCN", "DIG"};

bool Insert(const Action& action, const Reporter& fail, const List& values) {
  return scSQLInsert(action.CmdName, columns, values) || fail(InsertFailed, action.CmdName);
}

bool RefuseDigits(const Reporter& fail) { return fail(DigitsDoNotSuitFunction, "DIG", "FCN", "TNS"); }

// One key on several extensions. The test of digits takes " TNS" for "TNS", the removal of the function that the new
// one displaces does not.
bool AddByDIR(const Action& action, const Reporter& fail) {
  List list;
  if (!scGetValueArray("DIR", list)) return fail(ListNotBuilt, "DIR");
  for (const Value& DIR : list) {
    const Value CmdId = scBuildCmdID();
    const Value KEY = scGetParamValue("KEY");
    const Value FCN = scGetParamValue("FCN");
    const Value DIG = scGetParamValue("DIG");
    if (Differs(TrimLeft(FCN), "TNS") && !DIG.IsEmpty()) return RefuseDigits(fail);
    if (!Insert(action, fail, {CmdId, DIR, KEY, ComposeDIRK(DIR, KEY), FCN, DIG})) return false;
    if (Differs(FCN, "TNS") && !scRunQuery(Sql("DELETE * FROM KSFKC WHERE KEY = '", KEY, "' AND DIR = '", DIR,
                                               "' AND FCN = 'TNS' AND NOT CmdID = ", CmdId)))
      return fail(StatementFailed);
  }
  return true;
}

// A list of composite keys. Each is inserted as many times as it has characters, under one identifier, and the digits
// are not tested. A failed insert goes on with the next composite key, a failed removal with the next insert; so the
// answer is that of the last step.
bool AddByDIRK(const Action& action, const Reporter& fail) {
  List list;
  if (!scGetValueArray("DIRK", list)) return fail(ListNotBuilt, "DIRK");
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
      flag = Insert(action, fail, {CmdId, DIR, KEY, DIRK, FCN, DIG});
      if (!flag) break;
      if (Differs(FCN, "TNS"))
        flag = scRunQuery(Sql("DELETE * FROM KSFKC WHERE KEY = '", KEY, "' ", NL, "AND DIR = '", DIR,
                              "' AND FCN = 'TNS' AND NOT CmdID = ", CmdId)) ||
               fail(StatementFailed);
    }
  }
  return flag;
}

bool Add(const Action& action) {
  const Reporter fail("Add: " + action.CmdName);
  return InTransaction(fail, [&] {
    const Value DIR = scGetParamValue("DIR");
    Debug("DIR = ", DIR);
    return DIR.IsEmpty() ? AddByDIRK(action, fail) : AddByDIR(action, fail);
  });
}

bool WriteParameter(const Action& action, const Reporter& fail, const std::string& name, const Value& value) {
  return UpdateColumnInLine("KSFKC", action.CmdId, name, value) || fail(ColumnNotWritten, name);
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

// The composite key is written first. After that only a number that is too long ends the edit: after any other
// refusal it goes on, and the last parameter decides.
bool Edit(const Action& action) {
  const Reporter fail("Edit: " + action.CmdName);
  return InTransaction(fail, [&] {
    const Value DIR = scGetParamValue("DIR");
    const Value KEY = scGetParamValue("KEY");
    const std::string DIRK = ComposeDIRK(DIR, KEY);
    bool flag = WriteParameter(action, fail, "DIRK", DIRK);
    if (!flag) return false;
    for (const Value& parameter : action.ParamList) {
      const std::string name = ToText(parameter);
      const Value value = name == "DIRK" ? Value(DIRK) : scGetParamValue(name);
      if (name == "DIR" && Length(Joined(value)) > 5) return fail(ValueNotValidHere, "DIR");
      flag = DigitsSuit(name, value) ? WriteParameter(action, fail, name, value) : RefuseDigits(fail);
    }
    return flag;
  });
}

// --- Generate.

// A record without DIR, KEY and FCN gives the text of the record before it once more.
bool Generate(const Action& action) {
  const Reporter fail("Generating: " + action.CmdName);
  RowSet rows;
  scRunQuery("SELECT DIR,KEY,FCN,DIG FROM KSFKC", rows);
  std::string line;
  return InsertKeyLines(fail, action, rows, 0, true, [&](const LineRow& row, const Value& ITYPE) {
    const Value DIR = row[0], KEY = row[1], FCN = row[2], DIG = row[3];
    if (!DIR.IsNull() || !KEY.IsNull() || !FCN.IsNull())
      line =
          Text("KSFKC:DIR=", DIR, UnlessNull(",KEY=", KEY), UnlessNull(",FCN=", FCN), UnlessBlank(",DIG=", DIG), ";");
    if (Differs(FCN, "TNS")) line.insert(0, ReleaseOfFixedKey(ITYPE, DIR, KEY));
    return line;
  });
}

}  // namespace

extern const Module KSFKC{
    .SetInfo = Add,
    .EditInfo = Edit,
    .DeleteInfo = GenericDeleteInfo,
    .GenerateCmd = Generate,
    .ValidValues = {{"DIR", ListDIR}, {"FCN", ListFCN}, {"ITYPE", GetValuesAndDescription}, {"KEY", ListKEY}},
    .StatCheck = {{"DIR", CheckDIR}, {"ITYPE", CheckITYPE}},
};

}  // namespace cordboard
