#include "shared/Helpers.h"

#include <gtest/gtest.h>

#include "support/ScriptedHost.h"
#include "support/Transcript.h"

namespace cordboard {
namespace {

using Cause = RunTimeFailure::Cause;

const List noElements{std::vector<Value>()};

// --- Values in lists.

TEST(IsValueInList, FindsAnyElement) {
  EXPECT_TRUE(IsValueInList("1", {"1", "2", "3"}));
  EXPECT_TRUE(IsValueInList("3", {"1", "2", "3"}));
  EXPECT_FALSE(IsValueInList("4", {"1", "2", "3"}));
}

TEST(IsValueInList, ComparesNumbersAndDigitsByTheirValue) {
  EXPECT_TRUE(IsValueInList("5", {5}));
  EXPECT_TRUE(IsValueInList("05", {5}));
  EXPECT_TRUE(IsValueInList(5, {"05"}));
  EXPECT_FALSE(IsValueInList("5A", {5}));
}

TEST(IsValueInList, ComparesTwoTextsByTheirCharacters) {
  EXPECT_FALSE(IsValueInList("5", {"05"}));
  EXPECT_FALSE(IsValueInList("a", {"A"}));
  EXPECT_FALSE(IsValueInList("A", {"A "}));
}

TEST(IsValueInList, TakesEmptyForTheEmptyTextAndForZero) {
  EXPECT_TRUE(IsValueInList(Value(), {""}));
  EXPECT_TRUE(IsValueInList(Value(), {0}));
  EXPECT_FALSE(IsValueInList("", {0}));
}

TEST(IsValueInList, NeverFindsANullNorByANull) {
  EXPECT_FALSE(IsValueInList(Value::Null(), {Value::Null(), "", Value()}));
  EXPECT_FALSE(IsValueInList("", {Value::Null()}));
}

TEST(IsValueInList, FindsNothingInAListOfNoElements) { EXPECT_FALSE(IsValueInList("1", noElements)); }

TEST(IsValueInList, FailsForAListWithoutBounds) {
  ExpectFailure(Cause::SubscriptOutOfRange, [] { IsValueInList("1", List()); });
  ExpectFailure(Cause::SubscriptOutOfRange, [] { IsValueInList("1", List::Null()); });
}

// --- Checks that find nothing.

TEST(AlwaysTrue, IsTrueAndCallsNothing) {
  ScriptedHost host;
  EXPECT_TRUE(host.With([] { return AlwaysTrue(Action()); }));
  EXPECT_EQ(host.Calls(), "");
}

// --- Padded numbers.

TEST(NextNumberPadded, PutsAsManyZerosInFrontAsTheOldValueWasShort) {
  EXPECT_EQ(NextNumberPadded("007", 4), Value("08"));
  EXPECT_EQ(NextNumberPadded("1", 3), Value("002"));
  EXPECT_EQ(NextNumberPadded("12", 3), Value("013"));
}

TEST(NextNumberPadded, IsOneLongerWhereTheNumberGrowsByADigit) {
  EXPECT_EQ(NextNumberPadded("9", 3), Value("0010"));
  EXPECT_EQ(NextNumberPadded("99", 3), Value("0100"));
}

TEST(NextNumberPadded, DoesNotCountOuterBlanks) {
  EXPECT_EQ(NextNumberPadded(" 1 ", 3), Value("002"));
  EXPECT_EQ(NextNumberPadded(1, 3), Value("002"));
}

TEST(NextNumberPadded, IsEmptyForAValueThatIsNotShorter) {
  EXPECT_TRUE(NextNumberPadded("12", 2).IsEmpty());
  EXPECT_TRUE(NextNumberPadded("123", 2).IsEmpty());
  EXPECT_EQ(NextNumberPadded("1", 2), Value("02"));
}

TEST(NextNumberPadded, FailsForWhatIsNoNumber) {
  ExpectFailure(Cause::TypeMismatch, [] { NextNumberPadded("A", 3); });
  ExpectFailure(Cause::TypeMismatch, [] { NextNumberPadded("", 3); });
  ExpectFailure(Cause::TypeMismatch, [] { NextNumberPadded(Value(), 3); });
  ExpectFailure(Cause::TypeMismatch, [] { NextNumberPadded("ABC", 3); });
  ExpectFailure(Cause::InvalidUseOfNull, [] { NextNumberPadded(Value::Null(), 3); });
}

TEST(NextNumberPadded, FailsBeyondSixteenBits) {
  EXPECT_EQ(NextNumberPadded("32766", 6), Value("032767"));
  ExpectFailure(Cause::Overflow, [] { NextNumberPadded("32767", 6); });
  ExpectFailure(Cause::Overflow, [] { NextNumberPadded("32768", 6); });
}

}  // namespace
}  // namespace cordboard
