#include "workbench/text/Separated.h"

#include <gtest/gtest.h>

#include <vector>

namespace cordboard::workbench {
namespace {

TEST(Separated, StandsBetweenThings) {
  EXPECT_EQ(Separated(std::vector<std::string>{"a", "b", "c"}, ", "), "a, b, c");
  EXPECT_EQ(Separated(std::vector<std::string>{"a"}, ", "), "a");
  EXPECT_EQ(Separated(std::vector<std::string>{}, ", "), "");
}

TEST(Separated, StandsBetweenEmptyTextsToo) { EXPECT_EQ(Separated(std::vector<std::string>{"", "", "c"}, "&"), "&&c"); }

TEST(Separated, WritesEachThingAsItIsTold) {
  EXPECT_EQ(Separated(std::vector<int>{1, 2}, " ", [](int n) { return "[" + std::to_string(n) + "]"; }), "[1] [2]");
}

}  // namespace
}  // namespace cordboard::workbench
