// KSEXI: key extensions: a number on an equipment position, with its instrument and its class strings. Function keys,
// further and additional numbers hang on its DIR, terminals on its EQU.

#include <algorithm>
#include <initializer_list>

#include "commands/keyextensions/KSEXI_Edit.h"
#include "script/Conversions.h"
#include "script/Envelope.h"
#include "script/Generate.h"
#include "script/Module.h"
#include "script/Report.h"
#include "script/Text.h"
#include "shared/ClassStrings.h"
#include "shared/Equipment.h"
#include "shared/ExtensionADC.h"
#include "shared/Rechecks.h"
#include "shared/Record.h"
#include "shared/Release.h"
#include "shared/Usage.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

// --- Lists and checks.

bool IsOneOf(const Value& value, std::initializer_list<const char*> texts) {
  return std::any_of(texts.begin(), texts.end(), [&](const char* text) { return Equals(value, text); });
}

// The instruments whose positions are on board 77 or 59.
bool IsOnBoard77Or59(const Value& ITYPE) {
  return IsOneOf(ITYPE, {"9", "10", "11", "12", "13", "14", "15", "19", "20", "21", "22", "23", "24"});
}

// The boards of an instrument, as the end of the condition on free positions. The OR has no brackets, so that used
// positions of board 59 are listed as well.
const char* BoardCondition(const Value& ITYPE) {
  if (ITYPE.IsEmpty()) return " AND Boards.BoardID IN ('31', '59', '77')";
  if (Equals(ITYPE, "0") || IsOnBoard77Or59(ITYPE)) return " AND (Boards.BoardID = '77') OR (Boards.BoardID ='59')";
  if (IsOneOf(ITYPE, {"1", "2", "3", "4", "5", "6", "7", "8", "16", "17", "18"})) return " AND Boards.BoardID = '31'";
  return "";
}

bool ListDIR(const Action& action) {
  return CollectList(action, "SELECT NUMSE FROM NANSI  WHERE NUMTYP = 'EX'  AND USED = FALSE  ORDER BY NUMSE");
}

bool ListEQU(const Action& action) {
  const Value ITYPE = scGetParamValue("ITYPE");
  return CollectList(
      action, Sql(EquipmentInLIMsInLine, "WHERE (Equipment.Used = False)", BoardCondition(ITYPE), EquipmentOrder()));
}

// A position stays when its board suits the new instrument. Instrument 0 does not count among those of the boards 77
// and 59 here, though the list offers them to it.
bool CheckITYPE(const Action&) {
  const Reporter fail("StatCheck");
  const Value EQU = scGetParamValue("EQU");
  const Value ITYPE = scGetParamValue("ITYPE");
  const char* board = "";
  const char* otherBoard = "";
  if (!ITYPE.IsBlank()) {
    board = IsOnBoard77Or59(ITYPE) ? "77" : "31";
    otherBoard = IsOnBoard77Or59(ITYPE) ? "59" : "";
  }
  if (!scResetParam("EQU")) return false;
  if (EQU.IsEmpty()) return true;
  Value BoardID;
  if (!ReadBoardID(fail, EQU, BoardID)) return false;
  const bool fits = Equals(BoardID, board) || Equals(BoardID, otherBoard);
  return !fits || scSetParamValue("EQU", EQU) || fail(SetFailed, "EQU");
}

// --- Add.

// One record for each number, on the position of the same place in its list. There is no envelope: when a number
// fails, the records of those before it stay.
bool Add(const Action& action) {
  const Reporter fail("Add: " + action.CmdName);
  List numbers;
  List positions;
  if (!scGetValueArray("DIR", numbers)) return fail(ListNotBuilt, "DIR");
  scGetValueArray("EQU", positions);
  for (std::size_t k = 0; k < numbers.size(); ++k) {
    const List record = Record(action.ParamList, {{"NUMTYP", "EX"}, {"DIR", numbers, k}, {"EQU", positions, k}});
    if (!InsertExtension(numbers[k], "EX")) return false;
    if (!scSQLInsert(action.CmdName, action.ParamList, record)) return fail(InsertFailed, action.CmdName);
    if (!SetEquipmentUsed(positions[k], true)) return false;
  }
  return true;
}

// --- Edit.

bool Edit(const Action& action) { return EditKeyExtension(action, {.table = "KSEXI"}); }

// --- Delete.

// Frees the number and the position, and removes the terminals of the position. The record itself is left to the host,
// and what is on the keys stays. A record that cannot be read is reported under the name of another table.
bool Delete(const Action& action) {
  const Reporter fail("Delete: " + action.CmdName);
  return InTransaction(fail, [&] {
    RowSet rows;
    if (!scRunQuery(Sql("SELECT DIR, EQU, ACCTYP FROM KSEXI  WHERE CmdID = ", action.CmdId), rows))
      return fail(ValueNotFound, "DIR, EQU", "EXTEIDIR");
    if (rows.IsEmpty()) return fail(RecordNotFound);
    const Value DIR = rows[0][0];
    const Value EQU = rows[1][0];
    const Value ACCTYP = rows[2][0];
    if (!DeleteExtOpeGrp(DIR) || !SetEquipmentUsed(EQU, false)) return false;
    return ACCTYP.IsBlank() || scRunQuery(Sql("DELETE * FROM ITNUI WHERE EQU = '", EQU, "'")) || fail(StatementFailed);
  });
}

// --- Generate.

// The releases R6 and R6/1 do not have LANG, and there an empty text counts as a category too. The class strings stand
// all four in the place of a category, even without a value. A record without DIR, EQU and ITYPE gives the text of the
// record before it once more.
bool Generate(const Action& action) {
  const Reporter fail("Generating: " + action.CmdName);
  const bool hasLANG = !IsR6(action);
  RowSet rows;
  scRunQuery(hasLANG ? "SELECT DIR,EQU,CAT,TRAF,SERV,CDIV,ROC,ITYPE,ADC,TRM,CUST,CALALT,LANG,ACCTYP FROM KSEXI"
                     : "SELECT DIR,EQU,CAT,TRAF,SERV,CDIV,ROC,ITYPE,ADC,TRM,CUST,CALALT,ACCTYP FROM KSEXI",
             rows);
  std::string line;
  return InsertLines(fail, action, rows, true, [&](const LineRow& row) {
    const Value DIR = row[0], EQU = row[1], CAT = row[2], ITYPE = row[7];
    const Value LANG = hasLANG ? row[12] : Value::Null();
    const Value ACCTYP = row[hasLANG ? 13 : 12];
    if (!DIR.IsNull() || !EQU.IsNull() || !ITYPE.IsNull()) {
      const bool hasCAT = hasLANG ? !CAT.IsBlank() : !CAT.IsNull();
      const std::string classes =
          hasCAT ? Text(",CAT=", CAT) : Text(",TRAF=", row[3], ",SERV=", row[4], ",CDIV=", row[5], ",ROC=", row[6]);
      line = Text("KSEXI:DIR=", DIR, UnlessNull(",ITYPE=", ITYPE), UnlessNull(",ACCTYP=", ACCTYP),
                  UnlessNull(",EQU=", EQU), classes, UnlessNull(",ADC=", row[8]), UnlessNull(",TRM=", row[9]),
                  UnlessNull(",CUST=", row[10]), UnlessNull(",CALALT=", row[11]), UnlessNull(",LANG=", LANG), ";");
    }
    return line;
  });
}

}  // namespace

extern const Module KSEXI{
    .SetInfo = Add,
    .EditInfo = Edit,
    .DeleteInfo = Delete,
    .GenerateCmd = Generate,
    .ValidValues = {{ClassStringDigits, GetValuesAndDescription},
                    {{"SERV_D1", "SERV_D7D8_SUB1", "SERV_D7D8_SUB2"}, GetValuesAndDescription},
                    {CDIVTail, ListCDIVTail},
                    {"ADC_D1", ListADC_D1},
                    {MiddleOfADC, GetValuesAndDescription},
                    {"ADC_D11", ListADC_D11},
                    {{"ACCTYP", "CALALT", "ITYPE", "LANG"}, GetValuesAndDescription},
                    {"CAT", GetValuesFor_CAT},
                    {"CUST", GetValuesFor_CUST},
                    {"DIR", ListDIR},
                    {"EQU", ListEQU},
                    {"LOCATION", StatCheck_EQU_LOCATION}},
    .StatCheck = {{"ACCTYP", ResetADC_D11},
                  {{"CAT", "SERV_D7D8_SUB2"}, RecheckADC_D1},
                  {"CDIV_D6", ResetCDIVTail},
                  {"ITYPE", CheckITYPE},
                  {"EQU", ResetLOCATION}},
};

}  // namespace cordboard
