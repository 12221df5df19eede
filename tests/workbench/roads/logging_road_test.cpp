// The commands of the family logging as a user meets them, on a real exchange.

#include <gtest/gtest.h>

#include "support/Road.h"

namespace cordboard::workbench {
namespace {

// --- CLFOC.

TEST(CLFOCRoad, AFormatIsAddedByItsItemsOrByTheirDigits) {
  Road road;
  EXPECT_EQ(road.Do("CLFOC:FORM=4,DATA=\"1-6-F&2-4-J\",DESCRIPTION=Bills;"), "done");
  EXPECT_EQ(road.Do("CLFOC:FORM=5,DATA1_D1D2=1,DATA1_D3D4=6,DATA1_D5=F,DATA2_D1D2=12,DATA2_D5=J,DATA2_D3D4=4;"),
            "done");
  EXPECT_EQ(road.Do("CLFOC:FORM=6,DATA1=1-6-F,DATA2=12-4-J;"), "done");
  EXPECT_EQ(road.Rows("SELECT FORM, DATA, DESCRIPTION, DATA1, DATA2, DATA3, DATA40 FROM CLFOC"),
            "4|1-6-F&2-4-J|Bills|1-6-F|2-4-J|-|- 5|1-6-F&12-4-J|-|1-6-F|12-4-J|-|- 6|1-6-F&12-4-J|-|1-6-F|12-4-J|-|-");
  EXPECT_EQ(road.Lines(), (std::vector<std::string>{"CLFOC:FORM=4,DATA=1-6-F&2-4-J;", "CLFOC:FORM=5,DATA=1-6-F&12-4-J;",
                                                    "CLFOC:FORM=6,DATA=1-6-F&12-4-J;"}));
}

TEST(CLFOCRoad, ItemsThatAreLeftOutLeaveNoGap) {
  Road road;
  EXPECT_EQ(road.Do("CLFOC:FORM=4,DATA1=1-6-F,DATA7=2-4-J;"), "done");
  EXPECT_EQ(road.Rows("SELECT DATA, DATA1, DATA2, DATA7 FROM CLFOC"), "1-6-F&2-4-J|1-6-F|2-4-J|-");
}

TEST(CLFOCRoad, AnItemIsGivenWhole) {
  Road road;
  EXPECT_EQ(road.Do("CLFOC:FORM=4;"), "DATA=: this parameter has to be given (Items, such as 1-6-F&2-4-J)");
  EXPECT_EQ(road.Do("CLFOC:FORM=4,DATA=1-6-F,DATA2_D5=J;"),
            "DATA2_D5=J: this is a part of DATA2; give DATA2_D1D2 as well");
  EXPECT_EQ(road.Do("CLFOC:FORM=4,DATA=1-6-F,DATA1_D5=Z;"),
            "DATA1_D5=Z: this is a part of DATA1; give DATA1_D3D4 as well")
      << "the length does not go with the kind";
  EXPECT_EQ(road.Rows("SELECT COUNT(*) FROM CLFOC"), "0");
}

TEST(CLFOCRoad, LengthsFollowFromTheKind) {
  Road road;
  EXPECT_EQ(road.Do("CLFOC:FORM=4,DATA1_D1D2=1,DATA1_D5=I,DATA1_D3D4=3;"),
            "DATA1_D3D4=3: this value is not possible here [2]");
  EXPECT_EQ(road.Values("CLFOC", "DATA7_D3D4", {{"DATA7_D5", "K"}}), "4 5");
  EXPECT_EQ(road.Values("CLFOC", "DATA40_D5"), "A B C D E F G H I J K L M N O P Q R S T U V W X Y Z");
  EXPECT_EQ(road.Values("CLFOC", "APPEND"), "YES");
}

TEST(CLFOCRoad, APositionThatTheItemHasInTheFormIsNotOfferedAgain) {
  Road road;
  EXPECT_EQ(road.Do("CLFOC:FORM=4,DATA=\"1-6-F&12-4-J\";"), "done");
  EXPECT_EQ(road.Values("CLFOC", "DATA2_D1D2", {{"FORM", "4"}}),
            "1 2 3 4 5 6 7 8 9 10 11 13 14 15 16 17 18 19 20 21 22 23 24 25 26 27 28 29 30 31 32 33 34 35 36 37 38 39 "
            "40");
  EXPECT_EQ(road.Values("CLFOC", "FORM"), "0 1 2 3 5 6");
}

TEST(CLFOCRoad, AFormThatExistsGrowsWhereAppendIsGiven) {
  Road road;
  EXPECT_EQ(road.Do("CLFOC:FORM=5,DATA=1-6-F,DESCRIPTION=Bills;"), "done");
  EXPECT_NE(road.Do("CLFOC:FORM=5,DATA=2-4-J;"), "done");
  EXPECT_EQ(road.Do("CLFOC:FORM=5,APPEND=YES,DATA=2-4-J;"), "done");
  EXPECT_EQ(road.Do("CLFOC:FORM=5,APPEND=YES,DATA1_D1D2=3,DATA1_D5=H,DATA1_D3D4=1;"), "done");
  EXPECT_EQ(road.Rows("SELECT FORM, DATA, DESCRIPTION, DATA1, DATA2, DATA3, DATA4 FROM CLFOC"),
            "5|1-6-F&2-4-J&3-1-H|Bills|1-6-F|2-4-J|3-1-H|-");
  EXPECT_NE(road.Do("CLFOC:FORM=5,APPEND=NO,DATA=4-4-J;"), "done");
}

TEST(CLFOCRoad, AnEditOfItemsReachesTheColumnsOfEveryForm) {
  Road road;
  EXPECT_EQ(road.Do("CLFOC:FORM=4,DATA=\"1-6-F&2-4-J&3-1-H\";"), "done");
  EXPECT_EQ(road.Do("CLFOC:FORM=5,DATA=1-5-A;"), "done");
  EXPECT_EQ(road.Do("edit CLFOC FORM=4:DATA2_D5=K,DATA2_D3D4=5;"), "done");
  EXPECT_EQ(road.Rows("SELECT FORM, DATA, DATA1, DATA2, DATA3 FROM CLFOC"),
            "4|1-6-F&2-5-K&3-1-H|1-6-F|2-5-K|3-1-H 5|1-5-A|1-6-F|2-5-K|3-1-H");
  EXPECT_EQ(road.Do("edit CLFOC FORM=4:DATA=\"1-6-F&2-4-J\";"), "done");
  EXPECT_EQ(road.Rows("SELECT FORM, DATA, DATA1, DATA2, DATA3 FROM CLFOC"),
            "4|1-6-F&2-4-J|1-6-F|2-4-J|- 5|1-5-A|1-6-F|2-4-J|3-1-H");
  EXPECT_EQ(road.Do("edit CLFOC FORM=5:DESCRIPTION=Short;"), "done");
  EXPECT_EQ(road.Do("edit CLFOC FORM=5:DATA1_D5=B;"), "done") << "the form shows DATA, whatever the columns have";
  EXPECT_EQ(road.Rows("SELECT DATA, DATA1, DATA2, DESCRIPTION FROM CLFOC WHERE FORM = '5'"), "1-5-B|1-5-B|2-4-J|Short");
}

TEST(CLFOCRoad, AFormatKeepsItsItemsUnderAnotherForm) {
  Road road;
  EXPECT_EQ(road.Do("CLFOC:FORM=4,DATA=\"1-6-F&2-4-J&3-1-H\";"), "done");
  EXPECT_EQ(road.Do("edit CLFOC FORM=4:FORM=5;"), "done");
  EXPECT_EQ(road.Rows("SELECT FORM, DATA, DATA1 FROM CLFOC"), "5|1-6-F&2-4-J&3-1-H|1-6-F");
  EXPECT_EQ(road.Do("edit CLFOC FORM=5:DATA2_D5=;"), "DATA2_D5=: this is a part of DATA2; clear that as a whole");
  EXPECT_EQ(road.Do("edit CLFOC FORM=5:DATA2=;"), "done");
  EXPECT_EQ(road.Rows("SELECT FORM, DATA FROM CLFOC"), "5|1-6-F&3-1-H");
  EXPECT_EQ(road.Do("delete CLFOC FORM=5;"), "done");
  EXPECT_EQ(road.Rows("SELECT COUNT(*) FROM CLFOC"), "0");
}

TEST(CLFOCRoad, TheFormsOfTheExchangeGiveNoLineAndALongOneGivesTwo) {
  Road road;
  std::string DATA = "1-6-F";
  for (int position = 2; position <= 30; ++position) DATA += "&" + std::to_string(position) + "-4-J";
  EXPECT_EQ(road.Do("CLFOC:FORM=2,DATA=1-6-F;"), "done");
  EXPECT_EQ(road.Do("CLFOC:FORM=4,DATA=\"" + DATA + "\";"), "done");
  const std::vector<std::string> lines = road.Lines();
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_EQ(lines[0], "CLFOC:FORM=4,DATA=" + DATA.substr(0, DATA.find("&26-")) + ";");
  EXPECT_EQ(lines[1], "CLFOC:FORM=4,DATA=26-4-J&27-4-J&28-4-J&29-4-J&30-4-J,APPEND=YES;");
}

}  // namespace
}  // namespace cordboard::workbench
