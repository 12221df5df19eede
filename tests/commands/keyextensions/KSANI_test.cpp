#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "script/RunTimeFailure.h"
#include "support/CallLines.h"
#include "support/ScriptedHost.h"

namespace cordboard {
namespace {

Action Act(const std::string& function, List parameters = {}, const std::string& release = "R7") {
  return {.Definition = 13,
          .oaRelease = release,
          .FunctionName = function,
          .CmdName = "KSANI",
          .CmdId = 7,
          .ParamList = parameters};
}

const Value Null = Value::Null();
const std::string start = "scStartTransaction()";
const std::string commit = "scCommitTransaction()";
const std::string rollBack = "scRollBackTransaction()";
const std::string whole = Call("scSQLSelectValuesAndDesc");

// --- What is served.

TEST(KSANI, ServesNoOtherParameterAndNoOtherAction) {
  ScriptedHost host;
  for (const char* parameter : {"ADC_D2", "SERV_D1", "SERV_D7D8_SUB1", "SERV_D7D8_SUB2", "LANG"})
    EXPECT_FALSE(host.Run(Act("GetValidValForParam", {parameter}))) << parameter;
  EXPECT_FALSE(host.Run(Act("StatCheck", {"KEY"})));
  EXPECT_FALSE(host.Run(Act("deleteInfo")));
  EXPECT_EQ(host.Calls(), "");
}

TEST(KSANI, ListsThePlainParametersFromTheFixedValues) {
  for (const char* parameter :
       {"ADC_D3",         "ADC_D4",         "ADC_D5",       "ADC_D6",       "ADC_D7",   "ADC_D8",    "ADC_D9",
        "ADC_D10",        "CALALT",         "CATTYP",       "CDIV_D1",      "CDIV_D2",  "CDIV_D3",   "CDIV_D4D5",
        "CDIV_D6",        "ROC_D2",         "ROC_D3",       "ROC_D4",       "ROC_D5D6", "SERV_D2",   "SERV_D3D4_SUB1",
        "SERV_D3D4_SUB2", "SERV_D3D4_SUB3", "SERV_D5_SUB1", "SERV_D5_SUB2", "SERV_D6",  "SERV_D7D8", "SERV_D9"}) {
    ScriptedHost host;
    EXPECT_TRUE(host.Run(Act("GetValidValForParam", {parameter})));
    EXPECT_EQ(host.Calls(), Lines({whole})) << parameter;
  }
}

TEST(KSANI, ListsTheLastDigitOfADCFromR7On) {
  for (const char* release : {"R7", "R8", "R9"}) {
    ScriptedHost host;
    EXPECT_TRUE(host.Run(Act("GetValidValForParam", {"ADC_D11"}, release)));
    EXPECT_EQ(host.Calls(), Lines({whole}));
  }
  for (const char* release : {"R6", "R6/1"}) {
    ScriptedHost host;
    EXPECT_FALSE(host.Run(Act("GetValidValForParam", {"ADC_D11"}, release)));
    EXPECT_EQ(host.Calls(), "");
  }
}

TEST(KSANI, ListsCategoriesAndCustomers) {
  ScriptedHost host;
  EXPECT_TRUE(host.Run(Act("GetValidValForParam", {"CAT"})));
  EXPECT_TRUE(host.Run(Act("GetValidValForParam", {"CUST"})));
  EXPECT_EQ(host.Calls(),
            Lines({"scCollectValuesAndDesc(\"SELECT CAT, DESCRIPTION {NL} FROM EXCCS {NL}WHERE NOT (SERV IS Null)ORDER "
                   "BY VAL(CAT) \", \"dynamic\")",
                   "scCollectValuesAndDesc(\"SELECT CUST, DESCRIPTION {NL} FROM CUSTOMERS {NL} ORDER BY VAL(CUST)\", "
                   "\"dynamic\")"}));
}

TEST(KSANI, ListsTheTailOfCDIVUnderItsOwnName) {
  for (const std::string parameter : {"CDIV_D7", "CDIV_D8", "CDIV_D9"}) {
    ScriptedHost host;
    host.Param("CDIV_D6", "0");
    EXPECT_TRUE(host.Run(Act("GetValidValForParam", {parameter})));
    EXPECT_EQ(host.Effects(),
              Lines({Call("scCollectValuesAndDesc",
                          "SELECT Value, ValDesc  FROM ParamValueDesc  WHERE Command = 'KSANI' AND Param = '" +
                              parameter + "' AND Value = '0' ")}));
  }
}

TEST(KSANI, ListsAllKeyExtensions) {
  const std::string collect =
      Call("scCollectSingleValues", " SELECT DIR FROM KSEXI  WHERE NUMTYP = 'EX'  ORDER BY DIR ");
  ScriptedHost host;
  EXPECT_TRUE(host.Run(Act("GetValidValForParam", {"DIR"})));
  host.Refuse("scCollectSingleValues");
  EXPECT_FALSE(host.Run(Act("GetValidValForParam", {"DIR"})));
  EXPECT_EQ(host.Calls(), Lines({collect, collect, MessageLine("GetValidValForParam", "61020, \"DIR\"")}));
}

// --- The list of additional numbers.

const std::string freeNumbers =
    Call("scCollectSingleValues", "SELECT NUMSE FROM NANSI  WHERE NUMTYP = 'EX'  AND USED = FALSE  ORDER BY NUMSE");
const std::string withoutOwner = Call("scSubtractSingleValues", "SELECT DIR FROM KSEXI  WHERE DIR = '100' ");

TEST(KSANI, ListsFreeNumbersWithoutThatOfTheOwner) {
  {
    ScriptedHost host;
    EXPECT_TRUE(host.Run(Act("GetValidValForParam", {"ADN"})));
    EXPECT_EQ(host.Calls(), Lines({freeNumbers, Read("DIR")}));
  }
  {
    ScriptedHost host;
    host.Param("DIR", "100");
    EXPECT_TRUE(host.Run(Act("GetValidValForParam", {"ADN"})));
    EXPECT_EQ(host.Effects(), Lines({freeNumbers, withoutOwner}));
  }
}

TEST(KSANI, ReportsFreeNumbersThatCannotBeListed) {
  const std::string failed = MessageLine("GetValidValForParam", "61020, \"ADN\"");
  for (const char* operation : {"scCollectSingleValues", "scSubtractSingleValues"}) {
    ScriptedHost host;
    host.Param("DIR", "100");
    host.Refuse(operation);
    EXPECT_FALSE(host.Run(Act("GetValidValForParam", {"ADN"})));
    EXPECT_EQ(host.Effects(), operation == std::string("scCollectSingleValues")
                                  ? Lines({freeNumbers, failed})
                                  : Lines({freeNumbers, withoutOwner, failed}));
  }
}

// --- The list of keys.

const std::string wholeByDefinition = "scSQLSelectValuesAndDescByDefinition(13)";
const std::string functionKeys =
    Call("scSubtractSingleValues", "SELECT KEY FROM KSFKC WHERE DIR =  '100' AND NOT(FCN = 'TNS')");
const std::string additionalKeys = Call("scSubtractSingleValues", "SELECT KEY FROM KSANI WHERE DIR = '100'");
const std::string furtherKeys = Call("scSubtractSingleValues", "SELECT KEY FROM KSMDI WHERE DIR = '100'");
const std::string count = "scGetNumberOfValidValues(\"KEY\", 13, out)";

TEST(KSANI, ListsTheKeysThatAreFreeOrHaveTNS) {
  ScriptedHost host;
  host.Param("DIR", "100");
  host.NumberOfValidValues("KEY", 1);
  EXPECT_TRUE(host.Run(Act("GetValidValForParam", {"KEY"})));
  EXPECT_EQ(host.Effects(), Lines({wholeByDefinition, functionKeys, additionalKeys, furtherKeys, count}));
}

TEST(KSANI, ListsAllKeysOfTheDefinitionWithoutAnOwner) {
  for (const Value& DIR : {Value(), Null, Value("")}) {
    ScriptedHost host;
    host.Param("DIR", DIR);
    EXPECT_TRUE(host.Run(Act("GetValidValForParam", {"KEY"})));
    EXPECT_EQ(host.Effects(), Lines({wholeByDefinition}));
  }
}

TEST(KSANI, TellsTheOwnerOnWhichNoKeyIsLeft) {
  ScriptedHost host;
  host.Param("DIR", "100");
  host.NumberOfValidValues("KEY", 0);
  EXPECT_FALSE(host.Run(Act("GetValidValForParam", {"KEY"})));
  EXPECT_TRUE(host.Effects().ends_with(Lines({count, DebugLine("There are no available keys for this DIR"),
                                              MessageLine("GetValidValForParam", "60020, \"100\"")})));
}

TEST(KSANI, ReportsKeysThatCannotBeListed) {
  const std::string failed = MessageLine("GetValidValForParam", "61021, \"KEY\"");
  {
    ScriptedHost host;
    host.Refuse("scSQLSelectValuesAndDescByDefinition");
    EXPECT_FALSE(host.Run(Act("GetValidValForParam", {"KEY"})));
    EXPECT_EQ(host.Calls(), Lines({wholeByDefinition, failed}));
  }
  ScriptedHost host;
  host.Param("DIR", "100");
  host.Refuse("scSubtractSingleValues");
  EXPECT_FALSE(host.Run(Act("GetValidValForParam", {"KEY"})));
  EXPECT_EQ(host.Effects(), Lines({wholeByDefinition, functionKeys, failed}));
}

// --- The list of the first digit of ADC.

const std::string readADC = "SELECT ADC FROM KSEXI  WHERE DIR = '100'";
const std::string zeroAlone =
    Call("scCollectValuesAndDesc",
         "SELECT Value, ValDesc FROM ParamValueDesc WHERE Command = 'KSEXI' AND Param = 'ADC_D1' AND Value = '0'");

TEST(KSANI, FirstDigitOfADCIsFreeWithoutAnOwner) {
  ScriptedHost host;
  EXPECT_TRUE(host.Run(Act("GetValidValForParam", {"ADC_D1"})));
  EXPECT_EQ(host.Calls(), Lines({Read("DIR"), whole}));
}

struct OwnersADC {
  Value ADC;
  bool zeroAlone;
};

TEST(KSANI, FirstDigitOfADCDoesNotGoBeyondThatOfTheOwner) {
  for (const auto& [ADC, isZeroAlone] :
       {OwnersADC{"01234", true}, OwnersADC{"0", true}, OwnersADC{"", true}, OwnersADC{Null, true},
        OwnersADC{Value(), true}, OwnersADC{"112", false}, OwnersADC{" 0", false}}) {
    ScriptedHost host;
    host.Param("DIR", "100");
    host.Rows(readADC, {{ADC}});
    EXPECT_TRUE(host.Run(Act("GetValidValForParam", {"ADC_D1"})));
    EXPECT_EQ(host.Effects(), Lines({QueryLine(readADC), isZeroAlone ? zeroAlone : whole})) << TraceText(ADC);
  }
}

TEST(KSANI, FirstDigitOfADCHasNoListForAnOwnerThatIsNotThere) {
  ScriptedHost host;
  host.Param("DIR", "100");
  host.Rows(readADC, {});
  EXPECT_TRUE(host.Run(Act("GetValidValForParam", {"ADC_D1"})));
  EXPECT_EQ(host.Effects(), Lines({QueryLine(readADC)}));
}

TEST(KSANI, FirstDigitOfADCReportsTheStepThatFails) {
  const std::string context = " GetValues : ADC_D1";
  {
    ScriptedHost host;
    host.Param("DIR", "100");
    host.Refuse("scRunQuery", readADC);
    EXPECT_FALSE(host.Run(Act("GetValidValForParam", {"ADC_D1"})));
    EXPECT_EQ(host.Effects(), Lines({QueryLine(readADC), MessageLine(context, "62000")}));
  }
  for (const auto& [operation, ADC] : {std::pair{"scCollectValuesAndDesc", "0"}, {"scSQLSelectValuesAndDesc", "1"}}) {
    ScriptedHost host;
    host.Param("DIR", "100");
    host.Rows(readADC, {{ADC}});
    host.Refuse(operation);
    EXPECT_FALSE(host.Run(Act("GetValidValForParam", {"ADC_D1"})));
    EXPECT_TRUE(host.Effects().ends_with(Lines({MessageLine(context, "61021, \"ADC_D1\"")})));
  }
}

// --- Checks.

TEST(KSANI, CheckOfTheCategoryKeepsTheFirstDigitOfADCOnlyIfItIsStillListed) {
  ScriptedHost host;
  host.Param("ADC_D1", "1");
  host.ValidValues("ADC_D1", {"0"});
  EXPECT_TRUE(host.Run(Act("StatCheck", {"CAT"})));
  EXPECT_EQ(host.Calls(), Lines({Read("ADC_D1"), Call("scResetParam", "ADC_D1"), "scGetValidValues(\"ADC_D1\", out)"}));
}

TEST(KSANI, CheckOfTheSixthDigitOfCDIVResetsTheTail) {
  ScriptedHost host;
  EXPECT_TRUE(host.Run(Act("StatCheck", {"CDIV_D6"})));
  EXPECT_EQ(host.Calls(),
            Lines({Call("scResetParam", "CDIV_D7"), Call("scResetParam", "CDIV_D8"), Call("scResetParam", "CDIV_D9")}));
}

const std::string checking = "StatCheck: KSANI";
const std::string readITYPE = "SELECT ITYPE FROM KSEXI  WHERE DIR = '100'";
const std::string resetKey = Call("scResetParam", "KEY");
const std::string askKeys = "scGetValidValues(\"KEY\", out)";
const std::string setKey = "scSetParamValue(\"KEY\", \"2\")";
const std::string resetADC = Call("scResetParam", "ADC_D1");

std::string Activate(int definition) { return "scActiveDefinition(\"KEY\", " + std::to_string(definition) + ")"; }

class KSANICheck : public testing::Test {
 protected:
  KSANICheck() {
    host.Param("DIR", "100");
    host.Param("KEY", "2");
    host.ValidValues("KEY", {"1", "2"});
  }

  ScriptedHost host;
};

TEST_F(KSANICheck, OfTheOwnerActivatesTheKeysOfItsInstrument) {
  std::string expected;
  for (int ITYPE = 0; ITYPE <= 24; ++ITYPE) {
    ScriptedHost asked;
    asked.Param("DIR", "100");
    asked.Param("KEY", "2");
    asked.ValidValues("KEY", {"1", "2"});
    asked.Rows(readITYPE, {{std::to_string(ITYPE)}});
    EXPECT_TRUE(asked.Run(Act("StatCheck", {"DIR"})));
    EXPECT_EQ(asked.Calls(), Lines({Read("DIR"), Read("KEY"), QueryLine(readITYPE), Activate(ITYPE + 1), resetKey,
                                    askKeys, setKey, resetADC}));
  }
}

TEST_F(KSANICheck, OfTheOwnerLeavesTheDefinitionForAnyOtherInstrumentComparedAsText) {
  for (const Value& ITYPE : {Value("25"), Value("-1"), Value("07"), Value("7 "), Value(""), Null}) {
    ScriptedHost asked;
    asked.Param("DIR", "100");
    asked.Param("KEY", "3");
    asked.ValidValues("KEY", {"1", "2"});
    asked.Rows(readITYPE, {{ITYPE}});
    EXPECT_TRUE(asked.Run(Act("StatCheck", {"DIR"})));
    EXPECT_EQ(asked.Effects(), Lines({QueryLine(readITYPE), resetKey, askKeys, resetADC})) << TraceText(ITYPE);
  }
}

TEST_F(KSANICheck, OfAnOwnerThatIsNullOrNotThereDoesNothing) {
  host.Rows(readITYPE, {});
  EXPECT_TRUE(host.Run(Act("StatCheck", {"DIR"})));
  EXPECT_EQ(host.Calls(), Lines({Read("DIR"), Read("KEY"), QueryLine(readITYPE)}));
  ScriptedHost null;
  null.Param("DIR", Null);
  EXPECT_TRUE(null.Run(Act("StatCheck", {"DIR"})));
  EXPECT_EQ(null.Effects(), "");
}

TEST_F(KSANICheck, OfTheOwnerStopsAtTheStepThatFails) {
  const auto run = [](const std::string& operation, const std::string& first) {
    ScriptedHost asked;
    asked.Param("DIR", "100");
    asked.Param("KEY", "2");
    asked.ValidValues("KEY", {"2"});
    if (operation != "scRunQuery") asked.Rows(readITYPE, {{"3"}});
    asked.Refuse(operation, first);
    EXPECT_FALSE(asked.Run(Act("StatCheck", {"DIR"})));
    return asked.Effects();
  };
  EXPECT_EQ(run("scRunQuery", readITYPE), Lines({QueryLine(readITYPE)}));
  EXPECT_EQ(run("scResetParam", "KEY"),
            Lines({QueryLine(readITYPE), Activate(4), resetKey, MessageLine(checking, "61013, \"KEY\"")}));
  EXPECT_EQ(run("scGetValidValues", "KEY"),
            Lines({QueryLine(readITYPE), Activate(4), resetKey, askKeys, MessageLine(checking, "61020, \"KEY\"")}));
  EXPECT_EQ(run("scSetParamValue", "KEY"), Lines({QueryLine(readITYPE), Activate(4), resetKey, askKeys, setKey,
                                                  MessageLine(checking, "61016, \"KEY\"")}));
  EXPECT_EQ(run("scResetParam", "ADC_D1"),
            Lines({QueryLine(readITYPE), Activate(4), resetKey, askKeys, setKey, resetADC}));
}

TEST_F(KSANICheck, OfTheOwnerGoesOnWhereTheDefinitionIsNotTaken) {
  host.Rows(readITYPE, {{"3"}});
  host.Refuse("scActiveDefinition");
  EXPECT_TRUE(host.Run(Act("StatCheck", {"DIR"})));
  EXPECT_EQ(host.Effects(), Lines({QueryLine(readITYPE), Activate(4), resetKey, askKeys, setKey, resetADC}));
}

// --- Add.

const std::string adding = "Add: KSANI";
const std::string readSERV = "SELECT SERV FROM EXCCS WHERE CAT = '3'";
const std::string displace = "DELETE * FROM KSFKC WHERE KEY = '5' AND DIR = '100'";
const std::string columns =
    "[\"CmdId\", \"DIR\", \"NUMTYP\", \"KEY\", \"ADN\", \"CAT\", \"TRAF\", \"SERV\", \"CDIV\", \"ROC\", \"ADC\", "
    "\"CUST\", \"CALALT\", \"DESCRIPTION\"]";

std::string Insert(const std::string& CAT) {
  return "scSQLInsert(\"KSANI\", " + columns + ", [1001, \"100\", \"EX\", \"5\", \"500\", " + CAT +
         ", \"t\", \"s\", \"c\", \"r\", \"a\", \"cu\", \"ca\", \"d\"])";
}

void FillForm(ScriptedHost& host) {
  for (const auto& [name, value] : {std::pair{"DIR", "100"},
                                    {"KEY", "5"},
                                    {"ADN", "500"},
                                    {"TRAF", "t"},
                                    {"SERV", "s"},
                                    {"CDIV", "c"},
                                    {"ROC", "r"},
                                    {"ADC", "a"},
                                    {"CUST", "cu"},
                                    {"CALALT", "ca"},
                                    {"DESCRIPTION", "d"}})
    host.Param(name, value);
}

TEST(KSANI, AddTakesTheNumberIntoUseAndDisplacesWhatStoodOnTheKey) {
  ScriptedHost host;
  FillForm(host);
  EXPECT_TRUE(host.Run(Act("SetInfo", {"x", "y"})));
  EXPECT_EQ(host.Calls(),
            Lines({start, "scBuildCmdID()", Read("DIR"), Read("KEY"), Read("ADN"), Read("CAT"), Read("TRAF"),
                   Read("SERV"), Read("CDIV"), Read("ROC"), Read("ADC"), Read("CUST"), Read("CALALT"),
                   Read("DESCRIPTION"), TakeNumber("500"), Insert("Empty"), StatementLine(displace), commit}));
}

TEST(KSANI, AddReadsTheStringOfTheCategoryAndMakesNoUseOfIt) {
  for (const std::vector<Value>& SERV : {std::vector<Value>{"111111102"}, std::vector<Value>{}}) {
    ScriptedHost host;
    FillForm(host);
    host.Param("CAT", "3");
    host.Rows(readSERV, {SERV});
    EXPECT_TRUE(host.Run(Act("SetInfo")));
    EXPECT_EQ(host.Effects(), Lines({start, "scBuildCmdID()", QueryLine(readSERV), TakeNumber("500"), Insert("\"3\""),
                                     StatementLine(displace), commit}));
  }
}

TEST(KSANI, AddAsksNoCategoryWithoutValue) {
  for (const Value& CAT : {Null, Value("")}) {
    ScriptedHost host;
    FillForm(host);
    host.Param("CAT", CAT);
    EXPECT_TRUE(host.Run(Act("SetInfo")));
    EXPECT_EQ(host.Effects(), Lines({start, "scBuildCmdID()", TakeNumber("500"), Insert(TraceText(CAT)),
                                     StatementLine(displace), commit}));
  }
}

TEST(KSANI, AddReportsTheStepThatFailsAndRollsBack) {
  const auto run = [](const std::string& operation, const std::string& first) {
    ScriptedHost host;
    FillForm(host);
    host.Param("CAT", "3");
    if (first != readSERV) host.Rows(readSERV, {{"s"}});
    host.Refuse(operation, first);
    EXPECT_FALSE(host.Run(Act("SetInfo")));
    return host.Effects();
  };
  const std::string begin = Lines({start, "scBuildCmdID()", QueryLine(readSERV)});
  const std::string insertFailed = MessageLine(adding, "61024, \"KSANI\"");
  EXPECT_EQ(run("scRunQuery", readSERV), begin + Lines({MessageLine(adding, "62000"), rollBack}));
  EXPECT_EQ(run("scRunQuery", AsSent(MarkNumberSql("500", "True"))),
            begin + Lines({StatementLine(MarkNumberSql("500", "True")), MessageLine("SetNumberUsed", "61005, \"500\""),
                           MessageLine(adding, "61024"), rollBack}));
  EXPECT_EQ(run("scSQLInsert", "KSANI"), begin + Lines({TakeNumber("500"), Insert("\"3\""), insertFailed, rollBack}));
  EXPECT_EQ(run("scRunQuery", displace), begin + Lines({TakeNumber("500"), Insert("\"3\""), StatementLine(displace),
                                                        MessageLine(adding, "62000"), rollBack}));
}

TEST(KSANI, AddReportsThatTheTransactionDidNotStartCommitOrRollBack) {
  {
    ScriptedHost host;
    host.Refuse("scStartTransaction");
    host.Refuse("scRollBackTransaction");
    EXPECT_FALSE(host.Run(Act("SetInfo")));
    EXPECT_EQ(host.Calls(), Lines({start, MessageLine(adding, "62010"), rollBack, MessageLine(adding, "62012")}));
  }
  ScriptedHost host;
  host.Refuse("scCommitTransaction");
  EXPECT_TRUE(host.Run(Act("SetInfo")));
  EXPECT_TRUE(host.Effects().ends_with(Lines({commit, MessageLine(adding, "62011")})));
}

// --- Edit.

const std::string editing = "Edit: KSANI";
const std::string readADN = "SELECT ADN FROM KSANI WHERE CmdId = 7";
const std::string clearCAT = "UPDATE KSANI SET CAT = Null WHERE CmdId = 7";

std::string Write(const std::string& column, const std::string& value) {
  return "UPDATE KSANI SET " + column + " = '" + value + "' WHERE CmdId = 7";
}

TEST(KSANI, EditWritesEachParameterAndAnEmptyOneAsAnEmptyText) {
  ScriptedHost host;
  host.Param("KEY", "5");
  EXPECT_TRUE(host.Run(Act("EditInfo", {"KEY", "CUST"})));
  EXPECT_EQ(host.Calls(), Lines({start, Read("KEY"), StatementLine(Write("KEY", "5")), Read("CUST"),
                                 StatementLine(Write("CUST", "")), commit}));
}

TEST(KSANI, EditOfANullParameterFailsTheCall) {
  ScriptedHost host;
  host.Param("KEY", Null);
  EXPECT_THROW(host.Run(Act("EditInfo", {"KEY"})), RunTimeFailure);
}

TEST(KSANI, EditStopsAtAnUpdateThatFails) {
  ScriptedHost host;
  host.Refuse("scRunQuery", Write("KEY", ""));
  EXPECT_FALSE(host.Run(Act("EditInfo", {"KEY", "CUST"})));
  EXPECT_EQ(host.Effects(),
            Lines({start, StatementLine(Write("KEY", "")), MessageLine(editing, "61011, \"KEY\""), rollBack}));
}

TEST(KSANI, EditMovesTheUseOfTheNumberAndLeavesTheColumnToTheHost) {
  ScriptedHost host;
  host.Param("ADN", "501");
  host.Rows(readADN, {{"500"}});
  EXPECT_TRUE(host.Run(Act("EditInfo", {"ADN"})));
  EXPECT_EQ(host.Effects(), Lines({start, QueryLine(readADN), MoveNumber("500", "501"), commit}));
}

TEST(KSANI, EditEndsAtANumberThatCannotBeReadFoundOrMoved) {
  {
    ScriptedHost host;
    host.Refuse("scRunQuery", readADN);
    EXPECT_FALSE(host.Run(Act("EditInfo", {"ADN", "KEY"})));
    EXPECT_EQ(host.Effects(),
              Lines({start, QueryLine(readADN), MessageLine(editing, "60004, \"ADN\", \"KSANI\""), rollBack}));
  }
  {
    ScriptedHost host;
    host.Rows(readADN, {});
    EXPECT_FALSE(host.Run(Act("EditInfo", {"ADN", "KEY"})));
    EXPECT_EQ(host.Effects(), Lines({start, QueryLine(readADN), MessageLine(editing, "60005, \"ADN\""), rollBack}));
  }
  {
    ScriptedHost host;
    host.Param("ADN", "501");
    host.Rows(readADN, {{"500"}});
    host.Refuse("scRunQuery", AsSent(MarkNumberSql("500", "False")));
    EXPECT_FALSE(host.Run(Act("EditInfo", {"ADN", "KEY"})));
    EXPECT_EQ(host.Effects(), Lines({start, QueryLine(readADN), StatementLine(MarkNumberSql("500", "False")),
                                     MessageLine("SetNumberUsed", "61005, \"500\""),
                                     MessageLine(editing, "60001, \"500\", \"Edit: KSANI\""), rollBack}));
  }
}

TEST(KSANI, EditClearsACategoryWithoutValue) {
  for (const Value& CAT : {Value(), Value("")}) {
    ScriptedHost host;
    host.Param("CAT", CAT);
    EXPECT_TRUE(host.Run(Act("EditInfo", {"CAT"})));
    EXPECT_EQ(host.Effects(), Lines({start, StatementLine(clearCAT), commit}));
  }
  ScriptedHost host;
  host.Refuse("scRunQuery", clearCAT);
  EXPECT_FALSE(host.Run(Act("EditInfo", {"CAT", "KEY"})));
  EXPECT_EQ(host.Effects(), Lines({start, StatementLine(clearCAT), MessageLine(editing, "61011, \"CAT\""), rollBack}));
}

TEST(KSANI, EditTakesACategoryThatIsNotDefined) {
  for (const std::vector<Value>& SERV :
       {std::vector<Value>{}, std::vector<Value>{Null}, std::vector<Value>{""}, std::vector<Value>{Value()}}) {
    ScriptedHost host;
    host.Param("CAT", "3");
    host.Rows(readSERV, {SERV});
    EXPECT_TRUE(host.Run(Act("EditInfo", {"CAT"})));
    EXPECT_EQ(host.Effects(), Lines({start, QueryLine(readSERV), StatementLine(Write("CAT", "3")), commit}));
  }
}

TEST(KSANI, EditRefusesAnyCategoryThatIsDefinedWhateverItsLastDigits) {
  for (const char* SERV : {"111111100", "111111101", "111111102", "1"}) {
    ScriptedHost host;
    host.Param("CAT", "3");
    host.Rows(readSERV, {{SERV}});
    EXPECT_FALSE(host.Run(Act("EditInfo", {"CAT"})));
    EXPECT_EQ(host.Effects(), Lines({start, QueryLine(readSERV), MessageLine(editing, "60036"), rollBack}));
  }
}

TEST(KSANI, EditLetsAParameterBehindARefusedCategoryDecide) {
  ScriptedHost host;
  host.Param("CAT", "3");
  host.Rows(readSERV, {{"111111100"}});
  EXPECT_TRUE(host.Run(Act("EditInfo", {"CAT", "KEY"})));
  EXPECT_EQ(host.Effects(), Lines({start, QueryLine(readSERV), MessageLine(editing, "60036"),
                                   StatementLine(Write("KEY", "")), commit}));
}

TEST(KSANI, EditEndsAtACategoryThatCannotBeReadOrWritten) {
  {
    ScriptedHost host;
    host.Param("CAT", "3");
    host.Refuse("scRunQuery", readSERV);
    EXPECT_FALSE(host.Run(Act("EditInfo", {"CAT", "KEY"})));
    EXPECT_EQ(host.Effects(), Lines({start, QueryLine(readSERV), MessageLine(editing, "62000"), rollBack}));
  }
  ScriptedHost host;
  host.Param("CAT", "3");
  host.Rows(readSERV, {});
  host.Refuse("scRunQuery", Write("CAT", "3"));
  EXPECT_FALSE(host.Run(Act("EditInfo", {"CAT", "KEY"})));
  EXPECT_EQ(host.Effects(), Lines({start, QueryLine(readSERV), StatementLine(Write("CAT", "3")),
                                   MessageLine(editing, "61011, \"CAT\""), rollBack}));
}

TEST(KSANI, EditReportsThatTheTransactionDidNotStartCommitOrRollBack) {
  {
    ScriptedHost host;
    host.Refuse("scStartTransaction");
    host.Refuse("scRollBackTransaction");
    EXPECT_FALSE(host.Run(Act("EditInfo", {"KEY"})));
    EXPECT_EQ(host.Calls(), Lines({start, MessageLine(editing, "62010"), rollBack, MessageLine(editing, "62012")}));
  }
  ScriptedHost host;
  host.Refuse("scCommitTransaction");
  EXPECT_TRUE(host.Run(Act("EditInfo", {"KEY"})));
  EXPECT_TRUE(host.Effects().ends_with(Lines({commit, MessageLine(editing, "62011")})));
}

// --- Delete.

const std::string deleting = "Delete: KSANI";
const std::string readOld = "SELECT ADN FROM KSANI  WHERE CmdID = 7";

TEST(KSANI, DeleteFreesTheNumberAndLeavesTheRecord) {
  ScriptedHost host;
  host.Rows(readOld, {{"500"}});
  EXPECT_TRUE(host.Run(Act("DeleteInfo")));
  EXPECT_EQ(host.Calls(), Lines({start, QueryLine(readOld), FreeNumber("500"), commit}));
}

TEST(KSANI, DeleteReportsTheStepThatFails) {
  {
    ScriptedHost host;
    host.Refuse("scRunQuery", readOld);
    EXPECT_FALSE(host.Run(Act("DeleteInfo")));
    EXPECT_EQ(host.Calls(), Lines({start, QueryLine(readOld), MessageLine(deleting, "60006, \"KSANI\""), rollBack}));
  }
  ScriptedHost host;
  host.Rows(readOld, {{"500"}});
  host.Refuse("scRunQuery", AsSent(ForgetNumberSql("500")));
  EXPECT_FALSE(host.Run(Act("DeleteInfo")));
  EXPECT_EQ(host.Calls(),
            Lines({start, QueryLine(readOld), FreeNumber("500"), MessageLine("DeleteExtOpeGrp: 500", "62000"),
                   MessageLine(deleting, "61026"), rollBack}));
}

TEST(KSANI, DeleteOfARecordWithAnEmptyNumberReportsAndRollsBack) {
  ScriptedHost host;
  host.Rows(readOld, {{Value()}});
  EXPECT_FALSE(host.Run(Act("DeleteInfo")));
  EXPECT_EQ(host.Calls(), Lines({start, QueryLine(readOld), MessageLine(deleting, "60005, \"ADN\""), rollBack}));
}

TEST(KSANI, DeleteOfARecordThatIsGoneOrHasNoNumberIsReported) {
  for (const std::vector<std::vector<Value>>& rows :
       {std::vector<std::vector<Value>>{}, {{""}}, {{Null}}, {{Value()}}}) {
    ScriptedHost host;
    host.Rows(readOld, rows);
    EXPECT_FALSE(host.Run(Act("DeleteInfo")));
    EXPECT_EQ(host.Calls(),
              Lines({start, QueryLine(readOld), MessageLine("Delete: KSANI", "60005, \"ADN\""), rollBack}));
  }
}

TEST(KSANI, DeleteReportsThatTheTransactionDidNotStartCommitOrRollBack) {
  {
    ScriptedHost host;
    host.Refuse("scStartTransaction");
    host.Refuse("scRollBackTransaction");
    EXPECT_FALSE(host.Run(Act("DeleteInfo")));
    EXPECT_EQ(host.Calls(), Lines({start, MessageLine(deleting, "62010"), rollBack, MessageLine(deleting, "62012")}));
  }
  ScriptedHost host;
  host.Rows(readOld, {{"500"}});
  host.Refuse("scCommitTransaction");
  EXPECT_TRUE(host.Run(Act("DeleteInfo")));
  EXPECT_TRUE(host.Calls().ends_with(Lines({commit, MessageLine(deleting, "62011")})));
}

// --- Generate. Rows in the order of the statement.

const std::string readAll = "SELECT ADC,ADN,CALALT,CAT,CDIV,CUST,DIR,KEY,ROC,SERV,TRAF FROM KSANI";

std::string ReadITYPE(const std::string& DIR) { return "SELECT ITYPE FROM KSEXI WHERE DIR = '" + DIR + "'"; }
std::string Built(const std::string& line) { return StatementLine("INSERT INTO BuiltCmd VALUES (12,'" + line + "')"); }

std::vector<Value> Record(const Value& ADN, const Value& DIR, const Value& KEY) {
  return {Null, ADN, Null, "3", Null, Null, DIR, KEY, Null, Null, Null};
}

TEST(KSANI, GeneratesTheCategoryOrAllFourStringsTheSameOnEveryRelease) {
  for (const char* release : {"R6", "R6/1", "R7"}) {
    ScriptedHost host;
    host.Rows(readAll, ByColumn({{"a", " 500 ", "ca", "3", "c", "cu", "100", "5", "r", "s", "t"},
                                 {Null, "501", Null, Null, "c", Null, "100", "6", "r", "s", "t"},
                                 {Null, Null, Null, Null, Null, Null, "100", Null, Null, Null, Null},
                                 {Null, "502", Null, "", Null, Null, "100", Null, Null, Null, Null}}));
    host.Rows(ReadITYPE("100"), {{"3"}});
    EXPECT_TRUE(host.Run(Act("GenerateCmd", {"12"}, release)));
    const std::string read = QueryLine(ReadITYPE("100"));
    EXPECT_EQ(host.Calls(),
              Lines({QueryLine(readAll), read, Built("KSANI:DIR=100,ADN=500,KEY=5,CAT=3,ADC=a,CUST=cu,CALALT=ca;"),
                     read, Built("KSANI:DIR=100,ADN=501,KEY=6,TRAF=t,SERV=s,CDIV=c,ROC=r;"), read,
                     Built("KSANI:DIR=100,TRAF=,SERV=,CDIV=,ROC=;"), read, Built("KSANI:DIR=100,ADN=502,CAT=;")}));
  }
}

TEST(KSANI, GeneratesBlanksTrimmedAndEmptyTextsWithTheirNamesAsTheyAreNotNull) {
  ScriptedHost host;
  std::vector<Value> withoutCAT(11, " x ");
  withoutCAT[3] = Null;
  host.Rows(readAll, ByColumn({std::vector<Value>(11, " "), std::vector<Value>(11, " x "), withoutCAT}));
  host.Rows(ReadITYPE(""), {});
  host.Rows(ReadITYPE("x"), {});
  EXPECT_TRUE(host.Run(Act("GenerateCmd", {"12"})));
  EXPECT_EQ(host.Calls(),
            Lines({QueryLine(readAll), QueryLine(ReadITYPE("")), Built("KSANI:DIR=,ADN=,KEY=,CAT=,ADC=,CUST=,CALALT=;"),
                   QueryLine(ReadITYPE("x")), Built("KSANI:DIR=x,ADN=x,KEY=x,CAT=x,ADC=x,CUST=x,CALALT=x;"),
                   QueryLine(ReadITYPE("x")),
                   Built("KSANI:DIR=x,ADN=x,KEY=x,TRAF=x,SERV=x,CDIV=x,ROC=x,ADC=x,CUST=x,CALALT=x;")}));
}

TEST(KSANI, GeneratesALineEvenForARecordWithoutAnyValue) {
  ScriptedHost host;
  host.Rows(readAll, ByColumn({std::vector<Value>(11, Null)}));
  host.Rows(ReadITYPE(""), {});
  EXPECT_TRUE(host.Run(Act("GenerateCmd", {"12"})));
  EXPECT_EQ(host.Calls(),
            Lines({QueryLine(readAll), QueryLine(ReadITYPE("")), Built("KSANI:DIR=,TRAF=,SERV=,CDIV=,ROC=;")}));
}

TEST(KSANI, GeneratesTheReleaseOfAFixedKeyInFrontInOneRow) {
  ScriptedHost host;
  host.Rows(readAll, ByColumn({Record("500", "100", "13"), Record("501", "101", "13"), Record("502", "101", "A2"),
                               Record("503", "102", "A2"), Record("504", "100", "A2"), Record("505", "102", "13")}));
  host.Rows(ReadITYPE("100"), {{"12"}});
  host.Rows(ReadITYPE("101"), {{"13"}});
  host.Rows(ReadITYPE("102"), {});
  EXPECT_TRUE(host.Run(Act("GenerateCmd", {"12"})));
  EXPECT_EQ(
      host.Calls(),
      Lines({QueryLine(readAll), QueryLine(ReadITYPE("100")),
             Built("KSFKC:DIR=100,KEY=13,FCN=TNS;{LF}KSANI:DIR=100,ADN=500,KEY=13,CAT=3;"), QueryLine(ReadITYPE("101")),
             Built("KSANI:DIR=101,ADN=501,KEY=13,CAT=3;"), QueryLine(ReadITYPE("101")),
             Built("KSFKC:DIR=101,KEY=A2,FCN=TNS;{LF}KSANI:DIR=101,ADN=502,KEY=A2,CAT=3;"), QueryLine(ReadITYPE("102")),
             Built("KSFKC:DIR=102,KEY=A2,FCN=TNS;{LF}KSANI:DIR=102,ADN=503,KEY=A2,CAT=3;"), QueryLine(ReadITYPE("100")),
             Built("KSANI:DIR=100,ADN=504,KEY=A2,CAT=3;"), QueryLine(ReadITYPE("102")),
             Built("KSFKC:DIR=102,KEY=13,FCN=TNS;{LF}KSANI:DIR=102,ADN=505,KEY=13,CAT=3;")}));
}

TEST(KSANI, GenerateEndsInSilenceWhereAnInstrumentCannotBeRead) {
  ScriptedHost host;
  host.Rows(readAll, ByColumn({Record("500", "100", "5"), Record("501", "101", "5")}));
  host.Refuse("scRunQuery", ReadITYPE("100"));
  EXPECT_FALSE(host.Run(Act("GenerateCmd", {"12"})));
  EXPECT_EQ(host.Calls(), Lines({QueryLine(readAll), QueryLine(ReadITYPE("100"))}));
}

TEST(KSANI, GenerateOnAnEmptyTableWritesNothing) {
  ScriptedHost host;
  host.Rows(readAll, {});
  EXPECT_TRUE(host.Run(Act("GenerateCmd", {"12"})));
  EXPECT_EQ(host.Calls(), Lines({QueryLine(readAll)}));
}

TEST(KSANI, GenerateReportsRecordsThatCannotBeRead) {
  ScriptedHost host;
  host.Refuse("scRunQuery", readAll);
  EXPECT_FALSE(host.Run(Act("GenerateCmd", {"12"})));
  EXPECT_EQ(host.Calls(), Lines({QueryLine(readAll), MessageLine("Generating: KSANI", "61019")}));
}

TEST(KSANI, GenerateGoesOnBehindALineThatWasNotWrittenAndAnswersForTheLast) {
  const std::string first = "INSERT INTO BuiltCmd VALUES (12,'KSANI:DIR=100,ADN=500,KEY=5,CAT=3;')";
  const std::string second = "INSERT INTO BuiltCmd VALUES (12,'KSANI:DIR=100,ADN=501,KEY=6,CAT=3;')";
  for (const bool firstFails : {true, false}) {
    ScriptedHost host;
    host.Rows(readAll, ByColumn({Record("500", "100", "5"), Record("501", "100", "6")}));
    host.Rows(ReadITYPE("100"), {{"3"}});
    host.Refuse("scRunQuery", firstFails ? first : second);
    EXPECT_EQ(host.Run(Act("GenerateCmd", {"12"})), firstFails);
    const std::string read = QueryLine(ReadITYPE("100"));
    const std::string failed = MessageLine("Generating: KSANI", "61019");
    EXPECT_EQ(host.Calls(),
              firstFails
                  ? Lines({QueryLine(readAll), read, StatementLine(first), failed, read, StatementLine(second)})
                  : Lines({QueryLine(readAll), read, StatementLine(first), read, StatementLine(second), failed}));
  }
}

}  // namespace
}  // namespace cordboard
