// RODDI: the destinations of the routes. A destination is a number of type "ED"; a record binds it to a route for one
// customer and one choice.

#include <iterator>

#include "script/Conversions.h"
#include "script/Envelope.h"
#include "script/Generate.h"
#include "script/Module.h"
#include "script/Report.h"
#include "script/Text.h"
#include "shared/Record.h"
#include "shared/Routes.h"
#include "shared/Row.h"
#include "shared/Usage.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

// The new-destination mark: 1 where the route and the destination last checked had no record yet. The check of ROU or
// DEST sets it, the lists of CUST and CHO obey it. It is 0 at load and lives as long as the library is loaded, past any
// change of host. No other module keeps anything between two calls.
int newDestinationMark = 0;

bool ListDEST(const Action& action) {
  return CollectList(action, Sql("SELECT NUMSE FROM NANSI ", NL, " WHERE NUMTYP = 'ED' ", NL, " AND USED = FALSE ", NL,
                                 " ORDER BY NUMSE"));
}

// For a new destination the customers are taken out of what the host's list holds. A failure has no message.
bool ListCUST(const Action&) {
  if (newDestinationMark == 1) return scSubtractSingleValues("SELECT CUST FROM CUSTOMERS");
  return scCollectSingleValues("SELECT CUST FROM CUSTOMERS", Value());
}

bool ListCHO(const Action& action) {
  if (newDestinationMark == 1) return GetValuesAndDescription(action);
  return scPushValidRangeValues(0, 7) || ListRefused(action);
}

// While one of the two is blank the mark, CUST and CHO stay as they are. A query that fails finds no record. The answer
// is that of the last reset, and a reset that fails has no message.
bool CheckPair(const Action&) {
  const Value ROU = scGetParamValue("ROU");
  const Value DEST = scGetParamValue("DEST");
  if (ROU.IsBlank() || DEST.IsBlank()) return true;
  newDestinationMark = 0;
  RowSet rows;
  scRunQuery(Sql("SELECT * FROM RODDI WHERE ROU = '", ROU, "'", NL, "AND DEST ='", DEST, "'", NL), rows);
  if (rows.IsEmpty()) newDestinationMark = 1;
  scResetParam("CUST");
  return scResetParam("CHO");
}

// The number is taken into use before the test for a duplicate, whose message is that of a failed commit.
bool AddDestination(const Action& action, const Reporter& fail, const Value& DEST) {
  const List values = Record(action.ParamList, {{"NUMTYP", "ED"}, {"DEST", DEST}});
  if (!InsertExtension(DEST, "ED")) return false;
  const auto value = [&](const char* column) { return ValueOf(column, action.ParamList, values); };
  RowSet rows;
  if (!scRunQuery(Sql("Select * from RODDI where ROU = '", value("ROU"), "' and DEST = '", DEST, "' and CUST = '",
                      value("CUST"), "' and CHO = '", value("CHO"), "'"),
                  rows))
    return false;
  if (!rows.IsEmpty()) return Reporter("Record exists")(CommitFailed);
  return scSQLInsert(action.CmdName, action.ParamList, values) || fail(InsertFailed, action.CmdName);
}

// No envelope. A start that fails, or destinations that cannot be delivered, end the action with nothing closed. From
// then on the transaction is committed whatever happened: what was added before a failure stays, and so does the use of
// the number that failed.
bool Add(const Action& action) {
  const Reporter fail("Add: " + action.CmdName);
  if (!scStartTransaction()) return fail(StartFailed);
  List destinations;
  if (!scGetValueArray("DEST", destinations)) return fail(ListNotBuilt, "DEST");

  bool flag = true;
  for (const Value& DEST : destinations) {
    flag = AddDestination(action, fail, DEST);
    if (!flag) break;
  }
  CommitOrRollBack(fail);
  return flag;
}

// Every edit writes all ten columns, whatever has changed. A value that is left out keeps the old one, so no column can
// be cleared. The use of the number is moved even where the number stays the same.
bool Edit(const Action& action) {
  constexpr const char* columns[] = {"DEST", "CUST", "CHO", "DRN", "ROU", "PRE", "TRC", "SRT", "NUMACK", "ADC"};
  const Reporter fail("Edit: " + action.CmdName);
  return InTransaction(fail, [&] {
    RowSet old;
    if (!scRunQuery(Sql("SELECT DEST,CUST, CHO,DRN,ROU,PRE,TRC,SRT,NUMACK,ADC FROM RODDI WHERE CmdId = ", action.CmdId),
                    old))
      return fail(StatementFailed);
    for (std::size_t i = 0; i < std::size(columns); ++i) {
      const std::string column = columns[i];
      const Value value = scGetParamValue(column);
      if (column == "DEST" && Length(Joined(value)) > 5) return fail(ValueNotValidHere, "DEST");
      const bool written = UpdateColumnOrNull("RODDI", action.CmdId, column, OrStored(value, old, i)) &&
                           (column != "DEST" || UpdateExtOpeGrp(old[0][0], value.IsBlank() ? old[0][0] : value));
      if (!written) return fail(ColumnNotWritten, column);
    }
    return true;
  });
}

// No envelope. A record that could not be read, or is gone, is reported (the first in the words of another command) and
// stops nothing: the number that is released is empty then. Nothing closes the transaction after a failed delete,
// which is reported as a failed rollback, and a rollback that fails is reported as a failed commit.
bool Delete(const Action& action) {
  const Reporter fail("Delete: " + action.CmdName);
  if (!scStartTransaction()) return fail(StartFailed);
  RowSet rows;
  if (!scRunQuery(Sql("SELECT DEST FROM RODDI ", NL, " WHERE CmdID = ", action.CmdId), rows)) {
    fail(ValueNotFound, "DIR, EQU", "EXTEIDIR");
  } else if (rows.IsEmpty()) {
    fail(RecordNotFound);
  }
  const Value DEST = rows.IsEmpty() ? Value() : rows[0][0];
  if (!DeleteRow("RODDI", action.CmdId)) return fail(RollBackFailed);
  // Released even where other records hold the same destination.
  DeleteExtOpeGrp(DEST);
  if (!scCommitTransaction()) {
    fail(CommitFailed);
    if (!scRollBackTransaction()) fail(CommitFailed);
  }
  return true;
}

// The fields of a line do not come in the order of the columns.
bool Generate(const Action& action) {
  const auto line = [](const LineRow& row) {
    const auto [ROU, DEST, CHO, CUST, DRN, PRE, TRC, SRT, NUMACK, ADC] = row.Texts<10>();
    return Text("RODDI:ROU=", ROU, ",DEST=", DEST, UnlessBlank(",CHO=", CHO), UnlessBlank(",CUST=", CUST),
                UnlessBlank(",DRN=", DRN), UnlessBlank(",SRT=", SRT), UnlessBlank(",TRC=", TRC),
                UnlessBlank(",PRE=", PRE), UnlessBlank(",NUMACK=", NUMACK), UnlessBlank(",ADC=", ADC), ";");
  };
  return GenerateLines(action, "SELECT ROU, DEST, CHO, CUST, DRN, PRE, TRC, SRT, NUMACK, ADC FROM RODDI", line);
}

}  // namespace

extern const Module RODDI{
    .SetInfo = Add,
    .EditInfo = Edit,
    .DeleteInfo = Delete,
    .GenerateCmd = Generate,
    // The digits 14, 15, 20 and 21 of ADC have no list.
    .ValidValues = {{"DEST", ListDEST},
                    {"CHO", ListCHO},
                    {"CUST", ListCUST},
                    {"ROU", GetDefinedRoutes},
                    {{"ADC_D1", "ADC_D2", "ADC_D3", "ADC_D4", "ADC_D5", "ADC_D6", "ADC_D7", "ADC_D8", "ADC_D9",
                      "ADC_D10", "ADC_D11", "ADC_D12", "ADC_D13", "ADC_D16", "ADC_D17", "ADC_D18", "ADC_D19", "ADC_D22",
                      "ADC_D23"},
                     GetValuesAndDescription}},
    .StatCheck = {{{"ROU", "DEST"}, CheckPair}},
};

}  // namespace cordboard
