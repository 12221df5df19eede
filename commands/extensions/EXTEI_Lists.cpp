#include "commands/extensions/EXTEI_Lists.h"

#include "commands/extensions/EXTEI_Names.h"
#include "script/Conversions.h"
#include "script/Report.h"
#include "shared/Count.h"
#include "shared/Equipment.h"
#include "shared/Rechecks.h"

namespace cordboard {

namespace {

// The boards of a TYPE, as the end of the condition on free positions. With EL7 the OR stands outside of the brackets,
// so that all positions of board 52 are listed, used ones and those of other locations too.
std::string BoardCondition(const Value& TYPE) {
  if (TYPE.IsEmpty())
    return Sql(" AND Boards.BoardID IN ('2', '41', '44', '87', '27', '52', '71', '72', '43', '104')", NL);
  if (Equals(TYPE, "EL6")) {
    const bool on104 = IsValueInList(scGetParamValue("ICAT_D2"), {"1", "2", "3"});
    const char* boards = on104 ? "('104')" : "('2', '41', '44', '87', '27', '71', '72', '43', '104')";
    return Sql(" AND Boards.BoardID IN ", NL, boards, NL);
  }
  if (Equals(TYPE, "EL7"))
    return Sql(" AND (Boards.BoardID ='27' ", NL, " AND Equipment.Individual IN ", NL,
               "('01','02','03','04','05','06','07','08','09','10','11','12','13','14','15' ", NL,
               ",'17','18','19','20','21','22','23','24','25','26','27','28','29','30','31'))", NL,
               " OR Boards.BoardID ='52' ", NL);
  if (Equals(TYPE, "EL8")) return Sql(" AND (Boards.BoardID ='77' OR Boards.BoardID ='59')", NL);
  return "";
}

std::string FreePositions(const Value& LOCATION) {
  const std::string isFree = Sql("WHERE Equipment.Used = False", NL);
  return Equals(LOCATION, "") ? Sql(EquipmentOnBoards, isFree)
                              : Sql(EquipmentAtLocations, isFree, " AND LIMs.Location = '", LOCATION, "'", NL);
}

}  // namespace

bool ListAUX(const Action& action) {
  return scCollectSingleValues(Sql("SELECT NUMSE FROM NANSI ", NL, " WHERE NUMTYP = 'EX' AND USED = FALSE")) ||
         Reporter("GetValuesFor_AUX")(ListNotBuilt, action.Parameter());
}

// A main number takes at most three further numbers: nothing else keeps this limit. A collection that fails is reported
// and goes on, as does a number that cannot be counted or taken off; the answer is that of the last step.
bool ListDIR_AUX(const Action& action) {
  const Reporter fail(ContextOf(action, "GetValuesFor_DIR_AUX"));
  const std::string mainNumbers = Sql("SELECT DIR FROM ", TableOf(action, "EXTEIDIR"), " ORDER BY DIR");
  if (!scCollectSingleValues(mainNumbers)) fail(StatementFailed);
  RowSet rows;
  if (!scRunQuery(mainNumbers, rows)) return fail(StatementFailed);
  if (rows.IsEmpty()) return fail(RecordNotFound);

  bool flag = true;
  for (const Value& DIR : rows[0]) {
    Value count;
    flag = CheckedCount(
        fail, Sql("SELECT Count(*) ", NL, "FROM ", TableOf(action, "EXTEIAUX"), NL, "WHERE DIR_AUX = '", DIR, "'"),
        count);
    if (!flag || Less(count, 3)) continue;
    Debug(" More than 3 AUX numbers are already defined for this DIR");
    flag = scRemoveFromValidValues("DIR_AUX", DIR) || fail(NothingToOffer, DIR);
  }
  return flag;
}

bool ListEQU(const Action& action) {
  const Value LOCATION = scGetParamValue("LOCATION");
  const Value TYPE = scGetParamValue("TYPE");
  const Value AUX = scGetParamValue("AUX");
  std::string positions = Sql("SELECT EQU FROM ", TableOf(action, "EXTEIDIR"));
  if (AUX.IsBlank()) {
    positions = FreePositions(LOCATION) + BoardCondition(TYPE);
    positions += EquipmentOrder();
  }
  return scCollectSingleValues(positions) ||
         Reporter(ContextOf(action, "GetValuesFor_EQU"))(ListNotBuilt, action.Parameter());
}

}  // namespace cordboard
