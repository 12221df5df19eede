#include <gtest/gtest.h>

#include "script/RunTimeFailure.h"
#include "support/ScriptedHost.h"

namespace cordboard {
namespace {

Action Act(const std::string& function, List parameters = {}, const std::string& release = "R7") {
  return {.oaRelease = release, .FunctionName = function, .CmdName = "ROCAI", .CmdId = 7, .ParamList = parameters};
}

std::string Statement(const std::string& sql) { return "scRunQuery(" + TraceText(Value(sql)) + ")"; }
std::string Query(const std::string& sql) { return "scRunQuery(" + TraceText(Value(sql)) + ", out)"; }
std::string StaticQuery(const std::string& sql) { return "scRunQuery(" + TraceText(Value(sql)) + ", out, \"static\")"; }
std::string Error(const std::string& context, const std::string& codeAndArguments) {
  return "scErrorMessage(0, 2, 2, \"" + context + "\", " + codeAndArguments + ")";
}

// --- Lists.

const std::string freeRoutes = "Select ROU from ROUTE Where Used=False";
const std::string freeRoutesCall = "scCollectSingleValues(\"Select ROU from ROUTE Where Used=False\")";

TEST(ROCAI, ListsTheFreeRoutesInTheOrderOfTheDatabase) {
  ScriptedHost host;
  EXPECT_TRUE(host.Run(Act("GetValidValForParam", {"ROU"})));
  EXPECT_EQ(host.Calls(), Lines({freeRoutesCall}));
}

TEST(ROCAI, ListsTheProtocolsOfTheRelease) {
  ScriptedHost host;
  EXPECT_TRUE(host.Run(Act("GetValidValForParam", {"PROTOCOL"}, "R6/1")));
  EXPECT_EQ(host.Calls(),
            Lines({"scCollectSingleValues(\"SELECT distinct Protocol from RouteData where RELEASE ='R6/1'\", "
                   "\"static\")"}));
}

TEST(ROCAI, ListsTheMarketsOfTheProtocolOnTheForm) {
  ScriptedHost host;
  host.Param("PROTOCOL", "ISDN");
  EXPECT_TRUE(host.Run(Act("GetValidValForParam", {"MARKET"}, "R8")));
  EXPECT_EQ(host.Calls(), Lines({"scGetParamValue(\"PROTOCOL\")",
                                 "scCollectSingleValues(\"Select Market from RouteData Where Protocol='ISDN'{NL}"
                                 "AND RELEASE ='R8'\", \"static\")"}));
}

TEST(ROCAI, ListsNoMarketsOfAnUngivenProtocol) {
  for (const Value& ungiven : {Value(), Value::Null(), Value("")}) {
    ScriptedHost host;
    host.Param("PROTOCOL", ungiven);
    EXPECT_TRUE(host.Run(Act("GetValidValForParam", {"MARKET"})));
    EXPECT_EQ(host.Effects(), Lines({"scCollectSingleValues(\"Select Market from RouteData Where Protocol=''{NL}"
                                     "AND RELEASE ='R7'\", \"static\")"}));
  }
}

TEST(ROCAI, ReportsAListThatCouldNotBeCollected) {
  for (const std::string parameter : {"ROU", "PROTOCOL", "MARKET"}) {
    ScriptedHost host;
    host.Refuse("scCollectSingleValues");
    EXPECT_FALSE(host.Run(Act("GetValidValForParam", {parameter})));
    EXPECT_TRUE(host.Effects().ends_with(Lines({Error("GetValidValForParam", "61020, \"" + parameter + "\"")})))
        << host.Effects();
  }
}

TEST(ROCAI, ServesNoOtherParameter) {
  ScriptedHost host;
  for (const char* parameter : {"TRAF", "DIST", "DISL", "rou", ""}) {
    EXPECT_FALSE(host.Run(Act("GetValidValForParam", {parameter})));
  }
  for (const char* parameter : {"MARKET", "ROU", "DIST"}) EXPECT_FALSE(host.Run(Act("StatCheck", {parameter})));
  EXPECT_FALSE(host.Run(Act("Unknown", {"ROU"})));
  EXPECT_EQ(host.Calls(), "");
}

// --- The check of the protocol.

const std::string markets = "SELECT MARKET FROM ROUTEDATA WHERE PROTOCOL='ISDN'\r\nAND RELEASE='R7'";

TEST(ROCAI, AMarketThatTheNewProtocolHasSurvivesTheCheck) {
  ScriptedHost host;
  host.Param("PROTOCOL", "ISDN");
  host.Param("MARKET", "SE");
  host.Rows(markets, {{"DE", " SE ", "SE"}});
  EXPECT_TRUE(host.Run(Act("StatCheck", {"PROTOCOL"})));
  EXPECT_EQ(host.Calls(),
            Lines({"scGetParamValue(\"PROTOCOL\")", "scGetParamValue(\"MARKET\")", "scResetParam(\"MARKET\")",
                   StaticQuery(markets), "scSetParamValue(\"MARKET\", \"SE\")"}));
}

TEST(ROCAI, AMarketThatTheNewProtocolLacksStaysReset) {
  for (const Value& market : {Value("se"), Value("SE "), Value("S"), Value::Null(), Value()}) {
    ScriptedHost host;
    host.Param("PROTOCOL", "ISDN");
    host.Param("MARKET", market);
    host.Rows(markets, {{"DE", "SE", Value::Null()}});
    EXPECT_TRUE(host.Run(Act("StatCheck", {"PROTOCOL"})));
    EXPECT_EQ(host.Effects(), Lines({"scResetParam(\"MARKET\")", StaticQuery(markets)}));
  }
}

TEST(ROCAI, AProtocolWithoutMarketsLeavesTheMarketReset) {
  ScriptedHost host;
  host.Param("PROTOCOL", "ISDN");
  host.Param("MARKET", "SE");
  host.Rows(markets, {});
  EXPECT_TRUE(host.Run(Act("StatCheck", {"PROTOCOL"})));
  EXPECT_EQ(host.Effects(), Lines({"scResetParam(\"MARKET\")", StaticQuery(markets)}));
}

TEST(ROCAI, MarketsThatCouldNotBeReadLeaveTheMarketResetInSilence) {
  ScriptedHost host;
  host.Param("PROTOCOL", "ISDN");
  host.Param("MARKET", "SE");
  host.Refuse("scRunQuery", markets);
  EXPECT_TRUE(host.Run(Act("StatCheck", {"PROTOCOL"})));
  EXPECT_EQ(host.Effects(), Lines({"scResetParam(\"MARKET\")", StaticQuery(markets)}));
}

TEST(ROCAI, AResetThatFailsIsReportedAndTheCheckGoesOn) {
  ScriptedHost host;
  host.Param("PROTOCOL", "ISDN");
  host.Param("MARKET", "SE");
  host.Refuse("scResetParam");
  host.Rows(markets, {{"SE"}});
  EXPECT_TRUE(host.Run(Act("StatCheck", {"PROTOCOL"})));
  EXPECT_EQ(host.Effects(), Lines({"scResetParam(\"MARKET\")", Error("StatCheck", "61013, \"MARKET\""),
                                   StaticQuery(markets), "scSetParamValue(\"MARKET\", \"SE\")"}));
}

TEST(ROCAI, AResetThatFailsWithoutAMatchMakesTheCheckFalse) {
  ScriptedHost host;
  host.Param("PROTOCOL", "ISDN");
  host.Param("MARKET", "SE");
  host.Refuse("scResetParam");
  host.Rows(markets, {});
  EXPECT_FALSE(host.Run(Act("StatCheck", {"PROTOCOL"})));
  EXPECT_EQ(host.Effects(),
            Lines({"scResetParam(\"MARKET\")", Error("StatCheck", "61013, \"MARKET\""), StaticQuery(markets)}));
}

TEST(ROCAI, AMarketThatCannotBePutBackIsReportedWithoutContext) {
  ScriptedHost host;
  host.Param("PROTOCOL", "ISDN");
  host.Param("MARKET", "SE");
  host.Refuse("scSetParamValue");
  host.Rows(markets, {{"SE"}});
  EXPECT_FALSE(host.Run(Act("StatCheck", {"PROTOCOL"})));
  EXPECT_EQ(host.Effects(), Lines({"scResetParam(\"MARKET\")", StaticQuery(markets),
                                   "scSetParamValue(\"MARKET\", \"SE\")", Error("", "61016, \"MARKET\"")}));
}

// --- Add.

const List columns = {"CMDID", "ROU", "PROTOCOL", "MARKET", "TRAF", "NUMTYP"};
const std::string takeRoute = " UPDATE ROUTE SET USED = TRUE\r\nWHERE ROU = '3'";
const std::string insertCall =
    "scSQLInsert(\"ROCAI\", [\"CMDID\", \"ROU\", \"PROTOCOL\", \"MARKET\", \"TRAF\", \"NUMTYP\"], "
    "[1001, \"3\", \"ISDN\", \"SE\", Empty, \"XX\"])";

void FillForm(ScriptedHost& host) {
  host.Param("ROU", "3");
  host.Param("PROTOCOL", "ISDN");
  host.Param("MARKET", "SE");
  host.Param("NUMTYP", "XX");
}

TEST(ROCAI, AddInsertsTheFormAndTakesTheRoute) {
  ScriptedHost host;
  FillForm(host);
  EXPECT_TRUE(host.Run(Act("SetInfo", columns)));
  EXPECT_EQ(host.Calls(),
            Lines({"scStartTransaction()", "scBuildCmdID()", "scGetParamValue(\"ROU\")",
                   "scGetParamValue(\"PROTOCOL\")", "scGetParamValue(\"MARKET\")", "scGetParamValue(\"TRAF\")",
                   "scGetParamValue(\"NUMTYP\")", insertCall, Statement(takeRoute), "scCommitTransaction()"}));
}

TEST(ROCAI, AddWithoutTheColumnTakesTheEmptyRoute) {
  ScriptedHost host;
  EXPECT_TRUE(host.Run(Act("SetInfo", {"CmdId"})));
  EXPECT_EQ(host.Calls(),
            Lines({"scStartTransaction()", "scGetParamValue(\"CmdId\")", "scSQLInsert(\"ROCAI\", [\"CmdId\"], [Empty])",
                   Statement(" UPDATE ROUTE SET USED = TRUE\r\nWHERE ROU = ''"), "scCommitTransaction()"}));
}

TEST(ROCAI, AddThatCannotStartIsRolledBackAllTheSame) {
  ScriptedHost host;
  host.Refuse("scStartTransaction");
  EXPECT_FALSE(host.Run(Act("SetInfo", columns)));
  EXPECT_EQ(host.Calls(), Lines({"scStartTransaction()", Error("Add: ROCAI", "62010"), "scRollBackTransaction()"}));
}

TEST(ROCAI, AddReportsAFailedInsertTwice) {
  ScriptedHost host;
  FillForm(host);
  host.Refuse("scSQLInsert");
  EXPECT_FALSE(host.Run(Act("SetInfo", columns)));
  EXPECT_EQ(host.Effects(),
            Lines({"scStartTransaction()", "scBuildCmdID()", insertCall, Error("Add: ROCAI", "61024, \"ROCAI\""),
                   Error("Add: ROCAI", "61005, Empty"), "scRollBackTransaction()"}));
}

TEST(ROCAI, AddReportsARouteThatCouldNotBeTakenWithAnEmptyArgument) {
  ScriptedHost host;
  FillForm(host);
  host.Refuse("scRunQuery", takeRoute);
  EXPECT_FALSE(host.Run(Act("SetInfo", columns)));
  EXPECT_EQ(host.Effects(),
            Lines({"scStartTransaction()", "scBuildCmdID()", insertCall, Statement(takeRoute),
                   Error("Set Number Used in ROUTE Table", "61005, Empty"), "scRollBackTransaction()"}));
}

TEST(ROCAI, AddClosesUnderTheContextOfItsLastStep) {
  {
    ScriptedHost host;
    FillForm(host);
    host.Refuse("scCommitTransaction");
    EXPECT_TRUE(host.Run(Act("SetInfo", columns)));
    EXPECT_TRUE(
        host.Effects().ends_with(Lines({"scCommitTransaction()", Error("Set Number Used in ROUTE Table", "62011")})));
  }
  {
    ScriptedHost host;
    FillForm(host);
    host.Refuse("scRunQuery", takeRoute);
    host.Refuse("scRollBackTransaction");
    EXPECT_FALSE(host.Run(Act("SetInfo", columns)));
    EXPECT_TRUE(
        host.Effects().ends_with(Lines({"scRollBackTransaction()", Error("Set Number Used in ROUTE Table", "62012")})));
  }
  {
    ScriptedHost host;
    FillForm(host);
    host.Refuse("scSQLInsert");
    host.Refuse("scRollBackTransaction");
    EXPECT_FALSE(host.Run(Act("SetInfo", columns)));
    EXPECT_TRUE(host.Effects().ends_with(Lines({"scRollBackTransaction()", Error("Add: ROCAI", "62012")})));
  }
}

TEST(ROCAI, AddWithoutBoundsFailsBeforeTheTransaction) {
  ScriptedHost host;
  EXPECT_THROW(host.Run(Act("SetInfo", List())), RunTimeFailure);
  EXPECT_EQ(host.Calls(), "");
}

// --- Edit.

const std::string readOld = "SELECT ROU, PROTOCOL, MARKET, DIST, DISL, TRAF FROM ROCAI WHERE CmdId = 7";

std::string Write(const std::string& column, const std::string& value) {
  return "UPDATE ROCAI SET " + column + " = " + value + "\r\n WHERE CmdId = 7";
}

const std::string freeOld = "UPDATE ROUTE SET USED=FALSE WHERE ROU='3'";

TEST(ROCAI, EditWritesAllSixColumnsAndMovesTheRoute) {
  ScriptedHost host;
  host.Rows(readOld, {{"3"}, {"ISDN"}, {"SE"}, {"10"}, {"20"}, {"30"}});
  host.Param("ROU", "5");
  host.Param("DIST", "11");
  host.Param("TRAF", "O'X");
  EXPECT_TRUE(host.Run(Act("EditInfo", {"DIST"})));
  EXPECT_EQ(host.Calls(),
            Lines({"scStartTransaction()", Query(readOld), "scGetParamValue(\"ROU\")", Statement(Write("ROU", "'5'")),
                   Statement(freeOld), Statement("UPDATE ROUTE SET USED=TRUE WHERE ROU='5'"),
                   "scGetParamValue(\"PROTOCOL\")", Statement(Write("PROTOCOL", "'ISDN'")),
                   "scGetParamValue(\"MARKET\")", Statement(Write("MARKET", "'SE'")), "scGetParamValue(\"DIST\")",
                   Statement(Write("DIST", "'11'")), "scGetParamValue(\"DISL\")", Statement(Write("DISL", "'20'")),
                   "scGetParamValue(\"TRAF\")", Statement(Write("TRAF", "'O'X'")), "scCommitTransaction()"}));
}

TEST(ROCAI, EditWithNothingGivenRewritesTheOldValuesAndLeavesTheRouteUsed) {
  for (const Value& blank : {Value(), Value::Null(), Value("")}) {
    ScriptedHost host;
    host.Rows(readOld, {{"3"}, {"ISDN"}, {"SE"}, {Value::Null()}, {""}, {Value()}});
    for (const char* column : {"ROU", "PROTOCOL", "MARKET", "DIST", "DISL", "TRAF"}) host.Param(column, blank);
    EXPECT_TRUE(host.Run(Act("EditInfo")));
    EXPECT_EQ(host.Effects(),
              Lines({"scStartTransaction()", Query(readOld), Statement(Write("ROU", "'3'")), Statement(freeOld),
                     Statement("UPDATE ROUTE SET USED=TRUE WHERE ROU='3'"), Statement(Write("PROTOCOL", "'ISDN'")),
                     Statement(Write("MARKET", "'SE'")), Statement(Write("DIST", "Null")),
                     Statement(Write("DISL", "Null")), Statement(Write("TRAF", "Null")), "scCommitTransaction()"}));
  }
}

TEST(ROCAI, EditOfARecordWithoutRouteWritesNullAndTouchesTheEmptyRoute) {
  ScriptedHost host;
  host.Rows(readOld, {{Value::Null()}, {"ISDN"}, {"SE"}, {"10"}, {"20"}, {"30"}});
  EXPECT_TRUE(host.Run(Act("EditInfo")));
  EXPECT_TRUE(host.Effects().starts_with(
      Lines({"scStartTransaction()", Query(readOld), Statement(Write("ROU", "Null")),
             Statement("UPDATE ROUTE SET USED=FALSE WHERE ROU=''"),
             Statement("UPDATE ROUTE SET USED=TRUE WHERE ROU=''"), Statement(Write("PROTOCOL", "'ISDN'"))})));
}

TEST(ROCAI, EditThatCannotReadTheRecordIsRolledBackInSilence) {
  ScriptedHost host;
  host.Refuse("scRunQuery", readOld);
  EXPECT_FALSE(host.Run(Act("EditInfo")));
  EXPECT_EQ(host.Calls(), Lines({"scStartTransaction()", Query(readOld), "scRollBackTransaction()"}));
}

TEST(ROCAI, EditOfARecordThatIsGoneFailsTheCallWithTheTransactionOpen) {
  ScriptedHost host;
  host.Rows(readOld, {});
  EXPECT_THROW(host.Run(Act("EditInfo")), RunTimeFailure);
  EXPECT_EQ(host.Effects(), Lines({"scStartTransaction()", Query(readOld)}));
}

TEST(ROCAI, EditOfARecordThatIsGoneFailsAtTheFirstReadOfTheOldRow) {
  ScriptedHost host;
  host.Rows(readOld, {});
  host.Param("ROU", "5");
  EXPECT_THROW(host.Run(Act("EditInfo")), RunTimeFailure);
  EXPECT_EQ(host.Effects(), Lines({"scStartTransaction()", Query(readOld), Statement(Write("ROU", "'5'"))}));
}

TEST(ROCAI, EditStopsAtTheFirstStatementThatFails) {
  const std::vector<std::pair<std::string, std::string>> steps = {{Write("ROU", "'3'"), "ROU"},
                                                                  {freeOld, "ROU"},
                                                                  {"UPDATE ROUTE SET USED=TRUE WHERE ROU='3'", "ROU"},
                                                                  {Write("PROTOCOL", "'ISDN'"), "PROTOCOL"},
                                                                  {Write("MARKET", "'SE'"), "MARKET"},
                                                                  {Write("DIST", "'10'"), "DIST"},
                                                                  {Write("DISL", "'20'"), "DISL"},
                                                                  {Write("TRAF", "'30'"), "TRAF"}};
  for (const auto& [statement, column] : steps) {
    ScriptedHost host;
    host.Rows(readOld, {{"3"}, {"ISDN"}, {"SE"}, {"10"}, {"20"}, {"30"}});
    host.Refuse("scRunQuery", statement);
    EXPECT_FALSE(host.Run(Act("EditInfo")));
    EXPECT_TRUE(host.Effects().ends_with(
        Lines({Statement(statement), Error("Edit: ROCAI", "61011, \"" + column + "\""), "scRollBackTransaction()"})))
        << host.Effects();
  }
}

TEST(ROCAI, EditReportsItsTransaction) {
  {
    ScriptedHost host;
    host.Refuse("scStartTransaction");
    host.Refuse("scRollBackTransaction");
    EXPECT_FALSE(host.Run(Act("EditInfo")));
    EXPECT_EQ(host.Calls(), Lines({"scStartTransaction()", Error("Edit: ROCAI", "62010"), "scRollBackTransaction()",
                                   Error("Edit: ROCAI", "62012")}));
  }
  {
    ScriptedHost host;
    host.Rows(readOld, {{"3"}, {"ISDN"}, {"SE"}, {"10"}, {"20"}, {"30"}});
    host.Refuse("scCommitTransaction");
    EXPECT_TRUE(host.Run(Act("EditInfo")));
    EXPECT_TRUE(host.Effects().ends_with(Lines({"scCommitTransaction()", Error("Edit: ROCAI", "62011")})));
  }
}

// --- Delete.

const std::string readRoute = "SELECT ROU FROM ROCAI\r\n WHERE CmdID = 7";
const std::string deleteRecord = "DELETE * FROM ROCAI\r\n WHERE CmdId = 7";

TEST(ROCAI, DeleteRemovesTheRecordAndFreesTheRoute) {
  ScriptedHost host;
  host.Rows(readRoute, {{"3"}});
  EXPECT_TRUE(host.Run(Act("DeleteInfo")));
  EXPECT_EQ(host.Calls(), Lines({"scStartTransaction()", Query(readRoute), Statement(deleteRecord), Statement(freeOld),
                                 "scCommitTransaction()"}));
}

TEST(ROCAI, DeleteOfAnUnknownRecordReportsAndRollsBack) {
  ScriptedHost host;
  host.Rows(readRoute, {});
  EXPECT_FALSE(host.Run(Act("DeleteInfo")));
  EXPECT_EQ(host.Calls(), Lines({"scStartTransaction()", Query(readRoute), Error("Delete: ROCAI", "61007"),
                                 "scRollBackTransaction()"}));
}

TEST(ROCAI, DeleteThatCannotReadTheRecordReportsAndRollsBack) {
  ScriptedHost host;
  host.Refuse("scRunQuery", readRoute);
  EXPECT_FALSE(host.Run(Act("DeleteInfo")));
  EXPECT_EQ(host.Calls(), Lines({"scStartTransaction()", Query(readRoute),
                                 Error("Delete: ROCAI", "61012, \"ROCAI\", 7"), "scRollBackTransaction()"}));
}

TEST(ROCAI, DeleteRollsBackInSilenceWhenAStatementFails) {
  {
    ScriptedHost host;
    host.Rows(readRoute, {{"3"}});
    host.Refuse("scRunQuery", deleteRecord);
    EXPECT_FALSE(host.Run(Act("DeleteInfo")));
    EXPECT_EQ(host.Calls(),
              Lines({"scStartTransaction()", Query(readRoute), Statement(deleteRecord), "scRollBackTransaction()"}));
  }
  {
    ScriptedHost host;
    host.Rows(readRoute, {{"3"}});
    host.Refuse("scRunQuery", freeOld);
    EXPECT_FALSE(host.Run(Act("DeleteInfo")));
    EXPECT_EQ(host.Calls(), Lines({"scStartTransaction()", Query(readRoute), Statement(deleteRecord),
                                   Statement(freeOld), "scRollBackTransaction()"}));
  }
}

TEST(ROCAI, DeleteReportsItsTransaction) {
  {
    ScriptedHost host;
    host.Refuse("scStartTransaction");
    host.Refuse("scRollBackTransaction");
    EXPECT_FALSE(host.Run(Act("DeleteInfo")));
    EXPECT_EQ(host.Calls(), Lines({"scStartTransaction()", Error("Delete: ROCAI", "62010"), "scRollBackTransaction()",
                                   Error("Delete: ROCAI", "62012")}));
  }
  {
    ScriptedHost host;
    host.Rows(readRoute, {{"3"}});
    host.Refuse("scCommitTransaction");
    EXPECT_TRUE(host.Run(Act("DeleteInfo")));
    EXPECT_TRUE(host.Calls().ends_with(Lines({"scCommitTransaction()", Error("Delete: ROCAI", "62011")})));
  }
}

// --- Generate.

const std::string readAll = "SELECT ROU, PROTOCOL, MARKET, TRAF, DIST, DISL FROM ROCAI";

std::string LookUp(const std::string& PROTOCOL, const std::string& MARKET, const std::string& release) {
  return "SELECT SEL, SIG, TRM, SERV, NODG, BCAP FROM ROUTEDATA\r\nWHERE PROTOCOL='" + PROTOCOL + "' AND Market='" +
         MARKET + "'\r\nAND RELEASE='" + release + "'";
}

std::string Built(const std::string& line) { return "INSERT INTO BuiltCmd VALUES (12,'" + line + "')"; }

TEST(ROCAI, GeneratesALineFromTheRouteAndItsSignallingValues) {
  ScriptedHost host;
  host.Rows(readAll,
            {{" 3 ", "4"}, {"ISDN ", "CAS"}, {" SE", "DE"}, {" 30 ", ""}, {" 10 ", Value::Null()}, {" 20 ", "  "}});
  // The first of several rows counts, and its values are not trimmed.
  host.Rows(LookUp("ISDN", "SE", "R7"),
            {{"S1", "S2"}, {"G1", "G2"}, {"T1", "T2"}, {" V1 ", "V2"}, {"5", "6"}, {"B1", "B2"}});
  host.Rows(LookUp("CAS", "DE", "R7"), {{""}, {""}, {""}, {""}, {Value::Null()}, {""}});
  EXPECT_TRUE(host.Run(Act("GenerateCmd", {"12"})));
  EXPECT_EQ(
      host.Calls(),
      Lines({Query(readAll), StaticQuery(LookUp("ISDN", "SE", "R7")),
             Statement(Built("ROCAI:ROU=3,SEL=S1,SIG=G1,TRAF=30,TRM=T1,SERV= V1 ,DIST =10,DISL=20,NODG=5,"
                             "BCAP=B1;")),
             StaticQuery(LookUp("CAS", "DE", "R7")), Statement(Built("ROCAI:ROU=4,SEL=,SIG=,TRAF=,TRM=,SERV=;"))}));
}

TEST(ROCAI, GeneratesTheValuesOfTheRelease) {
  for (const std::string release : {"R6", "R6/1", "R7", "R8", "X"}) {
    ScriptedHost host;
    host.Rows(readAll, {{"3"}, {"ISDN"}, {"SE"}, {"30"}, {""}, {""}});
    host.Rows(LookUp("ISDN", "SE", release), {{"S"}, {"G"}, {"T"}, {"V"}, {""}, {release}});
    EXPECT_TRUE(host.Run(Act("GenerateCmd", {12.9}, release)));
    EXPECT_TRUE(host.Calls().ends_with(
        Lines({Statement(Built("ROCAI:ROU=3,SEL=S,SIG=G,TRAF=30,TRM=T,SERV=V,BCAP=" + release + ";"))})));
  }
}

TEST(ROCAI, GeneratesALineForARecordOfNothingButNulls) {
  ScriptedHost host;
  const std::vector<Value> null = {Value::Null()};
  host.Rows(readAll, {null, null, null, null, null, null});
  host.Rows(LookUp("", "", "R7"), {{"S"}, {"G"}, {"T"}, {"V"}, {Value()}, {""}});
  EXPECT_TRUE(host.Run(Act("GenerateCmd", {"12"})));
  EXPECT_TRUE(host.Calls().ends_with(Lines({Statement(Built("ROCAI:ROU=,SEL=S,SIG=G,TRAF=,TRM=T,SERV=V;"))})));
}

TEST(ROCAI, GenerateOnAnEmptyTableWritesNothing) {
  ScriptedHost host;
  host.Rows(readAll, {});
  EXPECT_TRUE(host.Run(Act("GenerateCmd", {"12"})));
  EXPECT_EQ(host.Calls(), Lines({Query(readAll)}));
}

TEST(ROCAI, GenerateReportsRoutesThatCouldNotBeRead) {
  ScriptedHost host;
  host.Refuse("scRunQuery", readAll);
  EXPECT_FALSE(host.Run(Act("GenerateCmd", {"12"})));
  EXPECT_EQ(host.Calls(), Lines({Query(readAll), Error("Generating: ROCAI", "61019")}));
}

TEST(ROCAI, GenerateSkipsARecordInSilenceWhereTheLookUpFails) {
  ScriptedHost host;
  host.Rows(readAll, {{"3", "4"}, {"ISDN", "CAS"}, {"SE", "SE"}, {"", ""}, {"", ""}, {"", ""}});
  host.Refuse("scRunQuery", LookUp("ISDN", "SE", "R7"));
  host.Rows(LookUp("CAS", "SE", "R7"), {{"S"}, {"G"}, {"T"}, {"V"}, {""}, {""}});
  EXPECT_TRUE(host.Run(Act("GenerateCmd", {"12"})));
  EXPECT_EQ(host.Calls(),
            Lines({Query(readAll), StaticQuery(LookUp("ISDN", "SE", "R7")), StaticQuery(LookUp("CAS", "SE", "R7")),
                   Statement(Built("ROCAI:ROU=4,SEL=S,SIG=G,TRAF=,TRM=T,SERV=V;"))}));
}

TEST(ROCAI, GenerateFailsTheCallAtARouteWithoutSignallingValuesAndLeavesTheEarlierLines) {
  ScriptedHost host;
  host.Rows(readAll,
            {{"3", "4", "5"}, {"ISDN", "CAS", "ISDN"}, {"SE", "SE", "SE"}, {"", "", ""}, {"", "", ""}, {"", "", ""}});
  host.Rows(LookUp("ISDN", "SE", "R7"), {{"S"}, {"G"}, {"T"}, {"V"}, {""}, {""}});
  host.Rows(LookUp("CAS", "SE", "R7"), {});
  EXPECT_THROW(host.Run(Act("GenerateCmd", {"12"})), RunTimeFailure);
  EXPECT_EQ(host.Calls(), Lines({Query(readAll), StaticQuery(LookUp("ISDN", "SE", "R7")),
                                 Statement(Built("ROCAI:ROU=3,SEL=S,SIG=G,TRAF=,TRM=T,SERV=V;")),
                                 StaticQuery(LookUp("CAS", "SE", "R7"))}));
}

TEST(ROCAI, GenerateFailsTheCallAtANullInASignallingValueButNODG) {
  for (const std::size_t nullColumn : {0, 1, 2, 3, 5}) {
    ScriptedHost host;
    host.Rows(readAll, {{"3"}, {"ISDN"}, {"SE"}, {""}, {""}, {""}});
    std::vector<std::vector<Value>> values = {{"S"}, {"G"}, {"T"}, {"V"}, {"5"}, {"B"}};
    values[nullColumn] = {Value::Null()};
    host.Rows(LookUp("ISDN", "SE", "R7"), values);
    EXPECT_THROW(host.Run(Act("GenerateCmd", {"12"})), RunTimeFailure) << nullColumn;
    EXPECT_EQ(host.Calls(), Lines({Query(readAll), StaticQuery(LookUp("ISDN", "SE", "R7"))}));
  }
}

TEST(ROCAI, GenerateGoesOnBehindALineThatWasNotWrittenAndAnswersForTheLast) {
  const std::string first = Built("ROCAI:ROU=3,SEL=S,SIG=G,TRAF=,TRM=T,SERV=V;");
  const std::string second = Built("ROCAI:ROU=4,SEL=S,SIG=G,TRAF=,TRM=T,SERV=V;");
  for (const auto& [refused, answer] : {std::pair(first, true), std::pair(second, false)}) {
    ScriptedHost host;
    host.Rows(readAll, {{"3", "4"}, {"ISDN", "ISDN"}, {"SE", "SE"}, {"", ""}, {"", ""}, {"", ""}});
    host.Rows(LookUp("ISDN", "SE", "R7"), {{"S"}, {"G"}, {"T"}, {"V"}, {""}, {""}});
    host.Refuse("scRunQuery", refused);
    EXPECT_EQ(host.Run(Act("GenerateCmd", {"12"})), answer);
    std::string lookUp = StaticQuery(LookUp("ISDN", "SE", "R7"));
    const std::string report = Error("Generating: ROCAI", "61019") + "\n";
    EXPECT_EQ(host.Calls(), Lines({Query(readAll), lookUp, Statement(first)}) + (answer ? report : "") +
                                Lines({lookUp, Statement(second)}) + (answer ? "" : report));
  }
}

}  // namespace
}  // namespace cordboard
