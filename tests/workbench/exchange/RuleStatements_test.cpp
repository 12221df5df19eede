#include "workbench/exchange/RuleStatements.h"
#include "workbench/forms/ValueList.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "script/RunTimeFailure.h"
#include "workbench/support/TestExchange.h"

namespace cordboard::workbench {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

class RuleStatementsTest : public testing::Test {
 protected:
  // The rows of a statement of the rules, or the debug line of its failure.
  std::string Run(const std::string& sql, const std::string& selector = "dynamic") {
    const auto rows = RunRule(*exchange_, sql, selector, debug_);
    return rows ? TraceText(*rows) : LastLine();
  }

  std::string LastLine() { return debug_.empty() ? "no line" : debug_.back(); }
  std::string Profiles() { return Rows(*exchange_, "SELECT CMDID, CSP, DESCRIPTION FROM GESPI ORDER BY rowid"); }

  bool Insert(const List& columns, const List& values, const std::string& table = "GESPI") {
    return InsertRow(*exchange_, "dynamic", table, columns, values, debug_);
  }
  bool Update(const List& columns, const List& values, const List& keys, const List& keyValues) {
    return UpdateRows(*exchange_, "dynamic", "GESPI", columns, values, keys, keyValues, debug_);
  }
  std::string Select(const List& columns, const List& keys, const List& keyValues) {
    return TraceText(SelectRows(*exchange_, "dynamic", "GESPI", columns, keys, keyValues, debug_));
  }

  std::unique_ptr<Exchange> exchange_ = ExampleExchange();
  DebugLines debug_;
};

// --- Statements.

TEST_F(RuleStatementsTest, AStatementIsReadInTheDialectOfTheRules) {
  EXPECT_EQ(Run("SELECT CUST, DESCRIPTION \r\n FROM CUSTOMERS \r\n ORDER BY VAL(CUST)"),
            R"([["1", "2"], ["Head office", "Works"]])");
  EXPECT_EQ(Run("INSERT INTO NANSI VALUES (1, '100', 'EX', FALSE)"), "Empty");
  EXPECT_EQ(Run("UPDATE NANSI SET USED = YES WHERE NUMSE Like '[1-2]%'"), "Empty");
  EXPECT_EQ(Run("SELECT NUMSE, USED FROM NANSI"), R"([["100"], [True]])");
  EXPECT_EQ(Run("DELETE * FROM NANSI\r\nWHERE CmdId = 1"), "Empty");
  EXPECT_EQ(Run("SELECT COUNT(*) FROM NANSI"), "[[0]]");
  EXPECT_THAT(debug_, IsEmpty());
}

TEST_F(RuleStatementsTest, TheSelectorNamesTheDatabase) {
  EXPECT_EQ(Run("SELECT COUNT(*) FROM KSEXITEMPLATE", "site"), "[[0]]");
  EXPECT_EQ(Run("SELECT Value FROM ParamValueDesc WHERE Command = 'NANSI' AND Value = 'EX'", "static"), R"([["EX"]])");
  EXPECT_THAT(Run("SELECT COUNT(*) FROM ParamValueDesc", "dynamic"), HasSubstr("no such table"));
  EXPECT_THAT(Run("SELECT COUNT(*) FROM NANSI", "other"), HasSubstr("there is no database 'other'"));
}

TEST_F(RuleStatementsTest, ATemplateStandsApartFromTheTableOfItsNameInTheConfiguration) {
  EXPECT_TRUE(InsertRow(*exchange_, "site", "KSEXITEMPLATE", {"CMDID", "TEMPLATENAME"}, {7, "Office"}, debug_));
  EXPECT_TRUE(UpdateRows(*exchange_, "site", "KSEXITEMPLATE", {"CAT"}, {"1"}, {"CMDID"}, {7}, debug_));
  EXPECT_EQ(TraceText(SelectRows(*exchange_, "site", "KSEXITEMPLATE", {"CAT"}, {"CMDID"}, {7}, debug_)), R"([["1"]])");
  EXPECT_EQ(Run("SELECT MAX(CMDID) FROM KSEXITEMPLATE", "site"), "[[7]]");
  EXPECT_EQ(Run("UPDATE KSEXITemplate SET CAT = '2' WHERE CmdId = 7", "site"), "Empty");
  EXPECT_EQ(Run("SELECT TEMPLATENAME,CAT FROM KSEXITemplate", "site"), R"([["Office"], ["2"]])");
  EXPECT_EQ(Run("SELECT CMDID FROM KSEXITEMPLATE"), "Empty");
  const auto list = PrepareList(*exchange_, "SELECT TEMPLATENAME FROM KSEXITEMPLATE", "site", debug_);
  ASSERT_TRUE(list);
  EXPECT_EQ(TraceText(list->database->RunRule(list->sql, list->parameters)), R"([["Office"]])");
  EXPECT_EQ(Run("Delete * FROM KSEXITEMPLATE  WHERE CmdID = 7", "site"), "Empty");
  EXPECT_EQ(Run("SELECT COUNT(*) FROM KSEXITEMPLATE", "site"), "[[0]]");
}

TEST_F(RuleStatementsTest, AnEmptySelectorAndNoneAtAllNameTheDefault) {
  EXPECT_EQ(SelectorName(std::nullopt, "static"), "static");
  EXPECT_EQ(SelectorName(Value(), "dynamic"), "dynamic");
  EXPECT_EQ(SelectorName(Value::Null(), "dynamic"), "dynamic");
  EXPECT_EQ(SelectorName(Value(""), "dynamic"), "dynamic");
  EXPECT_EQ(SelectorName(Value("site"), "dynamic"), "site");
}

TEST_F(RuleStatementsTest, AStatementThatFailsIsTracedWithItsText) {
  EXPECT_THAT(Run("SELECT x FROM NANSI"),
              AllOf(StartsWith("Failed statement: no such column: x"), testing::EndsWith(": SELECT x FROM NANSI")));
  EXPECT_THAT(Run("SELECT FROM NANSI"), StartsWith("Malformed statement: "));
  EXPECT_THAT(Run("CREATE TABLE x (a)"), StartsWith("Malformed statement: "));
  EXPECT_THAT(Run(""), StartsWith("Malformed statement: "));
  EXPECT_EQ(debug_.size(), 4u);
}

TEST_F(RuleStatementsTest, AQuoteInAValueFailsAndCanDoNothingElse) {
  Run("INSERT INTO GESPI (CSP) VALUES ('1')");
  EXPECT_THAT(Run("UPDATE GESPI SET DESCRIPTION = 'O'Neill'"), StartsWith("Malformed statement: "));
  EXPECT_THAT(Run("UPDATE GESPI SET DESCRIPTION = 'x'; DELETE * FROM GESPI WHERE CSP = '1'"),
              StartsWith("Malformed statement: "));
  EXPECT_EQ(Profiles(), R"([[Null], ["1"], [Null]])");
}

TEST_F(RuleStatementsTest, TheTablesOfTheWorkbenchAreOutOfReach) {
  EXPECT_THAT(Run("SELECT Value FROM Cordboard"), StartsWith("Failed statement: "));
  EXPECT_THAT(Run("UPDATE Cordboard SET Value = 'R8'"), StartsWith("Failed statement: "));
  EXPECT_THAT(Run("SELECT sql FROM sqlite_master"), StartsWith("Failed statement: "));
  EXPECT_THAT(Run("DELETE * FROM ParamValueDesc", "static"), HasSubstr("readonly"));
}

// --- Lists.

TEST_F(RuleStatementsTest, AStatementOfAListIsCheckedButNotRun) {
  const auto list = PrepareList(*exchange_, "SELECT CUST FROM CUSTOMERS WHERE CUST = '2'", "dynamic", debug_);
  ASSERT_TRUE(list);
  EXPECT_EQ(list->database, &exchange_->Dynamic());
  EXPECT_EQ(TraceText(list->database->RunRule(list->sql, list->parameters)), R"([["2"]])");
}

TEST_F(RuleStatementsTest, AStatementThatWouldFailMakesNoList) {
  const auto refused = [&](const std::string& sql, const std::string& selector = "dynamic") {
    return PrepareList(*exchange_, sql, selector, debug_) ? "taken" : LastLine();
  };
  EXPECT_THAT(refused("SELECT x FROM CUSTOMERS"), StartsWith("Failed statement: no such column: x"));
  EXPECT_THAT(refused("SELECT CUST FROM CUSTOMERS WHERE CUST = 'O'Neill'"), StartsWith("Malformed statement: "));
  EXPECT_THAT(refused("DELETE * FROM CUSTOMERS"), HasSubstr("the statement gives no values"));
  EXPECT_THAT(refused("SELECT CUST FROM CUSTOMERS", "other"), HasSubstr("there is no database 'other'"));
  EXPECT_EQ(Count(*exchange_, "CUSTOMERS"), 2);
}

// --- Rows by names and values.

TEST_F(RuleStatementsTest, ARowGoesInWithoutQuotingAndAnEmptyValueIsANull) {
  EXPECT_TRUE(Insert({"CMDID", "CSP", "DESCRIPTION"}, {7, "1", "O'Neill; \"x\""}));
  EXPECT_TRUE(Insert({"CMDID", "CSP", "DESCRIPTION"}, {8, Value(), ""}));
  EXPECT_EQ(Profiles(), R"([[7, 8], ["1", Null], ["O'Neill; {QT}x{QT}", ""]])");
}

TEST_F(RuleStatementsTest, ARowThatDoesNotFitIsRefused) {
  EXPECT_FALSE(Insert({"CSP"}, {"1", "2"}));
  EXPECT_EQ(LastLine(), "Failed statement: columns and values differ in number: insert into GESPI");
  EXPECT_FALSE(Insert({"x"}, {"1"}));
  EXPECT_THAT(LastLine(), HasSubstr("no column named x"));
  EXPECT_FALSE(Insert({"CSP"}, {"1"}, "NOWHERE"));
  EXPECT_THAT(LastLine(), HasSubstr("no such table: NOWHERE"));
  EXPECT_FALSE(Insert({"CSP"}, {"1"}, "GESPI] DEFAULT VALUES; --"));
  EXPECT_THAT(LastLine(), HasSubstr("no name holds a bracket"));
  EXPECT_FALSE(Insert({"Name"}, {"x"}, "Cordboard"));
  EXPECT_FALSE(Insert(List(std::vector<Value>()), List(std::vector<Value>())));
  EXPECT_EQ(Profiles(), "Empty");
}

TEST_F(RuleStatementsTest, AListWithoutBoundsFailsTheCall) {
  EXPECT_THROW(Insert(List(), {"1"}), RunTimeFailure);
  EXPECT_THROW(Update({"CSP"}, List(), {"CMDID"}, {1}), RunTimeFailure);
  EXPECT_THROW(Update({"CSP", "DESCRIPTION"}, {"1"}, {"CMDID"}, {1}), RunTimeFailure);
}

TEST_F(RuleStatementsTest, AnUpdateChangesTheRowsThatMatchAllKeys) {
  for (int id : {1, 2, 3}) Insert({"CMDID", "CSP", "DESCRIPTION"}, {id, id == 3 ? "9" : "5", "old"});
  EXPECT_TRUE(Update({"DESCRIPTION"}, {"new"}, {"CSP", "CMDID"}, {"5", 2}));
  EXPECT_EQ(Profiles(), R"([[1, 2, 3], ["5", "5", "9"], ["old", "new", "old"]])");
  EXPECT_TRUE(Update({"DESCRIPTION", "CSP"}, {Value(), "6"}, {"CSP"}, {"5"}));
  EXPECT_EQ(Profiles(), R"([[1, 2, 3], ["6", "6", "9"], [Null, Null, "old"]])");
  EXPECT_TRUE(Update({"DESCRIPTION"}, {"x"}, {"CMDID"}, {4})) << "a row that is not there is no failure";
}

TEST_F(RuleStatementsTest, AKeyWithoutANameCountsForNothing) {
  for (int id : {1, 2}) Insert({"CMDID", "DESCRIPTION"}, {id, "old"});
  EXPECT_TRUE(Update({"DESCRIPTION"}, {"new"}, {"CMDID", "", Value()}, {2, "x", "y"}));
  EXPECT_EQ(Profiles(), R"([[1, 2], [Null, Null], ["old", "new"]])");
  EXPECT_EQ(Select({"DESCRIPTION"}, {"", "CMDID"}, {"x", 1}), R"([["old"]])");
}

TEST_F(RuleStatementsTest, WithoutAnyKeyNothingIsChangedOrFound) {
  Insert({"CMDID", "DESCRIPTION"}, {1, "old"});
  EXPECT_FALSE(Update({"DESCRIPTION"}, {"new"}, {""}, {1}));
  EXPECT_EQ(LastLine(), "Failed statement: a key is missing: update of GESPI");
  EXPECT_EQ(Select({"DESCRIPTION"}, {""}, {1}), "Empty");
  EXPECT_EQ(LastLine(), "Failed statement: a key is missing: select from GESPI");
  EXPECT_EQ(Profiles(), R"([[1], [Null], ["old"]])");
}

TEST_F(RuleStatementsTest, SelectedRowsStandInTheOrderOfTheirInsertion) {
  for (int id : {3, 1, 2}) Insert({"CMDID", "CSP", "DESCRIPTION"}, {id, "5", "a"});
  EXPECT_EQ(Select({"CMDID", "CSP"}, {"CSP"}, {"5"}), R"([[3, 1, 2], ["5", "5", "5"]])");
  EXPECT_EQ(Select({"CMDID"}, {"CSP"}, {"6"}), "Empty");
  EXPECT_EQ(Select({"x"}, {"CSP"}, {"5"}), "Empty");
  EXPECT_THAT(LastLine(), HasSubstr("no such column: x"));
}

}  // namespace
}  // namespace cordboard::workbench
