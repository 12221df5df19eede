#include "workbench/forms/RowValues.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "workbench/database/Connection.h"
#include "workbench/exchange/RuleStatements.h"
#include "workbench/support/Steps.h"
#include "workbench/support/TestExchange.h"

namespace cordboard::workbench {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

class RowValuesTest : public testing::Test {
 protected:
  RowValuesTest() {
    database_.Execute(
        "CREATE TABLE [t] ([Text] TEXT, [Whole] INTEGER, [About] TEXT, [Any]);"
        "INSERT INTO [t] VALUES ('10', 10, 'ten', '10'), ('', NULL, 'blank', ''), (NULL, 3, NULL, NULL),"
        "                       ('07', 7, NULL, 7)");
  }

  void CountTo(int last) {
    database_.Execute(
        "CREATE TABLE [many] AS WITH RECURSIVE [n](i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM [n] WHERE i < " +
        std::to_string(last) + ") SELECT i FROM [n]");
  }

  RowValues Of(const std::string& sql) { return RowValues({&database_, sql, {}}); }

  // The first so many of what is offered, with the descriptions.
  static std::vector<std::string> Offered(RowValues values, std::size_t page, std::size_t count) {
    std::vector<std::string> offered;
    values.Offer(page, "", [&](std::string_view value, std::string_view description) {
      offered.push_back(std::string(value) + (description.empty() ? "" : " " + std::string(description)));
      return offered.size() < count;
    });
    return offered;
  }

  const StepCounter counter_;  // lives before the database is opened
  Connection database_;
};

TEST_F(RowValuesTest, HoldsAValueAsItIsWritten) {
  RowValues texts = Of("SELECT [Text] FROM [t]");
  EXPECT_TRUE(texts.Hold("10"));
  EXPECT_TRUE(texts.Hold("07"));
  EXPECT_FALSE(texts.Hold("7"));
  EXPECT_FALSE(texts.Hold("10.0"));
  RowValues numbers = Of("SELECT [Whole] FROM [t]");
  EXPECT_TRUE(numbers.Hold("7"));
  EXPECT_FALSE(numbers.Hold("07"));
}

TEST_F(RowValuesTest, HoldsATextAndANumberOfAColumnWithoutAType) {
  RowValues values = Of("SELECT [Any] FROM [t]");
  EXPECT_TRUE(values.Hold("10"));
  EXPECT_TRUE(values.Hold("7"));
}

TEST_F(RowValuesTest, OffersTheRowsThatHaveAValueInTheirOrder) {
  EXPECT_THAT(Offered(Of("SELECT [Text], [About] FROM [t]"), wholePage, 9), ElementsAre("10 ten", "07"));
  EXPECT_THAT(Offered(Of("SELECT [Text], [About] FROM [t]"), 2, 9), ElementsAre("10 ten", "07"));
  EXPECT_THAT(Offered(Of("SELECT [Whole] FROM [t]"), wholePage, 9), ElementsAre("10", "3", "7"));
}

TEST_F(RowValuesTest, OffersNoMoreThanIsWanted) {
  EXPECT_THAT(Offered(Of("SELECT [Whole] FROM [t]"), wholePage, 2), ElementsAre("10", "3"));
  EXPECT_THAT(Offered(Of("SELECT [Whole] FROM [t]"), 1, 1), ElementsAre("10"));
}

TEST_F(RowValuesTest, OffersEveryValueOnceWhereThereAreManyPages) {
  CountTo(500);
  for (const std::size_t page : {std::size_t{1}, std::size_t{16}, std::size_t{100}, wholePage}) {
    const std::vector<std::string> offered = Offered(Of("SELECT [i] FROM [many]"), page, 1000);
    ASSERT_EQ(offered.size(), 500U) << page;
    for (std::size_t i = 0; i < offered.size(); ++i) EXPECT_EQ(offered[i], std::to_string(i + 1)) << page;
  }
}

TEST_F(RowValuesTest, ReadsTheFirstPageAloneWhereNoMoreIsWanted) {
  CountTo(5000);
  const auto stepsFor = [this](std::size_t count) {
    return StepCounter::Steps([&] { Offered(Of("SELECT [i] FROM [many]"), 16, count); });
  };
  EXPECT_LT(stepsFor(10), 500);
  EXPECT_GT(stepsFor(5000), 5000);
}

// --- The cost of a look-up.

// How the database finds one value in a list of the rules.
std::string PlanOf(Exchange& exchange, const std::string& rule, const std::string& database = "dynamic") {
  DebugLines debug;
  const auto list = PrepareList(exchange, rule, database, debug);
  if (!list) return debug.front();
  ListStatement asked = Membership(*list);
  asked.parameters.emplace_back("100");
  const RowSet plan = asked.database->Run("EXPLAIN QUERY PLAN " + asked.sql, asked.parameters);
  std::string text;
  for (const Value& detail : plan[3]) text += detail.text() + "\n";
  return text;
}

TEST(RowValuesPlan, AValueIsLookedUpThroughAnIndexOfItsColumn) {
  const auto exchange = ExampleExchange();
  for (const char* rule :
       {"SELECT NUMSE FROM NANSI",
        " SELECT NUMSE FROM NANSI \r\n WHERE NUMTYP = 'EX' \r\n AND USED = FALSE \r\n ORDER BY NUMSE",
        "SELECT NUMSE FROM NANSI WHERE NUMTYP = 'EX'", "SELECT DISTINCT NUMSE FROM NANSI WHERE NUMTYP = 'EX'"}) {
    const std::string plan = PlanOf(*exchange, rule);
    EXPECT_THAT(plan, HasSubstr("NUMSE=?")) << rule;
    EXPECT_THAT(plan, Not(HasSubstr("SCAN NANSI"))) << rule;
  }
}

TEST(RowValuesPlan, SoAreTheNumbersAndPositionsThatOtherRecordsHold) {
  const auto exchange = ExampleExchange();
  for (const char* rule :
       {"SELECT DIR FROM KSEXI", " SELECT DIR FROM EXTEIDIR ", "SELECT ADN FROM KSANI",
        "SELECT ROU, DESCRIPTION FROM ROCAI \r\nORDER BY VAL(ROU) ", " SELECT EQU FROM EQUIPMENT WHERE USED = FALSE"}) {
    const std::string plan = PlanOf(*exchange, rule);
    EXPECT_THAT(plan, HasSubstr("SEARCH")) << rule;
    EXPECT_THAT(plan, HasSubstr("=?")) << rule;
    EXPECT_THAT(plan, Not(HasSubstr("SCAN"))) << rule;
  }
}

}  // namespace
}  // namespace cordboard::workbench
