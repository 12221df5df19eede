#include "shared/ClassStrings.h"

#include "script/Conversions.h"
#include "script/Report.h"
#include "shared/ValueLists.h"

namespace cordboard {

bool CollectZeroAlone(const Action& action) {
  return scCollectValuesAndDesc(Sql("SELECT Value, ValDesc  FROM ParamValueDesc  WHERE Command = '", action.CmdName,
                                    "' AND Param = '", action.Parameter(), "' AND Value = '0' "));
}

bool ListCDIVTail(const Action& action) {
  const Value CDIV_D6 = scGetParamValue("CDIV_D6");
  if (CDIV_D6.IsEmpty()) return true;
  const bool listed = Equals(CDIV_D6, "0") ? CollectZeroAlone(action) : scSQLSelectValuesAndDesc();
  return listed || DescribedListRefused(action);
}

// Reports under the context of lists, though it is a check.
bool ResetCDIVTail(const Action&) {
  const Reporter fail("GetValidValForParam");
  for (const std::string& digit : CDIVTail.all()) {
    if (!scResetParam(digit)) return fail(ResetFailed, digit);
  }
  return true;
}

}  // namespace cordboard
