// TCMAS: one value, CON.

#include "script/Module.h"
#include "shared/GenericRecord.h"
#include "shared/ValueLists.h"

namespace cordboard {

extern const Module TCMAS{
    .SetInfo = GenericSetInfo,
    .EditInfo = GenericEditInfo,
    .DeleteInfo = GenericDeleteInfo,
    .ValidValues = {{"CON", GetValuesAndDescription}},
};

}  // namespace cordboard
