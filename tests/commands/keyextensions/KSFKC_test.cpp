#include <gtest/gtest.h>

#include <set>
#include <utility>
#include <vector>

#include "script/Conversions.h"
#include "script/RunTimeFailure.h"
#include "support/CallLines.h"
#include "support/ScriptedHost.h"

namespace cordboard {
namespace {

Action Act(const std::string& function, List parameters = {}) {
  return {.Definition = 13,
          .oaRelease = "R7",
          .FunctionName = function,
          .CmdName = "KSFKC",
          .CmdId = 7,
          .ParamList = parameters};
}

const Value Null = Value::Null();
const std::string start = "scStartTransaction()";
const std::string commit = "scCommitTransaction()";
const std::string rollBack = "scRollBackTransaction()";
const std::string askDIR = "scGetValueArray(\"DIR\", out)";
const std::string askDIRK = "scGetValueArray(\"DIRK\", out)";
const std::string whole = Call("scSQLSelectValuesAndDesc");

// --- What is served.

TEST(KSFKC, ServesNoOtherParameterAndNoOtherAction) {
  ScriptedHost host;
  EXPECT_FALSE(host.Run(Act("GetValidValForParam", {"DIG"})));
  EXPECT_FALSE(host.Run(Act("StatCheck", {"KEY"})));
  EXPECT_FALSE(host.Run(Act("Setinfo")));
  EXPECT_EQ(host.Calls(), "");
}

TEST(KSFKC, ListsInstrumentsFromTheFixedValues) {
  ScriptedHost host;
  EXPECT_TRUE(host.Run(Act("GetValidValForParam", {"ITYPE"})));
  EXPECT_EQ(host.Calls(), Lines({whole}));
}

TEST(KSFKC, ListsAllKeyExtensions) {
  const std::string collect = Call("scCollectSingleValues", " SELECT DIR FROM KSEXI  ORDER BY DIR ");
  ScriptedHost host;
  EXPECT_TRUE(host.Run(Act("GetValidValForParam", {"DIR"})));
  host.Refuse("scCollectSingleValues");
  EXPECT_FALSE(host.Run(Act("GetValidValForParam", {"DIR"})));
  EXPECT_EQ(host.Calls(), Lines({collect, collect, MessageLine("GetValidValForParam", "61020, \"DIR\"")}));
}

TEST(KSFKC, DeletesTheRecordAndNothingElse) {
  ScriptedHost host;
  EXPECT_TRUE(host.Run(Act("DeleteInfo")));
  EXPECT_EQ(host.Calls(), Lines({start, StatementLine("DELETE * FROM KSFKC{NL} WHERE CmdId = 7"), commit}));
}

// --- The list of keys.

const std::string collectKeys =
    Call("scCollectValuesAndDesc",
         "SELECT Value, ValDesc FROM ParamValueDesc WHERE Command = 'KSANI' AND Param = 'KEY' AND DefinitionNo = 13");

std::string WithoutKeysOf(const std::string& DIR) {
  return Lines({Call("scSubtractSingleValues", "SELECT KEY FROM KSFKC WHERE DIR =  '" + DIR + "'"),
                Call("scSubtractSingleValues", "SELECT KEY FROM KSANI WHERE DIR = '" + DIR + "'"),
                Call("scSubtractSingleValues", "SELECT KEY FROM KSMDI WHERE DIR = '" + DIR + "'"),
                "scGetNumberOfValidValues(\"KEY\", 13, out)"});
}

TEST(KSFKC, ListsAllKeysOfTheDefinitionWithoutAnExtension) {
  for (const List& list : {List(), List::Null(), List{"100"}}) {
    ScriptedHost host;
    host.Array("DIR", list);
    if (list.IsEmpty() || list.IsNull()) host.Param("DIR", "100");
    EXPECT_TRUE(host.Run(Act("GetValidValForParam", {"KEY"})));
    EXPECT_EQ(host.Calls(), Lines({askDIR, Read("DIR"), collectKeys}));
  }
}

TEST(KSFKC, ListsTheKeysThatAreFreeOnAllExtensionsPassingOverEmptyAndNullButNotTheEmptyText) {
  ScriptedHost host;
  host.Param("DIR", "100&101");
  host.Array("DIR", {"100", Value(), Null, "", "101"});
  host.NumberOfValidValues("KEY", 4);
  EXPECT_TRUE(host.Run(Act("GetValidValForParam", {"KEY"})));
  EXPECT_EQ(host.Effects(),
            Lines({askDIR, collectKeys}) + WithoutKeysOf("100") + WithoutKeysOf("") + WithoutKeysOf("101"));
}

TEST(KSFKC, TellsTheFirstExtensionOnWhichNoKeyIsLeftAndEndsThere) {
  ScriptedHost host;
  host.Param("DIR", "100&101");
  host.Array("DIR", {"100", "101"});
  host.NumberOfValidValues("KEY", 0);
  EXPECT_FALSE(host.Run(Act("GetValidValForParam", {"KEY"})));
  const std::string none = DebugLine("There are no available keys for this DIR");
  EXPECT_EQ(host.Effects(), Lines({askDIR, collectKeys}) + WithoutKeysOf("100") +
                                Lines({none, MessageLine("GetValidValForParam", "60020, \"100\"")}));
}

TEST(KSFKC, AnswersFalseInSilenceForKeysThatCannotBeCollected) {
  ScriptedHost host;
  host.Param("DIR", "100");
  host.Array("DIR", {"100"});
  host.Refuse("scCollectValuesAndDesc");
  EXPECT_FALSE(host.Run(Act("GetValidValForParam", {"KEY"})));
  EXPECT_EQ(host.Effects(), Lines({askDIR, collectKeys}));
}

TEST(KSFKC, ReportsKeysThatCannotBeSubtractedAndStops) {
  ScriptedHost host;
  host.Param("DIR", "100&101");
  host.Array("DIR", {"100", "101"});
  host.Refuse("scSubtractSingleValues", "SELECT KEY FROM KSANI WHERE DIR = '100'");
  EXPECT_FALSE(host.Run(Act("GetValidValForParam", {"KEY"})));
  EXPECT_TRUE(host.Effects().ends_with(Lines({Call("scSubtractSingleValues", "SELECT KEY FROM KSANI WHERE DIR = '100'"),
                                              MessageLine("GetValidValForParam", "61021, \"KEY\"")})));
}

// --- The list of functions.

const std::string readFunctions = "SELECT FCN FROM KSFKC WHERE DIR = '100' ";
const std::string readACCTYP = "SELECT ACCTYP FROM KSEXI WHERE DIR = '100' ";
const std::string readADC = "SELECT ADC FROM KSEXI WHERE DIR = '100' ";

std::string Without(const std::string& FCN) { return "scRemoveFromValidValues(\"FCN\", \"" + FCN + "\")"; }

class KSFKCFunctions : public testing::Test {
 protected:
  void Extension(const std::vector<Value>& functions, const Value& ACCTYP, const Value& ADC) {
    host.Array("DIR", {"100"});
    host.Rows(readFunctions, {functions});
    host.Rows(readACCTYP, {{ACCTYP}});
    host.Rows(readADC, {{ADC}});
  }

  ScriptedHost host;
};

TEST_F(KSFKCFunctions, AreAllWithoutAnExtension) {
  host.Array("DIR", List());
  EXPECT_TRUE(host.Run(Act("GetValidValForParam", {"FCN"})));
  EXPECT_EQ(host.Calls(), Lines({whole, askDIR}));
}

TEST_F(KSFKCFunctions, AnswerFalseInSilenceForExtensionsThatCannotBeHad) {
  host.Array("DIR", {"100"});
  host.Refuse("scGetValueArray");
  EXPECT_FALSE(host.Run(Act("GetValidValForParam", {"FCN"})));
  EXPECT_EQ(host.Calls(), Lines({whole, askDIR}));
}

TEST_F(KSFKCFunctions, ExistOnceForAnExtensionButTNSAnyNumberOfTimes) {
  Extension({"ABC", "TNS", Null, " TNS"}, "1", "1");
  EXPECT_TRUE(host.Run(Act("GetValidValForParam", {"FCN"})));
  EXPECT_EQ(host.Calls(), Lines({whole, askDIR, QueryLine(readFunctions), Without("ABC"), Without(" TNS"),
                                 QueryLine(readACCTYP), QueryLine(readADC)}));
}

TEST_F(KSFKCFunctions, LackTwoOnAnExtensionWithoutAccessType) {
  for (const Value& ACCTYP : {Value(), Null, Value("")}) {
    ScriptedHost asked;
    asked.Array("DIR", {"100"});
    asked.Rows(readFunctions, {});
    asked.Rows(readACCTYP, {{ACCTYP}});
    asked.Rows(readADC, {{"2"}});
    EXPECT_TRUE(asked.Run(Act("GetValidValForParam", {"FCN"})));
    EXPECT_EQ(asked.Calls(), Lines({whole, askDIR, QueryLine(readFunctions), QueryLine(readACCTYP), Without("SBC"),
                                    Without("RDC"), QueryLine(readADC)}));
  }
}

struct ExtensionsADC {
  Value ADC;
  bool lacksCLT;
};

TEST_F(KSFKCFunctions, LackCLTUnlessADCBeginsWithOneOrTwo) {
  for (const auto& [ADC, lacks] : {ExtensionsADC{"1", false}, ExtensionsADC{"23", false}, ExtensionsADC{"3", true},
                                   ExtensionsADC{"012", true}, ExtensionsADC{"", true}, ExtensionsADC{Null, true}}) {
    ScriptedHost asked;
    asked.Array("DIR", {"100"});
    asked.Rows(readFunctions, {});
    asked.Rows(readACCTYP, {{"1"}});
    asked.Rows(readADC, {{ADC}});
    EXPECT_TRUE(asked.Run(Act("GetValidValForParam", {"FCN"})));
    const std::string asking =
        Lines({whole, askDIR, QueryLine(readFunctions), QueryLine(readACCTYP), QueryLine(readADC)});
    EXPECT_EQ(asked.Calls(), lacks ? asking + Lines({Without("CLT")}) : asking) << TraceText(ADC);
  }
}

TEST_F(KSFKCFunctions, OfAnExtensionThatIsNotThereLackOnlyThoseInUse) {
  host.Array("DIR", {Value(), Null, "100"});
  host.Rows(readFunctions, {{"ABC"}});
  host.Rows(readACCTYP, {});
  host.Rows(readADC, {});
  EXPECT_TRUE(host.Run(Act("GetValidValForParam", {"FCN"})));
  EXPECT_EQ(host.Calls(), Lines({whole, askDIR, QueryLine(readFunctions), Without("ABC"), QueryLine(readACCTYP),
                                 QueryLine(readADC)}));
}

TEST_F(KSFKCFunctions, ReportTheStepThatFailsAndEndWithIt) {
  const std::string failed = MessageLine("KSFKC_GetValuesFor_FCN", "61021, \"FCN\"");
  {
    ScriptedHost asked;
    asked.Refuse("scSQLSelectValuesAndDesc");
    EXPECT_FALSE(asked.Run(Act("GetValidValForParam", {"FCN"})));
    EXPECT_EQ(asked.Calls(), Lines({whole, failed}));
  }
  for (const std::string& statement : {readFunctions, readACCTYP, readADC}) {
    ScriptedHost asked;
    asked.Array("DIR", {"100", "101"});
    if (statement != readFunctions) asked.Rows(readFunctions, {});
    if (statement != readACCTYP) asked.Rows(readACCTYP, {{"1"}});
    asked.Refuse("scRunQuery", statement);
    EXPECT_FALSE(asked.Run(Act("GetValidValForParam", {"FCN"})));
    EXPECT_TRUE(asked.Calls().ends_with(Lines({QueryLine(statement), failed})));
  }
  Extension({"ABC"}, "1", "1");
  host.Refuse("scRemoveFromValidValues");
  EXPECT_FALSE(host.Run(Act("GetValidValForParam", {"FCN"})));
  EXPECT_TRUE(host.Calls().ends_with(Lines({Without("ABC"), failed})));
}

// --- The check of DIR.

const std::string checking = "StatCheck : KSFKC";
const std::string readITYPE = "SELECT DIR, ITYPE FROM KSEXI WHERE DIR IN ('100','101') ORDER BY DIR";

class KSFKCCheck : public testing::Test {
 protected:
  KSFKCCheck() {
    host.Param("KEY", "2");
    host.Param("FCN", "ABC");
    host.Array("DIR", {"100", "101"});
    host.ValidValues("KEY", {"1", "2"});
    host.ValidValues("FCN", {"ABC"});
  }

  ScriptedHost host;
};

TEST_F(KSFKCCheck, ActivatesTheKeysOfTheInstrumentAndKeepsKeyAndFunctionThatAreStillListed) {
  host.Rows(readITYPE, {{"100", "101"}, {"12", "12"}});
  EXPECT_TRUE(host.Run(Act("StatCheck", {"DIR"})));
  EXPECT_EQ(
      host.Calls(),
      Lines({Read("KEY"), Read("FCN"), askDIR, QueryLine(readITYPE), "scActiveDefinition(\"KEY\", 13)",
             Call("scResetParam", "KEY"), "scGetValidValues(\"KEY\", out)", "scSetParamValue(\"KEY\", \"2\")",
             Call("scResetParam", "FCN"), "scGetValidValues(\"FCN\", out)", "scSetParamValue(\"FCN\", \"ABC\")"}));
}

TEST_F(KSFKCCheck, DropsKeyAndFunctionThatHaveLeftTheirListsInSilence) {
  host.Rows(readITYPE, {{"100"}, {Null}});
  host.ValidValues("KEY", {"1"});
  host.ValidValues("FCN", {"TNS"});
  EXPECT_TRUE(host.Run(Act("StatCheck", {"DIR"})));
  EXPECT_EQ(host.Effects(),
            Lines({askDIR, QueryLine(readITYPE), "scActiveDefinition(\"KEY\", 1)", Call("scResetParam", "KEY"),
                   "scGetValidValues(\"KEY\", out)", Call("scResetParam", "FCN"), "scGetValidValues(\"FCN\", out)"}));
}

TEST_F(KSFKCCheck, RefusesInstrumentsOfDifferentTypes) {
  host.Rows(readITYPE, {{"100", "101"}, {"3", "4"}});
  EXPECT_FALSE(host.Run(Act("StatCheck", {"DIR"})));
  EXPECT_EQ(host.Effects(), Lines({askDIR, QueryLine(readITYPE), MessageLine(checking, "62013")}));
}

TEST_F(KSFKCCheck, HasNothingToDoWithoutExtensions) {
  for (const List& list : {List(), List(std::vector<Value>())}) {
    ScriptedHost asked;
    asked.Array("DIR", list);
    EXPECT_TRUE(asked.Run(Act("StatCheck", {"DIR"})));
    EXPECT_EQ(asked.Effects(), Lines({askDIR}));
  }
  host.Rows(readITYPE, {});
  EXPECT_TRUE(host.Run(Act("StatCheck", {"DIR"})));
  EXPECT_EQ(host.Effects(), Lines({askDIR, QueryLine(readITYPE)}));
}

TEST_F(KSFKCCheck, ReportsTheStepThatFailsAndStops) {
  const auto run = [&](const std::string& operation, const std::string& first) {
    ScriptedHost asked;
    asked.Param("KEY", "2");
    asked.Param("FCN", "ABC");
    asked.Array("DIR", {"100", "101"});
    asked.ValidValues("KEY", {"2"});
    asked.ValidValues("FCN", {"ABC"});
    if (operation != "scRunQuery") asked.Rows(readITYPE, {{"100"}, {"12"}});
    asked.Refuse(operation, first);
    EXPECT_FALSE(asked.Run(Act("StatCheck", {"DIR"})));
    return asked.Effects();
  };
  const std::string activate = "scActiveDefinition(\"KEY\", 13)";
  EXPECT_EQ(run("scGetValueArray", "DIR"), Lines({askDIR, MessageLine(checking, "61020, \"DIR\"")}));
  EXPECT_EQ(run("scRunQuery", readITYPE), Lines({askDIR, QueryLine(readITYPE), MessageLine(checking, "62000")}));
  EXPECT_EQ(run("scActiveDefinition", "KEY"), Lines({askDIR, QueryLine(readITYPE), activate}));
  for (const std::string parameter : {"KEY", "FCN"}) {
    const std::string reset = Call("scResetParam", parameter);
    const std::string list = "scGetValidValues(\"" + parameter + "\", out)";
    EXPECT_TRUE(run("scResetParam", parameter)
                    .ends_with(Lines({reset, MessageLine(checking, "61013, \"" + parameter + "\"")})));
    EXPECT_TRUE(run("scGetValidValues", parameter)
                    .ends_with(Lines({reset, list, MessageLine(checking, "61020, \"" + parameter + "\"")})));
    EXPECT_TRUE(
        run("scSetParamValue", parameter).ends_with(Lines({MessageLine(checking, "61016, \"" + parameter + "\"")})));
  }
}

// --- The check of ITYPE.

struct Instrument {
  Value ITYPE;
  std::string definition;
};

TEST(KSFKC, CheckOfTheInstrumentActivatesItsKeysAndResetsKeyAndFunction) {
  for (const auto& [ITYPE, definition] : {Instrument{"24", "25"}, Instrument{Value(), "1"}, Instrument{"", "1"}}) {
    ScriptedHost host;
    host.Param("ITYPE", ITYPE);
    EXPECT_TRUE(host.Run(Act("StatCheck", {"ITYPE"})));
    EXPECT_EQ(host.Calls(), Lines({Read("ITYPE"), "scActiveDefinition(\"KEY\", " + definition + ")",
                                   Call("scResetParam", "KEY"), Call("scResetParam", "FCN")}));
  }
}

TEST(KSFKC, CheckOfANullInstrumentDoesNothing) {
  ScriptedHost host;
  host.Param("ITYPE", Null);
  EXPECT_TRUE(host.Run(Act("StatCheck", {"ITYPE"})));
  EXPECT_EQ(host.Effects(), "");
}

TEST(KSFKC, CheckOfTheInstrumentStopsInSilenceAtAStepThatFails) {
  const std::string activate = "scActiveDefinition(\"KEY\", 4)";
  const auto run = [](const std::string& operation, const std::string& first) {
    ScriptedHost host;
    host.Param("ITYPE", "3");
    host.Refuse(operation, first);
    EXPECT_FALSE(host.Run(Act("StatCheck", {"ITYPE"})));
    return host.Effects();
  };
  EXPECT_EQ(run("scActiveDefinition", "KEY"), Lines({activate}));
  EXPECT_EQ(run("scResetParam", "KEY"), Lines({activate, Call("scResetParam", "KEY")}));
  EXPECT_EQ(run("scResetParam", "FCN"), Lines({activate, Call("scResetParam", "KEY"), Call("scResetParam", "FCN")}));
}

// --- Add, one key on several extensions.

std::string Insert(int CmdId, const std::string& DIR, const std::string& KEY, const std::string& DIRK,
                   const std::string& FCN, const std::string& DIG) {
  return "scSQLInsert(\"KSFKC\", [\"CmdId\", \"DIR\", \"KEY\", \"DIRK\", \"FCN\", \"DIG\"], [" + std::to_string(CmdId) +
         ", \"" + DIR + "\", \"" + KEY + "\", \"" + DIRK + "\", " + FCN + ", " + DIG + "])";
}

std::string Displace(const std::string& DIR, int CmdId) {
  return "DELETE * FROM KSFKC WHERE KEY = '13' AND DIR = '" + DIR +
         "' AND FCN = 'TNS' AND NOT CmdID = " + std::to_string(CmdId);
}

const std::string adding = "Add: KSFKC";

class KSFKCAdd : public testing::Test {
 protected:
  KSFKCAdd() {
    host.Param("DIR", "100&101");
    host.Param("KEY", "13");
    host.Array("DIR", {"100", "101"});
  }

  ScriptedHost host;
};

TEST_F(KSFKCAdd, MakesOneRecordForEachExtensionAndRemovesTheTNSThatItDisplaces) {
  host.Param("FCN", "ABC");
  EXPECT_TRUE(host.Run(Act("SetInfo")));
  EXPECT_EQ(host.Calls(), Lines({start, Read("DIR"), DebugLine("DIR = 100&101"), askDIR, "scBuildCmdID()", Read("KEY"),
                                 Read("FCN"), Read("DIG"), Insert(1001, "100", "13", "100-13", "\"ABC\"", "Empty"),
                                 StatementLine(Displace("100", 1001)), "scBuildCmdID()", Read("KEY"), Read("FCN"),
                                 Read("DIG"), Insert(1002, "101", "13", "101-13", "\"ABC\"", "Empty"),
                                 StatementLine(Displace("101", 1002)), commit}));
}

TEST_F(KSFKCAdd, OfTNSTakesDigitsAndDisplacesNothing) {
  host.Array("DIR", {"100"});
  host.Param("FCN", "TNS");
  host.Param("DIG", "12");
  EXPECT_TRUE(host.Run(Act("SetInfo")));
  EXPECT_EQ(host.Effects(), Lines({start, DebugLine("DIR = 100&101"), askDIR, "scBuildCmdID()",
                                   Insert(1001, "100", "13", "100-13", "\"TNS\"", "\"12\""), commit}));
}

TEST_F(KSFKCAdd, TakesABlankAndTNSForTNSInTheTestOfDigitsButNotInWhatItDisplaces) {
  host.Array("DIR", {"100"});
  host.Param("FCN", " TNS");
  host.Param("DIG", "12");
  EXPECT_TRUE(host.Run(Act("SetInfo")));
  EXPECT_EQ(host.Effects(), Lines({start, DebugLine("DIR = 100&101"), askDIR, "scBuildCmdID()",
                                   Insert(1001, "100", "13", "100-13", "\" TNS\"", "\"12\""),
                                   StatementLine(Displace("100", 1001)), commit}));
}

TEST_F(KSFKCAdd, OfAnyOtherFunctionRefusesDigitsAlsoANullOrAnEmptyText) {
  for (const Value& DIG : {Value("12"), Null, Value("")}) {
    for (const Value& FCN : {Value("ABC"), Value(), Value("TNS ")}) {
      ScriptedHost refusing;
      refusing.Param("DIR", "100");
      refusing.Param("FCN", FCN);
      refusing.Param("DIG", DIG);
      refusing.Array("DIR", {"100"});
      EXPECT_FALSE(refusing.Run(Act("SetInfo")));
      EXPECT_EQ(refusing.Effects(), Lines({start, DebugLine("DIR = 100"), askDIR, "scBuildCmdID()",
                                           MessageLine(adding, "60030, \"DIG\", \"FCN\", \"TNS\""), rollBack}));
    }
  }
}

TEST_F(KSFKCAdd, OfANullFunctionIsNeitherTNSNorAnyOther) {
  host.Array("DIR", {"100"});
  host.Param("FCN", Null);
  host.Param("DIG", "12");
  EXPECT_TRUE(host.Run(Act("SetInfo")));
  EXPECT_EQ(host.Effects(), Lines({start, DebugLine("DIR = 100&101"), askDIR, "scBuildCmdID()",
                                   Insert(1001, "100", "13", "100-13", "Null", "\"12\""), commit}));
}

TEST_F(KSFKCAdd, ReportsTheStepThatFailsAndRollsBackAllExtensions) {
  const auto run = [](const std::string& operation, const std::string& first) {
    ScriptedHost refusing;
    refusing.Param("DIR", "100");
    refusing.Param("KEY", "13");
    refusing.Param("FCN", "ABC");
    refusing.Array("DIR", {"100", "101"});
    refusing.Refuse(operation, first);
    EXPECT_FALSE(refusing.Run(Act("SetInfo")));
    return refusing.Effects();
  };
  const std::string begin = Lines({start, DebugLine("DIR = 100"), askDIR});
  const std::string inserted =
      begin + Lines({"scBuildCmdID()", Insert(1001, "100", "13", "100-13", "\"ABC\"", "Empty")});
  EXPECT_EQ(run("scGetValueArray", "DIR"), begin + Lines({MessageLine(adding, "61020, \"DIR\""), rollBack}));
  EXPECT_EQ(run("scSQLInsert", "KSFKC"), inserted + Lines({MessageLine(adding, "61024, \"KSFKC\""), rollBack}));
  EXPECT_EQ(run("scRunQuery", Displace("100", 1001)),
            inserted + Lines({StatementLine(Displace("100", 1001)), MessageLine(adding, "62000"), rollBack}));
}

TEST_F(KSFKCAdd, WithoutAListOfExtensionsFailsTheCallWithTheTransactionOpen) {
  host.Array("DIR", List());
  EXPECT_THROW(host.Run(Act("SetInfo")), RunTimeFailure);
  EXPECT_EQ(host.Effects(), Lines({start, DebugLine("DIR = 100&101"), askDIR}));
}

TEST_F(KSFKCAdd, ReportsThatTheTransactionDidNotStartCommitOrRollBack) {
  {
    ScriptedHost refusing;
    refusing.Refuse("scStartTransaction");
    refusing.Refuse("scRollBackTransaction");
    EXPECT_FALSE(refusing.Run(Act("SetInfo")));
    EXPECT_EQ(refusing.Calls(), Lines({start, MessageLine(adding, "62010"), rollBack, MessageLine(adding, "62012")}));
  }
  host.Param("FCN", "TNS");
  host.Refuse("scCommitTransaction");
  EXPECT_TRUE(host.Run(Act("SetInfo")));
  EXPECT_TRUE(host.Effects().ends_with(Lines({commit, MessageLine(adding, "62011")})));
}

// --- Add, a list of composite keys.

// The inserts and the removals that are named here, by their number from 1, answer False.
class FailingSteps : public ScriptedHost {
 public:
  std::set<int> failingInserts;
  std::set<int> failingRemovals;

  bool scSQLInsert(const std::string& table, const List& names, const List& values) override {
    return ScriptedHost::scSQLInsert(table, names, values) && !failingInserts.contains(++inserts_);
  }
  bool scRunQuery(const std::string& sql, RowSet* rows, const Selector& database) override {
    return ScriptedHost::scRunQuery(sql, rows, database) && !failingRemovals.contains(++removals_);
  }

 private:
  int inserts_ = 0;
  int removals_ = 0;
};

std::string DisplaceByDIRK(const std::string& DIR, const std::string& KEY, int CmdId) {
  return StatementLine("DELETE * FROM KSFKC WHERE KEY = '" + KEY + "' {NL}AND DIR = '" + DIR +
                       "' AND FCN = 'TNS' AND NOT CmdID = " + std::to_string(CmdId));
}

std::string Times(int count, const std::string& lines) {
  std::string text;
  for (int i = 0; i < count; ++i) text += lines;
  return text;
}

const std::string beginByDIRK = Lines({start, DebugLine("DIR = "), askDIRK});

TEST(KSFKC, AddByCompositeKeyInsertsAsManyTimesAsItHasCharactersUnderOneIdentifier) {
  ScriptedHost host;
  host.Array("DIRK", {"100-13", "10-A"});
  host.Param("FCN", "ABC");
  EXPECT_TRUE(host.Run(Act("SetInfo")));
  EXPECT_EQ(
      host.Effects(),
      beginByDIRK + Lines({"scBuildCmdID()"}) +
          Times(6,
                Lines({Insert(1001, "100", "13", "100-13", "\"ABC\"", "Empty"), DisplaceByDIRK("100", "13", 1001)})) +
          Lines({"scBuildCmdID()"}) +
          Times(4, Lines({Insert(1002, "10", "A", "10-A", "\"ABC\"", "Empty"), DisplaceByDIRK("10", "A", 1002)})) +
          Lines({commit}));
}

TEST(KSFKC, AddByCompositeKeyReadsFunctionAndDigitsInEveryPassAndDoesNotTestThem) {
  ScriptedHost host;
  host.Array("DIRK", {"1-2"});
  host.Param("FCN", "ABC");
  host.Param("DIG", "12");
  EXPECT_TRUE(host.Run(Act("SetInfo")));
  EXPECT_EQ(host.Calls(),
            Lines({start, Read("DIR"), DebugLine("DIR = "), askDIRK, "scBuildCmdID()"}) +
                Times(3, Lines({Read("FCN"), Read("DIG"), Insert(1001, "1", "2", "1-2", "\"ABC\"", "\"12\""),
                                DisplaceByDIRK("1", "2", 1001)})) +
                Lines({commit}));
}

TEST(KSFKC, AddByCompositeKeyOfTNSOrANullDisplacesNothing) {
  for (const Value& FCN : {Value("TNS"), Null}) {
    ScriptedHost host;
    host.Array("DIRK", {"1-2"});
    host.Param("FCN", FCN);
    EXPECT_TRUE(host.Run(Act("SetInfo")));
    EXPECT_EQ(host.Effects(), beginByDIRK + Lines({"scBuildCmdID()"}) +
                                  Times(3, Lines({Insert(1001, "1", "2", "1-2", TraceText(FCN), "Empty")})) +
                                  Lines({commit}));
  }
}

TEST(KSFKC, AddByACompositeKeyWithoutCharactersInsertsNothing) {
  ScriptedHost host;
  host.Array("DIRK", {""});
  EXPECT_TRUE(host.Run(Act("SetInfo")));
  EXPECT_EQ(host.Effects(), beginByDIRK + Lines({"scBuildCmdID()", commit}));
}

TEST(KSFKC, AddByCompositeKeyGoesOnWithTheNextOneBehindAFailedInsertAndAnswersForTheLast) {
  FailingSteps host;
  host.failingInserts = {2};
  host.Array("DIRK", {"1-2", "3-4"});
  host.Param("FCN", "TNS");
  EXPECT_TRUE(host.Run(Act("SetInfo")));
  const std::string first = Lines({Insert(1001, "1", "2", "1-2", "\"TNS\"", "Empty")});
  EXPECT_EQ(host.Effects(), beginByDIRK + Lines({"scBuildCmdID()"}) + first + first +
                                Lines({MessageLine(adding, "61024, \"KSFKC\""), "scBuildCmdID()"}) +
                                Times(3, Lines({Insert(1002, "3", "4", "3-4", "\"TNS\"", "Empty")})) + Lines({commit}));
}

TEST(KSFKC, AddByCompositeKeyWhoseLastInsertFailsRollsBack) {
  FailingSteps host;
  host.failingInserts = {4};
  host.Array("DIRK", {"1-2", "3-4"});
  host.Param("FCN", "TNS");
  EXPECT_FALSE(host.Run(Act("SetInfo")));
  EXPECT_TRUE(host.Effects().ends_with(
      Lines({Insert(1002, "3", "4", "3-4", "\"TNS\"", "Empty"), MessageLine(adding, "61024, \"KSFKC\""), rollBack})));
}

TEST(KSFKC, AddByCompositeKeyGoesOnWithTheNextInsertBehindAFailedRemoval) {
  const std::string pass = Lines({Insert(1001, "1", "2", "1-2", "\"ABC\"", "Empty"), DisplaceByDIRK("1", "2", 1001)});
  const std::string failed = Lines({MessageLine(adding, "62000")});
  {
    FailingSteps host;
    host.failingRemovals = {1};
    host.Array("DIRK", {"1-2"});
    host.Param("FCN", "ABC");
    EXPECT_TRUE(host.Run(Act("SetInfo")));
    EXPECT_EQ(host.Effects(), beginByDIRK + Lines({"scBuildCmdID()"}) + pass + failed + pass + pass + Lines({commit}));
  }
  {
    FailingSteps host;
    host.failingRemovals = {3};
    host.Array("DIRK", {"1-2"});
    host.Param("FCN", "ABC");
    EXPECT_FALSE(host.Run(Act("SetInfo")));
    EXPECT_EQ(host.Effects(),
              beginByDIRK + Lines({"scBuildCmdID()"}) + pass + pass + pass + failed + Lines({rollBack}));
  }
}

TEST(KSFKC, AddReportsCompositeKeysThatCannotBeHad) {
  ScriptedHost host;
  host.Refuse("scGetValueArray", "DIRK");
  EXPECT_FALSE(host.Run(Act("SetInfo")));
  EXPECT_EQ(host.Effects(), beginByDIRK + Lines({MessageLine(adding, "61020, \"DIRK\""), rollBack}));
}

TEST(KSFKC, AddTakesAnEmptyTextForAnExtension) {
  ScriptedHost host;
  host.Param("DIR", "");
  host.Array("DIR", {"100"});
  host.Param("FCN", "TNS");
  EXPECT_TRUE(host.Run(Act("SetInfo")));
  EXPECT_TRUE(host.Effects().starts_with(Lines({start, DebugLine("DIR = "), askDIR})));
}

// --- Edit.

const std::string editing = "Edit: KSFKC";

std::string Write(const std::string& column, const std::string& value) {
  return "UPDATE KSFKC SET " + column + " = '" + value + "' WHERE CmdId = 7";
}

class KSFKCEdit : public testing::Test {
 protected:
  KSFKCEdit() {
    host.Param("DIR", "100");
    host.Param("KEY", "13");
    host.Param("FCN", "ABC");
  }

  ScriptedHost host;
};

TEST_F(KSFKCEdit, WritesTheCompositeKeyFirstAndThenEachParameter) {
  EXPECT_TRUE(host.Run(Act("EditInfo", {"KEY", "DIRK", "FCN"})));
  EXPECT_EQ(host.Calls(), Lines({start, Read("DIR"), Read("KEY"), StatementLine(Write("DIRK", "100-13")), Read("KEY"),
                                 StatementLine(Write("KEY", "13")), StatementLine(Write("DIRK", "100-13")), Read("FCN"),
                                 Read("DIG"), StatementLine(Write("FCN", "ABC")), commit}));
}

TEST_F(KSFKCEdit, WithACompositeKeyThatCannotBeWrittenRollsBack) {
  host.Refuse("scRunQuery", Write("DIRK", "100-13"));
  EXPECT_FALSE(host.Run(Act("EditInfo", {"KEY"})));
  EXPECT_EQ(host.Effects(),
            Lines({start, StatementLine(Write("DIRK", "100-13")), MessageLine(editing, "61011, \"DIRK\""), rollBack}));
}

struct Digits {
  const char* parameter;
  Value FCN;
  Value DIG;
  bool suit;
};

class KSFKCDigits : public testing::TestWithParam<Digits> {};

TEST_P(KSFKCDigits, HaveToSuitTheFunction) {
  const auto& [parameter, FCN, DIG, suit] = GetParam();
  ScriptedHost host;
  host.Param("FCN", FCN);
  host.Param("DIG", DIG);
  EXPECT_EQ(host.Run(Act("EditInfo", {parameter})), suit);
  const std::string begin = Lines({start, StatementLine(Write("DIRK", "-"))});
  const Value& value = parameter == std::string("FCN") ? FCN : DIG;
  EXPECT_EQ(host.Effects(),
            begin + (suit ? Lines({StatementLine(Write(parameter, Joined(value))), commit})
                          : Lines({MessageLine(editing, "60030, \"DIG\", \"FCN\", \"TNS\""), rollBack})));
}

INSTANTIATE_TEST_SUITE_P(SeenFromTheFunction, KSFKCDigits,
                         testing::Values(Digits{"FCN", "TNS", "12", true}, Digits{"FCN", "  TNS", "12", true},
                                         Digits{"FCN", "ABC", "12", false}, Digits{"FCN", "ABC", "", false},
                                         Digits{"FCN", "ABC", Value(), true}, Digits{"FCN", "ABC", Null, true},
                                         Digits{"FCN", Value(), "12", false}, Digits{"FCN", Null, "12", true}));
INSTANTIATE_TEST_SUITE_P(SeenFromTheDigits, KSFKCDigits,
                         testing::Values(Digits{"DIG", "TNS", "12", true}, Digits{"DIG", " TNS", "12", true},
                                         Digits{"DIG", "ABC", "12", false}, Digits{"DIG", "ABC", "", false},
                                         Digits{"DIG", "ABC", Value(), true}, Digits{"DIG", "ABC", Null, false},
                                         Digits{"DIG", Value(), "12", false}, Digits{"DIG", Null, "12", true}));

TEST_F(KSFKCEdit, LetsTheLastParameterDecideBehindARefusal) {
  host.Param("DIG", "12");
  EXPECT_TRUE(host.Run(Act("EditInfo", {"FCN", "KEY"})));
  EXPECT_EQ(host.Effects(), Lines({start, StatementLine(Write("DIRK", "100-13")),
                                   MessageLine(editing, "60030, \"DIG\", \"FCN\", \"TNS\""),
                                   StatementLine(Write("KEY", "13")), commit}));
}

TEST_F(KSFKCEdit, LetsTheLastParameterDecideBehindAnUpdateThatFailed) {
  host.Refuse("scRunQuery", Write("KEY", "13"));
  EXPECT_TRUE(host.Run(Act("EditInfo", {"KEY", "FCN"})));
  EXPECT_EQ(host.Effects(),
            Lines({start, StatementLine(Write("DIRK", "100-13")), StatementLine(Write("KEY", "13")),
                   MessageLine(editing, "61011, \"KEY\""), StatementLine(Write("FCN", "ABC")), commit}));
  EXPECT_FALSE(host.Run(Act("EditInfo", {"FCN", "KEY"})));
  EXPECT_TRUE(host.Effects().ends_with(Lines({MessageLine(editing, "61011, \"KEY\""), rollBack})));
}

TEST_F(KSFKCEdit, ToANumberOfMoreThanFiveCharactersEndsAndRollsBackAllBeforeIt) {
  host.Param("DIR", "12345");
  EXPECT_TRUE(host.Run(Act("EditInfo", {"DIR"})));
  host.Param("DIR", "123456");
  EXPECT_FALSE(host.Run(Act("EditInfo", {"KEY", "DIR", "FCN"})));
  EXPECT_EQ(host.Effects(),
            Lines({start, StatementLine(Write("DIRK", "12345-13")), StatementLine(Write("DIR", "12345")), commit, start,
                   StatementLine(Write("DIRK", "123456-13")), StatementLine(Write("KEY", "13")),
                   MessageLine(editing, "60049, \"DIR\""), rollBack}));
}

TEST_F(KSFKCEdit, ToANullNumberWritesAnEmptyText) {
  host.Param("DIR", Null);
  EXPECT_TRUE(host.Run(Act("EditInfo", {"DIR"})));
  EXPECT_EQ(host.Effects(),
            Lines({start, StatementLine(Write("DIRK", "-13")), StatementLine(Write("DIR", "")), commit}));
}

TEST_F(KSFKCEdit, ReportsThatTheTransactionDidNotStartCommitOrRollBack) {
  {
    ScriptedHost refusing;
    refusing.Refuse("scStartTransaction");
    refusing.Refuse("scRollBackTransaction");
    EXPECT_FALSE(refusing.Run(Act("EditInfo", {"KEY"})));
    EXPECT_EQ(refusing.Calls(), Lines({start, MessageLine(editing, "62010"), rollBack, MessageLine(editing, "62012")}));
  }
  host.Refuse("scCommitTransaction");
  EXPECT_TRUE(host.Run(Act("EditInfo", {"KEY"})));
  EXPECT_TRUE(host.Effects().ends_with(Lines({commit, MessageLine(editing, "62011")})));
}

// --- Generate.

const std::string readAll = "SELECT DIR,KEY,FCN,DIG FROM KSFKC";

std::string ReadITYPE(const std::string& DIR) { return "SELECT ITYPE FROM KSEXI WHERE DIR = '" + DIR + "'"; }
std::string Built(const std::string& line) { return StatementLine("INSERT INTO BuiltCmd VALUES (12,'" + line + "')"); }

TEST(KSFKC, GeneratesALineForEachKeyAndLeavesOutWhatHasNoValue) {
  ScriptedHost host;
  host.Rows(readAll, ByColumn({{" 100 ", " 5", "TNS ", "12"},
                               {"100", "6", "ABC", ""},
                               {"100", Null, Null, Null},
                               {"100", "7", "DEF", Null}}));
  host.Rows(ReadITYPE("100"), {{"3"}});
  EXPECT_TRUE(host.Run(Act("GenerateCmd", {"12"})));
  EXPECT_EQ(host.Calls(),
            Lines({QueryLine(readAll), QueryLine(ReadITYPE("100")), Built("KSFKC:DIR=100,KEY=5,FCN=TNS,DIG=12;"),
                   QueryLine(ReadITYPE("100")), Built("KSFKC:DIR=100,KEY=6,FCN=ABC;"), QueryLine(ReadITYPE("100")),
                   Built("KSFKC:DIR=100;"), QueryLine(ReadITYPE("100")), Built("KSFKC:DIR=100,KEY=7,FCN=DEF;")}));
}

TEST(KSFKC, GeneratesBlanksTrimmedAndLeavesOutAnEmptyTextOfTheDigitsAlone) {
  ScriptedHost host;
  host.Rows(readAll, ByColumn({{" ", " ", " ", " "}, {" x ", " x ", " x ", " x "}}));
  host.Rows(ReadITYPE(""), {});
  host.Rows(ReadITYPE("x"), {});
  EXPECT_TRUE(host.Run(Act("GenerateCmd", {"12"})));
  EXPECT_EQ(host.Calls(), Lines({QueryLine(readAll), QueryLine(ReadITYPE("")), Built("KSFKC:DIR=,KEY=,FCN=;"),
                                 QueryLine(ReadITYPE("x")), Built("KSFKC:DIR=x,KEY=x,FCN=x,DIG=x;")}));
}

TEST(KSFKC, GeneratesTheReleaseOfAFixedKeyInFrontInOneRow) {
  const std::string two = "KSFKC:DIR=100,KEY=13,FCN=TNS;{LF}KSFKC:DIR=100,KEY=13,FCN=ABC;";
  const std::string one = "KSFKC:DIR=100,KEY=13,FCN=ABC;";
  for (const auto& [ITYPE, line] : {std::pair{"12", two}, {"13", one}, {"9", two}, {"8", one}}) {
    ScriptedHost host;
    host.Rows(readAll, {{"100"}, {"13"}, {"ABC"}, {Null}});
    host.Rows(ReadITYPE("100"), {{ITYPE}});
    EXPECT_TRUE(host.Run(Act("GenerateCmd", {"12"})));
    EXPECT_EQ(host.Calls(), Lines({QueryLine(readAll), QueryLine(ReadITYPE("100")), Built(line)})) << ITYPE;
  }
}

TEST(KSFKC, GeneratesNoReleaseForTNSNorForAFunctionThatIsNull) {
  ScriptedHost host;
  host.Rows(readAll, {{"100", "100", "100"}, {"1", "1", "1"}, {"TNS", Null, ""}, {Null, Null, Null}});
  host.Rows(ReadITYPE("100"), {{"3"}});
  EXPECT_TRUE(host.Run(Act("GenerateCmd", {"12"})));
  EXPECT_EQ(host.Calls(),
            Lines({QueryLine(readAll), QueryLine(ReadITYPE("100")), Built("KSFKC:DIR=100,KEY=1,FCN=TNS;"),
                   QueryLine(ReadITYPE("100")), Built("KSFKC:DIR=100,KEY=1;"), QueryLine(ReadITYPE("100")),
                   Built("KSFKC:DIR=100,KEY=1,FCN=TNS;{LF}KSFKC:DIR=100,KEY=1,FCN=;")}));
}

TEST(KSFKC, GeneratesWithTheInstrumentOfTheLineBeforeForAnExtensionThatIsNotThere) {
  ScriptedHost host;
  host.Rows(readAll, {{"101", "100", "101"}, {"13", "13", "13"}, {"ABC", "ABC", "ABC"}, {Null, Null, Null}});
  host.Rows(ReadITYPE("101"), {});
  host.Rows(ReadITYPE("100"), {{"12"}});
  EXPECT_TRUE(host.Run(Act("GenerateCmd", {"12"})));
  EXPECT_EQ(
      host.Calls(),
      Lines({QueryLine(readAll), QueryLine(ReadITYPE("101")), Built("KSFKC:DIR=101,KEY=13,FCN=ABC;"),
             QueryLine(ReadITYPE("100")), Built("KSFKC:DIR=100,KEY=13,FCN=TNS;{LF}KSFKC:DIR=100,KEY=13,FCN=ABC;"),
             QueryLine(ReadITYPE("101")), Built("KSFKC:DIR=101,KEY=13,FCN=TNS;{LF}KSFKC:DIR=101,KEY=13,FCN=ABC;")}));
}

TEST(KSFKC, GeneratesALineForARecordThatHasOneOfNumberKeyAndFunction) {
  ScriptedHost host;
  host.Rows(readAll, ByColumn({{Null, "5", Null, Null}, {Null, Null, "ABC", Null}}));
  host.Rows(ReadITYPE(""), {});
  EXPECT_TRUE(host.Run(Act("GenerateCmd", {"12"})));
  EXPECT_EQ(host.Calls(), Lines({QueryLine(readAll), QueryLine(ReadITYPE("")), Built("KSFKC:DIR=,KEY=5;"),
                                 QueryLine(ReadITYPE("")), Built("KSFKC:DIR=,FCN=ABC;")}));
}

TEST(KSFKC, GeneratesTheTextBeforeOnceMoreForARecordWithoutNumberKeyAndFunction) {
  ScriptedHost host;
  host.Rows(readAll, ByColumn({{Null, Null, Null, "12"}, {"100", "1", "ABC", Null}, {Null, Null, Null, "12"}}));
  host.Rows(ReadITYPE(""), {});
  host.Rows(ReadITYPE("100"), {{"3"}});
  EXPECT_TRUE(host.Run(Act("GenerateCmd", {"12"})));
  const std::string line = "KSFKC:DIR=100,KEY=1,FCN=TNS;{LF}KSFKC:DIR=100,KEY=1,FCN=ABC;";
  EXPECT_EQ(host.Calls(), Lines({QueryLine(readAll), QueryLine(ReadITYPE("")), Built(""), QueryLine(ReadITYPE("100")),
                                 Built(line), QueryLine(ReadITYPE("")), Built(line)}));
}

TEST(KSFKC, GenerateEndsInSilenceWhereAnInstrumentCannotBeRead) {
  ScriptedHost host;
  host.Rows(readAll, {{"100", "101"}, {"5", "5"}, {"ABC", "ABC"}, {Null, Null}});
  host.Refuse("scRunQuery", ReadITYPE("100"));
  EXPECT_FALSE(host.Run(Act("GenerateCmd", {"12"})));
  EXPECT_EQ(host.Calls(), Lines({QueryLine(readAll), QueryLine(ReadITYPE("100"))}));
}

TEST(KSFKC, GenerateAnswersTrueForAnEmptyTableAndForOneThatCannotBeRead) {
  ScriptedHost host;
  host.Rows(readAll, {});
  EXPECT_TRUE(host.Run(Act("GenerateCmd", {"12"})));
  host.Refuse("scRunQuery", readAll);
  EXPECT_TRUE(host.Run(Act("GenerateCmd", {"12"})));
  EXPECT_EQ(host.Calls(), Lines({QueryLine(readAll), QueryLine(readAll)}));
}

TEST(KSFKC, GenerateGoesOnBehindALineThatWasNotWrittenAndAnswersForTheLast) {
  const std::string first = "INSERT INTO BuiltCmd VALUES (12,'KSFKC:DIR=100,KEY=5,FCN=ABC;')";
  const std::string second = "INSERT INTO BuiltCmd VALUES (12,'KSFKC:DIR=100,KEY=6,FCN=ABC;')";
  for (const bool firstFails : {true, false}) {
    ScriptedHost host;
    host.Rows(readAll, {{"100", "100"}, {"5", "6"}, {"ABC", "ABC"}, {Null, Null}});
    host.Rows(ReadITYPE("100"), {{"3"}});
    host.Refuse("scRunQuery", firstFails ? first : second);
    EXPECT_EQ(host.Run(Act("GenerateCmd", {"12"})), firstFails);
    const std::string read = QueryLine(ReadITYPE("100"));
    const std::string failed = MessageLine("Generating: KSFKC", "61019");
    EXPECT_EQ(host.Calls(),
              firstFails
                  ? Lines({QueryLine(readAll), read, StatementLine(first), failed, read, StatementLine(second)})
                  : Lines({QueryLine(readAll), read, StatementLine(first), read, StatementLine(second), failed}));
  }
}

}  // namespace
}  // namespace cordboard
