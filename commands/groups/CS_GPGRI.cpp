// CS_GPGRI: groups that pick up each other's calls, each named by a number of its own outside the number series.

#include "script/Conversions.h"
#include "script/Module.h"
#include "script/Report.h"
#include "shared/GenericRecord.h"
#include "shared/Rechecks.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

// A number outside the limits is reported and stays: the check finds nothing that stops the user.
bool CheckGRP(const Action& action) {
  const Reporter fail("StatCheck");
  const Value GRP = scGetParamValue("GRP");
  if (GRP.IsEmptyOrEmptyText()) return true;
  const double number = NumericValue(GRP);
  if (number < 0 || number > 8191) fail(ValueAgainstPrefixRule, action.Parameter());
  return true;
}

}  // namespace

extern const Module CS_GPGRI{
    .SetInfo = GenericSetInfo,
    .EditInfo = GenericEditInfo,
    .DeleteInfo = GenericDeleteInfo,
    .GenerateCmd = AlwaysTrue,
    .ValidValues = {{"LIM", GetValuesFor_LIM}, {"LOCATION", GetValuesFor_LOCATION}},
    .StatCheck = {{"GRP", CheckGRP}, {"LOCATION", StatCheck_LIM}},
};

}  // namespace cordboard
