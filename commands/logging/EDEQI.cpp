// EDEQI: external devices: each has a name and a port on a device board, which it may share with others.

#include "script/Module.h"
#include "script/Report.h"
#include "script/Text.h"
#include "shared/Equipment.h"
#include "shared/GenericRecord.h"
#include "shared/Rechecks.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

// The first two ports of the device boards. A port that has a device stays free for others.
bool ListEQU(const Action& action) {
  return scCollectSingleValues(Sql(EquipmentInLIMs, "WHERE (Equipment.Used = False)", NL,
                                   " AND (Boards.BoardID IN ( '29', '106') ) AND Equipment.Individual IN ( '00', '01')",
                                   NL,
                                   " ORDER BY Equipment.LIM, Equipment.Magazine, Equipment.Slot, "
                                   "Equipment.Individual")) ||
         Reporter(action.Parameter() + "GetValuesFor: ")(ListNotBuilt, action.Parameter());
}

// The digits less those of the devices on the port: the last character of a name is its digit.
bool CollectFreeDigits(const Value& EQU) {
  if (!scSQLSelectValuesAndDesc()) return false;
  if (EQU.IsEmpty()) return true;
  RowSet rows;
  if (!scRunQuery(Sql("SELECT DEV FROM EDEQI WHERE EQU = '", EQU, "'"), rows)) return false;
  for (std::size_t i = 0; i < rows.RowCount(); ++i) {
    if (!scRemoveFromValidValues("DEV_D3", Right(Joined(rows[0][i]), 1))) return false;
  }
  return true;
}

bool ListDEV_D3(const Action& action) {
  const Value EQU = scGetParamValue("EQU");
  return CollectFreeDigits(EQU) || Reporter("GetValuesAndDescription")(DescribedListNotBuilt, action.Parameter());
}

// The priorities that no device on the port has.
bool ListPRIO(const Action& action) {
  const Value EQU = scGetParamValue("EQU");
  return (scSQLSelectValuesAndDesc() &&
          (EQU.IsEmpty() || scSubtractSingleValues(Sql("SELECT PRIO FROM EDEQI WHERE EQU = '", EQU, "'")))) ||
         Reporter("GetValuesAndDescription")(DescribedListNotBuilt, action.Parameter());
}

// The digit and the priority stay where the new port still offers them. A digit that cannot be reset ends the check;
// one that cannot be put back does not, and the priority decides.
bool CheckEQU(const Action&) {
  const Reporter fail("StatCheck: ");
  const Value PRIO = scGetParamValue("PRIO");
  const Value DEV_D3 = scGetParamValue("DEV_D3");
  if (!ResetForRecheck(fail, "DEV_D3")) return false;
  PutBackIfListed(fail, "DEV_D3", DEV_D3);
  return Revalidate(fail, "PRIO", PRIO);
}

}  // namespace

extern const Module EDEQI{
    .SetInfo = GenericSetInfo,
    .EditInfo = GenericEditInfo,
    .DeleteInfo = GenericDeleteInfo,
    .ValidValues = {{"EQU", ListEQU},
                    {"DEV_D1D2", GetValuesAndDescription},
                    {"DEV_D3", ListDEV_D3},
                    {"PRIO", ListPRIO}},
    .StatCheck = {{"EQU", CheckEQU}},
};

}  // namespace cordboard
