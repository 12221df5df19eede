// KSMDI: further directory numbers, each on a key of a key extension: pressing the key works on the other number. In
// the releases R6 and R6/1 MNS can give the key a function too, and the digits go with that; in all others the record
// has its own digits, and a function on the key gives way.

#include "commands/keyextensions/KSMDI_lists.h"
#include "script/Conversions.h"
#include "script/Envelope.h"
#include "script/Generate.h"
#include "script/Module.h"
#include "script/Report.h"
#include "shared/KeySpace.h"
#include "shared/Release.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

// --- Add. A record is a list of values in the order of its columns; from MDN on they come from the form.

const std::string addContext = "KSMDI - SetInfo";

const List columnsWithMNS{"CmdId", "DIR", "KEY", "DIRK", "MDN", "CALALT", "MNS", "DIG"};
const List plainColumns{"CmdId", "DIR", "KEY", "DIRK", "MDN", "DIG", "CALALT"};

List FillFromForm(const List& columns, List record) {
  for (std::size_t i = record.size(); i < columns.size(); ++i) record.Append(scGetParamValue(ToText(columns[i])));
  return record;
}

// An extension has at most 30 records.
bool HasRoom(const Value& DIR) {
  RowSet rows;
  if (!scRunQuery(Sql("SELECT COUNT(*) FROM KSMDI WHERE DIR ='", DIR, "'"), rows)) {
    Debug(" Error getting the number of MDN's");
    return false;
  }
  const Value& count = rows[0][0];
  if (!Equals(count, 30) && !Greater(count, 30)) return true;
  Debug("The maximum numbers of MDN's have been initiated for this DIR");
  Report(addContext, Message::TooManyMDN, "30", "MDNs", "DIR");
  return false;
}

bool Insert(const List& columns, const List& record) {
  return OrReport(scSQLInsert("KSMDI", columns, record), addContext, Message::InsertFailed, "KSMDI");
}

// Adds a record for each extension, all with the one key on the form, or, where the form has no DIR, for each composite
// key. The first that cannot be added ends it.
using AddRecord = bool (*)(const List& record);
bool AddEach(const List& columns, AddRecord addByDIR, AddRecord addByDIRK) {
  return InTransaction(addContext, [&] {
    const Value given = scGetParamValue("DIR");
    Debug("DIR = ", given);
    List list;
    if (given.IsEmpty()) {
      if (!OrReport(scGetValueArray("DIRK", list), addContext, Message::ListNotBuilt, "DIRK")) return false;
      for (const Value& DIRK : list) {
        const Value CmdId = scBuildCmdID();
        std::string DIR;
        std::string KEY;
        SplitDIRK(DIRK, DIR, KEY);
        if (!addByDIRK(FillFromForm(columns, {CmdId, DIR, KEY, DIRK}))) return false;
      }
      return true;
    }
    if (!OrReport(scGetValueArray("DIR", list), addContext, Message::ListNotBuilt, "DIR")) return false;
    for (const Value& DIR : list) {
      const Value CmdId = scBuildCmdID();
      const Value KEY = scGetParamValue("KEY");
      if (!addByDIR(FillFromForm(columns, {CmdId, DIR, KEY, ComposeDIRK(DIR, KEY)}))) return false;
    }
    return true;
  });
}

// "YES" puts the function MNS on the key, with the digits of this record and under its identifier; "NO" forbids digits;
// any other value passes.
bool ApplyMNS(const List& record) {
  const Value& MNS = record[6];
  const Value& DIG = record[7];
  if (Equals(MNS, "YES"))
    return OrReport(scSQLInsert("KSFKC", {"CmdId", "DIR", "KEY", "DIRK", "FCN", "DIG"},
                                {record[0], record[1], record[2], record[3], "MNS", DIG}),
                    addContext, Message::InsertFailed, "KSMDI");
  const bool refused = Equals(MNS, "NO") && !DIG.IsEmpty() && !DIG.IsEmptyText();
  return OrReport(!refused, addContext, Message::RequiredValueMissing, "DIG", "MNS");
}

// MNS does nothing for composite keys.
bool AddWithMNS(const Action&) {
  const auto addByDIR = [](const List& record) {
    return HasRoom(record[1]) && ApplyMNS(record) && Insert(columnsWithMNS, record);
  };
  const auto addByDIRK = [](const List& record) { return HasRoom(record[1]) && Insert(columnsWithMNS, record); };
  return AddEach(columnsWithMNS, addByDIR, addByDIRK);
}

bool AddPlain(const Action&) {
  const auto add = [](const List& record) {
    return HasRoom(record[1]) && Insert(plainColumns, record) &&
           OrReport(scRunQuery(Sql("DELETE * FROM KSFKC WHERE KEY = '", record[2], "' AND DIR = '", record[1], "'")),
                    addContext, Message::StatementFailed);
  };
  return AddEach(plainColumns, add, add);
}

bool Add(const Action& action) { return IsR6(action) ? AddWithMNS(action) : AddPlain(action); }

// --- Edit and delete.

bool WriteParameter(const Action& action, const std::string& name, const Value& value) {
  return OrReport(scRunQuery(Sql("UPDATE KSMDI SET ", name, " = '", value, "' WHERE CmdId = ", action.CmdId)),
                  "KSMDI - EditInfo", Message::ColumnNotWritten, name);
}

// Neither the limit nor MNS is tested. A parameter that cannot be written does not end the edit: the last one decides.
bool Edit(const Action& action) {
  return InTransaction("KSMDI - EditInfo", [&] {
    const Value DIR = scGetParamValue("DIR");
    const Value KEY = scGetParamValue("KEY");
    bool flag = WriteParameter(action, "DIRK", ComposeDIRK(DIR, KEY));
    if (!flag) return false;
    for (const Value& parameter : action.ParamList) {
      const std::string name = ToText(parameter);
      flag = WriteParameter(action, name, scGetParamValue(name));
    }
    return flag;
  });
}

// Whatever function is on the key goes with the record. A record that cannot be read is not reported.
bool Delete(const Action& action) {
  const std::string context = "Delete: " + action.CmdName;
  return InTransaction(context, [&] {
    RowSet rows;
    if (!scRunQuery(Sql("SELECT DIR, KEY FROM KSMDI WHERE CmdId = ", action.CmdId), rows)) return false;
    const bool deleted = (rows.IsEmpty() || scRunQuery(Sql("DELETE * FROM KSFKC WHERE DIR = '", rows[0][0],
                                                           "' AND KEY = '", rows[1][0], "'"))) &&
                         scRunQuery(Sql("DELETE * FROM ", action.CmdName, " WHERE CmdId = ", action.CmdId));
    return OrReport(deleted, context, Message::RecordNotDeleted, action.CmdName, action.CmdId);
  });
}

// --- Generate.

// In the releases R6 and R6/1 the digits are not in the line: they leave with the function on the key. A record without
// DIR, KEY and MDN gives the text of the record before it once more.
bool Generate(const Action& action) {
  const std::string context = "Generating: " + action.CmdName;
  const bool hasDIG = !IsR6(action);
  RowSet rows;
  scRunQuery(hasDIG ? "SELECT DIR,KEY,MDN,CALALT,DIG FROM KSMDI" : "SELECT DIR,KEY,MDN,CALALT FROM KSMDI", rows);
  bool flag = true;
  std::string line;
  Value ITYPE;
  for (std::size_t row = 0; row < rows.RowCount(); ++row) {
    const Value DIR = Trim(rows[0][row]);
    const Value KEY = Trim(rows[1][row]);
    const Value MDN = Trim(rows[2][row]);
    const Value CALALT = Trim(rows[3][row]);
    const Value DIG = hasDIG ? Trim(rows[4][row]) : Value();
    if (!ReadITYPE(DIR, ITYPE)) return false;
    if (!DIR.IsNull() || !KEY.IsNull() || !MDN.IsNull())
      line = Text("KSMDI:DIR=", DIR, UnlessNull(",KEY=", KEY), UnlessNull(",MDN=", MDN), UnlessNull(",CALALT=", CALALT),
                  UnlessBlank(",DIG=", DIG), ";");
    line.insert(0, ReleaseOfFixedKey(ITYPE, DIR, KEY));
    flag = OrReport(InsertBuiltCmd(action, line), context, Message::GenerationFailed);
  }
  return flag;
}

}  // namespace

extern const Module KSMDI{
    .SetInfo = Add,
    .EditInfo = Edit,
    .DeleteInfo = Delete,
    .GenerateCmd = Generate,
    .ValidValues = {{{"CALALT", "MNS"}, GetValuesAndDescription},
                    {"DIR", multiplenumber::ListDIR},
                    {"KEY", multiplenumber::ListKEY},
                    {"MDN", multiplenumber::ListMDN}},
    .StatCheck = {{"DIR", multiplenumber::CheckDIR},
                  {{"DIRK_D1D2D3D4D5", "DIRK_D6D7D8"}, multiplenumber::CheckDIRKDigits},
                  {"MNS", multiplenumber::CheckMNS}},
};

}  // namespace cordboard
