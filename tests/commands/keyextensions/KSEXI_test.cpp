#include <gtest/gtest.h>

#include "script/RunTimeFailure.h"
#include "support/CallLines.h"
#include "support/ScriptedHost.h"

namespace cordboard {
namespace {

Action Act(const std::string& function, List parameters = {}, const std::string& release = "R7") {
  return {.oaRelease = release, .FunctionName = function, .CmdName = "KSEXI", .CmdId = 7, .ParamList = parameters};
}

const std::string start = "scStartTransaction()";
const std::string commit = "scCommitTransaction()";
const std::string rollBack = "scRollBackTransaction()";
const std::string whole = Call("scSQLSelectValuesAndDesc");

// --- Lists.

TEST(KSEXI, ListsThePlainParametersFromTheFixedValues) {
  for (const char* parameter :
       {"ACCTYP",         "ADC_D2",         "ADC_D3",         "ADC_D4",       "ADC_D5",       "ADC_D6",
        "ADC_D7",         "ADC_D8",         "ADC_D9",         "ADC_D10",      "CALALT",       "ITYPE",
        "LANG",           "CDIV_D1",        "CDIV_D2",        "CDIV_D3",      "CDIV_D4D5",    "CDIV_D6",
        "ROC_D2",         "ROC_D3",         "ROC_D4",         "ROC_D5D6",     "SERV_D1",      "SERV_D2",
        "SERV_D3D4_SUB1", "SERV_D3D4_SUB2", "SERV_D3D4_SUB3", "SERV_D5_SUB1", "SERV_D5_SUB2", "SERV_D6",
        "SERV_D7D8_SUB1", "SERV_D7D8_SUB2", "SERV_D9"}) {
    ScriptedHost host;
    EXPECT_TRUE(host.Run(Act("GetValidValForParam", {parameter})));
    EXPECT_EQ(host.Calls(), Lines({whole})) << parameter;
  }
}

TEST(KSEXI, ServesNoOtherParameterAndNoOtherAction) {
  ScriptedHost host;
  EXPECT_FALSE(host.Run(Act("GetValidValForParam", {"TRAF"})));
  EXPECT_FALSE(host.Run(Act("GetValidValForParam", {"SERV_D7D8"})));
  EXPECT_FALSE(host.Run(Act("StatCheck", {"DIR"})));
  EXPECT_FALSE(host.Run(Act("Add")));
  EXPECT_EQ(host.Calls(), "");
}

TEST(KSEXI, ListsCategoriesCustomersAndTheLocationOfThePosition) {
  ScriptedHost host;
  EXPECT_TRUE(host.Run(Act("GetValidValForParam", {"CAT"})));
  EXPECT_TRUE(host.Run(Act("GetValidValForParam", {"CUST"})));
  EXPECT_TRUE(host.Run(Act("GetValidValForParam", {"LOCATION"})));
  EXPECT_EQ(host.Calls(),
            Lines({"scCollectValuesAndDesc(\"SELECT CAT, DESCRIPTION {NL} FROM EXCCS {NL}WHERE NOT (SERV IS Null)ORDER "
                   "BY VAL(CAT) \", \"dynamic\")",
                   "scCollectValuesAndDesc(\"SELECT CUST, DESCRIPTION {NL} FROM CUSTOMERS {NL} ORDER BY VAL(CUST)\", "
                   "\"dynamic\")",
                   Read("EQU"),
                   "scCollectValuesAndDesc(\"SELECT Location, Description FROM Locations {NL} ORDER BY Location\", "
                   "\"dynamic\")"}));
}

TEST(KSEXI, ListsTheTailOfCDIVUnderItsOwnName) {
  for (const std::string parameter : {"CDIV_D7", "CDIV_D8", "CDIV_D9"}) {
    ScriptedHost host;
    host.Param("CDIV_D6", "0");
    EXPECT_TRUE(host.Run(Act("GetValidValForParam", {parameter})));
    EXPECT_EQ(host.Effects(),
              Lines({Call("scCollectValuesAndDesc",
                          "SELECT Value, ValDesc  FROM ParamValueDesc  WHERE Command = 'KSEXI' AND Param = '" +
                              parameter + "' AND Value = '0' ")}));
  }
}

TEST(KSEXI, ListsFreeNumbersInTheOrderOfTheText) {
  const std::string collect =
      Call("scCollectSingleValues", "SELECT NUMSE FROM NANSI  WHERE NUMTYP = 'EX'  AND USED = FALSE  ORDER BY NUMSE");
  ScriptedHost host;
  EXPECT_TRUE(host.Run(Act("GetValidValForParam", {"DIR"})));
  host.Refuse("scCollectSingleValues");
  EXPECT_FALSE(host.Run(Act("GetValidValForParam", {"DIR"})));
  EXPECT_EQ(host.Calls(), Lines({collect, collect, MessageLine("GetValidValForParam", "61020, \"DIR\"")}));
}

TEST(KSEXI, ListOfTheFirstDigitOfADCFollowsTheDigitsOfSERV) {
  ScriptedHost host;
  host.Param("SERV_D7D8_SUB2", "02");
  EXPECT_TRUE(host.Run(Act("GetValidValForParam", {"ADC_D1"})));
  EXPECT_EQ(host.Calls(),
            Lines({Read("ITYPE"), whole, Read("SERV_D7D8_SUB2"), "scRemoveFromValidValues(\"ADC_D1\", \"2\")"}));
}

TEST(KSEXI, ListOfTheLastDigitOfADCFollowsTheAccessTypeAndThereIsNoneBeforeR7) {
  for (const char* release : {"R7", "R8", "", "r6", "R6/2"}) {
    ScriptedHost host;
    host.Param("ACCTYP", "1");
    EXPECT_TRUE(host.Run(Act("GetValidValForParam", {"ADC_D11"}, release)));
    EXPECT_EQ(host.Calls(), Lines({Read("ACCTYP"), whole})) << release;
  }
  for (const char* release : {"R6", "R6/1"}) {
    ScriptedHost host;
    host.Param("ACCTYP", "1");
    EXPECT_FALSE(host.Run(Act("GetValidValForParam", {"ADC_D11"}, release)));
    EXPECT_EQ(host.Calls(), "") << release;
  }
}

// --- The list of positions.

const std::string defaultOrder = " ORDER BY Equipment.LIM, Equipment.Magazine, Equipment.Slot, Equipment.Individual";

std::string Positions(const std::string& boards, const std::string& order) {
  return "SELECT Equipment.EQU  FROM (Boards INNER JOIN Equipment ON (Boards.Slot = Equipment.Slot) AND "
         "(Boards.Magazine = Equipment.Magazine) AND (Boards.LIM = Equipment.LIM)) INNER JOIN LIMs ON Boards.LIM = "
         "LIMs.LIM  WHERE (Equipment.Used = False)" +
         boards + order;
}

const char* const allBoards = " AND Boards.BoardID IN ('31', '59', '77')";
const char* const board77Or59 = " AND (Boards.BoardID = '77') OR (Boards.BoardID ='59')";
const char* const board31 = " AND Boards.BoardID = '31'";

struct Boards {
  Value ITYPE;
  const char* condition;
};

class KSEXIPositions : public testing::TestWithParam<Boards> {};

TEST_P(KSEXIPositions, AreThoseOfTheBoardsOfTheInstrument) {
  ScriptedHost host;
  host.Param("ITYPE", GetParam().ITYPE);
  EXPECT_TRUE(host.Run(Act("GetValidValForParam", {"EQU"})));
  EXPECT_EQ(host.Calls(), Lines({Read("ITYPE"), "scGetAutoEquOptionValue(out)",
                                 Call("scCollectSingleValues", Positions(GetParam().condition, defaultOrder))}));
}

INSTANTIATE_TEST_SUITE_P(
    EveryInstrument, KSEXIPositions,
    testing::Values(Boards{Value(), allBoards}, Boards{"0", board77Or59}, Boards{"1", board31}, Boards{"2", board31},
                    Boards{"3", board31}, Boards{"4", board31}, Boards{"5", board31}, Boards{"6", board31},
                    Boards{"7", board31}, Boards{"8", board31}, Boards{"9", board77Or59}, Boards{"10", board77Or59},
                    Boards{"11", board77Or59}, Boards{"12", board77Or59}, Boards{"13", board77Or59},
                    Boards{"14", board77Or59}, Boards{"15", board77Or59}, Boards{"16", board31}, Boards{"17", board31},
                    Boards{"18", board31}, Boards{"19", board77Or59}, Boards{"20", board77Or59},
                    Boards{"21", board77Or59}, Boards{"22", board77Or59}, Boards{"23", board77Or59},
                    Boards{"24", board77Or59}, Boards{"25", ""}, Boards{"", ""}, Boards{Value::Null(), ""}));

TEST(KSEXI, ListsPositionsInTheOrderThatTheUserHasChosen) {
  ScriptedHost host;
  host.Param("ITYPE", "3");
  host.AutoEquOption(" ORDER BY Equipment.EQU");
  EXPECT_TRUE(host.Run(Act("GetValidValForParam", {"EQU"})));
  EXPECT_TRUE(
      host.Calls().ends_with(Lines({Call("scCollectSingleValues", Positions(board31, " ORDER BY Equipment.EQU"))})));
}

TEST(KSEXI, ReportsPositionsThatCannotBeListed) {
  ScriptedHost host;
  host.Refuse("scCollectSingleValues");
  EXPECT_FALSE(host.Run(Act("GetValidValForParam", {"EQU"})));
  EXPECT_TRUE(host.Calls().ends_with(Lines({MessageLine("GetValidValForParam", "61020, \"EQU\"")})));
}

// --- Checks.

TEST(KSEXI, CheckOfTheAccessTypeResetsTheLastDigitOfADC) {
  ScriptedHost host;
  host.Refuse("scResetParam");
  EXPECT_FALSE(host.Run(Act("StatCheck", {"ACCTYP"})));
  EXPECT_EQ(host.Calls(), Lines({Call("scResetParam", "ADC_D11"), MessageLine("StatCheck", "61013, \"ADC_D11\"")}));
}

TEST(KSEXI, CheckOfCategoryOrSERVKeepsTheFirstDigitOfADCOnlyIfItIsStillListed) {
  for (const char* parameter : {"CAT", "SERV_D7D8_SUB2"}) {
    ScriptedHost host;
    host.Param("ADC_D1", "2");
    host.ValidValues("ADC_D1", {"0", "1"});
    EXPECT_TRUE(host.Run(Act("StatCheck", {parameter})));
    EXPECT_EQ(host.Calls(),
              Lines({Read("ADC_D1"), Call("scResetParam", "ADC_D1"), "scGetValidValues(\"ADC_D1\", out)"}));
  }
}

TEST(KSEXI, CheckOfTheSixthDigitOfCDIVResetsTheTail) {
  ScriptedHost host;
  EXPECT_TRUE(host.Run(Act("StatCheck", {"CDIV_D6"})));
  EXPECT_EQ(host.Calls(),
            Lines({Call("scResetParam", "CDIV_D7"), Call("scResetParam", "CDIV_D8"), Call("scResetParam", "CDIV_D9")}));
}

TEST(KSEXI, CheckOfThePositionResetsTheLocationAndReportsNothing) {
  ScriptedHost host;
  EXPECT_TRUE(host.Run(Act("StatCheck", {"EQU"})));
  host.Refuse("scResetParam");
  EXPECT_FALSE(host.Run(Act("StatCheck", {"EQU"})));
  EXPECT_EQ(host.Calls(), Lines({Call("scResetParam", "LOCATION"), Call("scResetParam", "LOCATION")}));
}

const std::string readBoard =
    "SELECT Boards.BoardID FROM Boards INNER JOIN Equipment ON (Boards.Slot = Equipment.Slot) AND (Boards.Magazine = "
    "Equipment.Magazine) AND (Boards.LIM = Equipment.LIM) WHERE Equipment.EQU = '001-0-10-01'";
const std::string resetEQU = Call("scResetParam", "EQU");
const std::string setEQU = "scSetParamValue(\"EQU\", \"001-0-10-01\")";

struct Recheck {
  Value ITYPE;
  Value BoardID;
  bool stays;
};

class KSEXIRecheck : public testing::TestWithParam<Recheck> {};

TEST_P(KSEXIRecheck, KeepsThePositionWhoseBoardSuitsTheInstrument) {
  const auto& [ITYPE, BoardID, stays] = GetParam();
  ScriptedHost host;
  host.Param("EQU", "001-0-10-01");
  host.Param("ITYPE", ITYPE);
  host.Rows(readBoard, {{BoardID}});
  EXPECT_TRUE(host.Run(Act("StatCheck", {"ITYPE"})));
  EXPECT_EQ(host.Calls(), stays ? Lines({Read("EQU"), Read("ITYPE"), resetEQU, QueryLine(readBoard), setEQU})
                                : Lines({Read("EQU"), Read("ITYPE"), resetEQU, QueryLine(readBoard)}));
}

INSTANTIATE_TEST_SUITE_P(
    BothSidesOfEveryLimit, KSEXIRecheck,
    testing::Values(Recheck{"12", "77", true}, Recheck{"12", "59", true}, Recheck{"12", "31", false},
                    Recheck{"3", "77", false}, Recheck{"3", "31", true}, Recheck{"3", "59", false},
                    Recheck{"0", "77", false}, Recheck{"0", "59", false}, Recheck{"0", "31", true},
                    Recheck{"8", "77", false}, Recheck{"9", "77", true}, Recheck{"15", "77", true},
                    Recheck{"16", "77", false}, Recheck{"18", "77", false}, Recheck{"19", "77", true},
                    Recheck{"24", "77", true}, Recheck{"25", "77", false}, Recheck{"25", "31", true},
                    Recheck{"3", "", true}, Recheck{"12", "", false}, Recheck{"3", Value::Null(), false},
                    Recheck{Value(), "31", false}, Recheck{Value(), "77", false}, Recheck{"", "31", false}));

TEST(KSEXI, CheckOfTheInstrumentWithoutPositionOnlyResetsIt) {
  ScriptedHost host;
  host.Param("ITYPE", "12");
  EXPECT_TRUE(host.Run(Act("StatCheck", {"ITYPE"})));
  EXPECT_EQ(host.Effects(), Lines({resetEQU}));
}

TEST(KSEXI, CheckOfTheInstrumentStopsAtAStepThatFails) {
  const auto run = [](const char* operation, const std::string& first) {
    ScriptedHost host;
    host.Param("EQU", "001-0-10-01");
    host.Param("ITYPE", "12");
    if (operation != std::string("scRunQuery")) host.Rows(readBoard, {{"77"}});
    host.Refuse(operation, first);
    EXPECT_FALSE(host.Run(Act("StatCheck", {"ITYPE"})));
    return host.Effects();
  };
  EXPECT_EQ(run("scResetParam", "EQU"), Lines({resetEQU}));
  EXPECT_EQ(run("scRunQuery", readBoard),
            Lines({resetEQU, QueryLine(readBoard), MessageLine("StatCheck", "60004, \"BoardIds\", \"EQU\"")}));
  EXPECT_EQ(run("scSetParamValue", "EQU"),
            Lines({resetEQU, QueryLine(readBoard), setEQU, MessageLine("StatCheck", "61016, \"EQU\"")}));
}

TEST(KSEXI, CheckOfTheInstrumentWithAPositionThatIsNowhereFailsTheCall) {
  ScriptedHost host;
  host.Param("EQU", "001-0-10-01");
  host.Rows(readBoard, {});
  EXPECT_THROW(host.Run(Act("StatCheck", {"ITYPE"})), RunTimeFailure);
}

// --- Add.

const List columns{"CMDID", "NUMTYP", "DIR", "EQU", "CUST"};
const std::string askDIR = "scGetValueArray(\"DIR\", out)";
const std::string askEQU = "scGetValueArray(\"EQU\", out)";

std::string Insert(const std::string& id, const std::string& DIR, const std::string& EQU) {
  return "scSQLInsert(\"KSEXI\", [\"CMDID\", \"NUMTYP\", \"DIR\", \"EQU\", \"CUST\"], [" + id + ", \"EX\", \"" + DIR +
         "\", \"" + EQU + "\", Null])";
}

TEST(KSEXI, AddMakesOneRecordForEachNumberPairedWithItsPositionWithoutTransaction) {
  ScriptedHost host;
  host.Array("DIR", {"100", "101"});
  host.Array("EQU", {"E1", "E2", "E3"});
  host.Param("CUST", Value::Null());
  EXPECT_TRUE(host.Run(Act("SetInfo", columns)));
  EXPECT_EQ(host.Calls(),
            Lines({askDIR, askEQU, "scBuildCmdID()", Read("CUST"), TakeNumber("100"), Insert("1001", "100", "E1"),
                   StatementLine(MarkPositionSql("E1", "True")), "scBuildCmdID()", Read("CUST"), TakeNumber("101"),
                   Insert("1002", "101", "E2"), StatementLine(MarkPositionSql("E2", "True"))}));
}

TEST(KSEXI, AddReadsTheNamesOfItsColumnsExactly) {
  ScriptedHost host;
  host.Array("DIR", {"100"});
  host.Array("EQU", {"E1"});
  host.Param("Dir", "x");
  EXPECT_TRUE(host.Run(Act("SetInfo", {"CmdId", "Dir"})));
  EXPECT_TRUE(host.Effects().ends_with(Lines(
      {"scSQLInsert(\"KSEXI\", [\"CmdId\", \"Dir\"], [Empty, \"x\"])", StatementLine(MarkPositionSql("E1", "True"))})));
}

TEST(KSEXI, AddReportsNumbersThatCannotBeHadAndDoesNotTestThePositions) {
  {
    ScriptedHost host;
    host.Refuse("scGetValueArray", "DIR");
    EXPECT_FALSE(host.Run(Act("SetInfo", columns)));
    EXPECT_EQ(host.Calls(), Lines({askDIR, MessageLine("Add: KSEXI", "61020, \"DIR\"")}));
  }
  {
    ScriptedHost host;
    host.Array("DIR", {"100"});
    host.Array("EQU", {"E1"});
    host.Refuse("scGetValueArray", "EQU");
    EXPECT_TRUE(host.Run(Act("SetInfo", columns)));
  }
}

TEST(KSEXI, AddOfMoreNumbersThanPositionsFailsTheCallAtTheFirstWithout) {
  ScriptedHost host;
  host.Array("DIR", {"100", "101"});
  host.Array("EQU", {"E1"});
  EXPECT_THROW(host.Run(Act("SetInfo", columns)), RunTimeFailure);
  EXPECT_TRUE(host.Calls().ends_with(Lines({StatementLine(MarkPositionSql("E1", "True")), "scBuildCmdID()"})));
}

TEST(KSEXI, AddWithoutAListOfNumbersFailsTheCall) {
  ScriptedHost host;
  host.Array("DIR", List());
  host.Array("EQU", {"E1"});
  EXPECT_THROW(host.Run(Act("SetInfo", columns)), RunTimeFailure);
}

TEST(KSEXI, AddStopsAtTheStepThatFailsAndLeavesTheRecordsBeforeIt) {
  const auto run = [](const std::string& operation, const std::string& first) {
    ScriptedHost host;
    host.Array("DIR", {"100", "101"});
    host.Array("EQU", {"E1", "E2"});
    host.Param("CUST", Value::Null());
    host.Refuse(operation, first);
    EXPECT_FALSE(host.Run(Act("SetInfo", columns)));
    return host.Effects();
  };
  const std::string first = Lines({askDIR, askEQU, "scBuildCmdID()"});
  EXPECT_EQ(
      run("scRunQuery", AsSent(MarkNumberSql("100", "True"))),
      first + Lines({StatementLine(MarkNumberSql("100", "True")), MessageLine("SetNumberUsed", "61005, \"100\"")}));
  EXPECT_EQ(run("scSQLInsert", "KSEXI"), first + Lines({TakeNumber("100"), Insert("1001", "100", "E1"),
                                                        MessageLine("Add: KSEXI", "61024, \"KSEXI\"")}));
  EXPECT_EQ(
      run("scRunQuery", AsSent(MarkPositionSql("E2", "True"))),
      first + Lines({TakeNumber("100"), Insert("1001", "100", "E1"), StatementLine(MarkPositionSql("E1", "True")),
                     "scBuildCmdID()", TakeNumber("101"), Insert("1002", "101", "E2"),
                     StatementLine(MarkPositionSql("E2", "True")), MessageLine("SetEquipmentUsed", "61010, \"E2\"")}));
}

// --- Edit.

const std::string readDIR = " SELECT DIR FROM KSEXI WHERE CmdId = 7";
const std::string readEQU = " SELECT EQU FROM KSEXI WHERE CmdId = 7";
const std::string editing = "Edit: KSEXI";

std::string Write(const std::string& column, const std::string& value) {
  return "UPDATE KSEXI SET " + column + " = '" + value + "' WHERE CmdId = 7";
}

TEST(KSEXI, EditWritesEachParameterAndAnEmptyOneAsAnEmptyText) {
  ScriptedHost host;
  host.Param("CUST", "3");
  EXPECT_TRUE(host.Run(Act("EditInfo", {"CUST", "TRM"})));
  EXPECT_EQ(host.Calls(), Lines({start, Read("CUST"), StatementLine(Write("CUST", "3")), Read("TRM"),
                                 StatementLine(Write("TRM", "")), commit}));
}

TEST(KSEXI, EditOfNothingCommits) {
  ScriptedHost host;
  EXPECT_TRUE(host.Run(Act("EditInfo", List(std::vector<Value>()))));
  EXPECT_EQ(host.Calls(), Lines({start, commit}));
}

TEST(KSEXI, EditLetsTheLastParameterDecide) {
  {
    ScriptedHost host;
    host.Refuse("scRunQuery", Write("CUST", ""));
    EXPECT_TRUE(host.Run(Act("EditInfo", {"CUST", "TRM"})));
    EXPECT_EQ(host.Effects(), Lines({start, StatementLine(Write("CUST", "")), MessageLine(editing, "61011, \"CUST\""),
                                     StatementLine(Write("TRM", "")), commit}));
  }
  {
    ScriptedHost host;
    host.Refuse("scRunQuery", Write("TRM", ""));
    EXPECT_FALSE(host.Run(Act("EditInfo", {"CUST", "TRM"})));
    EXPECT_EQ(host.Effects(), Lines({start, StatementLine(Write("CUST", "")), StatementLine(Write("TRM", "")),
                                     MessageLine(editing, "61011, \"TRM\""), rollBack}));
  }
}

TEST(KSEXI, EditMovesTheUseOfTheNumberAndLeavesTheColumnToTheHost) {
  ScriptedHost host;
  host.Param("DIR", "12345");
  host.Rows(readDIR, {{"100"}});
  EXPECT_TRUE(host.Run(Act("EditInfo", {"DIR"})));
  EXPECT_EQ(host.Effects(), Lines({start, QueryLine(readDIR), MoveNumber("100", "12345"), commit}));
}

TEST(KSEXI, EditToANullNumberMovesItsUseToNothing) {
  ScriptedHost host;
  host.Param("DIR", Value::Null());
  host.Rows(readDIR, {{"100"}});
  EXPECT_TRUE(host.Run(Act("EditInfo", {"DIR"})));
  EXPECT_EQ(host.Effects(), Lines({start, QueryLine(readDIR), MoveNumber("100", ""), commit}));
}

TEST(KSEXI, EditToANumberOfMoreThanFiveCharactersEndsAndRollsBackAllBeforeIt) {
  ScriptedHost host;
  host.Param("DIR", "123456");
  EXPECT_FALSE(host.Run(Act("EditInfo", {"CUST", "DIR", "TRM"})));
  EXPECT_EQ(host.Effects(),
            Lines({start, StatementLine(Write("CUST", "")), MessageLine(editing, "60049, \"DIR\""), rollBack}));
}

TEST(KSEXI, EditOfARecordWithAnEmptyNumberReportsAndFailsButAParameterBehindItCanStillDecide) {
  ScriptedHost alone;
  alone.Param("DIR", "200");
  alone.Rows(readDIR, {{Value()}});
  EXPECT_FALSE(alone.Run(Act("EditInfo", {"DIR"})));
  EXPECT_EQ(alone.Effects(), Lines({start, QueryLine(readDIR), MessageLine(editing, "60005, \"DIR\""), rollBack}));
  ScriptedHost host;
  host.Param("DIR", "200");
  host.Rows(readDIR, {{Value()}});
  EXPECT_TRUE(host.Run(Act("EditInfo", {"DIR", "TRM"})));
  EXPECT_TRUE(host.Effects().ends_with(Lines({StatementLine(Write("TRM", "")), commit})));
}

TEST(KSEXI, EditReportsANumberThatCannotBeReadOrMoved) {
  {
    ScriptedHost host;
    host.Refuse("scRunQuery", readDIR);
    EXPECT_FALSE(host.Run(Act("EditInfo", {"DIR"})));
    EXPECT_EQ(host.Effects(), Lines({start, QueryLine(readDIR), MessageLine(editing, "62000"), rollBack}));
  }
  {
    ScriptedHost host;
    host.Param("DIR", "200");
    host.Rows(readDIR, {{"100"}});
    host.Refuse("scRunQuery", AsSent(MarkNumberSql("100", "False")));
    EXPECT_FALSE(host.Run(Act("EditInfo", {"DIR"})));
    EXPECT_EQ(host.Effects(), Lines({start, QueryLine(readDIR), StatementLine(MarkNumberSql("100", "False")),
                                     MessageLine("SetNumberUsed", "61005, \"100\""),
                                     MessageLine(editing, "61011, \"DIR\""), rollBack}));
  }
}

TEST(KSEXI, EditOfARecordThatIsGoneIsReportedAndForAPositionIsNoFailure) {
  for (const auto& [parameter, statement] : {std::pair<std::string, std::string>{"DIR", readDIR}, {"EQU", readEQU}}) {
    ScriptedHost host;
    host.Rows(statement, {});
    EXPECT_EQ(host.Run(Act("EditInfo", {parameter})), parameter == "EQU");
    EXPECT_EQ(host.Effects(),
              Lines({start, QueryLine(statement), MessageLine("Edit: KSEXI", "60005, \"" + parameter + "\""),
                     parameter == "EQU" ? commit : rollBack}));
  }
}

TEST(KSEXI, EditMovesThePosition) {
  ScriptedHost host;
  host.Param("EQU", "E2");
  host.Rows(readEQU, {{"E1"}});
  EXPECT_TRUE(host.Run(Act("EditInfo", {"EQU"})));
  EXPECT_EQ(host.Effects(),
            Lines({start, QueryLine(readEQU), StatementLine("UPDATE EQUIPMENT SET USED = FALSE{NL} WHERE EQU = 'E1'"),
                   StatementLine("UPDATE EQUIPMENT SET USED = TRUE{NL} WHERE EQU = 'E2'"),
                   StatementLine("UPDATE KSEXI SET EQU = 'E2'{NL} WHERE CmdId = 7"), commit}));
}

TEST(KSEXI, EditOfARecordWithAnEmptyPositionReportsAndCommits) {
  ScriptedHost host;
  host.Param("EQU", "E2");
  host.Rows(readEQU, {{Value()}});
  EXPECT_TRUE(host.Run(Act("EditInfo", {"EQU"})));
  EXPECT_EQ(host.Effects(), Lines({start, QueryLine(readEQU), MessageLine(editing, "60005, \"EQU\""), commit}));
}

TEST(KSEXI, EditTakesANullAndAnEmptyTextForNoOldValue) {
  for (const Value& old : {Value(""), Value::Null()}) {
    ScriptedHost host;
    host.Param("DIR", "200");
    host.Param("EQU", "E2");
    host.Rows(readDIR, {{old}});
    host.Rows(readEQU, {{old}});
    EXPECT_TRUE(host.Run(Act("EditInfo", {"DIR", "EQU"})));
    EXPECT_EQ(host.Effects(), Lines({start, QueryLine(readDIR), MessageLine("Edit: KSEXI", "60005, \"DIR\""),
                                     QueryLine(readEQU), MessageLine("Edit: KSEXI", "60005, \"EQU\""), commit}));
  }
}

TEST(KSEXI, EditReportsAPositionThatCannotBeReadOrFreed) {
  {
    ScriptedHost host;
    host.Refuse("scRunQuery", readEQU);
    EXPECT_FALSE(host.Run(Act("EditInfo", {"EQU"})));
    EXPECT_EQ(host.Effects(), Lines({start, QueryLine(readEQU), MessageLine(editing, "62000"), rollBack}));
  }
  {
    ScriptedHost host;
    host.Param("EQU", "E2");
    host.Rows(readEQU, {{"E1"}});
    host.Refuse("scRunQuery", AsSent("UPDATE EQUIPMENT SET USED = FALSE{NL} WHERE EQU = 'E1'"));
    EXPECT_FALSE(host.Run(Act("EditInfo", {"EQU"})));
    EXPECT_TRUE(host.Effects().ends_with(Lines({MessageLine("UpdateEQU", "61009, \"E1\""), rollBack})));
  }
}

// The keys of the instrument 3 are those of definition 4.
const std::string readKeys =
    "SELECT Value FROM ParamValueDesc WHERE Command = 'KSANI' AND  Param = 'KEY' AND DefinitionNo = 4";
const std::string readKeysCall =
    "scRunQuery(\"SELECT Value FROM ParamValueDesc WHERE Command = 'KSANI' AND  Param = 'KEY' AND DefinitionNo = 4\", "
    "out, \"static\")";

std::string DeleteOther(const std::string& table, const std::string& keys) {
  return "DELETE * FROM " + table + " WHERE DIR ='100' AND Key NOT IN " + keys;
}

void ScriptEditOfInstrument(ScriptedHost& host) {
  host.Param("DIR", "100");
  host.Param("ITYPE", "3");
  host.Rows(readKeys, {{" 1 ", "2", "A1"}});
}

TEST(KSEXI, EditOfTheInstrumentDeletesWhatIsOnKeysThatTheNewOneDoesNotHave) {
  ScriptedHost host;
  ScriptEditOfInstrument(host);
  EXPECT_TRUE(host.Run(Act("EditInfo", {"ITYPE"})));
  const std::string keys = "('1','2','A1')";
  EXPECT_EQ(host.Calls(),
            Lines({start, Read("ITYPE"), Read("DIR"), readKeysCall, StatementLine(DeleteOther("KSFKC", keys)),
                   StatementLine(DeleteOther("KSANI", keys)), StatementLine(DeleteOther("KSMDI", keys)),
                   StatementLine(Write("ITYPE", "3")), commit}));
}

TEST(KSEXI, EditOfTheInstrumentStopsAtTheStepThatFails) {
  const std::string keys = "('1','2','A1')";
  const std::vector<std::string> steps = {DeleteOther("KSFKC", keys), DeleteOther("KSANI", keys),
                                          DeleteOther("KSMDI", keys), Write("ITYPE", "3")};
  for (std::size_t i = 0; i < steps.size(); ++i) {
    ScriptedHost host;
    ScriptEditOfInstrument(host);
    host.Refuse("scRunQuery", steps[i]);
    EXPECT_FALSE(host.Run(Act("EditInfo", {"ITYPE"})));
    std::string expected = Lines({start, readKeysCall});
    for (std::size_t done = 0; done <= i; ++done) expected += Lines({StatementLine(steps[done])});
    EXPECT_EQ(host.Effects(), expected + Lines({MessageLine(editing, "61011, \"ITYPE\""), rollBack}));
  }
}

TEST(KSEXI, EditToAnInstrumentWithoutKeysMakesAStatementThatCannotRun) {
  ScriptedHost host;
  host.Param("DIR", "100");
  host.Param("ITYPE", "3");
  host.Rows(readKeys, {});
  host.Refuse("scRunQuery", DeleteOther("KSFKC", ""));
  EXPECT_FALSE(host.Run(Act("EditInfo", {"ITYPE"})));
  EXPECT_EQ(host.Effects(), Lines({start, readKeysCall, StatementLine(DeleteOther("KSFKC", "")),
                                   MessageLine(editing, "61011, \"ITYPE\""), rollBack}));
}

TEST(KSEXI, EditTakesKeysThatCannotBeReadForNone) {
  ScriptedHost host;
  host.Param("DIR", "100");
  host.Param("ITYPE", "3");
  host.Refuse("scRunQuery", readKeys);
  host.Refuse("scRunQuery", DeleteOther("KSFKC", ""));
  EXPECT_FALSE(host.Run(Act("EditInfo", {"ITYPE"})));
  EXPECT_EQ(host.Effects(), Lines({start, readKeysCall, StatementLine(DeleteOther("KSFKC", "")),
                                   MessageLine(editing, "61011, \"ITYPE\""), rollBack}));
}

TEST(KSEXI, EditReportsThatTheTransactionDidNotStartCommitOrRollBack) {
  {
    ScriptedHost host;
    host.Refuse("scStartTransaction");
    host.Refuse("scRollBackTransaction");
    EXPECT_FALSE(host.Run(Act("EditInfo", {"TRM"})));
    EXPECT_EQ(host.Calls(), Lines({start, MessageLine(editing, "62010"), rollBack, MessageLine(editing, "62012")}));
  }
  {
    ScriptedHost host;
    host.Refuse("scCommitTransaction");
    EXPECT_TRUE(host.Run(Act("EditInfo", {"TRM"})));
    EXPECT_TRUE(host.Calls().ends_with(Lines({commit, MessageLine(editing, "62011")})));
  }
}

// --- Delete.

const std::string readRecord = "SELECT DIR, EQU, ACCTYP FROM KSEXI  WHERE CmdID = 7";
const std::string deleting = "Delete: KSEXI";
const std::string deleteTerminals = "DELETE * FROM ITNUI WHERE EQU = 'E1'";

TEST(KSEXI, DeleteFreesNumberAndPositionAndLeavesTheRecord) {
  for (const Value& ACCTYP : {Value(), Value::Null(), Value("")}) {
    ScriptedHost host;
    host.Rows(readRecord, {{"100"}, {"E1"}, {ACCTYP}});
    EXPECT_TRUE(host.Run(Act("DeleteInfo")));
    EXPECT_EQ(host.Calls(), Lines({start, QueryLine(readRecord), FreeNumber("100"),
                                   StatementLine(MarkPositionSql("E1", "False")), commit}));
  }
}

TEST(KSEXI, DeleteRemovesTheTerminalsOfAPositionThatMayCarryThem) {
  ScriptedHost host;
  host.Rows(readRecord, {{"100"}, {"E1"}, {"1"}});
  EXPECT_TRUE(host.Run(Act("DeleteInfo")));
  EXPECT_EQ(host.Calls(),
            Lines({start, QueryLine(readRecord), FreeNumber("100"), StatementLine(MarkPositionSql("E1", "False")),
                   StatementLine(deleteTerminals), commit}));
}

TEST(KSEXI, DeleteReportsTheStepThatFails) {
  const auto run = [](const std::string& statement) {
    ScriptedHost host;
    if (statement != readRecord) host.Rows(readRecord, {{"100"}, {"E1"}, {"1"}});
    host.Refuse("scRunQuery", statement);
    EXPECT_FALSE(host.Run(Act("DeleteInfo")));
    return host.Calls();
  };
  EXPECT_EQ(run(readRecord), Lines({start, QueryLine(readRecord),
                                    MessageLine(deleting, "60004, \"DIR, EQU\", \"EXTEIDIR\""), rollBack}));
  EXPECT_EQ(run(AsSent(ForgetNumberSql("100"))), Lines({start, QueryLine(readRecord), FreeNumber("100"),
                                                        MessageLine("DeleteExtOpeGrp: 100", "62000"), rollBack}));
  EXPECT_EQ(run(AsSent(MarkPositionSql("E1", "False"))),
            Lines({start, QueryLine(readRecord), FreeNumber("100"), StatementLine(MarkPositionSql("E1", "False")),
                   MessageLine("SetEquipmentUsed", "61010, \"E1\""), rollBack}));
  EXPECT_EQ(run(deleteTerminals),
            Lines({start, QueryLine(readRecord), FreeNumber("100"), StatementLine(MarkPositionSql("E1", "False")),
                   StatementLine(deleteTerminals), MessageLine(deleting, "62000"), rollBack}));
}

TEST(KSEXI, DeleteOfARecordThatIsGoneReportsAndRollsBack) {
  ScriptedHost host;
  host.Rows(readRecord, {});
  EXPECT_FALSE(host.Run(Act("DeleteInfo")));
  EXPECT_EQ(host.Calls(), Lines({start, QueryLine(readRecord), MessageLine(deleting, "61007"), rollBack}));
}

TEST(KSEXI, DeleteReportsThatTheTransactionDidNotStartCommitOrRollBack) {
  {
    ScriptedHost host;
    host.Refuse("scStartTransaction");
    host.Refuse("scRollBackTransaction");
    EXPECT_FALSE(host.Run(Act("DeleteInfo")));
    EXPECT_EQ(host.Calls(), Lines({start, MessageLine(deleting, "62010"), rollBack, MessageLine(deleting, "62012")}));
  }
  {
    ScriptedHost host;
    host.Rows(readRecord, {{"100"}, {"E1"}, {""}});
    host.Refuse("scCommitTransaction");
    EXPECT_TRUE(host.Run(Act("DeleteInfo")));
    EXPECT_TRUE(host.Calls().ends_with(Lines({commit, MessageLine(deleting, "62011")})));
  }
}

// --- Generate.

const Value Null = Value::Null();
const std::string readLater = "SELECT DIR,EQU,CAT,TRAF,SERV,CDIV,ROC,ITYPE,ADC,TRM,CUST,CALALT,LANG,ACCTYP FROM KSEXI";
const std::string readR6 = "SELECT DIR,EQU,CAT,TRAF,SERV,CDIV,ROC,ITYPE,ADC,TRM,CUST,CALALT,ACCTYP FROM KSEXI";

std::string Built(const std::string& line) { return StatementLine("INSERT INTO BuiltCmd VALUES (12,'" + line + "')"); }

TEST(KSEXI, GeneratesAllParametersInTheOrderOfTheLine) {
  ScriptedHost host;
  host.Rows(readLater, ByColumn({{" 100 ", "E1", "3", "t", "s", "c", "r", "12", "a", "tr", "cu", "ca", "la", "ac"},
                                 {"101", Null, Null, "t", "s", "c", "r", Null, Null, Null, Null, Null, Null, Null}}));
  EXPECT_TRUE(host.Run(Act("GenerateCmd", {"12"})));
  EXPECT_EQ(host.Calls(),
            Lines({QueryLine(readLater),
                   Built("KSEXI:DIR=100,ITYPE=12,ACCTYP=ac,EQU=E1,CAT=3,ADC=a,TRM=tr,CUST=cu,CALALT=ca,LANG=la;"),
                   Built("KSEXI:DIR=101,TRAF=t,SERV=s,CDIV=c,ROC=r;")}));
}

TEST(KSEXI, GeneratesWithoutLANGForR6) {
  for (const char* release : {"R6", "R6/1"}) {
    ScriptedHost host;
    host.Rows(readR6, ByColumn({{"100", "E1", "3", "t", "s", "c", "r", "12", "a", "tr", "cu", "ca", "ac"}}));
    EXPECT_TRUE(host.Run(Act("GenerateCmd", {"12"}, release)));
    EXPECT_EQ(host.Calls(),
              Lines({QueryLine(readR6),
                     Built("KSEXI:DIR=100,ITYPE=12,ACCTYP=ac,EQU=E1,CAT=3,ADC=a,TRM=tr,CUST=cu,CALALT=ca;")}));
  }
}

TEST(KSEXI, GeneratesBlanksTrimmedAndEmptyTextsWithTheirNamesAsTheyAreNotNull) {
  ScriptedHost host;
  host.Rows(readLater, ByColumn({std::vector<Value>(14, " "), std::vector<Value>(14, " x ")}));
  EXPECT_TRUE(host.Run(Act("GenerateCmd", {"12"})));
  EXPECT_EQ(host.Effects(),
            Lines({QueryLine(readLater),
                   Built("KSEXI:DIR=,ITYPE=,ACCTYP=,EQU=,TRAF=,SERV=,CDIV=,ROC=,ADC=,TRM=,CUST=,CALALT=,LANG=;"),
                   Built("KSEXI:DIR=x,ITYPE=x,ACCTYP=x,EQU=x,CAT=x,ADC=x,TRM=x,CUST=x,CALALT=x,LANG=x;")}));
}

TEST(KSEXI, GeneratesAllFourStringsInThePlaceOfACategoryEvenWithoutValues) {
  ScriptedHost host;
  host.Rows(readLater, ByColumn({{"100", Null, Null, Null, Null, Null, Null, Null, Null, Null, Null, Null, Null, Null},
                                 {"101", Null, "", "", "", "", "", Null, Null, Null, Null, Null, Null, Null}}));
  EXPECT_TRUE(host.Run(Act("GenerateCmd", {"12"})));
  EXPECT_EQ(host.Effects(), Lines({QueryLine(readLater), Built("KSEXI:DIR=100,TRAF=,SERV=,CDIV=,ROC=;"),
                                   Built("KSEXI:DIR=101,TRAF=,SERV=,CDIV=,ROC=;")}));
}

TEST(KSEXI, GeneratesAnEmptyTextAsACategoryOnR6Alone) {
  ScriptedHost host;
  host.Rows(readR6, ByColumn({{"101", Null, " ", "t", "s", "c", "r", Null, Null, Null, Null, Null, Null},
                              {"102", Null, Null, "t", "s", "c", "r", Null, Null, Null, Null, Null, Null}}));
  EXPECT_TRUE(host.Run(Act("GenerateCmd", {"12"}, "R6")));
  EXPECT_EQ(host.Effects(), Lines({QueryLine(readR6), Built("KSEXI:DIR=101,CAT=;"),
                                   Built("KSEXI:DIR=102,TRAF=t,SERV=s,CDIV=c,ROC=r;")}));
}

TEST(KSEXI, GeneratesTheLineBeforeOnceMoreForARecordWithoutNumberPositionAndInstrument) {
  const std::vector<Value> nothing(14, Null);
  std::vector<Value> something(14, Null);
  something[1] = "E1";
  something[2] = "3";
  ScriptedHost host;
  host.Rows(readLater, ByColumn({nothing, something, nothing}));
  EXPECT_TRUE(host.Run(Act("GenerateCmd", {"12"})));
  EXPECT_EQ(host.Effects(), Lines({QueryLine(readLater), Built(""), Built("KSEXI:DIR=,EQU=E1,CAT=3;"),
                                   Built("KSEXI:DIR=,EQU=E1,CAT=3;")}));
}

TEST(KSEXI, GenerateAnswersTrueForAnEmptyTableAndForOneThatCannotBeRead) {
  ScriptedHost host;
  host.Rows(readLater, {});
  EXPECT_TRUE(host.Run(Act("GenerateCmd", {"12"})));
  host.Refuse("scRunQuery", readLater);
  EXPECT_TRUE(host.Run(Act("GenerateCmd", {"12"})));
  EXPECT_EQ(host.Calls(), Lines({QueryLine(readLater), QueryLine(readLater)}));
}

TEST(KSEXI, GenerateGoesOnBehindALineThatWasNotWrittenAndAnswersForTheLast) {
  std::vector<Value> first(14, Null);
  first[0] = "100";
  first[2] = "3";
  std::vector<Value> second = first;
  second[0] = "101";
  const std::string firstLine = "INSERT INTO BuiltCmd VALUES (12,'KSEXI:DIR=100,CAT=3;')";
  const std::string secondLine = "INSERT INTO BuiltCmd VALUES (12,'KSEXI:DIR=101,CAT=3;')";
  for (const bool firstFails : {true, false}) {
    ScriptedHost host;
    host.Rows(readLater, ByColumn({first, second}));
    host.Refuse("scRunQuery", firstFails ? firstLine : secondLine);
    EXPECT_EQ(host.Run(Act("GenerateCmd", {"12"})), firstFails);
    const std::string failed = MessageLine("Generating: KSEXI", "61019");
    EXPECT_EQ(host.Calls(),
              firstFails ? Lines({QueryLine(readLater), StatementLine(firstLine), failed, StatementLine(secondLine)})
                         : Lines({QueryLine(readLater), StatementLine(firstLine), StatementLine(secondLine), failed}));
  }
}

}  // namespace
}  // namespace cordboard
