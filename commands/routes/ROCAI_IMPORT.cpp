// ROCAI_IMPORT: imported route records, in a table of their own. They take no route out of ROUTE and give no lines.

#include <cstdint>
#include <utility>

#include "script/Conversions.h"
#include "script/Module.h"
#include "script/Report.h"
#include "shared/GenericRecord.h"
#include "shared/Rechecks.h"
#include "shared/Routes.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

bool IsBlankTrimmed(const Value& value) { return Trim(value).IsBlank(); }

std::int32_t Digit(const Value& value) { return ToInt32(NumericValue(value)); }

// Three digits range from 0 to a limit that follows SIG_D11. While that is blank, the list stays as the host has it.
bool ListUpTo(const Action& action, int (*limit)(int SIG_D11)) {
  const Value SIG_D11 = scGetParamValue("SIG_D11");
  return IsBlankTrimmed(SIG_D11) || scPushValidRangeValues(0, limit(Digit(SIG_D11))) || ListRefused(action);
}

bool ListSEL_D3(const Action& action) {
  return ListUpTo(action, [](int SIG_D11) { return SIG_D11 == 8 ? 4 : 3; });
}

bool ListSEL_D10(const Action& action) {
  return ListUpTo(action, [](int SIG_D11) { return SIG_D11 == 3 || SIG_D11 == 8 ? 1 : 0; });
}

bool ListSIG_D12(const Action& action) {
  return ListUpTo(action, [](int SIG_D11) { return SIG_D11 == 1 || SIG_D11 == 3 || SIG_D11 == 4 ? 1 : 0; });
}

// Puts the value back, as a whole number, if the new list has it. Its message has no context, and leaves the answer of
// the check as it was.
void RestoreDigit(const std::string& name, const Value& kept) {
  if (IsBlankTrimmed(kept)) return;
  const std::int32_t digit = Digit(kept);
  List list;
  scGetValidValues(name, list);
  if (IsValueInList(digit, list) && !scSetParamValue(name, digit)) Reporter("")(SetFailed, name);
}

// A reset that fails makes the answer False, and the check goes on. SIG_D11 is read with the others and not used.
bool CheckSIG_D11(const Action&) {
  scGetParamValue("SIG_D11");
  const Value SIG_D12 = scGetParamValue("SIG_D12");
  const Value SEL_D3 = scGetParamValue("SEL_D3");
  const Value SEL_D10 = scGetParamValue("SEL_D10");
  const std::pair<const char*, Value> dependents[] = {{"SIG_D12", SIG_D12}, {"SEL_D3", SEL_D3}, {"SEL_D10", SEL_D10}};
  bool flag = true;
  for (const auto& [name, kept] : dependents) {
    flag = (scResetParam(name) || Reporter("StatCheck")(ResetFailed, name)) && flag;
    RestoreDigit(name, kept);
  }
  return flag;
}

bool Add(const Action& action) { return AddRecord(action); }

}  // namespace

extern const Module ROCAI_IMPORT{
    .SetInfo = Add,
    .ValidValues = {{"ROU", GetFreeRoutes}, {"SIG_D12", ListSIG_D12}, {"SEL_D3", ListSEL_D3}, {"SEL_D10", ListSEL_D10}},
    .StatCheck = {{"SIG_D11", CheckSIG_D11}},
};

}  // namespace cordboard
