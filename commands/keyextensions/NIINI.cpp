// NIINI: names of numbers. A name stands in one of four tables, by what it names: an extension or abbreviated number
// (DIR), a group (GRP), an operator (OPE) or a free number (DNUM). A number has one name in its table.

#include "script/Conversions.h"
#include "script/Envelope.h"
#include "script/Module.h"
#include "script/Report.h"
#include "shared/Count.h"
#include "shared/Rechecks.h"
#include "shared/Record.h"
#include "shared/Release.h"
#include "shared/Row.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

struct NameTable {
  const char* name;
  const char* key;
  const char* NUMTYP;  // of its numbers; an abbreviated number has another
  List columns;
};

// The first whose key is given takes the name.
const NameTable nameTables[] = {
    {"NIINI_DIR", "DIR", "EX", {"CmdId", "DIR", "NUMTYP", "NAME1", "NAME2", "PRES", "NAMDB", "AUX"}},
    {"NIINI_GRP", "GRP", "EX", {"CmdId", "GRP", "NUMTYP", "NAME1", "NAME2", "PRES", "NAMDB", "AUX"}},
    {"NIINI_OPE", "OPE", "OI", {"CmdId", "OPE", "NUMTYP", "NAME1", "NAME2", "PRES", "NAMDB", "AUX"}},
    {"NIINI_DNUM", "DNUM", "DN", {"CmdId", "DNUM", "NUMTYP", "NAME1", "NAME2", "PRES", "NAMDB"}},
};

// --- Lists and checks.

// The numbers of all telephones, with those that are abbreviated where the name is for the name database; R6 and R6/1
// do not offer directory records.
bool ListDIR(const Action& action) {
  const Value NAMDB = scGetParamValue("NAMDB");
  const bool collected = scCollectSingleValues("SELECT DIR FROM EXTEIDIR") &&
                         scAddSingleValues("SELECT AUX FROM EXTEIAUX") && scAddSingleValues("SELECT DIR FROM KSEXI") &&
                         scAddSingleValues("SELECT ADN FROM KSANI") && scAddSingleValues("SELECT DIR FROM ITNUI") &&
                         (!Equals(NAMDB, "YES") || scAddSingleValues("SELECT ABB FROM ADCOI")) &&
                         (IsR6(action) || scAddSingleValues("SELECT DIR FROM GEDII"));
  return collected || ListRefused(action);
}

bool ListGRP(const Action& action) {
  const bool collected = scCollectSingleValues("SELECT GRP FROM GHGRI") && scAddSingleValues("SELECT GRP FROM ACGRI") &&
                         scAddSingleValues("SELECT GRP FROM CBELI");
  return collected || ListRefused(action);
}

bool ListOPE(const Action& action) { return CollectList(action, "SELECT DIR FROM OPERI"); }

// The trace tells what was asked for, whatever the form's answer.
bool SetOptional(const std::string& parameter, bool optional) {
  const bool flag = scSetParamOptional(parameter, optional);
  Debug(parameter, optional ? " is now optional" : " is now mandatory");
  return flag || Reporter("StatCheck")(StaticCheckFailed, parameter);
}

// Also an AUX that was cleared makes NAMDB mandatory: any value counts as a text, and so as given.
bool CheckAUX(const Action&) {
  Debug("AUX = ", scGetParamValue("AUX"));
  return SetOptional("NAMDB", false);
}

// The numbers to choose from depend on NAMDB: DIR is dropped unless it stands in its new list. These last steps are not
// tested.
bool CheckNAMDB(const Action&) {
  const Value DIR = scGetParamValue("DIR");
  const Value NAMDB = scGetParamValue("NAMDB");
  if (!SetOptional("NAME2", NAMDB.IsBlank())) return false;
  scResetParam("DIR");
  if (DIR.IsEmpty()) return true;
  List list;
  if (scGetValidValues("DIR", list) && IsValueInList(DIR, list)) scSetParamValue("DIR", DIR);
  return true;
}

// --- Edit.

// The table that holds the record; nothing where none does.
bool FindRecord(const Action& action, const Reporter& fail, const NameTable*& found) {
  for (const NameTable& table : nameTables) {
    RowSet rows;
    if (!scRunQuery(Sql(" SELECT * FROM ", table.name, " WHERE CmdID = ", action.CmdId), rows))
      return fail(StatementFailed);
    if (rows.IsEmpty()) continue;
    found = &table;
    break;
  }
  return true;
}

// A blank value becomes a null.
bool Write(const Action& action, const Reporter& fail, const NameTable& table, const std::string& name,
           const Value& value) {
  return UpdateColumnOrNullInLine(table.name, action.CmdId, name, value.IsBlank() ? Value() : value) ||
         fail(ColumnNotWritten, name);
}

// Writes the whole record: what the form leaves blank keeps what stands there. The first column that cannot be written
// ends it.
bool Merge(const Action& action, const Reporter& fail, const NameTable& table) {
  RowSet stored;
  if (!scRunQuery(Sql("SELECT ", table.key, ", NAME1, NAME2, NAMDB, AUX, PRES FROM ", table.name,
                      " WHERE CmdId = ", action.CmdId),
                  stored))
    return fail(StatementFailed);
  std::size_t column = 0;
  for (const char* name : {table.key, "NAME1", "NAME2", "NAMDB", "AUX", "PRES"}) {
    if (!Write(action, fail, table, name, OrStored(scGetParamValue(name), stored, column++))) return false;
  }
  return true;
}

// A parameter that cannot be written does not end the edit: the last one decides.
bool WriteChanged(const Action& action, const Reporter& fail, const NameTable& table) {
  bool flag = true;
  for (const Value& parameter : action.ParamList) {
    const std::string name = ToText(parameter);
    const Value value = scGetParamValue(name);
    Debug("NewValue for ", name, " = ", value);
    flag = Write(action, fail, table, name, value);
  }
  return flag;
}

// A record that stands in none of the tables changes nothing.
bool EditBy(bool (*write)(const Action&, const Reporter&, const NameTable&), const Action& action) {
  const Reporter fail("Edit: " + action.CmdName);
  return InTransaction(fail, [&] {
    const NameTable* table = nullptr;
    return FindRecord(action, fail, table) && (table == nullptr || write(action, fail, *table));
  });
}

bool Edit(const Action& action) { return EditBy(WriteChanged, action); }

// --- Add.

// An extension and an abbreviated number differ in their type alone.
bool ReadNUMTYP(const Reporter& fail, const NameTable& table, const Value& number, Value& NUMTYP) {
  NUMTYP = table.NUMTYP;
  if (&table != &nameTables[0]) return true;
  RowSet rows;
  if (!scRunQuery(Sql(" SELECT ABB FROM ADCOI  WHERE ABB = '", number, "'"), rows)) return fail(StatementFailed);
  if (!rows.IsEmpty()) NUMTYP = "AC";
  return true;
}

// There is no envelope. A null number counts as none here, though it has led to the add.
bool AddName(const Action& action) {
  const Reporter fail("Add: " + action.CmdName);
  for (const NameTable& table : nameTables) {
    const Value number = scGetParamValue(table.key);
    if (number.IsBlank()) continue;
    const Value CmdId = scBuildCmdID();
    Value NUMTYP;
    if (!ReadNUMTYP(fail, table, number, NUMTYP)) return false;
    const List record = Record(table.columns, {{"CmdId", CmdId}, {table.key, number}, {"NUMTYP", NUMTYP}});
    return scSQLInsert(table.name, table.columns, record) || fail(InsertFailed, table.name);
  }
  return fail(NoNumberForName);
}

// A number that has a name already keeps the record, and what is given goes over it. Without any number the answer is
// False in silence.
bool Add(const Action& action) {
  for (const NameTable& table : nameTables) {
    const Value number = scGetParamValue(table.key);
    if (number.IsEmptyOrEmptyText()) continue;
    const std::string condition = Sql(" FROM ", table.name, " WHERE ", table.key, " = '", number, "'");
    if (Equals(UncheckedCount("SELECT COUNT(*)" + condition), 0)) return AddName(action);
    RowSet rows;
    scRunQuery("SELECT CMDID" + condition, rows);
    Action onRecord = action;
    onRecord.CmdId = ToInt32(NumericValue(rows[0][0]));
    return EditBy(Merge, onRecord);
  }
  return false;
}

// --- Delete.

// Each table is asked for the column DIR, which is the key of the first alone.
bool Delete(const Action& action) {
  const Reporter fail("Delete: " + action.CmdName);
  return InTransaction(fail, [&] {
    for (const NameTable& table : nameTables) {
      RowSet rows;
      if (!scRunQuery(Sql(" SELECT DIR FROM ", table.name, "  WHERE CmdId = ", action.CmdId), rows))
        return fail(StatementFailed);
      if (rows.IsEmpty()) continue;
      return scRunQuery(Sql("DELETE * FROM ", table.name, " WHERE CmdId = ", action.CmdId)) ||
             fail(RecordNotDeleted, action.CmdName, action.CmdId);
    }
    return true;
  });
}

}  // namespace

extern const Module NIINI{
    .SetInfo = Add,
    .EditInfo = Edit,
    .DeleteInfo = Delete,
    .ValidValues = {{"DIR", ListDIR},
                    {"GRP", ListGRP},
                    {"OPE", ListOPE},
                    {{"NAMDB", "PRES", "PRES_D1", "PRES_D2"}, GetValuesAndDescription}},
    .StatCheck = {{"AUX", CheckAUX}, {"NAMDB", CheckNAMDB}},
};

}  // namespace cordboard
