#include <gtest/gtest.h>

#include "script/RunTimeFailure.h"
#include "support/ScriptedHost.h"

namespace cordboard {
namespace {

const List columns{"CMDID", "NTC", "PGJOB", "PGSTA", "DIVPRI", "TBA", "CNFREL"};

Action Act(const std::string& function, List parameters = {}) {
  return {.oaRelease = "R7", .FunctionName = function, .CmdName = "SYDAS", .CmdId = 7, .ParamList = parameters};
}

const std::string count = "SELECT COUNT(*) FROM SYDAS";
const std::string countCall = "scRunQuery(\"SELECT COUNT(*) FROM SYDAS\", out)";
const std::string identifier = "SELECT CmdID FROM SYDAS";
const std::string identifierCall = "scRunQuery(\"SELECT CmdID FROM SYDAS\", out)";

std::string OldValues(int CmdId) {
  return "SELECT NTC, PGJOB, PGSTA, DIVPRI, TBA FROM SYDAS WHERE CmdId = " + std::to_string(CmdId);
}
std::string OldValuesCall(int CmdId) { return "scRunQuery(\"" + OldValues(CmdId) + "\", out)"; }

// --- Lists.

TEST(SYDAS, ListsTheFixedValuesOfFiveParameters) {
  for (const char* parameter : {"DIVPRI", "PGJOB", "PGSTA", "TBA", "CNFREL"}) {
    ScriptedHost host;
    EXPECT_TRUE(host.Run(Act("GetValidValForParam", {parameter})));
    EXPECT_EQ(host.Calls(), Lines({"scSQLSelectValuesAndDesc()"}));
  }
}

TEST(SYDAS, ReportsAListThatCouldNotBeBuilt) {
  ScriptedHost host;
  host.Refuse("scSQLSelectValuesAndDesc");
  EXPECT_FALSE(host.Run(Act("GetValidValForParam", {"TBA"})));
  EXPECT_EQ(host.Calls(), Lines({"scSQLSelectValuesAndDesc()",
                                 "scErrorMessage(0, 2, 2, \"GetValuesAndDescription\", 61021, \"TBA\")"}));
}

TEST(SYDAS, ServesNoOtherParameterAndHasNoChecks) {
  ScriptedHost host;
  EXPECT_FALSE(host.Run(Act("GetValidValForParam", {"NTC"})));
  EXPECT_FALSE(host.Run(Act("StatCheck", {"TBA"})));
  EXPECT_FALSE(host.Run(Act("GenerateCmd", {1})));
  EXPECT_EQ(host.Calls(), "");
}

// --- Add.

const std::string insert =
    "scSQLInsert(\"SYDAS\", [\"CMDID\", \"NTC\", \"PGJOB\", \"PGSTA\", \"DIVPRI\", \"TBA\", \"CNFREL\"], "
    "[1001, \"5\", Empty, Empty, Empty, \"1\", Empty])";

TEST(SYDAS, SetInfoOnAnEmptyTableAddsTheRecord) {
  ScriptedHost host;
  host.Param("NTC", "5");
  host.Param("TBA", "1");
  host.Rows(count, {{0}});
  EXPECT_TRUE(host.Run(Act("SetInfo", columns)));
  EXPECT_EQ(host.Calls(),
            Lines({countCall, "scStartTransaction()", countCall, "scBuildCmdID()", "scGetParamValue(\"NTC\")",
                   "scGetParamValue(\"PGJOB\")", "scGetParamValue(\"PGSTA\")", "scGetParamValue(\"DIVPRI\")",
                   "scGetParamValue(\"TBA\")", "scGetParamValue(\"CNFREL\")", insert, "scCommitTransaction()"}));
}

TEST(SYDAS, AddStopsAtTheStepThatFails) {
  {
    ScriptedHost host;
    host.Rows(count, {{0}});
    host.Rows(count, {{1}});
    EXPECT_FALSE(host.Run(Act("SetInfo", columns)));
    EXPECT_EQ(host.Calls(),
              Lines({countCall, "scStartTransaction()", countCall,
                     "scErrorMessage(0, 2, 2, \"Add: SYDAS\", 60031, \"SYDAS\")", "scRollBackTransaction()"}));
  }
  {
    ScriptedHost host;
    host.Param("NTC", "5");
    host.Param("TBA", "1");
    host.Rows(count, {{0}});
    host.Refuse("scSQLInsert");
    EXPECT_FALSE(host.Run(Act("SetInfo", columns)));
    EXPECT_EQ(host.Effects(),
              Lines({countCall, "scStartTransaction()", countCall, "scBuildCmdID()", insert,
                     "scErrorMessage(0, 2, 2, \"Add: SYDAS\", 61024, \"SYDAS\")", "scRollBackTransaction()"}));
  }
}

// --- A second "SetInfo".

TEST(SYDAS, SetInfoOnARecordFailsTheCallBeforeAnythingIsWrittenAndLeavesTheTransactionOpen) {
  ScriptedHost host;
  host.Param("NTC", "5");
  host.Rows(count, {{1}});
  host.Rows(identifier, {{41}});
  host.Rows(OldValues(41), {{"1"}, {"2"}, {"3"}, {"4"}, {"5"}});
  try {
    host.Run(Act("SetInfo", columns));
    FAIL() << "the sixth column was read";
  } catch (const RunTimeFailure& failure) {
    EXPECT_EQ(failure.cause(), RunTimeFailure::Cause::SubscriptOutOfRange);
  }
  EXPECT_EQ(host.Calls(), Lines({countCall, identifierCall, "scStartTransaction()", OldValuesCall(41)}));
}

TEST(SYDAS, SetInfoOnARecordWhoseOldValuesCannotBeReadRollsBackInSilence) {
  ScriptedHost host;
  host.Rows(count, {{1}});
  host.Rows(identifier, {{41}});
  host.Refuse("scRunQuery", OldValues(41));
  EXPECT_FALSE(host.Run(Act("SetInfo", columns)));
  EXPECT_EQ(host.Calls(),
            Lines({countCall, identifierCall, "scStartTransaction()", OldValuesCall(41), "scRollBackTransaction()"}));
}

// --- Edit.

TEST(SYDAS, EditWritesTheParametersOfTheGivenRecordAndReadsNoOldValue) {
  ScriptedHost host;
  host.Param("CNFREL", "1");
  host.Param("NTC", "");
  host.Rows(OldValues(7), {});
  EXPECT_TRUE(host.Run(Act("EditInfo", {"CNFREL", "TBA", "NTC"})));
  EXPECT_EQ(host.Calls(),
            Lines({"scStartTransaction()", OldValuesCall(7), "scGetParamValue(\"CNFREL\")",
                   "scRunQuery(\"UPDATE SYDAS SET CNFREL = '1'{NL} WHERE CmdId = 7\")", "scGetParamValue(\"TBA\")",
                   "scRunQuery(\"UPDATE SYDAS SET TBA = Null{NL} WHERE CmdId = 7\")", "scGetParamValue(\"NTC\")",
                   "scRunQuery(\"UPDATE SYDAS SET NTC = ''{NL} WHERE CmdId = 7\")", "scCommitTransaction()"}));
}

TEST(SYDAS, EditStopsAtTheFirstParameterThatCannotBeWritten) {
  ScriptedHost host;
  host.Rows(OldValues(7), {{"1"}, {"2"}, {"3"}, {"4"}, {"5"}});
  host.Refuse("scRunQuery", "UPDATE SYDAS SET TBA = Null\r\n WHERE CmdId = 7");
  EXPECT_FALSE(host.Run(Act("EditInfo", {"TBA", "NTC"})));
  EXPECT_EQ(host.Effects(),
            Lines({"scStartTransaction()", OldValuesCall(7),
                   "scRunQuery(\"UPDATE SYDAS SET TBA = Null{NL} WHERE CmdId = 7\")",
                   "scErrorMessage(0, 2, 2, \"Edit: SYDAS\", 61011, \"TBA\")", "scRollBackTransaction()"}));
}

// --- Delete.

TEST(SYDAS, DeleteRemovesTheRecord) {
  ScriptedHost host;
  EXPECT_TRUE(host.Run(Act("DeleteInfo")));
  EXPECT_EQ(host.Calls(), Lines({"scStartTransaction()", "scRunQuery(\"DELETE * FROM SYDAS{NL} WHERE CmdId = 7\")",
                                 "scCommitTransaction()"}));
}

}  // namespace
}  // namespace cordboard
