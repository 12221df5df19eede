#include "commands/extensions/EXTEI_Board.h"

namespace cordboard {

bool ReadBoard(const Reporter& fail, const Value& EQU, Value& BoardID) {
  RowSet rows;
  const bool read = scRunQuery(Sql("SELECT Boards.BoardID ", NL, "FROM Boards INNER JOIN Equipment ", NL,
                                   "ON (Boards.Slot = Equipment.Slot) AND ", NL,
                                   "(Boards.Magazine = Equipment.Magazine) AND (Boards.LIM = Equipment.LIM)", NL,
                                   " WHERE Equipment.EQU = '", EQU, "'", NL),
                               rows);
  if (!read) return fail(ValueNotFound, "BoardIds", "EQU");
  BoardID = rows[0][0];
  return true;
}

}  // namespace cordboard
