// CPDLI: the LIMs, each once, that serve the common public numbers of CPDNI.

#include "script/Module.h"
#include "script/Report.h"
#include "shared/GenericRecord.h"
#include "shared/Rechecks.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

// Reports under the name of the common list, but as a list of single values.
bool ListLIM(const Action& action) {
  return (CollectLIMs() && scSubtractSingleValues("SELECT LIM FROM CPDLI")) ||
         Reporter("GetValuesFor_LIM")(ListNotBuilt, action.Parameter());
}

}  // namespace

extern const Module CPDLI{
    .SetInfo = GenericSetInfo,
    .EditInfo = GenericEditInfo,
    .DeleteInfo = GenericDeleteInfo,
    .ValidValues = {{"LIM", ListLIM}, {"LOCATION", GetValuesFor_LOCATION}},
    .StatCheck = {{"LOCATION", StatCheck_LIM}},
};

}  // namespace cordboard
