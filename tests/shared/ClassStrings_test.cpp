#include "shared/ClassStrings.h"

#include <gtest/gtest.h>

#include "support/CallLines.h"
#include "support/ScriptedHost.h"

namespace cordboard {
namespace {

Action ListOf(const std::string& parameter) {
  Action action;
  action.CmdName = "ITNUI";
  action.ParamList = {parameter};
  return action;
}

const std::string zeroAlone =
    "SELECT Value, ValDesc  FROM ParamValueDesc  WHERE Command = 'ITNUI' AND Param = 'CDIV_D8' AND Value = '0' ";

TEST(CDIVTail, HasNoListBeforeDigitSixIsGiven) {
  ScriptedHost host;
  EXPECT_TRUE(host.With([] { return ListCDIVTail(ListOf("CDIV_D7")); }));
  EXPECT_EQ(host.Calls(), Lines({Read("CDIV_D6")}));
}

TEST(CDIVTail, HasZeroAloneUnderTheCommandsNameWhenDigitSixIsZero) {
  ScriptedHost host;
  host.Param("CDIV_D6", "0");
  EXPECT_TRUE(host.With([] { return ListCDIVTail(ListOf("CDIV_D8")); }));
  EXPECT_EQ(host.Effects(), Lines({Call("scCollectValuesAndDesc", zeroAlone)}));
}

TEST(CDIVTail, HasAllItsValuesForAnyOtherDigitSixAlsoForAnEmptyText) {
  for (const Value& digit : {Value("1"), Value("00"), Value(""), Value::Null()}) {
    ScriptedHost host;
    host.Param("CDIV_D6", digit);
    EXPECT_TRUE(host.With([] { return ListCDIVTail(ListOf("CDIV_D9")); }));
    EXPECT_EQ(host.Effects(), Lines({Call("scSQLSelectValuesAndDesc")}));
  }
}

TEST(CDIVTail, ReportsAListThatCouldNotBeBuilt) {
  ScriptedHost host;
  host.Param("CDIV_D6", "0");
  host.Refuse("scCollectValuesAndDesc");
  EXPECT_FALSE(host.With([] { return ListCDIVTail(ListOf("CDIV_D8")); }));
  EXPECT_EQ(host.Effects(), Lines({Call("scCollectValuesAndDesc", zeroAlone),
                                   MessageLine("GetValidValForParam", "61021, \"CDIV_D8\"")}));
  ScriptedHost other;
  other.Param("CDIV_D6", "1");
  other.Refuse("scSQLSelectValuesAndDesc");
  EXPECT_FALSE(other.With([] { return ListCDIVTail(ListOf("CDIV_D7")); }));
  EXPECT_EQ(other.Effects(),
            Lines({Call("scSQLSelectValuesAndDesc"), MessageLine("GetValidValForParam", "61021, \"CDIV_D7\"")}));
}

TEST(CDIVTail, IsResetDigitByDigit) {
  ScriptedHost host;
  EXPECT_TRUE(host.With([] { return ResetCDIVTail(ListOf("CDIV_D6")); }));
  EXPECT_EQ(host.Calls(),
            Lines({Call("scResetParam", "CDIV_D7"), Call("scResetParam", "CDIV_D8"), Call("scResetParam", "CDIV_D9")}));
}

TEST(CDIVTail, ResetStopsAtTheFirstDigitThatCannotBeReset) {
  ScriptedHost host;
  host.Refuse("scResetParam", "CDIV_D8");
  EXPECT_FALSE(host.With([] { return ResetCDIVTail(ListOf("CDIV_D6")); }));
  EXPECT_EQ(host.Calls(), Lines({Call("scResetParam", "CDIV_D7"), Call("scResetParam", "CDIV_D8"),
                                 MessageLine("GetValidValForParam", "61013, \"CDIV_D8\"")}));
}

}  // namespace
}  // namespace cordboard
