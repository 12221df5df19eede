#include <gtest/gtest.h>

#include <tuple>
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
          .CmdName = "KSMDI",
          .CmdId = 7,
          .ParamList = parameters};
}

const Value Null = Value::Null();
const std::string start = "scStartTransaction()";
const std::string commit = "scCommitTransaction()";
const std::string rollBack = "scRollBackTransaction()";
const std::string askDIR = "scGetValueArray(\"DIR\", out)";
const std::string askDIRK = "scGetValueArray(\"DIRK\", out)";

// --- What is served.

TEST(KSMDI, ServesNoOtherParameterAndNoOtherAction) {
  ScriptedHost host;
  EXPECT_FALSE(host.Run(Act("GetValidValForParam", {"DIG"})));
  EXPECT_FALSE(host.Run(Act("StatCheck", {"KEY"})));
  EXPECT_FALSE(host.Run(Act("GetInfo")));
  EXPECT_EQ(host.Calls(), "");
}

TEST(KSMDI, ListsThePlainParametersFromTheFixedValues) {
  for (const char* parameter : {"CALALT", "MNS"}) {
    ScriptedHost host;
    EXPECT_TRUE(host.Run(Act("GetValidValForParam", {parameter})));
    EXPECT_EQ(host.Calls(), Lines({Call("scSQLSelectValuesAndDesc")}));
  }
}

TEST(KSMDI, ListsAllKeyExtensions) {
  const std::string collect = Call("scCollectSingleValues", "SELECT DIR  FROM KSEXI  WHERE NUMTYP = 'EX' ORDER BY DIR");
  ScriptedHost host;
  EXPECT_TRUE(host.Run(Act("GetValidValForParam", {"DIR"})));
  host.Refuse("scCollectSingleValues");
  EXPECT_FALSE(host.Run(Act("GetValidValForParam", {"DIR"})));
  EXPECT_EQ(host.Calls(), Lines({collect, collect, MessageLine("GetValidValForParam", "61020, \"DIR\"")}));
}

// --- The list of keys.

const std::string wholeByDefinition = "scSQLSelectValuesAndDescByDefinition(13)";

std::string WithoutKeysOf(const std::string& DIR) {
  return Lines({Call("scSubtractSingleValues", "SELECT KEY FROM KSFKC WHERE DIR =  '" + DIR + "' AND NOT(FCN = 'TNS')"),
                Call("scSubtractSingleValues", "SELECT KEY FROM KSANI WHERE DIR = '" + DIR + "'"),
                Call("scSubtractSingleValues", "SELECT KEY FROM KSMDI WHERE DIR = '" + DIR + "'"),
                "scGetNumberOfValidValues(\"KEY\", 13, out)"});
}

TEST(KSMDI, ListsAllKeysOfTheDefinitionWithoutAnExtension) {
  ScriptedHost host;
  host.Array("DIR", List());
  EXPECT_TRUE(host.Run(Act("GetValidValForParam", {"KEY"})));
  EXPECT_EQ(host.Calls(), Lines({askDIR, wholeByDefinition}));
}

TEST(KSMDI, ListsTheKeysThatAreFreeOnAllExtensionsOrHaveTNSOnEveryRelease) {
  for (const char* release : {"R6", "R7"}) {
    ScriptedHost host;
    host.Array("DIR", {"100", Value(), Null, "", "101"});
    host.NumberOfValidValues("KEY", 4);
    EXPECT_TRUE(host.Run(Act("GetValidValForParam", {"KEY"}, release)));
    EXPECT_EQ(host.Calls(),
              Lines({askDIR, wholeByDefinition}) + WithoutKeysOf("100") + WithoutKeysOf("") + WithoutKeysOf("101"));
  }
}

TEST(KSMDI, TellsTheExtensionOnWhichNoKeyIsLeft) {
  ScriptedHost host;
  host.Array("DIR", {"100"});
  host.NumberOfValidValues("KEY", 0);
  EXPECT_FALSE(host.Run(Act("GetValidValForParam", {"KEY"})));
  EXPECT_EQ(host.Calls(), Lines({askDIR, wholeByDefinition}) + WithoutKeysOf("100") +
                              Lines({DebugLine("There are no available keys for this DIR"),
                                     MessageLine("GetValidValForParam", "60020, \"100\"")}));
}

TEST(KSMDI, ReportsKeysThatCannotBeListed) {
  const std::string failed = MessageLine("GetValidValForParam", "61021, \"KEY\"");
  {
    ScriptedHost host;
    host.Array("DIR", {"100"});
    host.Refuse("scSQLSelectValuesAndDescByDefinition");
    EXPECT_FALSE(host.Run(Act("GetValidValForParam", {"KEY"})));
    EXPECT_EQ(host.Calls(), Lines({askDIR, wholeByDefinition, failed}));
  }
  {
    ScriptedHost host;
    host.Array("DIR", {"100"});
    host.Refuse("scSubtractSingleValues", "SELECT KEY FROM KSMDI WHERE DIR = '100'");
    EXPECT_FALSE(host.Run(Act("GetValidValForParam", {"KEY"})));
    EXPECT_TRUE(host.Calls().ends_with(
        Lines({Call("scSubtractSingleValues", "SELECT KEY FROM KSMDI WHERE DIR = '100'"), failed})));
  }
}

TEST(KSMDI, ListOfKeysForANullListFailsTheCall) {
  ScriptedHost host;
  host.Array("DIR", List::Null());
  EXPECT_THROW(host.Run(Act("GetValidValForParam", {"KEY"})), RunTimeFailure);
}

// --- The list of further numbers.

const std::vector<std::pair<std::string, std::string>> numberSteps = {
    {"scCollectSingleValues", "SELECT DIR FROM KSEXI WHERE NUMTYP = 'EX' ORDER BY DIR"},
    {"scSubtractSingleValues", "SELECT DIR FROM KSEXI WHERE NUMTYP = 'EX' AND ADC Like '[1-2]%' ORDER BY DIR"},
    {"scAddSingleValues", "SELECT ADN FROM KSANI  ORDER BY ADN"},
    {"scSubtractSingleValues", "SELECT ADN FROM KSANI  WHERE ADC Like '[1-2]%' ORDER BY ADN"},
    {"scAddSingleValues", "SELECT DIR FROM EXTEIDIR WHERE NUMTYP ='EX' ORDER BY DIR"},
    {"scAddSingleValues", "SELECT DIR FROM GEDII WHERE NUMTYP ='EX' ORDER BY DIR"}};

std::string AllNumbers() {
  std::string text;
  for (const auto& [operation, sql] : numberSteps) text += Lines({Call(operation, sql)});
  return text;
}

std::string WithoutNumbersOf(const std::string& DIR) {
  return Lines({"scRemoveFromValidValues(\"MDN\", \"" + DIR + "\")",
                Call("scSubtractSingleValues", "SELECT MDN FROM KSMDI WHERE DIR = '" + DIR + "' ")});
}

TEST(KSMDI, ListsNumbersFromFourTablesLessTheExtensionsAndWhatTheyHave) {
  ScriptedHost host;
  host.Array("DIR", {"100", Value(), Null, "", "101"});
  EXPECT_TRUE(host.Run(Act("GetValidValForParam", {"MDN"})));
  EXPECT_EQ(host.Calls(),
            AllNumbers() + Lines({askDIR}) + WithoutNumbersOf("100") + WithoutNumbersOf("") + WithoutNumbersOf("101"));
}

TEST(KSMDI, ListsAllNumbersWithoutAnExtensionAlsoWhenItCannotBeHad) {
  {
    ScriptedHost host;
    host.Array("DIR", List());
    EXPECT_TRUE(host.Run(Act("GetValidValForParam", {"MDN"})));
    EXPECT_EQ(host.Calls(), AllNumbers() + Lines({askDIR}));
  }
  {
    ScriptedHost host;
    host.Refuse("scGetValueArray");
    EXPECT_TRUE(host.Run(Act("GetValidValForParam", {"MDN"})));
    EXPECT_EQ(host.Calls(), AllNumbers() + Lines({askDIR}));
  }
}

TEST(KSMDI, ReportsTheTableThatFailsAndAsksNoneBehindIt) {
  std::string expected;
  for (const auto& [operation, sql] : numberSteps) {
    ScriptedHost host;
    host.Refuse(operation, sql);
    EXPECT_FALSE(host.Run(Act("GetValidValForParam", {"MDN"})));
    expected += Lines({Call(operation, sql)});
    EXPECT_EQ(host.Calls(), expected + Lines({MessageLine("GetValidValForParam", "61020, \"MDN\"")}));
  }
}

TEST(KSMDI, ReportsNumbersThatCannotBeTakenOut) {
  for (const char* operation : {"scRemoveFromValidValues", "scSubtractSingleValues"}) {
    ScriptedHost host;
    host.Array("DIR", {"100", "101"});
    host.Refuse(operation, operation[2] == 'R' ? "MDN" : "SELECT MDN FROM KSMDI WHERE DIR = '100' ");
    EXPECT_FALSE(host.Run(Act("GetValidValForParam", {"MDN"})));
    EXPECT_TRUE(host.Calls().ends_with(Lines({MessageLine("GetValidValForParam", "60015, \"DIR\"")})));
    EXPECT_EQ(host.Calls().find("\"101\""), std::string::npos);
  }
}

// --- Checks.

const std::string checking = "StatCheck: KSMDI";

std::string ReadITYPE(const std::string& DIR) { return "SELECT ITYPE FROM KSEXI WHERE DIR = '" + DIR + "'"; }

std::string Activate(int definition) { return "scActiveDefinition(\"KEY\", " + std::to_string(definition) + ")"; }

const std::string resets = Lines({Call("scResetParam", "MDN"), Call("scResetParam", "KEY")});
const std::string askKeys = "scGetValidValues(\"KEY\", out)";
const std::string setKey = "scSetParamValue(\"KEY\", \"2\")";

TEST(KSMDI, CheckOfTheExtensionsLeavesTheKeysOfTheLastOneActiveWhateverTheirInstruments) {
  ScriptedHost host;
  host.Param("KEY", "2");
  host.Array("DIR", {"100", Value(), Null, "102", "101"});
  host.Rows(ReadITYPE("100"), {{"3"}});
  host.Rows(ReadITYPE("102"), {});
  host.Rows(ReadITYPE("101"), {{Null}});
  host.ValidValues("KEY", {"2"});
  EXPECT_TRUE(host.Run(Act("StatCheck", {"DIR"})));
  EXPECT_EQ(host.Calls(),
            Lines({Read("KEY"), askDIR, QueryLine(ReadITYPE("100")), Activate(4)}) + resets +
                Lines({askKeys, setKey, QueryLine(ReadITYPE("102")), QueryLine(ReadITYPE("101")), Activate(1)}) +
                resets + Lines({askKeys, setKey}));
}

TEST(KSMDI, CheckOfTheExtensionsDropsAKeyThatIsNoLongerListed) {
  ScriptedHost host;
  host.Param("KEY", "2");
  host.Array("DIR", {"100"});
  host.Rows(ReadITYPE("100"), {{"3"}});
  host.ValidValues("KEY", {"1"});
  EXPECT_TRUE(host.Run(Act("StatCheck", {"DIR"})));
  EXPECT_TRUE(host.Calls().ends_with(resets + Lines({askKeys})));
}

TEST(KSMDI, CheckOfTheExtensionsReportsTheStepThatFailsAndStops) {
  const auto run = [](const std::string& operation, const std::string& first) {
    ScriptedHost host;
    host.Param("KEY", "2");
    host.Array("DIR", {"100", "101"});
    if (operation != "scRunQuery") host.Rows(ReadITYPE("100"), {{"3"}});
    host.ValidValues("KEY", {"2"});
    host.Refuse(operation, first);
    EXPECT_FALSE(host.Run(Act("StatCheck", {"DIR"})));
    return host.Effects();
  };
  const std::string begin = Lines({askDIR, QueryLine(ReadITYPE("100"))});
  EXPECT_EQ(run("scGetValueArray", "DIR"), Lines({askDIR, MessageLine(checking, "61020, \"DIR\"")}));
  EXPECT_EQ(run("scRunQuery", ReadITYPE("100")), begin + Lines({MessageLine(checking, "62000")}));
  EXPECT_EQ(run("scActiveDefinition", "KEY"), begin + Lines({Activate(4)}));
  EXPECT_EQ(run("scResetParam", "MDN"), begin + Lines({Activate(4), Call("scResetParam", "MDN")}));
  EXPECT_EQ(run("scResetParam", "KEY"),
            begin + Lines({Activate(4)}) + resets + Lines({MessageLine(checking, "61013, \"KEY\"")}));
  EXPECT_EQ(run("scGetValidValues", "KEY"),
            begin + Lines({Activate(4)}) + resets + Lines({askKeys, MessageLine(checking, "61020, \"KEY\"")}));
  EXPECT_EQ(run("scSetParamValue", "KEY"),
            begin + Lines({Activate(4)}) + resets + Lines({askKeys, setKey, MessageLine(checking, "61016, \"KEY\"")}));
}

TEST(KSMDI, CheckWithoutAListOfExtensionsFailsTheCall) {
  ScriptedHost host;
  host.Array("DIR", List());
  EXPECT_THROW(host.Run(Act("StatCheck", {"DIR"})), RunTimeFailure);
}

TEST(KSMDI, CheckOfTheDigitsOfACompositeKeyMakesItOptional) {
  for (const char* parameter : {"DIRK_D1D2D3D4D5", "DIRK_D6D7D8"}) {
    ScriptedHost host;
    EXPECT_TRUE(host.Run(Act("StatCheck", {parameter})));
    host.Refuse("scSetParamOptional");
    EXPECT_FALSE(host.Run(Act("StatCheck", {parameter})));
    EXPECT_EQ(host.Calls(), Lines({"scSetParamOptional(\"DIRK\", True)", "scSetParamOptional(\"DIRK\", True)"}));
  }
}

struct Mandatory {
  Value MNS;
  std::string effect;
};

TEST(KSMDI, CheckOfMNSMakesTheDigitsMandatoryWithYES) {
  for (const auto& [MNS, effect] : {Mandatory{"YES", "scSetParamOptional(\"DIG\", False)\n"},
                                    Mandatory{"NO", "scSetParamOptional(\"DIG\", True)\n"}, Mandatory{"yes", ""},
                                    Mandatory{Value(), ""}, Mandatory{Null, ""}}) {
    ScriptedHost host;
    host.Param("MNS", MNS);
    EXPECT_TRUE(host.Run(Act("StatCheck", {"MNS"})));
    EXPECT_EQ(host.Calls(), Lines({Read("MNS")}) + effect);
  }
}

// --- Add.

const std::string adding = "KSMDI - SetInfo";

std::string Count(const std::string& DIR) { return "SELECT COUNT(*) FROM KSMDI WHERE DIR ='" + DIR + "'"; }

std::string Displace(const std::string& DIR, const std::string& KEY) {
  return "DELETE * FROM KSFKC WHERE KEY = '" + KEY + "' AND DIR = '" + DIR + "'";
}

std::string InsertPlain(int CmdId, const std::string& DIR, const std::string& KEY) {
  return "scSQLInsert(\"KSMDI\", [\"CmdId\", \"DIR\", \"KEY\", \"DIRK\", \"MDN\", \"DIG\", \"CALALT\"], [" +
         std::to_string(CmdId) + ", \"" + DIR + "\", \"" + KEY + "\", \"" + DIR + "-" + KEY +
         "\", \"500\", \"12\", \"1\"])";
}

std::string InsertWithMNS(int CmdId, const std::string& DIR, const std::string& KEY, const std::string& MNS,
                          const std::string& DIG) {
  return "scSQLInsert(\"KSMDI\", [\"CmdId\", \"DIR\", \"KEY\", \"DIRK\", \"MDN\", \"CALALT\", \"MNS\", \"DIG\"], [" +
         std::to_string(CmdId) + ", \"" + DIR + "\", \"" + KEY + "\", \"" + DIR + "-" + KEY + "\", \"500\", \"1\", " +
         MNS + ", " + DIG + "])";
}

std::string InsertFunction(int CmdId, const std::string& DIR) {
  return "scSQLInsert(\"KSFKC\", [\"CmdId\", \"DIR\", \"KEY\", \"DIRK\", \"FCN\", \"DIG\"], [" + std::to_string(CmdId) +
         ", \"" + DIR + "\", \"5\", \"" + DIR + "-5\", \"MNS\", \"12\"])";
}

const std::string begin = Lines({start, DebugLine("DIR = 100&101"), askDIR});
const std::string beginByDIRK = Lines({start, DebugLine("DIR = "), askDIRK});
const std::string newId = "scBuildCmdID()";

class KSMDIAdd : public testing::Test {
 protected:
  KSMDIAdd() {
    host.Param("DIR", "100&101");
    host.Param("KEY", "5");
    host.Param("MDN", "500");
    host.Param("DIG", "12");
    host.Param("CALALT", "1");
    host.Array("DIR", {"100", "101"});
    host.Array("DIRK", {"100-5", "101-A-1"});
    host.Rows(Count("100"), {{29}});
    host.Rows(Count("101"), {{"0"}});
  }

  ScriptedHost host;
};

TEST_F(KSMDIAdd, MakesARecordForEachExtensionAndDisplacesTheFunctionOnTheKey) {
  EXPECT_TRUE(host.Run(Act("SetInfo", {}, "R8")));
  EXPECT_EQ(host.Calls(), Lines({start,
                                 Read("DIR"),
                                 DebugLine("DIR = 100&101"),
                                 askDIR,
                                 newId,
                                 Read("KEY"),
                                 Read("MDN"),
                                 Read("DIG"),
                                 Read("CALALT"),
                                 QueryLine(Count("100")),
                                 InsertPlain(1001, "100", "5"),
                                 StatementLine(Displace("100", "5")),
                                 newId,
                                 Read("KEY"),
                                 Read("MDN"),
                                 Read("DIG"),
                                 Read("CALALT"),
                                 QueryLine(Count("101")),
                                 InsertPlain(1002, "101", "5"),
                                 StatementLine(Displace("101", "5")),
                                 commit}));
}

TEST_F(KSMDIAdd, WithYESPutsTheFunctionMNSOnTheKeyUnderTheSameIdentifierBeforeR7) {
  for (const char* release : {"R6", "R6/1"}) {
    ScriptedHost asked;
    for (const auto& [name, value] :
         {std::pair{"DIR", "100"}, {"KEY", "5"}, {"MDN", "500"}, {"DIG", "12"}, {"CALALT", "1"}, {"MNS", "YES"}})
      asked.Param(name, value);
    asked.Array("DIR", {"100"});
    asked.Rows(Count("100"), {{0}});
    EXPECT_TRUE(asked.Run(Act("SetInfo", {}, release)));
    EXPECT_EQ(asked.Calls(),
              Lines({start, Read("DIR"), DebugLine("DIR = 100"), askDIR, newId, Read("KEY"), Read("MDN"),
                     Read("CALALT"), Read("MNS"), Read("DIG"), QueryLine(Count("100")), InsertFunction(1001, "100"),
                     InsertWithMNS(1001, "100", "5", "\"YES\"", "\"12\""), commit}));
  }
}

TEST_F(KSMDIAdd, WithNORefusesDigitsButAnyOtherValueTakesThem) {
  host.Array("DIR", {"100"});
  const auto run = [&](const Value& MNS, const Value& DIG) {
    ScriptedHost asked;
    for (const auto& [name, value] : {std::pair{"DIR", "100"}, {"KEY", "5"}, {"MDN", "500"}, {"CALALT", "1"}})
      asked.Param(name, value);
    asked.Param("MNS", MNS);
    asked.Param("DIG", DIG);
    asked.Array("DIR", {"100"});
    asked.Rows(Count("100"), {{0}});
    const bool answer = asked.Run(Act("SetInfo", {}, "R6/1"));
    const std::string begun = Lines({start, DebugLine("DIR = 100"), askDIR, newId, QueryLine(Count("100"))});
    EXPECT_EQ(asked.Effects(),
              begun + (answer ? Lines({InsertWithMNS(1001, "100", "5", TraceText(MNS), TraceText(DIG)), commit})
                              : Lines({MessageLine(adding, "60048, \"DIG\", \"MNS\""), rollBack})));
    return answer;
  };
  EXPECT_FALSE(run("NO", "12"));
  EXPECT_FALSE(run("NO", Null));
  EXPECT_TRUE(run("NO", ""));
  EXPECT_TRUE(run("NO", Value()));
  EXPECT_TRUE(run(Value(), "12"));
  EXPECT_TRUE(run("", "12"));
  EXPECT_TRUE(run("no", "12"));
  EXPECT_TRUE(run(Null, "12"));
}

TEST_F(KSMDIAdd, OfAThirtyFirstRecordIsRefusedAndRollsBackAllExtensions) {
  host.Rows(Count("102"), {{30}});
  host.Array("DIR", {"100", "102", "101"});
  EXPECT_FALSE(host.Run(Act("SetInfo")));
  EXPECT_EQ(host.Effects(), begin + Lines({newId, QueryLine(Count("100")), InsertPlain(1001, "100", "5"),
                                           StatementLine(Displace("100", "5")), newId, QueryLine(Count("102")),
                                           DebugLine("The maximum numbers of MDN's have been initiated for this DIR"),
                                           MessageLine(adding, "60016, \"30\", \"MDNs\", \"DIR\""), rollBack}));
}

TEST_F(KSMDIAdd, ByCompositeKeyMakesOneRecordForEachAndDisplacesTheFunctionOnTheKey) {
  host.Param("DIR", Value());
  EXPECT_TRUE(host.Run(Act("SetInfo")));
  EXPECT_EQ(host.Calls(),
            Lines({start, Read("DIR"), DebugLine("DIR = "), askDIRK, newId, Read("MDN"), Read("DIG"), Read("CALALT"),
                   QueryLine(Count("100")), InsertPlain(1001, "100", "5"), StatementLine(Displace("100", "5")), newId,
                   Read("MDN"), Read("DIG"), Read("CALALT"), QueryLine(Count("101")), InsertPlain(1002, "101", "A-1"),
                   StatementLine(Displace("101", "A-1")), commit}));
}

TEST_F(KSMDIAdd, ByCompositeKeyDoesNotLookAtMNSBeforeR7) {
  host.Param("DIR", Value());
  host.Array("DIRK", {"100-5"});
  for (const char* MNS : {"YES", "NO"}) {
    host.Param("MNS", MNS);
    EXPECT_TRUE(host.Run(Act("SetInfo", {}, "R6")));
  }
  EXPECT_EQ(host.Effects(),
            beginByDIRK +
                Lines({newId, QueryLine(Count("100")), InsertWithMNS(1001, "100", "5", "\"YES\"", "\"12\""), commit}) +
                beginByDIRK +
                Lines({newId, QueryLine(Count("100")), InsertWithMNS(1002, "100", "5", "\"NO\"", "\"12\""), commit}));
}

TEST_F(KSMDIAdd, ByCompositeKeyHasTheSameLimit) {
  host.Param("DIR", Value());
  host.Array("DIRK", {"103-5", "100-5"});
  host.Rows(Count("103"), {{31}});
  for (const char* release : {"R6", "R7"}) {
    EXPECT_FALSE(host.Run(Act("SetInfo", {}, release)));
    EXPECT_TRUE(host.Effects().ends_with(
        Lines({QueryLine(Count("103")), DebugLine("The maximum numbers of MDN's have been initiated for this DIR"),
               MessageLine(adding, "60016, \"30\", \"MDNs\", \"DIR\""), rollBack})));
  }
}

TEST_F(KSMDIAdd, ReportsTheStepThatFailsAndRollsBack) {
  const auto run = [](const std::string& release, const std::string& operation, const std::string& first, bool byDIR) {
    ScriptedHost refusing;
    for (const auto& [name, value] :
         {std::pair{"KEY", "5"}, {"MDN", "500"}, {"DIG", "12"}, {"CALALT", "1"}, {"MNS", "YES"}})
      refusing.Param(name, value);
    if (byDIR) refusing.Param("DIR", "100&101");
    refusing.Array("DIR", {"100", "101"});
    refusing.Array("DIRK", {"100-5", "101-5"});
    if (first != Count("100")) refusing.Rows(Count("100"), {{0}});
    refusing.Refuse(operation, first);
    EXPECT_FALSE(refusing.Run(Act("SetInfo", {}, release)));
    return refusing.Effects();
  };
  const std::string insertFailed = MessageLine(adding, "61024, \"KSMDI\"");
  for (const bool byDIR : {true, false}) {
    const std::string first = byDIR ? begin : beginByDIRK;
    const std::string counted = first + Lines({newId, QueryLine(Count("100"))});
    EXPECT_EQ(run("R7", "scGetValueArray", byDIR ? "DIR" : "DIRK", byDIR),
              first + Lines({MessageLine(adding, byDIR ? "61020, \"DIR\"" : "61020, \"DIRK\""), rollBack}));
    EXPECT_EQ(run("R7", "scRunQuery", Count("100"), byDIR),
              counted + Lines({DebugLine(" Error getting the number of MDN's"), rollBack}));
    EXPECT_EQ(run("R7", "scSQLInsert", "KSMDI", byDIR),
              counted + Lines({InsertPlain(1001, "100", "5"), insertFailed, rollBack}));
    EXPECT_EQ(run("R7", "scRunQuery", Displace("100", "5"), byDIR),
              counted + Lines({InsertPlain(1001, "100", "5"), StatementLine(Displace("100", "5")),
                               MessageLine(adding, "62000"), rollBack}));
  }
  const std::string counted = begin + Lines({newId, QueryLine(Count("100"))});
  EXPECT_EQ(run("R6", "scSQLInsert", "KSFKC", true),
            counted + Lines({InsertFunction(1001, "100"), insertFailed, rollBack}));
  EXPECT_EQ(run("R6", "scSQLInsert", "KSMDI", true),
            counted + Lines({InsertFunction(1001, "100"), InsertWithMNS(1001, "100", "5", "\"YES\"", "\"12\""),
                             insertFailed, rollBack}));
}

TEST_F(KSMDIAdd, ReportsThatTheTransactionDidNotStartCommitOrRollBack) {
  {
    ScriptedHost refusing;
    refusing.Refuse("scStartTransaction");
    refusing.Refuse("scRollBackTransaction");
    EXPECT_FALSE(refusing.Run(Act("SetInfo")));
    EXPECT_EQ(refusing.Calls(), Lines({start, MessageLine(adding, "62010"), rollBack, MessageLine(adding, "62012")}));
  }
  host.Refuse("scCommitTransaction");
  EXPECT_TRUE(host.Run(Act("SetInfo")));
  EXPECT_TRUE(host.Effects().ends_with(Lines({commit, MessageLine(adding, "62011")})));
}

TEST_F(KSMDIAdd, WithoutAListOfExtensionsFailsTheCallWithTheTransactionOpen) {
  host.Array("DIR", List());
  EXPECT_THROW(host.Run(Act("SetInfo")), RunTimeFailure);
  EXPECT_EQ(host.Effects(), begin);
}

// --- Edit.

const std::string editing = "KSMDI - EditInfo";

std::string Write(const std::string& column, const std::string& value) {
  return "UPDATE KSMDI SET " + column + " = '" + value + "' WHERE CmdId = 7";
}

TEST(KSMDI, EditWritesTheCompositeKeyFirstAndThenEachParameterAndTestsNothing) {
  for (const char* release : {"R6", "R7"}) {
    ScriptedHost host;
    host.Param("DIR", "123456");
    host.Param("KEY", "5");
    host.Param("MNS", "NO");
    host.Param("DIG", "12");
    EXPECT_TRUE(host.Run(Act("EditInfo", {"MNS", "DIG", "MDN"}, release)));
    EXPECT_EQ(host.Calls(),
              Lines({start, Read("DIR"), Read("KEY"), StatementLine(Write("DIRK", "123456-5")), Read("MNS"),
                     StatementLine(Write("MNS", "NO")), Read("DIG"), StatementLine(Write("DIG", "12")), Read("MDN"),
                     StatementLine(Write("MDN", "")), commit}));
  }
}

TEST(KSMDI, EditWithACompositeKeyThatCannotBeWrittenRollsBack) {
  ScriptedHost host;
  host.Refuse("scRunQuery", Write("DIRK", "-"));
  EXPECT_FALSE(host.Run(Act("EditInfo", {"MDN"})));
  EXPECT_EQ(host.Effects(),
            Lines({start, StatementLine(Write("DIRK", "-")), MessageLine(editing, "61011, \"DIRK\""), rollBack}));
}

TEST(KSMDI, EditLetsTheLastParameterDecide) {
  for (const bool lastFails : {true, false}) {
    ScriptedHost host;
    host.Refuse("scRunQuery", Write(lastFails ? "DIG" : "MDN", ""));
    EXPECT_EQ(host.Run(Act("EditInfo", {"MDN", "DIG"})), !lastFails);
    const std::string first = Lines({start, StatementLine(Write("DIRK", "-")), StatementLine(Write("MDN", ""))});
    EXPECT_EQ(
        host.Effects(),
        first + (lastFails ? Lines({StatementLine(Write("DIG", "")), MessageLine(editing, "61011, \"DIG\""), rollBack})
                           : Lines({MessageLine(editing, "61011, \"MDN\""), StatementLine(Write("DIG", "")), commit})));
  }
}

TEST(KSMDI, EditReportsThatTheTransactionDidNotStartCommitOrRollBack) {
  {
    ScriptedHost host;
    host.Refuse("scStartTransaction");
    host.Refuse("scRollBackTransaction");
    EXPECT_FALSE(host.Run(Act("EditInfo", {"MDN"})));
    EXPECT_EQ(host.Calls(), Lines({start, MessageLine(editing, "62010"), rollBack, MessageLine(editing, "62012")}));
  }
  ScriptedHost host;
  host.Refuse("scCommitTransaction");
  EXPECT_TRUE(host.Run(Act("EditInfo", {"MDN"})));
  EXPECT_TRUE(host.Effects().ends_with(Lines({commit, MessageLine(editing, "62011")})));
}

// --- Delete.

const std::string deleting = "Delete: KSMDI";
const std::string readRecord = "SELECT DIR, KEY FROM KSMDI WHERE CmdId = 7";
const std::string deleteFunction = "DELETE * FROM KSFKC WHERE DIR = '100' AND KEY = '5'";
const std::string deleteRecord = "DELETE * FROM KSMDI WHERE CmdId = 7";

TEST(KSMDI, DeleteRemovesTheRecordAndAnyFunctionOnItsKey) {
  ScriptedHost host;
  host.Rows(readRecord, {{"100"}, {"5"}});
  EXPECT_TRUE(host.Run(Act("DeleteInfo")));
  EXPECT_EQ(host.Calls(),
            Lines({start, QueryLine(readRecord), StatementLine(deleteFunction), StatementLine(deleteRecord), commit}));
}

TEST(KSMDI, DeleteOfARecordThatIsGoneStillCounts) {
  ScriptedHost host;
  host.Rows(readRecord, {});
  EXPECT_TRUE(host.Run(Act("DeleteInfo")));
  EXPECT_EQ(host.Calls(), Lines({start, QueryLine(readRecord), StatementLine(deleteRecord), commit}));
}

TEST(KSMDI, DeleteReportsTheStepThatFailsButNotARecordThatCannotBeRead) {
  const auto run = [](const std::string& statement) {
    ScriptedHost host;
    if (statement != readRecord) host.Rows(readRecord, {{"100"}, {"5"}});
    host.Refuse("scRunQuery", statement);
    EXPECT_FALSE(host.Run(Act("DeleteInfo")));
    return host.Calls();
  };
  const std::string failed = MessageLine(deleting, "61012, \"KSMDI\", 7");
  EXPECT_EQ(run(readRecord), Lines({start, QueryLine(readRecord), rollBack}));
  EXPECT_EQ(run(deleteFunction),
            Lines({start, QueryLine(readRecord), StatementLine(deleteFunction), failed, rollBack}));
  EXPECT_EQ(run(deleteRecord), Lines({start, QueryLine(readRecord), StatementLine(deleteFunction),
                                      StatementLine(deleteRecord), failed, rollBack}));
}

TEST(KSMDI, DeleteReportsThatTheTransactionDidNotStartCommitOrRollBack) {
  {
    ScriptedHost host;
    host.Refuse("scStartTransaction");
    host.Refuse("scRollBackTransaction");
    EXPECT_FALSE(host.Run(Act("DeleteInfo")));
    EXPECT_EQ(host.Calls(), Lines({start, MessageLine(deleting, "62010"), rollBack, MessageLine(deleting, "62012")}));
  }
  ScriptedHost host;
  host.Rows(readRecord, {});
  host.Refuse("scCommitTransaction");
  EXPECT_TRUE(host.Run(Act("DeleteInfo")));
  EXPECT_TRUE(host.Calls().ends_with(Lines({commit, MessageLine(deleting, "62011")})));
}

// --- Generate.

const std::string readLater = "SELECT DIR,KEY,MDN,CALALT,DIG FROM KSMDI";
const std::string readR6 = "SELECT DIR,KEY,MDN,CALALT FROM KSMDI";

std::string Built(const std::string& line) { return StatementLine("INSERT INTO BuiltCmd VALUES (12,'" + line + "')"); }

TEST(KSMDI, GeneratesTheDigitsFromR7OnAndLeavesOutWhatHasNoValue) {
  ScriptedHost host;
  host.Rows(
      readLater,
      ByColumn({{" 100 ", " 5 ", "500", "1", " 12 "}, {"100", "6", "500", Null, ""}, {"100", Null, Null, "", Null}}));
  host.Rows(ReadITYPE("100"), {{"3"}});
  EXPECT_TRUE(host.Run(Act("GenerateCmd", {"12"})));
  const std::string read = QueryLine(ReadITYPE("100"));
  EXPECT_EQ(host.Calls(), Lines({QueryLine(readLater), read, Built("KSMDI:DIR=100,KEY=5,MDN=500,CALALT=1,DIG=12;"),
                                 read, Built("KSMDI:DIR=100,KEY=6,MDN=500;"), read, Built("KSMDI:DIR=100,CALALT=;")}));
}

TEST(KSMDI, GeneratesBlanksTrimmedAndLeavesOutAnEmptyTextOfTheDigitsAlone) {
  ScriptedHost host;
  host.Rows(readLater, ByColumn({std::vector<Value>(5, " "), std::vector<Value>(5, " x ")}));
  host.Rows(ReadITYPE(""), {});
  host.Rows(ReadITYPE("x"), {});
  EXPECT_TRUE(host.Run(Act("GenerateCmd", {"12"})));
  EXPECT_EQ(host.Calls(), Lines({QueryLine(readLater), QueryLine(ReadITYPE("")), Built("KSMDI:DIR=,KEY=,MDN=,CALALT=;"),
                                 QueryLine(ReadITYPE("x")), Built("KSMDI:DIR=x,KEY=x,MDN=x,CALALT=x,DIG=x;")}));
}

TEST(KSMDI, GeneratesWithoutDigitsBeforeR7) {
  for (const char* release : {"R6", "R6/1"}) {
    ScriptedHost host;
    host.Rows(readR6, {{"100"}, {"5"}, {"500"}, {"1"}});
    host.Rows(ReadITYPE("100"), {{"3"}});
    EXPECT_TRUE(host.Run(Act("GenerateCmd", {"12"}, release)));
    EXPECT_EQ(host.Calls(),
              Lines({QueryLine(readR6), QueryLine(ReadITYPE("100")), Built("KSMDI:DIR=100,KEY=5,MDN=500,CALALT=1;")}));
  }
}

TEST(KSMDI, GeneratesTheReleaseOfAFixedKeyInFrontInOneRow) {
  for (const auto& [ITYPE, KEY, fixed] :
       {std::tuple{"12", "13", true}, {"13", "13", false}, {"12", "A1", false}, {"3", "A1", true}}) {
    ScriptedHost host;
    host.Rows(readLater, {{"100"}, {KEY}, {"500"}, {Null}, {Null}});
    host.Rows(ReadITYPE("100"), {{ITYPE}});
    EXPECT_TRUE(host.Run(Act("GenerateCmd", {"12"})));
    const std::string key = KEY;
    const std::string release = fixed ? "KSFKC:DIR=100,KEY=" + key + ",FCN=TNS;{LF}" : "";
    EXPECT_TRUE(host.Calls().ends_with(Lines({Built(release + "KSMDI:DIR=100,KEY=" + key + ",MDN=500;")})));
  }
}

TEST(KSMDI, GeneratesALineForARecordThatHasOneOfNumberKeyAndMDN) {
  ScriptedHost host;
  host.Rows(readLater, ByColumn({{Null, "5", Null, Null, Null}, {Null, Null, "500", Null, Null}}));
  host.Rows(ReadITYPE(""), {});
  EXPECT_TRUE(host.Run(Act("GenerateCmd", {"12"})));
  EXPECT_EQ(host.Calls(), Lines({QueryLine(readLater), QueryLine(ReadITYPE("")), Built("KSMDI:DIR=,KEY=5;"),
                                 QueryLine(ReadITYPE("")), Built("KSMDI:DIR=,MDN=500;")}));
}

TEST(KSMDI, GeneratesTheTextBeforeOnceMoreForARecordWithoutNumberKeyAndMDN) {
  ScriptedHost host;
  host.Rows(readLater, ByColumn({{"100", "1", "500", Null, Null}, {Null, Null, Null, "1", "2"}}));
  host.Rows(ReadITYPE("100"), {{"3"}});
  host.Rows(ReadITYPE(""), {});
  EXPECT_TRUE(host.Run(Act("GenerateCmd", {"12"})));
  const std::string line = "KSFKC:DIR=100,KEY=1,FCN=TNS;{LF}KSMDI:DIR=100,KEY=1,MDN=500;";
  EXPECT_EQ(host.Calls(), Lines({QueryLine(readLater), QueryLine(ReadITYPE("100")), Built(line),
                                 QueryLine(ReadITYPE("")), Built(line)}));
}

TEST(KSMDI, GeneratesWithTheInstrumentOfTheLineBeforeForAnExtensionThatIsNotThere) {
  ScriptedHost host;
  host.Rows(readLater, ByColumn({{"100", "3", "500", Null, Null}, {"101", "13", "500", Null, Null}}));
  host.Rows(ReadITYPE("100"), {{"12"}});
  host.Rows(ReadITYPE("101"), {});
  EXPECT_TRUE(host.Run(Act("GenerateCmd", {"12"})));
  EXPECT_TRUE(host.Calls().ends_with(Lines({Built("KSFKC:DIR=101,KEY=13,FCN=TNS;{LF}KSMDI:DIR=101,KEY=13,MDN=500;")})));
}

TEST(KSMDI, GenerateEndsInSilenceWhereAnInstrumentCannotBeRead) {
  ScriptedHost host;
  host.Rows(readLater, ByColumn({{"100", "3", "500", Null, Null}, {"101", "13", "500", Null, Null}}));
  host.Refuse("scRunQuery", ReadITYPE("100"));
  EXPECT_FALSE(host.Run(Act("GenerateCmd", {"12"})));
  EXPECT_EQ(host.Calls(), Lines({QueryLine(readLater), QueryLine(ReadITYPE("100"))}));
}

TEST(KSMDI, GenerateAnswersTrueForAnEmptyTableAndForOneThatCannotBeRead) {
  ScriptedHost host;
  host.Rows(readLater, {});
  EXPECT_TRUE(host.Run(Act("GenerateCmd", {"12"})));
  host.Refuse("scRunQuery", readLater);
  EXPECT_TRUE(host.Run(Act("GenerateCmd", {"12"})));
  EXPECT_EQ(host.Calls(), Lines({QueryLine(readLater), QueryLine(readLater)}));
}

TEST(KSMDI, GenerateGoesOnBehindALineThatWasNotWrittenAndAnswersForTheLast) {
  const std::string first = "INSERT INTO BuiltCmd VALUES (12,'KSMDI:DIR=100,KEY=5,MDN=500;')";
  const std::string second = "INSERT INTO BuiltCmd VALUES (12,'KSMDI:DIR=100,KEY=6,MDN=500;')";
  for (const bool firstFails : {true, false}) {
    ScriptedHost host;
    host.Rows(readLater, ByColumn({{"100", "5", "500", Null, Null}, {"100", "6", "500", Null, Null}}));
    host.Rows(ReadITYPE("100"), {{"3"}});
    host.Refuse("scRunQuery", firstFails ? first : second);
    EXPECT_EQ(host.Run(Act("GenerateCmd", {"12"})), firstFails);
    const std::string read = QueryLine(ReadITYPE("100"));
    const std::string failed = MessageLine("Generating: KSMDI", "61019");
    EXPECT_EQ(host.Calls(),
              firstFails
                  ? Lines({QueryLine(readLater), read, StatementLine(first), failed, read, StatementLine(second)})
                  : Lines({QueryLine(readLater), read, StatementLine(first), read, StatementLine(second), failed}));
  }
}

}  // namespace
}  // namespace cordboard
