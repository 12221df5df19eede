#include <gtest/gtest.h>

#include "script/RunTimeFailure.h"
#include "support/ScriptedHost.h"

namespace cordboard {
namespace {

Action Act(const std::string& function, List parameters = {}) {
  return {.oaRelease = "R7", .FunctionName = function, .CmdName = "NANLS", .CmdId = 7, .ParamList = parameters};
}

const Value null = Value::Null();
const std::string start = "scStartTransaction()";
const std::string commit = "scCommitTransaction()";
const std::string rollBack = "scRollBackTransaction()";
const std::string valuesCall = "scGetValueArray(\"EXL\", out)";
const std::string debugLine = "scPrintToDebugWindow(\" Min Value cannot be greater than Max Value\")";

std::string Insert(const std::string& values) {
  return "scSQLInsert(\"NANLS\", [\"CmdID\", \"EXL\", \"MIN\", \"MAX\"], [" + values + "])";
}
std::string MinimumAboveMaximum(const std::string& context) {
  return "scErrorMessage(0, 2, 2, \"" + context + ": NANLS\", 60012, \"MIN\", \"MAX\")";
}
std::string LongerThanMinimum(const std::string& context) {
  return "scErrorMessage(0, 2, 2, \"" + context + ": NANLS\", 60032, \"MIN\", \"EXL\")";
}
std::string Read(const std::string& name) { return "scGetParamValue(\"" + name + "\")"; }

// --- Routing.

TEST(NANLS, ListsTheGreatestLengthsFromTheFixedValues) {
  ScriptedHost host;
  EXPECT_TRUE(host.Run(Act("GetValidValForParam", {"MAX"})));
  EXPECT_EQ(host.Calls(), Lines({"scSQLSelectValuesAndDesc()"}));
}

TEST(NANLS, ReportsAListThatCouldNotBeBuilt) {
  ScriptedHost host;
  host.Refuse("scSQLSelectValuesAndDesc");
  EXPECT_FALSE(host.Run(Act("GetValidValForParam", {"MAX"})));
  EXPECT_EQ(host.Calls(), Lines({"scSQLSelectValuesAndDesc()",
                                 "scErrorMessage(0, 2, 2, \"GetValuesAndDescription\", 61021, \"MAX\")"}));
}

TEST(NANLS, ServesNoOtherParameterAndNoOtherAction) {
  ScriptedHost host;
  EXPECT_FALSE(host.Run(Act("GetValidValForParam", {"MIN"})));
  EXPECT_FALSE(host.Run(Act("StatCheck", {"MAX"})));
  EXPECT_FALSE(host.Run(Act("GenerateCmd", {"1"})));
  EXPECT_EQ(host.Calls(), "");
}

TEST(NANLS, DeletesAsCommandsDo) {
  ScriptedHost host;
  EXPECT_TRUE(host.Run(Act("DeleteInfo")));
  EXPECT_EQ(host.Calls(), Lines({start, "scRunQuery(\"DELETE * FROM NANLS{NL} WHERE CmdId = 7\")", commit}));
}

// --- Add.

TEST(NANLS, AddMakesARecordForEachOfTheDigits) {
  ScriptedHost host;
  host.Array("EXL", {"12", "13"});
  host.Param("MIN", "2");
  host.Param("MAX", "10");
  EXPECT_TRUE(host.Run(Act("SetInfo", {"CMDID"})));
  EXPECT_EQ(host.Calls(),
            Lines({start, valuesCall, "scBuildCmdID()", Read("MIN"), Read("MAX"), Insert("1001, \"12\", \"2\", \"10\""),
                   "scBuildCmdID()", Read("MIN"), Read("MAX"), Insert("1002, \"13\", \"2\", \"10\""), commit}));
}

TEST(NANLS, AddWithoutAListRollsBackInSilence) {
  ScriptedHost host;
  host.Refuse("scGetValueArray");
  EXPECT_FALSE(host.Run(Act("SetInfo")));
  EXPECT_EQ(host.Calls(), Lines({start, valuesCall, rollBack}));
}

TEST(NANLS, AddOfAListWithoutBoundsFailsTheCall) {
  ScriptedHost host;
  host.Array("EXL", List());
  EXPECT_THROW(host.Run(Act("SetInfo")), RunTimeFailure);
}

struct Lengths {
  Value EXL;
  Value MIN;
  Value MAX;
  bool minimumAboveMaximum;
  bool longerThanMinimum;
};

class NANLSLengths : public testing::TestWithParam<Lengths> {};

TEST_P(NANLSLengths, AreCheckedAtTheAdd) {
  const auto& [EXL, MIN, MAX, minimumAboveMaximum, longerThanMinimum] = GetParam();
  ScriptedHost host;
  host.Array("EXL", {EXL});
  host.Param("MIN", MIN);
  host.Param("MAX", MAX);
  const bool fits = !minimumAboveMaximum && !longerThanMinimum;
  EXPECT_EQ(host.Run(Act("SetInfo")), fits);
  std::string expected = Lines({start, valuesCall, "scBuildCmdID()"});
  if (minimumAboveMaximum) expected += Lines({MinimumAboveMaximum("Add"), debugLine});
  if (longerThanMinimum) expected += Lines({LongerThanMinimum("Add")});
  if (fits) {
    expected += Lines({Insert("1001, " + TraceText(EXL) + ", " + TraceText(MIN) + ", " + TraceText(MAX)), commit});
  } else {
    expected += Lines({rollBack});
  }
  EXPECT_EQ(host.Effects(), expected);
}

INSTANTIATE_TEST_SUITE_P(
    BothSidesOfEveryLimit, NANLSLengths,
    testing::Values(Lengths{"123", "3", "3", false, false}, Lengths{"123", "2", "3", false, true},
                    Lengths{"12", "4", "3", true, false}, Lengths{"12", 4, 3, true, false},
                    Lengths{"123", "2", "1", true, true},
                    // Lengths compare as numbers, not as texts.
                    Lengths{"12", "9", "10", false, false}, Lengths{"12", "10", "9", true, false},
                    // Halves go to the even neighbour before the comparison.
                    Lengths{"12", "4.5", "4", false, false}, Lengths{"12", "5.5", "5", true, false},
                    // Blanks around the digits do not count.
                    Lengths{" 12 ", "2", "3", false, false},
                    // Without MAX, or with one that is no number, MIN is not compared; nothing counts as 0.
                    Lengths{"12", "2", Value(), false, false}, Lengths{"12", "2", null, false, false},
                    Lengths{"12", "2", "", false, false}, Lengths{"12", "A", Value(), false, false},
                    Lengths{"12", Value(), "3", false, true}, Lengths{"", Value(), "3", false, false},
                    Lengths{"12", null, Value(), false, false}));

TEST(NANLS, MinimumThatIsNoWholeNumberFailsTheCallWhereThereIsAMaximum) {
  for (const Value& MIN : {Value("A"), Value(""), Value("32768"), null}) {
    ScriptedHost host;
    host.Array("EXL", {"12"});
    host.Param("MIN", MIN);
    host.Param("MAX", "3");
    EXPECT_THROW(host.Run(Act("SetInfo")), RunTimeFailure);
    EXPECT_EQ(host.Effects(), Lines({start, valuesCall, "scBuildCmdID()"}));
  }
}

TEST(NANLS, AddGoesOnBehindDigitsThatAreRefusedAndInsertsNoMore) {
  ScriptedHost host;
  host.Array("EXL", {"12", "123", "1234", "13"});
  host.Param("MIN", "2");
  EXPECT_FALSE(host.Run(Act("SetInfo")));
  EXPECT_EQ(host.Effects(),
            Lines({start, valuesCall, "scBuildCmdID()", Insert("1001, \"12\", \"2\", Empty"), "scBuildCmdID()",
                   LongerThanMinimum("Add"), "scBuildCmdID()", LongerThanMinimum("Add"), "scBuildCmdID()", rollBack}));
}

TEST(NANLS, AddEndsAtAnInsertThatFails) {
  ScriptedHost host;
  host.Array("EXL", {"12", "13"});
  host.Param("MIN", "2");
  host.Refuse("scSQLInsert");
  EXPECT_FALSE(host.Run(Act("SetInfo")));
  EXPECT_EQ(host.Effects(), Lines({start, valuesCall, "scBuildCmdID()", Insert("1001, \"12\", \"2\", Empty"),
                                   "scErrorMessage(0, 2, 2, \"Add: NANLS\", 61024, \"NANLS\")", rollBack}));
}

TEST(NANLS, ReportsATransactionThatFails) {
  {
    ScriptedHost host;
    host.Refuse("scStartTransaction");
    host.Refuse("scRollBackTransaction");
    EXPECT_FALSE(host.Run(Act("SetInfo")));
    EXPECT_EQ(host.Calls(), Lines({start, "scErrorMessage(0, 2, 2, \"Add: NANLS\", 62010)", rollBack,
                                   "scErrorMessage(0, 2, 2, \"Add: NANLS\", 62012)"}));
  }
  {
    ScriptedHost host;
    host.Refuse("scCommitTransaction");
    EXPECT_TRUE(host.Run(Act("EditInfo", List(std::vector<Value>()))));
    EXPECT_EQ(host.Calls(), Lines({start, commit, "scErrorMessage(0, 2, 2, \"Edit: NANLS\", 62011)"}));
  }
}

// --- Edit.

const std::string readMAX = "SELECT MAX FROM NANLS WHERE CmdId = 7";
const std::string readMIN = "SELECT MIN FROM NANLS WHERE CmdId = 7";
const std::string readMAXCall = "scRunQuery(\"SELECT MAX FROM NANLS WHERE CmdId = 7\", out)";
const std::string readMINCall = "scRunQuery(\"SELECT MIN FROM NANLS WHERE CmdId = 7\", out)";
std::string Update(const std::string& assignment) {
  return "scRunQuery(\"UPDATE NANLS SET " + assignment + "{NL} WHERE CmdId = 7\")";
}

TEST(NANLS, EditChecksTheMinimumAgainstTheStoredMaximumAndTheDigitsOnTheForm) {
  ScriptedHost host;
  host.Rows(readMAX, {{"10"}});
  host.Param("MIN", "9");
  host.Param("EXL", "12");
  EXPECT_TRUE(host.Run(Act("EditInfo", {"MIN"})));
  EXPECT_EQ(host.Calls(), Lines({start, Read("MIN"), readMAXCall, Read("EXL"), Update("MIN = '9'"), commit}));
}

TEST(NANLS, EditRefusesAMinimumThatBreaksBothRules) {
  ScriptedHost host;
  host.Rows(readMAX, {{1}});
  host.Param("MIN", "2");
  host.Param("EXL", " 123 ");
  EXPECT_FALSE(host.Run(Act("EditInfo", {"MIN"})));
  EXPECT_EQ(host.Calls(), Lines({start, Read("MIN"), readMAXCall, MinimumAboveMaximum("Edit"), debugLine, Read("EXL"),
                                 LongerThanMinimum("Edit"), rollBack}));
}

TEST(NANLS, EditTakesAMinimumThatIsTheMaximumOrTheLengthOfTheDigits) {
  ScriptedHost host;
  host.Rows(readMAX, {{"3"}});
  host.Param("MIN", "3");
  host.Param("EXL", "123");
  EXPECT_TRUE(host.Run(Act("EditInfo", {"MIN"})));
  EXPECT_EQ(host.Effects(), Lines({start, readMAXCall, Update("MIN = '3'"), commit}));
}

TEST(NANLS, EditTakesAnyMinimumWhereNoMaximumIsStored) {
  for (const auto& rows : {std::vector<std::vector<Value>>{{null}}, std::vector<std::vector<Value>>{}}) {
    ScriptedHost host;
    host.Rows(readMAX, rows);
    host.Param("MIN", "99");
    EXPECT_TRUE(host.Run(Act("EditInfo", {"MIN"})));
    EXPECT_EQ(host.Effects(), Lines({start, readMAXCall, Update("MIN = '99'"), commit}));
  }
}

TEST(NANLS, EditOfTheMinimumIsRefusedInSilenceWhereTheMaximumCannotBeRead) {
  ScriptedHost host;
  host.Refuse("scRunQuery", readMAX);
  host.Param("MIN", "2");
  EXPECT_FALSE(host.Run(Act("EditInfo", {"MIN"})));
  EXPECT_EQ(host.Calls(), Lines({start, Read("MIN"), readMAXCall, Read("EXL"), rollBack}));
}

TEST(NANLS, EditChecksTheMaximumAgainstTheStoredMinimum) {
  for (const Value& stored : {Value("9"), Value(9)}) {
    {
      ScriptedHost host;
      host.Rows(readMIN, {{stored}});
      host.Param("MAX", "8");
      EXPECT_FALSE(host.Run(Act("EditInfo", {"MAX"})));
      EXPECT_EQ(host.Calls(),
                Lines({start, Read("MAX"), readMINCall, MinimumAboveMaximum("Edit"), debugLine, rollBack}));
    }
    for (const char* value : {"9", "10"}) {
      ScriptedHost host;
      host.Rows(readMIN, {{stored}});
      host.Param("MAX", value);
      EXPECT_TRUE(host.Run(Act("EditInfo", {"MAX"})));
      EXPECT_EQ(host.Calls(),
                Lines({start, Read("MAX"), readMINCall, Update("MAX = '" + std::string(value) + "'"), commit}));
    }
  }
}

TEST(NANLS, EditTakesAMaximumOfAnySize) {
  for (const char* value : {"32768", "40000", "99999999999"}) {
    ScriptedHost host;
    host.Param("MAX", value);
    host.Rows(readMIN, {{"3"}});
    EXPECT_TRUE(host.Run(Act("EditInfo", {"MAX"})));
    EXPECT_EQ(host.Effects(), Lines({start, readMINCall, Update("MAX = '" + std::string(value) + "'"), commit}));
  }
}

TEST(NANLS, EditComparesTheMaximumAsANumberAndNotAsAText) {
  ScriptedHost host;
  host.Param("MAX", "10");
  host.Rows(readMIN, {{"9"}});
  EXPECT_TRUE(host.Run(Act("EditInfo", {"MAX"})));
}

TEST(NANLS, EditThatClearsTheMaximumComparesNothingAndWritesTheEmptyText) {
  for (const auto& rows : {std::vector<std::vector<Value>>{{"5"}}, std::vector<std::vector<Value>>{}}) {
    ScriptedHost host;
    host.Rows(readMIN, rows);
    EXPECT_TRUE(host.Run(Act("EditInfo", {"MAX"})));
    EXPECT_EQ(host.Effects(), Lines({start, readMINCall, Update("MAX = ''"), commit}));
  }
}

TEST(NANLS, EditOfTheMaximumWithoutARecordFailsTheCall) {
  {
    ScriptedHost host;
    host.Rows(readMIN, {});
    host.Param("MAX", "5");
    EXPECT_THROW(host.Run(Act("EditInfo", {"MAX"})), RunTimeFailure);
    EXPECT_EQ(host.Effects(), Lines({start, readMINCall}));
  }
  {
    ScriptedHost host;
    host.Refuse("scRunQuery", readMIN);
    host.Param("MAX", "5");
    EXPECT_THROW(host.Run(Act("EditInfo", {"MAX"})), RunTimeFailure);
  }
}

TEST(NANLS, EditThatClearsTheMaximumIsRefusedInSilenceWhereTheMinimumCannotBeRead) {
  ScriptedHost host;
  host.Refuse("scRunQuery", readMIN);
  EXPECT_FALSE(host.Run(Act("EditInfo", {"MAX"})));
  EXPECT_EQ(host.Effects(), Lines({start, readMINCall, rollBack}));
}

TEST(NANLS, EditChecksTheDigitsAgainstTheMinimumOnTheForm) {
  {
    ScriptedHost host;
    host.Param("EXL", "123");
    host.Param("MIN", "3");
    EXPECT_TRUE(host.Run(Act("EditInfo", {"EXL"})));
    EXPECT_EQ(host.Calls(), Lines({start, Read("EXL"), Read("MIN"), Update("EXL = '123'"), commit}));
  }
  {
    ScriptedHost host;
    host.Param("EXL", "1234");
    host.Param("MIN", "3");
    EXPECT_FALSE(host.Run(Act("EditInfo", {"EXL"})));
    EXPECT_EQ(host.Calls(), Lines({start, Read("EXL"), Read("MIN"), LongerThanMinimum("Edit"), rollBack}));
  }
}

TEST(NANLS, EditWritesAnyOtherNameUnchecked) {
  ScriptedHost host;
  host.Param("CMDID", 8);
  EXPECT_TRUE(host.Run(Act("EditInfo", {"CMDID"})));
  EXPECT_EQ(host.Calls(), Lines({start, Read("CMDID"), Update("CMDID = '8'"), commit}));
}

TEST(NANLS, EditGoesOnBehindARefusedValueAndALaterLengthAnswersAnew) {
  ScriptedHost host;
  host.Param("EXL", "123");
  host.Param("MIN", "2");
  host.Param("MAX", "5");
  host.Rows(readMIN, {{"2"}});
  EXPECT_TRUE(host.Run(Act("EditInfo", {"EXL", "OTHER", "MAX"})));
  EXPECT_EQ(host.Effects(), Lines({start, LongerThanMinimum("Edit"), readMINCall, Update("MAX = '5'"), commit}));
}

TEST(NANLS, EditThatEndsOnARefusedValueRollsBack) {
  ScriptedHost host;
  host.Param("EXL", "123");
  host.Param("MIN", "2");
  host.Param("MAX", "5");
  host.Rows(readMIN, {{"2"}});
  EXPECT_FALSE(host.Run(Act("EditInfo", {"MAX", "EXL"})));
  EXPECT_EQ(host.Effects(), Lines({start, readMINCall, Update("MAX = '5'"), LongerThanMinimum("Edit"), rollBack}));
}

TEST(NANLS, EditReportsAnUpdateThatFailsAndGoesOn) {
  ScriptedHost host;
  host.Param("EXL", "12");
  host.Param("MIN", "2");
  host.Rows(readMAX, {{"5"}});
  host.Refuse("scRunQuery", "UPDATE NANLS SET EXL = '12'\r\n WHERE CmdId = 7");
  EXPECT_TRUE(host.Run(Act("EditInfo", {"EXL", "OTHER", "MIN"})));
  EXPECT_EQ(host.Effects(),
            Lines({start, Update("EXL = '12'"), "scErrorMessage(0, 2, 2, \"Edit: NANLS\", 60001, \"EXL\", \"NANLS\")",
                   readMAXCall, Update("MIN = '2'"), commit}));
}

TEST(NANLS, EditWhoseLastUpdateFailsRollsBack) {
  ScriptedHost host;
  host.Rows(readMIN, {{"2"}});
  host.Param("MAX", "5");
  host.Refuse("scRunQuery", "UPDATE NANLS SET MAX = '5'\r\n WHERE CmdId = 7");
  EXPECT_FALSE(host.Run(Act("EditInfo", {"MAX"})));
  EXPECT_EQ(host.Effects(), Lines({start, readMINCall, Update("MAX = '5'"),
                                   "scErrorMessage(0, 2, 2, \"Edit: NANLS\", 60001, \"MAX\", \"NANLS\")", rollBack}));
}

}  // namespace
}  // namespace cordboard
