// OPRSC: what an operator sees of calls by a route: the text STRING and its language.

#include "script/Conversions.h"
#include "script/Envelope.h"
#include "script/Module.h"
#include "shared/GenericRecord.h"
#include "shared/Row.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

// STRING is a word of the database's language, so its column stands in brackets; a message names it without.
bool Edit(const Action& action) {
  const Reporter fail("Edit: " + action.CmdName);
  return InTransaction(fail, [&] {
    for (const Value& parameter : action.ParamList) {
      const std::string name = ToText(parameter);
      const std::string column = name == "STRING" ? "[STRING]" : name;
      if (!UpdateColumnOrNull(action.CmdName, action.CmdId, column, scGetParamValue(name)))
        return fail(ColumnNotWritten, name);
    }
    return true;
  });
}

}  // namespace

extern const Module OPRSC{
    .SetInfo = GenericSetInfo,
    .EditInfo = Edit,
    .DeleteInfo = GenericDeleteInfo,
    .ValidValues = {{"ROU", GetValuesFor_ROU}, {{"SDM", "LANG"}, GetValuesAndDescription}},
};

}  // namespace cordboard
