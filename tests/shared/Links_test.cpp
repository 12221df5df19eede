#include "shared/Links.h"

#include <gtest/gtest.h>

namespace cordboard {
namespace {

TEST(Link, GoesByAnIndicatorOfTheRelease) {
  const auto of = [](const char* release) { return std::string(LinkIndicator(Action{.oaRelease = release})); };
  EXPECT_EQ(of("R6"), "ICUIND");
  EXPECT_EQ(of("R6/1"), "ICUIND");
  EXPECT_EQ(of("R7"), "IFCIND");
  EXPECT_EQ(of("R8"), "IFCIND");
  EXPECT_EQ(of("r6"), "IFCIND");
  EXPECT_EQ(of(""), "IFCIND");
}

TEST(Port, IsAsLongAsItsFormat) {
  EXPECT_TRUE(PortSuitsFormat("1000", 4));
  EXPECT_TRUE(PortSuitsFormat(1000, 4));
  EXPECT_TRUE(PortSuitsFormat("\u00fc1", 2));
  EXPECT_FALSE(PortSuitsFormat("100", 4));
  EXPECT_FALSE(PortSuitsFormat("10000", 4));
  EXPECT_FALSE(PortSuitsFormat("1000", 4.4));
}

TEST(Port, WithoutANumberHasTheLengthZero) {
  EXPECT_FALSE(PortSuitsFormat("", 4));
  EXPECT_FALSE(PortSuitsFormat(Value(), 4));
  EXPECT_TRUE(PortSuitsFormat("", 0));
  EXPECT_FALSE(PortSuitsFormat(Value::Null(), 4));
  EXPECT_TRUE(PortSuitsFormat(Value::Null(), 0));
}

}  // namespace
}  // namespace cordboard
