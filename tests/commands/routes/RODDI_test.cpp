#include <gtest/gtest.h>

#include <cstdlib>

#include "entry/CScript.h"
#include "script/RunTimeFailure.h"
#include "support/ScriptedHost.h"

namespace cordboard {
namespace {

Action Act(const std::string& function, List parameters = {}) {
  return {.oaRelease = "R7", .FunctionName = function, .CmdName = "RODDI", .CmdId = 7, .ParamList = parameters};
}

std::string Statement(const std::string& sql) { return "scRunQuery(" + TraceText(Value(sql)) + ")"; }
std::string Query(const std::string& sql) { return "scRunQuery(" + TraceText(Value(sql)) + ", out)"; }
std::string Error(const std::string& context, const std::string& codeAndArguments) {
  return "scErrorMessage(0, 2, 2, \"" + context + "\", " + codeAndArguments + ")";
}

// --- Lists that the new-destination mark does not touch.

const std::string freeNumbersCall =
    "scCollectSingleValues(\"SELECT NUMSE FROM NANSI {NL} WHERE NUMTYP = 'ED' {NL} AND USED = FALSE {NL} ORDER BY "
    "NUMSE\")";

TEST(RODDI, ListsTheFreeNumbersOfTypeEDAsDestinations) {
  ScriptedHost host;
  EXPECT_TRUE(host.Run(Act("GetValidValForParam", {"DEST"})));
  EXPECT_EQ(host.Calls(), Lines({freeNumbersCall}));
}

TEST(RODDI, ListsTheDefinedRoutes) {
  ScriptedHost host;
  EXPECT_TRUE(host.Run(Act("GetValidValForParam", {"ROU"})));
  EXPECT_EQ(host.Calls(), Lines({"scCollectSingleValues(\"SELECT ROU FROM ROCAI\")"}));
}

TEST(RODDI, ReportsAListThatCouldNotBeCollected) {
  for (const std::string parameter : {"DEST", "ROU"}) {
    ScriptedHost host;
    host.Refuse("scCollectSingleValues");
    EXPECT_FALSE(host.Run(Act("GetValidValForParam", {parameter})));
    EXPECT_TRUE(host.Calls().ends_with(Lines({Error("GetValidValForParam", "61020, \"" + parameter + "\"")})));
  }
}

TEST(RODDI, ListsTheDigitsOfADCFromTheFixedValues) {
  for (const int digit : {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 16, 17, 18, 19, 22, 23}) {
    ScriptedHost host;
    EXPECT_TRUE(host.Run(Act("GetValidValForParam", {"ADC_D" + std::to_string(digit)}))) << digit;
    EXPECT_EQ(host.Calls(), Lines({"scSQLSelectValuesAndDesc()"}));
  }
}

TEST(RODDI, ReportsADigitOfADCWithoutList) {
  ScriptedHost host;
  host.Refuse("scSQLSelectValuesAndDesc");
  EXPECT_FALSE(host.Run(Act("GetValidValForParam", {"ADC_D23"})));
  EXPECT_EQ(host.Calls(),
            Lines({"scSQLSelectValuesAndDesc()", Error("GetValuesAndDescription", "61021, \"ADC_D23\"")}));
}

TEST(RODDI, ServesNoOtherParameter) {
  ScriptedHost host;
  for (const char* parameter : {"ADC", "ADC_D0", "ADC_D14", "ADC_D15", "ADC_D20", "ADC_D21", "ADC_D24", "DRN", "PRE"})
    EXPECT_FALSE(host.Run(Act("GetValidValForParam", {parameter})));
  for (const char* parameter : {"CUST", "CHO", "ADC_D1"}) EXPECT_FALSE(host.Run(Act("StatCheck", {parameter})));
  EXPECT_EQ(host.Calls(), "");
}

// --- The new-destination mark.

const std::string readPair = "SELECT * FROM RODDI WHERE ROU = '3'\r\nAND DEST ='500'\r\n";

// Sets the mark as the check of a pair that has no record yet, or has one, does. Every test of the mark begins here.
void CheckPair(bool isNew) {
  ScriptedHost host;
  host.Param("ROU", "3");
  host.Param("DEST", "500");
  host.Rows(readPair, isNew ? std::vector<std::vector<Value>>{} : std::vector<std::vector<Value>>{{"1"}});
  host.Run(Act("StatCheck", {"DEST"}));
}

const std::string customersCall = "scCollectSingleValues(\"SELECT CUST FROM CUSTOMERS\", Empty)";
const std::string noCustomersCall = "scSubtractSingleValues(\"SELECT CUST FROM CUSTOMERS\")";
const std::string choicesCall = "scPushValidRangeValues(0, 7)";

std::string CallsOfList(const std::string& parameter) {
  ScriptedHost host;
  EXPECT_TRUE(host.Run(Act("GetValidValForParam", {parameter})));
  return host.Calls();
}

TEST(RODDI, ForAKnownDestinationOffersAllCustomersAndTheChoices) {
  CheckPair(false);
  EXPECT_EQ(CallsOfList("CUST"), Lines({customersCall}));
  EXPECT_EQ(CallsOfList("CHO"), Lines({choicesCall}));
}

TEST(RODDI, ForANewDestinationTakesTheCustomersOutAndOffersTheFixedChoices) {
  CheckPair(true);
  EXPECT_EQ(CallsOfList("CUST"), Lines({noCustomersCall}));
  EXPECT_EQ(CallsOfList("CHO"), Lines({"scSQLSelectValuesAndDesc()"}));
}

TEST(RODDI, ChoicesThatCouldNotBeListedAreReported) {
  CheckPair(false);
  ScriptedHost host;
  host.Refuse("scPushValidRangeValues");
  EXPECT_FALSE(host.Run(Act("GetValidValForParam", {"CHO"})));
  EXPECT_EQ(host.Calls(), Lines({"scPushValidRangeValues(0, 7)",
                                 "scErrorMessage(0, 2, 2, \"GetValidValForParam\", 61020, \"CHO\")"}));
}

TEST(RODDI, CustomersThatCouldNotBeListedHaveNoMessage) {
  for (const bool isNew : {false, true}) {
    const char* parameter = "CUST";
    CheckPair(isNew);
    ScriptedHost host;
    host.Refuse("scCollectSingleValues");
    host.Refuse("scSubtractSingleValues");
    host.Refuse("scPushValidRangeValues");
    EXPECT_FALSE(host.Run(Act("GetValidValForParam", {parameter})));
    EXPECT_EQ(host.Calls().find("scErrorMessage"), std::string::npos) << host.Calls();
  }
}

TEST(RODDI, ReportsTheFixedChoicesThatCouldNotBeListed) {
  CheckPair(true);
  ScriptedHost host;
  host.Refuse("scSQLSelectValuesAndDesc");
  EXPECT_FALSE(host.Run(Act("GetValidValForParam", {"CHO"})));
  EXPECT_EQ(host.Calls(), Lines({"scSQLSelectValuesAndDesc()", Error("GetValuesAndDescription", "61021, \"CHO\"")}));
}

// A process of its own runs this test, so that nothing has set the mark before.
TEST(RODDIDeathTest, BeforeAnyCheckTheListsAreThoseOfAKnownDestination) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(
      {
        const bool known = CallsOfList("CUST") == Lines({customersCall}) && CallsOfList("CHO") == Lines({choicesCall});
        std::_Exit(known ? 0 : 1);
      },
      testing::ExitedWithCode(0), "");
}

TEST(RODDI, TheMarkOutlivesTheHost) {
  CheckPair(true);
  CScript script;
  script.AddObject(nullptr);
  script.Destroy();
  EXPECT_EQ(CallsOfList("CUST"), Lines({noCustomersCall}));
  EXPECT_EQ(CallsOfList("CUST"), Lines({noCustomersCall}));
}

TEST(RODDI, TheCheckOfEitherParameterReadsThePairAndResetsCustomerAndChoice) {
  for (const char* parameter : {"ROU", "DEST"}) {
    CheckPair(false);
    ScriptedHost host;
    host.Param("ROU", "3");
    host.Param("DEST", "500");
    host.Rows(readPair, {});
    EXPECT_TRUE(host.Run(Act("StatCheck", {parameter})));
    EXPECT_EQ(host.Calls(), Lines({"scGetParamValue(\"ROU\")", "scGetParamValue(\"DEST\")", Query(readPair),
                                   "scResetParam(\"CUST\")", "scResetParam(\"CHO\")"}));
    EXPECT_EQ(CallsOfList("CUST"), Lines({noCustomersCall}));
  }
}

TEST(RODDI, TheCheckOfAKnownPairClearsTheMark) {
  CheckPair(true);
  CheckPair(false);
  EXPECT_EQ(CallsOfList("CHO"), Lines({choicesCall}));
}

TEST(RODDI, TheCheckOfABlankRouteOrDestinationLeavesMarkCustomerAndChoice) {
  for (const bool isNew : {false, true}) {
    for (const Value& blank : {Value(), Value(""), Value::Null()}) {
      for (const auto& [ROU, DEST] : {std::pair(Value("3"), blank), std::pair(blank, Value("500"))}) {
        CheckPair(isNew);
        ScriptedHost host;
        host.Param("ROU", ROU);
        host.Param("DEST", DEST);
        EXPECT_TRUE(host.Run(Act("StatCheck", {"ROU"})));
        EXPECT_EQ(host.Calls(), Lines({"scGetParamValue(\"ROU\")", "scGetParamValue(\"DEST\")"}));
        EXPECT_EQ(CallsOfList("CUST"), Lines({isNew ? noCustomersCall : customersCall}));
      }
    }
  }
}

TEST(RODDI, APairThatCouldNotBeReadCountsAsNew) {
  CheckPair(false);
  ScriptedHost host;
  host.Param("ROU", "3");
  host.Param("DEST", "500");
  host.Refuse("scRunQuery", readPair);
  EXPECT_TRUE(host.Run(Act("StatCheck", {"ROU"})));
  EXPECT_EQ(host.Effects(), Lines({Query(readPair), "scResetParam(\"CUST\")", "scResetParam(\"CHO\")"}));
  EXPECT_EQ(CallsOfList("CUST"), Lines({noCustomersCall}));
}

TEST(RODDI, TheCheckAnswersForTheResetOfTheChoiceAlone) {
  for (const auto& [parameter, answer] : {std::pair("CUST", true), std::pair("CHO", false)}) {
    ScriptedHost host;
    host.Param("ROU", "3");
    host.Param("DEST", "500");
    host.Rows(readPair, {{"1"}});
    host.Refuse("scResetParam", parameter);
    EXPECT_EQ(host.Run(Act("StatCheck", {"ROU"})), answer);
    EXPECT_EQ(host.Effects(), Lines({Query(readPair), "scResetParam(\"CUST\")", "scResetParam(\"CHO\")"}));
  }
}

// --- Add.

const List columns = {"CMDID", "NUMTYP", "ROU", "DEST", "CUST", "CHO", "DRN"};

void FillForm(ScriptedHost& host) {
  host.Param("NUMTYP", "XX");
  host.Param("ROU", "3");
  host.Param("DEST", "500&&502");
  host.Param("CUST", "1");
  host.Param("CHO", "2");
}

std::string Duplicates(const std::string& DEST) {
  return "Select * from RODDI where ROU = '3' and DEST = '" + DEST + "' and CUST = '1' and CHO = '2'";
}

std::string Take(const std::string& DEST) { return " UPDATE NANSI SET USED = True\r\nWHERE NUMSE = '" + DEST + "'"; }

std::string InsertUsed(const std::string& table, const std::string& DEST) {
  return " INSERT INTO " + table + "\r\n (DIR, NUMTYP) \r\n VALUES ('" + DEST + "', 'ED')";
}

std::string UseCalls(const std::string& DEST) {
  return Lines({Statement(Take(DEST)), Statement(InsertUsed("UsedExtOpeGrp", DEST)),
                Statement(InsertUsed("UsedExtensionsAndOperators", DEST)), Statement(InsertUsed("UsedNumbers", DEST))});
}

std::string InsertCall(const std::string& id, const std::string& DEST) {
  return "scSQLInsert(\"RODDI\", [\"CMDID\", \"NUMTYP\", \"ROU\", \"DEST\", \"CUST\", \"CHO\", \"DRN\"], [" + id +
         ", \"ED\", \"3\", \"" + DEST + "\", \"1\", \"2\", Empty])";
}

const std::string addBegins = Lines({"scStartTransaction()", "scGetValueArray(\"DEST\", out)", "scBuildCmdID()"});

TEST(RODDI, AddTakesEachDestinationIntoUseAndInsertsItsRecord) {
  ScriptedHost host;
  FillForm(host);
  host.Array("DEST", {"500", "501"});
  host.Rows(Duplicates("500"), {});
  host.Rows(Duplicates("501"), {});
  EXPECT_TRUE(host.Run(Act("SetInfo", columns)));
  const std::string reads = Lines({"scBuildCmdID()", "scGetParamValue(\"ROU\")", "scGetParamValue(\"CUST\")",
                                   "scGetParamValue(\"CHO\")", "scGetParamValue(\"DRN\")"});
  EXPECT_EQ(host.Calls(), Lines({"scStartTransaction()", "scGetValueArray(\"DEST\", out)"}) + reads + UseCalls("500") +
                              Lines({Query(Duplicates("500")), InsertCall("1001", "500")}) + reads + UseCalls("501") +
                              Lines({Query(Duplicates("501")), InsertCall("1002", "501"), "scCommitTransaction()"}));
}

TEST(RODDI, AddOfNoDestinationCommitsNothing) {
  ScriptedHost host;
  host.Array("DEST", List(std::vector<Value>{}));
  EXPECT_TRUE(host.Run(Act("SetInfo", columns)));
  EXPECT_EQ(host.Calls(), Lines({"scStartTransaction()", "scGetValueArray(\"DEST\", out)", "scCommitTransaction()"}));
}

TEST(RODDI, AddThatCannotStartEndsThere) {
  ScriptedHost host;
  host.Refuse("scStartTransaction");
  EXPECT_FALSE(host.Run(Act("SetInfo", columns)));
  EXPECT_EQ(host.Calls(), Lines({"scStartTransaction()", Error("Add: RODDI", "62010")}));
}

TEST(RODDI, AddWithoutItsDestinationsEndsWithTheTransactionOpen) {
  ScriptedHost host;
  host.Refuse("scGetValueArray");
  EXPECT_FALSE(host.Run(Act("SetInfo", columns)));
  EXPECT_EQ(host.Calls(),
            Lines({"scStartTransaction()", "scGetValueArray(\"DEST\", out)", Error("Add: RODDI", "61020, \"DEST\"")}));
}

TEST(RODDI, AddOfDestinationsWithoutBoundsFailsTheCallWithTheTransactionOpen) {
  ScriptedHost host;
  host.Array("DEST", List());
  EXPECT_THROW(host.Run(Act("SetInfo", columns)), RunTimeFailure);
  EXPECT_EQ(host.Calls(), Lines({"scStartTransaction()", "scGetValueArray(\"DEST\", out)"}));
}

TEST(RODDI, AddStopsAtADuplicateAndCommitsWhatStandsAndTheUseOfItsNumber) {
  ScriptedHost host;
  FillForm(host);
  host.Array("DEST", {"500", "501", "502"});
  host.Rows(Duplicates("500"), {});
  host.Rows(Duplicates("501"), {{"99"}});
  EXPECT_FALSE(host.Run(Act("SetInfo", columns)));
  EXPECT_EQ(host.Effects(),
            addBegins + UseCalls("500") +
                Lines({Query(Duplicates("500")), InsertCall("1001", "500"), "scBuildCmdID()"}) + UseCalls("501") +
                Lines({Query(Duplicates("501")), Error("Record exists", "62011"), "scCommitTransaction()"}));
}

TEST(RODDI, AddCommitsWhatWasDoneBeforeAFailedInsert) {
  ScriptedHost host;
  FillForm(host);
  host.Array("DEST", {"500", "501"});
  host.Rows(Duplicates("500"), {});
  host.Refuse("scSQLInsert");
  EXPECT_FALSE(host.Run(Act("SetInfo", columns)));
  EXPECT_EQ(host.Effects(), addBegins + UseCalls("500") +
                                Lines({Query(Duplicates("500")), InsertCall("1001", "500"),
                                       Error("Add: RODDI", "61024, \"RODDI\""), "scCommitTransaction()"}));
}

TEST(RODDI, AddStopsInSilenceAtATestForDuplicatesThatFails) {
  ScriptedHost host;
  FillForm(host);
  host.Array("DEST", {"500", "501"});
  host.Refuse("scRunQuery", Duplicates("500"));
  EXPECT_FALSE(host.Run(Act("SetInfo", columns)));
  EXPECT_EQ(host.Effects(), addBegins + UseCalls("500") + Lines({Query(Duplicates("500")), "scCommitTransaction()"}));
}

TEST(RODDI, AddStopsWhereANumberCouldNotBeTakenAndCommits) {
  {
    ScriptedHost host;
    FillForm(host);
    host.Array("DEST", {"500", "501"});
    host.Refuse("scRunQuery", Take("500"));
    EXPECT_FALSE(host.Run(Act("SetInfo", columns)));
    EXPECT_EQ(host.Effects(), addBegins + Lines({Statement(Take("500")), Error("SetNumberUsed", "61005, \"500\""),
                                                 "scCommitTransaction()"}));
  }
  {
    ScriptedHost host;
    FillForm(host);
    host.Array("DEST", {"500", "501"});
    host.Refuse("scRunQuery", InsertUsed("UsedNumbers", "500"));
    EXPECT_FALSE(host.Run(Act("SetInfo", columns)));
    EXPECT_EQ(host.Effects(),
              addBegins + UseCalls("500") + Lines({Error("DeleteExtOpeGrp: 500", "62000"), "scCommitTransaction()"}));
  }
}

TEST(RODDI, AddRollsBackOnlyWhereTheCommitFails) {
  ScriptedHost host;
  FillForm(host);
  host.Array("DEST", {"500"});
  host.Rows(Duplicates("500"), {});
  host.Refuse("scCommitTransaction");
  host.Refuse("scRollBackTransaction");
  EXPECT_TRUE(host.Run(Act("SetInfo", columns)));
  EXPECT_TRUE(host.Calls().ends_with(Lines({"scCommitTransaction()", Error("Add: RODDI", "62011"),
                                            "scRollBackTransaction()", Error("Add: RODDI", "62012")})));
}

TEST(RODDI, AddTestsForDuplicatesWithNothingForAColumnThatIsNotNamed) {
  ScriptedHost host;
  FillForm(host);
  host.Array("DEST", {"500"});
  const std::string duplicates = "Select * from RODDI where ROU = '' and DEST = '500' and CUST = '' and CHO = ''";
  host.Rows(duplicates, {});
  EXPECT_TRUE(host.Run(Act("SetInfo", {"DEST"})));
  EXPECT_EQ(host.Calls(),
            Lines({"scStartTransaction()", "scGetValueArray(\"DEST\", out)"}) + UseCalls("500") +
                Lines({Query(duplicates), "scSQLInsert(\"RODDI\", [\"DEST\"], [\"500\"])", "scCommitTransaction()"}));
}

// --- Edit.

const std::string readOld = "SELECT DEST,CUST, CHO,DRN,ROU,PRE,TRC,SRT,NUMACK,ADC FROM RODDI WHERE CmdId = 7";
const std::vector<std::vector<Value>> oldRow = {{"500"}, {"1"}, {"2"},           {"d"}, {"3"},
                                                {"p"},   {"t"}, {Value::Null()}, {""},  {Value()}};

std::string Write(const std::string& column, const std::string& value) {
  return "UPDATE RODDI SET " + column + " = " + value + "\r\n WHERE CmdId = 7";
}

std::string Free(const std::string& DEST) { return " UPDATE NANSI SET USED = False\r\nWHERE NUMSE = '" + DEST + "'"; }

std::string Move(const std::string& from, const std::string& to) {
  return "UPDATE UsedExtOpeGrp SET DIR = '" + to + "'\r\n WHERE DIR = '" + from + "'";
}

TEST(RODDI, EditWritesAllTenColumnsAndMovesTheUseOfTheNumber) {
  ScriptedHost host;
  host.Rows(readOld, oldRow);
  host.Param("DEST", "50123");
  host.Param("CUST", "9");
  host.Param("ADC", "0000");
  EXPECT_TRUE(host.Run(Act("EditInfo", {"CUST"})));
  EXPECT_EQ(host.Calls(), Lines({"scStartTransaction()",
                                 Query(readOld),
                                 "scGetParamValue(\"DEST\")",
                                 Statement(Write("DEST", "'50123'")),
                                 Statement(Free("500")),
                                 Statement(Take("50123")),
                                 Statement(Move("500", "50123")),
                                 "scGetParamValue(\"CUST\")",
                                 Statement(Write("CUST", "'9'")),
                                 "scGetParamValue(\"CHO\")",
                                 Statement(Write("CHO", "'2'")),
                                 "scGetParamValue(\"DRN\")",
                                 Statement(Write("DRN", "'d'")),
                                 "scGetParamValue(\"ROU\")",
                                 Statement(Write("ROU", "'3'")),
                                 "scGetParamValue(\"PRE\")",
                                 Statement(Write("PRE", "'p'")),
                                 "scGetParamValue(\"TRC\")",
                                 Statement(Write("TRC", "'t'")),
                                 "scGetParamValue(\"SRT\")",
                                 Statement(Write("SRT", "Null")),
                                 "scGetParamValue(\"NUMACK\")",
                                 Statement(Write("NUMACK", "Null")),
                                 "scGetParamValue(\"ADC\")",
                                 Statement(Write("ADC", "'0000'")),
                                 "scCommitTransaction()"}));
}

TEST(RODDI, EditClearsNoColumnAndMovesTheNumberOntoItself) {
  for (const Value& blank : {Value(), Value::Null(), Value("")}) {
    ScriptedHost host;
    host.Rows(readOld, oldRow);
    for (const char* column : {"DEST", "CUST", "CHO", "DRN", "ROU", "PRE", "TRC", "SRT", "NUMACK", "ADC"})
      host.Param(column, blank);
    EXPECT_TRUE(host.Run(Act("EditInfo")));
    EXPECT_EQ(host.Effects(),
              Lines({"scStartTransaction()", Query(readOld), Statement(Write("DEST", "'500'")), Statement(Free("500")),
                     Statement(Take("500")), Statement(Move("500", "500")), Statement(Write("CUST", "'1'")),
                     Statement(Write("CHO", "'2'")), Statement(Write("DRN", "'d'")), Statement(Write("ROU", "'3'")),
                     Statement(Write("PRE", "'p'")), Statement(Write("TRC", "'t'")), Statement(Write("SRT", "Null")),
                     Statement(Write("NUMACK", "Null")), Statement(Write("ADC", "Null")), "scCommitTransaction()"}));
  }
}

TEST(RODDI, EditRefusesADestinationOfSixCharacters) {
  ScriptedHost host;
  host.Rows(readOld, oldRow);
  host.Param("DEST", "501234");
  EXPECT_FALSE(host.Run(Act("EditInfo")));
  EXPECT_EQ(host.Effects(), Lines({"scStartTransaction()", Query(readOld), Error("Edit: RODDI", "60049, \"DEST\""),
                                   "scRollBackTransaction()"}));
}

TEST(RODDI, EditKeepsAnOldDestinationOfAnyLength) {
  ScriptedHost host;
  host.Rows(readOld, {{"501234"}, {"1"}, {"2"}, {"d"}, {"3"}, {"p"}, {"t"}, {"s"}, {"n"}, {"a"}});
  EXPECT_TRUE(host.Run(Act("EditInfo")));
  EXPECT_TRUE(host.Effects().starts_with(
      Lines({"scStartTransaction()", Query(readOld), Statement(Write("DEST", "'501234'"))})));
}

TEST(RODDI, EditThatCannotReadTheRecordIsRolledBackInSilence) {
  ScriptedHost host;
  host.Refuse("scRunQuery", readOld);
  EXPECT_FALSE(host.Run(Act("EditInfo")));
  EXPECT_EQ(host.Calls(), Lines({"scStartTransaction()", Query(readOld), "scRollBackTransaction()"}));
}

TEST(RODDI, EditOfARecordThatIsGoneFailsTheCallWithTheTransactionOpen) {
  ScriptedHost host;
  host.Rows(readOld, {});
  EXPECT_THROW(host.Run(Act("EditInfo")), RunTimeFailure);
  EXPECT_EQ(host.Effects(), Lines({"scStartTransaction()", Query(readOld)}));
}

TEST(RODDI, EditOfARecordThatIsGoneFailsAtTheFirstReadOfTheOldRow) {
  ScriptedHost host;
  host.Rows(readOld, {});
  host.Param("DEST", "501");
  EXPECT_THROW(host.Run(Act("EditInfo")), RunTimeFailure);
  EXPECT_EQ(host.Effects(), Lines({"scStartTransaction()", Query(readOld), Statement(Write("DEST", "'501'"))}));
}

TEST(RODDI, EditStopsAtTheFirstColumnThatFails) {
  for (const std::string column : {"DEST", "CUST", "CHO", "DRN", "ROU", "PRE", "TRC", "SRT", "NUMACK", "ADC"}) {
    ScriptedHost host;
    host.Rows(readOld, oldRow);
    host.Param(column, "5");
    host.Refuse("scRunQuery", Write(column, "'5'"));
    EXPECT_FALSE(host.Run(Act("EditInfo")));
    EXPECT_TRUE(
        host.Effects().ends_with(Lines({Statement(Write(column, "'5'")),
                                        Error("Edit: RODDI", "61011, \"" + column + "\""), "scRollBackTransaction()"})))
        << host.Effects();
  }
}

TEST(RODDI, EditStopsWhereTheUseOfTheNumberCouldNotBeMoved) {
  const std::pair<std::string, std::string> steps[] = {{Free("500"), Error("SetNumberUsed", "61005, \"500\"")},
                                                       {Take("501"), Error("SetNumberUsed", "61005, \"501\"")},
                                                       {Move("500", "501"), Error("UpdateExtOpeGrp: 500", "62000")}};
  for (const auto& [statement, report] : steps) {
    ScriptedHost host;
    host.Rows(readOld, oldRow);
    host.Param("DEST", "501");
    host.Refuse("scRunQuery", statement);
    EXPECT_FALSE(host.Run(Act("EditInfo")));
    EXPECT_TRUE(host.Effects().ends_with(
        Lines({Statement(statement), report, Error("Edit: RODDI", "61011, \"DEST\""), "scRollBackTransaction()"})))
        << host.Effects();
  }
}

TEST(RODDI, EditReportsItsTransaction) {
  {
    ScriptedHost host;
    host.Refuse("scStartTransaction");
    host.Refuse("scRollBackTransaction");
    EXPECT_FALSE(host.Run(Act("EditInfo")));
    EXPECT_EQ(host.Calls(), Lines({"scStartTransaction()", Error("Edit: RODDI", "62010"), "scRollBackTransaction()",
                                   Error("Edit: RODDI", "62012")}));
  }
  {
    ScriptedHost host;
    host.Rows(readOld, oldRow);
    host.Refuse("scCommitTransaction");
    EXPECT_TRUE(host.Run(Act("EditInfo")));
    EXPECT_TRUE(host.Effects().ends_with(Lines({"scCommitTransaction()", Error("Edit: RODDI", "62011")})));
  }
}

// --- Delete.

const std::string readDEST = "SELECT DEST FROM RODDI \r\n WHERE CmdID = 7";
const std::string deleteRecord = "DELETE * FROM RODDI\r\n WHERE CmdId = 7";

std::string Forget(const std::string& DEST) { return " DELETE * FROM UsedExtOpeGrp \r\n WHERE DIR = '" + DEST + "'"; }

TEST(RODDI, DeleteRemovesTheRecordAndReleasesTheNumber) {
  ScriptedHost host;
  host.Rows(readDEST, {{"500"}});
  EXPECT_TRUE(host.Run(Act("DeleteInfo")));
  EXPECT_EQ(host.Calls(), Lines({"scStartTransaction()", Query(readDEST), Statement(deleteRecord),
                                 Statement(Free("500")), Statement(Forget("500")), "scCommitTransaction()"}));
}

TEST(RODDI, DeleteOfAnUnknownRecordReportsAndReleasesTheEmptyNumber) {
  ScriptedHost host;
  host.Rows(readDEST, {});
  EXPECT_TRUE(host.Run(Act("DeleteInfo")));
  EXPECT_EQ(host.Calls(),
            Lines({"scStartTransaction()", Query(readDEST), Error("Delete: RODDI", "61007"), Statement(deleteRecord),
                   Statement(Free("")), Statement(Forget("")), "scCommitTransaction()"}));
}

TEST(RODDI, DeleteThatCannotReadTheRecordReportsInTheWordsOfAnotherCommandAndGoesOn) {
  ScriptedHost host;
  host.Refuse("scRunQuery", readDEST);
  EXPECT_TRUE(host.Run(Act("DeleteInfo")));
  EXPECT_EQ(host.Calls(),
            Lines({"scStartTransaction()", Query(readDEST), Error("Delete: RODDI", "60004, \"DIR, EQU\", \"EXTEIDIR\""),
                   Statement(deleteRecord), Statement(Free("")), Statement(Forget("")), "scCommitTransaction()"}));
}

TEST(RODDI, DeleteThatFailsIsReportedAsAFailedRollbackAndLeavesTheTransactionOpen) {
  ScriptedHost host;
  host.Rows(readDEST, {{"500"}});
  host.Refuse("scRunQuery", deleteRecord);
  EXPECT_FALSE(host.Run(Act("DeleteInfo")));
  EXPECT_EQ(host.Calls(),
            Lines({"scStartTransaction()", Query(readDEST), Statement(deleteRecord), Error("Delete: RODDI", "62012")}));
}

TEST(RODDI, DeleteDoesNotCareWhetherTheNumberWasReleased) {
  ScriptedHost host;
  host.Rows(readDEST, {{"500"}});
  host.Refuse("scRunQuery", Free("500"));
  EXPECT_TRUE(host.Run(Act("DeleteInfo")));
  EXPECT_EQ(host.Calls(),
            Lines({"scStartTransaction()", Query(readDEST), Statement(deleteRecord), Statement(Free("500")),
                   Error("SetNumberUsed", "61005, \"500\""), "scCommitTransaction()"}));
}

TEST(RODDI, DeleteThatCannotStartEndsThere) {
  ScriptedHost host;
  host.Refuse("scStartTransaction");
  EXPECT_FALSE(host.Run(Act("DeleteInfo")));
  EXPECT_EQ(host.Calls(), Lines({"scStartTransaction()", Error("Delete: RODDI", "62010")}));
}

TEST(RODDI, DeleteReportsAFailedCommitAndAFailedRollbackWithTheSameCode) {
  {
    ScriptedHost host;
    host.Rows(readDEST, {{"500"}});
    host.Refuse("scCommitTransaction");
    EXPECT_TRUE(host.Run(Act("DeleteInfo")));
    EXPECT_TRUE(host.Calls().ends_with(
        Lines({"scCommitTransaction()", Error("Delete: RODDI", "62011"), "scRollBackTransaction()"})));
  }
  {
    ScriptedHost host;
    host.Rows(readDEST, {{"500"}});
    host.Refuse("scCommitTransaction");
    host.Refuse("scRollBackTransaction");
    EXPECT_TRUE(host.Run(Act("DeleteInfo")));
    EXPECT_TRUE(host.Calls().ends_with(Lines({"scCommitTransaction()", Error("Delete: RODDI", "62011"),
                                              "scRollBackTransaction()", Error("Delete: RODDI", "62011")})));
  }
}

// --- Generate.

const std::string readAll = "SELECT ROU, DEST, CHO, CUST, DRN, PRE, TRC, SRT, NUMACK, ADC FROM RODDI";

std::string Built(const std::string& line) { return "INSERT INTO BuiltCmd VALUES (12,'" + line + "')"; }

TEST(RODDI, GeneratesTheFieldsInTheOrderOfTheLineAndLeavesOutThoseWithoutValue) {
  ScriptedHost host;
  const Value null = Value::Null();
  host.Rows(readAll, {{" 3 ", "4", null},
                      {" 500", "501", null},
                      {"2 ", "", null},
                      {" 1 ", "  ", null},
                      {" d ", null, null},
                      {" p ", null, null},
                      {" t ", null, null},
                      {" s ", null, null},
                      {" n ", null, null},
                      {" a ", null, null}});
  EXPECT_TRUE(host.Run(Act("GenerateCmd", {12.9})));
  EXPECT_EQ(host.Calls(),
            Lines({Query(readAll),
                   Statement(Built("RODDI:ROU=3,DEST=500,CHO=2,CUST=1,DRN=d,SRT=s,TRC=t,PRE=p,NUMACK=n,ADC=a;")),
                   Statement(Built("RODDI:ROU=4,DEST=501;")), Statement(Built("RODDI:ROU=,DEST=;"))}));
}

TEST(RODDI, GenerateOnAnEmptyTableWritesNothing) {
  ScriptedHost host;
  host.Rows(readAll, {});
  EXPECT_TRUE(host.Run(Act("GenerateCmd", {"12"})));
  EXPECT_EQ(host.Calls(), Lines({Query(readAll)}));
}

TEST(RODDI, GenerateReportsRecordsThatCouldNotBeRead) {
  ScriptedHost host;
  host.Refuse("scRunQuery", readAll);
  EXPECT_FALSE(host.Run(Act("GenerateCmd", {"12"})));
  EXPECT_EQ(host.Calls(), Lines({Query(readAll), Error("Generating: RODDI", "61019")}));
}

TEST(RODDI, GenerateGoesOnBehindALineThatWasNotWrittenAndAnswersForTheLast) {
  const std::string first = Built("RODDI:ROU=3,DEST=500;");
  const std::string second = Built("RODDI:ROU=3,DEST=501;");
  const std::vector<Value> none = {"", ""};
  for (const auto& [refused, answer] : {std::pair(first, true), std::pair(second, false)}) {
    ScriptedHost host;
    host.Rows(readAll, {{"3", "3"}, {"500", "501"}, none, none, none, none, none, none, none, none});
    host.Refuse("scRunQuery", refused);
    EXPECT_EQ(host.Run(Act("GenerateCmd", {"12"})), answer);
    const std::string report = Error("Generating: RODDI", "61019") + "\n";
    EXPECT_EQ(host.Calls(), Lines({Query(readAll), Statement(first)}) + (answer ? report : "") +
                                Lines({Statement(second)}) + (answer ? "" : report));
  }
}

}  // namespace
}  // namespace cordboard
