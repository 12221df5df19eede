// ADINI: ties a directory number DIR to codes: an individual abbreviated number ABB with its translation TRA. IADTYP
// says in which table TRA has to be defined as a code.

#include "script/Conversions.h"
#include "script/Envelope.h"
#include "script/Module.h"
#include "shared/Count.h"
#include "shared/GenericRecord.h"
#include "shared/Row.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

// --- The code that TRA names.

struct CodeTable {
  const char* IADTYP;
  const char* table;
  const char* column;
};
constexpr CodeTable codeTables[] = {
    {"AU", "AUCOI_Central", "AUTH"}, {"RA", "AUCOI_Regional", "AUTH"}, {"AO", "AOCOI", "ACO"}};

// Whether the code that TRA names without its outer blanks is defined. A type without a table asks nothing, and leaves
// `flag` as it is; otherwise it becomes the answer. Gives False where the code is missing, which the add takes as its
// end, and not where the table cannot be read.
bool CheckCode(const Reporter& fail, const Value& IADTYP, const Value& TRA, bool& flag) {
  for (const auto& [type, table, column] : codeTables) {
    if (!Equals(IADTYP, type)) continue;
    Value count;
    flag = CheckedCount(fail, Sql("SELECT COUNT(*) FROM ", table, " WHERE ", column, " = '", Trim(TRA), "'"), count);
    if (flag && Equals(count, 0)) return flag = fail(CodeNotDefined, "TRA", table);
  }
  return true;
}

// --- Add.

bool Holds(const RowSet& rows, const Value& ABB) {
  for (std::size_t row = 0; row < rows.RowCount(); ++row) {
    if (Equals(rows[0][row], ABB)) return true;
  }
  return false;
}

// What belongs to one number alone cannot be given to several.
bool IsLeftOut(const Reporter& fail, const char* name, const Value& value) {
  if (value.IsEmpty()) return true;
  Debug(" Dir cannot have multiple/range values when ", name, " is specified");
  return fail(ParametersExcludeEachOther, "DIR", name);
}

// A record without any code gives way to the next one of its number. Each such row deletes all records of the number.
void DeleteRecordsWithoutCode(const Reporter& fail, const RowSet& records, const Value& DIR, bool& flag) {
  for (std::size_t row = 0; row < records.RowCount(); ++row) {
    if (!records[0][row].IsNull() || !records[1][row].IsNull() || !records[2][row].IsNull()) continue;
    Debug("Deleting the record for this DIR from the table, which had no ABB/TRA/IADTYP defined");
    flag = scRunQuery(Sql("DELETE * FROM ADINI", NL, "WHERE DIR = '", DIR, "'")) || fail(StatementFailed);
  }
}

// One record for each number, without a transaction: what was written before a failure stays.
// - A number that has the abbreviated number already is refused, and no record is inserted after it; but the numbers
//   after it are looked at all the same, and the answer is that of the last one.
// - A query that fails has no message. It keeps the record out, unless a later query of the same number succeeds.
// - An insert that fails ends the add, and is reported twice.
bool Add(const Action&) {
  const Reporter fail("ADINI - SetInfo");
  const List columns{"CmdId", "NUMTYP", "DIR", "ABB", "TRA", "IADTYP", "DESCRIPTION"};
  List numbers;
  if (!scGetValueArray("DIR", numbers)) return false;
  bool flag = true;
  bool refused = false;
  for (const Value& DIR : numbers) {
    RowSet stored;
    flag = scRunQuery(Sql(" SELECT ABB FROM ADINI", NL, " WHERE DIR = '", DIR, "'"), stored);
    const Value ABB = scGetParamValue("ABB");
    if (Holds(stored, ABB)) {
      Debug(" This combination of the ABB & DIR Cannot be selected");
      Debug("Resetting parameter: ABB");
      flag = fail(ValuePresentForKey, "DIR", "ABB");
      refused = true;
      continue;
    }

    RowSet series;
    if (!scRunQuery(Sql("SELECT NUMTYP FROM NANSI WHERE NUMSE = '", DIR, "'"), series)) return false;
    const Value CmdId = scBuildCmdID();
    const Value NUMTYP = series[0][0];
    const Value TRA = scGetParamValue("TRA");
    const Value IADTYP = scGetParamValue("IADTYP");
    const Value DESCRIPTION = scGetParamValue("DESCRIPTION");
    const bool suits = numbers.size() <= 1 || (IsLeftOut(fail, "ABB", ABB) && IsLeftOut(fail, "TRA", TRA) &&
                                               IsLeftOut(fail, "IADTYP", IADTYP));
    if (!suits) return false;

    RowSet records;
    flag = scRunQuery(Sql(" SELECT ABB, TRA, IADTYP FROM ADINI WHERE DIR = '", DIR, "'"), records);
    if (!records.IsEmpty() && (ABB.IsNull() || ABB.IsEmpty())) return fail(RecordsForbidChange, "ABB");
    DeleteRecordsWithoutCode(fail, records, DIR, flag);
    if (!CheckCode(fail, Trim(IADTYP), TRA, flag)) return false;

    if (!flag || refused) continue;
    const List record{CmdId, NUMTYP, DIR, ABB, TRA, IADTYP, DESCRIPTION};
    if (!scSQLInsert("ADINI", columns, record)) {
      fail(InsertRefused, "ADINI", "ADINI");
      return fail(InsertRefused, "ADINI", "ADINI");
    }
  }
  return flag;
}

// --- Edit.

// A type on the form counts with its blanks where TRA changes, and without them where it changes itself. A parameter
// whose code is missing is not written, nor is one after it, unless that one's own code is found. The answer is that of
// the last step.
bool Edit(const Action& action) {
  const Reporter fail("ADINI - EditInfo");
  return InTransaction(fail, [&] {
    bool flag = true;
    for (const Value& parameter : action.ParamList) {
      const std::string name = ToText(parameter);
      const Value value = scGetParamValue(name);
      if (name == "TRA") CheckCode(fail, scGetParamValue("IADTYP"), value, flag);
      if (name == "IADTYP") CheckCode(fail, Trim(value), scGetParamValue("TRA"), flag);
      if (flag)
        flag = UpdateColumn("ADINI", action.CmdId, name, value) || fail(ColumnUpdateFailed, name, action.CmdName);
    }
    return flag;
  });
}

// --- The list of DIR.

// Operators and extensions.
bool ListDIR(const Action& action) {
  const auto numbers = [](const char* table, const char* NUMTYP) {
    return Sql(" SELECT DIR", NL, " FROM ", table, NL, " WHERE NUMTYP = '", NUMTYP, "'", NL, " ORDER BY DIR");
  };
  if (!CollectList(action, numbers("OPERI", "OI"))) return false;
  for (const char* table : {"EXTEIDIR", "GEDII", "ITNUI", "KSEXI"}) {
    if (!scAddSingleValues(numbers(table, "EX"))) return ListRefused(action);
  }
  return true;
}

}  // namespace

extern const Module ADINI{
    .SetInfo = Add,
    .EditInfo = Edit,
    .DeleteInfo = GenericDeleteInfo,
    .ValidValues = {{"DIR", ListDIR}, {"IADTYP", GetValuesAndDescription}},
};

}  // namespace cordboard
