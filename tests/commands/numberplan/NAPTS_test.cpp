#include <gtest/gtest.h>

#include "script/RunTimeFailure.h"
#include "support/ScriptedHost.h"

namespace cordboard {
namespace {

Action Act(const std::string& function, List parameters = {}) {
  return {.oaRelease = "R7", .FunctionName = function, .CmdName = "NAPTS", .CmdId = 7, .ParamList = parameters};
}

const Value null = Value::Null();
const std::string start = "scStartTransaction()";
const std::string commit = "scCommitTransaction()";
const std::string rollBack = "scRollBackTransaction()";
const std::string numbersCall = "scGetValueArray(\"EXL\", out)";
const std::string positionsCall = "scGetValueArray(\"POS\", out)";
const std::string newRecord = "scBuildCmdID()";

std::string Read(const std::string& name) { return "scGetParamValue(\"" + name + "\")"; }
std::string Line(const std::string& text) { return "scPrintToDebugWindow(\"" + text + "\")"; }
std::string FindSql(const std::string& EXL) { return "SELECT EXL FROM NAPTS\r\n WHERE EXL = '" + EXL + "'"; }
std::string Find(const std::string& EXL) {
  return "scRunQuery(\"SELECT EXL FROM NAPTS{NL} WHERE EXL = '" + EXL + "'\", out)";
}
std::string Insert(const std::string& values) {
  return "scSQLInsert(\"NAPTS\", [\"CmdID\", \"EXL\", \"POS\", \"POS1\", \"POS2\", \"POS3\", \"POS4\", \"POS5\", "
         "\"POS6\"], [" +
         values + "])";
}
std::string AddMessage(const std::string& rest) { return "scErrorMessage(0, 2, 2, \"Add: NAPTS\", " + rest + ")"; }
const std::string refused = Lines({AddMessage("60010"), Line("That number series has already been used")});

// --- Routing.

TEST(NAPTS, ListsTheThirdDigitOfEveryPositionFromTheFixedValues) {
  for (const char* name : {"POS1_D3", "POS2_D3", "POS3_D3", "POS4_D3", "POS5_D3", "POS6_D3"}) {
    ScriptedHost host;
    EXPECT_TRUE(host.Run(Act("GetValidValForParam", {name})));
    EXPECT_EQ(host.Calls(), Lines({"scSQLSelectValuesAndDesc()"}));
  }
}

TEST(NAPTS, ReportsAListThatCouldNotBeBuilt) {
  ScriptedHost host;
  host.Refuse("scSQLSelectValuesAndDesc");
  EXPECT_FALSE(host.Run(Act("GetValidValForParam", {"POS4_D3"})));
  EXPECT_EQ(host.Calls(), Lines({"scSQLSelectValuesAndDesc()",
                                 "scErrorMessage(0, 2, 2, \"GetValuesAndDescription\", 61021, \"POS4_D3\")"}));
}

TEST(NAPTS, ServesNoOtherParameterAndNoOtherAction) {
  ScriptedHost host;
  EXPECT_FALSE(host.Run(Act("GetValidValForParam", {"POS1_D1D2"})));
  EXPECT_FALSE(host.Run(Act("GetValidValForParam", {"POS7_D3"})));
  EXPECT_FALSE(host.Run(Act("StatCheck", {"POS1_D3"})));
  EXPECT_FALSE(host.Run(Act("GenerateCmd", {"1"})));
  EXPECT_EQ(host.Calls(), "");
}

TEST(NAPTS, DeletesAsCommandsDo) {
  ScriptedHost host;
  EXPECT_TRUE(host.Run(Act("DeleteInfo")));
  EXPECT_EQ(host.Calls(), Lines({start, "scRunQuery(\"DELETE * FROM NAPTS{NL} WHERE CmdId = 7\")", commit}));
}

// --- Add.

TEST(NAPTS, AddTakesThePositionsOneByOneFromTheValuesOfPOS) {
  ScriptedHost host;
  host.Array("EXL", {"5", "6"});
  host.Param("POS", "1&2&3");
  host.Array("POS", {"1", "2", "3"});
  host.Rows(FindSql("5"), {});
  host.Rows(FindSql("6"), {});
  EXPECT_TRUE(host.Run(Act("SetInfo", {"CMDID"})));
  const std::string positions = Lines({Read("POS"), Line("POS = 1&2&3"), positionsCall, Line("POS1 = 1"),
                                       Line("POS2 = 2"), Line("POS3 = 3"), newRecord});
  EXPECT_EQ(host.Calls(),
            Lines({start, numbersCall, Line("EXL = 5"), Find("5")}) + positions +
                Lines({Insert("1001, \"5\", \"1&2&3\", \"1\", \"2\", \"3\", Empty, Empty, Empty"), Line("EXL = 6"),
                       Find("6")}) +
                positions +
                Lines({Insert("1002, \"6\", \"1&2&3\", \"1\", \"2\", \"3\", Empty, Empty, Empty"), commit}));
}

TEST(NAPTS, AddJoinsSinglePositionsIntoPOSWhereItIsTheEmptyText) {
  ScriptedHost host;
  host.Array("EXL", {"5"});
  host.Param("POS", "");
  host.Param("POS2", "12");
  host.Param("POS3", "");  // an empty text counts as given
  host.Param("POS6", 16);
  host.Rows(FindSql("5"), {});
  EXPECT_TRUE(host.Run(Act("SetInfo")));
  EXPECT_EQ(host.Calls(),
            Lines({start,           numbersCall,
                   Line("EXL = 5"), Find("5"),
                   Read("POS"),     Line("POS = "),
                   Read("POS1"),    Line("POS1 = "),
                   Read("POS2"),    Line("POS2 = 12"),
                   Read("POS3"),    Line("POS3 = "),
                   Read("POS4"),    Line("POS4 = "),
                   Read("POS5"),    Line("POS5 = "),
                   Read("POS6"),    Line("POS6 = 16"),
                   newRecord,       Insert("1001, \"5\", \"12&&16\", Empty, \"12\", \"\", Empty, Empty, 16"),
                   commit}));
}

TEST(NAPTS, AddJoinsAllSixPositions) {
  ScriptedHost host;
  host.Array("EXL", {"5"});
  host.Param("POS", "");
  for (const char* digit : {"1", "2", "3", "4", "5", "6"}) host.Param(std::string("POS") + digit, digit);
  host.Rows(FindSql("5"), {});
  EXPECT_TRUE(host.Run(Act("SetInfo")));
  EXPECT_EQ(host.Effects(),
            Lines({start, numbersCall, Line("EXL = 5"), Find("5"), Line("POS = "), Line("POS1 = 1"), Line("POS2 = 2"),
                   Line("POS3 = 3"), Line("POS4 = 4"), Line("POS5 = 5"), Line("POS6 = 6"), newRecord,
                   Insert("1001, \"5\", \"1&2&3&4&5&6\", \"1\", \"2\", \"3\", \"4\", \"5\", \"6\""), commit}));
}

TEST(NAPTS, AddWithNoPositionLeavesPOSTheEmptyText) {
  ScriptedHost host;
  host.Array("EXL", {"5"});
  host.Param("POS", "");
  host.Rows(FindSql("5"), {});
  EXPECT_TRUE(host.Run(Act("SetInfo")));
  EXPECT_NE(host.Calls().find(Insert("1001, \"5\", \"\", Empty, Empty, Empty, Empty, Empty, Empty")),
            std::string::npos);
}

TEST(NAPTS, AddReadsThePositionsOneByOneWherePOSWasNeverGiven) {
  ScriptedHost host;
  host.Array("EXL", {"5"});
  host.Param("POS1", "12");
  host.Param("POS3", "14");
  host.Rows(FindSql("5"), {});
  EXPECT_TRUE(host.Run(Act("SetInfo")));
  EXPECT_EQ(host.Effects(),
            Lines({start, numbersCall, Line("EXL = 5"), Find("5"), Line("POS = "), Line("POS1 = 12"), Line("POS2 = "),
                   Line("POS3 = 14"), Line("POS4 = "), Line("POS5 = "), Line("POS6 = "), newRecord,
                   Insert("1001, \"5\", \"12&14\", \"12\", Empty, \"14\", Empty, Empty, Empty"), commit}));
}

TEST(NAPTS, AddAsksForTheValuesOfPOSWhereItIsNull) {
  for (const Value& POS : {null}) {
    ScriptedHost host;
    host.Array("EXL", {"5"});
    host.Param("POS", POS);
    host.Array("POS", List(std::vector<Value>()));
    host.Rows(FindSql("5"), {});
    EXPECT_TRUE(host.Run(Act("SetInfo")));
    EXPECT_EQ(host.Effects(),
              Lines({start, numbersCall, Line("EXL = 5"), Find("5"), Line("POS = "), positionsCall, newRecord,
                     Insert("1001, \"5\", " + TraceText(POS) + ", Empty, Empty, Empty, Empty, Empty, Empty"), commit}));
  }
}

TEST(NAPTS, AddTakesSixPositionsAndFailsTheCallOnASeventh) {
  {
    ScriptedHost host;
    host.Array("EXL", {"5"});
    host.Param("POS", "1&&6");
    host.Array("POS", {"1", "2", "3", "4", "5", "6"});
    host.Rows(FindSql("5"), {});
    EXPECT_TRUE(host.Run(Act("SetInfo")));
  }
  {
    ScriptedHost host;
    host.Array("EXL", {"5"});
    host.Param("POS", "1&&7");
    host.Array("POS", {"1", "2", "3", "4", "5", "6", "7"});
    host.Rows(FindSql("5"), {});
    EXPECT_THROW(host.Run(Act("SetInfo")), RunTimeFailure);
    EXPECT_EQ(host.Effects(), Lines({start, numbersCall, Line("EXL = 5"), Find("5"), Line("POS = 1&&7"), positionsCall,
                                     Line("POS1 = 1"), Line("POS2 = 2"), Line("POS3 = 3"), Line("POS4 = 4"),
                                     Line("POS5 = 5"), Line("POS6 = 6")}));
  }
}

TEST(NAPTS, AddOfAListWithoutBoundsFailsTheCall) {
  {
    ScriptedHost host;
    host.Array("EXL", List());
    EXPECT_THROW(host.Run(Act("SetInfo")), RunTimeFailure);
    EXPECT_EQ(host.Calls(), Lines({start, numbersCall}));
  }
  {
    ScriptedHost host;
    host.Array("EXL", {"5"});
    host.Param("POS", "1");
    host.Array("POS", List());
    host.Rows(FindSql("5"), {});
    EXPECT_THROW(host.Run(Act("SetInfo")), RunTimeFailure);
  }
}

TEST(NAPTS, AddWithoutNumbersReportsAndRollsBack) {
  ScriptedHost host;
  host.Refuse("scGetValueArray", "EXL");
  EXPECT_FALSE(host.Run(Act("SetInfo")));
  EXPECT_EQ(host.Calls(), Lines({start, numbersCall, AddMessage("61020, \"EXL\""), rollBack}));
}

TEST(NAPTS, AddEndsWhereANumberCannotBeLookedUp) {
  ScriptedHost host;
  host.Array("EXL", {"5", "6"});
  host.Refuse("scRunQuery", FindSql("5"));
  EXPECT_FALSE(host.Run(Act("SetInfo")));
  EXPECT_EQ(host.Calls(),
            Lines({start, numbersCall, Line("EXL = 5"), Find("5"), AddMessage("61020, \"EXL\""), rollBack}));
}

TEST(NAPTS, AddEndsWhereThePositionsCannotBeHad) {
  ScriptedHost host;
  host.Array("EXL", {"5", "6"});
  host.Param("POS", "1");
  host.Rows(FindSql("5"), {});
  host.Refuse("scGetValueArray", "POS");
  EXPECT_FALSE(host.Run(Act("SetInfo")));
  EXPECT_EQ(host.Effects(), Lines({start, numbersCall, Line("EXL = 5"), Find("5"), Line("POS = 1"), positionsCall,
                                   AddMessage("61020, \"POS\""), rollBack}));
}

TEST(NAPTS, AddEndsAtAnInsertThatFails) {
  ScriptedHost host;
  host.Array("EXL", {"5", "6"});
  host.Param("POS", "1");
  host.Array("POS", {"1"});
  host.Rows(FindSql("5"), {});
  host.Refuse("scSQLInsert");
  EXPECT_FALSE(host.Run(Act("SetInfo")));
  EXPECT_EQ(host.Effects(),
            Lines({start, numbersCall, Line("EXL = 5"), Find("5"), Line("POS = 1"), positionsCall, Line("POS1 = 1"),
                   newRecord, Insert("1001, \"5\", \"1\", \"1\", Empty, Empty, Empty, Empty, Empty"),
                   AddMessage("61024, \"NAPTS\""), rollBack}));
}

TEST(NAPTS, NumberGivenTwiceFindsItsOwnRecordAndRollsBackTheWholeAdd) {
  ScriptedHost host;
  host.Array("EXL", {"5", "5"});
  host.Param("POS", "1");
  host.Array("POS", {"1"});
  host.Rows(FindSql("5"), {});
  host.Rows(FindSql("5"), {{"5"}});
  EXPECT_FALSE(host.Run(Act("SetInfo")));
  EXPECT_EQ(host.Effects(),
            Lines({start, numbersCall, Line("EXL = 5"), Find("5"), Line("POS = 1"), positionsCall, Line("POS1 = 1"),
                   newRecord, Insert("1001, \"5\", \"1\", \"1\", Empty, Empty, Empty, Empty, Empty"), Line("EXL = 5"),
                   Find("5")}) +
                refused + Lines({rollBack}));
}

TEST(NAPTS, NumberInUseStaysARefusalWhileThoseBehindItAreInserted) {
  ScriptedHost host;
  host.Array("EXL", {"5", "6", "7"});
  host.Param("POS", "1");
  host.Array("POS", {"1"});
  host.Rows(FindSql("5"), {{"5"}});
  host.Rows(FindSql("6"), {});
  host.Rows(FindSql("7"), {{"7"}});
  EXPECT_FALSE(host.Run(Act("SetInfo")));
  EXPECT_EQ(
      host.Effects(),
      Lines({start, numbersCall, Line("EXL = 5"), Find("5")}) + refused +
          Lines({Line("EXL = 6"), Find("6"), Line("POS = 1"), positionsCall, Line("POS1 = 1"), newRecord,
                 Insert("1001, \"6\", \"1\", \"1\", Empty, Empty, Empty, Empty, Empty"), Line("EXL = 7"), Find("7")}) +
          refused + Lines({rollBack}));
}

TEST(NAPTS, SinglePositionsAfterANumberInUseAreReportedInsteadOfRead) {
  ScriptedHost host;
  host.Array("EXL", {"5", "6"});
  host.Param("POS", "");
  host.Param("POS1", "12");
  host.Rows(FindSql("5"), {{"5"}});
  host.Rows(FindSql("6"), {});
  EXPECT_FALSE(host.Run(Act("SetInfo")));
  EXPECT_EQ(host.Calls(),
            Lines({start, numbersCall, Line("EXL = 5"), Find("5")}) + refused +
                Lines({Line("EXL = 6"), Find("6"), Read("POS"), Line("POS = "), AddMessage("61020, \"POS\""), newRecord,
                       Insert("1001, \"6\", \"\", Empty, Empty, Empty, Empty, Empty, Empty"), rollBack}));
}

// --- Edit.

std::string UpdateSql(const std::string& assignment) {
  return "UPDATE NAPTS SET " + assignment + "\r\n WHERE CmdId = 7";
}
std::string Update(const std::string& assignment) {
  return "scRunQuery(\"UPDATE NAPTS SET " + assignment + "{NL} WHERE CmdId = 7\")";
}
const List nothing{std::vector<Value>()};

TEST(NAPTS, EditWritesEachParameterAndThenPOSFromTheForm) {
  ScriptedHost host;
  host.Param("EXL", "5");
  host.Param("POS1", "1");
  host.Param("POS2", "2");
  EXPECT_TRUE(host.Run(Act("EditInfo", {"EXL", "POS2", "POS3"})));
  EXPECT_EQ(host.Calls(), Lines({start, Read("EXL"), Update("EXL = '5'"), Read("POS2"), Update("POS2 = '2'"),
                                 Read("POS3"), Update("POS3 = ''"), Read("POS1"), Read("POS2"), Read("POS3"),
                                 Read("POS4"), Read("POS5"), Read("POS6"), Update("POS = '1&2'"), commit}));
}

struct Positions {
  std::vector<Value> given;
  const char* text;
};

class NAPTSPositions : public testing::TestWithParam<Positions> {};

TEST_P(NAPTSPositions, AreJoinedAtTheEdit) {
  const auto& [given, text] = GetParam();
  ScriptedHost host;
  for (std::size_t i = 0; i < given.size(); ++i) host.Param("POS" + std::to_string(i + 1), given[i]);
  EXPECT_TRUE(host.Run(Act("EditInfo", nothing)));
  EXPECT_EQ(host.Effects(), Lines({start, Update("POS = '" + std::string(text) + "'"), commit}));
}

INSTANTIATE_TEST_SUITE_P(WithAndWithoutGaps, NAPTSPositions,
                         testing::Values(Positions{{}, ""}, Positions{{"1"}, "1"},
                                         Positions{{"1", "2", "3", "4", "5"}, "1&2&3&4&5"},
                                         // The sixth is left out, its "&" is not.
                                         Positions{{"1", "2", "3", "4", "5", "6"}, "1&2&3&4&5&"},
                                         Positions{{Value(), Value(), Value(), Value(), Value(), "6"}, ""},
                                         Positions{{Value(), Value(), Value(), Value(), "5", "6"}, "5&"},
                                         // A gap takes the "&" with it.
                                         Positions{{"1", Value(), "3"}, "13"}, Positions{{Value(), "2", "3"}, "2&3"},
                                         // An empty text and a null count as given.
                                         Positions{{"1", "", "3"}, "1&&3"}, Positions{{"1", null, "3"}, "1&&3"}));

TEST(NAPTS, EditGoesOnBehindAnUpdateThatFailsAndAnswersForPOS) {
  ScriptedHost host;
  host.Param("EXL", "5");
  host.Refuse("scRunQuery", UpdateSql("EXL = '5'"));
  EXPECT_TRUE(host.Run(Act("EditInfo", {"EXL", "POS1"})));
  EXPECT_EQ(host.Effects(),
            Lines({start, Update("EXL = '5'"), "scErrorMessage(0, 2, 2, \"Edit: NAPTS\", 60001, \"EXL\", \"NAPTS\")",
                   Update("POS1 = ''"), Update("POS = ''"), commit}));
}

TEST(NAPTS, EditThatCannotWritePOSRollsBack) {
  ScriptedHost host;
  host.Refuse("scRunQuery", UpdateSql("POS = ''"));
  EXPECT_FALSE(host.Run(Act("EditInfo", {"POS1"})));
  EXPECT_EQ(host.Effects(), Lines({start, Update("POS1 = ''"), Update("POS = ''"),
                                   "scErrorMessage(0, 2, 2, \"Edit: NAPTS\", 61024, \"NAPTS\")", rollBack}));
}

TEST(NAPTS, ReportsATransactionThatFails) {
  {
    ScriptedHost host;
    host.Refuse("scStartTransaction");
    host.Refuse("scRollBackTransaction");
    EXPECT_FALSE(host.Run(Act("SetInfo")));
    EXPECT_EQ(host.Calls(), Lines({start, AddMessage("62010"), rollBack, AddMessage("62012")}));
  }
  {
    ScriptedHost host;
    host.Refuse("scCommitTransaction");
    EXPECT_TRUE(host.Run(Act("EditInfo", nothing)));
    EXPECT_EQ(host.Effects(),
              Lines({start, Update("POS = ''"), commit, "scErrorMessage(0, 2, 2, \"Edit: NAPTS\", 62011)"}));
  }
}

// --- Static check of the positions.

const std::string optional = "scSetParamOptional(\"POS\", True)";
const std::string previousCall = "scGetPreviousValue(out)";
std::string Remove(const std::string& name, const std::string& value) {
  return "scRemoveFromValidValues(\"" + name + "\", " + value + ")";
}
std::string Push(const std::string& value, const std::string& name) {
  return "scPushValidValues(" + value + ", \"" + name + "\")";
}

TEST(NAPTS, ChosenPositionLeavesTheFiveOtherListsAndTheOneBeforeComesBack) {
  for (const std::string chosen : {"POS1_D1D2", "POS2_D1D2", "POS3_D1D2", "POS4_D1D2", "POS5_D1D2", "POS6_D1D2"}) {
    ScriptedHost host;
    host.Param(chosen, "13");
    host.PreviousValue("12");
    EXPECT_TRUE(host.Run(Act("StatCheck", {chosen})));
    std::string expected = Lines({Read(chosen), optional, previousCall, Push("\"12\"", chosen), Read(chosen)});
    for (const std::string other : {"POS1_D1D2", "POS2_D1D2", "POS3_D1D2", "POS4_D1D2", "POS5_D1D2", "POS6_D1D2"}) {
      if (other != chosen) expected += Lines({Remove(other, "\"13\""), Push("\"12\"", other)});
    }
    EXPECT_EQ(host.Calls(), expected);
  }
}

TEST(NAPTS, FirstChoiceOfAPositionPushesTheEmptyValueIntoTheOtherLists) {
  ScriptedHost host;
  host.Param("POS5_D1D2", "12");
  EXPECT_TRUE(host.Run(Act("StatCheck", {"POS5_D1D2"})));
  EXPECT_EQ(host.Calls(),
            Lines({Read("POS5_D1D2"), optional, previousCall, Read("POS5_D1D2"), Remove("POS1_D1D2", "\"12\""),
                   Push("Empty", "POS1_D1D2"), Remove("POS2_D1D2", "\"12\""), Push("Empty", "POS2_D1D2"),
                   Remove("POS3_D1D2", "\"12\""), Push("Empty", "POS3_D1D2"), Remove("POS4_D1D2", "\"12\""),
                   Push("Empty", "POS4_D1D2"), Remove("POS6_D1D2", "\"12\""), Push("Empty", "POS6_D1D2")}));
}

TEST(NAPTS, ClearedPositionPutsTheOneBeforeBackAndLeavesPOSAsItIs) {
  ScriptedHost host;
  host.PreviousValue("12");
  host.Refuse("scRemoveFromValidValues", "POS2_D1D2");
  EXPECT_FALSE(host.Run(Act("StatCheck", {"POS1_D1D2"})));
  EXPECT_EQ(host.Calls(),
            Lines({Read("POS1_D1D2"), previousCall, Push("\"12\"", "POS1_D1D2"), Read("POS1_D1D2"),
                   Remove("POS2_D1D2", "Empty"), "scErrorMessage(0, 2, 2, \"StatCheck\", 61013, \"POS2_D1D2\")"}));
}

TEST(NAPTS, CheckDoesNotTestTheStepsBeforeTheWalk) {
  ScriptedHost host;
  host.Param("POS1_D1D2", "13");
  host.PreviousValue("12");
  host.Refuse("scSetParamOptional");
  host.Refuse("scPushValidValues", "POS1_D1D2");
  EXPECT_TRUE(host.Run(Act("StatCheck", {"POS1_D1D2"})));
}

TEST(NAPTS, CheckStopsAtTheFirstListThatFailsAndTheLastTwoPositionsTraceIt) {
  const std::string line = Line(" Error Reseting the other Position values ");
  for (const std::string chosen : {"POS1_D1D2", "POS2_D1D2", "POS4_D1D2", "POS5_D1D2", "POS6_D1D2"}) {
    const std::string traced = chosen == "POS5_D1D2" || chosen == "POS6_D1D2" ? Lines({line}) : "";
    const std::string message = Lines({"scErrorMessage(0, 2, 2, \"StatCheck\", 61013, \"POS3_D1D2\")"}) + traced;
    for (const std::string step : {"scRemoveFromValidValues", "scPushValidValues"}) {
      ScriptedHost host;
      host.Param(chosen, "13");
      host.PreviousValue("12");
      host.Refuse(step, "POS3_D1D2");
      EXPECT_FALSE(host.Run(Act("StatCheck", {chosen})));
      std::string expected = Lines({Read(chosen), optional, previousCall, Push("\"12\"", chosen), Read(chosen)});
      for (const std::string other : {"POS1_D1D2", "POS2_D1D2"}) {
        if (other != chosen) expected += Lines({Remove(other, "\"13\""), Push("\"12\"", other)});
      }
      expected += Lines({Remove("POS3_D1D2", "\"13\"")});
      if (step == "scPushValidValues") expected += Lines({Push("\"12\"", "POS3_D1D2")});
      EXPECT_EQ(host.Calls(), expected + message);
    }
  }
}

}  // namespace
}  // namespace cordboard
