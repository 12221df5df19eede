// ACGRI: groups with a queue: a number of type EX that a LIM carries.

#include "script/Conversions.h"
#include "script/Module.h"
#include "script/Report.h"
#include "shared/GroupHead.h"
#include "shared/Rechecks.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

const GroupKind kind{
    .columns = {"CMDID", "NUMTYP", "GRP", "TRAF", "SERV", "QUE", "CUST", "LIM", "SEL", "QIC", "ACTC", "DESCRIPTION",
                "LOCATION"},
    .perSystem = 128,
    .perLIM = 16,
    .trace = AddTrace::Record,
};

// QUE holds a lower and an upper length of the queue behind its first digit, in one of two widths. The upper one is
// offered above the lower one.
struct QueueLengths {
  const char* lower;
  const char* upper;
  int greatest;
};
constexpr QueueLengths inTwoDigits{"QUE_D2D3", "QUE_D4D5", 99};
constexpr QueueLengths inThreeDigits{"QUE_D2D3D4", "QUE_D5D6D7", 250};

// --- Lists.

// From 0 to the greatest, and above the lower length. While an upper length above the lower one stands, the list is
// whole.
bool CollectUpper(const QueueLengths& lengths) {
  if (!scPushValidRangeValues(0, lengths.greatest)) return false;
  const int lower = ToInt16(scGetParamValue(lengths.lower));
  const int upper = ToInt16(scGetParamValue(lengths.upper));
  return lower < upper || scRemoveFromValidRangeValues(lengths.upper, 0, lower);
}

bool ListQUE_D4D5(const Action& action) { return CollectUpper(inTwoDigits) || ListRefused(action); }
bool ListQUE_D5D6D7(const Action& action) { return CollectUpper(inThreeDigits) || ListRefused(action); }

// --- Checks.

// The upper length goes where the lower one has come above it. Where it has not, it is cleared and set again if the
// list does not hold the lower one.
bool ClearUpper(const QueueLengths& lengths, int lower, int upper) {
  if (lower > upper) return scResetParam(lengths.upper);
  List list;
  if (!scGetValidValues(lengths.upper, list)) return false;
  return IsValueInList(lower, list) || (scResetParam(lengths.upper) && scSetParamValue(lengths.upper, upper));
}

// It is the lower length, and not the upper one, that decides by standing in the list whether the upper one is put
// back. It comes back as a number.
bool CheckLower(const Action& action, const QueueLengths& lengths) {
  const Reporter fail("StatCheck: " + action.CmdName);
  const int upper = ToInt16(scGetParamValue(lengths.upper));
  const int lower = ToInt16(scGetParamValue(lengths.lower));
  if (!ClearUpper(lengths, lower, upper)) return fail(ResetFailed, lengths.upper);
  List list;
  if (!scGetValidValues(lengths.upper, list)) return fail(ListNotBuilt, lengths.upper);
  return !IsValueInList(lower, list) || scSetParamValue(lengths.upper, upper) || fail(SetFailed, lengths.upper);
}

bool CheckQUE_D2D3(const Action& action) { return CheckLower(action, inTwoDigits); }
bool CheckQUE_D2D3D4(const Action& action) { return CheckLower(action, inThreeDigits); }

// --- Add.

bool Add(const Action& action) { return AddGroupInLIM(action, kind); }

}  // namespace

extern const Module ACGRI{
    .SetInfo = Add,
    .EditInfo = EditGroupInLIM,
    .DeleteInfo = DeleteGroupInLIM,
    .ValidValues = {{"CUST", GetValuesFor_CUST},
                    {"GRP", GetValuesFor_EX},
                    {"LIM", GetValuesFor_LIM},
                    {"LOCATION", GetValuesFor_LOCATION},
                    {{"QUE_D1", "SEL_D1", "SEL_D2", "SEL_D3", "SERV_D1", "SERV_D2", "SERV_D3", "SERV_D4"},
                     GetValuesAndDescription},
                    {"QUE_D4D5", ListQUE_D4D5},
                    {"QUE_D5D6D7", ListQUE_D5D6D7}},
    .StatCheck = {{"LOCATION", StatCheck_LIM}, {"QUE_D2D3", CheckQUE_D2D3}, {"QUE_D2D3D4", CheckQUE_D2D3D4}},
};

}  // namespace cordboard
