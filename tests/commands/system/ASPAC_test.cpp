#include <gtest/gtest.h>

#include "script/RunTimeFailure.h"
#include "support/ScriptedHost.h"

namespace cordboard {
namespace {

const List columns{"CMDID", "PARNUM", "PARVAL"};

Action Act(const std::string& function, List parameters = {}) {
  return {.oaRelease = "R7", .FunctionName = function, .CmdName = "ASPAC", .CmdId = 7, .ParamList = parameters};
}

const std::string bounds = "SELECT MINPARVAL, MAXPARVAL FROM PARNUMVAL WHERE PARNUM = '12'";
const std::string boundsCall = "scRunQuery(\"" + bounds + "\", out, \"static\")";

void FillForm(ScriptedHost& host, const Value& PARVAL) {
  host.Param("PARNUM", "12");
  host.Param("PARVAL", PARVAL);
}

// --- The list of PARNUM.

const std::string collect =
    "scCollectSingleValues(\"SELECT PARNUM FROM PARNUMVAL WHERE USED = YES ORDER BY val( PARNUM) \", \"static\")";
const std::string subtract = "scSubtractSingleValues(\"SELECT PARNUM FROM ASPAC \")";

TEST(ASPAC, ListsTheParametersOfTheReleaseThatHaveNoRecord) {
  ScriptedHost host;
  EXPECT_TRUE(host.Run(Act("GetValidValForParam", {"PARNUM"})));
  EXPECT_EQ(host.Calls(), Lines({collect, subtract}));
}

TEST(ASPAC, OnlyTheSecondStepOfTheListCounts) {
  {
    ScriptedHost host;
    host.Refuse("scCollectSingleValues");
    EXPECT_TRUE(host.Run(Act("GetValidValForParam", {"PARNUM"})));
    EXPECT_EQ(host.Calls(), Lines({collect, subtract}));
  }
  {
    ScriptedHost host;
    host.Refuse("scSubtractSingleValues");
    EXPECT_FALSE(host.Run(Act("GetValidValForParam", {"PARNUM"})));
    EXPECT_EQ(host.Calls(),
              Lines({collect, subtract, "scErrorMessage(0, 2, 2, \"GetValidValForParam\", 61020, \"PARNUM\")"}));
  }
}

TEST(ASPAC, ServesNoOtherParameterAndHasNoChecks) {
  ScriptedHost host;
  EXPECT_FALSE(host.Run(Act("GetValidValForParam", {"PARVAL"})));
  EXPECT_FALSE(host.Run(Act("StatCheck", {"PARVAL"})));
  EXPECT_EQ(host.Calls(), "");
}

// --- The bounds, at the add and at the edit.

struct Bounds {
  Value PARVAL;
  Value least;
  Value greatest;
  bool inside;
};

class ASPACBounds : public testing::TestWithParam<Bounds> {};

TEST_P(ASPACBounds, HoldForAddAndEdit) {
  const auto [PARVAL, least, greatest, inside] = GetParam();
  for (const std::string function : {"SetInfo", "EditInfo"}) {
    ScriptedHost host;
    FillForm(host, PARVAL);
    host.Rows(bounds, {{least}, {greatest}});
    EXPECT_EQ(host.Run(Act(function, columns)), inside);
    const std::string context = function == "SetInfo" ? "Add: ASPAC" : "Edit: ASPAC";
    const std::string refusal = "scErrorMessage(0, 2, 2, \"" + context + "\", 61043, \"PARVAL\", " + TraceText(least) +
                                ", " + TraceText(greatest) + ")\n";
    EXPECT_EQ(host.Effects().find(refusal) == std::string::npos, inside) << host.Effects();
    EXPECT_TRUE(host.Effects().ends_with(inside ? "scCommitTransaction()\n" : refusal + "scRollBackTransaction()\n"))
        << host.Effects();
  }
}

INSTANTIATE_TEST_SUITE_P(BothSidesOfBothBounds, ASPACBounds,
                         testing::Values(Bounds{"5", 5, 100, true}, Bounds{"4", 5, 100, false},
                                         Bounds{"100", 5, 100, true}, Bounds{"101", 5, 100, false},
                                         Bounds{"9", "5", "100", true}, Bounds{"4", "5", "100", false},
                                         Bounds{"101", "5", "100", false}, Bounds{"100.5", 5, 100, false},
                                         // A value counts by its leading digits.
                                         Bounds{"50A", 5, 100, true}, Bounds{"A", 5, 100, false},
                                         Bounds{"A", 0, 100, true}, Bounds{Value(), 0, 100, true},
                                         Bounds{"", 1, 100, false}, Bounds{-1, 0, 100, false},
                                         // A bound that is null bounds nothing.
                                         Bounds{"4", Value::Null(), 100, true}, Bounds{"101", 5, Value::Null(), true}));

// --- Add.

const std::string insert = "scSQLInsert(\"ASPAC\", [\"CMDID\", \"PARNUM\", \"PARVAL\"], [1001, \"12\", \"50\"])";

TEST(ASPAC, AddInsertsAValueInsideTheBounds) {
  ScriptedHost host;
  FillForm(host, "50");
  host.Rows(bounds, {{5}, {100}});
  EXPECT_TRUE(host.Run(Act("SetInfo", columns)));
  EXPECT_EQ(host.Calls(), Lines({"scStartTransaction()", "scBuildCmdID()", "scGetParamValue(\"PARNUM\")",
                                 "scGetParamValue(\"PARVAL\")", boundsCall, insert, "scCommitTransaction()"}));
}

TEST(ASPAC, AddLeavesFurtherColumnsWithoutAValue) {
  ScriptedHost host;
  FillForm(host, "50");
  host.Param("DESCRIPTION", "text");
  host.Rows(bounds, {{5}, {100}});
  EXPECT_TRUE(host.Run(Act("SetInfo", {"DESCRIPTION", "PARVAL", "PARNUM", "CmdId"})));
  EXPECT_EQ(host.Calls(),
            Lines({"scStartTransaction()", "scGetParamValue(\"PARVAL\")", "scGetParamValue(\"PARNUM\")", boundsCall,
                   "scSQLInsert(\"ASPAC\", [\"DESCRIPTION\", \"PARVAL\", \"PARNUM\", \"CmdId\"], "
                   "[Empty, \"50\", \"12\", Empty])",
                   "scCommitTransaction()"}));
}

TEST(ASPAC, AddOfAnUnknownParameterWritesNothingCommitsAndAnswersTrue) {
  ScriptedHost host;
  FillForm(host, "50");
  host.Rows(bounds, {});
  EXPECT_TRUE(host.Run(Act("SetInfo", columns)));
  EXPECT_EQ(host.Effects(), Lines({"scStartTransaction()", "scBuildCmdID()", boundsCall, "scCommitTransaction()"}));
}

TEST(ASPAC, AddStopsAtTheStepThatFails) {
  {
    ScriptedHost host;
    FillForm(host, "50");
    host.Refuse("scRunQuery", bounds);
    EXPECT_FALSE(host.Run(Act("SetInfo", columns)));
    EXPECT_EQ(host.Effects(),
              Lines({"scStartTransaction()", "scBuildCmdID()", boundsCall,
                     "scErrorMessage(0, 2, 2, \"Add: ASPAC\", 61020, \"PARNUM\")", "scRollBackTransaction()"}));
  }
  {
    ScriptedHost host;
    FillForm(host, "50");
    host.Rows(bounds, {{5}, {100}});
    host.Refuse("scSQLInsert");
    EXPECT_FALSE(host.Run(Act("SetInfo", columns)));
    EXPECT_EQ(host.Effects(),
              Lines({"scStartTransaction()", "scBuildCmdID()", boundsCall, insert,
                     "scErrorMessage(0, 2, 2, \"Add: ASPAC\", 61024, \"ASPAC\")", "scRollBackTransaction()"}));
  }
  {
    ScriptedHost host;
    host.Refuse("scStartTransaction");
    EXPECT_FALSE(host.Run(Act("SetInfo", columns)));
    EXPECT_EQ(host.Calls(), Lines({"scStartTransaction()", "scErrorMessage(0, 2, 2, \"Add: ASPAC\", 62010)",
                                   "scRollBackTransaction()"}));
  }
}

TEST(ASPAC, AddOfANullFailsTheCallAndLeavesTheTransactionOpen) {
  ScriptedHost host;
  FillForm(host, Value::Null());
  host.Rows(bounds, {{5}, {100}});
  EXPECT_THROW(host.Run(Act("SetInfo", columns)), RunTimeFailure);
  EXPECT_EQ(host.Effects(), Lines({"scStartTransaction()", "scBuildCmdID()", boundsCall}));
}

// --- Edit.

const std::string update = "UPDATE ASPAC SET PARNUM = '12', PARVAL = '50' WHERE CmdId = 7";
const std::string updateCall = "scRunQuery(\"" + update + "\")";

TEST(ASPAC, EditWritesBothColumnsWhateverHasChanged) {
  ScriptedHost host;
  FillForm(host, "50");
  host.Rows(bounds, {{5}, {100}});
  EXPECT_TRUE(host.Run(Act("EditInfo", {"PARVAL"})));
  EXPECT_EQ(host.Calls(), Lines({"scStartTransaction()", "scGetParamValue(\"PARNUM\")", "scGetParamValue(\"PARVAL\")",
                                 boundsCall, updateCall, "scCommitTransaction()"}));
}

TEST(ASPAC, EditToAnUnknownParameterWritesNothingCommitsAndAnswersTrue) {
  ScriptedHost host;
  FillForm(host, "50");
  host.Rows(bounds, {});
  EXPECT_TRUE(host.Run(Act("EditInfo")));
  EXPECT_EQ(host.Effects(), Lines({"scStartTransaction()", boundsCall, "scCommitTransaction()"}));
}

TEST(ASPAC, EditStopsAtTheStepThatFails) {
  {
    ScriptedHost host;
    FillForm(host, "50");
    host.Refuse("scRunQuery", bounds);
    EXPECT_FALSE(host.Run(Act("EditInfo")));
    EXPECT_EQ(host.Effects(),
              Lines({"scStartTransaction()", boundsCall, "scErrorMessage(0, 2, 2, \"Edit: ASPAC\", 61020, \"PARNUM\")",
                     "scRollBackTransaction()"}));
  }
  {
    ScriptedHost host;
    FillForm(host, "50");
    host.Rows(bounds, {{5}, {100}});
    host.Refuse("scRunQuery", update);
    EXPECT_FALSE(host.Run(Act("EditInfo")));
    EXPECT_EQ(host.Effects(),
              Lines({"scStartTransaction()", boundsCall, updateCall,
                     "scErrorMessage(0, 2, 2, \"Edit: ASPAC\", 61024, \"ASPAC\")", "scRollBackTransaction()"}));
  }
}

// --- Delete.

const std::string deleteCall = "scRunQuery(\"DELETE * FROM ASPAC{NL} WHERE CmdId = 7\")";

TEST(ASPAC, DeleteRemovesTheRecord) {
  ScriptedHost host;
  EXPECT_TRUE(host.Run(Act("DeleteInfo")));
  EXPECT_EQ(host.Calls(), Lines({"scStartTransaction()", deleteCall, "scCommitTransaction()"}));
}

TEST(ASPAC, DeleteThatFailsRollsBackWithoutAMessageOfItsOwn) {
  ScriptedHost host;
  host.Refuse("scRunQuery");
  host.Refuse("scRollBackTransaction");
  EXPECT_FALSE(host.Run(Act("DeleteInfo")));
  EXPECT_EQ(host.Calls(), Lines({"scStartTransaction()", deleteCall, "scRollBackTransaction()",
                                 "scErrorMessage(0, 2, 2, \"Delete: ASPAC\", 62012)"}));
}

// --- Generate.

const std::string readAll = "SELECT PARNUM, PARVAL FROM ASPAC ORDER BY PARNUM";
const std::string readAllCall = "scRunQuery(\"" + readAll + "\", out)";

std::string BuiltCmd(const std::string& order, const std::string& line) {
  return "INSERT INTO BuiltCmd VALUES (" + order + ",'" + line + "')";
}
std::string BuiltCmdCall(const std::string& order, const std::string& line) {
  return "scRunQuery(\"" + BuiltCmd(order, line) + "\")";
}

TEST(ASPAC, GeneratesALineForEachRecordThatHasAnything) {
  ScriptedHost host;
  host.Rows(readAll, {{" 12 ", Value::Null(), "14", Value::Null()}, {" 50", "60", Value::Null(), Value::Null()}});
  EXPECT_TRUE(host.Run(Act("GenerateCmd", {"4"})));
  EXPECT_EQ(host.Calls(),
            Lines({readAllCall, BuiltCmdCall("4", "ASPAC:PARNUM=12,PARVAL=50;"),
                   BuiltCmdCall("4", "ASPAC:PARNUM=,PARVAL=60;"), BuiltCmdCall("4", "ASPAC:PARNUM=14,PARVAL=;")}));
}

TEST(ASPAC, GenerateDoesNotCutTheOrderNumberToAWholeOne) {
  for (const Value& order : {Value(3.7), Value("3.7x")}) {
    ScriptedHost host;
    host.Rows(readAll, {{"12"}, {"50"}});
    EXPECT_TRUE(host.Run(Act("GenerateCmd", {order})));
    EXPECT_EQ(host.Calls(), Lines({readAllCall, BuiltCmdCall("3.7", "ASPAC:PARNUM=12,PARVAL=50;")}));
  }
}

TEST(ASPAC, GenerateOnAnEmptyTableOrOneThatCannotBeReadWritesNothingAndAnswersTrue) {
  {
    ScriptedHost host;
    host.Rows(readAll, {});
    EXPECT_TRUE(host.Run(Act("GenerateCmd", {4})));
    EXPECT_EQ(host.Calls(), Lines({readAllCall}));
  }
  {
    ScriptedHost host;
    host.Refuse("scRunQuery", readAll);
    EXPECT_TRUE(host.Run(Act("GenerateCmd", {4})));
    EXPECT_EQ(host.Calls(), Lines({readAllCall}));
  }
}

TEST(ASPAC, GenerateGoesOnBehindALineThatWasNotWrittenAndAnswersForTheLast) {
  const std::string first = "ASPAC:PARNUM=12,PARVAL=50;";
  const std::string second = "ASPAC:PARNUM=13,PARVAL=60;";
  const std::string failed = "scErrorMessage(0, 2, 2, \"Generating: ASPAC\", 61019)";
  {
    ScriptedHost host;
    host.Rows(readAll, {{"12", "13"}, {"50", "60"}});
    host.Refuse("scRunQuery", BuiltCmd("4", first));
    EXPECT_TRUE(host.Run(Act("GenerateCmd", {4})));
    EXPECT_EQ(host.Calls(), Lines({readAllCall, BuiltCmdCall("4", first), failed, BuiltCmdCall("4", second)}));
  }
  {
    ScriptedHost host;
    host.Rows(readAll, {{"12", "13"}, {"50", "60"}});
    host.Refuse("scRunQuery", BuiltCmd("4", second));
    EXPECT_FALSE(host.Run(Act("GenerateCmd", {4})));
    EXPECT_EQ(host.Calls(), Lines({readAllCall, BuiltCmdCall("4", first), BuiltCmdCall("4", second), failed}));
  }
}

}  // namespace
}  // namespace cordboard
