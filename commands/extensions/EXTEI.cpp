// EXTEI: general extensions: numbers on equipment positions, with their type, their class strings and the person and
// the place behind them. A main number stands in EXTEIDIR and holds its position; further numbers on its line stand in
// EXTEIAUX.

#include "commands/extensions/EXTEI_Checks.h"
#include "commands/extensions/EXTEI_Edit.h"
#include "commands/extensions/EXTEI_ICAT.h"
#include "commands/extensions/EXTEI_Lists.h"
#include "commands/extensions/EXTEI_SharedBoard.h"
#include "script/Conversions.h"
#include "script/Envelope.h"
#include "script/Module.h"
#include "script/Report.h"
#include "shared/ClassStrings.h"
#include "shared/Rechecks.h"
#include "shared/Record.h"
#include "shared/Usage.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

// --- Checks.

// LOCATION is reset in every case, and that alone is the answer.
bool CheckEQU(const Action& action) {
  CheckICATOfEQU(action);
  return ResetLOCATION(action);
}

bool CheckTYPE(const Action& action) {
  const Value EQU = scGetParamValue("EQU");
  const Value TYPE = scGetParamValue("TYPE");
  return TYPE.IsEmpty() || (SuitICATToTYPE(action, TYPE, EQU) && SuitADCAndEQUToTYPE(TYPE, EQU));
}

// --- Add.

const List mainColumns = {"CmdId", "DIR",       "EQU",      "NUMTYP", "CAT",        "TRAF",     "ROC",      "CDIV",
                          "SERV",  "TYPE",      "CUST",     "ADC",    "ICAT",       "LOCATION", "BUILDING", "ROOM",
                          "JACK",  "FIRSTNAME", "LASTNAME", "TITLE",  "DEPARTMENT", "TRM"};
const List furtherColumns = {"CmdId", "AUX",  "EQU",  "NUMTYP", "CAT",         "TRAF",   "ROC",
                             "CDIV",  "SERV", "CUST", "ADC",    "DESCRIPTION", "DIR_AUX"};

// Takes over the one value of a statement. One that fails is reported and leaves the value as it is; one without a row
// fails the call.
void LookUp(const Reporter& fail, const std::string& sql, Value& value) {
  RowSet rows;
  if (scRunQuery(sql, rows)) {
    value = rows[0][0];
  } else {
    fail(StatementFailed);
  }
}

// A further number is on the position of its main number: either is looked up by the other. One that cannot be looked
// up does not keep the number from being added.
bool AddFurtherNumber(const Reporter& fail) {
  Value DIR_AUX = scGetParamValue("DIR_AUX");
  Value EQU;
  if (!DIR_AUX.IsBlank()) {
    LookUp(fail, Sql("SELECT EQU FROM EXTEIDIR WHERE DIR = '", DIR_AUX, "'"), EQU);
  } else {
    EQU = scGetParamValue("EQU");
    LookUp(fail, Sql("SELECT DIR FROM EXTEIDIR WHERE EQU = '", EQU, "'"), DIR_AUX);
  }
  const Value CmdId = scBuildCmdID();
  const List record = Record(furtherColumns, {{"CmdId", CmdId}, {"EQU", EQU}, {"NUMTYP", "EX"}, {"DIR_AUX", DIR_AUX}});
  if (!InsertExtension(ValueOf("AUX", furtherColumns, record), "EX"))
    return fail(InsertFailed, "USEDEXTENSIONSANDOPERATORS");
  return scSQLInsert("EXTEIAUX", furtherColumns, record) || fail(InsertFailed, "EXTEIAUX");
}

// One record for each number, on the position of the same place in its list. When a number fails, the records of those
// before it stay. A position that is not marked ends the add in the middle of the next number, after its record is
// read.
bool AddMainNumbers(const Action& action, const Reporter& fail, const List& numbers) {
  if (numbers.IsEmpty() || numbers.IsNull()) return true;
  List positions;
  if (!scGetValueArray("EQU", positions)) return fail(ListNotBuilt, "EQU");
  if (positions.IsEmpty() || positions.IsNull()) return fail(NoEquipmentGiven);
  bool marked = true;
  for (std::size_t k = 0; k < numbers.size(); ++k) {
    const Value CmdId = scBuildCmdID();
    const Value& DIR = numbers[k];
    const Value& EQU = positions[k];
    const List record = Record(mainColumns, {{"CmdId", CmdId}, {"DIR", DIR}, {"EQU", EQU}, {"NUMTYP", "EX"}});
    if (!marked) return false;
    const Value ICAT = ValueOf("ICAT", mainColumns, record);
    if (!ICAT.IsEmpty() && !CheckSharedBoardICAT(action, ToText(ICAT), ToText(EQU), ToInt32(NumericValue(CmdId))))
      return fail(SharedBoardRefused);
    if (!InsertExtension(DIR, "EX")) return fail(InsertFailed, "USEDNUMBERS");
    if (!scSQLInsert("EXTEIDIR", mainColumns, record)) return fail(InsertFailed, "EXTEIDIR");
    marked = SetEquipmentUsed(EQU, true);
  }
  return marked;
}

// There is no envelope. A form that has no list of main numbers is that of a further number.
bool Add(const Action& action) {
  const Reporter fail("Add: " + action.CmdName);
  List numbers;
  return scGetValueArray("DIR", numbers) ? AddMainNumbers(action, fail, numbers) : AddFurtherNumber(fail);
}

// --- Edit.

bool Edit(const Action& action) {
  return EditExtension(action, [](const std::string& sql) { return scRunQuery(sql); });
}

// --- Delete.

// Frees the further numbers of a main number, and its position with each. Their records stay. Numbers that cannot be
// read end the delete and are not reported; a position that cannot be marked ends it as well.
bool FreeFurtherNumbers(const Reporter& fail, const Value& DIR, const Value& EQU) {
  RowSet rows;
  if (!scRunQuery(Sql("SELECT AUX FROM EXTEIAUX WHERE DIR_AUX = '", DIR, "'"), rows)) return false;
  for (std::size_t row = 0; row < rows.RowCount(); ++row) {
    if (!DeleteExtOpeGrp(rows[0][row])) return fail(RecordNotRead, "USEDEXTOPEGRP");
    if (!SetEquipmentUsed(EQU, false)) return false;
  }
  return true;
}

// Frees what the record holds. The record itself is left to the host, in either table.
bool Delete(const Action& action) {
  const Reporter fail("Delete: " + action.CmdName);
  return InTransaction(fail, [&] {
    RowSet rows;
    if (!scRunQuery(Sql("SELECT DIR, EQU FROM EXTEIDIR ", NL, " WHERE CmdID = ", action.CmdId), rows))
      return fail(ValueNotFound, "DIR, EQU", "EXTEIDIR");
    const bool isMainNumber = !rows.IsEmpty();
    if (!isMainNumber) {
      if (!scRunQuery(Sql(" SELECT AUX, EQU FROM EXTEIAUX ", NL, "WHERE CmdID = ", action.CmdId), rows))
        return fail(ValueNotFound, "AUX, EQU", "EXTEIAUX");
      if (rows.IsEmpty()) return fail(RecordNotFound);
    }
    const Value number = rows[0][0];
    const Value EQU = rows[1][0];
    if (isMainNumber && !FreeFurtherNumbers(fail, number, EQU)) return false;
    if (!DeleteExtOpeGrp(number)) return fail(RecordNotDeleted, "USEDEXTOPEGRP", action.CmdId);
    return !isMainNumber || SetEquipmentUsed(EQU, false);
  });
}

}  // namespace

extern const Module EXTEI{
    .SetInfo = Add,
    .EditInfo = Edit,
    .DeleteInfo = Delete,
    .ValidValues = {{ClassStringDigits, GetValuesAndDescription},
                    {PlainParameters, GetValuesAndDescription},
                    {CDIVTail, ListCDIVTail},
                    {"AUX", ListAUX},
                    {"CAT", GetValuesFor_CAT},
                    {"CUST", GetValuesFor_CUST},
                    {"DIR", GetValuesFor_EX},
                    {"DIR_AUX", ListDIR_AUX},
                    {"EQU", ListEQU},
                    {ICATDigits(), ListICAT},
                    {"LOCATION", StatCheck_EQU_LOCATION}},
    .StatCheck = {{"AUX", CheckAUX},
                  {"CDIV_D6", ResetCDIVTail},
                  {"DIR_AUX", CheckDIR_AUX},
                  {"TYPE", CheckTYPE},
                  {"ICAT_D1_SUB1", CheckICAT_D1_SUB1},
                  {"ICAT_D3_SUB1", CheckICAT_D3_SUB1},
                  {"ICAT_D3_SUB2", CheckICAT_D3_SUB2},
                  {"ICAT_D3_SUB3", CheckICAT_D3_SUB3},
                  {"EQU", CheckEQU}},
};

}  // namespace cordboard
