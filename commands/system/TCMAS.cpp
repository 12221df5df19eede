// TCMAS: one value, CON.

#include "script/Module.h"
#include "shared/GenericRecord.h"
#include "shared/ValueLists.h"

namespace cordboard {

bool TCMAS(const Action& action) {
  static const Module module{
      .SetInfo = GenericSetInfo,
      .EditInfo = GenericEditInfo,
      .DeleteInfo = GenericDeleteInfo,
      .ValidValues = {{"CON", GetValuesAndDescription}},
  };
  return module.Run(action);
}

}  // namespace cordboard
