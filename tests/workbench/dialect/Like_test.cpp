#include "workbench/dialect/Like.h"

#include <gtest/gtest.h>

#include <string>

namespace cordboard::workbench {
namespace {

TEST(Like, MatchesTheWholeTextInAnyCapitals) {
  EXPECT_TRUE(LikeMatches("", ""));
  EXPECT_TRUE(LikeMatches("abc", "aBC"));
  EXPECT_FALSE(LikeMatches("abc", "abcd"));
  EXPECT_FALSE(LikeMatches("abcd", "abc"));
  EXPECT_FALSE(LikeMatches("", "a"));
  EXPECT_FALSE(LikeMatches("a", ""));
}

TEST(Like, TakesAnyRunForAPercentSign) {
  EXPECT_TRUE(LikeMatches("%", ""));
  EXPECT_TRUE(LikeMatches("%-00", "001-1-10-00"));
  EXPECT_FALSE(LikeMatches("%-00", "001-1-10-001"));
  EXPECT_TRUE(LikeMatches("1%2%3", "1x2x2x3"));
  EXPECT_TRUE(LikeMatches("%a%a%", "aa"));
  EXPECT_FALSE(LikeMatches("%a%a%", "a"));
  EXPECT_TRUE(LikeMatches("%%", "a"));
}

TEST(Like, TakesOneCharacterForAnUnderscore) {
  EXPECT_TRUE(LikeMatches("_", "a"));
  EXPECT_TRUE(LikeMatches("M_ller", "M\xC3\xBCller"));
  EXPECT_FALSE(LikeMatches("M__ller", "M\xC3\xBCller"));
  EXPECT_FALSE(LikeMatches("%__", "\xC3\xBC"));
  EXPECT_FALSE(LikeMatches("_", ""));
}

TEST(Like, TakesACharacterOfAClass) {
  EXPECT_TRUE(LikeMatches("[1-2]%", "1"));
  EXPECT_TRUE(LikeMatches("[1-2]%", "23"));
  EXPECT_FALSE(LikeMatches("[1-2]%", "3"));
  EXPECT_FALSE(LikeMatches("[1-2]%", ""));
  EXPECT_FALSE(LikeMatches("[1-2]%", "-"));
  EXPECT_TRUE(LikeMatches("[abc]x", "Bx"));
  EXPECT_FALSE(LikeMatches("[abc]x", "dx"));
  EXPECT_TRUE(LikeMatches("[a-c0-9]", "7"));
  EXPECT_TRUE(LikeMatches("%[0-9]", "ab7"));
  EXPECT_TRUE(LikeMatches("[-a]", "-"));
  EXPECT_TRUE(LikeMatches("[a-]", "-"));
}

TEST(Like, TakesACharacterOutsideOfAClassBehindAnExclamationMark) {
  EXPECT_TRUE(LikeMatches("[!a]", "b"));
  EXPECT_FALSE(LikeMatches("[!a]", "A"));
  EXPECT_FALSE(LikeMatches("[!a]", ""));
  EXPECT_TRUE(LikeMatches("[!a]x", "\xC3\xBCx"));
  EXPECT_TRUE(LikeMatches("[!]", "!"));
}

TEST(Like, TakesABracketThatMakesNoClassForItself) {
  EXPECT_FALSE(HoldsCharacterClass("a%_"));
  EXPECT_FALSE(HoldsCharacterClass("["));
  EXPECT_FALSE(HoldsCharacterClass("]["));
  EXPECT_FALSE(HoldsCharacterClass("[]"));
  EXPECT_TRUE(HoldsCharacterClass("[1-2]%"));
  EXPECT_TRUE(HoldsCharacterClass("a[!b]"));
  EXPECT_TRUE(LikeMatches("[", "["));
  EXPECT_TRUE(LikeMatches("[]", "[]"));
  EXPECT_TRUE(LikeMatches("a]", "a]"));
}

TEST(Like, TakesLittleTimeForAPatternOfManyRuns) {
  std::string pattern;
  for (int i = 0; i < 1000; ++i) pattern += "%a";
  EXPECT_FALSE(LikeMatches(pattern + "b", std::string(2000, 'a')));
}

}  // namespace
}  // namespace cordboard::workbench
