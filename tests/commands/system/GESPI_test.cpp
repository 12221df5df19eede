#include <gtest/gtest.h>

#include "support/ScriptedHost.h"

namespace cordboard {
namespace {

Action Act(const std::string& function, List parameters = {}) {
  return {.oaRelease = "R7", .FunctionName = function, .CmdName = "GESPI", .CmdId = 7, .ParamList = parameters};
}

// --- The list of CSP.

const std::string readProfile0 = " SELECT CSP FROM GESPI \r\n WHERE CSP = '0' ";
const std::string readProfile0Call = "scRunQuery(\" SELECT CSP FROM GESPI {NL} WHERE CSP = '0' \", out)";
const std::string pushProfile0 = "scPushValidValues([0])";
const std::string subtract = "scSubtractSingleValues(\" SELECT CSP FROM GESPI\")";
const std::string context = "scErrorMessage(0, 2, 2, \"GetValidValueFor: CSP\", ";

TEST(GESPI, OffersProfile0AloneWhileItDoesNotStand) {
  ScriptedHost host;
  host.Rows(readProfile0, {});
  EXPECT_TRUE(host.Run(Act("GetValidValForParam", {"CSP"})));
  EXPECT_EQ(host.Calls(), Lines({readProfile0Call, pushProfile0, subtract}));
}

TEST(GESPI, OffersTheProfilesFrom0To256LessWhatExistsOnceProfile0Stands) {
  ScriptedHost host;
  host.Rows(readProfile0, {{"0"}});
  EXPECT_TRUE(host.Run(Act("GetValidValForParam", {"CSP"})));
  std::string profiles = "0";
  for (int CSP = 1; CSP <= 256; ++CSP) profiles += ", " + std::to_string(CSP);
  EXPECT_EQ(host.Calls(), Lines({readProfile0Call, "scPushValidValues([" + profiles + "])", subtract}));
}

TEST(GESPI, ReportsAListOfProfilesThatCouldNotBeBuilt) {
  {
    ScriptedHost host;
    host.Refuse("scRunQuery");
    EXPECT_FALSE(host.Run(Act("GetValidValForParam", {"CSP"})));
    EXPECT_EQ(host.Calls(), Lines({readProfile0Call, context + "62000)"}));
  }
  {
    ScriptedHost host;
    host.Rows(readProfile0, {});
    host.Refuse("scPushValidValues");
    EXPECT_FALSE(host.Run(Act("GetValidValForParam", {"CSP"})));
    EXPECT_EQ(host.Calls(), Lines({readProfile0Call, pushProfile0, context + "61020, \"CSP\")"}));
  }
  {
    ScriptedHost host;
    host.Rows(readProfile0, {});
    host.Refuse("scSubtractSingleValues");
    EXPECT_FALSE(host.Run(Act("GetValidValForParam", {"CSP"})));
    EXPECT_EQ(host.Calls(), Lines({readProfile0Call, pushProfile0, subtract, context + "61020, \"CSP\")"}));
  }
}

// --- The other lists.

TEST(GESPI, ListsTheFixedValuesOfEveryDigit) {
  for (const char* parameter :
       {"CDIV_D1",        "CDIV_D2D3", "CDIV_D4",  "CDIV_D5",        "CDIV_D6",        "CDIV_D7",
        "CDIV_D8",        "NPRES_D1",  "NPRES_D2", "NPRES_D3",       "ROC_D2",         "ROC_D3",
        "ROC_D4",         "ROC_D5D6",  "SERV_D1",  "SERV_D2D3_SUB1", "SERV_D2D3_SUB2", "SERV_D4D5_SUB1",
        "SERV_D4D5_SUB2", "SERV_D6",   "SERV_D7",  "SERV_D8",        "SERV_D9_SUB1",   "SERV_D9_SUB2",
        "SERV_D10",       "SERV_D11",  "SERV_D12", "TRAF_D1",        "TRAF_D2",        "TRAF_D3"}) {
    ScriptedHost host;
    EXPECT_TRUE(host.Run(Act("GetValidValForParam", {parameter}))) << parameter;
    EXPECT_EQ(host.Calls(), Lines({"scSQLSelectValuesAndDesc()"})) << parameter;
  }
}

TEST(GESPI, ServesNoOtherParameterAndHasNoChecks) {
  ScriptedHost host;
  for (const char* parameter : {"CDIV", "ROC_D1", "SERV_D2D3", "DESCRIPTION"})
    EXPECT_FALSE(host.Run(Act("GetValidValForParam", {parameter}))) << parameter;
  EXPECT_FALSE(host.Run(Act("StatCheck", {"CSP"})));
  EXPECT_FALSE(host.Run(Act("GenerateCmd", {1})));
  EXPECT_EQ(host.Calls(), "");
}

// --- Add, edit and delete.

TEST(GESPI, AddsEditsAndDeletesARecordLikeMostCommands) {
  ScriptedHost host;
  host.Param("CSP", "0");
  EXPECT_TRUE(host.Run(Act("SetInfo", {"CMDID", "CSP", "NUMTYP"})));
  EXPECT_TRUE(host.Run(Act("EditInfo", {"CSP"})));
  EXPECT_TRUE(host.Run(Act("DeleteInfo")));
  EXPECT_EQ(
      host.Effects(),
      Lines({"scStartTransaction()", "scBuildCmdID()",
             "scSQLInsert(\"GESPI\", [\"CMDID\", \"CSP\", \"NUMTYP\"], [1001, \"0\", \"\"])", "scCommitTransaction()",
             "scStartTransaction()", "scRunQuery(\"UPDATE GESPI SET CSP = '0'{NL} WHERE CmdId = 7\")",
             "scCommitTransaction()", "scStartTransaction()", "scRunQuery(\"DELETE * FROM GESPI{NL} WHERE CmdId = 7\")",
             "scCommitTransaction()"}));
}

}  // namespace
}  // namespace cordboard
