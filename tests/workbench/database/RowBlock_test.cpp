#include "workbench/database/RowBlock.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

#include "workbench/text/Sum.h"

namespace cordboard::workbench {
namespace {

constexpr int rowsOfTable = 250;

// A table with rows at the places 1 to 250, but for every seventh.
class RowBlockTest : public testing::Test {
 protected:
  RowBlockTest() {
    database_.Execute("CREATE TABLE [t] ([A] INTEGER, [B] TEXT)");
    for (int place = 1; place <= rowsOfTable; ++place) {
      if (place % 7 != 0) database_.Run("INSERT INTO [t] (rowid, [A], [B]) VALUES (?, ?, 'b')", {place, place * 1000});
    }
  }

  // The row as it stands now; nothing where there is none.
  std::optional<std::string> RowAt(int place) {
    const Value row = database_.Single("SELECT row_bytes([A], [B]) FROM [t] WHERE rowid = ?", {place});
    return row.IsText() ? std::optional(row.text()) : std::nullopt;
  }

  // The rows at these places as they stand now, and the sum that they have.
  std::pair<RowBlock, std::string> BlockOf(const std::vector<int>& places) {
    RowBlock block{.table = "t"};
    Sum sum;
    for (const int place : places) {
      const auto row = RowAt(place);
      block.Append(place, row);
      // None of these is as long as 128 bytes: the length is one.
      sum.Add(std::string(1, static_cast<char>(row ? row->size() : 0)));
      sum.Add(row.value_or(""));
    }
    return {block, sum.Written()};
  }

  Connection database_;
};

std::vector<int> AllPlaces() {
  std::vector<int> places;
  for (int place = 1; place <= rowsOfTable; ++place) places.push_back(place);
  return places;
}

TEST_F(RowBlockTest, IsLookedAtRowByRowHoweverTheyLie) {
  for (const std::vector<int>& places :
       {AllPlaces(), {5}, {7}, {1, 2, 3}, {6, 7, 8}, {250, 1, 2, 100, 99, 98}, {1, 3, 5, 251, 252}, {}}) {
    const auto [block, sum] = BlockOf(places);
    const BlockOfRows::Now now = BlockOfRows(database_, block).Look();
    EXPECT_EQ(now.sum, sum);
    EXPECT_FALSE(now.differs);
  }
}

// No database gives such places; a block that somebody has altered may.
TEST_F(RowBlockTest, TakesTheLastPlaceOfAllBeforeAndAfterOthers) {
  RowBlock block{.table = "t"};
  for (const std::int64_t place : {std::numeric_limits<std::int64_t>::max(), std::numeric_limits<std::int64_t>::min(),
                                   std::numeric_limits<std::int64_t>::max()})
    block.Append(place, std::nullopt);
  EXPECT_FALSE(BlockOfRows(database_, block).Look().differs);
}

TEST_F(RowBlockTest, TellsWhereOneOfItsRowsIsAnotherHasGoneOrCome) {
  for (const char* change : {"UPDATE [t] SET [B] = 'c' WHERE rowid = 150", "DELETE FROM [t] WHERE rowid = 250",
                             "INSERT INTO [t] (rowid, [A]) VALUES (7, 1)"}) {
    const RowBlock block = BlockOf(AllPlaces()).first;
    database_.Run(change);
    const BlockOfRows::Now now = BlockOfRows(database_, block).Look();
    EXPECT_TRUE(now.differs) << change;
    EXPECT_EQ(now.sum, BlockOf(AllPlaces()).second) << change;
  }
}

TEST_F(RowBlockTest, PutsBackWhatWasThere) {
  const auto [block, sum] = BlockOf(AllPlaces());
  database_.Execute("UPDATE [t] SET [B] = 'c' WHERE [A] < 50000; DELETE FROM [t] WHERE [A] > 200000");
  database_.Run("INSERT INTO [t] (rowid, [A]) VALUES (7, 1)");
  BlockOfRows rows(database_, block);
  rows.Remove();
  rows.PutBack();
  const BlockOfRows::Now now = rows.Look();
  EXPECT_FALSE(now.differs);
  EXPECT_EQ(now.sum, sum);
}

}  // namespace
}  // namespace cordboard::workbench
