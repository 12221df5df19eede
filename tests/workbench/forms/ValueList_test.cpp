#include "workbench/forms/ValueList.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "workbench/database/Connection.h"
#include "workbench/exchange/RuleStatements.h"
#include "workbench/support/Steps.h"

namespace cordboard::workbench {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ValueListTest : public testing::Test {
 protected:
  ValueListTest() {
    database_.Execute(
        "CREATE TABLE [t] ([Text] TEXT, [Whole] INTEGER, [About] TEXT);"
        "INSERT INTO [t] VALUES ('10', 10, 'ten'), ('07', 7, 'seven'), ('', NULL, 'blank'), (NULL, 3, NULL),"
        "                       ('A1', 11, 'letters'), ('10', 10, 'ten again')");
  }

  ListStatement Of(const std::string& sql, std::vector<Value> parameters = {}) {
    return {&database_, sql, std::move(parameters)};
  }

  std::vector<std::string> Values() {
    std::vector<std::string> values;
    for (const ValidValue& entry : list_.All()) values.push_back(entry.value);
    return values;
  }

  Connection database_;
  ValueList list_;
};

// --- Reading it.

TEST_F(ValueListTest, IsHandedOnValueByValueAsLongAsTheyAreWanted) {
  list_.Collect(Of("SELECT [Text] FROM [t] ORDER BY [Whole]"));
  list_.Push("5");
  list_.PushRange(20, 1000000000);
  for (const std::size_t wanted : {1, 4, 6}) {
    std::vector<std::string> taken;
    list_.Each([&](auto value, auto) {
      taken.emplace_back(value);
      return taken.size() < wanted;
    });
    EXPECT_EQ(taken.size(), wanted);
    EXPECT_EQ(taken.back(), wanted == 1 ? "07" : wanted == 4 ? "A1" : "20");
  }
}

TEST_F(ValueListTest, CountsWhatItHandsOn) {
  EXPECT_EQ(list_.Count(), 0);
  list_.Collect(Of("SELECT [Text] FROM [t]"));
  EXPECT_EQ(list_.Count(), 4);
}

// The two ask the same statement, of which the database keeps one.
TEST_F(ValueListTest, CanTakeAwayWhatItReads) {
  list_.Collect(Of("SELECT [Text] FROM [t]"));
  list_.Subtract(Of("SELECT [Text] FROM [t]"));
  list_.Add(Of("SELECT [Text] FROM [t] WHERE [Whole] = 7"));
  EXPECT_THAT(Values(), ElementsAre("07"));
}

// However many steps go before it, what is taken away is read once.
TEST(ValueListCost, ReadsWhatItTakesAwayOnce) {
  const StepCounter counter;
  Connection database;
  database.Execute("CREATE TABLE [t] ([Whole] INTEGER); INSERT INTO [t] VALUES (7), (9)");
  ValueList list;
  for (int number = 1; number <= 100; ++number) list.Push(std::to_string(number));
  list.Subtract({&database, "SELECT [Whole] FROM [t]", {}});
  list.Push("9");
  std::size_t count = 0;
  EXPECT_EQ(StepCounter::Statements([&] { count = list.Count(); }), 1);
  EXPECT_EQ(count, 99);
}

// --- What builds a list.

TEST_F(ValueListTest, AListThatNothingBuiltHoldsNothing) {
  EXPECT_THAT(list_.All(), IsEmpty());
  EXPECT_FALSE(list_.Contains("1"));
}

TEST_F(ValueListTest, ACollectionHoldsTheRowsInTheirOrderWithTheirDescriptions) {
  list_.Collect(Of("SELECT [Text], [About] FROM [t] WHERE [Whole] > ? ORDER BY [Whole] DESC", {6}));
  EXPECT_THAT(list_.All(), ElementsAre(ValidValue{"A1", "letters"}, ValidValue{"10", "ten"},
                                       ValidValue{"10", "ten again"}, ValidValue{"07", "seven"}));
}

TEST_F(ValueListTest, FixedValuesAreFoundAsTheyAreWritten) {
  list_.Push("5");
  list_.Collect(std::make_shared<DescribedValues>(DescribedValues{{"1", "one"}, {"02", "two"}, {"A", ""}}));
  EXPECT_THAT(list_.All(), ElementsAre(ValidValue{"1", "one"}, ValidValue{"02", "two"}, ValidValue{"A", ""}));
  EXPECT_THAT(list_.First(2), ElementsAre(ValidValue{"1", "one"}, ValidValue{"02", "two"}));
  EXPECT_TRUE(list_.Contains("A"));
  for (const char* missing : {"5", "a", "01", "2", ""}) EXPECT_FALSE(list_.Contains(missing)) << missing;
  list_.Collect(std::make_shared<DescribedValues>());
  EXPECT_THAT(list_.All(), IsEmpty());
}

TEST_F(ValueListTest, ACollectionReplacesWhatWasThere) {
  list_.Push("5");
  list_.Collect(Of("SELECT [Text] FROM [t] WHERE [Whole] = 7"));
  EXPECT_THAT(Values(), ElementsAre("07"));
  EXPECT_FALSE(list_.Contains("5"));
}

TEST_F(ValueListTest, ARowWithoutAValueGivesNothing) {
  list_.Collect(Of("SELECT [Text] FROM [t] WHERE [Whole] IS NULL OR [Whole] = 3"));
  EXPECT_THAT(Values(), IsEmpty());
  EXPECT_FALSE(list_.Contains(""));
}

TEST_F(ValueListTest, NumbersAreTextsInAList) {
  list_.Collect(Of("SELECT [Whole] FROM [t] ORDER BY rowid"));
  EXPECT_THAT(Values(), ElementsAre("10", "7", "3", "11", "10"));
  EXPECT_TRUE(list_.Contains("7"));
  EXPECT_FALSE(list_.Contains("07")) << "the list shows 7";
  EXPECT_FALSE(list_.Contains("7.0"));
}

TEST_F(ValueListTest, ComputedNumbersAreFoundToo) {
  list_.Collect(Of("SELECT MAX([Whole]) + 1 FROM [t]"));
  list_.Add(Of("SELECT VAL([Text]) / 2 FROM [t] WHERE [Text] = '07'"));
  EXPECT_THAT(Values(), ElementsAre("12", "3.5"));
  EXPECT_TRUE(list_.Contains("12"));
  EXPECT_TRUE(list_.Contains("3.5"));
  EXPECT_FALSE(list_.Contains("012"));
}

TEST_F(ValueListTest, AdditionsStandBehindWhatIsThere) {
  list_.Push("1");
  list_.Add(Of("SELECT [Text] FROM [t] WHERE [Whole] = 7"));
  list_.PushRange(9, 11);
  EXPECT_THAT(Values(), ElementsAre("1", "07", "9", "10", "11"));
  EXPECT_TRUE(list_.Contains("10"));
  EXPECT_FALSE(list_.Contains("12"));
}

TEST_F(ValueListTest, ASubtractionTakesEveryCopyAndIgnoresWhatIsNotThere) {
  list_.Collect(Of("SELECT [Text] FROM [t] ORDER BY rowid"));
  list_.Subtract(Of("SELECT [Text] FROM [t] WHERE [Text] = '10' UNION SELECT 'other'"));
  EXPECT_THAT(Values(), ElementsAre("07", "A1"));
  EXPECT_FALSE(list_.Contains("10"));
}

TEST_F(ValueListTest, ASubtractionThatFindsNothingLeavesTheListAlone) {
  list_.PushRange(1, 2);
  list_.Subtract(Of("SELECT [Text] FROM [t] WHERE 0"));
  EXPECT_THAT(Values(), ElementsAre("1", "2"));
}

TEST_F(ValueListTest, AValueThatIsTakenAwayCanComeBack) {
  list_.PushRange(1, 3);
  list_.Remove("2");
  EXPECT_FALSE(list_.Contains("2"));
  list_.Push("2");
  EXPECT_THAT(Values(), ElementsAre("1", "3", "2"));
  EXPECT_TRUE(list_.Contains("2"));
}

TEST_F(ValueListTest, TellsWhatItTakesAwayFromAnother) {
  ValueList changes;
  EXPECT_FALSE(changes.TakesAway("2"));
  changes.Remove("2");
  EXPECT_TRUE(changes.TakesAway("2"));
  EXPECT_FALSE(changes.TakesAway("3"));
  EXPECT_FALSE(changes.TakesAway(""));
  changes.Push("2");
  EXPECT_FALSE(changes.TakesAway("2"));
}

TEST_F(ValueListTest, RangesAreOfWholeNumbersAsTheyAreWritten) {
  for (const char* value : {"-1", "0", "1", "01", "1x", "2"}) list_.Push(value);
  list_.RemoveRange(-1, 1);
  EXPECT_THAT(Values(), ElementsAre("01", "1x", "2"));
  list_.PushRange(5, 4);
  EXPECT_THAT(Values(), ElementsAre("01", "1x", "2"));
  list_.PushRange(-2, -1);
  EXPECT_TRUE(list_.Contains("-1"));
  EXPECT_FALSE(list_.Contains("-01"));
}

TEST_F(ValueListTest, AListGoesOnWithTheStepsOfAnother) {
  list_.PushRange(1, 3);
  ValueList changes;
  changes.Remove("2");
  changes.Push("9");
  list_.Append(changes);
  EXPECT_THAT(Values(), ElementsAre("1", "3", "9"));
  changes.Collect(Of("SELECT [Text] FROM [t] WHERE [Whole] = 7"));
  list_.Append(changes);
  EXPECT_THAT(Values(), ElementsAre("07"));
  EXPECT_FALSE(list_.Contains("1"));
}

TEST_F(ValueListTest, AListShowsTheDatabaseAsItIsWhenItIsRead) {
  list_.Collect(Of("SELECT [Text] FROM [t] WHERE [Whole] = 42"));
  EXPECT_THAT(Values(), IsEmpty());
  database_.Execute("INSERT INTO [t] VALUES ('new', 42, NULL)");
  EXPECT_THAT(Values(), ElementsAre("new"));
  EXPECT_TRUE(list_.Contains("new"));
}

// --- The look-up says what the whole list says, whatever the steps.

TEST_F(ValueListTest, AValueIsContainedExactlyWhereTheWholeListHoldsIt) {
  const std::vector<ListStatement> statements = {
      Of("SELECT [Text] FROM [t]"),
      Of("SELECT [Text], [About] FROM [t] WHERE [Whole] >= ?", {10}),
      Of("SELECT [Whole], [About] FROM [t] ORDER BY [Whole]"),
      Of("SELECT DISTINCT [Whole] FROM [t]"),
      Of("SELECT MAX([Whole]), COUNT(*) FROM [t] GROUP BY [Text]"),
      Of("SELECT VAL([Text]) FROM [t]"),
      Of("SELECT [Whole] / 4.0 FROM [t]"),
      Of("SELECT [Text] FROM [t] WHERE [Text] IN (SELECT [Whole] FROM [t])"),
      Of("SELECT ? UNION SELECT [About] FROM [t]", {"1"}),
  };
  const std::vector<std::string> values = {"",    "0",  "1",    "2",   "3",   "7",     "07",  "10",  "11",  "A1",
                                           "010", "-1", "10.0", "2.5", "ten", "seven", "1e1", " 10", "null"};
  std::mt19937 generator(20240229);
  const auto any = [&](std::size_t count) {
    return std::uniform_int_distribution<std::size_t>(0, count - 1)(generator);
  };
  const auto number = [&] { return static_cast<long long>(any(15)) - 2; };
  for (int round = 0; round < 400; ++round) {
    ValueList list;
    std::string steps;
    for (std::size_t step = any(8); step > 0; --step) {
      const std::size_t kind = any(8);
      steps += std::to_string(kind) + " ";
      switch (kind) {
        case 0: list.Collect(statements[any(statements.size())]); break;
        case 1:
        case 2: list.Add(statements[any(statements.size())]); break;
        case 3: list.Subtract(statements[any(statements.size())]); break;
        case 4: list.Push(values[1 + any(values.size() - 1)]); break;
        case 5: list.PushRange(number(), number()); break;
        case 6: list.Remove(values[any(values.size())]); break;
        default: list.RemoveRange(number(), number()); break;
      }
    }
    const std::vector<ValidValue> all = list.All();
    for (const std::string& value : values) {
      const bool held = std::ranges::find(all, value, &ValidValue::value) != all.end();
      ASSERT_EQ(list.Contains(value), held) << "'" << value << "' after the steps " << steps;
    }
  }
}

}  // namespace
}  // namespace cordboard::workbench
