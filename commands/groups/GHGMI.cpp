// GHGMI: the members of the groups of GHGRI, each a number of type EX. A number may be in several of the groups. A
// member cannot be changed.

#include "script/Envelope.h"
#include "script/Module.h"
#include "script/Report.h"
#include "script/Text.h"
#include "shared/Capacity.h"
#include "shared/GenericRecord.h"
#include "shared/Members.h"
#include "shared/Release.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

constexpr int membersPerGroup = 75;

// Offers, besides the `numbers` before them, those that the statement gives without an ADC or with one that begins with
// 0; a null ADC is neither. A statement that fails, or finds nothing, is passed over.
bool OfferNumbersOf(const std::string& sql, List& numbers) {
  RowSet rows;
  if (!scRunQuery(sql, rows) || rows.IsEmpty()) return true;
  for (std::size_t row = 0; row < rows.RowCount(); ++row) {
    const Value& ADC = rows[1][row];
    if (ADC.IsEmptyOrEmptyText() || Left(Joined(ADC), 1) == "0") numbers.Append(rows[0][row]);
  }
  return numbers.size() == 0 || scPushValidValues(numbers, "DIR");
}

// Without a group there is no list. The key extensions are offered twice, the second time with the additional numbers.
bool ListDIR(const Action& action) {
  const Value GRP = scGetParamValue("GRP");
  if (GRP.IsEmpty()) return true;
  List numbers(std::vector<Value>{});
  const bool built =
      scCollectSingleValues("SELECT DIR FROM EXTEIDIR ") && OfferNumbersOf("SELECT DIR,ADC FROM KSEXI ", numbers) &&
      OfferNumbersOf("SELECT ADN, ADC FROM KSANI ", numbers) &&
      (IsR6(action) || scAddSingleValues("SELECT DIR FROM CXAKI")) && scSubtractSingleValues("SELECT DIR FROM ACGMI") &&
      scSubtractSingleValues(Sql("SELECT DIR FROM GHGMI", NL, " WHERE GRP = '", GRP, "'"));
  return built || Reporter("GetValuesFor: " + action.CmdName)(ListNotBuilt, action.Parameter());
}

bool ListGRP(const Action& action) { return CollectList(action, Sql("SELECT GRP FROM GHGRI", NL, " ORDER BY GRP")); }

bool CheckGRP(const Action& action) {
  return scResetParam("DIR") || Reporter("StatCheck: " + action.CmdName)(ResetFailed, "DIR");
}

// The group is asked again for each number, always for room for all of them; there is no limit for the system.
bool Add(const Action& action) {
  const Reporter fail("Add: " + action.CmdName);
  return InTransaction(fail, [&] {
    List numbers;
    if (!scGetValueArray("DIR", numbers)) return fail(ListNotBuilt, "DIR");
    const int count = numbers.UpperBound() + 1;
    const auto hasRoom = [&](const Value& GRP) {
      return CheckMembersPerGroup(action.CmdName, GRP, count, membersPerGroup);
    };
    return InsertMembers(action, fail, numbers, {.NUMTYP = ExtensionType, .GRP = hasRoom});
  });
}

}  // namespace

extern const Module GHGMI{
    .SetInfo = Add,
    .DeleteInfo = GenericDeleteInfo,
    .ValidValues = {{"DIR", ListDIR}, {"GRP", ListGRP}},
    .StatCheck = {{"GRP", CheckGRP}},
};

}  // namespace cordboard
