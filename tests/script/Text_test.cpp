#include "script/Text.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/Outcome.h"

namespace cordboard {
namespace {

constexpr const char* InvalidCall = "InvalidCall";

// Characters of one, two, three and four bytes.
const std::string mixed = "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80z";

TEST(Text, LengthCountsCharacters) {
  EXPECT_EQ(Length(""), 0U);
  EXPECT_EQ(Length("100"), 3U);
  EXPECT_EQ(Length(mixed), 5U);
  EXPECT_EQ(Length(std::string("a\0b", 3)), 3U);
}

struct Broken {
  const char* what;
  std::string text;
  std::size_t length;
};

const std::vector<Broken> broken = {
    {"a byte that continues nothing", "a\x80z", 3},
    {"a beginning at the end of the text", "a\xE2\x82", 3},
    {"a beginning with a letter after it", "\xC3z", 2},
    {"a character cut short by another", "\xE2\x82\xC3\xA9", 3},
    {"bytes that begin no character", "\xC0\xC1\xF5\xFF", 4},
    {"a beginning that no character has, with its rest", "\xC1\xBF\xF5\x80\x80\x80", 6},
    {"the shape of a character that does not exist", "\xED\xA0\x80z", 2},
    {"a character of four bytes without its last", "\xF0\x9F\x98z", 4},
};

TEST(Text, AByteThatIsPartOfNoCharacterCountsAsOne) {
  for (const auto& [what, text, length] : broken) {
    EXPECT_EQ(Length(text), length) << what;
    EXPECT_EQ(Left(text, 1) + Right(text, static_cast<std::ptrdiff_t>(length) - 1), text) << what;
  }
}

TEST(Text, LeftAndRightTakeWholeCharacters) {
  EXPECT_EQ(Left(mixed, 0), "");
  EXPECT_EQ(Left(mixed, 2), "a\xC3\xA9");
  EXPECT_EQ(Left(mixed, 4), "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80");
  EXPECT_EQ(Right(mixed, 0), "");
  EXPECT_EQ(Right(mixed, 2), "\xF0\x9F\x98\x80z");
  EXPECT_EQ(Right(mixed, 4), "\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80z");
}

TEST(Text, LeftAndRightTakeAllWhereThereIsNoMore) {
  EXPECT_EQ(Left("100", 3), "100");
  EXPECT_EQ(Left("100", 4), "100");
  EXPECT_EQ(Right("100", 3), "100");
  EXPECT_EQ(Right("100", 4), "100");
  EXPECT_EQ(Left("", 1), "");
  EXPECT_EQ(Right("", 1), "");
}

TEST(Text, LeftAndRightFailForANegativeLength) {
  EXPECT_EQ(Outcome([] { return Left("100", -1); }), InvalidCall);
  EXPECT_EQ(Outcome([] { return Right("100", -1); }), InvalidCall);
  EXPECT_EQ(Outcome([] { return Right("", -1); }), InvalidCall);
}

TEST(Text, MiddleCountsPositionsFromOne) {
  EXPECT_EQ(Middle("ABCD", 1, 2), "AB");
  EXPECT_EQ(Middle("ABCD", 2, 2), "BC");
  EXPECT_EQ(Middle(mixed, 2, 2), "\xC3\xA9\xE2\x82\xAC");
  EXPECT_EQ(Middle("ABCD", 2, 0), "");
}

TEST(Text, MiddleTakesWhatIsThereAndNoMore) {
  EXPECT_EQ(Middle("ABCD", 3, 5), "CD");
  EXPECT_EQ(Middle("ABCD", 4, 1), "D");
  EXPECT_EQ(Middle("ABCD", 5, 1), "");
  EXPECT_EQ(Middle("", 1, 1), "");
}

TEST(Text, MiddleFailsForAStartBelowOneAndForANegativeLength) {
  EXPECT_EQ(Outcome([] { return Middle("ABCD", 0, 1); }), InvalidCall);
  EXPECT_EQ(Outcome([] { return Middle("ABCD", -1, 1); }), InvalidCall);
  EXPECT_EQ(Outcome([] { return Middle("ABCD", 1, -1); }), InvalidCall);
}

TEST(Text, TrimsTakeBlanksAlone) {
  EXPECT_EQ(TrimBlanks("  a b  "), "a b");
  EXPECT_EQ(TrimLeftBlanks("  a b  "), "a b  ");
  EXPECT_EQ(TrimBlanks("\ta\r\n"), "\ta\r\n");
  EXPECT_EQ(TrimBlanks("   "), "");
  EXPECT_EQ(TrimLeftBlanks("   "), "");
  EXPECT_EQ(TrimBlanks(""), "");
  EXPECT_EQ(TrimBlanks("\xC2\xA0"
                       "a"),
            "\xC2\xA0"
            "a");
}

}  // namespace
}  // namespace cordboard
