#include <gtest/gtest.h>

#include "script/RunTimeFailure.h"
#include "support/ScriptedHost.h"

namespace cordboard {
namespace {

Action Act(const std::string& function, List parameters = {}, const std::string& release = "R7") {
  return {.oaRelease = release, .FunctionName = function, .CmdName = "RODAI", .CmdId = 7, .ParamList = parameters};
}

std::string Statement(const std::string& sql) { return "scRunQuery(" + TraceText(Value(sql)) + ")"; }
std::string Query(const std::string& sql) { return "scRunQuery(" + TraceText(Value(sql)) + ", out)"; }
std::string StaticQuery(const std::string& sql) { return "scRunQuery(" + TraceText(Value(sql)) + ", out, \"static\")"; }
std::string Error(const std::string& context, const std::string& codeAndArguments) {
  return "scErrorMessage(0, 2, 2, \"" + context + "\", " + codeAndArguments + ")";
}

// --- The list, and what is not served.

TEST(RODAI, ListsTheFreeRoutes) {
  ScriptedHost host;
  EXPECT_TRUE(host.Run(Act("GetValidValForParam", {"ROU"})));
  EXPECT_EQ(host.Calls(), Lines({"scCollectSingleValues(\"Select ROU from ROUTE Where Used=False\")"}));
}

TEST(RODAI, ReportsAListThatCouldNotBeCollected) {
  ScriptedHost host;
  host.Refuse("scCollectSingleValues");
  EXPECT_FALSE(host.Run(Act("GetValidValForParam", {"ROU"})));
  EXPECT_EQ(host.Calls(), Lines({"scCollectSingleValues(\"Select ROU from ROUTE Where Used=False\")",
                                 Error("GetValidValForParam", "61020, \"ROU\"")}));
}

TEST(RODAI, ServesNoOtherParameterAndNoOtherAction) {
  ScriptedHost host;
  EXPECT_FALSE(host.Run(Act("GetValidValForParam", {"TYPE"})));
  EXPECT_FALSE(host.Run(Act("StatCheck", {"ROU"})));
  EXPECT_FALSE(host.Run(Act("EditInfo", {"ROU"})));
  EXPECT_FALSE(host.Run(Act("DeleteInfo")));
  EXPECT_EQ(host.Calls(), "");
}

// --- Add.

const std::string insertCall = "scSQLInsert(\"RODAI\", [\"CMDID\", \"NUMTYP\", \"ROU\"], [1001, \"XX\", Empty])";

TEST(RODAI, AddInsertsTheFormWhereTheIdentifierAloneIsSpecial) {
  ScriptedHost host;
  host.Param("NUMTYP", "XX");
  EXPECT_TRUE(host.Run(Act("SetInfo", {"CMDID", "NUMTYP", "ROU"})));
  EXPECT_EQ(host.Calls(), Lines({"scStartTransaction()", "scBuildCmdID()", "scGetParamValue(\"NUMTYP\")",
                                 "scGetParamValue(\"ROU\")", insertCall, "scCommitTransaction()"}));
}

TEST(RODAI, AddReportsAFailedInsertOnce) {
  ScriptedHost host;
  host.Param("NUMTYP", "XX");
  host.Refuse("scSQLInsert");
  host.Refuse("scRollBackTransaction");
  EXPECT_FALSE(host.Run(Act("SetInfo", {"CMDID", "NUMTYP", "ROU"})));
  EXPECT_EQ(host.Effects(),
            Lines({"scStartTransaction()", "scBuildCmdID()", insertCall, Error("Add: RODAI", "61024, \"RODAI\""),
                   "scRollBackTransaction()", Error("Add: RODAI", "62012")}));
}

TEST(RODAI, AddReportsItsTransaction) {
  {
    ScriptedHost host;
    host.Refuse("scStartTransaction");
    EXPECT_FALSE(host.Run(Act("SetInfo", {"CMDID"})));
    EXPECT_EQ(host.Calls(), Lines({"scStartTransaction()", Error("Add: RODAI", "62010"), "scRollBackTransaction()"}));
  }
  {
    ScriptedHost host;
    host.Refuse("scCommitTransaction");
    EXPECT_TRUE(host.Run(Act("SetInfo", {"CMDID"})));
    EXPECT_TRUE(host.Calls().ends_with(Lines({"scCommitTransaction()", Error("Add: RODAI", "62011")})));
  }
}

// --- Generate.

const std::string readAll = "SELECT ROU, PROTOCOL, MARKET FROM ROCAI";

std::string LookUp(const std::string& PROTOCOL, const std::string& MARKET, const std::string& release) {
  return "SELECT TYPE, VARI, VARO, VARC, FILTER FROM ROUTEDATA\r\nWHERE PROTOCOL='" + PROTOCOL + "' AND Market='" +
         MARKET + "'\r\nAND RELEASE='" + release + "'";
}

std::string Built(const std::string& line) { return "INSERT INTO BuiltCmd VALUES (12,'" + line + "')"; }

TEST(RODAI, GeneratesALineForEachRouteWithoutReadingItsOwnTable) {
  ScriptedHost host;
  host.Rows(readAll, {{" 3 ", "4"}, {"ISDN ", "CAS"}, {" SE", "DE"}});
  // The first of several rows counts, and its values are not trimmed.
  host.Rows(LookUp("ISDN", "SE", "R7"), {{"T1", "T2"}, {" I1 ", "I2"}, {"O1", "O2"}, {"C1", "C2"}, {"F1", "F2"}});
  host.Rows(LookUp("CAS", "DE", "R7"), {{""}, {""}, {""}, {""}, {Value::Null()}});
  EXPECT_TRUE(host.Run(Act("GenerateCmd", {"12"})));
  EXPECT_EQ(host.Calls(), Lines({Query(readAll), StaticQuery(LookUp("ISDN", "SE", "R7")),
                                 Statement(Built("RODAI:ROU=3,TYPE=T1,VARI= I1 ,VARO=O1,VARC=C1,FILTER=F1;")),
                                 StaticQuery(LookUp("CAS", "DE", "R7")), Statement(Built("RODAI:ROU=4;"))}));
}

TEST(RODAI, GeneratesTheValuesOfTheRelease) {
  for (const std::string release : {"R6", "R6/1", "R7", "R8", "X"}) {
    ScriptedHost host;
    host.Rows(readAll, {{"3"}, {"ISDN"}, {"SE"}});
    host.Rows(LookUp("ISDN", "SE", release), {{release}, {""}, {""}, {""}, {Value()}});
    EXPECT_TRUE(host.Run(Act("GenerateCmd", {12.9}, release)));
    EXPECT_TRUE(host.Calls().ends_with(Lines({Statement(Built("RODAI:ROU=3,TYPE=" + release + ";"))})));
  }
}

TEST(RODAI, GeneratesALineForARecordOfNothingButNulls) {
  ScriptedHost host;
  host.Rows(readAll, {{Value::Null()}, {Value::Null()}, {Value::Null()}});
  host.Rows(LookUp("", "", "R7"), {{"T"}, {""}, {"O"}, {""}, {""}});
  EXPECT_TRUE(host.Run(Act("GenerateCmd", {"12"})));
  EXPECT_TRUE(host.Calls().ends_with(Lines({Statement(Built("RODAI:ROU=,TYPE=T,VARO=O;"))})));
}

TEST(RODAI, GenerateWithoutRoutesWritesNothing) {
  ScriptedHost host;
  host.Rows(readAll, {});
  EXPECT_TRUE(host.Run(Act("GenerateCmd", {"12"})));
  EXPECT_EQ(host.Calls(), Lines({Query(readAll)}));
}

TEST(RODAI, GenerateReportsRoutesThatCouldNotBeRead) {
  ScriptedHost host;
  host.Refuse("scRunQuery", readAll);
  EXPECT_FALSE(host.Run(Act("GenerateCmd", {"12"})));
  EXPECT_EQ(host.Calls(), Lines({Query(readAll), Error("Generating: RODAI", "61019")}));
}

TEST(RODAI, GenerateSkipsARecordInSilenceWhereTheLookUpFails) {
  ScriptedHost host;
  host.Rows(readAll, {{"3", "4"}, {"ISDN", "CAS"}, {"SE", "SE"}});
  host.Refuse("scRunQuery", LookUp("ISDN", "SE", "R7"));
  host.Rows(LookUp("CAS", "SE", "R7"), {{"T"}, {""}, {""}, {""}, {""}});
  EXPECT_TRUE(host.Run(Act("GenerateCmd", {"12"})));
  EXPECT_EQ(host.Calls(), Lines({Query(readAll), StaticQuery(LookUp("ISDN", "SE", "R7")),
                                 StaticQuery(LookUp("CAS", "SE", "R7")), Statement(Built("RODAI:ROU=4,TYPE=T;"))}));
}

TEST(RODAI, GenerateFailsTheCallAtARouteWithoutValuesAndLeavesTheEarlierLines) {
  ScriptedHost host;
  host.Rows(readAll, {{"3", "4"}, {"ISDN", "CAS"}, {"SE", "SE"}});
  host.Rows(LookUp("ISDN", "SE", "R7"), {{"T"}, {""}, {""}, {""}, {""}});
  host.Rows(LookUp("CAS", "SE", "R7"), {});
  EXPECT_THROW(host.Run(Act("GenerateCmd", {"12"})), RunTimeFailure);
  EXPECT_EQ(host.Calls(), Lines({Query(readAll), StaticQuery(LookUp("ISDN", "SE", "R7")),
                                 Statement(Built("RODAI:ROU=3,TYPE=T;")), StaticQuery(LookUp("CAS", "SE", "R7"))}));
}

TEST(RODAI, GenerateFailsTheCallAtANullInAValueButFILTER) {
  for (std::size_t nullColumn = 0; nullColumn < 4; ++nullColumn) {
    ScriptedHost host;
    host.Rows(readAll, {{"3"}, {"ISDN"}, {"SE"}});
    std::vector<std::vector<Value>> values = {{"T"}, {"I"}, {"O"}, {"C"}, {"F"}};
    values[nullColumn] = {Value::Null()};
    host.Rows(LookUp("ISDN", "SE", "R7"), values);
    EXPECT_THROW(host.Run(Act("GenerateCmd", {"12"})), RunTimeFailure) << nullColumn;
    EXPECT_EQ(host.Calls(), Lines({Query(readAll), StaticQuery(LookUp("ISDN", "SE", "R7"))}));
  }
}

TEST(RODAI, GenerateGoesOnBehindALineThatWasNotWrittenAndAnswersForTheLast) {
  const std::string first = Built("RODAI:ROU=3,TYPE=T;");
  const std::string second = Built("RODAI:ROU=4,TYPE=T;");
  for (const auto& [refused, answer] : {std::pair(first, true), std::pair(second, false)}) {
    ScriptedHost host;
    host.Rows(readAll, {{"3", "4"}, {"ISDN", "ISDN"}, {"SE", "SE"}});
    host.Rows(LookUp("ISDN", "SE", "R7"), {{"T"}, {""}, {""}, {""}, {""}});
    host.Refuse("scRunQuery", refused);
    EXPECT_EQ(host.Run(Act("GenerateCmd", {"12"})), answer);
    const std::string lookUp = StaticQuery(LookUp("ISDN", "SE", "R7"));
    const std::string report = Error("Generating: RODAI", "61019") + "\n";
    EXPECT_EQ(host.Calls(), Lines({Query(readAll), lookUp, Statement(first)}) + (answer ? report : "") +
                                Lines({lookUp, Statement(second)}) + (answer ? "" : report));
  }
}

}  // namespace
}  // namespace cordboard
