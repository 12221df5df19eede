// GPAGI: pairs of groups of CS_GPGRI: AGRP may pick up the calls of GRP as well.

#include "script/Conversions.h"
#include "script/Envelope.h"
#include "script/Module.h"
#include "script/Report.h"
#include "shared/GenericRecord.h"
#include "shared/Record.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

// The groups that have no pair in this column yet, less the one in `other`: a group is never paired with itself.
bool ListGroups(const Action& action, const char* other) {
  const std::string column = action.Parameter();
  const auto withoutOther = [&] {
    const Value group = scGetParamValue(other);
    return group.IsBlank() || scRemoveFromValidValues(column, group);
  };
  return (scCollectSingleValues(" SELECT GRP FROM CS_GPGRI") &&
          scSubtractSingleValues(Sql("SELECT ", column, " FROM GPAGI")) && withoutOther()) ||
         ListRefused(action);
}

bool ListGRP(const Action& action) { return ListGroups(action, "AGRP"); }
bool ListAGRP(const Action& action) { return ListGroups(action, "GRP"); }

bool CheckGRP(const Action&) { return scGetParamValue("GRP").IsBlank() || scResetParam("AGRP"); }

// Reads the pair and finds nothing.
bool CheckAGRP(const Action&) {
  scGetParamValue("GRP");
  scGetParamValue("AGRP");
  return true;
}

// One record for each value of AGRP. A record that is refused is reported and the next one follows, so that the last
// one decides.
bool Add(const Action& action) {
  const Reporter fail("Add: " + action.CmdName);
  return InTransaction(fail, [&] {
    List groups;
    if (!scGetValueArray("AGRP", groups)) return fail(ListNotBuilt, "AGRP");
    bool flag = true;
    for (const Value& AGRP : groups) {
      flag = scSQLInsert(action.CmdName, action.ParamList, Record(action.ParamList, {{"AGRP", AGRP}})) ||
             fail(InsertFailed, action.CmdName);
    }
    return flag;
  });
}

}  // namespace

extern const Module GPAGI{
    .SetInfo = Add,
    .EditInfo = GenericEditInfo,
    .DeleteInfo = GenericDeleteInfo,
    .ValidValues = {{"AGRP", ListAGRP}, {"GRP", ListGRP}},
    .StatCheck = {{"AGRP", CheckAGRP}, {"GRP", CheckGRP}},
};

}  // namespace cordboard
