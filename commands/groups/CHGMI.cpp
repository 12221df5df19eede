// CHGMI: the members of the groups of CS_CHGRI: extensions, and operators with their own type. A group comes into being
// with its first member.

#include "script/Envelope.h"
#include "script/Module.h"
#include "script/Report.h"
#include "shared/GenericRecord.h"
#include "shared/Members.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

bool ListDIR(const Action& action) {
  const bool collected = scCollectSingleValues("SELECT DIR FROM EXTEIDIR") &&
                         scAddSingleValues("SELECT DIR FROM KSEXI") && scAddSingleValues("SELECT DIR FROM DTEXI") &&
                         scAddSingleValues("SELECT DIR FROM GEDII") && scSubtractSingleValues("SELECT DIR FROM CHGMI");
  return collected || ListRefused(action);
}

bool ListGRP(const Action& action) { return PushWholeNumbers(0, 254) || ListRefused(action); }

bool Add(const Action& action) {
  const Reporter fail("Add: " + action.CmdName);
  return InTransaction(fail, [&] {
    List numbers;
    if (!scGetValueArray("DIR", numbers)) return fail(ListNotBuilt, "DIR");
    const auto typeOf = [&](const Value& DIR) { return OperatorOrExtensionType(fail, DIR); };
    const auto stands = [&](const Value& GRP) { return FindOrInsertHead(fail, "CS_CHGRI", GRP); };
    return InsertMembers(action, fail, numbers, {.NUMTYP = typeOf, .GRP = stands});
  });
}

}  // namespace

extern const Module CHGMI{
    .SetInfo = Add,
    .EditInfo = GenericEditInfo,
    .DeleteInfo = GenericDeleteInfo,
    .ValidValues = {{"DIR", ListDIR}, {"GRP", ListGRP}},
};

}  // namespace cordboard
