#include "workbench/text/Nearest.h"

#include <gtest/gtest.h>

namespace cordboard::workbench {
namespace {

const std::vector<std::string> commands = {"KSEXI", "KSFKC", "NANSI", "NANLS", "RODDI"};

TEST(Nearest, AMistypedNameGetsTheNearestOne) {
  EXPECT_EQ(DidYouMean("NANSY", commands), " Did you mean NANSI?");
  EXPECT_EQ(DidYouMean("KSEX", commands), " Did you mean KSEXI?");
  EXPECT_EQ(DidYouMean("KKSEXI", commands), " Did you mean KSEXI?");
  EXPECT_EQ(DidYouMean("RODI", commands), " Did you mean RODDI?");
}

TEST(Nearest, OtherCapitalsAreTheNearestOfAll) { EXPECT_EQ(DidYouMean("nansi", commands), " Did you mean NANSI?"); }

TEST(Nearest, OfTwoThatAreEquallyNearTheFirstIsNamed) {
  EXPECT_EQ(DidYouMean("NANXX", commands), " Did you mean NANSI?");
}

TEST(Nearest, MoreThanTwoLettersApartIsNotNear) {
  EXPECT_EQ(DidYouMean("NAXXI", commands), " Did you mean NANSI?");
  EXPECT_EQ(DidYouMean("NXXXI", commands), "");
}

TEST(Nearest, AShortNameHasToBeNearer) {
  EXPECT_EQ(DidYouMean("CUS", {"CUST"}), " Did you mean CUST?");
  EXPECT_EQ(DidYouMean("DI", {"DIR"}), " Did you mean DIR?");
  EXPECT_EQ(DidYouMean("XY", {"XAB"}), "");
  EXPECT_EQ(DidYouMean("d", {"DIR"}), "");
  EXPECT_EQ(DidYouMean("d", {"D"}), " Did you mean D?");
}

TEST(Nearest, NothingIsNearToNothing) {
  EXPECT_EQ(DidYouMean("", commands), "");
  EXPECT_EQ(DidYouMean("NANSI", {}), "");
  EXPECT_EQ(DidYouMean(std::string(1000000, 'N'), commands), "");
}

}  // namespace
}  // namespace cordboard::workbench
