// OPCOI: common numbers of operators: COACC, a number of type OC that no call origin group of OPCTS leads to.

#include "script/Module.h"
#include "script/Report.h"
#include "shared/GenericRecord.h"

namespace cordboard {

namespace {

bool Add(const Action& action) { return GenericSetInfo(action, "OC"); }

bool ListCOACC(const Action& action) {
  return (scCollectSingleValues(Sql("SELECT NUMSE FROM NANSI", NL, " WHERE NUMTYP = 'OC'", NL, " AND Used = False")) &&
          scSubtractSingleValues("SELECT OACC FROM OPCTS")) ||
         Reporter("GetValuesFor: " + action.Parameter())(ListNotBuilt, action.Parameter());
}

}  // namespace

extern const Module OPCOI{
    .SetInfo = Add,
    .EditInfo = GenericEditInfo,
    .DeleteInfo = GenericDeleteInfo,
    .ValidValues = {{"COACC", ListCOACC}},
};

}  // namespace cordboard
