// KSMDI: further directory numbers, each on a key of a key extension: pressing the key works on the other number. In
// the releases R6 and R6/1 MNS can give the key a function too, and the digits are generated with that function; in all
// others they are generated with the record, and a function on the key gives way.

#include "script/Conversions.h"
#include "script/Envelope.h"
#include "script/Generate.h"
#include "script/Module.h"
#include "script/Report.h"
#include "shared/KeySpace.h"
#include "shared/Rechecks.h"
#include "shared/Record.h"
#include "shared/Release.h"
#include "shared/Row.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

// --- Lists and checks.

bool ListDIR(const Action& action) {
  return CollectList(action, "SELECT DIR  FROM KSEXI  WHERE NUMTYP = 'EX' ORDER BY DIR");
}

// The keys that are free on all of the extensions; one with the function "TNS" counts as free.
bool ListKEY(const Action& action) {
  List list;
  scGetValueArray("DIR", list);
  if (!scSQLSelectValuesAndDescByDefinition(action.Definition)) return DescribedListRefused(action);
  if (list.IsEmpty()) return true;
  for (const Value& DIR : Given(list)) {
    const std::string withFunction = Sql("SELECT KEY FROM KSFKC WHERE DIR =  '", DIR, "' AND NOT(FCN = 'TNS')");
    if (!SubtractTakenKeys(action, DIR, withFunction)) return false;
  }
  return true;
}

// Key extensions and additional numbers whose ADC does not begin with 1 or 2, and all general extensions and directory
// records; less the extension itself and the numbers that it has.
bool ListMDN(const Action& action) {
  const Reporter fail("GetValidValForParam");
  const bool collected =
      scCollectSingleValues("SELECT DIR FROM KSEXI WHERE NUMTYP = 'EX' ORDER BY DIR") &&
      scSubtractSingleValues("SELECT DIR FROM KSEXI WHERE NUMTYP = 'EX' AND ADC Like '[1-2]%' ORDER BY DIR") &&
      scAddSingleValues("SELECT ADN FROM KSANI  ORDER BY ADN") &&
      scSubtractSingleValues("SELECT ADN FROM KSANI  WHERE ADC Like '[1-2]%' ORDER BY ADN") &&
      scAddSingleValues("SELECT DIR FROM EXTEIDIR WHERE NUMTYP ='EX' ORDER BY DIR") &&
      scAddSingleValues("SELECT DIR FROM GEDII WHERE NUMTYP ='EX' ORDER BY DIR");
  if (!collected) return fail(ListNotBuilt, action.Parameter());
  List list;
  scGetValueArray("DIR", list);
  if (list.IsEmpty()) return true;
  for (const Value& DIR : Given(list)) {
    const bool removed = scRemoveFromValidValues("MDN", DIR) &&
                         scSubtractSingleValues(Sql("SELECT MDN FROM KSMDI WHERE DIR = '", DIR, "' "));
    if (!removed) return fail(NothingToOffer, "DIR");
  }
  return true;
}

// Extensions of different instruments are not refused: the definition of the last one stays active.
bool CheckDIR(const Action& action) {
  const Reporter fail("StatCheck: " + action.CmdName);
  const Value KEY = scGetParamValue("KEY");
  List list;
  if (!scGetValueArray("DIR", list)) return fail(ListNotBuilt, "DIR");
  for (const Value& DIR : Given(list)) {
    RowSet rows;
    if (!SelectITYPE(DIR, rows)) return fail(StatementFailed);
    if (rows.IsEmpty()) continue;
    const bool checked =
        scActiveDefinition("KEY", KeyDefinition(rows[0][0])) && scResetParam("MDN") && Revalidate(fail, "KEY", KEY);
    if (!checked) return false;
  }
  return true;
}

bool CheckDIRKDigits(const Action&) { return scSetParamOptional("DIRK", true); }

// The digits are mandatory with "YES".
bool CheckMNS(const Action&) {
  const Value MNS = scGetParamValue("MNS");
  if (Equals(MNS, "YES")) return scSetParamOptional("DIG", false);
  if (Equals(MNS, "NO")) return scSetParamOptional("DIG", true);
  return true;
}

// --- Add. From MDN on the columns come from the form.

const Reporter failAdd("KSMDI - SetInfo");

const List columnsWithMNS{"CmdId", "DIR", "KEY", "DIRK", "MDN", "CALALT", "MNS", "DIG"};
const List plainColumns{"CmdId", "DIR", "KEY", "DIRK", "MDN", "DIG", "CALALT"};

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
  return failAdd(TooManyMDN, "30", "MDNs", "DIR");
}

bool Insert(const List& columns, const List& record) {
  return scSQLInsert("KSMDI", columns, record) || failAdd(InsertFailed, "KSMDI");
}

// Adds a record for each extension, all with the one key on the form, or, where the form has no DIR, for each composite
// key. The first that cannot be added ends it.
using AddOne = bool (*)(const List& record);
bool AddEach(const List& columns, AddOne addByDIR, AddOne addByDIRK) {
  return InTransaction(failAdd, [&] {
    const Value given = scGetParamValue("DIR");
    Debug("DIR = ", given);
    List list;
    if (given.IsEmpty()) {
      if (!scGetValueArray("DIRK", list)) return failAdd(ListNotBuilt, "DIRK");
      for (const Value& DIRK : list) {
        const Value CmdId = scBuildCmdID();
        std::string DIR;
        std::string KEY;
        SplitDIRK(DIRK, DIR, KEY);
        if (!addByDIRK(Record(columns, {{"CmdId", CmdId}, {"DIR", DIR}, {"KEY", KEY}, {"DIRK", DIRK}}))) return false;
      }
      return true;
    }
    if (!scGetValueArray("DIR", list)) return failAdd(ListNotBuilt, "DIR");
    for (const Value& DIR : list) {
      const Value CmdId = scBuildCmdID();
      const Value KEY = scGetParamValue("KEY");
      const std::string DIRK = ComposeDIRK(DIR, KEY);
      if (!addByDIR(Record(columns, {{"CmdId", CmdId}, {"DIR", DIR}, {"KEY", KEY}, {"DIRK", DIRK}}))) return false;
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
    return scSQLInsert("KSFKC", {"CmdId", "DIR", "KEY", "DIRK", "FCN", "DIG"},
                       {record[0], record[1], record[2], record[3], "MNS", DIG}) ||
           failAdd(InsertFailed, "KSMDI");
  const bool refused = Equals(MNS, "NO") && !DIG.IsEmptyOrEmptyText();
  return !refused || failAdd(RequiredValueMissing, "DIG", "MNS");
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
    if (!HasRoom(record[1]) || !Insert(plainColumns, record)) return false;
    return scRunQuery(Sql("DELETE * FROM KSFKC WHERE KEY = '", record[2], "' AND DIR = '", record[1], "'")) ||
           failAdd(StatementFailed);
  };
  return AddEach(plainColumns, add, add);
}

bool Add(const Action& action) { return IsR6(action) ? AddWithMNS(action) : AddPlain(action); }

// --- Edit and delete.

// Neither the limit nor MNS is tested. A parameter that cannot be written does not end the edit: the last one decides.
bool Edit(const Action& action) {
  const Reporter fail("KSMDI - EditInfo");
  const auto write = [&](const std::string& name, const Value& value) {
    return UpdateColumnInLine("KSMDI", action.CmdId, name, value) || fail(ColumnNotWritten, name);
  };
  return InTransaction(fail, [&] {
    const Value DIR = scGetParamValue("DIR");
    const Value KEY = scGetParamValue("KEY");
    bool flag = write("DIRK", ComposeDIRK(DIR, KEY));
    if (!flag) return false;
    for (const Value& parameter : action.ParamList) {
      const std::string name = ToText(parameter);
      flag = write(name, scGetParamValue(name));
    }
    return flag;
  });
}

// Whatever function is on the key goes with the record. A record that cannot be read is not reported.
bool Delete(const Action& action) {
  const Reporter fail("Delete: " + action.CmdName);
  return InTransaction(fail, [&] {
    RowSet rows;
    if (!scRunQuery(Sql("SELECT DIR, KEY FROM KSMDI WHERE CmdId = ", action.CmdId), rows)) return false;
    const bool deleted = (rows.IsEmpty() || scRunQuery(Sql("DELETE * FROM KSFKC WHERE DIR = '", rows[0][0],
                                                           "' AND KEY = '", rows[1][0], "'"))) &&
                         scRunQuery(Sql("DELETE * FROM ", action.CmdName, " WHERE CmdId = ", action.CmdId));
    return deleted || fail(RecordNotDeleted, action.CmdName, action.CmdId);
  });
}

// --- Generate.

// In the releases R6 and R6/1 the digits are not in the line: they leave with the function on the key. A record without
// DIR, KEY and MDN gives the text of the record before it once more.
bool Generate(const Action& action) {
  const Reporter fail("Generating: " + action.CmdName);
  const bool hasDIG = !IsR6(action);
  RowSet rows;
  scRunQuery(hasDIG ? "SELECT DIR,KEY,MDN,CALALT,DIG FROM KSMDI" : "SELECT DIR,KEY,MDN,CALALT FROM KSMDI", rows);
  std::string line;
  return InsertKeyLines(fail, action, rows, 0, true, [&](const LineRow& row, const Value& ITYPE) {
    const Value DIR = row[0], KEY = row[1], MDN = row[2], CALALT = row[3];
    const Value DIG = hasDIG ? row[4] : Value();
    if (!DIR.IsNull() || !KEY.IsNull() || !MDN.IsNull())
      line = Text("KSMDI:DIR=", DIR, UnlessNull(",KEY=", KEY), UnlessNull(",MDN=", MDN), UnlessNull(",CALALT=", CALALT),
                  UnlessBlank(",DIG=", DIG), ";");
    line.insert(0, ReleaseOfFixedKey(ITYPE, DIR, KEY));
    return line;
  });
}

}  // namespace

extern const Module KSMDI{
    .SetInfo = Add,
    .EditInfo = Edit,
    .DeleteInfo = Delete,
    .GenerateCmd = Generate,
    .ValidValues = {{{"CALALT", "MNS"}, GetValuesAndDescription}, {"DIR", ListDIR}, {"KEY", ListKEY}, {"MDN", ListMDN}},
    .StatCheck = {{"DIR", CheckDIR}, {{"DIRK_D1D2D3D4D5", "DIRK_D6D7D8"}, CheckDIRKDigits}, {"MNS", CheckMNS}},
};

}  // namespace cordboard
