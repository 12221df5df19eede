// The first values of a list, without the rest of it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "workbench/database/Connection.h"
#include "workbench/forms/ValueList.h"
#include "workbench/support/Steps.h"

namespace cordboard::workbench {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ValueListFirst : public testing::Test {
 protected:
  ValueListFirst() {
    database_.Execute("CREATE TABLE Numbers (N TEXT, Kind TEXT, Title TEXT)");
    for (int n = 100; n < 300; ++n)
      database_.Run("INSERT INTO Numbers VALUES (?, ?, ?)",
                    {std::to_string(n), n % 2 == 0 ? "even" : "odd", "Number " + std::to_string(n)});
  }

  ListStatement Rows(const std::string& kind, const std::string& order) {
    return {&database_, "SELECT N FROM Numbers WHERE Kind = ? ORDER BY N " + order, {kind}};
  }

  // What First gives, which has to be the beginning of the whole list.
  static std::vector<std::string> First(const ValueList& list, std::size_t count) {
    const std::vector<ValidValue> all = list.All();
    const std::vector<ValidValue> first = list.First(count);
    EXPECT_EQ(first, std::vector<ValidValue>(all.begin(), all.begin() + std::min(count, all.size())));
    std::vector<std::string> values;
    for (const ValidValue& entry : first) values.push_back(entry.value);
    return values;
  }

  Connection& database() { return database_; }

 private:
  Connection database_;
};

TEST_F(ValueListFirst, HasTheOrderAndTheDescriptionsOfTheStatement) {
  ValueList list;
  list.Collect(Rows("odd", "DESC"));
  EXPECT_THAT(First(list, 3), ElementsAre("299", "297", "295"));
  list.Collect({&database(), "SELECT N, Title FROM Numbers ORDER BY N", {}});
  EXPECT_THAT(list.First(1), ElementsAre(ValidValue{"100", "Number 100"}));
}

TEST_F(ValueListFirst, LeavesOutWhatLaterStepsTakeAway) {
  ValueList list;
  list.Collect({&database(), "SELECT N FROM Numbers ORDER BY N", {}});
  list.Subtract(Rows("odd", ""));
  list.Remove("102");
  list.RemoveRange(106, 190);
  EXPECT_THAT(First(list, 4), ElementsAre("100", "104", "192", "194"));
}

TEST_F(ValueListFirst, GoesOnThroughAllStepsThatAdd) {
  ValueList list;
  list.Push("7");
  list.Remove("7");
  list.Push("7");
  list.PushRange(1, 3);
  list.RemoveRange(2, 2);
  list.Add(Rows("even", ""));
  list.Push("8");
  EXPECT_THAT(First(list, 5), ElementsAre("7", "1", "3", "100", "102"));
  EXPECT_EQ(First(list, 1000).size(), 104u);
  EXPECT_THAT(First(list, 0), IsEmpty());
}

TEST_F(ValueListFirst, LeavesOutRowsWithoutAValue) {
  database().Run("INSERT INTO Numbers VALUES (NULL, 'blank', ''), ('', 'blank', ''), ('5', 'blank', '')");
  ValueList list;
  list.Collect(Rows("blank", ""));
  EXPECT_THAT(First(list, 2), ElementsAre("5"));
}

TEST_F(ValueListFirst, CountsTheAcceptedOnes) {
  ValueList list;
  list.Collect(Rows("even", ""));
  const auto accepted = list.First(2, {.accept = [](const std::string& value) { return value.ends_with("98"); }});
  EXPECT_THAT(accepted, ElementsAre(ValidValue{"198", ""}, ValidValue{"298", ""}));
}

// After so many that are gone they are read, and no more looked up one by one.
TEST(ValueListFirstOfMany, CostsLittleForEachThatIsGone) {
  const StepCounter counter;
  Connection database;
  constexpr long many = 40000;
  for (const char* table : {"Numbers", "Gone"}) {
    database.Run("CREATE TABLE " + std::string(table) +
                 " AS WITH RECURSIVE n(N) AS (SELECT 100000 UNION ALL SELECT N + 1" +
                 " FROM n LIMIT 40000) SELECT CAST(N AS TEXT) AS N FROM n");
    database.Run("CREATE INDEX Of" + std::string(table) + " ON " + table + " (N)");
  }
  database.Run("INSERT INTO Numbers VALUES ('200000')");
  ValueList list;
  list.Collect({&database, "SELECT N FROM Numbers ORDER BY N", {}});
  list.Subtract({&database, "SELECT N FROM Gone", {}});
  std::vector<ValidValue> first;
  EXPECT_LT(StepCounter::Steps([&] { first = list.First(1); }), 20 * many);
  EXPECT_THAT(first, ElementsAre(ValidValue{"200000", ""}));
}

}  // namespace
}  // namespace cordboard::workbench
