// EDICC: line settings of external devices, one record for each device.

#include "script/Conversions.h"
#include "script/Module.h"
#include "script/Report.h"
#include "script/Text.h"
#include "shared/GenericRecord.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

// The devices that have no settings yet.
bool ListDEV(const Action& action) {
  return (scCollectSingleValues("SELECT DEV FROM EDEQI") && scSubtractSingleValues("SELECT DEV FROM EDICC")) ||
         Reporter("GetValidValues")(ListNotBuilt, action.Parameter());
}

// A port whose position ends in 0 has no choice of levels: there is no list then, and the answer is True all the same.
// So it is for a device without a port.
bool CollectLevels() {
  const Value DEV = scGetParamValue("DEV");
  if (DEV.IsBlank()) return scSQLSelectValuesAndDesc();
  RowSet rows;
  if (!scRunQuery(Sql("SELECT EQU FROM EDEQI WHERE DEV = '", DEV, "'"), rows)) return false;
  if (rows.IsEmpty() || rows[0][0].IsNull()) return true;
  return Equals(Right(ToText(rows[0][0]), 1), 0) || scSQLSelectValuesAndDesc();
}

bool ListELLEV(const Action& action) {
  return CollectLevels() || Reporter("GetValidValues")(DescribedListNotBuilt, action.Parameter());
}

// The answer is that of the reset, which is not reported.
bool CheckDEV(const Action&) { return scResetParam("ELLEV"); }

}  // namespace

extern const Module EDICC{
    .SetInfo = GenericSetInfo,
    .EditInfo = GenericEditInfo,
    .DeleteInfo = GenericDeleteInfo,
    .ValidValues = {{"DEV", ListDEV},
                    {{"BAUDR", "WORDL", "STPBIT", "PARITY", "PROC"}, GetValuesAndDescription},
                    {"ELLEV", ListELLEV}},
    .StatCheck = {{"DEV", CheckDEV}},
};

}  // namespace cordboard
