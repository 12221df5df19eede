#include "shared/NextNumber.h"

#include <gtest/gtest.h>

#include "support/Transcript.h"

namespace cordboard {
namespace {

using Cause = RunTimeFailure::Cause;

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
