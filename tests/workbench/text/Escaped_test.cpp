#include "workbench/text/Escaped.h"

#include <gtest/gtest.h>

#include "workbench/text/Counted.h"

namespace cordboard::workbench {
namespace {

TEST(Escaped, LeavesTextsAsTheyAre) {
  for (const char* text : {"", "100&&199", "Z\xC3\xBCrich \\n", "\xC2\xA0\xC2", "\x80\x9B"})
    EXPECT_EQ(Escaped(text), text);
}

TEST(Escaped, ShowsControlCharacters) {
  EXPECT_EQ(Escaped("a\nb\r\tc"), "a\\nb\\r\\tc");
  EXPECT_EQ(Escaped("\033[2J\x7F\a"), "\\u001b[2J\\u007f\\u0007");
  EXPECT_EQ(Escaped("\xC2\x9B"
                    "2J\xC2\x80"),
            "\\u009b2J\\u0080");
  EXPECT_EQ(Escaped(std::string_view("\0", 1)), "\\u0000");
}

TEST(Counted, OneIsNotSeveral) {
  EXPECT_EQ(Counted(0, "board"), "0 boards");
  EXPECT_EQ(Counted(1, "board"), "1 board");
  EXPECT_EQ(Counted(24, "board"), "24 boards");
}

}  // namespace
}  // namespace cordboard::workbench
