// PELPI: personal lists: places CHO in the lists LIST of a number DIR. A list takes up to five rows, over all numbers.

#include "script/Conversions.h"
#include "script/Envelope.h"
#include "script/Module.h"
#include "script/Report.h"
#include "shared/Count.h"
#include "shared/GenericRecord.h"
#include "shared/Record.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

constexpr int lastList = 5;
constexpr int mostRowsOfList = 5;

// --- Lists and checks.

bool ListDIR(const Action& action) {
  const bool collected = scCollectSingleValues("SELECT DIR FROM EXTEIDIR ORDER BY DIR") &&
                         scAddSingleValues("SELECT DIR FROM KSEXI ORDER BY DIR") &&
                         scAddSingleValues("SELECT DIR FROM ITNUI ORDER BY DIR") &&
                         scAddSingleValues("SELECT DIR FROM CXAKI ORDER BY DIR") &&
                         scAddSingleValues("SELECT DIR FROM GEDII ORDER BY DIR");
  return collected || Reporter("GetValue : " + action.CmdName)(ListNotBuilt, "DIR");
}

bool IsFull(const Value& count) { return Equals(count, mostRowsOfList) || Greater(count, mostRowsOfList); }

// The first row has to go into list 1. With a DIR on the form a list that is full is taken off the values: the rows of
// all numbers count, not those of this one, and the answer of the count is not tested.
bool ListLIST(const Action& action) {
  const Reporter fail("GetValues : " + action.CmdName);
  Value count;
  if (!CheckedCount(fail, "SELECT COUNT(*) FROM PELPI", count)) return false;
  const bool isFirst = Equals(count, 0);
  const std::string all =
      Sql("SELECT Value, ValDesc FROM ParamValueDesc ", NL, "WHERE Command = 'PELPI' ", NL, "AND Param = 'LIST'");
  if (!scCollectValuesAndDesc(isFirst ? all + " AND Value = '1'" : all)) return fail(ListNotBuilt, "LIST");
  if (isFirst || scGetParamValue("DIR").IsEmpty()) return true;
  for (int list = 1; list <= lastList; ++list) {
    const Value rows = UncheckedCount(Sql("SELECT COUNT(*) FROM PELPI ", NL, "WHERE LIST = '", list, "'"));
    if (IsFull(rows) && !scRemoveFromValidValues("LIST", list)) return fail(ListNotBuilt, "LIST");
  }
  return true;
}

// Less the places that the number has in the list: list 1 where none is given.
bool ListCHO(const Action& action) {
  if (!scSQLSelectValuesAndDesc()) return ListRefused(action);
  const Value DIR = scGetParamValue("DIR");
  if (DIR.IsEmpty()) return true;
  const Value LIST = scGetParamValue("LIST");
  return scSubtractSingleValues(Sql("SELECT CHO FROM PELPI", NL, " WHERE LIST = '", LIST.IsEmpty() ? "1" : LIST, "'",
                                    NL, " AND DIR = '", DIR, "'")) ||
         ListRefused(action);
}

// The places after CHO, compared as texts.
bool ListBSYCHO(const Action& action) {
  const Value CHO = scGetParamValue("CHO");
  const bool built =
      CHO.IsEmpty()
          ? scSQLSelectValuesAndDesc()
          : scCollectValuesAndDesc(Sql("SELECT Value, ValDesc FROM ParamValueDesc ", NL,
                                       "WHERE Command = 'PELPI' AND Param = 'BSYCHO'", NL, " AND Value > '", CHO, "'"));
  return built || ListRefused(action);
}

bool CheckLIST(const Action&) { return scResetParam("CHO"); }

bool CheckCHO(const Action&) { return scResetParam("BSYCHO"); }

// A place that lies before CHO is dropped. Anything but 2 to 5 is not looked at, 1 included.
bool CheckBSYCHO(const Action&) {
  const Value BSYCHO = scGetParamValue("BSYCHO");
  const Value CHO = scGetParamValue("CHO");
  for (const char* place : {"2", "3", "4", "5"}) {
    if (Equals(BSYCHO, place) && !CHO.IsEmpty() && Greater(NumericValue(CHO), BSYCHO)) return scResetParam("BSYCHO");
  }
  return true;
}

// --- Add and edit.

const List columns = {"DIR", "NUMTYP", "LIST", "CHO", "ANSPOS", "TIME", "BSYCHO", "ONECAL", "ORGSEL", "SMSSEL"};

Value LISTOrFirst() {
  const Value LIST = scGetParamValue("LIST");
  return LIST.IsEmpty() ? Value("1") : LIST;
}

// The values stand in the order of the table's columns, which the statement does not name. An empty one becomes a null;
// a null becomes the empty text.
bool Add(const Action& action) {
  const Reporter fail("Add: " + action.CmdName);
  return InTransaction(fail, [&] {
    std::string values = Sql(scBuildCmdID());
    for (const Value& value : Record(columns, {{"NUMTYP", "EX"}, {"LIST", LISTOrFirst}}))
      values += value.IsEmpty() ? " ,null" : Sql(",'", value, "'");
    return scRunQuery(Sql("INSERT INTO PELPI VALUES (", values, ")")) || fail(InsertFailed, action.CmdName);
  });
}

// TIME stands with the name of its table, which is always this one.
bool Edit(const Action& action) { return EditRecord(action, {{"TIME", "PELPI.TIME"}}); }

}  // namespace

extern const Module PELPI{
    .SetInfo = Add,
    .EditInfo = Edit,
    .DeleteInfo = GenericDeleteInfo,
    .ValidValues = {{"BSYCHO", ListBSYCHO},
                    {"CHO", ListCHO},
                    {"DIR", ListDIR},
                    {"LIST", ListLIST},
                    {{"ONECAL", "ORGSEL_D1", "ORGSEL_D2", "ORGSEL_D3", "SMSSEL"}, GetValuesAndDescription}},
    .StatCheck = {{"BSYCHO", CheckBSYCHO}, {"CHO", CheckCHO}, {"LIST", CheckLIST}},
};

}  // namespace cordboard
