#include "shared/SplitRange.h"

#include <gtest/gtest.h>

#include "support/Transcript.h"

namespace cordboard {
namespace {

struct Split {
  Value value;
  const char* from;
  const char* to;
};

class SplitRangeOf : public testing::TestWithParam<Split> {};

TEST_P(SplitRangeOf, GivesFromAndTo) {
  const auto& [value, expectedFrom, expectedTo] = GetParam();
  std::string from = "before";
  std::string to = "before";
  EXPECT_TRUE(SplitRange(value, from, to));
  EXPECT_EQ(from, expectedFrom);
  EXPECT_EQ(to, expectedTo);
}

INSTANTIATE_TEST_SUITE_P(Range, SplitRangeOf,
                         testing::Values(Split{"100&&199", "100", "199"}, Split{"7&&8", "7", "8"},
                                         Split{"1&2", "1", "2"}, Split{"1&&&2", "1", "2"}, Split{"A1&&A9", "A1", "A9"},
                                         // Only the first range is split.
                                         Split{"1&&2&&3", "1", "2&&3"},
                                         // Nothing in front of the range.
                                         Split{"&&199", "", "199"}));

INSTANTIATE_TEST_SUITE_P(NumericAsAWhole, SplitRangeOf,
                         testing::Values(Split{"100", "100", ""}, Split{"007", "007", ""}, Split{100, "100", ""},
                                         Split{" 12 ", " 12 ", ""}, Split{"-1.5", "-1.5", ""}, Split{"1e2", "1e2", ""},
                                         Split{Value(), "", ""}, Split{true, "True", ""}));

// The last character of a text without a range is the second number.
INSTANTIATE_TEST_SUITE_P(NoRange, SplitRangeOf,
                         testing::Values(Split{"12A", "12", "A"}, Split{"AB", "A", "B"}, Split{"A", "", "A"},
                                         Split{"", "", ""}));

// Each drop keeps one character less than there are without the leading blanks: what blanks are in front, or come to
// be, costs as many characters of the text.
INSTANTIATE_TEST_SUITE_P(LeadingBlanks, SplitRangeOf,
                         testing::Values(Split{" 1&&9", " ", "9"}, Split{" 12&&19", " 2", "19"},
                                         Split{"  123&&9", " 23", "9"}, Split{" AB", " B", ""},
                                         Split{"1 2&&9", "1 ", "9"}, Split{"1&& 9", "1", " 9"},
                                         Split{"1 &&9", "1 ", "9"}));

void ExpectFailureOf(const Value& value, RunTimeFailure::Cause cause) {
  std::string from;
  std::string to;
  ExpectFailure(cause, [&] { SplitRange(value, from, to); });
}

TEST(SplitRange, OfBlanksFails) {
  ExpectFailureOf("  ", RunTimeFailure::Cause::InvalidCall);
  ExpectFailureOf("   ", RunTimeFailure::Cause::InvalidCall);
}

TEST(SplitRange, OfOneBlankGivesItBack) {
  std::string from;
  std::string to;
  EXPECT_TRUE(SplitRange(" ", from, to));
  EXPECT_EQ(from, "");
  EXPECT_EQ(to, " ");
}

TEST(SplitRange, WhoseDropsRunOutFails) {
  // One drop takes both blanks and the A, the next the B, and a third one is asked, as there were four characters.
  ExpectFailureOf("  AB", RunTimeFailure::Cause::InvalidCall);
  ExpectFailureOf("AB   ", RunTimeFailure::Cause::InvalidCall);
}

TEST(SplitRange, OfNullFails) { ExpectFailureOf(Value::Null(), RunTimeFailure::Cause::InvalidUseOfNull); }

}  // namespace
}  // namespace cordboard
