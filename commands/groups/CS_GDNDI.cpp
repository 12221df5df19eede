// CS_GDNDI: groups whose members have their telephones silent together, from 1 to 99.

#include "script/HostOperations.h"
#include "script/Module.h"
#include "shared/GenericRecord.h"
#include "shared/Rechecks.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

bool ListGRP(const Action& action) {
  return (PushWholeNumbers(1, 99) && scSubtractSingleValues(" SELECT GRP FROM CS_GDNDI ")) || ListRefused(action);
}

}  // namespace

extern const Module CS_GDNDI{
    .SetInfo = GenericSetInfo,
    .EditInfo = GenericEditInfo,
    .DeleteInfo = GenericDeleteInfo,
    .GenerateCmd = AlwaysTrue,
    .ValidValues = {{"GRP", ListGRP}},
};

}  // namespace cordboard
