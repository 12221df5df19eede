#include "commands/extensions/EXTEI_Checks.h"

#include <algorithm>
#include <array>
#include <string>

#include "commands/extensions/EXTEI_Board.h"
#include "commands/extensions/EXTEI_Names.h"
#include "script/Conversions.h"
#include "script/Report.h"
#include "shared/Rechecks.h"

namespace cordboard {

namespace {

// The second half of a recheck, after the reset. Its two messages differ in the capitals of their contexts.
bool PutBackIfListed(const std::string& parameter, const Value& kept) {
  List list;
  if (!scGetValidValues(parameter, list)) return Reporter("Getvalidvalues")(ListNotBuilt, parameter);
  return !IsValueInList(kept, list) || scSetParamValue(parameter, kept) ||
         Reporter("GetValidValues")(SetFailed, parameter);
}

// A digit that cannot be reset has no message.
bool RecheckICAT_D2() {
  const Value kept = scGetParamValue("ICAT_D2");
  return scResetParam("ICAT_D2") && PutBackIfListed("ICAT_D2", kept);
}

// With release R7 two more digits hang on the board.
bool ResetDigitsOfR7(const Action& action) {
  return action.oaRelease != "R7" || (scResetParam("ICAT_D3_SUB2") && scResetParam("ICAT_D3_SUB3"));
}

// The check reports under one name, for templates too.
const Reporter failTYPE("StatCheck: EXTEI");

// The definition of ICAT for a TYPE, and the boards on which a position stays: for EL6 fewer than its list of positions
// has. There are always seven places for boards. Those left over are empty, and so equal to a board without a name.
struct TypeRule {
  const char* TYPE;
  int definition;
  std::array<Value, 7> boards;
};

const TypeRule types[] = {
    {"EL6", 1, {"2", "44", "87", "71", "72", "43", "104"}},
    {"EL7", 2, {"27", "52"}},
    {"EL8", 3, {"77", "59"}},
};
const TypeRule otherType{};

const TypeRule& RuleOf(const Value& TYPE) {
  const auto* rule = std::ranges::find_if(types, [&](const TypeRule& known) { return Equals(TYPE, known.TYPE); });
  return rule == std::end(types) ? otherType : *rule;
}

bool SuitADC_D1(const Value& TYPE) {
  const auto remove = [](const char* value) { return scRemoveFromValidValues("ADC_D1", value); };
  const Value kept = scGetParamValue("ADC_D1");
  List list;
  const bool listed = scResetParam("ADC_D1") &&
                      (IsValueInList(TYPE, {"EL6", "EL8"}) ? remove("1") && remove("2") : remove("0")) &&
                      scGetValidValues("ADC_D1", list);
  const bool set = listed && (!IsValueInList(kept, list) || scSetParamValue("ADC_D1", kept));
  return set || failTYPE(SetFailed, "ADC_D1");
}

}  // namespace

bool CheckAUX(const Action& action) {
  return scResetParam("EQU") || Reporter(ContextOf(action, "StatCheck_AUX"))(ResetFailed, "EQU");
}

// A position that cannot be set has no message.
bool CheckDIR_AUX(const Action& action) {
  const Reporter fail(ContextOf(action, "StatCheck_DIR_AUX"));
  const Value DIR_AUX = scGetParamValue("DIR_AUX");
  if (DIR_AUX.IsBlank()) return true;
  RowSet rows;
  if (!scRunQuery(Sql("SELECT EQU FROM ", TableOf(action, "EXTEIDIR"), " WHERE DIR = '", DIR_AUX, "'"), rows))
    return fail(StatementFailed);
  if (rows.IsEmpty()) return fail(RecordNotFound);
  const Value EQU = rows[0][0];
  if (!scPushValidValues(List{EQU}, "EQU")) return fail(SetFailed, "EQU");
  return scSetParamValue("EQU", EQU);
}

// --- The digits of ICAT.

bool CheckICAT_D1_SUB1(const Action& action) {
  if (action.Definition != 2) return false;
  const Value kept = scGetParamValue("ICAT_D1_SUB4");
  if (!scResetParam("ICAT_D1_SUB4")) return Reporter("GetValidValForParam")(ResetFailed, "ICAT_D1_SUB4");
  return PutBackIfListed("ICAT_D1_SUB4", kept);
}

bool CheckICAT_D3_SUB1(const Action&) {
  const Value ICAT_D3_SUB1 = scGetParamValue("ICAT_D3_SUB1");
  const Value ICAT_D3_SUB2 = scGetParamValue("ICAT_D3_SUB2");
  return IsValueInList(ICAT_D3_SUB1, {"0", "1"}) && Equals(ICAT_D3_SUB2, "4") && RecheckICAT_D2();
}

bool CheckICAT_D3_SUB2(const Action&) { return RecheckICAT_D2(); }

// Here alone a digit that cannot be reset is reported, as a list that cannot be read. The filter is applied whatever
// came of the recheck.
bool CheckICAT_D3_SUB3(const Action&) {
  if (!Equals(scGetParamValue("ICAT_D3_SUB3"), "8")) return false;
  const Value kept = scGetParamValue("ICAT_D2");
  const bool flag =
      scResetParam("ICAT_D2") ? PutBackIfListed("ICAT_D2", kept) : Reporter("Getvalidvalues")(ListNotBuilt, "ICAT_D2");
  scFilterEQU(2, "2");
  return flag;
}

bool CheckICATOfEQU(const Action& action) {
  const Value TYPE = scGetParamValue("TYPE");
  const Value EQU = scGetParamValue("EQU");
  if (EQU.IsBlank() || !Equals(TYPE, "EL6")) return true;
  return RecheckICAT_D2() && ResetDigitsOfR7(action);
}

// --- TYPE.

bool SuitICATToTYPE(const Action& action, const Value& TYPE, const Value& EQU) {
  const int definition = RuleOf(TYPE).definition;
  const bool resets = Equals(TYPE, "EL6") && !EQU.IsEmpty();
  const bool flag = (definition == 0 || scActiveDefinition("ICAT", definition)) &&
                    (!resets || (scResetParam("ICAT_D2") && ResetDigitsOfR7(action)));
  return flag || failTYPE(ResetFailed, "ICAT");
}

// A position that cannot be reset is reported as one that cannot be set.
bool SuitADCAndEQUToTYPE(const Value& TYPE, const Value& EQU) {
  if (!SuitADC_D1(TYPE)) return false;
  if (!scResetParam("EQU")) return failTYPE(SetFailed, "EQU");
  if (EQU.IsEmpty()) return true;
  Value BoardID;
  if (!ReadBoard(failTYPE, EQU, BoardID)) return false;
  const bool fits =
      std::ranges::any_of(RuleOf(TYPE).boards, [&](const Value& board) { return Equals(BoardID, board); });
  return !fits || scSetParamValue("EQU", EQU) || failTYPE(SetFailed, "EQU");
}

}  // namespace cordboard
