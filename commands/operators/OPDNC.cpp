// OPDNC: the days of the week, each once, on which the exchange changes between day and night by itself.

#include "script/HostOperations.h"
#include "script/Module.h"
#include "shared/GenericRecord.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

// Reports as a list of single values.
bool ListWDAY(const Action& action) {
  return (scSQLSelectValuesAndDesc() && scSubtractSingleValues(" SELECT WDAY FROM OPDNC ")) || ListRefused(action);
}

}  // namespace

extern const Module OPDNC{
    .SetInfo = GenericSetInfo,
    .EditInfo = GenericEditInfo,
    .DeleteInfo = GenericDeleteInfo,
    .ValidValues = {{"WDAY", ListWDAY}},
};

}  // namespace cordboard
