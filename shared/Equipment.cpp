#include "shared/Equipment.h"

namespace cordboard {

std::string EquipmentOrder() {
  Value clause;
  if (scGetAutoEquOptionValue(clause)) return Text(clause);
  return " ORDER BY Equipment.LIM, Equipment.Magazine, Equipment.Slot, Equipment.Individual";
}

bool ReadBoardID(const Reporter& fail, const Value& EQU, Value& BoardID) {
  RowSet rows;
  const bool read = scRunQuery(Sql("SELECT Boards.BoardID FROM Boards INNER JOIN Equipment ON (Boards.Slot = "
                                   "Equipment.Slot) AND (Boards.Magazine = Equipment.Magazine) AND (Boards.LIM = "
                                   "Equipment.LIM) WHERE Equipment.EQU = '",
                                   EQU, "'"),
                               rows);
  if (!read) return fail(ValueNotFound, "BoardIds", "EQU");
  BoardID = rows[0][0];
  return true;
}

}  // namespace cordboard
