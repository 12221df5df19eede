#include "shared/BoardPositions.h"

#include "script/HostOperations.h"
#include "script/Statement.h"
#include "script/Text.h"
#include "shared/Equipment.h"

namespace cordboard {

bool ReadBoards(const Reporter& fail, const std::string& BoardID, RowSet& boards) {
  const Value LOCATION = scGetParamValue("LOCATION");
  const std::string sql =
      LOCATION.IsEmpty()
          ? Sql("SELECT LIM, Magazine, Slot FROM Boards WHERE BoardId = '", BoardID, "' ORDER BY LIM, Magazine, Slot")
          : Sql(BoardsInLIMs, "WHERE  LIMs.Location = '", LOCATION, "' AND Boards.BoardID = '", BoardID,
                "' ORDER BY Boards.LIM, Boards.Magazine, Boards.Slot");
  return scRunQuery(sql, boards) || fail(StatementFailed);
}

Value BoardPosition(const Value& LIM, const Value& Magazine, const Value& Slot) {
  const std::size_t digits = Length(Text(LIM));
  if (digits < 1 || digits > 3) return {};
  return Text(std::string(3 - digits, '0'), LIM, "-", Magazine, "-", Slot);
}

bool OfferBoardPositions(const Reporter& fail, const List& positions, const std::string& inUse) {
  if (!scPushValidValues(positions)) return false;
  RowSet rows;
  if (!scRunQuery(inUse, rows)) return fail(StatementFailed);
  for (std::size_t i = 0; i < rows.RowCount(); ++i) {
    if (!scRemoveFromValidValues("BPOS", rows[0][i])) return Reporter("GetValidValForParam")(NothingToOffer, "BPOS");
  }
  return true;
}

bool ListBoardPositions(const Action& action, const std::string& BoardID, const std::string& inUse) {
  const Reporter fail(action.CmdName + "GetValidValForParam: ");
  RowSet boards;
  if (!ReadBoards(fail, BoardID, boards)) return false;
  if (boards.IsEmpty()) return true;
  List positions;
  for (std::size_t i = 0; i < boards.RowCount(); ++i)
    positions.Append(BoardPosition(boards[0][i], boards[1][i], boards[2][i]));
  return OfferBoardPositions(fail, positions, inUse);
}

}  // namespace cordboard
