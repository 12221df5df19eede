#include "cli/shell/Typed.h"

#include <gtest/gtest.h>

#include <vector>

namespace cordboard::cli::shell {
namespace {

// The text of the rows, with whether it is whole behind the last; "whole early" where it was so before.
std::string TextOf(const std::vector<std::string>& rows) {
  Typed typed;
  bool isWhole = false;
  for (const std::string& row : rows) {
    if (isWhole) return "whole early: " + typed.text();
    isWhole = typed.Add(row);
  }
  return typed.text() + (isWhole ? "" : " ...");
}

TEST(Typed, ALineGoesOnUntilItsSemicolon) {
  EXPECT_EQ(TextOf({"NANSI:NUMTYP=EX,NUMSE=1;"}), "NANSI:NUMTYP=EX,NUMSE=1;");
  EXPECT_EQ(TextOf({"NANSI:NUMTYP=EX,", "NUMSE=1;  # done"}), "NANSI:NUMTYP=EX, NUMSE=1;  # done");
  for (const char* begun :
       {"NANSI", "NANSI:", "NANSI:NUMTYP", "NANSI:NUMTYP=", "edit", "edit NANSI NUMSE=1", "delete NANSI"})
    EXPECT_EQ(TextOf({begun}), begun + std::string(" ..."));
}

TEST(Typed, WhatCannotBecomeALineIsWhole) {
  for (const char* wrong : {"NANSI;", "NANSI:=1", "NANSI:X=\"a;", "NANSI:X=1; more", "\xff", ";"})
    EXPECT_EQ(TextOf({wrong}), wrong);
}

TEST(Typed, ABackslashGoesOnWithoutABlankAndJoinsLines) {
  EXPECT_EQ(TextOf({"NANSI:NUMTYP=EX,NUM\\", "SE=1;"}), "NANSI:NUMTYP=EX,NUMSE=1;");
  EXPECT_EQ(TextOf({"show \\", "NANSI"}), "show NANSI");
  EXPECT_EQ(TextOf({"A:B=1;\\", "C:D=2,", "E=3;"}), "A:B=1;\nC:D=2, E=3;");
  EXPECT_EQ(TextOf({"A:B=1;\\", "", "# comment", "C:D=2;\\"}), "A:B=1;\nC:D=2; ...");
}

TEST(Typed, ATextIsWrittenAsRowsThatMakeItAgain) {
  EXPECT_EQ(RowsOf("A:B=1;"), "A:B=1;");
  EXPECT_EQ(TextOf({"A:B=1;\\", "C:D=2;"}), "A:B=1;\nC:D=2;");
  EXPECT_EQ(RowsOf("A:B=1;\nC:D=2;"), "A:B=1;\\\nC:D=2;");
}

TEST(Typed, BlankRowsCommentsAndLineEndsOfWindowsDoNotCount) {
  EXPECT_EQ(TextOf({"", "  \t", "# no", "quit\r"}), "quit");
  EXPECT_EQ(TextOf({"A:B=1,\r", "", "# no;", "C=2;\r"}), "A:B=1, C=2;");
}

TEST(Typed, WordsBeginWithASmallLetter) {
  EXPECT_TRUE(IsLine("KSEXI:DIR=1;"));
  EXPECT_TRUE(IsLine(" edit KSEXI"));
  EXPECT_TRUE(IsLine("delete"));
  EXPECT_TRUE(IsLine("EDIT KSEXI"));
  EXPECT_FALSE(IsLine("editor"));
  EXPECT_FALSE(IsLine("show KSEXI"));
  EXPECT_FALSE(IsLine("  "));
}

TEST(Typed, TheLineThatIsTypedNowIsKnownWithARowThatIsNot) {
  Typed typed;
  EXPECT_EQ(typed.LineWith("KSE"), "KSE");
  typed.Add("A:B=1;\\");
  EXPECT_EQ(typed.LineWith("C:"), "C:");
  typed.Add("C:D=2,");
  EXPECT_EQ(typed.LineWith("E="), "C:D=2, E=");
}

}  // namespace
}  // namespace cordboard::cli::shell
