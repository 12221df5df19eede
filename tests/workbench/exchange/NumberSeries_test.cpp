#include "workbench/exchange/NumberSeries.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>

#include "workbench/support/TestExchange.h"
#include "workbench/text/Elements.h"

namespace cordboard::workbench {
namespace {

class NumberSeriesTest : public testing::Test {
 protected:
  // "done", or the code and the reason of the refusal.
  std::string Initiate(const std::string& numse, const std::string& numtyp = "EX") {
    const auto refusal = InitiateSeries(*exchange_, numse, numtyp);
    return refusal ? std::to_string(static_cast<int>(refusal->message)) + ": " + refusal->reason : "done";
  }

  void Block(const std::string& constant) {
    exchange_->Dynamic().Run("INSERT INTO NANSIBlockedRange ([Start]) VALUES (?)", {constant});
  }

  void Remove(const std::string& number, const std::string& numtyp = "EX") {
    RemoveFromBlockedRange(*exchange_, number, numtyp);
  }

  std::string Numbers() { return Rows(*exchange_, "SELECT NUMSE FROM NANSI ORDER BY rowid"); }
  std::string Blocked() {
    return Rows(*exchange_, "SELECT [Start], [End], [Numtyp] FROM NANSIBlockedRange ORDER BY [Start], rowid");
  }

  std::unique_ptr<Exchange> exchange_ = ExampleExchange();
};

// --- Expansion.

TEST_F(NumberSeriesTest, ARangeBecomesARowForEachNumberAndOneBlockedRange) {
  EXPECT_EQ(Initiate("098&&101"), "done");
  EXPECT_EQ(Rows(*exchange_, "SELECT NUMSE, NUMTYP, USED FROM NANSI ORDER BY rowid"),
            R"([["098", "099", "100", "101"], ["EX", "EX", "EX", "EX"], [False, False, False, False]])");
  EXPECT_EQ(Blocked(), R"([["098"], ["101"], ["EX"]])");
}

TEST_F(NumberSeriesTest, EachNumberHasAnIdentifierOfItsOwn) {
  Initiate("100&&102");
  EXPECT_EQ(Rows(*exchange_, "SELECT COUNT(DISTINCT CmdId) FROM NANSI"), "[[3]]");
  EXPECT_EQ(Rows(*exchange_, "SELECT COUNT(*) FROM NANSI WHERE CmdId IN (SELECT CmdId FROM EXCCS)"), "[[0]]");
}

TEST_F(NumberSeriesTest, ASingleNumberIsARangeWithEqualEnds) {
  EXPECT_EQ(Initiate("9", "AI"), "done");
  EXPECT_EQ(Numbers(), R"([["9"]])");
  EXPECT_EQ(Blocked(), R"([["9"], ["9"], ["AI"]])");
}

TEST_F(NumberSeriesTest, SeveralNumbersAndRangesBecomeOneBlockedRangeEach) {
  EXPECT_EQ(Initiate("5&10&&11&07"), "done");
  EXPECT_EQ(Numbers(), R"([["5", "10", "11", "07"]])");
  EXPECT_EQ(Blocked(), R"([["07", "10", "5"], ["07", "11", "5"], ["EX", "EX", "EX"]])");
}

TEST_F(NumberSeriesTest, NumbersOfOtherLengthsAreOtherNumbers) {
  EXPECT_EQ(Initiate("10&&19"), "done");
  EXPECT_EQ(Initiate("100&&199"), "done");
  EXPECT_EQ(Initiate("1"), "done");
  EXPECT_EQ(Initiate("010"), "done");
}

// --- Refusals.

TEST_F(NumberSeriesTest, EndsOfDifferentLengthAreRefused) {
  EXPECT_EQ(Initiate("98&&101"), "60049: the range 98&&101 has ends of different length");
}

TEST_F(NumberSeriesTest, EndsInTheWrongOrderAreRefused) {
  EXPECT_EQ(Initiate("101&&100"), "60049: the range 101&&100 ends before it begins");
}

TEST_F(NumberSeriesTest, WhatIsNotOfDigitsIsRefused) {
  EXPECT_EQ(Initiate("12A"), "60049: 12A is not of digits");
  EXPECT_EQ(Initiate("A1&&A3"), "60049: A1&&A3 is not of digits");
  EXPECT_EQ(Initiate("-5"), "60049: -5 is not of digits");
  EXPECT_EQ(Initiate("1 2"), "60049: 1 2 is not of digits");
  EXPECT_EQ(Initiate(""), "60049: a value is missing beside an &");
  EXPECT_EQ(Initiate("1&"), "60049: a value is missing beside an &");
  EXPECT_EQ(Initiate("1&&2&&3"), "60049: the range 1&&2&&3 has more than two ends");
}

TEST_F(NumberSeriesTest, MoreNumbersThanOneSeriesHoldsAreRefused) {
  EXPECT_EQ(Initiate("000000&&100000"), "60049: the range 000000&&100000 holds more than 100000 values");
}

TEST_F(NumberSeriesTest, ARangeThatTouchesAnotherIsRefusedWhateverItsType) {
  Initiate("100&&199");
  EXPECT_EQ(Initiate("199&&200"), "60008: 199&&200 collides with the series 100&&199");
  EXPECT_EQ(Initiate("050&&100", "DG"), "60008: 050&&100 collides with the series 100&&199");
  EXPECT_EQ(Initiate("150", "CP"), "60008: 150 collides with the series 100&&199");
  EXPECT_EQ(Initiate("000&&999"), "60008: 000&&999 collides with the series 100&&199");
  EXPECT_EQ(Initiate("200&&299"), "done");
  EXPECT_EQ(Initiate("099"), "done");
}

TEST_F(NumberSeriesTest, ANumberThatASeriesHoldsIsRefusedThoughItsRangeIsNotBlocked) {
  Initiate("100&&199");
  exchange_->Dynamic().Run("DELETE FROM NANSIBlockedRange");
  EXPECT_EQ(Initiate("195&&205"), "60010: the number 195 is in a series already");
  EXPECT_EQ(Initiate("200&&205"), "done");
}

TEST_F(NumberSeriesTest, ASingleBlockedNumberBlocksItselfAndAllThatBeginWithIt) {
  Block("12");
  EXPECT_EQ(Initiate("12"), "60008: 12 collides with the constant 12");
  EXPECT_EQ(Initiate("120&&129"), "60008: 120&&129 collides with the constant 12");
  EXPECT_EQ(Initiate("1299"), "60008: 1299 collides with the constant 12");
  EXPECT_EQ(Initiate("100&&199"), "60008: 100&&199 collides with the constant 12");
  EXPECT_EQ(Initiate("000&&999"), "60008: 000&&999 collides with the constant 12");
}

TEST_F(NumberSeriesTest, ASingleBlockedNumberBlocksNeitherShorterOnesNorItsNeighbours) {
  Block("12");
  for (const char* numse : {"1", "13", "11", "0112", "130&&199", "100&&119", "0120"})
    EXPECT_EQ(Initiate(numse), "done");
}

TEST_F(NumberSeriesTest, BlanksAroundASingleBlockedNumberDoNotCount) {
  Block(" 12 ");
  EXPECT_EQ(Initiate("123"), "60008: 123 collides with the constant 12");
}

TEST_F(NumberSeriesTest, PiecesOfOneValueCollideWithEachOther) {
  EXPECT_EQ(Initiate("100&&109&105"), "60008: 105 collides with the series 100&&109");
  EXPECT_EQ(Initiate("1&1"), "60008: 1 collides with the series 1");
}

TEST_F(NumberSeriesTest, ARefusalWritesNothing) {
  Initiate("300");
  for (const char* numse : {"100&&199&300", "100&&199&12A", "5&7&&6", "299&&300"}) {
    EXPECT_NE(Initiate(numse), "done") << numse;
    EXPECT_EQ(Numbers(), R"([["300"]])") << numse;
    EXPECT_EQ(Blocked(), R"([["300"], ["300"], ["EX"]])") << numse;
  }
  EXPECT_EQ(exchange_->OpenTransactions(), 0);
}

TEST_F(NumberSeriesTest, AFailureInTheMiddleWritesNothing) {
  exchange_->Dynamic().Execute("CREATE UNIQUE INDEX [no 102] ON [NANSI] ([NUMTYP]) WHERE [NUMSE] >= '102'");
  EXPECT_THROW(Initiate("100&&105"), DatabaseError);
  EXPECT_EQ(Numbers(), "Empty");
  EXPECT_EQ(Blocked(), "Empty");
  EXPECT_EQ(exchange_->OpenTransactions(), 0);
}

TEST_F(NumberSeriesTest, ASeriesIsPartOfTheTransactionAroundIt) {
  Transaction transaction(*exchange_);
  Initiate("100");
  transaction.RollBack();
  EXPECT_EQ(Numbers(), "Empty");
}

// Whatever was given and taken out before: a series is taken exactly where none of its numbers is taken.
TEST_F(NumberSeriesTest, ASeriesIsTakenExactlyWhereAllItsNumbersAreFree) {
  std::mt19937 generator(1);
  const auto any = [&](int count) { return std::uniform_int_distribution<int>(0, count - 1)(generator); };
  std::set<std::string> taken;
  for (int round = 0; round < 400; ++round) {
    const std::size_t length = static_cast<std::size_t>(2 + any(2));
    const int from = any(90);
    const auto number = [&](int value) {
      const std::string digits = std::to_string(value);
      return std::string(length - digits.size(), '0') + digits;
    };
    if (!taken.empty() && any(3) == 0) {
      const std::string gone = *std::next(taken.begin(), any(static_cast<int>(taken.size())));
      Remove(gone);
      exchange_->Dynamic().Run("DELETE FROM NANSI WHERE NUMSE = ?", {gone});
      taken.erase(gone);
      continue;
    }
    const std::vector<std::string> numbers = Elements(number(from) + "&&" + number(from + any(8)));
    const bool free = std::ranges::none_of(numbers, [&](const std::string& one) { return taken.contains(one); });
    ASSERT_EQ(Initiate(numbers.front() + "&&" + numbers.back()) == "done", free) << numbers.front();
    if (free) taken.insert(numbers.begin(), numbers.end());
  }
  std::set<std::string> blocked;
  const RowSet ranges = exchange_->Dynamic().Run("SELECT [Start], [End] FROM NANSIBlockedRange");
  for (std::size_t row = 0; row < ranges.RowCount(); ++row) {
    for (const std::string& one : Elements(ranges[0][row].text() + "&&" + ranges[1][row].text()))
      EXPECT_TRUE(blocked.insert(one).second) << one;
  }
  EXPECT_EQ(blocked, taken);
}

// --- Taking a number out.

TEST_F(NumberSeriesTest, ANumberInTheMiddleSplitsItsRange) {
  Initiate("100&&109");
  Remove("105");
  EXPECT_EQ(Blocked(), R"([["100", "106"], ["104", "109"], ["EX", "EX"]])");
}

TEST_F(NumberSeriesTest, ANumberAtAnEndShortensItsRange) {
  Initiate("098&&109");
  Remove("098");
  EXPECT_EQ(Blocked(), R"([["099"], ["109"], ["EX"]])");
  Remove("109");
  EXPECT_EQ(Blocked(), R"([["099"], ["108"], ["EX"]])");
}

TEST_F(NumberSeriesTest, TheLastNumberTakesItsRangeWithIt) {
  Initiate("7&10&&11");
  Remove("7");
  EXPECT_EQ(Blocked(), R"([["10"], ["11"], ["EX"]])");
  Remove("10");
  EXPECT_EQ(Blocked(), R"([["11"], ["11"], ["EX"]])");
  Remove("11");
  EXPECT_EQ(Blocked(), "Empty");
}

TEST_F(NumberSeriesTest, ANumberThatWasTakenOutCanBeGivenAgain) {
  Initiate("100&&109");
  Remove("105");
  exchange_->Dynamic().Run("DELETE FROM NANSI WHERE NUMSE = '105'");
  EXPECT_EQ(Initiate("105", "DG"), "done");
}

TEST_F(NumberSeriesTest, RangesOfOtherTypesAndLengthsAndSingleNumbersStay) {
  Initiate("10&&19", "OI");
  Initiate("100&&109");
  Block("5");
  const std::string before = Blocked();
  Remove("15");
  Remove("105", "OI");
  Remove("5");
  Remove("0105");
  Remove("1A");
  Remove("");
  EXPECT_EQ(Blocked(), before);
}

}  // namespace
}  // namespace cordboard::workbench
