#include "workbench/plans/ToldPlan.h"

#include <gtest/gtest.h>

namespace cordboard::workbench {
namespace {

TEST(ToldPlan, HidesSecretsAndLeavesAllElseAsItIs) {
  EXPECT_EQ(ToldPlan("# note\n\n  NANSI:NUMTYP=EX, NUMSE=100;  # x\nIPEXI:DIR=350,PASSW=\"a,b\";\n"
                     "edit IPEXI DIR=350:PASSW=x;\n# IPEXI:DIR=351,PASSW=y;\n"),
            "# note\n\n  NANSI:NUMTYP=EX, NUMSE=100;  # x\nIPEXI:DIR=350,PASSW=***;\n"
            "edit IPEXI DIR=350:PASSW=***;\n# IPEXI:DIR=351,PASSW=***;\n");
}

TEST(ToldPlan, TellsNothingOfWhatMayHoldASecretAnywhere) {
  EXPECT_EQ(ToldPlan("DIR;PASSW\n350;x\nNANSI:NUMTYP=EX,NUMSE=100;\nIPEXI:DIR=350,PASWS=x;\nIPEXX:PASSW=x;\n"),
            "# 2 lines not shown: no lines of a plan\nNANSI:NUMTYP=EX,NUMSE=100;\nIPEXI:DIR=350,PASWS=;\n"
            "# 1 line not shown: no lines of a plan\n");
}

TEST(ToldLine, HidesSecretsOfALineOfTheExchange) {
  EXPECT_EQ(ToldLine("IPEXI:DIR=350,PASSW=\"a,b\";"), "IPEXI:DIR=350,PASSW=***;");
  EXPECT_EQ(ToldLine("IPEXI:DIR=350,DERIVED=7;"), "IPEXI:DIR=350,DERIVED=7;");
  EXPECT_EQ(ToldLine("IPEXI:DIR=350,PASSW=x"), "IPEXI:***");
  EXPECT_EQ(ToldLine("NANSI:NUMTYP=EX,NUMSE=100"), "NANSI:NUMTYP=EX,NUMSE=100");
}

}  // namespace
}  // namespace cordboard::workbench
