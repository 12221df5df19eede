#include "script/List.h"

#include <gtest/gtest.h>

#include "support/Outcome.h"

namespace cordboard {
namespace {

constexpr const char* OutOfRange = "SubscriptOutOfRange";

// --- Lists.

TEST(List, GivesItsElementsByIndexFromZero) {
  List list{"100", 2, Value::Null()};
  EXPECT_EQ(list.UpperBound(), 2);
  EXPECT_EQ(list.size(), 3U);
  EXPECT_EQ(list[0], Value("100"));
  EXPECT_EQ(list[2], Value::Null());
  list[1] = "EX";
  EXPECT_EQ(list, (List{"100", "EX", Value::Null()}));
}

TEST(List, FailsForAnIndexOutsideItsBounds) {
  List list{"100"};
  const List& constant = list;
  EXPECT_EQ(Outcome([&] { return list[1]; }), OutOfRange);
  EXPECT_EQ(Outcome([&] { return constant[1]; }), OutOfRange);
  EXPECT_EQ(Outcome([&] { return list[static_cast<std::size_t>(-1)]; }), OutOfRange);
}

TEST(List, OfNoElementsHasBoundsAndCanBeWalked) {
  const List list(std::vector<Value>{});
  EXPECT_FALSE(list.IsEmpty());
  EXPECT_FALSE(list.IsNull());
  list.RequireBounds();
  EXPECT_EQ(list.UpperBound(), -1);
  EXPECT_EQ(list.begin(), list.end());
  EXPECT_EQ(Outcome([&] { return list[0]; }), OutOfRange);
}

void ExpectNoBounds(const List& list) {
  EXPECT_EQ(Outcome([&] { return list.RequireBounds(), true; }), OutOfRange);
  EXPECT_EQ(Outcome([&] { return list.UpperBound(); }), OutOfRange);
  EXPECT_EQ(Outcome([&] { return list.size(); }), OutOfRange);
  EXPECT_EQ(Outcome([&] { return list[0]; }), OutOfRange);
  EXPECT_EQ(Outcome([&] {
              int count = 0;
              for ([[maybe_unused]] const Value& value : list) ++count;
              return count;
            }),
            OutOfRange);
}

TEST(List, LeftAloneIsEmptyAndHasNoBounds) {
  EXPECT_TRUE(List().IsEmpty());
  EXPECT_FALSE(List().IsNull());
  ExpectNoBounds(List());
}

TEST(List, GivenAsANullIsNotEmptyAndHasNoBoundsEither) {
  EXPECT_TRUE(List::Null().IsNull());
  EXPECT_FALSE(List::Null().IsEmpty());
  ExpectNoBounds(List::Null());
}

TEST(List, HasBoundsFromItsFirstAppend) {
  List list;
  list.Append("a");
  list.Append("b");
  EXPECT_EQ(list, (List{"a", "b"}));
  List null = List::Null();
  null.Append("a");
  EXPECT_EQ(null, List{"a"});
}

TEST(List, TellsEmptyNullAndNoElementsApart) {
  const List none(std::vector<Value>{});
  EXPECT_NE(List(), List::Null());
  EXPECT_NE(List(), none);
  EXPECT_NE(List::Null(), none);
}

// --- Row sets.

TEST(RowSet, IsReadByColumnAndThenByRow) {
  const RowSet rows({{"100", "101"}, {"EX", Value::Null()}});
  EXPECT_FALSE(rows.IsEmpty());
  EXPECT_EQ(rows.ColumnCount(), 2U);
  EXPECT_EQ(rows.RowCount(), 2U);
  EXPECT_EQ(rows.UpperBound(), 1);
  EXPECT_EQ(rows[0][1], Value("101"));
  EXPECT_EQ(rows[1][0], Value("EX"));
  EXPECT_EQ(rows[1][1], Value::Null());
}

TEST(RowSet, FailsForAColumnOrARowThatItDoesNotHave) {
  const RowSet rows({{"100", "101"}, {"EX", "EX"}});
  EXPECT_EQ(Outcome([&] { return rows[2][0]; }), OutOfRange);
  EXPECT_EQ(Outcome([&] { return rows[0][2]; }), OutOfRange);
}

void ExpectNoRows(const RowSet& rows) {
  EXPECT_TRUE(rows.IsEmpty());
  EXPECT_EQ(rows.RowCount(), 0U);
  EXPECT_EQ(rows.ColumnCount(), 0U);
  EXPECT_EQ(Outcome([&] { return rows.UpperBound(); }), OutOfRange);
  EXPECT_EQ(Outcome([&] { return rows[0][0]; }), OutOfRange);
}

TEST(RowSet, LeftAloneHasNoRowsAndNoBounds) { ExpectNoRows(RowSet()); }

TEST(RowSet, OfColumnsWithoutRowsIsLikeOneLeftAlone) {
  ExpectNoRows(RowSet({{}, {}}));
  EXPECT_EQ(RowSet({{}, {}}), RowSet());
}

TEST(RowSet, OfColumnsOfDifferentLengthsIsRefused) {
  EXPECT_EQ(Outcome([] { return RowSet({{"100", "101"}, {"EX"}}).RowCount(); }), "TypeMismatch");
  EXPECT_EQ(Outcome([] { return RowSet({{}, {"EX"}}).RowCount(); }), "TypeMismatch");
}

}  // namespace
}  // namespace cordboard
