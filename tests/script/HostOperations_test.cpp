#include "script/HostOperations.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "script/CurrentHost.h"
#include "script/TracingHost.h"
#include "support/EveryOperation.h"
#include "support/Outcome.h"

namespace cordboard {
namespace {

struct FreeCall {
  std::function<void()> perform;
  std::string noted;  // the call and its answer, as the host sees them
};

List list;
RowSet rows;
Value out;

// In the order of script/HostOperations.h.
const std::vector<FreeCall> freeCalls = {
    {[] { scGetParamValue("DIR"); }, "scGetParamValue(\"DIR\") = \"of the form\""},
    {[] { scSetParamValue("LIM", 1); }, "scSetParamValue(\"LIM\", 1) = True"},
    {[] { scResetParam("EQU"); }, "scResetParam(\"EQU\") = True"},
    {[] { scSetParamOptional("CUST", false); }, "scSetParamOptional(\"CUST\", False) = True"},
    {[] { scSetCanHaveParamRange("NUMSE", true); }, "scSetCanHaveParamRange(\"NUMSE\", True) = "},
    {[] { scSetCanHaveParamMultiple("NUMSE", false); }, "scSetCanHaveParamMultiple(\"NUMSE\", False) = "},
    {[] { scIsValueEqual("CP"); }, "scIsValueEqual(\"CP\") = Null"},
    {[] { scGetValueArray("NUM", list); }, "scGetValueArray(\"NUM\", out) = True, [\"1\", \"2\"]"},
    {[] { scGetPreviousValue(out); }, "scGetPreviousValue(out) = \"before\""},
    {[] { scActiveDefinition("KEY", 3); }, "scActiveDefinition(\"KEY\", 3) = True"},
    {[] { SetTemplate(true); }, "SetTemplate(True) = "},

    {[] { scCollectSingleValues("SELECT 1"); }, "scCollectSingleValues(\"SELECT 1\") = True"},
    {[] { scCollectSingleValues("SELECT 1", Value()); }, "scCollectSingleValues(\"SELECT 1\", Empty) = True"},
    {[] { scAddSingleValues("SELECT 2"); }, "scAddSingleValues(\"SELECT 2\") = True"},
    {[] { scSubtractSingleValues("SELECT 3"); }, "scSubtractSingleValues(\"SELECT 3\") = True"},
    {[] { scCollectValuesAndDesc("SELECT 4"); }, "scCollectValuesAndDesc(\"SELECT 4\") = True"},
    {[] { scCollectValuesAndDesc("SELECT 4", "dynamic"); }, "scCollectValuesAndDesc(\"SELECT 4\", \"dynamic\") = True"},
    {[] { scSQLSelectValuesAndDesc(); }, "scSQLSelectValuesAndDesc() = True"},
    {[] { scSQLSelectValuesAndDescByDefinition(2); }, "scSQLSelectValuesAndDescByDefinition(2) = True"},
    {[] { scPushValidValues(Value("9")); }, "scPushValidValues(\"9\") = True"},
    {[] {
       scPushValidValues(List{"1", "2"}, "LIM");
     },
     "scPushValidValues([\"1\", \"2\"], \"LIM\") = True"},
    {[] { scPushValidRangeValues(0, 31); }, "scPushValidRangeValues(0, 31) = True"},
    {[] { scRemoveFromValidValues("KEY", "5"); }, "scRemoveFromValidValues(\"KEY\", \"5\") = True"},
    {[] { scRemoveFromValidRangeValues("KEY", 1, 4); }, "scRemoveFromValidRangeValues(\"KEY\", 1, 4) = True"},
    {[] { scGetValidValues("LIM", list); }, "scGetValidValues(\"LIM\", out) = True, [\"7\"]"},
    {[] { scGetNumberOfValidValues("KEY", 4, out); }, "scGetNumberOfValidValues(\"KEY\", 4, out) = True, 12"},

    {[] { scRunQuery("DELETE"); }, "scRunQuery(\"DELETE\") = True"},
    {[] { scRunQuery("SELECT", rows); }, "scRunQuery(\"SELECT\", out) = True, [[\"100\", \"101\"], [\"EX\", Null]]"},
    {[] { scRunQuery("SELECT", rows, "static"); },
     "scRunQuery(\"SELECT\", out, \"static\") = True, [[\"100\", \"101\"], [\"EX\", Null]]"},
    {[] { scRunQueryOn("site", "DELETE"); }, "scRunQuery(\"DELETE\", Null, \"site\") = True"},
    {[] { scRunQueryOn(std::nullopt, "DELETE"); }, "scRunQuery(\"DELETE\") = True"},
    {[] { scSQLInsert("T", {"A"}, {1}); }, "scSQLInsert(\"T\", [\"A\"], [1]) = True"},
    {[] { scSQLUpdate("T", {"A"}, {1}, {"B"}, {2}); }, "scSQLUpdate(\"T\", [\"A\"], [1], [\"B\"], [2]) = True"},
    {[] { scSQLSelect("T", {"A"}, {"B"}, {2}); }, "scSQLSelect(\"T\", [\"A\"], [\"B\"], [2]) = rows [[\"selected\"]]"},
    {[] { scBuildCmdID(); }, "scBuildCmdID() = 1001"},
    {[] { scStartTransaction(); }, "scStartTransaction() = True"},
    {[] { scCommitTransaction(); }, "scCommitTransaction() = True"},
    {[] { scRollBackTransaction(); }, "scRollBackTransaction() = True"},

    {[] { scNANSIinitiate("100", "EX", out); }, "scNANSIinitiate(\"100\", \"EX\", out) = True, 60010"},
    {[] { scNANSIremoveFromBlockedRange("100", "EX"); }, "scNANSIremoveFromBlockedRange(\"100\", \"EX\") = True"},
    {[] { scGetAutoEquOptionValue(out); }, "scGetAutoEquOptionValue(out) = True, \" ORDER BY EQU\""},
    {[] { scFilterEQU(2, "2"); }, "scFilterEQU(2, \"2\") = "},

    {[] { scErrorMessage(0, 2, 2, "Add: NANSI", 60010); }, "scErrorMessage(0, 2, 2, \"Add: NANSI\", 60010) = "},
    {[] {
       scErrorMessage(0, 2, 1, "", 61007, {"a", 2});
     },
     "scErrorMessage(0, 2, 1, \"\", 61007, \"a\", 2) = "},
    {[] { scPrintToDebugWindow("a line"); }, "scPrintToDebugWindow(\"a line\") = "},
};

TEST(HostOperations, EachGoesToTheCurrentHostWithWhatItIsGivenAndNoMore) {
  for (const FreeCall& call : freeCalls) {
    const auto host = std::make_shared<TracingHost>(AnsweringHost(Behaviour::AnswersTrue));
    SetCurrentHost(host);
    call.perform();
    SetCurrentHost(nullptr);
    ASSERT_EQ(host->calls().size(), 1U) << call.noted;
    EXPECT_EQ(host->calls()[0].call + " = " + host->calls()[0].answer, call.noted);
  }
}

TEST(HostOperations, EachGivesTheAnswerOfTheHostBack) {
  SetCurrentHost(AnsweringHost(Behaviour::AnswersFalse));
  EXPECT_FALSE(scSetParamValue("LIM", 1));
  EXPECT_FALSE(scRunQuery("DELETE"));
  EXPECT_FALSE(scRunQuery("SELECT", rows));
  EXPECT_FALSE(scStartTransaction());
  EXPECT_EQ(scGetParamValue("DIR"), Value("of the form"));
  EXPECT_EQ(scIsValueEqual("CP"), Value::Null());
  EXPECT_EQ(scSQLSelect("T", {}, {}, {})[0][0], Value("selected"));
  EXPECT_EQ(scBuildCmdID(), Value(1001));
  SetCurrentHost(nullptr);
}

TEST(HostOperations, EachFailsWithNoHostWhereThereIsNone) {
  SetCurrentHost(nullptr);
  for (const FreeCall& call : freeCalls) {
    EXPECT_EQ(Outcome([&] {
                call.perform();
                return "done";
              }),
              "NoHost")
        << call.noted;
  }
}

}  // namespace
}  // namespace cordboard
