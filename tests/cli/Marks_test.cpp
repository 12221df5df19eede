#include "cli/shell/Marks.h"

#include <gtest/gtest.h>

namespace cordboard::cli::shell {
namespace {

// The line, and below it what is marked.
std::string Marked(const std::string& line, const std::vector<workbench::Problem>& problems = {}) {
  return MarksUnder(0, PlacesOf(line, problems));
}

TEST(Marks, TheyStandUnderTheValuesThatAreRefused) {
  EXPECT_EQ(Marked("KSEXI:DIR=1,CAT=99;", {{.parameter = "CAT", .value = "99", .message = ""}}), "                ^^");
  EXPECT_EQ(Marked("KSEXI:DIR=1, CAT = 99 ;", {{.parameter = "CAT", .value = "", .message = ""}}),
            "                   ^^");
  EXPECT_EQ(Marked("KSEXI:DIR=200&999&201;", {{.parameter = "DIR", .value = "999", .message = ""}}),
            "              ^^^");
  EXPECT_EQ(Marked("A:B=1,C=2;", {{.parameter = "B", .message = ""}, {.parameter = "C", .message = ""}}), "    ^   ^");
  EXPECT_EQ(Marked("KSEXI:DIR=;", {{.parameter = "DIR", .message = ""}}), "          ^");
}

TEST(Marks, OfTwoOfANameTheOneThatHasTheValueIsMeant) {
  const std::string line = "edit KSEXI DIR=200:DIR=201;";
  EXPECT_EQ(Marked(line, {{.parameter = "DIR", .value = "200", .message = ""}}), "               ^^^");
  EXPECT_EQ(Marked(line, {{.parameter = "DIR", .value = "201", .message = ""}}), "                       ^^^");
  EXPECT_EQ(Marked(line, {{.parameter = "DIR", .value = "***", .message = ""}}), "                       ^^^");
}

TEST(Marks, TheyStandUnderAnUnknownCommandAndWhereALineCannotBeRead) {
  EXPECT_EQ(Marked("delete KSEXJ DIR=1;", {{.message = "there is no command"}}), "       ^^^^^");
  EXPECT_EQ(Marked("KSEXI:DIR=1,,CAT=1;"), "            ^");
  EXPECT_EQ(Marked("KSEXI:N\u00e4me=\u00e4\u00f6,=;"), "              ^") << "characters count, not bytes";
}

TEST(Marks, WhereNothingIsKnownThereAreNone) {
  EXPECT_EQ(Marked("KSEXI:DIR=1;", {{.message = "the rules fail"}}), "");
  EXPECT_EQ(Marked("KSEXI:DIR=1;", {{.parameter = "CAT", .message = "has to be given"}}), "");
  EXPECT_EQ(Marked("KSEXI:DIR=1"), "");
}

TEST(Marks, AnExcerptIsNoWiderThanTheTerminal) {
  EXPECT_EQ(Excerpt("KSEXI:DIR=1;", {11, 1}, 80), "  KSEXI:DIR=1;\n            ^");
  const std::string line = "KSEXI:DIR=" + std::string(200, '1') + ",CAT=9;";
  for (std::size_t columns = 1; columns < 30; ++columns) {
    const std::string excerpt = Excerpt(line, {216, 1}, columns);
    const std::size_t end = excerpt.find('\n');
    const std::size_t mark = excerpt.find('^') - end - 1;
    EXPECT_EQ(excerpt[mark], '9') << excerpt;
    EXPECT_LT(end, std::max<std::size_t>(columns, 11));
  }
}

TEST(Marks, ALineMayBeToldWhereNothingInItCanBeASecret) {
  EXPECT_TRUE(MayBeTold("IPEXI:DIR=150;"));
  EXPECT_TRUE(MayBeTold("delete KSEXI DIR=1;"));
  EXPECT_FALSE(MayBeTold("IPEXI:DIR=150,PASSW=Tulip;"));
  EXPECT_FALSE(MayBeTold("IPEXI:DIR=150,PASW=Tulip;"));
  EXPECT_FALSE(MayBeTold("edit IPEXI PASSW=Tulip:DIR=1;"));
  EXPECT_FALSE(MayBeTold("NOTHING:DIR=150;"));
  EXPECT_FALSE(MayBeTold("IPEXI:PASSW;"));
}

}  // namespace
}  // namespace cordboard::cli::shell
