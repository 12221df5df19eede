// OPRSC: what an operator sees of calls by a route: the text STRING and its language.

#include "script/Module.h"
#include "shared/GenericRecord.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

// STRING is a word of the database's language, so its column stands in brackets; a message names it without.
bool Edit(const Action& action) { return EditRecord(action, {{"STRING", "[STRING]"}}); }

}  // namespace

extern const Module OPRSC{
    .SetInfo = GenericSetInfo,
    .EditInfo = Edit,
    .DeleteInfo = GenericDeleteInfo,
    .ValidValues = {{"ROU", GetValuesFor_ROU}, {{"SDM", "LANG"}, GetValuesAndDescription}},
};

}  // namespace cordboard
