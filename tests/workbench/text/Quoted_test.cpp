#include "workbench/text/Quoted.h"

#include <gtest/gtest.h>

namespace cordboard::workbench {
namespace {

TEST(Quoted, ADoubleQuoteStandsTwice) {
  EXPECT_EQ(Quoted(""), R"("")");
  EXPECT_EQ(Quoted(R"(a, "b")"), R"("a, ""b""")");
}

TEST(Quoted, TheTextIsTakenAndWhatFollowsStays) {
  std::string_view rest = R"("a ""b""", c)";
  EXPECT_EQ(TakeQuoted(rest), R"(a "b")");
  EXPECT_EQ(rest, ", c");
  rest = R"("")";
  EXPECT_EQ(TakeQuoted(rest), "");
  EXPECT_EQ(rest, "");
}

TEST(Quoted, ATextWithoutAnEndIsLeftWhereItIs) {
  for (const std::string_view open : {R"("a)", R"(")", R"("a"")"}) {
    std::string_view rest = open;
    EXPECT_EQ(TakeQuoted(rest), std::nullopt);
    EXPECT_EQ(rest, open);
  }
}

}  // namespace
}  // namespace cordboard::workbench
