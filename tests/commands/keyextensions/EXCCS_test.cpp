#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "script/MessageBox.h"
#include "script/RunTimeFailure.h"
#include "support/CallLines.h"
#include "support/ScriptedHost.h"

namespace cordboard {
namespace {

Action Act(const std::string& function, List parameters = {}) {
  return {.oaRelease = "R7", .FunctionName = function, .CmdName = "EXCCS", .CmdId = 7, .ParamList = parameters};
}

const std::string start = "scStartTransaction()";
const std::string commit = "scCommitTransaction()";
const std::string rollBack = "scRollBackTransaction()";

// --- What is served.

TEST(EXCCS, AnswersTrueForAnActionOrAParameterThatItDoesNotServe) {
  ScriptedHost host;
  EXPECT_TRUE(host.Run(Act("setinfo")));
  EXPECT_TRUE(host.Run(Act("GetValidValForParam", {"TRAF"})));
  EXPECT_TRUE(host.Run(Act("GetValidValForParam", {"ROC_D1"})));
  EXPECT_TRUE(host.Run(Act("StatCheck", {"CDIV_D7"})));
  EXPECT_EQ(host.Calls(), "");
}

TEST(EXCCS, ListsThePlainDigitsFromTheFixedValues) {
  for (const char* parameter : {"CDIV_D1",      "CDIV_D2",        "CDIV_D3",        "CDIV_D4D5",      "CDIV_D6",
                                "ROC_D2",       "ROC_D3",         "ROC_D4",         "ROC_D5D6",       "SERV_D1",
                                "SERV_D2",      "SERV_D3D4_SUB1", "SERV_D3D4_SUB2", "SERV_D3D4_SUB3", "SERV_D5_SUB1",
                                "SERV_D5_SUB2", "SERV_D6",        "SERV_D7D8_SUB1", "SERV_D7D8_SUB2", "SERV_D9"}) {
    ScriptedHost host;
    EXPECT_TRUE(host.Run(Act("GetValidValForParam", {parameter})));
    EXPECT_EQ(host.Calls(), Lines({Call("scSQLSelectValuesAndDesc")})) << parameter;
  }
}

TEST(EXCCS, ListsTheTailOfCDIVUnderItsOwnName) {
  for (const std::string parameter : {"CDIV_D7", "CDIV_D8", "CDIV_D9"}) {
    ScriptedHost host;
    EXPECT_TRUE(host.Run(Act("GetValidValForParam", {parameter})));
    EXPECT_EQ(host.Effects(), "");
    host.Param("CDIV_D6", "0");
    EXPECT_TRUE(host.Run(Act("GetValidValForParam", {parameter})));
    EXPECT_EQ(host.Effects(),
              Lines({Call("scCollectValuesAndDesc",
                          "SELECT Value, ValDesc  FROM ParamValueDesc  WHERE Command = 'EXCCS' AND Param = '" +
                              parameter + "' AND Value = '0' ")}));
  }
}

TEST(EXCCS, CheckOfTheSixthDigitOfCDIVResetsTheTail) {
  ScriptedHost host;
  EXPECT_TRUE(host.Run(Act("StatCheck", {"CDIV_D6"})));
  EXPECT_EQ(host.Calls(),
            Lines({Call("scResetParam", "CDIV_D7"), Call("scResetParam", "CDIV_D8"), Call("scResetParam", "CDIV_D9")}));
}

TEST(EXCCS, CheckOfTheCategoryResetsItsRole) {
  ScriptedHost host;
  EXPECT_TRUE(host.Run(Act("StatCheck", {"CAT"})));
  EXPECT_EQ(host.Calls(), Lines({Call("scResetParam", "CATTYP")}));
  host.Refuse("scResetParam");
  EXPECT_FALSE(host.Run(Act("StatCheck", {"CAT"})));
  EXPECT_TRUE(host.Calls().ends_with(Lines({MessageLine("GetValidValForParam", "61013, \"CATTYP\"")})));
}

TEST(EXCCS, ListsAllCategoriesAlsoTheBlankOnes) {
  const std::string collect =
      "scCollectValuesAndDesc(\"SELECT CAT, DESCRIPTION  FROM EXCCS ORDER BY CAT \", \"dynamic\")";
  ScriptedHost host;
  EXPECT_TRUE(host.Run(Act("GetValidValForParam", {"CAT"})));
  EXPECT_EQ(host.Calls(), Lines({collect}));
  host.Refuse("scCollectValuesAndDesc");
  EXPECT_FALSE(host.Run(Act("GetValidValForParam", {"CAT"})));
  EXPECT_EQ(host.Calls(), Lines({collect, collect, MessageLine("GetValidValForParam", "61021, \"CAT\"")}));
}

// --- The list of CATTYP.

const std::string readRoles = "SELECT CAT, CATTYP FROM EXCCS WHERE CATTYP <> ''";
const std::string whole = Call("scSQLSelectValuesAndDesc");

std::string Remove(const std::string& role) { return "scRemoveFromValidValues(\"CATTYP\", \"" + role + "\")"; }

TEST(EXCCS, ListOfRolesIsWholeWhereNoCategoryHasOne) {
  ScriptedHost host;
  host.Rows(readRoles, {});
  EXPECT_TRUE(host.Run(Act("GetValidValForParam", {"CATTYP"})));
  EXPECT_EQ(host.Calls(), Lines({whole, QueryLine(readRoles)}));
}

TEST(EXCCS, ListOfRolesLosesThoseOfOtherCategoriesButNeverBothInOne) {
  ScriptedHost host;
  host.Param("CAT", "3");
  host.Rows(readRoles, {{"1", "3", "4", "5", "6", "7"}, {"1", "2", "2", "1&2", "3", Value::Null()}});
  EXPECT_TRUE(host.Run(Act("GetValidValForParam", {"CATTYP"})));
  EXPECT_EQ(host.Calls(),
            Lines({whole, QueryLine(readRoles), Read("CAT"), Remove("1"), Remove("2"), Remove("1"), Remove("2")}));
}

TEST(EXCCS, ListOfRolesReportsAStepThatFails) {
  {
    ScriptedHost host;
    host.Refuse("scSQLSelectValuesAndDesc");
    EXPECT_FALSE(host.Run(Act("GetValidValForParam", {"CATTYP"})));
    EXPECT_EQ(host.Calls(), Lines({whole, MessageLine("GetValuesAndDescription", "61021, \"CATTYP\"")}));
  }
  {
    ScriptedHost host;
    host.Refuse("scRunQuery", readRoles);
    EXPECT_FALSE(host.Run(Act("GetValidValForParam", {"CATTYP"})));
    EXPECT_EQ(host.Calls(), Lines({whole, QueryLine(readRoles), MessageLine("GetValuesFor: CATTYP", "62000")}));
  }
  for (const char* role : {"1", "2"}) {
    ScriptedHost host;
    host.Rows(readRoles, {{"1"}, {role}});
    host.Refuse("scRemoveFromValidValues");
    EXPECT_FALSE(host.Run(Act("GetValidValForParam", {"CATTYP"})));
    EXPECT_EQ(host.Effects(), Lines({whole, QueryLine(readRoles), Remove(role),
                                     MessageLine("GetValuesFor: CATTYP", "61021, \"CATTYP\"")}));
  }
}

// The removal of one role answers False.
class KeepsRole : public ScriptedHost {
 public:
  explicit KeepsRole(const std::string& role) : role_(role) {}
  bool scRemoveFromValidValues(const std::string& name, const Value& value) override {
    return ScriptedHost::scRemoveFromValidValues(name, value) && value != Value(role_);
  }

 private:
  std::string role_;
};

TEST(EXCCS, ListOfRolesEndsAtTheFirstThatIsNotTakenOut) {
  for (const std::string kept : {"1", "2"}) {
    KeepsRole host(kept);
    host.Rows(readRoles, {{"1"}, {"1&2"}});
    EXPECT_FALSE(host.Run(Act("GetValidValForParam", {"CATTYP"})));
    const std::string removed = kept == "1" ? Lines({Remove("1")}) : Lines({Remove("1"), Remove("2")});
    EXPECT_EQ(host.Effects(), Lines({whole, QueryLine(readRoles)}) + removed +
                                  Lines({MessageLine("GetValuesFor: CATTYP", "61021, \"CATTYP\"")}));
  }
}

// --- Edit.

const std::string readStored = "SELECT TRAF, SERV, CDIV, ROC, CATTYP, DESCRIPTION FROM EXCCS WHERE CmdID = 7";
const std::string countSame =
    "SELECT COUNT(*) FROM EXCCS WHERE CAT <> '3' AND TRAF = 't' AND  SERV = 's' AND CDIV = 'c' AND ROC = 'r'";
const std::string readNumbers = "SELECT CmdID from KSANI WHERE CAT = '3'";
const std::string countMinimum = "SELECT COUNT(*) FROM EXCCS WHERE (CATTYP =  '1') AND NOT CMDID = 7";
const std::string countDefault = "SELECT COUNT(*) FROM EXCCS WHERE (CATTYP =  '2') AND NOT CMDID = 7";
const std::string context = " Edit : EXCCS";

std::string Update(const std::string& CATTYP, const std::string& DESCRIPTION) {
  return "scSQLUpdate(\"EXCCS\", [\"TRAF\", \"SERV\", \"CDIV\", \"ROC\", \"CATTYP\", \"DESCRIPTION\"], [\"t\", \"s\", "
         "\"c\", \"r\", " +
         CATTYP + ", " + DESCRIPTION + "], [\"CAT\", Empty], [\"3\", Empty])";
}

// A form for category 3 on a host that lets everything pass.
class EXCCSEdit : public testing::Test {
 protected:
  EXCCSEdit() {
    host.Param("TRAF", "t");
    host.Param("SERV", "s");
    host.Param("CDIV", "c");
    host.Param("ROC", "r");
    host.Param("CAT", "3");
    host.Rows(readStored, {{"t0"}, {"s0"}, {"c0"}, {"r0"}, {"1"}, {"old"}});
    host.Rows(countSame, {{0}});
    host.Rows(readNumbers, {});
  }

  ScriptedHost host;
};

TEST_F(EXCCSEdit, WritesTheParametersAsTheyStandSoThatItCanClearAColumn) {
  host.Param("DESCRIPTION", Value::Null());
  EXPECT_TRUE(host.Run(Act("EditInfo", {"TRAF"})));
  EXPECT_EQ(host.Calls(), Lines({start, QueryLine(readStored), Read("TRAF"), Read("SERV"), Read("CDIV"), Read("ROC"),
                                 Read("CATTYP"), Read("DESCRIPTION"), Read("CAT"), QueryLine(countSame),
                                 Update("Empty", "Null"), QueryLine(readNumbers), commit}));
}

TEST_F(EXCCSEdit, ReadsACategoryThatBeginsWithZeroByItsLastCharacter) {
  host.Param("CAT", "013");
  EXPECT_TRUE(host.Run(Act("EditInfo", {})));
  EXPECT_EQ(host.Effects(), Lines({start, QueryLine(readStored), QueryLine(countSame), Update("Empty", "Empty"),
                                   QueryLine(readNumbers), commit}));
}

TEST_F(EXCCSEdit, TrimsTheValuesForTheSearchAlone) {
  for (const char* name : {"CAT", "TRAF", "SERV", "CDIV", "ROC"})
    host.Param(name, std::string(" ") + (name == std::string("CAT") ? "3" : std::string(1, name[0])) + " ");
  const std::string search =
      "SELECT COUNT(*) FROM EXCCS WHERE CAT <> '3' AND TRAF = 'T' AND  SERV = 'S' AND CDIV = 'C' AND ROC = 'R'";
  const std::string sweep = "SELECT CmdID from KSANI WHERE CAT = ' 3 '";
  host.Rows(search, {{0}});
  host.Rows(sweep, {});
  EXPECT_TRUE(host.Run(Act("EditInfo", {})));
  EXPECT_EQ(host.Effects(),
            Lines({start, QueryLine(readStored), QueryLine(search),
                   "scSQLUpdate(\"EXCCS\", [\"TRAF\", \"SERV\", \"CDIV\", \"ROC\", \"CATTYP\", \"DESCRIPTION\"], [\" T "
                   "\", \" S \", \" C \", \" R \", Empty, Empty], [\"CAT\", Empty], [\" 3 \", Empty])",
                   QueryLine(sweep), commit}));
}

TEST_F(EXCCSEdit, SearchesForANullAsForAnEmptyText) {
  host.Param("ROC", Value::Null());
  const std::string search =
      "SELECT COUNT(*) FROM EXCCS WHERE CAT <> '3' AND TRAF = 't' AND  SERV = 's' AND CDIV = 'c' AND ROC = ''";
  host.Rows(search, {{0}});
  EXPECT_TRUE(host.Run(Act("EditInfo", {})));
  EXPECT_TRUE(host.Effects().starts_with(Lines({start, QueryLine(readStored), QueryLine(search)})));
}

TEST_F(EXCCSEdit, RefusesTheRoleOfAnotherCategoryButTestsNotBothInOne) {
  host.Rows(countMinimum, {{1}});
  host.Rows(countDefault, {{2}});
  host.Param("CATTYP", "1");
  EXPECT_FALSE(host.Run(Act("EditInfo", {})));
  EXPECT_EQ(host.Effects(), Lines({start, QueryLine(readStored), QueryLine(countMinimum),
                                   MessageLine(context, "60035, \"MIN\""), rollBack}));
  host.Param("CATTYP", "2");
  EXPECT_FALSE(host.Run(Act("EditInfo", {})));
  EXPECT_TRUE(host.Effects().ends_with(Lines(
      {start, QueryLine(readStored), QueryLine(countDefault), MessageLine(context, "60035, \"DEFAULT\""), rollBack})));
  host.Param("CATTYP", "1&2");
  EXPECT_TRUE(host.Run(Act("EditInfo", {})));
  EXPECT_TRUE(host.Effects().ends_with(Lines({start, QueryLine(readStored), QueryLine(countSame),
                                              Update("\"1&2\"", "Empty"), QueryLine(readNumbers), commit})));
}

TEST_F(EXCCSEdit, TakesNullsForNoRoleAndForNoZeroInFront) {
  host.Param("CATTYP", Value::Null());
  host.Param("CAT", Value::Null());
  const std::string search =
      "SELECT COUNT(*) FROM EXCCS WHERE CAT <> '' AND TRAF = 't' AND  SERV = 's' AND CDIV = 'c' AND ROC = 'r'";
  const std::string sweep = "SELECT CmdID from KSANI WHERE CAT = ''";
  host.Rows(search, {{0}});
  host.Rows(sweep, {});
  EXPECT_TRUE(host.Run(Act("EditInfo", {})));
  EXPECT_EQ(
      host.Effects(),
      Lines({start, QueryLine(readStored), QueryLine(search),
             "scSQLUpdate(\"EXCCS\", [\"TRAF\", \"SERV\", \"CDIV\", \"ROC\", \"CATTYP\", \"DESCRIPTION\"], [\"t\", "
             "\"s\", \"c\", \"r\", Null, Empty], [\"CAT\", Empty], [Null, Empty])",
             QueryLine(sweep), commit}));
}

TEST_F(EXCCSEdit, TakesARoleThatIsFree) {
  host.Rows(countMinimum, {{0}});
  host.Param("CATTYP", "1");
  EXPECT_TRUE(host.Run(Act("EditInfo", {})));
  EXPECT_EQ(host.Effects(), Lines({start, QueryLine(readStored), QueryLine(countMinimum), QueryLine(countSame),
                                   Update("\"1\"", "Empty"), QueryLine(readNumbers), commit}));
}

TEST_F(EXCCSEdit, ReportsARoleThatCannotBeCounted) {
  host.Refuse("scRunQuery", countMinimum);
  host.Param("CATTYP", "1");
  EXPECT_FALSE(host.Run(Act("EditInfo", {})));
  EXPECT_EQ(host.Effects(),
            Lines({start, QueryLine(readStored), QueryLine(countMinimum), MessageLine(context, "62000"), rollBack}));
}

TEST_F(EXCCSEdit, WithStoredValuesThatCannotBeReadRollsBackInSilence) {
  host.Refuse("scRunQuery", readStored);
  EXPECT_FALSE(host.Run(Act("EditInfo", {})));
  EXPECT_EQ(host.Effects(), Lines({start, QueryLine(readStored), rollBack}));
}

TEST_F(EXCCSEdit, ReportsThatTheTransactionDidNotStartCommitOrRollBack) {
  host.Refuse("scStartTransaction");
  host.Refuse("scRollBackTransaction");
  EXPECT_FALSE(host.Run(Act("EditInfo", {})));
  EXPECT_EQ(host.Effects(), Lines({start, MessageLine(context, "62010"), rollBack, MessageLine(context, "62012")}));
}

TEST_F(EXCCSEdit, ThatCannotBeCommittedStillAnswersTrue) {
  host.Refuse("scCommitTransaction");
  EXPECT_TRUE(host.Run(Act("EditInfo", {})));
  EXPECT_TRUE(host.Effects().ends_with(Lines({commit, MessageLine(context, "62011")})));
}

TEST(EXCCS, EditRefusesTheStringsOfAnotherCategoryUnderAContextOfItsOwn) {
  ScriptedHost host;
  for (const auto& [name, value] : {std::pair{"TRAF", "t"}, {"SERV", "s"}, {"CDIV", "c"}, {"ROC", "r"}, {"CAT", "3"}})
    host.Param(name, value);
  host.Rows(readStored, {{"t0"}, {"s0"}, {"c0"}, {"r0"}, {""}, {""}});
  host.Rows(countSame, {{1}});
  EXPECT_FALSE(host.Run(Act("EditInfo", {})));
  EXPECT_EQ(host.Effects(),
            Lines({start, QueryLine(readStored), QueryLine(countSame), MessageLine("Quorvel", "61051"), rollBack}));
}

TEST_F(EXCCSEdit, ReportsASearchThatFails) {
  host.Refuse("scRunQuery", countSame);
  EXPECT_FALSE(host.Run(Act("EditInfo", {})));
  EXPECT_EQ(host.Effects(),
            Lines({start, QueryLine(readStored), QueryLine(countSame), DebugLine(" Error getting Values from EXCCS "),
                   MessageLine(context, "60006, \"EXCCS\""), rollBack}));
}

TEST_F(EXCCSEdit, ForgetsAnUpdateThatFailedWhenTheSweepSucceeds) {
  host.Refuse("scSQLUpdate");
  EXPECT_TRUE(host.Run(Act("EditInfo", {})));
  EXPECT_EQ(host.Effects(), Lines({start, QueryLine(readStored), QueryLine(countSame), Update("Empty", "Empty"),
                                   MessageLine(context, "60003, \"EXCCS\""), QueryLine(readNumbers), commit}));
}

TEST_F(EXCCSEdit, ReportsASweepThatCannotReadTheNumbersWithFourArguments) {
  host.Refuse("scRunQuery", readNumbers);
  EXPECT_FALSE(host.Run(Act("EditInfo", {})));
  EXPECT_EQ(host.Effects(),
            Lines({start, QueryLine(readStored), QueryLine(countSame), Update("Empty", "Empty"), QueryLine(readNumbers),
                   MessageLine(context, "60017, \"CmdID\", \"\", \"\", \"KSANI\""), rollBack}));
}

// --- The sweep of additional numbers.

std::string ReadADN(int CmdId) { return "SELECT ADN FROM KSANI  WHERE CmdID = " + std::to_string(CmdId); }

class EXCCSSweep : public testing::TestWithParam<const char*> {
 protected:
  EXCCSSweep() {
    for (const auto& [name, value] : {std::pair{"TRAF", "t"}, {"CDIV", "c"}, {"ROC", "r"}, {"CAT", "3"}})
      host.Param(name, value);
    host.Rows(readStored, {{""}, {""}, {""}, {""}, {""}, {""}});
    host.Rows(readNumbers, {{21, "22"}});
    host.Rows(ReadADN(21), {{"501"}});
    host.Rows(ReadADN(22), {{"502"}});
  }

  void SetSERV(const std::string& SERV) {
    host.Param("SERV", SERV);
    host.Rows("SELECT COUNT(*) FROM EXCCS WHERE CAT <> '3' AND TRAF = 't' AND  SERV = '" + SERV +
                  "' AND CDIV = 'c' AND ROC = 'r'",
              {{0}});
  }

  ScriptedHost host;
};

TEST_P(EXCCSSweep, FreesTheNumbersOfTheCategoryWhateverItsSERVEachInATransactionWithinTheFirst) {
  SetSERV(GetParam());
  EXPECT_TRUE(host.Run(Act("EditInfo", {})));
  EXPECT_TRUE(host.Effects().ends_with(
      Lines({QueryLine(readNumbers), MessageLine(context, "60037, \"3\""), start, QueryLine(ReadADN(21)),
             FreeNumber("501"), commit, start, QueryLine(ReadADN(22)), FreeNumber("502"), commit, commit})));
}

INSTANTIATE_TEST_SUITE_P(AnySERV, EXCCSSweep, testing::Values("111111100", "111111101", "111111102", "", "1"));

TEST_F(EXCCSSweep, StopsAtTheFirstNumberThatCannotBeFreedAndRollsBack) {
  SetSERV("s");
  host.Refuse("scRunQuery", ReadADN(21));
  EXPECT_FALSE(host.Run(Act("EditInfo", {})));
  EXPECT_TRUE(host.Effects().ends_with(Lines({MessageLine(context, "60037, \"3\""), start, QueryLine(ReadADN(21)),
                                              MessageLine("Delete: KSANI", "60006, \"KSANI\""), rollBack, rollBack})));
}

// --- Add.

std::string FindRow(const std::string& CAT) { return "SELECT CMDID FROM EXCCS WHERE CAT = '" + CAT + "'"; }

TEST(EXCCS, AddForACategoryWithoutRowWritesNothingAndAnswersTrue) {
  ScriptedHost host;
  host.Param("CAT", "99");
  host.Rows(FindRow("99"), {});
  EXPECT_TRUE(host.Run(Act("SetInfo", {"CmdId", "CAT"})));
  EXPECT_EQ(host.Calls(), Lines({Read("CAT"), QueryLine(FindRow("99"))}));
}

TEST(EXCCS, AddThatCannotLookForTheRowAnswersFalseInSilence) {
  ScriptedHost host;
  host.Param("CAT", "99");
  host.Refuse("scRunQuery", FindRow("99"));
  EXPECT_FALSE(host.Run(Act("SetInfo", {"CmdId", "CAT"})));
  EXPECT_EQ(host.Effects(), Lines({QueryLine(FindRow("99"))}));
}

struct CategoryNumber {
  std::string typed;
  std::string read;
};

TEST(EXCCS, AddDropsTheZeroOfTwoCharactersAndReads256AtMost) {
  for (const auto& [typed, read] :
       {CategoryNumber{"07", "7"}, CategoryNumber{" 07 ", "7"}, CategoryNumber{"012", "012"}, CategoryNumber{"0", "0"},
        CategoryNumber{"17", "17"}, CategoryNumber{"", ""},
        CategoryNumber{std::string(255, '1') + " 2", std::string(255, '1')},
        CategoryNumber{std::string(256, '1') + "2", std::string(256, '1')}}) {
    ScriptedHost host;
    host.Param("CAT", typed);
    host.Rows(FindRow(read), {});
    EXPECT_TRUE(host.Run(Act("SetInfo")));
    EXPECT_EQ(host.Effects(), Lines({QueryLine(FindRow(read))}));
  }
}

TEST(EXCCS, AddOfANullCategoryFailsTheCall) {
  ScriptedHost host;
  host.Param("CAT", Value::Null());
  EXPECT_THROW(host.Run(Act("SetInfo")), RunTimeFailure);
}

TEST_F(EXCCSEdit, OnAnAddKeepsWhatIsStoredForParametersThatAreEmptyOrNullButNotForAnEmptyText) {
  host.Rows(FindRow("3"), {{"7", "8"}});
  host.Rows(countMinimum, {{0}});
  host.Param("CAT", "03");
  host.Param("TRAF", Value());
  host.Param("SERV", Value::Null());
  host.Param("CDIV", "");
  const std::string search =
      "SELECT COUNT(*) FROM EXCCS WHERE CAT <> '3' AND TRAF = 't0' AND  SERV = 's0' AND CDIV = '' AND ROC = 'r'";
  host.Rows(search, {{0}});
  EXPECT_TRUE(host.Run(Act("SetInfo", {"CmdId", "CAT"})));
  EXPECT_EQ(host.Effects(),
            Lines({QueryLine(FindRow("3")), start, QueryLine(readStored), QueryLine(countMinimum), QueryLine(search),
                   "scSQLUpdate(\"EXCCS\", [\"TRAF\", \"SERV\", \"CDIV\", \"ROC\", \"CATTYP\", \"DESCRIPTION\"], "
                   "[\"t0\", \"s0\", \"\", \"r\", \"1\", \"old\"], [\"CAT\", Empty], [\"3\", Empty])",
                   QueryLine(readNumbers), commit}));
}

TEST(EXCCS, AddToARowThatHasGoneMeanwhileFailsTheCallWithTheTransactionOpen) {
  ScriptedHost host;
  host.Param("CAT", "3");
  host.Rows(FindRow("3"), {{7}});
  host.Rows(readStored, {});
  EXPECT_THROW(host.Run(Act("SetInfo")), RunTimeFailure);
  EXPECT_EQ(host.Effects(), Lines({QueryLine(FindRow("3")), start, QueryLine(readStored)}));
}

// --- Delete.

const std::string readCAT = "SELECT CAT FROM EXCCS WHERE CmdId = 7";
const std::vector<std::string> users = {"EXTEIDIR", "KSEXI", "KSANI", "AUCOI_Central", "AUCOI_Regional", "ITNUI"};
const std::string blank =
    "UPDATE EXCCS SET CDIV = Null, ROC= Null, SERV= Null, TRAF= Null, CATTYP= Null, DESCRIPTION=Null WHERE CMDID = 7";

std::string CountUsers(const std::string& table) { return "SELECT COUNT(*) FROM " + table + " WHERE CAT = '7'"; }

class EXCCSDelete : public testing::Test {
 protected:
  EXCCSDelete() {
    host.Rows(readCAT, {{"07"}});
    previous = SetMessageBox([this](const std::string& text, const std::string& title, int style) {
      boxes.push_back(title + "|" + text + "|" + std::to_string(style));
    });
  }
  ~EXCCSDelete() override { SetMessageBox(previous); }

  void CountOf(const std::string& table, int count) { host.Rows(CountUsers(table), {{count}}); }

  ScriptedHost host;
  std::vector<std::string> boxes;
  MessageBoxHook previous;
};

TEST_F(EXCCSDelete, BlanksTheRowOfACategoryThatNobodyUsesLookedForAsANumber) {
  std::string expected = start + "\n" + QueryLine(readCAT) + "\n";
  for (const std::string& table : users) {
    CountOf(table, 0);
    expected += QueryLine(CountUsers(table)) + "\n";
  }
  EXPECT_TRUE(host.Run(Act("DeleteInfo")));
  EXPECT_EQ(host.Calls(), expected + StatementLine(blank) + "\n" + commit + "\n");
  EXPECT_TRUE(boxes.empty());
}

TEST_F(EXCCSDelete, ShowsOneBoxForTheFirstTableThatHoldsTheCategoryAndRollsBack) {
  for (const std::string& user : users) {
    ScriptedHost asked;
    asked.Rows(readCAT, {{"7"}});
    std::string expected = start + "\n" + QueryLine(readCAT) + "\n";
    bool found = false;
    for (const std::string& table : users) {
      found = found || table == user;
      asked.Rows(CountUsers(table), {{found ? 2 : 0}});
      if (!found || table == user) expected += QueryLine(CountUsers(table)) + "\n";
    }
    boxes.clear();
    EXPECT_FALSE(asked.Run(Act("DeleteInfo")));
    EXPECT_EQ(asked.Calls(), expected + rollBack + "\n");
    EXPECT_EQ(boxes, std::vector<std::string>(
                         {"Error|Cannot delete as there are extensions initiated with this category|64"}));
  }
}

TEST_F(EXCCSDelete, ReportsAStatementThatFailsAndRollsBack) {
  const std::string deleting = "Delete: EXCCS";
  {
    ScriptedHost refusing;
    refusing.Refuse("scRunQuery", readCAT);
    EXPECT_FALSE(refusing.Run(Act("DeleteInfo")));
    EXPECT_EQ(refusing.Calls(), Lines({start, QueryLine(readCAT), MessageLine(deleting, "62000"), rollBack}));
  }
  {
    ScriptedHost refusing;
    refusing.Rows(readCAT, {{"7"}});
    refusing.Refuse("scRunQuery", CountUsers("EXTEIDIR"));
    EXPECT_FALSE(refusing.Run(Act("DeleteInfo")));
    EXPECT_EQ(refusing.Calls(), Lines({start, QueryLine(readCAT), QueryLine(CountUsers("EXTEIDIR")),
                                       MessageLine(deleting, "62000"), rollBack}));
    EXPECT_TRUE(boxes.empty());
  }
  for (const std::string& table : users) CountOf(table, 0);
  host.Refuse("scRunQuery", blank);
  EXPECT_FALSE(host.Run(Act("DeleteInfo")));
  EXPECT_TRUE(host.Calls().ends_with(Lines({StatementLine(blank), MessageLine(deleting, "62000"), rollBack})));
}

TEST_F(EXCCSDelete, ReportsThatTheTransactionDidNotStartCommitOrRollBack) {
  {
    ScriptedHost refusing;
    refusing.Refuse("scStartTransaction");
    refusing.Refuse("scRollBackTransaction");
    EXPECT_FALSE(refusing.Run(Act("DeleteInfo")));
    EXPECT_EQ(refusing.Calls(),
              Lines({start, MessageLine("Delete: EXCCS", "62010"), rollBack, MessageLine("Delete: EXCCS", "62012")}));
  }
  for (const std::string& table : users) CountOf(table, 0);
  host.Refuse("scCommitTransaction");
  EXPECT_TRUE(host.Run(Act("DeleteInfo")));
  EXPECT_TRUE(host.Calls().ends_with(Lines({commit, MessageLine("Delete: EXCCS", "62011")})));
}

TEST(EXCCS, DeleteOfARowThatIsGoneFailsTheCall) {
  ScriptedHost host;
  host.Rows(readCAT, {});
  EXPECT_THROW(host.Run(Act("DeleteInfo")), RunTimeFailure);
  EXPECT_EQ(host.Calls(), Lines({start, QueryLine(readCAT)}));
}

// --- Generate.

const std::string readAll = "SELECT * FROM EXCCS";

std::string Built(const std::string& line) { return StatementLine("INSERT INTO BuiltCmd  VALUES (5,'" + line + "')"); }

// Rows in the order of the table: CmdId, CAT, CDIV, ROC, TRAF, SERV, CATTYP, DESCRIPTION.
const Value Null = Value::Null();

TEST(EXCCS, GeneratesTheStringsInTheOrderOfTheLineAndLeavesOutWhatHasNoValue) {
  ScriptedHost host;
  host.Rows(readAll, ByColumn({{1, " 1 ", "c", "r", "t", "s", Null, "d"},
                               {2, "2", "", "", "t", Value(), Null, Null},
                               {3, "3", Null, Null, Null, Null, Null, "blank"},
                               {4, "4", Null, Null, "", Null, "", Null}}));
  EXPECT_TRUE(host.Run(Act("GenerateCmd", {"5.9"})));
  EXPECT_EQ(host.Calls(), Lines({QueryLine(readAll), DebugLine("EXCCS:CAT=1,CDIV=c,ROC=r,SERV=s,TRAF=t;"),
                                 Built("EXCCS:CAT=1,CDIV=c,ROC=r,SERV=s,TRAF=t;"), DebugLine("EXCCS:CAT=2,TRAF=t;"),
                                 Built("EXCCS:CAT=2,TRAF=t;"), DebugLine("EXCCS:CAT=4;"), Built("EXCCS:CAT=4;")}));
}

TEST(EXCCS, GeneratesTheRolesBehindAllCategoriesAndWithoutADebugLine) {
  ScriptedHost host;
  host.Rows(readAll,
            ByColumn({{1, "3", Null, Null, Null, Null, "1&2", Null}, {2, "4", "c", Null, Null, Null, Null, Null}}));
  EXPECT_TRUE(host.Run(Act("GenerateCmd", {"5"})));
  EXPECT_EQ(host.Calls(), Lines({QueryLine(readAll), DebugLine("EXCCS:CAT=3;"), Built("EXCCS:CAT=3;"),
                                 DebugLine("EXCCS:CAT=4,CDIV=c;"), Built("EXCCS:CAT=4,CDIV=c;"),
                                 Built("EXCCS:CAT=3,CATTYP=1;"), Built("EXCCS:CAT=3,CATTYP=2;")}));
}

TEST(EXCCS, GeneratesTheRoleOfTheLastRowThatHasIt) {
  ScriptedHost host;
  host.Rows(readAll,
            ByColumn({{1, "3", Null, Null, Null, Null, "1&2", Null}, {2, "4", Null, Null, Null, Null, "1", Null}}));
  EXPECT_TRUE(host.Run(Act("GenerateCmd", {"5"})));
  EXPECT_TRUE(host.Calls().ends_with(Lines({Built("EXCCS:CAT=4,CATTYP=1;"), Built("EXCCS:CAT=3,CATTYP=2;")})));
}

TEST(EXCCS, GeneratesOneLineForTheDefaultAlone) {
  ScriptedHost host;
  host.Rows(readAll, ByColumn({{1, "3", Null, Null, Null, Null, "2", Null}}));
  EXPECT_TRUE(host.Run(Act("GenerateCmd", {"5"})));
  EXPECT_EQ(host.Effects(), Lines({QueryLine(readAll), DebugLine("EXCCS:CAT=3;"), Built("EXCCS:CAT=3;"),
                                   Built("EXCCS:CAT=3,CATTYP=2;")}));
}

TEST(EXCCS, GenerateOnAnEmptyTableWritesNothing) {
  ScriptedHost host;
  host.Rows(readAll, {});
  EXPECT_TRUE(host.Run(Act("GenerateCmd", {"5"})));
  EXPECT_EQ(host.Calls(), Lines({QueryLine(readAll)}));
}

TEST(EXCCS, GenerateReportsRowsThatCannotBeRead) {
  ScriptedHost host;
  host.Refuse("scRunQuery", readAll);
  EXPECT_FALSE(host.Run(Act("GenerateCmd", {"5"})));
  EXPECT_EQ(host.Calls(), Lines({QueryLine(readAll), MessageLine("Generating: EXCCS", "62000")}));
}

TEST(EXCCS, GenerateGoesOnBehindALineThatWasNotWrittenAndAnswersForTheLast) {
  const auto rows = ByColumn({{1, "3", Null, Null, Null, Null, "1", Null}});
  {
    ScriptedHost host;
    host.Rows(readAll, rows);
    host.Refuse("scRunQuery", "INSERT INTO BuiltCmd  VALUES (5,'EXCCS:CAT=3;')");
    EXPECT_TRUE(host.Run(Act("GenerateCmd", {"5"})));
    EXPECT_EQ(host.Calls(), Lines({QueryLine(readAll), DebugLine("EXCCS:CAT=3;"), Built("EXCCS:CAT=3;"),
                                   MessageLine("Generating: EXCCS", "62000"), Built("EXCCS:CAT=3,CATTYP=1;")}));
  }
  {
    ScriptedHost host;
    host.Rows(readAll, rows);
    host.Refuse("scRunQuery", "INSERT INTO BuiltCmd  VALUES (5,'EXCCS:CAT=3,CATTYP=1;')");
    EXPECT_FALSE(host.Run(Act("GenerateCmd", {"5"})));
    EXPECT_TRUE(
        host.Calls().ends_with(Lines({Built("EXCCS:CAT=3,CATTYP=1;"), MessageLine("Generating: EXCCS", "62000")})));
  }
}

TEST(EXCCS, GenerateFromATableWithTooFewColumnsFailsTheCall) {
  ScriptedHost host;
  host.Rows(readAll, {{1}, {"3"}, {"c"}});
  EXPECT_THROW(host.Run(Act("GenerateCmd", {"5"})), RunTimeFailure);
}

}  // namespace
}  // namespace cordboard
