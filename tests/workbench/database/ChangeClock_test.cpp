#include "workbench/database/ChangeClock.h"

#include <gtest/gtest.h>

namespace cordboard::workbench {
namespace {

class ChangeClockTest : public testing::Test {
 protected:
  bool IsAsAt(ChangeClock::Time time) const { return clock_.NoneSince(time, {first_, second_}); }

  ChangeClock clock_;
  const ChangeClock::Table first_ = clock_.Named("first");
  const ChangeClock::Table second_ = clock_.Named("second");
  const ChangeClock::Table third_ = clock_.Named("third");
};

TEST_F(ChangeClockTest, ATableIsKnownByItsName) {
  EXPECT_EQ(clock_.Named("first"), first_);
  EXPECT_NE(first_, second_);
}

TEST_F(ChangeClockTest, WhatWasFoundHoldsUntilOneOfItsTablesChanges) {
  const auto time = clock_.Now();
  clock_.Appended(third_);
  EXPECT_TRUE(IsAsAt(time));
  clock_.Appended(second_);
  EXPECT_FALSE(IsAsAt(time));
  const auto later = clock_.Now();
  EXPECT_TRUE(IsAsAt(later));
  clock_.Rewritten(first_);
  EXPECT_FALSE(IsAsAt(later));
}

TEST_F(ChangeClockTest, RowsStayAsTheyWereWhereOthersComeBehindThem) {
  const auto time = clock_.Now();
  clock_.Appended(first_);
  EXPECT_TRUE(clock_.OnlyAppendedSince(time, first_));
  clock_.Rewritten(first_);
  EXPECT_FALSE(clock_.OnlyAppendedSince(time, first_));
  EXPECT_TRUE(clock_.OnlyAppendedSince(time, second_));
  clock_.Everything();
  EXPECT_FALSE(clock_.OnlyAppendedSince(time, second_));
}

TEST_F(ChangeClockTest, ARollBackIsAChangeOfWhatChangedSinceTheStart) {
  clock_.Start();
  clock_.Appended(first_);
  const auto outer = clock_.Now();
  clock_.Start();
  clock_.Appended(second_);
  const auto inner = clock_.Now();
  clock_.RollBack();
  EXPECT_TRUE(clock_.NoneSince(outer, {first_, third_}));
  EXPECT_FALSE(clock_.NoneSince(inner, {second_}));
  EXPECT_FALSE(clock_.OnlyAppendedSince(inner, second_));
  clock_.RollBack();
  EXPECT_FALSE(clock_.NoneSince(outer, {first_}));
}

TEST_F(ChangeClockTest, ARollBackTakesWhatAnInnerTransactionCommitted) {
  clock_.Start();
  clock_.Start();
  clock_.Appended(first_);
  const auto time = clock_.Now();
  clock_.Commit();
  EXPECT_TRUE(IsAsAt(time));
  clock_.RollBack();
  EXPECT_FALSE(IsAsAt(time));
}

TEST_F(ChangeClockTest, BetweenTransactionsOthersMayChangeTheTables) {
  clock_.Start();
  const auto time = clock_.Now();
  clock_.Commit();
  clock_.Start();
  EXPECT_FALSE(IsAsAt(time));
}

}  // namespace
}  // namespace cordboard::workbench
