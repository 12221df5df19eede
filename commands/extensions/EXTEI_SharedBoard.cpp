#include "commands/extensions/EXTEI_SharedBoard.h"

#include "commands/extensions/EXTEI_Board.h"
#include "commands/extensions/EXTEI_Names.h"
#include "script/Conversions.h"
#include "script/Report.h"
#include "script/Text.h"

namespace cordboard {

namespace {

bool HaveSameDigit(const std::string& left, const std::string& right, int digit) {
  return Middle(left, digit, 1) == Middle(right, digit, 1);
}

}  // namespace

bool CheckSharedBoardICAT(const Action& action, const std::string& ICAT, const std::string& EQU, std::int32_t CmdId) {
  const Reporter fail("");
  const std::string table = TableOf(action, "EXTEIDIR");
  Value BoardID;
  if (!ReadBoard(fail, EQU, BoardID)) return false;
  if (!Equals(BoardID, "52")) return true;

  // The first eight characters of a position name its board.
  RowSet rows;
  if (!scRunQuery(Sql("SELECT MIN(CmdId) FROM ", table, " WHERE EQU LIKE '", Left(EQU, 8), "%'"), rows))
    return fail(StatementFailed);
  if (rows.IsEmpty() || rows[0][0].IsBlank()) return true;
  const std::int32_t first = ToInt32(NumericValue(rows[0][0]));
  if (first == CmdId) return true;

  RowSet stored;
  if (!scRunQuery(Sql("SELECT ICAT FROM ", table, " WHERE CmdID = ", first), stored)) return fail(StatementFailed);
  const Value& old = stored[0][0];
  if (old.IsBlank()) return true;
  const std::string firstICAT = ToText(old);
  return HaveSameDigit(firstICAT, ICAT, 1) && HaveSameDigit(firstICAT, ICAT, 2) && HaveSameDigit(firstICAT, ICAT, 4);
}

}  // namespace cordboard
