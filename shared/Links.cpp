#include "shared/Links.h"

#include "script/Conversions.h"
#include "script/Text.h"
#include "shared/Equipment.h"
#include "shared/Release.h"

namespace cordboard {

const char* LinkIndicator(const Action& action) { return IsR6(action) ? "ICUIND" : "IFCIND"; }

bool ReadLinkIndicator(const Action& action, const Reporter& fail, const std::string& table, Value& indicator) {
  RowSet rows;
  if (!scRunQuery(Sql("SELECT ", LinkIndicator(action), " FROM ", table, " WHERE CmdId = ", action.CmdId), rows))
    return fail(StatementFailed);
  indicator = rows[0][0];
  return true;
}

bool ListLinkPositions(const Action& action, const std::string& condition) {
  return scCollectSingleValues(
             Sql(EquipmentInLIMs, "WHERE (Equipment.Used = False)", NL, " AND (Boards.BoardID = '34')", NL, condition,
                 " ORDER BY Equipment.LIM, Equipment.Magazine, Equipment.Slot, Equipment.Individual")) ||
         Reporter("GetValuesFor: " + action.Parameter())(ListNotBuilt, action.Parameter());
}

bool PortSuitsFormat(const Value& PORT, double POFMT) { return static_cast<double>(Length(Joined(PORT))) == POFMT; }

}  // namespace cordboard
