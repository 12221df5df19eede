// AUCOI: authorisation codes AUTH. One with a directory number DIR is regional, and holds for that number; one without
// is central. Each kind has a table of its own: AUCOI_Central has CHECK, where AUCOI_Regional has DIR.

#include "script/Conversions.h"
#include "script/Envelope.h"
#include "script/Module.h"
#include "shared/Count.h"
#include "shared/Record.h"
#include "shared/Release.h"
#include "shared/Row.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

constexpr const char* central = "AUCOI_Central";
constexpr const char* regional = "AUCOI_Regional";

// --- Lists and checks.

// The numbers that have no regional code.
bool ListDIR(const Action& action) {
  return (scCollectSingleValues("SELECT DIR FROM EXTEIDIR") && scAddSingleValues("SELECT DIR FROM KSEXI") &&
          scAddSingleValues("SELECT DIR FROM DTEXI") && scAddSingleValues("SELECT DIR FROM GEDII ") &&
          scAddSingleValues("SELECT DIR FROM ITNUI ") && scSubtractSingleValues("SELECT DIR FROM AUCOI_Regional")) ||
         ListRefused(action);
}

// One of the two, CAT and CSP, makes the other optional. The value is read as a text, so that a null fails the call;
// but whether there is one does not count.
bool MakeOptional(const Action& action, const char* other) {
  ToText(scGetParamValue(action.Parameter()));
  return scSetParamOptional(other, true) || Reporter("StatCheck")(StaticCheckFailed, action.Parameter());
}

bool CheckCAT(const Action& action) { return IsR6(action) || MakeOptional(action, "CSP"); }

bool CheckCSP(const Action& action) { return MakeOptional(action, "CAT"); }

// --- Add.

// A number of GEDII is cordless and takes CSP; any other takes CAT.
bool SuitsNumber(const Reporter& fail, const Value& DIR, const Value& CAT, const Value& CSP) {
  const Value count = UncheckedCount(Sql("SELECT COUNT(*) FROM GEDII WHERE DIR = '", DIR, "'", NL));
  if (Equals(count, 0)) return CSP.IsEmpty() || fail(WrongKindOfCategory, "Normal", "CAT");
  return CAT.IsEmpty() || fail(WrongKindOfCategory, "Cordless", "CSP");
}

// Without a transaction. A central code is not looked at.
bool Add(const Action& action) {
  const Reporter fail("Add: " + action.CmdName);
  const Value DIR = scGetParamValue("DIR");
  Debug("DIR = ", DIR);
  const char* table = DIR.IsEmpty() ? central : regional;
  const List& columns = action.ParamList;
  const List record = Record(columns, {{"NUMTYP", "EX"}});
  if (table == regional && !SuitsNumber(fail, DIR, ValueOf("CAT", columns, record), ValueOf("CSP", columns, record)))
    return false;
  return scSQLInsert(table, columns, record) || fail(InsertFailed, table);
}

// --- Edit and delete.

// The table that holds the record: the central one, unless the regional one has its row.
bool FindTable(const Action& action, const Reporter& fail, const char*& table) {
  RowSet rows;
  if (!scRunQuery(Sql(" SELECT DIR FROM AUCOI_Regional ", NL, " WHERE CmdID = ", action.CmdId), rows))
    return fail(StatementFailed);
  table = rows.IsEmpty() ? central : regional;
  return true;
}

// A parameter that the table does not have is passed over. CHECK and DIR that cannot be written end the edit; any other
// does not, and the answer is that of the last one.
bool Edit(const Action& action) {
  const Reporter fail("Edit: " + action.CmdName);
  return InTransaction(fail, [&] {
    const char* table = central;
    if (!FindTable(action, fail, table)) return false;
    bool flag = true;
    for (const Value& parameter : action.ParamList) {
      const std::string name = ToText(parameter);
      const Value value = scGetParamValue(name);
      if (name == (table == central ? "DIR" : "CHECK")) continue;
      flag = UpdateColumn(table, action.CmdId, name, value) || fail(ColumnNotWritten, name);
      if (!flag && (name == "CHECK" || name == "DIR")) return false;
    }
    return flag;
  });
}

bool Delete(const Action& action) {
  const Reporter fail("Delete: " + action.CmdName);
  return InTransaction(fail, [&] {
    const char* table = central;
    return FindTable(action, fail, table) &&
           (DeleteRow(table, action.CmdId) || fail(RecordNotDeleted, table, action.CmdId));
  });
}

}  // namespace

extern const Module AUCOI{
    .SetInfo = Add,
    .EditInfo = Edit,
    .DeleteInfo = Delete,
    .ValidValues = {{"CAT", GetValuesFor_CAT},
                    {"CHECK", GetValuesAndDescription},
                    {"CUST", GetValuesFor_CUST},
                    {"CSP", GetValuesFor_CSP},
                    {"DIR", ListDIR}},
    .StatCheck = {{"CAT", CheckCAT}, {"CSP", CheckCSP}},
};

}  // namespace cordboard
