// GPGMI: the members of the groups of CS_GPGRI: extensions, and operators with their own type. A group comes into being
// with its first member, in the LIM of that one.

#include "script/Module.h"
#include "script/Report.h"
#include "shared/Capacity.h"
#include "shared/GenericRecord.h"
#include "shared/Members.h"
#include "shared/Rechecks.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

constexpr int membersPerGroup = 48;

bool ListDIR(const Action& action) {
  const bool collected = scCollectSingleValues("SELECT DIR FROM EXTEIDIR") &&
                         scAddSingleValues("SELECT DIR FROM KSEXI") && scAddSingleValues("SELECT DIR FROM DTEXI") &&
                         scAddSingleValues("SELECT DIR FROM GEDII") && scAddSingleValues("SELECT ADN FROM KSANI") &&
                         scSubtractSingleValues("SELECT DIR FROM GPGMI");
  return collected || ListRefused(action);
}

bool ListGRP(const Action& action) { return CollectList(action, " SELECT GRP FROM CS_GPGRI"); }

// A group that stood before the add is asked again for each number, always for room for all of them. One that the add
// has made is not asked: it takes as many as are given. There is no transaction: when a number fails, the group and the
// members before it stay.
bool Add(const Action& action) {
  const Reporter fail("Add: " + action.CmdName);
  List numbers;
  if (!scGetValueArray("DIR", numbers)) return fail(ListNotBuilt, "DIR");
  const int count = numbers.UpperBound() + 1;
  bool made = false;
  const auto typeOf = [&](const Value& DIR) { return OperatorOrExtensionType(fail, DIR); };
  const auto takes = [&](const Value& GRP) {
    bool found = false;
    if (!FindHead(fail, "CS_GPGRI", GRP, found)) return false;
    if (found) return made || CheckMembersPerGroup(action.CmdName, GRP, count, membersPerGroup);
    made = true;
    return InsertHead(fail, "CS_GPGRI", {"CMDID", "GRP", "LIM"}, {scBuildCmdID(), GRP, scGetParamValue("LIM")});
  };
  return InsertMembers(action, fail, numbers, {.NUMTYP = typeOf, .GRP = takes});
}

}  // namespace

extern const Module GPGMI{
    .SetInfo = Add,
    .EditInfo = GenericEditInfo,
    .DeleteInfo = GenericDeleteInfo,
    .ValidValues = {{"DIR", ListDIR}, {"GRP", ListGRP}, {"LIM", GetValuesFor_LIM}, {"LOCATION", GetValuesFor_LOCATION}},
    .StatCheck = {{"LOCATION", StatCheck_LIM}},
};

}  // namespace cordboard
