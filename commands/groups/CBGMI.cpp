// CBGMI: the members of the groups of CBELI, each a number of type EX. A member cannot be changed.

#include "script/Envelope.h"
#include "script/Module.h"
#include "script/Report.h"
#include "shared/Capacity.h"
#include "shared/GenericRecord.h"
#include "shared/Release.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

constexpr int membersPerGroup = 30;
constexpr int membersPerSystem = 1500;

// The numbers of all telephones that are in no group of ACGRI or CBELI. R6 and R6/1 do not offer directory records, and
// name the column of additional numbers DIR: they offer the extensions that have some, once more.
bool ListDIR(const Action& action) {
  const bool collected =
      scCollectSingleValues("SELECT DIR FROM EXTEIDIR") && scAddSingleValues("SELECT DIR FROM KSEXI") &&
      (IsR6(action) ? scAddSingleValues("SELECT DIR FROM KSANI")
                    : scAddSingleValues("SELECT ADN FROM KSANI") && scAddSingleValues("SELECT DIR FROM GEDII")) &&
      scAddSingleValues("SELECT DIR FROM ITNUI") && scSubtractSingleValues("SELECT DIR FROM ACGMI") &&
      scSubtractSingleValues("SELECT DIR FROM CBGMI");
  return collected || ListRefused(action);
}

bool ListGRP(const Action& action) { return CollectList(action, Sql("SELECT GRP FROM CBELI", NL, " ORDER BY GRP")); }

// System and group are asked once, before the first number. The columns are always the same four.
bool Add(const Action& action) {
  const Reporter fail("Add: " + action.CmdName);
  return InTransaction(fail, [&] {
    List numbers;
    if (!scGetValueArray("DIR", numbers)) return fail(ListNotBuilt, "DIR");
    const int count = numbers.UpperBound() + 1;
    if (!CheckMembersPerSystem(action.CmdName, count, membersPerSystem)) return fail(MembersRefusedBySystem);
    const Value GRP = scGetParamValue("GRP");
    if (!CheckMembersPerGroup(action.CmdName, GRP, count, membersPerGroup)) return fail(MembersRefusedByGroup);
    for (const Value& DIR : numbers) {
      if (!scSQLInsert(action.CmdName, {"CMDID", "NUMTYP", "DIR", "GRP"}, {scBuildCmdID(), "EX", DIR, GRP}))
        return fail(InsertFailed, action.CmdName);
    }
    return true;
  });
}

}  // namespace

extern const Module CBGMI{
    .SetInfo = Add,
    .DeleteInfo = GenericDeleteInfo,
    .ValidValues = {{"DIR", ListDIR}, {"GRP", ListGRP}},
};

}  // namespace cordboard
