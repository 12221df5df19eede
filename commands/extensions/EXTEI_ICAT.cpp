#include "commands/extensions/EXTEI_ICAT.h"

#include <algorithm>
#include <array>
#include <string>
#include <tuple>

#include "commands/extensions/EXTEI_Board.h"
#include "script/Conversions.h"
#include "script/Report.h"
#include "shared/Rechecks.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

constexpr const char* ZeroAlone = " AND Value = '0'";

// The lists that depend on the board report as the plain ones do.
const Reporter fail("GetValuesAndDescription");

bool Collect(const Action& action, const std::string& condition) {
  return scCollectValuesAndDesc(Sql("SELECT Value, ValDesc FROM ParamValueDesc ", NL, "WHERE Command = '",
                                    action.CmdName, "' ", NL, "AND Param = '", action.Parameter(), "'", condition, NL,
                                    " AND DefinitionNo = ", action.Definition)) ||
         fail(DescribedListNotBuilt, action.Parameter());
}

// The whole list, but on the boards 87 and 2, and without a position, only the values of the condition.
bool ListByBoard(const Action& action, const std::string& condition) {
  const Value EQU = scGetParamValue("EQU");
  if (EQU.IsEmpty()) return Collect(action, condition);
  Value BoardID;
  if (!ReadBoard(fail, EQU, BoardID)) return false;
  return IsValueInList(BoardID, {"87", "2"}) ? Collect(action, condition) : GetValuesAndDescriptionByDefinition(action);
}

// The definition is 2, whatever the action says, and the context of the message is not that of the other digits.
bool ListICAT_D1_SUB4(const Action& action) {
  const bool zeroAlone = Equals(scGetParamValue("ICAT_D1_SUB1"), "0");
  const bool listed =
      zeroAlone
          ? scCollectValuesAndDesc(Sql("SELECT Value, ValDesc", NL, " FROM ParamValueDesc ", NL, " WHERE Command = '",
                                       action.CmdName, "'", NL, " AND Param = '", action.Parameter(), "'", NL,
                                       " AND Value = '0' ", NL, " AND DefinitionNo = 2 "))
          : scSQLSelectValuesAndDescByDefinition(2);
  return listed || DescribedListRefused(action);
}

// Only board 104 gives a choice, and not with every third digit.
bool ListICAT_D2(const Action& action) {
  const Value EQU = scGetParamValue("EQU");
  const Value ICAT_D3 = scGetParamValue("ICAT_D3");
  if (EQU.IsEmpty()) return Collect(action, ZeroAlone);
  Value BoardID;
  if (!ReadBoard(fail, EQU, BoardID)) return false;
  const bool open = Equals(BoardID, "104") && !IsValueInList(ICAT_D3, {"4", "5", "C", "D"});
  return Collect(action, open ? "" : ZeroAlone);
}

bool ListICAT_D3_SUB2(const Action& action) { return ListByBoard(action, " AND (Value = '0' OR Value = '2')"); }
bool ListICAT_D3_SUB3(const Action& action) { return ListByBoard(action, ZeroAlone); }

struct Digit {
  const char* name;
  Worker lists[3];  // by definition
};

constexpr Worker All = GetValuesAndDescriptionByDefinition;
constexpr Worker None = nullptr;

// clang-format off
constexpr auto digits = std::to_array<Digit>({
    //                 1                 2                 3
    {"ICAT_D1",      { All,              None,             None }},
    {"ICAT_D1_SUB1", { None,             All,              None }},
    {"ICAT_D1_SUB2", { None,             All,              None }},
    {"ICAT_D1_SUB3", { None,             All,              None }},
    {"ICAT_D1_SUB4", { None,             ListICAT_D1_SUB4, None }},
    {"ICAT_D2",      { ListICAT_D2,      All,              None }},
    {"ICAT_D2_SUB1", { All,              All,              All  }},
    {"ICAT_D2_SUB2", { All,              All,              All  }},
    {"ICAT_D3",      { All,              None,             None }},
    {"ICAT_D3_SUB1", { All,              All,              None }},
    {"ICAT_D3_SUB2", { ListICAT_D3_SUB2, All,              None }},
    {"ICAT_D3_SUB3", { ListICAT_D3_SUB3, None,             None }},
    {"ICAT_D4",      { None,             All,              None }},
    {"ICAT_D4_SUB1", { All,              None,             All  }},
    {"ICAT_D4_SUB2", { All,              None,             All  }},
    {"ICAT_D4_SUB3", { All,              None,             All  }},
});
// clang-format on

}  // namespace

ParameterNames ICATDigits() {
  return std::apply([](const auto&... digit) { return ParameterNames{digit.name...}; }, digits);
}

bool ListICAT(const Action& action) {
  if (action.Definition < 1 || action.Definition > 3) return false;
  const auto* digit = std::ranges::find(digits, action.Parameter(), &Digit::name);
  const Worker list = digit->lists[action.Definition - 1];
  return list != None && list(action);
}

}  // namespace cordboard
