#include <gtest/gtest.h>

#include "support/ScriptedHost.h"

namespace cordboard {
namespace {

Action Act(const std::string& function, List parameters = {}) {
  return {.oaRelease = "R7", .FunctionName = function, .CmdName = "TCMAS", .CmdId = 7, .ParamList = parameters};
}

TEST(TCMAS, ListsTheFixedValuesOfCON) {
  ScriptedHost host;
  EXPECT_TRUE(host.Run(Act("GetValidValForParam", {"CON"})));
  EXPECT_EQ(host.Calls(), Lines({"scSQLSelectValuesAndDesc()"}));
}

TEST(TCMAS, ReportsAListThatCouldNotBeBuilt) {
  ScriptedHost host;
  host.Refuse("scSQLSelectValuesAndDesc");
  EXPECT_FALSE(host.Run(Act("GetValidValForParam", {"CON"})));
  EXPECT_EQ(host.Calls(), Lines({"scSQLSelectValuesAndDesc()",
                                 "scErrorMessage(0, 2, 2, \"GetValuesAndDescription\", 61021, \"CON\")"}));
}

TEST(TCMAS, ServesNoOtherParameterAndHasNoChecks) {
  ScriptedHost host;
  EXPECT_FALSE(host.Run(Act("GetValidValForParam", {"con"})));
  EXPECT_FALSE(host.Run(Act("StatCheck", {"CON"})));
  EXPECT_FALSE(host.Run(Act("GenerateCmd", {1})));
  EXPECT_EQ(host.Calls(), "");
}

TEST(TCMAS, AddsEditsAndDeletesARecordLikeMostCommands) {
  ScriptedHost host;
  host.Param("CON", "1");
  EXPECT_TRUE(host.Run(Act("SetInfo", {"CMDID", "CON", "NUMTYP"})));
  EXPECT_TRUE(host.Run(Act("EditInfo", {"CON"})));
  EXPECT_TRUE(host.Run(Act("DeleteInfo")));
  EXPECT_EQ(
      host.Effects(),
      Lines({"scStartTransaction()", "scBuildCmdID()",
             "scSQLInsert(\"TCMAS\", [\"CMDID\", \"CON\", \"NUMTYP\"], [1001, \"1\", \"\"])", "scCommitTransaction()",
             "scStartTransaction()", "scRunQuery(\"UPDATE TCMAS SET CON = '1'{NL} WHERE CmdId = 7\")",
             "scCommitTransaction()", "scStartTransaction()", "scRunQuery(\"DELETE * FROM TCMAS{NL} WHERE CmdId = 7\")",
             "scCommitTransaction()"}));
}

}  // namespace
}  // namespace cordboard
