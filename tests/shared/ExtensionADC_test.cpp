#include "shared/ExtensionADC.h"

#include <gtest/gtest.h>

#include "support/CallLines.h"
#include "support/ScriptedHost.h"

namespace cordboard {
namespace {

Action ListOf(const std::string& parameter) {
  Action action;
  action.CmdName = "KSEXITEMPLATE";
  action.ParamList = {parameter};
  return action;
}

bool ListFirst(ScriptedHost& host) {
  return host.With([] { return ListADC_D1(ListOf("ADC_D1")); });
}

const std::string context = "GetValidValuesFor: ADC_D1";
const std::string whole = Call("scSQLSelectValuesAndDesc");
const std::string withoutTwo = "scRemoveFromValidValues(\"ADC_D1\", \"2\")";
const std::string readSERV = "SELECT SERV FROM EXCCS  WHERE CAT = '7'  AND NOT (SERV = Null) ";

TEST(ExtensionADC, FirstDigitReadsTheInstrumentAndMakesNoUseOfIt) {
  ScriptedHost host;
  EXPECT_TRUE(ListFirst(host));
  EXPECT_EQ(host.Calls(), Lines({Read("ITYPE"), whole, Read("SERV_D7D8_SUB2"), Read("CAT")}));
}

TEST(ExtensionADC, FirstDigitLosesTwoFromTheTextZeroTwoUpwards) {
  for (const Value& digits : {Value("02"), Value("03"), Value("1"), Value("2"), Value(2)}) {
    ScriptedHost host;
    host.Param("SERV_D7D8_SUB2", digits);
    host.Param("CAT", "7");
    EXPECT_TRUE(ListFirst(host));
    EXPECT_EQ(host.Effects(), Lines({whole, withoutTwo})) << TraceText(digits);
  }
}

TEST(ExtensionADC, FirstDigitKeepsTwoBelowThatAndDoesNotAskForTheCategory) {
  for (const Value& digits : {Value("01"), Value("00"), Value(""), Value("0"), Value::Null()}) {
    ScriptedHost host;
    host.Param("SERV_D7D8_SUB2", digits);
    host.Param("CAT", "7");
    EXPECT_TRUE(ListFirst(host));
    EXPECT_EQ(host.Effects(), Lines({whole})) << TraceText(digits);
  }
}

TEST(ExtensionADC, FirstDigitFollowsTheCategoryOnlyIfTheStatementFindsOne) {
  {
    ScriptedHost host;
    host.Param("CAT", "7");
    host.Rows(readSERV, {});
    EXPECT_TRUE(ListFirst(host));
    EXPECT_EQ(host.Effects(), Lines({whole, QueryLine(readSERV)}));
  }
  {
    ScriptedHost host;
    host.Param("CAT", "7");
    host.Rows(readSERV, {{"111111101"}});
    EXPECT_TRUE(ListFirst(host));
    EXPECT_EQ(host.Effects(), Lines({whole, QueryLine(readSERV)}));
  }
  {
    ScriptedHost host;
    host.Param("CAT", "7");
    host.Rows(readSERV, {{Value::Null()}});
    EXPECT_TRUE(ListFirst(host));
    EXPECT_EQ(host.Effects(), Lines({whole, QueryLine(readSERV)}));
  }
  {
    ScriptedHost host;
    host.Param("CAT", "7");
    host.Rows(readSERV, {{"111111102"}});
    EXPECT_TRUE(ListFirst(host));
    EXPECT_EQ(host.Effects(), Lines({whole, QueryLine(readSERV), withoutTwo}));
  }
}

TEST(ExtensionADC, FirstDigitReportsTheStepThatFails) {
  {
    ScriptedHost host;
    host.Refuse("scSQLSelectValuesAndDesc");
    EXPECT_FALSE(ListFirst(host));
    EXPECT_EQ(host.Effects(), Lines({whole, MessageLine(context, "61021, \"ADC_D1\"")}));
  }
  {
    ScriptedHost host;
    host.Param("CAT", "7");
    host.Refuse("scRunQuery", readSERV);
    EXPECT_FALSE(ListFirst(host));
    EXPECT_EQ(host.Effects(), Lines({whole, QueryLine(readSERV), MessageLine(context, "62000")}));
  }
  {
    ScriptedHost host;
    host.Param("SERV_D7D8_SUB2", "02");
    host.Refuse("scRemoveFromValidValues");
    EXPECT_FALSE(ListFirst(host));
    EXPECT_EQ(host.Effects(), Lines({whole, withoutTwo, MessageLine(context, "61021, \"ADC_D1\"")}));
  }
}

TEST(ExtensionADC, LastDigitIsZeroAloneWithoutAccessType) {
  const std::string zeroAlone =
      "SELECT Value, ValDesc  FROM ParamValueDesc  WHERE Command = 'KSEXITEMPLATE' AND Param = 'ADC_D11' AND Value = "
      "'0' ";
  ScriptedHost host;
  EXPECT_TRUE(host.With([] { return ListADC_D11(ListOf("ADC_D11")); }));
  EXPECT_EQ(host.Calls(), Lines({Read("ACCTYP"), Call("scCollectValuesAndDesc", zeroAlone)}));
  host.Refuse("scCollectValuesAndDesc");
  EXPECT_FALSE(host.With([] { return ListADC_D11(ListOf("ADC_D11")); }));
  EXPECT_TRUE(host.Calls().ends_with(Lines({MessageLine("GetValidValForParam", "61021, \"ADC_D11\"")})));
}

TEST(ExtensionADC, LastDigitHasAllItsValuesWithAnAccessTypeAlsoWithAnEmptyText) {
  for (const Value& ACCTYP : {Value("1"), Value(""), Value::Null()}) {
    ScriptedHost host;
    host.Param("ACCTYP", ACCTYP);
    EXPECT_TRUE(host.With([] { return ListADC_D11(ListOf("ADC_D11")); }));
    EXPECT_EQ(host.Effects(), Lines({whole}));
  }
}

TEST(ExtensionADC, LastDigitHasNoListOnR6) {
  for (const char* release : {"R6", "R6/1"}) {
    ScriptedHost host;
    Action action = ListOf("ADC_D11");
    action.oaRelease = release;
    EXPECT_FALSE(host.With([&] { return ListADC_D11(action); }));
    EXPECT_EQ(host.Calls(), "");
  }
}

TEST(ExtensionADC, CheckOfTheAccessTypeResetsTheLastDigit) {
  ScriptedHost host;
  EXPECT_TRUE(host.With([] { return ResetADC_D11(ListOf("ACCTYP")); }));
  EXPECT_EQ(host.Calls(), Lines({Call("scResetParam", "ADC_D11")}));
  host.Refuse("scResetParam");
  EXPECT_FALSE(host.With([] { return ResetADC_D11(ListOf("ACCTYP")); }));
  EXPECT_TRUE(host.Calls().ends_with(Lines({MessageLine("StatCheck", "61013, \"ADC_D11\"")})));
}

bool Recheck(ScriptedHost& host) {
  return host.With([] { return RecheckADC_D1(ListOf("CAT")); });
}

const std::string askList = "scGetValidValues(\"ADC_D1\", out)";

TEST(ExtensionADC, RecheckKeepsAValueThatIsStillInTheList) {
  ScriptedHost host;
  host.Param("ADC_D1", "1");
  host.ValidValues("ADC_D1", {"0", "1"});
  EXPECT_TRUE(Recheck(host));
  EXPECT_EQ(host.Calls(),
            Lines({Read("ADC_D1"), Call("scResetParam", "ADC_D1"), askList, "scSetParamValue(\"ADC_D1\", \"1\")"}));
}

TEST(ExtensionADC, RecheckDropsAValueThatHasLeftTheListInSilence) {
  ScriptedHost host;
  host.Param("ADC_D1", "2");
  host.ValidValues("ADC_D1", {"0", "1"});
  EXPECT_TRUE(Recheck(host));
  EXPECT_EQ(host.Effects(), Lines({Call("scResetParam", "ADC_D1"), askList}));
}

TEST(ExtensionADC, RecheckAnswersFalseInSilenceForAStepThatFails) {
  for (const char* step : {"scResetParam", "scGetValidValues", "scSetParamValue"}) {
    ScriptedHost host;
    host.Param("ADC_D1", "1");
    host.ValidValues("ADC_D1", {"0", "1"});
    host.Refuse(step);
    EXPECT_FALSE(Recheck(host)) << step;
    EXPECT_EQ(host.Calls().find("scErrorMessage"), std::string::npos) << step;
  }
}

}  // namespace
}  // namespace cordboard
