// NUTRI: the conversion of numbers. A record tells, for a type of conversion and an entry, what becomes of a number: by
// route, prefix, truncation and number type, or by what the call carries.

#include "script/Conversions.h"
#include "script/Envelope.h"
#include "script/Generate.h"
#include "script/Module.h"
#include "script/Report.h"
#include "shared/Record.h"
#include "shared/Row.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

bool Reset(const char* name) { return scResetParam(name) || Reporter("StatCheck")(ResetFailed, name); }

// A value on the number side clears the bearer side. The answer is that of the last reset.
bool ClearBearerSide(const Action&) {
  Reset("HLC");
  return Reset("BCAP");
}

// A value on the bearer side clears the number side, where PRE alone is not reset but set to the empty text; a failure
// of that has the message of a reset. The answer is True whatever failed.
bool ClearNumberSide(const Action&) {
  Reset("NUMTYP");
  Reset("NEWTYP");
  if (!scSetParamValue("PRE", "")) Reporter("StatCheck")(ResetFailed, "PRE");
  Reset("TRC");
  Reset("CONT");
  return true;
}

bool Add(const Action& action) {
  const Reporter fail("Add: " + action.CmdName);
  return InTransactionLeftOpen(fail, [&] {
    return scSQLInsert(action.CmdName, action.ParamList, Record(action.ParamList)) ||
           fail(InsertFailed, action.CmdName);
  });
}

// Every edit writes all ten columns, whatever has changed, and a value that is left out clears its column: the old
// values are read and not used.
bool Edit(const Action& action) {
  constexpr const char* columns[] = {"CNVTYP", "ENTRY", "ROU", "HLC", "BCAP", "NUMTYP", "NEWTYP", "CONT", "PRE", "TRC"};
  const Reporter fail("Edit: " + action.CmdName);
  return InTransaction(fail, [&] {
    RowSet old;
    scRunQuery(Sql("SELECT CNVTYP, ENTRY, ROU, HLC, BCAP, NUMTYP, NEWTYP, CONT, PRE, TRC  FROM NUTRI WHERE CmdId = ",
                   action.CmdId),
               old);
    for (const char* column : columns) {
      const Value value = scGetParamValue(column);
      if (!UpdateColumnOrNull("NUTRI", action.CmdId, column, value.IsBlank() ? Value() : value))
        return fail(ColumnNotWritten, column);
    }
    return true;
  });
}

// A record that cannot be deleted has no message: it shows as a rollback alone.
bool Delete(const Action& action) {
  return InTransaction(Reporter("Delete: " + action.CmdName), [&] { return DeleteRow("NUTRI", action.CmdId); });
}

// The fields of a line do not come in the order of the columns.
bool Generate(const Action& action) {
  const auto line = [](const LineRow& row) {
    const auto [CNVTYP, ENTRY, ROU, NUMTYP, NEWTYP, CONT, PRE, TRC, HLC, BCAP] = row.Texts<10>();
    return Text("NUTRI:CNVTYP=", CNVTYP, ",ENTRY=", ENTRY, UnlessBlank(",BCAP=", BCAP), UnlessBlank(",HLC=", HLC),
                UnlessBlank(",ROU=", ROU), UnlessBlank(",PRE=", PRE), UnlessBlank(",TRC=", TRC),
                UnlessBlank(",CONT=", CONT), UnlessBlank(",NUMTYP=", NUMTYP), UnlessBlank(",NEWTYP=", NEWTYP), ";");
  };
  return GenerateLines(
      action, "SELECT CNVTYP, ENTRY, ROU, NUMTYP, NEWTYP, CONT, PRE, TRC, HLC, BCAP FROM NUTRI ORDER BY CNVTYP", line);
}

}  // namespace

extern const Module NUTRI{
    .SetInfo = Add,
    .EditInfo = Edit,
    .DeleteInfo = Delete,
    .GenerateCmd = Generate,
    .ValidValues = {{{"TRC", "CNVTYP", "NUMTYP", "CONT", "NEWTYP", "BCAP", "HLC"}, GetValuesAndDescription},
                    {"ROU", GetValuesFor_ROU}},
    .StatCheck = {{{"NUMTYP", "NEWTYP", "CONT", "PRE", "TRC"}, ClearBearerSide}, {{"BCAP", "HLC"}, ClearNumberSide}},
};

}  // namespace cordboard
