#include "commands/keyextensions/KSEXI_lists.h"

#include <algorithm>
#include <initializer_list>

#include "script/Conversions.h"
#include "script/Report.h"
#include "shared/Equipment.h"

namespace cordboard::keyextension {

namespace {

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

}  // namespace

bool ListDIR(const Action& action) {
  return OrReport(
      scCollectSingleValues("SELECT NUMSE FROM NANSI  WHERE NUMTYP = 'EX'  AND USED = FALSE  ORDER BY NUMSE"),
      "GetValidValForParam", Message::ListNotBuilt, action.Parameter());
}

bool ListEQU(const Action& action) {
  const Value ITYPE = scGetParamValue("ITYPE");
  const std::string sql = Sql(
      "SELECT Equipment.EQU  FROM (Boards INNER JOIN Equipment ON (Boards.Slot = Equipment.Slot) AND (Boards.Magazine "
      "= Equipment.Magazine) AND (Boards.LIM = Equipment.LIM)) INNER JOIN LIMs ON Boards.LIM = LIMs.LIM  WHERE "
      "(Equipment.Used = False)",
      BoardCondition(ITYPE), EquipmentOrder());
  return OrReport(scCollectSingleValues(sql), "GetValidValForParam", Message::ListNotBuilt, action.Parameter());
}

// A position stays when its board suits the new instrument. Instrument 0 does not count among those of the boards 77
// and 59 here, though the list offers them to it.
bool CheckITYPE(const Action&) {
  const std::string context = "StatCheck";
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
  if (!ReadBoardID(context, EQU, BoardID)) return false;
  const bool fits = Equals(BoardID, board) || Equals(BoardID, otherBoard);
  return !fits || OrReport(scSetParamValue("EQU", EQU), context, Message::SetFailed, "EQU");
}

bool ResetLOCATION(const Action&) { return scResetParam("LOCATION"); }

}  // namespace cordboard::keyextension
