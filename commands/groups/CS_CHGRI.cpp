// CS_CHGRI: groups whose members share the calls that they hold, from 0 to 254.

#include "script/HostOperations.h"
#include "script/Module.h"
#include "shared/GenericRecord.h"
#include "shared/Rechecks.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

bool ListGRP(const Action& action) {
  return (PushWholeNumbers(0, 254) && scSubtractSingleValues(" SELECT GRP FROM CS_CHGRI ")) || ListRefused(action);
}

}  // namespace

extern const Module CS_CHGRI{
    .SetInfo = GenericSetInfo,
    .EditInfo = GenericEditInfo,
    .DeleteInfo = GenericDeleteInfo,
    .GenerateCmd = AlwaysTrue,
    .ValidValues = {{"GRP", ListGRP}},
};

}  // namespace cordboard
