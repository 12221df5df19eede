#include <gtest/gtest.h>

#include "script/RunTimeFailure.h"
#include "support/ScriptedHost.h"

namespace cordboard {
namespace {

const List columns{"CMDID", "EXGID", "NUMTYP", "OPTION"};

Action Act(const std::string& function, List parameters = {}) {
  return {.oaRelease = "R7", .FunctionName = function, .CmdName = "SYIDI", .CmdId = 7, .ParamList = parameters};
}

const std::string count = "SELECT COUNT(*) FROM SYIDI";
const std::string countCall = "scRunQuery(\"SELECT COUNT(*) FROM SYIDI\", out)";
const std::string identifier = "SELECT CmdID FROM SYIDI";
const std::string identifierCall = "scRunQuery(\"SELECT CmdID FROM SYIDI\", out)";
const std::string readNumber = " SELECT EXGID FROM SYIDI \r\n WHERE CmdId = 7";
const std::string readNumberCall = "scRunQuery(\" SELECT EXGID FROM SYIDI {NL} WHERE CmdId = 7\", out)";

std::string Mark(const std::string& number, const std::string& used) {
  return " UPDATE NANSI SET USED = " + used + "\r\nWHERE NUMSE = '" + number + "'";
}
std::string MarkCall(const std::string& number, const std::string& used) {
  return "scRunQuery(\" UPDATE NANSI SET USED = " + used + "{NL}WHERE NUMSE = '" + number + "'\")";
}
std::string MarkFailed(const std::string& number) {
  return "scErrorMessage(0, 2, 2, \"SetNumberUsed\", 61005, " + number + ")";
}
std::string UpdateCall(const std::string& assignment, int CmdId = 7) {
  return "scRunQuery(\"UPDATE SYIDI SET " + assignment + "{NL} WHERE CmdId = " + std::to_string(CmdId) + "\")";
}

// --- The list of EXGID.

const std::string collect =
    "scCollectSingleValues(\"SELECT NUMSE FROM NANSI {NL} WHERE NUMTYP = 'EN' {NL} AND USED = FALSE \")";

TEST(SYIDI, ListsTheFreeNumbersOfTypeEN) {
  ScriptedHost host;
  EXPECT_TRUE(host.Run(Act("GetValidValForParam", {"EXGID"})));
  EXPECT_EQ(host.Calls(), Lines({collect}));
}

TEST(SYIDI, ReportsAListThatCouldNotBeBuilt) {
  ScriptedHost host;
  host.Refuse("scCollectSingleValues");
  EXPECT_FALSE(host.Run(Act("GetValidValForParam", {"EXGID"})));
  EXPECT_EQ(host.Calls(), Lines({collect, "scErrorMessage(0, 2, 2, \"GetValidValForParam\", 61020, \"EXGID\")"}));
}

TEST(SYIDI, ServesNoOtherParameterAndHasNoChecks) {
  ScriptedHost host;
  EXPECT_FALSE(host.Run(Act("GetValidValForParam", {"NUMTYP"})));
  EXPECT_FALSE(host.Run(Act("StatCheck", {"EXGID"})));
  EXPECT_FALSE(host.Run(Act("GenerateCmd", {1})));
  EXPECT_EQ(host.Calls(), "");
}

// --- Add.

TEST(SYIDI, SetInfoOnAnEmptyTableAddsTheRecordAndTakesItsNumberAtOnce) {
  ScriptedHost host;
  host.Param("EXGID", "900");
  host.Param("NUMTYP", "EX");
  host.Param("OPTION", "1");
  host.Rows(count, {{0}});
  EXPECT_TRUE(host.Run(Act("SetInfo", columns)));
  EXPECT_EQ(
      host.Calls(),
      Lines({countCall, "scStartTransaction()", countCall, "scBuildCmdID()", "scGetParamValue(\"EXGID\")",
             MarkCall("900", "True"), "scGetParamValue(\"OPTION\")",
             "scSQLInsert(\"SYIDI\", [\"CMDID\", \"EXGID\", \"NUMTYP\", \"OPTION\"], [1001, \"900\", \"EN\", \"1\"])",
             "scCommitTransaction()"}));
}

TEST(SYIDI, AddWithoutANumberMarksTheNumberWithoutDigits) {
  ScriptedHost host;
  host.Rows(count, {{0}});
  EXPECT_TRUE(host.Run(Act("SetInfo", {"EXGID"})));
  EXPECT_EQ(host.Effects(), Lines({countCall, "scStartTransaction()", countCall, MarkCall("", "True"),
                                   "scSQLInsert(\"SYIDI\", [\"EXGID\"], [Empty])", "scCommitTransaction()"}));
}

TEST(SYIDI, AddStopsWhenTheNumberCannotBeMarked) {
  ScriptedHost host;
  host.Param("EXGID", "900");
  host.Rows(count, {{0}});
  host.Refuse("scRunQuery", Mark("900", "True"));
  EXPECT_FALSE(host.Run(Act("SetInfo", columns)));
  EXPECT_EQ(host.Calls(),
            Lines({countCall, "scStartTransaction()", countCall, "scBuildCmdID()", "scGetParamValue(\"EXGID\")",
                   MarkCall("900", "True"), MarkFailed("\"900\""), "scRollBackTransaction()"}));
}

TEST(SYIDI, AddRefusesATableThatHasBeenFilledInTheMeantime) {
  ScriptedHost host;
  host.Rows(count, {{0}});
  host.Rows(count, {{1}});
  EXPECT_FALSE(host.Run(Act("SetInfo", columns)));
  EXPECT_EQ(host.Calls(),
            Lines({countCall, "scStartTransaction()", countCall,
                   "scErrorMessage(0, 2, 2, \"Add : SYIDI\", 60031, \"SYIDI\")", "scRollBackTransaction()"}));
}

TEST(SYIDI, AddReportsAnInsertThatFailed) {
  ScriptedHost host;
  host.Rows(count, {{0}});
  host.Refuse("scSQLInsert");
  EXPECT_FALSE(host.Run(Act("SetInfo", {"NUMTYP"})));
  EXPECT_EQ(host.Calls(),
            Lines({countCall, "scStartTransaction()", countCall, "scSQLInsert(\"SYIDI\", [\"NUMTYP\"], [\"EN\"])",
                   "scErrorMessage(0, 2, 2, \"Add : SYIDI\", 61024, \"SYIDI\")", "scRollBackTransaction()"}));
}

TEST(SYIDI, AddReportsItsTransactionUnderItsOwnContext) {
  ScriptedHost host;
  host.Rows(count, {{0}});
  host.Refuse("scStartTransaction");
  host.Refuse("scRollBackTransaction");
  EXPECT_FALSE(host.Run(Act("SetInfo", columns)));
  EXPECT_EQ(host.Calls(), Lines({countCall, "scStartTransaction()", "scErrorMessage(0, 2, 2, \"Add : SYIDI\", 62010)",
                                 "scRollBackTransaction()", "scErrorMessage(0, 2, 2, \"Add : SYIDI\", 62012)"}));
}

// --- Edit.

TEST(SYIDI, EditOfTheNumberFreesTheOldOneAndMarksTheNewOne) {
  ScriptedHost host;
  host.Param("EXGID", "901");
  host.Rows(readNumber, {{"900"}});
  EXPECT_TRUE(host.Run(Act("EditInfo", {"EXGID"})));
  EXPECT_EQ(host.Calls(),
            Lines({"scStartTransaction()", "scGetParamValue(\"EXGID\")", readNumberCall, MarkCall("900", "False"),
                   MarkCall("901", "True"), UpdateCall("EXGID = '901'"), "scCommitTransaction()"}));
}

TEST(SYIDI, SetInfoOnARecordEditsThatRecordWithTheGivenParameters) {
  ScriptedHost host;
  host.Param("EXGID", "901");
  host.Param("OPTION", "1");
  host.Rows(count, {{1}});
  host.Rows(identifier, {{41}});
  host.Rows(" SELECT EXGID FROM SYIDI \r\n WHERE CmdId = 41", {{"900"}});
  EXPECT_TRUE(host.Run(Act("SetInfo", columns)));
  EXPECT_EQ(host.Effects(),
            Lines({countCall, identifierCall, "scStartTransaction()",
                   "scRunQuery(\" SELECT EXGID FROM SYIDI {NL} WHERE CmdId = 41\", out)", MarkCall("900", "False"),
                   MarkCall("901", "True"), UpdateCall("EXGID = '901'", 41), UpdateCall("NUMTYP = 'EN'", 41),
                   UpdateCall("OPTION = '1'", 41), "scCommitTransaction()"}));
}

TEST(SYIDI, EditWritesEmptyParametersAsTheEmptyTextButTheNumberTypeAsEN) {
  ScriptedHost host;
  host.Param("OPTION", "");
  host.Rows(readNumber, {{Value::Null()}});
  EXPECT_TRUE(host.Run(Act("EditInfo", {"NUMTYP", "EXGID", "OPTION", "CMDID"})));
  EXPECT_EQ(host.Calls(), Lines({"scStartTransaction()", "scGetParamValue(\"NUMTYP\")", UpdateCall("NUMTYP = 'EN'"),
                                 "scGetParamValue(\"EXGID\")", readNumberCall, MarkCall("", "False"),
                                 MarkCall("", "True"), UpdateCall("EXGID = ''"), "scGetParamValue(\"OPTION\")",
                                 UpdateCall("OPTION = ''"), "scCommitTransaction()"}));
}

TEST(SYIDI, EditKeepsANumberTypeThatIsGiven) {
  ScriptedHost host;
  host.Param("NUMTYP", "EX");
  EXPECT_TRUE(host.Run(Act("EditInfo", {"NUMTYP"})));
  EXPECT_EQ(host.Effects(), Lines({"scStartTransaction()", UpdateCall("NUMTYP = 'EX'"), "scCommitTransaction()"}));
}

TEST(SYIDI, EditToANullFailsTheCallAndLeavesTheTransactionOpen) {
  ScriptedHost host;
  host.Param("OPTION", Value::Null());
  EXPECT_THROW(host.Run(Act("EditInfo", {"OPTION"})), RunTimeFailure);
  EXPECT_EQ(host.Calls(), Lines({"scStartTransaction()", "scGetParamValue(\"OPTION\")"}));
}

TEST(SYIDI, EditOfTheNumberStopsAtTheFirstStepThatFails) {
  const std::string context = "scErrorMessage(0, 2, 2, \"Edit: SYIDI\", ";
  {
    ScriptedHost host;
    host.Refuse("scRunQuery", readNumber);
    EXPECT_FALSE(host.Run(Act("EditInfo", {"EXGID", "OPTION"})));
    EXPECT_EQ(host.Effects(),
              Lines({"scStartTransaction()", readNumberCall, context + "62000)", "scRollBackTransaction()"}));
  }
  {
    ScriptedHost host;
    host.Param("EXGID", "901");
    host.Rows(readNumber, {{"900"}});
    host.Refuse("scRunQuery", Mark("900", "False"));
    EXPECT_FALSE(host.Run(Act("EditInfo", {"EXGID", "OPTION"})));
    EXPECT_EQ(host.Effects(), Lines({"scStartTransaction()", readNumberCall, MarkCall("900", "False"),
                                     MarkFailed("\"900\""), "scRollBackTransaction()"}));
  }
  {
    ScriptedHost host;
    host.Param("EXGID", "901");
    host.Rows(readNumber, {{"900"}});
    host.Refuse("scRunQuery", "UPDATE SYIDI SET EXGID = '901'\r\n WHERE CmdId = 7");
    EXPECT_FALSE(host.Run(Act("EditInfo", {"EXGID", "OPTION"})));
    EXPECT_EQ(host.Effects(),
              Lines({"scStartTransaction()", readNumberCall, MarkCall("900", "False"), MarkCall("901", "True"),
                     UpdateCall("EXGID = '901'"), context + "61011, \"EXGID\")", "scRollBackTransaction()"}));
  }
}

TEST(SYIDI, EditOfTheNumberOfARecordThatIsGoneRollsBackInSilence) {
  ScriptedHost host;
  host.Rows(readNumber, {});
  EXPECT_FALSE(host.Run(Act("EditInfo", {"EXGID", "OPTION"})));
  EXPECT_EQ(host.Effects(), Lines({"scStartTransaction()", readNumberCall, "scRollBackTransaction()"}));
}

// --- Delete.

const std::string deleteCall = "scRunQuery(\"DELETE * FROM SYIDI{NL} WHERE CmdId = 7\")";

TEST(SYIDI, DeleteFreesTheNumberAndRemovesTheRecord) {
  ScriptedHost host;
  host.Rows(readNumber, {{"900"}});
  EXPECT_TRUE(host.Run(Act("DeleteInfo")));
  EXPECT_EQ(host.Calls(), Lines({"scStartTransaction()", readNumberCall, MarkCall("900", "False"), deleteCall,
                                 "scCommitTransaction()"}));
}

TEST(SYIDI, DeleteOfARecordThatIsGoneRollsBackInSilence) {
  ScriptedHost host;
  host.Rows(readNumber, {});
  EXPECT_FALSE(host.Run(Act("DeleteInfo")));
  EXPECT_EQ(host.Calls(), Lines({"scStartTransaction()", readNumberCall, "scRollBackTransaction()"}));
}

TEST(SYIDI, DeleteStopsAtTheFirstStepThatFails) {
  const std::string context = "scErrorMessage(0, 2, 2, \"Delete: SYIDI\", ";
  {
    ScriptedHost host;
    host.Refuse("scRunQuery", readNumber);
    EXPECT_FALSE(host.Run(Act("DeleteInfo")));
    EXPECT_EQ(host.Calls(),
              Lines({"scStartTransaction()", readNumberCall, context + "62000)", "scRollBackTransaction()"}));
  }
  {
    ScriptedHost host;
    host.Rows(readNumber, {{"900"}});
    host.Refuse("scRunQuery", Mark("900", "False"));
    EXPECT_FALSE(host.Run(Act("DeleteInfo")));
    EXPECT_EQ(host.Calls(), Lines({"scStartTransaction()", readNumberCall, MarkCall("900", "False"),
                                   MarkFailed("\"900\""), "scRollBackTransaction()"}));
  }
  {
    ScriptedHost host;
    host.Rows(readNumber, {{"900"}});
    host.Refuse("scRunQuery", "DELETE * FROM SYIDI\r\n WHERE CmdId = 7");
    EXPECT_FALSE(host.Run(Act("DeleteInfo")));
    EXPECT_EQ(host.Calls(), Lines({"scStartTransaction()", readNumberCall, MarkCall("900", "False"), deleteCall,
                                   context + "61012, \"SYIDI\", 7)", "scRollBackTransaction()"}));
  }
}

}  // namespace
}  // namespace cordboard
