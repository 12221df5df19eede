#include <gtest/gtest.h>

#include "script/RunTimeFailure.h"
#include "support/ScriptedHost.h"

namespace cordboard {
namespace {

const List columns{"CMDID", "CDNAL", "CDNAS", "OPTL", "PGIV", "PGTNA", "PGAL"};

Action Act(const std::string& function, List parameters = {}) {
  return {.oaRelease = "R7", .FunctionName = function, .CmdName = "SYTDS", .CmdId = 7, .ParamList = parameters};
}

const std::string count = "SELECT COUNT(*) FROM SYTDS";
const std::string countCall = "scRunQuery(\"SELECT COUNT(*) FROM SYTDS\", out)";
const std::string identifier = "SELECT CmdID FROM SYTDS";
const std::string identifierCall = "scRunQuery(\"SELECT CmdID FROM SYTDS\", out)";

std::string OldValues(int CmdId) {
  return "SELECT CDNAL, CDNAS, OPTL, PGIV, PGTNA, PGAL FROM SYTDS WHERE CmdId = " + std::to_string(CmdId);
}
std::string OldValuesCall(int CmdId) { return "scRunQuery(\"" + OldValues(CmdId) + "\", out)"; }

std::string Update(const std::string& assignment, int CmdId) {
  return "UPDATE SYTDS SET " + assignment + "\r\n WHERE CmdId = " + std::to_string(CmdId);
}
std::string UpdateCall(const std::string& assignment, int CmdId) {
  return "scRunQuery(\"UPDATE SYTDS SET " + assignment + "{NL} WHERE CmdId = " + std::to_string(CmdId) + "\")";
}

// --- Lists.

const std::string pushAll = "scPushValidRangeValues(1, 30)";

std::string ListNotBuilt(const std::string& parameter) {
  return "scErrorMessage(0, 2, 2, \"GetValidValForParam\", 61020, \"" + parameter + "\")";
}

TEST(SYTDS, ListsFrom1To30WhileTheOtherOfThePairIsNotGiven) {
  for (const Value& other : {Value(), Value(""), Value("0"), Value(0), Value("A")}) {
    ScriptedHost host;
    host.Param("CDNAL", other);
    host.Param("CDNAS", other);
    EXPECT_TRUE(host.Run(Act("GetValidValForParam", {"CDNAL"})));
    EXPECT_TRUE(host.Run(Act("GetValidValForParam", {"CDNAS"})));
    EXPECT_EQ(host.Calls(), Lines({pushAll, "scGetParamValue(\"CDNAS\")", pushAll, "scGetParamValue(\"CDNAL\")"}));
  }
}

TEST(SYTDS, ListOfCDNALBeginsAboveCDNAS) {
  ScriptedHost host;
  host.Param("CDNAS", "10");
  EXPECT_TRUE(host.Run(Act("GetValidValForParam", {"CDNAL"})));
  EXPECT_EQ(host.Calls(),
            Lines({pushAll, "scGetParamValue(\"CDNAS\")", "scRemoveFromValidRangeValues(\"CDNAL\", 1, \"10\")"}));
}

TEST(SYTDS, ListOfCDNASEndsBelowCDNAL) {
  ScriptedHost host;
  host.Param("CDNAL", "10");
  EXPECT_TRUE(host.Run(Act("GetValidValForParam", {"CDNAS"})));
  EXPECT_EQ(host.Calls(),
            Lines({pushAll, "scGetParamValue(\"CDNAL\")", "scRemoveFromValidRangeValues(\"CDNAS\", \"10\", 30)"}));
}

TEST(SYTDS, ThePairLimitsItselfFrom1OnUpwards) {
  ScriptedHost host;
  host.Param("CDNAS", 1);
  host.Param("CDNAL", "1");
  EXPECT_TRUE(host.Run(Act("GetValidValForParam", {"CDNAL"})));
  EXPECT_TRUE(host.Run(Act("GetValidValForParam", {"CDNAS"})));
  EXPECT_EQ(host.Effects(), Lines({pushAll, "scRemoveFromValidRangeValues(\"CDNAL\", 1, 1)", pushAll,
                                   "scRemoveFromValidRangeValues(\"CDNAS\", \"1\", 30)"}));
}

TEST(SYTDS, ReportsAListThatCouldNotBeBuilt) {
  for (const std::string parameter : {"CDNAL", "CDNAS"}) {
    {
      ScriptedHost host;
      host.Refuse("scPushValidRangeValues");
      EXPECT_FALSE(host.Run(Act("GetValidValForParam", {parameter})));
      EXPECT_EQ(host.Calls(), Lines({pushAll, ListNotBuilt(parameter)}));
    }
    {
      ScriptedHost host;
      host.Param("CDNAL", 5);
      host.Param("CDNAS", 5);
      host.Refuse("scRemoveFromValidRangeValues");
      EXPECT_FALSE(host.Run(Act("GetValidValForParam", {parameter})));
      const std::string remove = parameter == "CDNAL" ? "scRemoveFromValidRangeValues(\"CDNAL\", 1, 5)"
                                                      : "scRemoveFromValidRangeValues(\"CDNAS\", 5, 30)";
      EXPECT_EQ(host.Effects(), Lines({pushAll, remove, ListNotBuilt(parameter)}));
    }
  }
}

TEST(SYTDS, ListBesideANullFailsTheCall) {
  ScriptedHost host;
  host.Param("CDNAS", Value::Null());
  EXPECT_THROW(host.Run(Act("GetValidValForParam", {"CDNAL"})), RunTimeFailure);
}

TEST(SYTDS, ServesNoOtherParameter) {
  ScriptedHost host;
  EXPECT_FALSE(host.Run(Act("GetValidValForParam", {"OPTL"})));
  EXPECT_FALSE(host.Run(Act("StatCheck", {"CDNAL"})));
  EXPECT_FALSE(host.Run(Act("GenerateCmd", {1})));
  EXPECT_EQ(host.Calls(), "");
}

// --- The check of CDNAS.

const std::string readCDNAS = "scGetParamValue(\"CDNAS\")";
const std::string reset = "scResetParam(\"CDNAS\")";
const std::string getList = "scGetValidValues(\"CDNAS\", out)";

std::string CheckFailed(int code) {
  return "scErrorMessage(0, 2, 2, \"StatCheck: SYTDS\", " + std::to_string(code) + ", \"CDNAS\")";
}

TEST(SYTDS, CheckOfCDNASPutsAValidValueBackAsANumber) {
  ScriptedHost host;
  host.Param("CDNAS", " 09");
  host.ValidValues("CDNAS", {"8", "9"});
  EXPECT_TRUE(host.Run(Act("StatCheck", {"CDNAS"})));
  EXPECT_EQ(host.Calls(), Lines({readCDNAS, reset, getList, "scSetParamValue(\"CDNAS\", 9)"}));
}

TEST(SYTDS, CheckOfCDNASDropsAValueThatLeftTheListInSilence) {
  for (const Value& value : {Value("10"), Value()}) {
    ScriptedHost host;
    host.Param("CDNAS", value);
    host.ValidValues("CDNAS", {"8", "9"});
    EXPECT_TRUE(host.Run(Act("StatCheck", {"CDNAS"})));
    EXPECT_EQ(host.Calls(), Lines({readCDNAS, reset, getList}));
  }
}

TEST(SYTDS, CheckOfCDNASReportsEachStepThatFails) {
  {
    ScriptedHost host;
    host.Refuse("scResetParam");
    EXPECT_FALSE(host.Run(Act("StatCheck", {"CDNAS"})));
    EXPECT_EQ(host.Calls(), Lines({readCDNAS, reset, CheckFailed(61013)}));
  }
  {
    ScriptedHost host;
    host.Refuse("scGetValidValues");
    EXPECT_FALSE(host.Run(Act("StatCheck", {"CDNAS"})));
    EXPECT_EQ(host.Calls(), Lines({readCDNAS, reset, getList, CheckFailed(61020)}));
  }
  {
    ScriptedHost host;
    host.Param("CDNAS", "9");
    host.ValidValues("CDNAS", {9});
    host.Refuse("scSetParamValue");
    EXPECT_FALSE(host.Run(Act("StatCheck", {"CDNAS"})));
    EXPECT_EQ(host.Calls(), Lines({readCDNAS, reset, getList, "scSetParamValue(\"CDNAS\", 9)", CheckFailed(61016)}));
  }
}

TEST(SYTDS, CheckOfACDNASThatIsNo16BitNumberFailsTheCall) {
  for (const Value& value : {Value("A"), Value(""), Value("40000"), Value::Null()}) {
    ScriptedHost host;
    host.Param("CDNAS", value);
    EXPECT_THROW(host.Run(Act("StatCheck", {"CDNAS"})), RunTimeFailure);
    EXPECT_EQ(host.Calls(), Lines({readCDNAS}));
  }
}

// --- Add.

const std::string insert =
    "scSQLInsert(\"SYTDS\", [\"CMDID\", \"CDNAL\", \"CDNAS\", \"OPTL\", \"PGIV\", \"PGTNA\", \"PGAL\"], "
    "[1001, \"10\", \"9\", Empty, Empty, Empty, Empty])";

TEST(SYTDS, SetInfoOnAnEmptyTableAddsTheRecord) {
  ScriptedHost host;
  host.Param("CDNAL", "10");
  host.Param("CDNAS", "9");
  host.Rows(count, {{"0"}});
  EXPECT_TRUE(host.Run(Act("SetInfo", columns)));
  EXPECT_EQ(host.Calls(),
            Lines({countCall, "scStartTransaction()", countCall, "scBuildCmdID()", "scGetParamValue(\"CDNAL\")",
                   "scGetParamValue(\"CDNAS\")", "scGetParamValue(\"OPTL\")", "scGetParamValue(\"PGIV\")",
                   "scGetParamValue(\"PGTNA\")", "scGetParamValue(\"PGAL\")", insert, "scCommitTransaction()"}));
}

TEST(SYTDS, AddReadsAnyColumnButCMDIDFromTheForm) {
  ScriptedHost host;
  host.Rows(count, {{0}});
  EXPECT_TRUE(host.Run(Act("SetInfo", {"CmdId", "NUMTYP"})));
  EXPECT_EQ(
      host.Calls(),
      Lines({countCall, "scStartTransaction()", countCall, "scGetParamValue(\"CmdId\")", "scGetParamValue(\"NUMTYP\")",
             "scSQLInsert(\"SYTDS\", [\"CmdId\", \"NUMTYP\"], [Empty, Empty])", "scCommitTransaction()"}));
}

TEST(SYTDS, AddRefusesATableThatHasBeenFilledInTheMeantime) {
  ScriptedHost host;
  host.Rows(count, {{0}});
  host.Rows(count, {{1}});
  EXPECT_FALSE(host.Run(Act("SetInfo", columns)));
  EXPECT_EQ(host.Calls(),
            Lines({countCall, "scStartTransaction()", countCall,
                   "scErrorMessage(0, 2, 2, \"Add: SYTDS\", 60031, \"SYTDS\")", "scRollBackTransaction()"}));
}

TEST(SYTDS, AddReportsAnInsertThatFailed) {
  ScriptedHost host;
  host.Rows(count, {{0}});
  host.Refuse("scSQLInsert");
  EXPECT_FALSE(host.Run(Act("SetInfo", {"CMDID"})));
  EXPECT_EQ(host.Calls(),
            Lines({countCall, "scStartTransaction()", countCall, "scBuildCmdID()",
                   "scSQLInsert(\"SYTDS\", [\"CMDID\"], [1001])",
                   "scErrorMessage(0, 2, 2, \"Add: SYTDS\", 61024, \"SYTDS\")", "scRollBackTransaction()"}));
}

TEST(SYTDS, AddReportsATransactionThatDoesNotStart) {
  ScriptedHost host;
  host.Rows(count, {{0}});
  host.Refuse("scStartTransaction");
  EXPECT_FALSE(host.Run(Act("SetInfo", columns)));
  EXPECT_EQ(host.Calls(), Lines({countCall, "scStartTransaction()", "scErrorMessage(0, 2, 2, \"Add: SYTDS\", 62010)",
                                 "scRollBackTransaction()"}));
}

TEST(SYTDS, SetInfoWithoutACountOrAnIdentifierFailsTheCall) {
  {
    ScriptedHost host;
    host.Refuse("scRunQuery", count);
    EXPECT_THROW(host.Run(Act("SetInfo", columns)), RunTimeFailure);
    EXPECT_EQ(host.Calls(), Lines({countCall}));
  }
  {
    ScriptedHost host;
    host.Rows(count, {{1}});
    host.Rows(identifier, {});
    EXPECT_THROW(host.Run(Act("SetInfo", columns)), RunTimeFailure);
    EXPECT_EQ(host.Calls(), Lines({countCall, identifierCall}));
  }
}

// --- Rewrite: "SetInfo" on the record.

TEST(SYTDS, SetInfoOnARecordRewritesItAndKeepsWhatTheFormLeavesBlank) {
  ScriptedHost host;
  host.Param("CDNAL", "20");
  host.Param("PGIV", "");
  host.Param("PGTNA", Value::Null());
  host.Rows(count, {{1}});
  host.Rows(identifier, {{"41"}});
  host.Rows(OldValues(41), {{"10"}, {"9"}, {Value::Null()}, {"3"}, {""}, {Value::Null()}});
  EXPECT_TRUE(host.Run(Act("SetInfo", {"CMDID", "CDNAL"})));
  EXPECT_EQ(host.Calls(),
            Lines({countCall, identifierCall, "scStartTransaction()", OldValuesCall(41), "scGetParamValue(\"CDNAL\")",
                   UpdateCall("CDNAL = '20'", 41), "scGetParamValue(\"CDNAS\")", UpdateCall("CDNAS = '9'", 41),
                   "scGetParamValue(\"OPTL\")", UpdateCall("OPTL = Null", 41), "scGetParamValue(\"PGIV\")",
                   UpdateCall("PGIV = '3'", 41), "scGetParamValue(\"PGTNA\")", UpdateCall("PGTNA = Null", 41),
                   "scGetParamValue(\"PGAL\")", UpdateCall("PGAL = Null", 41), "scCommitTransaction()"}));
}

TEST(SYTDS, RewriteStopsAtTheFirstColumnThatCannotBeWritten) {
  ScriptedHost host;
  host.Rows(count, {{1}});
  host.Rows(identifier, {{41}});
  host.Rows(OldValues(41), {{"10"}, {"9"}, {"1"}, {"3"}, {"4"}, {"5"}});
  host.Refuse("scRunQuery", Update("CDNAS = '9'", 41));
  EXPECT_FALSE(host.Run(Act("SetInfo", columns)));
  EXPECT_EQ(host.Effects(),
            Lines({countCall, identifierCall, "scStartTransaction()", OldValuesCall(41), UpdateCall("CDNAL = '10'", 41),
                   UpdateCall("CDNAS = '9'", 41), "scErrorMessage(0, 2, 2, \"Edit: SYTDS\", 61011, \"CDNAS\")",
                   "scRollBackTransaction()"}));
}

TEST(SYTDS, RewriteWhoseOldValuesCannotBeReadRollsBackInSilence) {
  ScriptedHost host;
  host.Rows(count, {{1}});
  host.Rows(identifier, {{41}});
  host.Refuse("scRunQuery", OldValues(41));
  EXPECT_FALSE(host.Run(Act("SetInfo", columns)));
  EXPECT_EQ(host.Calls(),
            Lines({countCall, identifierCall, "scStartTransaction()", OldValuesCall(41), "scRollBackTransaction()"}));
}

TEST(SYTDS, RewriteOfARecordThatIsGoneFailsTheCall) {
  ScriptedHost host;
  host.Rows(count, {{1}});
  host.Rows(identifier, {{41}});
  host.Rows(OldValues(41), {});
  EXPECT_THROW(host.Run(Act("SetInfo", columns)), RunTimeFailure);
  EXPECT_EQ(host.Calls(), Lines({countCall, identifierCall, "scStartTransaction()", OldValuesCall(41)}));
}

// --- Edit.

TEST(SYTDS, EditClearsAParameterThatTheFormLeavesEmpty) {
  ScriptedHost host;
  host.Param("CDNAL", "20");
  host.Param("OPTL", "");
  host.Param("PGAL", Value::Null());
  host.Rows(OldValues(7), {{"10"}, {"9"}, {"1"}, {"3"}, {"4"}, {"5"}});
  EXPECT_TRUE(host.Run(Act("EditInfo", {"CDNAL", "PGIV", "OPTL", "PGAL"})));
  EXPECT_EQ(host.Calls(), Lines({"scStartTransaction()", OldValuesCall(7), "scGetParamValue(\"CDNAL\")",
                                 UpdateCall("CDNAL = '20'", 7), "scGetParamValue(\"PGIV\")",
                                 UpdateCall("PGIV = Null", 7), "scGetParamValue(\"OPTL\")", UpdateCall("OPTL = ''", 7),
                                 "scGetParamValue(\"PGAL\")", UpdateCall("PGAL = ''", 7), "scCommitTransaction()"}));
}

TEST(SYTDS, EditStopsAtTheFirstParameterThatCannotBeWritten) {
  ScriptedHost host;
  host.Rows(OldValues(7), {});
  host.Refuse("scRunQuery", Update("CDNAS = Null", 7));
  EXPECT_FALSE(host.Run(Act("EditInfo", {"CDNAL", "CDNAS", "OPTL"})));
  EXPECT_EQ(
      host.Effects(),
      Lines({"scStartTransaction()", OldValuesCall(7), UpdateCall("CDNAL = Null", 7), UpdateCall("CDNAS = Null", 7),
             "scErrorMessage(0, 2, 2, \"Edit: SYTDS\", 61011, \"CDNAS\")", "scRollBackTransaction()"}));
}

TEST(SYTDS, EditWhoseOldValuesCannotBeReadRollsBackInSilence) {
  ScriptedHost host;
  host.Refuse("scRunQuery", OldValues(7));
  EXPECT_FALSE(host.Run(Act("EditInfo", {"CDNAL"})));
  EXPECT_EQ(host.Calls(), Lines({"scStartTransaction()", OldValuesCall(7), "scRollBackTransaction()"}));
}

TEST(SYTDS, EditReportsATransactionThatDoesNotStart) {
  ScriptedHost host;
  host.Refuse("scStartTransaction");
  EXPECT_FALSE(host.Run(Act("EditInfo", {"CDNAL"})));
  EXPECT_EQ(host.Calls(), Lines({"scStartTransaction()", "scErrorMessage(0, 2, 2, \"Edit: SYTDS\", 62010)",
                                 "scRollBackTransaction()"}));
}

// --- Delete.

TEST(SYTDS, DeleteRemovesTheRecord) {
  ScriptedHost host;
  EXPECT_TRUE(host.Run(Act("DeleteInfo")));
  EXPECT_EQ(host.Calls(), Lines({"scStartTransaction()", "scRunQuery(\"DELETE * FROM SYTDS{NL} WHERE CmdId = 7\")",
                                 "scCommitTransaction()"}));
}

}  // namespace
}  // namespace cordboard
