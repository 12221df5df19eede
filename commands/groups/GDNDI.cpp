// GDNDI: the members of the groups of CS_GDNDI: extensions, and operators with their own type. A group comes into being
// with its first member.

#include "script/Module.h"
#include "script/Report.h"
#include "shared/GenericRecord.h"
#include "shared/Members.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

bool ListDIR(const Action& action) {
  const bool collected = scCollectSingleValues("SELECT DIR FROM EXTEIDIR") &&
                         scAddSingleValues("SELECT DIR FROM KSEXI") && scAddSingleValues("SELECT ADN FROM KSANI") &&
                         scAddSingleValues("SELECT DIR FROM ITNUI") && scSubtractSingleValues("SELECT DIR FROM GDNDI");
  return collected || ListRefused(action);
}

bool ListGRP(const Action& action) { return PushWholeNumbers(1, 99) || ListRefused(action); }

// There is no transaction: when a number fails, the group and the members before it stay.
bool Add(const Action& action) {
  const Reporter fail("Add: " + action.CmdName);
  List numbers;
  if (!scGetValueArray("DIR", numbers)) return fail(ListNotBuilt, "DIR");
  const auto typeOf = [&](const Value& DIR) { return OperatorOrExtensionType(fail, DIR); };
  const auto stands = [&](const Value& GRP) { return FindOrInsertHead(fail, "CS_GDNDI", GRP); };
  return InsertMembers(action, fail, numbers, {.NUMTYP = typeOf, .GRP = stands});
}

}  // namespace

extern const Module GDNDI{
    .SetInfo = Add,
    .EditInfo = GenericEditInfo,
    .DeleteInfo = GenericDeleteInfo,
    .ValidValues = {{"DIR", ListDIR}, {"GRP", ListGRP}},
};

}  // namespace cordboard
