#include "workbench/text/Elements.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "workbench/support/TemporaryFolder.h"

namespace cordboard::workbench {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

std::string Refused(const std::string& typed) {
  return Refusal<ElementsError>([&] { Elements(typed); });
}

TEST(Elements, OneValueIsItself) {
  EXPECT_THAT(Elements("100"), ElementsAre("100"));
  EXPECT_THAT(Elements("A B"), ElementsAre("A B"));
}

TEST(Elements, SeveralValuesComeInTheOrderTyped) { EXPECT_THAT(Elements("5&1&2&1"), ElementsAre("5", "1", "2", "1")); }

TEST(Elements, ARangeHoldsBothItsEnds) { EXPECT_THAT(Elements("8&&9"), ElementsAre("8", "9")); }

TEST(Elements, ARangeKeepsTheLengthOfItsNumbers) {
  EXPECT_THAT(Elements("098&&101"), ElementsAre("098", "099", "100", "101"));
  EXPECT_THAT(Elements("7&&7"), ElementsAre("7"));
  EXPECT_THAT(Elements("00&&02"), ElementsAre("00", "01", "02"));
}

TEST(Elements, ARangeKeepsWhatItsEndsShareInFront) {
  EXPECT_THAT(Elements("001-0-10-08&&001-0-10-11"),
              ElementsAre("001-0-10-08", "001-0-10-09", "001-0-10-10", "001-0-10-11"));
  EXPECT_THAT(Elements("A1&&A3"), ElementsAre("A1", "A2", "A3"));
}

TEST(Elements, RangesAndValuesStandSideBySide) {
  EXPECT_THAT(Elements("1&&3&7&10&&11"), ElementsAre("1", "2", "3", "7", "10", "11"));
}

TEST(Elements, TheEndsOfARangeHaveOneLength) {
  EXPECT_EQ(Refused("8&&11"), "the range 8&&11 has ends of different length");
  EXPECT_EQ(Refused("1&&&2"), "a value is missing beside an &");
}

TEST(Elements, TheEndsOfARangeDifferInTheirLastDigitsAlone) {
  const std::string refusal = " has ends that do not differ in their last digits alone";
  EXPECT_EQ(Refused("A1&&B2"), "the range A1&&B2" + refusal);
  EXPECT_EQ(Refused("1A&&1B"), "the range 1A&&1B" + refusal);
  EXPECT_EQ(Refused("001-0-10-00&&001-0-11-00"), "the range 001-0-10-00&&001-0-11-00" + refusal);
  EXPECT_THAT(Refused("1000000000000000000&&1000000000000000001"), HasSubstr(refusal));
  EXPECT_THAT(Elements("100000000000000000&&100000000000000001").size(), 2u);
}

TEST(Elements, ARangeRises) { EXPECT_EQ(Refused("5&&4"), "the range 5&&4 ends before it begins"); }

TEST(Elements, ARangeHasTwoEnds) {
  EXPECT_EQ(Refused("1&&2&&3"), "the range 1&&2&&3 has more than two ends");
  EXPECT_EQ(Refused("1&&&&2"), "the range 1&&&&2 has more than two ends");
}

TEST(Elements, NoValueIsMissingBesideASign) {
  for (const char* typed : {"", "&", "&&", "1&", "&1", "1&&", "&&1", "1&&2&", "&&&"})
    EXPECT_EQ(Refused(typed), "a value is missing beside an &") << typed;
}

TEST(Elements, OneValueStandsForAHundredThousandAtMost) {
  EXPECT_EQ(Elements("000000&&099999").size(), mostElements);
  EXPECT_EQ(Refused("000000&&100000"), "the range 000000&&100000 holds more than 100000 values");
  EXPECT_EQ(Refused("000000000000000000&&999999999999999999"),
            "the range 000000000000000000&&999999999999999999 holds more than 100000 values");
  EXPECT_EQ(Refused("000000&&099999&100000"), "these are more than 100000 values");
}

TEST(Elements, ThoseThatFollowEachOtherAreRanges) {
  EXPECT_THAT(AsRanges({}), ElementsAre());
  EXPECT_THAT(AsRanges({"7"}), ElementsAre("7"));
  EXPECT_THAT(AsRanges({"7", "8", "9", "10", "11"}), ElementsAre("7&&9", "10&&11"));
  EXPECT_THAT(AsRanges({"1-09", "1-10", "1-12", "2-13"}), ElementsAre("1-09&&1-10", "1-12", "2-13"));
  EXPECT_THAT(AsRanges({"3", "2", "2", "A", "B"}), ElementsAre("3", "2", "2", "A", "B"));
  EXPECT_THAT(AsRanges(Elements("098&&101&7&1-00&&1-99")), ElementsAre("098&&101", "7", "1-00&&1-99"));
}

TEST(Elements, WhetherATextHoldsARangeOrSeveralValues) {
  EXPECT_FALSE(HoldsRange("1&2"));
  EXPECT_TRUE(HoldsRange("1&&2"));
  EXPECT_FALSE(HoldsSeveral("1"));
  EXPECT_FALSE(HoldsSeveral("1&&2"));
  EXPECT_TRUE(HoldsSeveral("1&2"));
  EXPECT_TRUE(HoldsSeveral("1&&2&5"));
}

}  // namespace
}  // namespace cordboard::workbench
