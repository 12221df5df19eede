// ASPAC: numbered exchange parameters. The release's table PARNUMVAL says which there are, and their bounds.

#include "script/Conversions.h"
#include "script/Envelope.h"
#include "script/Generate.h"
#include "script/Module.h"
#include "shared/Row.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

// Runs `store` for a value inside the bounds of its parameter. For a parameter that has no bounds nothing is stored,
// and that counts as done: the empty transaction commits.
template <typename Store>
bool StoreWithinBounds(const Reporter& fail, const Action& action, const Value& PARNUM, const Value& PARVAL,
                       Store store) {
  RowSet rows;
  if (!scRunQuery(Sql("SELECT MINPARVAL, MAXPARVAL FROM PARNUMVAL WHERE PARNUM = '", PARNUM, "'"), rows, "static"))
    return fail(ListNotBuilt, "PARNUM");
  if (rows.IsEmpty()) return true;
  const Value least = rows[0][0];
  const Value greatest = rows[1][0];
  const double value = NumericValue(PARVAL);
  if (Less(value, least) || Greater(value, greatest)) return fail(ValueOutsideLimits, "PARVAL", least, greatest);
  return store() || fail(InsertFailed, action.CmdName);
}

// Columns other than the three stay empty, whatever the form holds.
bool Add(const Action& action) {
  const Reporter fail("Add: " + action.CmdName);
  return InTransaction(fail, [&] {
    List values(std::vector<Value>(action.ParamList.size()));
    Value PARNUM;
    Value PARVAL;
    for (std::size_t i = 0; i < values.size(); ++i) {
      const std::string name = ToText(action.ParamList[i]);
      if (name == "CMDID") values[i] = scBuildCmdID();
      if (name == "PARNUM") values[i] = PARNUM = scGetParamValue(name);
      if (name == "PARVAL") values[i] = PARVAL = scGetParamValue(name);
    }
    return StoreWithinBounds(fail, action, PARNUM, PARVAL,
                             [&] { return scSQLInsert(action.CmdName, action.ParamList, values); });
  });
}

// Both columns are written, whatever ParamList holds.
bool Edit(const Action& action) {
  const Reporter fail("Edit: " + action.CmdName);
  return InTransaction(fail, [&] {
    const Value PARNUM = scGetParamValue("PARNUM");
    const Value PARVAL = scGetParamValue("PARVAL");
    return StoreWithinBounds(fail, action, PARNUM, PARVAL, [&] {
      return scRunQuery(
          Sql("UPDATE ASPAC SET PARNUM = '", PARNUM, "', PARVAL = '", PARVAL, "' WHERE CmdId = ", action.CmdId));
    });
  });
}

// A record that cannot be deleted is not reported.
bool Delete(const Action& action) {
  return InTransaction(Reporter("Delete: " + action.CmdName), [&] { return DeleteRow("ASPAC", action.CmdId); });
}

// Only the second answer counts.
bool ListPARNUM(const Action& action) {
  scCollectSingleValues("SELECT PARNUM FROM PARNUMVAL WHERE USED = YES ORDER BY val( PARNUM) ", "static");
  return scSubtractSingleValues("SELECT PARNUM FROM ASPAC ") || ListRefused(action);
}

// A read that fails goes unnoticed, and a record without number and value has no line. The order number goes in as it
// is, not cut to a whole one.
bool Generate(const Action& action) {
  const Reporter fail("Generating: " + action.CmdName);
  RowSet rows;
  scRunQuery("SELECT PARNUM, PARVAL FROM ASPAC ORDER BY PARNUM", rows);
  bool flag = true;
  for (std::size_t row = 0; row < rows.RowCount(); ++row) {
    const LineRow fields(rows, row);
    const Value PARNUM = fields[0], PARVAL = fields[1];
    if (PARNUM.IsNull() && PARVAL.IsNull()) continue;
    const std::string line = Text("ASPAC:PARNUM=", PARNUM, ",PARVAL=", PARVAL, ";");
    flag = scRunQuery(Sql("INSERT INTO BuiltCmd VALUES (", NumericValue(action.ParamList[0]), ",'", line, "')")) ||
           fail(GenerationFailed);
  }
  return flag;
}

}  // namespace

extern const Module ASPAC{
    .SetInfo = Add,
    .EditInfo = Edit,
    .DeleteInfo = Delete,
    .GenerateCmd = Generate,
    .ValidValues = {{"PARNUM", ListPARNUM}},
};

}  // namespace cordboard
