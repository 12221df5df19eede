#include <gtest/gtest.h>

#include "script/RunTimeFailure.h"
#include "support/ScriptedHost.h"

namespace cordboard {
namespace {

Action Act(const std::string& function, List parameters = {}, std::int32_t CmdId = 7) {
  return {.oaRelease = "R7", .FunctionName = function, .CmdName = "NACDS", .CmdId = CmdId, .ParamList = parameters};
}

const Value null = Value::Null();
const std::string start = "scStartTransaction()";
const std::string commit = "scCommitTransaction()";
const std::string rollBack = "scRollBackTransaction()";
const std::string numbersCall = "scGetValueArray(\"NUM\", out)";
const std::string categoriesCall = "scGetValueArray(\"CDCAT\", out)";
const std::string readNumbers = "SELECT NUM FROM NACDS";
const std::string readNumbersCall = "scRunQuery(\"SELECT NUM FROM NACDS\", out)";
const std::string inUse = "scPrintToDebugWindow(\" This range is already in use, enter another value\")";

std::string Read(const std::string& name) { return "scGetParamValue(\"" + name + "\")"; }
std::string CountSql(const std::string& NUM) { return "SELECT Count(*) FROM NACDS WHERE NUM = '" + NUM + "'"; }
std::string FindSql(const std::string& NUM) { return "SELECT CMDID FROM NACDS WHERE NUM = '" + NUM + "'"; }
std::string Query(const std::string& sql) { return "scRunQuery(\"" + sql + "\", out)"; }
std::string Insert(const std::string& values) {
  return "scSQLInsert(\"NACDS\", [\"CmdID\", \"NUM\", \"CDCAT\"], [" + values + "])";
}
std::string NumberInUse(const std::string& context) {
  return "scErrorMessage(0, 2, 2, \"" + context + ": NACDS\", 60010)";
}

// --- Routing.

TEST(NACDS, ServesAddEditAndDeleteOnly) {
  ScriptedHost host;
  EXPECT_FALSE(host.Run(Act("GetValidValForParam", {"NUM"})));
  EXPECT_FALSE(host.Run(Act("StatCheck", {"NUM"})));
  EXPECT_FALSE(host.Run(Act("GenerateCmd", {"1"})));
  EXPECT_EQ(host.Calls(), "");
}

TEST(NACDS, DeletesAsCommandsDo) {
  ScriptedHost host;
  EXPECT_TRUE(host.Run(Act("DeleteInfo")));
  EXPECT_EQ(host.Calls(), Lines({start, "scRunQuery(\"DELETE * FROM NACDS{NL} WHERE CmdId = 7\")", commit}));
}

TEST(NACDS, AddWithoutACountOrAnIdentifierFailsTheCall) {
  {
    ScriptedHost host;
    host.Param("NUM", "12");
    host.Refuse("scRunQuery", CountSql("12"));
    EXPECT_THROW(host.Run(Act("SetInfo")), RunTimeFailure);
    EXPECT_EQ(host.Calls(), Lines({Read("NUM"), Query(CountSql("12"))}));
  }
  {
    ScriptedHost host;
    host.Param("NUM", "12");
    host.Rows(CountSql("12"), {{1}});
    host.Rows(FindSql("12"), {});
    EXPECT_THROW(host.Run(Act("SetInfo")), RunTimeFailure);
    EXPECT_EQ(host.Calls(), Lines({Read("NUM"), Query(CountSql("12")), Query(FindSql("12"))}));
  }
}

// --- Add.

// A form with these numbers, none of which has a record of its own.
void Form(ScriptedHost& host, const std::string& typed, List numbers, List categories) {
  host.Param("NUM", typed);
  host.Array("NUM", std::move(numbers));
  host.Array("CDCAT", std::move(categories));
  host.Rows(CountSql(typed), {{0}});
}

TEST(NACDS, AddMakesARecordForEachNumberWithAllCategories) {
  ScriptedHost host;
  Form(host, "12&13", {"12", "13"}, {"1", null, 3});
  host.Rows(readNumbers, {});
  host.Rows(readNumbers, {{"12"}});
  EXPECT_TRUE(host.Run(Act("SetInfo", {"CMDID"})));
  EXPECT_EQ(host.Calls(), Lines({Read("NUM"), Query(CountSql("12&13")), start, numbersCall, categoriesCall,
                                 readNumbersCall, "scBuildCmdID()", Insert("1001, \"12\", \"1&&3\""), readNumbersCall,
                                 "scBuildCmdID()", Insert("1002, \"13\", \"1&&3\""), commit}));
}

TEST(NACDS, AddWithOneCategoryHasNoAmpersandAndWithNoneIsEmptyText) {
  for (const auto& [categories, CDCAT] :
       {std::pair<List, std::string>(List{"1"}, "1"), std::pair<List, std::string>(List(std::vector<Value>()), "")}) {
    ScriptedHost host;
    Form(host, "12", {"12"}, categories);
    host.Rows(readNumbers, {});
    EXPECT_TRUE(host.Run(Act("SetInfo")));
    EXPECT_EQ(host.Effects(), Lines({Query(CountSql("12")), start, numbersCall, categoriesCall, readNumbersCall,
                                     "scBuildCmdID()", Insert("1001, \"12\", \"" + CDCAT + "\""), commit}));
  }
}

struct Collision {
  Value stored;
  bool free;
};

class NACDSCollision : public testing::TestWithParam<Collision> {};

TEST_P(NACDSCollision, IsANumberThatBeginsAnother) {
  const auto& [stored, free] = GetParam();
  ScriptedHost host;
  Form(host, "123", {"123"}, {"1"});
  host.Rows(readNumbers, {{"9", stored, "8"}});
  EXPECT_EQ(host.Run(Act("SetInfo")), free);
  const std::string begin = Lines({Query(CountSql("123")), start, numbersCall, categoriesCall, readNumbersCall});
  EXPECT_EQ(host.Effects(), begin + (free ? Lines({"scBuildCmdID()", Insert("1001, \"123\", \"1\""), commit})
                                          : Lines({inUse, NumberInUse("Add"), rollBack})));
}

INSTANTIATE_TEST_SUITE_P(EveryRelation, NACDSCollision,
                         testing::Values(Collision{"123", false}, Collision{"12", false}, Collision{"1", false},
                                         Collision{12, false}, Collision{"1234", false}, Collision{"", false},
                                         Collision{"13", true}, Collision{"124", true}, Collision{"1243", true},
                                         Collision{"23", true}));

TEST(NACDS, StoredNullNumberFailsTheCall) {
  ScriptedHost host;
  Form(host, "12", {"12"}, {"1"});
  host.Rows(readNumbers, {{null}});
  EXPECT_THROW(host.Run(Act("SetInfo")), RunTimeFailure);
}

TEST(NACDS, RowsBehindACollisionAreNotLookedAt) {
  ScriptedHost host;
  Form(host, "12", {"12"}, {"1"});
  host.Rows(readNumbers, {{"1", null}});
  EXPECT_FALSE(host.Run(Act("SetInfo")));
  EXPECT_EQ(host.Effects(), Lines({Query(CountSql("12")), start, numbersCall, categoriesCall, readNumbersCall, inUse,
                                   NumberInUse("Add"), rollBack}));
}

TEST(NACDS, NumbersThatCannotBeReadCountAsACollision) {
  ScriptedHost host;
  Form(host, "12", {"12"}, {"1"});
  host.Refuse("scRunQuery", readNumbers);
  EXPECT_FALSE(host.Run(Act("SetInfo")));
  EXPECT_EQ(host.Effects(), Lines({Query(CountSql("12")), start, numbersCall, categoriesCall, readNumbersCall, inUse,
                                   NumberInUse("Add"), rollBack}));
}

TEST(NACDS, CollisionOfALaterNumberRollsBackTheWholeAdd) {
  ScriptedHost host;
  Form(host, "12&123&14", {"12", "123", "14"}, {"1"});
  host.Rows(readNumbers, {});
  host.Rows(readNumbers, {{"12"}});
  EXPECT_FALSE(host.Run(Act("SetInfo")));
  EXPECT_EQ(host.Effects(),
            Lines({Query(CountSql("12&123&14")), start, numbersCall, categoriesCall, readNumbersCall, "scBuildCmdID()",
                   Insert("1001, \"12\", \"1\""), readNumbersCall, inUse, NumberInUse("Add"), rollBack}));
}

TEST(NACDS, AddWithoutCategoriesRollsBackInSilence) {
  ScriptedHost host;
  Form(host, "12", {"12"}, {});
  host.Refuse("scGetValueArray", "CDCAT");
  EXPECT_FALSE(host.Run(Act("SetInfo")));
  EXPECT_EQ(host.Effects(), Lines({Query(CountSql("12")), start, numbersCall, categoriesCall, rollBack}));
}

TEST(NACDS, AnswerOfTheListOfNumbersDoesNotCount) {
  {
    ScriptedHost host;
    Form(host, "12", {"12"}, {"1"});
    host.Refuse("scGetValueArray", "NUM");
    host.Rows(readNumbers, {});
    EXPECT_TRUE(host.Run(Act("SetInfo")));
  }
  {
    ScriptedHost host;  // but a list without bounds cannot be walked
    Form(host, "12", List(), {"1"});
    host.Refuse("scGetValueArray", "NUM");
    EXPECT_THROW(host.Run(Act("SetInfo")), RunTimeFailure);
    EXPECT_EQ(host.Effects(), Lines({Query(CountSql("12")), start, numbersCall, categoriesCall}));
  }
}

TEST(NACDS, AddEndsAtAnInsertThatFails) {
  ScriptedHost host;
  Form(host, "12&13", {"12", "13"}, {"1"});
  host.Rows(readNumbers, {});
  host.Refuse("scSQLInsert");
  EXPECT_FALSE(host.Run(Act("SetInfo")));
  EXPECT_EQ(host.Effects(), Lines({Query(CountSql("12&13")), start, numbersCall, categoriesCall, readNumbersCall,
                                   "scBuildCmdID()", Insert("1001, \"12\", \"1\""),
                                   "scErrorMessage(0, 2, 2, \"Add: NACDS\", 61024, \"NACDS\")", rollBack}));
}

// --- Merge: an add of a number that has a record.

const std::string readRecord = "SELECT NUM, CDCAT FROM NACDS WHERE CmdId = 42";
std::string Update(const std::string& assignment, const std::string& CmdId = "42") {
  return "scRunQuery(\"UPDATE NACDS SET " + assignment + "{NL} WHERE CmdId = " + CmdId + "\")";
}
// The record 42 holds this number.
void Stored(ScriptedHost& host, const Value& typed, const Value& NUM, const Value& CDCAT) {
  const std::string text = typed.IsText() ? typed.text() : "";
  host.Param("NUM", typed);
  host.Rows(CountSql(text), {{1}});
  host.Rows(FindSql(text), {{"42"}});
  host.Rows(readRecord, {{NUM}, {CDCAT}});
}

TEST(NACDS, SecondAddOfANumberAddsItsCategories) {
  ScriptedHost host;
  Stored(host, "12", "12", "1");
  host.Param("CDCAT", "2");
  EXPECT_TRUE(host.Run(Act("SetInfo", {"CMDID"}, 0)));
  EXPECT_EQ(host.Calls(), Lines({Read("NUM"), Query(CountSql("12")), Query(FindSql("12")), start, Query(readRecord),
                                 Read("NUM"), Update("NUM = '12'"), Read("CDCAT"), Update("CDCAT = '1&2'"), commit}));
}

TEST(NACDS, MergeKeepsWhatTheFormDoesNotGive) {
  for (const Value& none : {Value(), null, Value("")}) {
    ScriptedHost host;
    Stored(host, none, "12", "1");
    host.Param("CDCAT", none);
    EXPECT_TRUE(host.Run(Act("SetInfo")));
    EXPECT_EQ(host.Effects(), Lines({Query(CountSql("")), Query(FindSql("")), start, Query(readRecord),
                                     Update("NUM = '12'"), Update("CDCAT = '1'"), commit}));
  }
}

// Runs a merge of the categories on the form into the stored ones.
void ExpectMerged(const Value& stored, const Value& given, const std::string& assignment) {
  ScriptedHost host;
  Stored(host, "12", "12", stored);
  host.Param("CDCAT", given);
  EXPECT_TRUE(host.Run(Act("SetInfo")));
  EXPECT_EQ(host.Effects(), Lines({Query(CountSql("12")), Query(FindSql("12")), start, Query(readRecord),
                                   Update("NUM = '12'"), Update(assignment), commit}));
}

TEST(NACDS, MergePutsAnAmpersandAfterCategoriesThatAreStored) {
  ExpectMerged(Value(), "2", "CDCAT = '2'");
  ExpectMerged(null, "2", "CDCAT = '2'");
  ExpectMerged("", "2", "CDCAT = '2'");
  ExpectMerged("1&3", "2", "CDCAT = '1&3&2'");
}

TEST(NACDS, MergeWritesNullForAnEmptyStateAlone) {
  ExpectMerged(Value(), Value(), "CDCAT = Null");
  ExpectMerged(null, Value(), "CDCAT = ''");
  ExpectMerged("", Value(), "CDCAT = ''");
}

TEST(NACDS, MergeStopsAtAnUpdateThatFails) {
  {
    ScriptedHost host;
    Stored(host, "12", "12", "1");
    host.Refuse("scRunQuery", "UPDATE NACDS SET NUM = '12'\r\n WHERE CmdId = 42");
    EXPECT_FALSE(host.Run(Act("SetInfo")));
    EXPECT_EQ(host.Calls(),
              Lines({Read("NUM"), Query(CountSql("12")), Query(FindSql("12")), start, Query(readRecord), Read("NUM"),
                     Update("NUM = '12'"), "scErrorMessage(0, 2, 2, \"Edit: NACDS\", 61011, \"NUM\")", rollBack}));
  }
  {
    ScriptedHost host;
    Stored(host, "12", "12", "1");
    host.Refuse("scRunQuery", "UPDATE NACDS SET CDCAT = '1'\r\n WHERE CmdId = 42");
    EXPECT_FALSE(host.Run(Act("SetInfo")));
    EXPECT_EQ(host.Effects(),
              Lines({Query(CountSql("12")), Query(FindSql("12")), start, Query(readRecord), Update("NUM = '12'"),
                     Update("CDCAT = '1'"), "scErrorMessage(0, 2, 2, \"Edit: NACDS\", 61011, \"CDCAT\")", rollBack}));
  }
}

TEST(NACDS, MergeIntoARecordThatIsGoneOrCannotBeReadFailsTheCall) {
  for (const bool answer : {true, false}) {
    ScriptedHost host;
    host.Param("NUM", "12");
    host.Rows(CountSql("12"), {{1}});
    host.Rows(FindSql("12"), {{42}});
    host.Rows(readRecord, {});
    if (!answer) host.Refuse("scRunQuery", readRecord);
    EXPECT_THROW(host.Run(Act("SetInfo")), RunTimeFailure);
    EXPECT_EQ(host.Effects(), Lines({Query(CountSql("12")), Query(FindSql("12")), start, Query(readRecord)}));
  }
}

// --- Edit.

const std::string readOthers = "SELECT NUM FROM NACDS WHERE NOT CMDID = 7";

TEST(NACDS, EditComparesTheNumberWithThoseOfOtherRecords) {
  {
    ScriptedHost host;
    host.Param("NUM", "12");
    host.Rows(readOthers, {{"13"}});
    EXPECT_TRUE(host.Run(Act("EditInfo", {"NUM"})));
    EXPECT_EQ(host.Calls(), Lines({start, Read("NUM"), Query(readOthers), Update("NUM = '12'", "7"), commit}));
  }
  {
    ScriptedHost host;
    host.Param("NUM", "12");
    host.Rows(readOthers, {{"123"}});
    EXPECT_FALSE(host.Run(Act("EditInfo", {"NUM", "CDCAT"})));
    EXPECT_EQ(host.Calls(), Lines({start, Read("NUM"), Query(readOthers), inUse, NumberInUse("Edit"), rollBack}));
  }
}

TEST(NACDS, EditOfRecordZeroComparesWithAllNumbers) {
  ScriptedHost host;
  host.Param("NUM", "12");
  host.Rows(readNumbers, {});
  EXPECT_TRUE(host.Run(Act("EditInfo", {"NUM"}, 0)));
  EXPECT_EQ(host.Effects(), Lines({start, readNumbersCall, Update("NUM = '12'", "0"), commit}));
}

TEST(NACDS, EditReplacesTheCategoriesAndWritesTheEmptyTextForNone) {
  {
    ScriptedHost host;
    host.Param("CDCAT", "2");
    EXPECT_TRUE(host.Run(Act("EditInfo", {"CDCAT"})));
    EXPECT_EQ(host.Calls(), Lines({start, Read("CDCAT"), Update("CDCAT = '2'", "7"), commit}));
  }
  {
    ScriptedHost host;
    EXPECT_TRUE(host.Run(Act("EditInfo", {"CDCAT"})));
    EXPECT_EQ(host.Calls(), Lines({start, Read("CDCAT"), Update("CDCAT = ''", "7"), commit}));
  }
}

TEST(NACDS, EditReportsAnUpdateThatFailsAndAnswersForTheLast) {
  const auto failed = [](const std::string& name) {
    return "scErrorMessage(0, 2, 2, \"Edit: NACDS\", 60001, \"" + name + "\", \"NACDS\")";
  };
  {
    ScriptedHost host;
    host.Param("CDCAT", "2");
    host.Refuse("scRunQuery", "UPDATE NACDS SET CDCAT = '2'\r\n WHERE CmdId = 7");
    EXPECT_TRUE(host.Run(Act("EditInfo", {"CDCAT", "OTHER"})));
    EXPECT_EQ(host.Effects(),
              Lines({start, Update("CDCAT = '2'", "7"), failed("CDCAT"), Update("OTHER = ''", "7"), commit}));
  }
  {
    ScriptedHost host;
    host.Param("CDCAT", "2");
    host.Refuse("scRunQuery", "UPDATE NACDS SET CDCAT = '2'\r\n WHERE CmdId = 7");
    EXPECT_FALSE(host.Run(Act("EditInfo", {"OTHER", "CDCAT"})));
    EXPECT_EQ(host.Effects(),
              Lines({start, Update("OTHER = ''", "7"), Update("CDCAT = '2'", "7"), failed("CDCAT"), rollBack}));
  }
}

TEST(NACDS, ReportsATransactionThatFails) {
  {
    ScriptedHost host;
    Form(host, "12", {"12"}, {"1"});
    host.Refuse("scStartTransaction");
    host.Refuse("scRollBackTransaction");
    EXPECT_FALSE(host.Run(Act("SetInfo")));
    EXPECT_EQ(host.Effects(), Lines({Query(CountSql("12")), start, "scErrorMessage(0, 2, 2, \"Add: NACDS\", 62010)",
                                     rollBack, "scErrorMessage(0, 2, 2, \"Add: NACDS\", 62012)"}));
  }
  {
    ScriptedHost host;
    host.Refuse("scCommitTransaction");
    EXPECT_TRUE(host.Run(Act("EditInfo", {"CDCAT"})));
    EXPECT_EQ(host.Effects(),
              Lines({start, Update("CDCAT = ''", "7"), commit, "scErrorMessage(0, 2, 2, \"Edit: NACDS\", 62011)"}));
  }
}

}  // namespace
}  // namespace cordboard
