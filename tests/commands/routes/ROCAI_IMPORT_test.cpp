#include <gtest/gtest.h>

#include "script/RunTimeFailure.h"
#include "support/ScriptedHost.h"

namespace cordboard {
namespace {

Action Act(const std::string& function, List parameters = {}) {
  return {.oaRelease = "R7", .FunctionName = function, .CmdName = "ROCAI_IMPORT", .CmdId = 7, .ParamList = parameters};
}

std::string Error(const std::string& context, const std::string& codeAndArguments) {
  return "scErrorMessage(0, 2, 2, \"" + context + "\", " + codeAndArguments + ")";
}

// --- Lists.

TEST(ROCAI_IMPORT, ListsTheFreeRoutes) {
  ScriptedHost host;
  EXPECT_TRUE(host.Run(Act("GetValidValForParam", {"ROU"})));
  EXPECT_EQ(host.Calls(), Lines({"scCollectSingleValues(\"Select ROU from ROUTE Where Used=False\")"}));
}

TEST(ROCAI_IMPORT, ReportsRoutesThatCouldNotBeCollected) {
  ScriptedHost host;
  host.Refuse("scCollectSingleValues");
  EXPECT_FALSE(host.Run(Act("GetValidValForParam", {"ROU"})));
  EXPECT_EQ(host.Calls(), Lines({"scCollectSingleValues(\"Select ROU from ROUTE Where Used=False\")",
                                 Error("GetValidValForParam", "61020, \"ROU\"")}));
}

struct Range {
  const char* parameter;
  Value SIG_D11;
  const char* highest;  // nothing where no range is pushed
};

class ROCAI_IMPORTRange : public testing::TestWithParam<Range> {};

TEST_P(ROCAI_IMPORTRange, FollowsSIG_D11) {
  const auto [parameter, SIG_D11, highest] = GetParam();
  ScriptedHost host;
  host.Param("SIG_D11", SIG_D11);
  EXPECT_TRUE(host.Run(Act("GetValidValForParam", {parameter})));
  const std::string read = "scGetParamValue(\"SIG_D11\")";
  EXPECT_EQ(host.Calls(), highest == nullptr
                              ? Lines({read})
                              : Lines({read, "scPushValidRangeValues(0, " + std::string(highest) + ")"}));
}

INSTANTIATE_TEST_SUITE_P(
    EachParameter, ROCAI_IMPORTRange,
    testing::Values(Range{"SEL_D3", "7", "3"}, Range{"SEL_D3", "8", "4"}, Range{"SEL_D3", "9", "3"},
                    Range{"SEL_D3", "0", "3"}, Range{"SEL_D3", "18", "3"}, Range{"SEL_D10", "2", "0"},
                    Range{"SEL_D10", "3", "1"}, Range{"SEL_D10", "4", "0"}, Range{"SEL_D10", "7", "0"},
                    Range{"SEL_D10", "8", "1"}, Range{"SEL_D10", "9", "0"}, Range{"SIG_D12", "0", "0"},
                    Range{"SIG_D12", "1", "1"}, Range{"SIG_D12", "2", "0"}, Range{"SIG_D12", "3", "1"},
                    Range{"SIG_D12", "4", "1"}, Range{"SIG_D12", "5", "0"}, Range{"SIG_D12", "8", "0"}));

INSTANTIATE_TEST_SUITE_P(TheLeadingDigitsCount, ROCAI_IMPORTRange,
                         testing::Values(Range{"SEL_D3", " 8 ", "4"}, Range{"SEL_D3", "8X", "4"},
                                         Range{"SEL_D3", "08", "4"}, Range{"SEL_D3", 8, "4"},
                                         Range{"SIG_D12", "A", "0"}));

INSTANTIATE_TEST_SUITE_P(WhileBlankTheListStaysAsItIs, ROCAI_IMPORTRange,
                         testing::Values(Range{"SEL_D3", Value(), nullptr}, Range{"SEL_D3", Value::Null(), nullptr},
                                         Range{"SEL_D3", "", nullptr}, Range{"SEL_D3", "  ", nullptr},
                                         Range{"SEL_D10", "", nullptr}, Range{"SIG_D12", "", nullptr}));

TEST(ROCAI_IMPORT, ARangeThatCouldNotBePushedIsReported) {
  for (const char* parameter : {"SEL_D3", "SEL_D10", "SIG_D12"}) {
    ScriptedHost host;
    host.Param("SIG_D11", "5");
    host.Refuse("scPushValidRangeValues");
    EXPECT_FALSE(host.Run(Act("GetValidValForParam", {parameter})));
    const std::string told =
        "scErrorMessage(0, 2, 2, \"GetValidValForParam\", 61020, \"" + std::string(parameter) + "\")\n";
    EXPECT_TRUE(host.Calls().ends_with(told)) << host.Calls();
  }
}

TEST(ROCAI_IMPORT, ServesNoOtherParameterAndNoOtherAction) {
  ScriptedHost host;
  EXPECT_FALSE(host.Run(Act("GetValidValForParam", {"SIG_D11"})));
  EXPECT_FALSE(host.Run(Act("GetValidValForParam", {"PROTOCOL"})));
  EXPECT_FALSE(host.Run(Act("StatCheck", {"SIG_D12"})));
  EXPECT_FALSE(host.Run(Act("StatCheck", {"PROTOCOL"})));
  EXPECT_FALSE(host.Run(Act("EditInfo", {"ROU"})));
  EXPECT_FALSE(host.Run(Act("DeleteInfo")));
  EXPECT_FALSE(host.Run(Act("GenerateCmd", {"12"})));
  EXPECT_EQ(host.Calls(), "");
}

// --- The check of SIG_D11.

TEST(ROCAI_IMPORT, TheCheckKeepsTheDigitsThatTheNewListsHave) {
  ScriptedHost host;
  host.Param("SIG_D11", "8");
  host.Param("SIG_D12", " 0 ");
  host.Param("SEL_D3", "4");
  host.Param("SEL_D10", "1");
  host.ValidValues("SIG_D12", {"0"});
  host.ValidValues("SEL_D3", {"0", "1", "2", "3", "4"});
  host.ValidValues("SEL_D10", {0, 1});
  EXPECT_TRUE(host.Run(Act("StatCheck", {"SIG_D11"})));
  EXPECT_EQ(host.Calls(),
            Lines({"scGetParamValue(\"SIG_D11\")", "scGetParamValue(\"SIG_D12\")", "scGetParamValue(\"SEL_D3\")",
                   "scGetParamValue(\"SEL_D10\")", "scResetParam(\"SIG_D12\")", "scGetValidValues(\"SIG_D12\", out)",
                   "scSetParamValue(\"SIG_D12\", 0)", "scResetParam(\"SEL_D3\")", "scGetValidValues(\"SEL_D3\", out)",
                   "scSetParamValue(\"SEL_D3\", 4)", "scResetParam(\"SEL_D10\")", "scGetValidValues(\"SEL_D10\", out)",
                   "scSetParamValue(\"SEL_D10\", 1)"}));
}

TEST(ROCAI_IMPORT, TheCheckDropsADigitThatHasLeftItsList) {
  ScriptedHost host;
  host.Param("SIG_D11", "3");
  host.Param("SEL_D3", "4");
  host.ValidValues("SEL_D3", {"0", "1", "2", "3"});
  EXPECT_TRUE(host.Run(Act("StatCheck", {"SIG_D11"})));
  EXPECT_EQ(host.Effects(), Lines({"scResetParam(\"SIG_D12\")", "scResetParam(\"SEL_D3\")",
                                   "scGetValidValues(\"SEL_D3\", out)", "scResetParam(\"SEL_D10\")"}));
}

TEST(ROCAI_IMPORT, TheCheckAsksForNoListOfABlankDigit) {
  for (const Value& blank : {Value(), Value::Null(), Value(""), Value("  ")}) {
    ScriptedHost host;
    for (const char* name : {"SIG_D12", "SEL_D3", "SEL_D10"}) host.Param(name, blank);
    EXPECT_TRUE(host.Run(Act("StatCheck", {"SIG_D11"})));
    EXPECT_EQ(host.Effects(),
              Lines({"scResetParam(\"SIG_D12\")", "scResetParam(\"SEL_D3\")", "scResetParam(\"SEL_D10\")"}));
  }
}

TEST(ROCAI_IMPORT, AResetThatFailsMakesTheCheckFalseAndTheCheckGoesOn) {
  ScriptedHost host;
  host.Param("SIG_D12", "1");
  host.Param("SEL_D10", "1");
  host.ValidValues("SIG_D12", {"0", "1"});
  host.ValidValues("SEL_D10", {"0", "1"});
  host.Refuse("scResetParam", "SIG_D12");
  EXPECT_FALSE(host.Run(Act("StatCheck", {"SIG_D11"})));
  EXPECT_EQ(host.Effects(), Lines({"scResetParam(\"SIG_D12\")", Error("StatCheck", "61013, \"SIG_D12\""),
                                   "scGetValidValues(\"SIG_D12\", out)", "scSetParamValue(\"SIG_D12\", 1)",
                                   "scResetParam(\"SEL_D3\")", "scResetParam(\"SEL_D10\")",
                                   "scGetValidValues(\"SEL_D10\", out)", "scSetParamValue(\"SEL_D10\", 1)"}));
}

TEST(ROCAI_IMPORT, EachResetIsReportedUnderItsOwnName) {
  ScriptedHost host;
  host.Refuse("scResetParam");
  EXPECT_FALSE(host.Run(Act("StatCheck", {"SIG_D11"})));
  EXPECT_EQ(host.Effects(), Lines({"scResetParam(\"SIG_D12\")", Error("StatCheck", "61013, \"SIG_D12\""),
                                   "scResetParam(\"SEL_D3\")", Error("StatCheck", "61013, \"SEL_D3\""),
                                   "scResetParam(\"SEL_D10\")", Error("StatCheck", "61013, \"SEL_D10\"")}));
}

TEST(ROCAI_IMPORT, ADigitThatCannotBePutBackIsReportedWithoutContextAndLeavesTheAnswer) {
  ScriptedHost host;
  host.Param("SEL_D3", "2");
  host.ValidValues("SEL_D3", {"0", "1", "2", "3"});
  host.Refuse("scSetParamValue");
  EXPECT_TRUE(host.Run(Act("StatCheck", {"SIG_D11"})));
  EXPECT_EQ(host.Effects(),
            Lines({"scResetParam(\"SIG_D12\")", "scResetParam(\"SEL_D3\")", "scGetValidValues(\"SEL_D3\", out)",
                   "scSetParamValue(\"SEL_D3\", 2)", Error("", "61016, \"SEL_D3\""), "scResetParam(\"SEL_D10\")"}));
}

TEST(ROCAI_IMPORT, AListWithoutBoundsFailsTheCall) {
  ScriptedHost host;
  host.Param("SIG_D12", "1");
  host.Refuse("scGetValidValues", "SIG_D12");
  EXPECT_THROW(host.Run(Act("StatCheck", {"SIG_D11"})), RunTimeFailure);
  EXPECT_EQ(host.Effects(), Lines({"scResetParam(\"SIG_D12\")", "scGetValidValues(\"SIG_D12\", out)"}));
}

// --- Add.

const std::string insertCall = "scSQLInsert(\"ROCAI_IMPORT\", [\"CMDID\", \"ROU\", \"SEL\"], [1001, \"3\", Empty])";

TEST(ROCAI_IMPORT, AddInsertsTheFormAndLeavesTheRouteFree) {
  ScriptedHost host;
  host.Param("ROU", "3");
  EXPECT_TRUE(host.Run(Act("SetInfo", {"CMDID", "ROU", "SEL"})));
  EXPECT_EQ(host.Calls(), Lines({"scStartTransaction()", "scBuildCmdID()", "scGetParamValue(\"ROU\")",
                                 "scGetParamValue(\"SEL\")", insertCall, "scCommitTransaction()"}));
}

TEST(ROCAI_IMPORT, AddReportsAFailedInsertOnce) {
  ScriptedHost host;
  host.Param("ROU", "3");
  host.Refuse("scSQLInsert");
  host.Refuse("scRollBackTransaction");
  EXPECT_FALSE(host.Run(Act("SetInfo", {"CMDID", "ROU", "SEL"})));
  EXPECT_EQ(host.Effects(), Lines({"scStartTransaction()", "scBuildCmdID()", insertCall,
                                   Error("Add: ROCAI_IMPORT", "61024, \"ROCAI_IMPORT\""), "scRollBackTransaction()",
                                   Error("Add: ROCAI_IMPORT", "62012")}));
}

TEST(ROCAI_IMPORT, AddReportsItsTransaction) {
  {
    ScriptedHost host;
    host.Refuse("scStartTransaction");
    EXPECT_FALSE(host.Run(Act("SetInfo", {"CMDID"})));
    EXPECT_EQ(host.Calls(),
              Lines({"scStartTransaction()", Error("Add: ROCAI_IMPORT", "62010"), "scRollBackTransaction()"}));
  }
  {
    ScriptedHost host;
    host.Refuse("scCommitTransaction");
    EXPECT_TRUE(host.Run(Act("SetInfo", {"CMDID"})));
    EXPECT_TRUE(host.Calls().ends_with(Lines({"scCommitTransaction()", Error("Add: ROCAI_IMPORT", "62011")})));
  }
}

}  // namespace
}  // namespace cordboard
