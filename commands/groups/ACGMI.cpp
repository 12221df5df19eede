// ACGMI: the members of the groups of ACGRI, each a number of type EX.

#include "script/Envelope.h"
#include "script/Module.h"
#include "script/Report.h"
#include "script/Text.h"
#include "shared/Capacity.h"
#include "shared/GenericRecord.h"
#include "shared/Members.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

constexpr int membersPerGroup = 250;
constexpr int membersPerSystem = 4000;

// The additional numbers whose ADC begins with 1 or 2. Without any the list stays as it is.
bool ListDIR(const Action& action) {
  const Reporter fail("GetValidValuesFor: " + action.Parameter());
  RowSet rows;
  if (!scRunQuery(Sql("SELECT ADN, ADC FROM KSANI", NL, " WHERE ADC IS NOT NULL"), rows)) return fail(StatementFailed);
  List numbers(std::vector<Value>{});
  for (std::size_t row = 0; row < rows.RowCount(); ++row) {
    const std::string first = Left(Joined(rows[1][row]), 1);
    if (first == "1" || first == "2") numbers.Append(rows[0][row]);
  }
  return numbers.size() == 0 || scPushValidValues(numbers) || fail(ListNotBuilt, action.Parameter());
}

bool ListGRP(const Action& action) { return CollectList(action, Sql("SELECT GRP FROM ACGRI", NL, " ORDER BY GRP")); }

// The group is asked again for each number, always for room for all of them, while it grows: a list that it takes at
// the first number may be refused at a later one.
bool Add(const Action& action) {
  const Reporter fail("Add: " + action.CmdName);
  return InTransaction(fail, [&] {
    List numbers;
    if (!scGetValueArray("DIR", numbers)) return fail(ListNotBuilt, "DIR");
    const int count = numbers.UpperBound() + 1;
    if (!CheckMembersPerSystem(action.CmdName, count, membersPerSystem)) return fail(MembersRefusedBySystem);
    const auto hasRoom = [&](const Value& GRP) {
      return CheckMembersPerGroup(action.CmdName, GRP, count, membersPerGroup);
    };
    return InsertMembers(action, fail, numbers, {.NUMTYP = ExtensionType, .GRP = hasRoom});
  });
}

}  // namespace

extern const Module ACGMI{
    .SetInfo = Add,
    .EditInfo = GenericEditInfo,
    .DeleteInfo = GenericDeleteInfo,
    .ValidValues = {{"DIR", ListDIR}, {"GRP", ListGRP}},
};

}  // namespace cordboard
