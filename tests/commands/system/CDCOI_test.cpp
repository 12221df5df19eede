#include <gtest/gtest.h>

#include "script/RunTimeFailure.h"
#include "support/ScriptedHost.h"

namespace cordboard {
namespace {

Action Act(const std::string& function, List parameters = {}, const std::string& oaRelease = "R7") {
  return {.oaRelease = oaRelease, .FunctionName = function, .CmdName = "CDCOI", .CmdId = 7, .ParamList = parameters};
}

// --- The list of CUST.

const std::string collect =
    "scCollectValuesAndDesc(\"SELECT CUST, DESCRIPTION {NL} FROM CUSTOMERS {NL} ORDER BY VAL(CUST)\", \"dynamic\")";
const std::string subtract = "scSubtractSingleValues(\"SELECT CUST FROM CDCOI\")";
const std::string listNotBuilt = "scErrorMessage(0, 2, 2, \"GetValuesFor_CUST\", 61021, \"CUST\")";

TEST(CDCOI, ListsTheCustomersThatHaveNoRecordOnEveryRelease) {
  for (const char* oaRelease : {"R6", "R6/1", "R8"}) {
    ScriptedHost host;
    EXPECT_TRUE(host.Run(Act("GetValidValForParam", {"CUST"}, oaRelease)));
    EXPECT_EQ(host.Calls(), Lines({collect, subtract}));
  }
}

TEST(CDCOI, ReportsAListOfCustomersThatCouldNotBeBuilt) {
  {
    ScriptedHost host;
    host.Refuse("scCollectValuesAndDesc");
    EXPECT_FALSE(host.Run(Act("GetValidValForParam", {"CUST"})));
    EXPECT_EQ(host.Calls(), Lines({collect, listNotBuilt}));
  }
  {
    ScriptedHost host;
    host.Refuse("scSubtractSingleValues");
    EXPECT_FALSE(host.Run(Act("GetValidValForParam", {"CUST"})));
    EXPECT_EQ(host.Calls(), Lines({collect, subtract, listNotBuilt}));
  }
}

TEST(CDCOI, ServesNoOtherParameterAndGeneratesNothing) {
  ScriptedHost host;
  EXPECT_FALSE(host.Run(Act("GetValidValForParam", {"INTDIV"})));
  EXPECT_FALSE(host.Run(Act("StatCheck", {"CUST"})));
  EXPECT_FALSE(host.Run(Act("GenerateCmd", {1})));
  EXPECT_EQ(host.Calls(), "");
}

// --- The check of a digit string.

struct Digits {
  Value value;
  int message;  // 60021, 60022, or 0 where nothing is reported
};

class CDCOIDigits : public testing::TestWithParam<Digits> {};

TEST_P(CDCOIDigits, FollowTheRuleOfTheDigitB) {
  const auto [value, message] = GetParam();
  for (const std::string parameter : {"INTDIV", "PRIDIV", "PUBDIV"}) {
    ScriptedHost host;
    host.Param(parameter, value);
    EXPECT_EQ(host.Run(Act("StatCheck", {parameter})), message != 60021);
    const std::string reported =
        "scErrorMessage(0, 2, 2, \"StaticCheck\", " + std::to_string(message) + ", \"" + parameter + "\")";
    EXPECT_EQ(
        host.Effects(),
        message == 60021
            ? Lines({"scPrintToDebugWindow(\" The number has to end with a B(#), resetting param ...\")", reported})
        : message == 60022
            ? Lines({"scPrintToDebugWindow(\" The value of this param cannot have a B(#) in between, resetting "
                     "param ...\")",
                     reported})
            : "");
  }
}

INSTANTIATE_TEST_SUITE_P(EveryShape, CDCOIDigits,
                         testing::Values(Digits{Value(), 0}, Digits{"", 0}, Digits{"1", 0}, Digits{"123", 0},
                                         Digits{12, 0}, Digits{"A12B", 0}, Digits{"a12b", 0}, Digits{"AB", 0},
                                         Digits{"12B", 0}, Digits{"1A2", 0}, Digits{"B", 0}, Digits{"b", 0},
                                         Digits{"BB", 60022}, Digits{"B1B", 60022}, Digits{"b1b", 60022},
                                         Digits{"12B3", 60022}, Digits{"1b2b3", 60022}, Digits{"1BB", 60022},
                                         Digits{"A1B2B", 60022}, Digits{"A", 60021}, Digits{"a", 60021},
                                         Digits{"A12", 60021}, Digits{"a12", 60021}, Digits{"B12", 60021},
                                         Digits{"b1", 60021}, Digits{"AB1", 60021}));

TEST(CDCOI, CheckOfANullFailsTheCall) {
  ScriptedHost host;
  host.Param("INTDIV", Value::Null());
  EXPECT_THROW(host.Run(Act("StatCheck", {"INTDIV"})), RunTimeFailure);
}

// --- Add.

const std::string readForm =
    Lines({"scGetParamValue(\"INTDIV\")", "scGetParamValue(\"PRIDIV\")", "scGetParamValue(\"PUBDIV\")",
           "scGetParamValue(\"CUST\")", "scGetParamValue(\"DESCRIPTION\")"});
const std::string countCustomer = "SELECT COUNT(*) FROM CDCOI WHERE CUST = '3' ";
const std::string countNone = "SELECT COUNT(*) FROM CDCOI WHERE CUST IS NULL";
const std::string insert =
    "scSQLInsert(\"CDCOI\", [\"CMDID\", \"INTDIV\", \"PRIDIV\", \"PUBDIV\", \"CUST\", \"DESCRIPTION\"], "
    "[1001, \"A1B\", Empty, \"22\", \"3\", \"Hotel\"])";
const std::string refusal = "scErrorMessage(0, 2, 2, \"Add: CDCOI\", 60051, \"CUSTOMER\")";

std::string Query(const std::string& sql) { return "scRunQuery(\"" + sql + "\", out)"; }

void FillForm(ScriptedHost& host) {
  host.Param("INTDIV", "A1B");
  host.Param("PUBDIV", "22");
  host.Param("CUST", "3");
  host.Param("DESCRIPTION", "Hotel");
}

TEST(CDCOI, AddTakesAnIdentifierBeforeTheTransactionAndWritesTheSixColumns) {
  ScriptedHost host;
  FillForm(host);
  host.Rows(countCustomer, {{0}});
  EXPECT_TRUE(host.Run(Act("SetInfo")));
  EXPECT_EQ(host.Calls(), Lines({"scBuildCmdID()", "scStartTransaction()"}) + readForm +
                              Lines({Query(countCustomer), insert, "scCommitTransaction()"}));
}

TEST(CDCOI, AddOnR6DoesNotCountTheRecordsOfTheCustomer) {
  ScriptedHost host;
  FillForm(host);
  EXPECT_TRUE(host.Run(Act("SetInfo", {}, "R6")));
  EXPECT_EQ(host.Calls(),
            Lines({"scBuildCmdID()", "scStartTransaction()"}) + readForm + Lines({insert, "scCommitTransaction()"}));
}

TEST(CDCOI, AddRefusesASecondRecordOfACustomerOnEveryOtherRelease) {
  for (const char* oaRelease : {"R6/1", "R7", "R8", "r6", ""}) {
    ScriptedHost host;
    FillForm(host);
    host.Rows(countCustomer, {{1}});
    EXPECT_FALSE(host.Run(Act("SetInfo", {}, oaRelease)));
    EXPECT_EQ(host.Effects(), Lines({"scBuildCmdID()", "scStartTransaction()", Query(countCustomer), refusal,
                                     "scRollBackTransaction()"}));
  }
}

TEST(CDCOI, AddRefusesASecondRecordWithoutCustomer) {
  for (const Value& CUST : {Value(), Value::Null(), Value("")}) {
    ScriptedHost host;
    host.Param("CUST", CUST);
    host.Rows(countNone, {{"0"}});
    host.Rows(countNone, {{"1"}});
    EXPECT_TRUE(host.Run(Act("SetInfo")));
    EXPECT_FALSE(host.Run(Act("SetInfo")));
    EXPECT_EQ(host.Effects(), Lines({"scBuildCmdID()", "scStartTransaction()", Query(countNone),
                                     "scSQLInsert(\"CDCOI\", [\"CMDID\", \"INTDIV\", \"PRIDIV\", \"PUBDIV\", \"CUST\", "
                                     "\"DESCRIPTION\"], [1001, Empty, Empty, Empty, " +
                                         TraceText(CUST) + ", Empty])",
                                     "scCommitTransaction()", "scBuildCmdID()", "scStartTransaction()",
                                     Query(countNone), refusal, "scRollBackTransaction()"}));
  }
}

TEST(CDCOI, AddReportsAnInsertThatFailedWithTheCommandTwice) {
  ScriptedHost host;
  FillForm(host);
  host.Rows(countCustomer, {{0}});
  host.Refuse("scSQLInsert");
  EXPECT_FALSE(host.Run(Act("SetInfo")));
  EXPECT_EQ(host.Effects(),
            Lines({"scBuildCmdID()", "scStartTransaction()", Query(countCustomer), insert,
                   "scErrorMessage(0, 2, 2, \"Add: CDCOI\", 60000, \"CDCOI\", \"CDCOI\")", "scRollBackTransaction()"}));
}

TEST(CDCOI, AddWithoutATransactionReadsNothingAndRollsBack) {
  ScriptedHost host;
  host.Refuse("scStartTransaction");
  host.Refuse("scRollBackTransaction");
  EXPECT_FALSE(host.Run(Act("SetInfo")));
  EXPECT_EQ(host.Calls(),
            Lines({"scBuildCmdID()", "scStartTransaction()", "scErrorMessage(0, 2, 2, \"Add: CDCOI\", 62010)",
                   "scRollBackTransaction()", "scErrorMessage(0, 2, 2, \"Add: CDCOI\", 62012)"}));
}

TEST(CDCOI, AddWhoseCommitFailsReportsThatAndStillAnswersTrue) {
  ScriptedHost host;
  FillForm(host);
  host.Refuse("scCommitTransaction");
  EXPECT_TRUE(host.Run(Act("SetInfo", {}, "R6")));
  EXPECT_EQ(host.Effects(), Lines({"scBuildCmdID()", "scStartTransaction()", insert, "scCommitTransaction()",
                                   "scErrorMessage(0, 2, 2, \"Add: CDCOI\", 62011)"}));
}

TEST(CDCOI, AddWithoutACountFailsTheCallAndLeavesTheTransactionOpen) {
  ScriptedHost host;
  FillForm(host);
  host.Refuse("scRunQuery", countCustomer);
  EXPECT_THROW(host.Run(Act("SetInfo")), RunTimeFailure);
  EXPECT_EQ(host.Effects(), Lines({"scBuildCmdID()", "scStartTransaction()", Query(countCustomer)}));
}

// --- Edit and delete.

TEST(CDCOI, EditWritesTheParametersWithoutLookingForOtherRecordsOfTheCustomer) {
  ScriptedHost host;
  FillForm(host);
  EXPECT_TRUE(host.Run(Act("EditInfo", {"CUST", "PRIDIV"})));
  EXPECT_EQ(host.Effects(),
            Lines({"scStartTransaction()", "scRunQuery(\"UPDATE CDCOI SET CUST = '3'{NL} WHERE CmdId = 7\")",
                   "scRunQuery(\"UPDATE CDCOI SET PRIDIV = Null{NL} WHERE CmdId = 7\")", "scCommitTransaction()"}));
}

TEST(CDCOI, DeleteRemovesTheRecord) {
  ScriptedHost host;
  EXPECT_TRUE(host.Run(Act("DeleteInfo")));
  EXPECT_EQ(host.Calls(), Lines({"scStartTransaction()", "scRunQuery(\"DELETE * FROM CDCOI{NL} WHERE CmdId = 7\")",
                                 "scCommitTransaction()"}));
}

}  // namespace
}  // namespace cordboard
