// OPCEI: calls to a common abbreviated number CENUM: their call origin group CORG, their kind NCA and their priority
// PRIO.

#include "script/Conversions.h"
#include "script/Module.h"
#include "script/Report.h"
#include "shared/GenericRecord.h"
#include "shared/Rechecks.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

// Reports as a list of single values.
bool ListCENUM(const Action& action) {
  return scCollectValuesAndDesc(Sql(" SELECT ABB, DESCRIPTION FROM ADCOI ", NL, " ORDER BY ABB "), "dynamic") ||
         ListRefused(action);
}

// A group has one record.
bool ListCORG(const Action& action) {
  return (scCollectValuesAndDesc(Sql("SELECT CORG, DESCRIPTION ", NL, " FROM OPCTS ", NL, "ORDER BY VAL(CORG) "),
                                 "dynamic") &&
          scSubtractSingleValues("SELECT CORG FROM OPCEI")) ||
         DescribedListRefused(action);
}

bool ListPRIO(const Action& action) {
  const int lowest = Equals(scGetParamValue("NCA"), "CCOP") ? 2 : 3;
  return PushWholeNumbers(1, lowest) || ListRefused(action);
}

bool CheckNCA(const Action& action) { return StatCheck_RecheckValue(action.CmdName, "PRIO"); }

}  // namespace

extern const Module OPCEI{
    .SetInfo = GenericSetInfo,
    .EditInfo = GenericEditInfo,
    .DeleteInfo = GenericDeleteInfo,
    .ValidValues = {{"CENUM", ListCENUM}, {"CORG", ListCORG}, {"PRIO", ListPRIO}},
    .StatCheck = {{"NCA", CheckNCA}},
};

}  // namespace cordboard
