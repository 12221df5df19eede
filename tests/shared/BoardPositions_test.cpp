#include "shared/BoardPositions.h"

#include <gtest/gtest.h>

#include "support/CallLines.h"
#include "support/ScriptedHost.h"

namespace cordboard {
namespace {

const std::string all = "SELECT LIM, Magazine, Slot FROM Boards WHERE BoardId = '108' ORDER BY LIM, Magazine, Slot";
const std::string atWorks =
    "SELECT Boards.LIM, Boards.Magazine, Boards.Slot FROM Boards INNER JOIN LIMs ON Boards.LIM = LIMs.LIM WHERE  "
    "LIMs.Location = 'WORKS' AND Boards.BoardID = '108' ORDER BY Boards.LIM, Boards.Magazine, Boards.Slot";
const std::string inUse = " SELECT BPOS FROM CXCFI ";

struct BoardPositions : testing::Test {
  ScriptedHost host;

  bool List() {
    return host.With([] { return ListBoardPositions({.CmdName = "CXCFI"}, "108", inUse); });
  }
  std::string Pushed(const std::string& positions) { return "scPushValidValues(" + positions + ")"; }
  std::string Removed(const std::string& position) { return R"(scRemoveFromValidValues("BPOS", ")" + position + "\")"; }
};

TEST_F(BoardPositions, HaveTheLIMInThreeDigits) {
  host.Rows(all, {{1, 12, "123"}, {0, 1, "2"}, {18, 0, "05"}});
  host.Rows(inUse, {});
  EXPECT_TRUE(List());
  EXPECT_EQ(host.Effects(),
            Lines({QueryLine(all), Pushed(R"(["001-0-18", "012-1-0", "123-2-05"])"), QueryLine(inUse)}));
}

TEST_F(BoardPositions, OfALIMOfAnotherLengthAreEmptyEntries) {
  host.Rows(all, {{"1234", Value::Null(), "", 1}, {0, 0, 0, 0}, {18, 18, 18, 18}});
  host.Rows(inUse, {});
  EXPECT_TRUE(List());
  EXPECT_EQ(host.Effects(), Lines({QueryLine(all), Pushed(R"([Empty, Empty, Empty, "001-0-18"])"), QueryLine(inUse)}));
}

TEST_F(BoardPositions, AreThoseOfTheLocation) {
  host.Param("LOCATION", "WORKS");
  host.Rows(atWorks, {{2}, {0}, {16}});
  host.Rows(inUse, {});
  EXPECT_TRUE(List());
  EXPECT_EQ(host.Calls(), Lines({Read("LOCATION"), QueryLine(atWorks), Pushed(R"(["002-0-16"])"), QueryLine(inUse)}));
}

TEST_F(BoardPositions, OfNoBoardAreNoListAndNoFailure) {
  host.Rows(all, {});
  EXPECT_TRUE(List());
  EXPECT_EQ(host.Effects(), Lines({QueryLine(all)}));
}

TEST_F(BoardPositions, InUseAreTakenOut) {
  host.Rows(all, {{1, 2}, {0, 0}, {18, 16}});
  host.Rows(inUse, {{"002-0-16", "001-0-18"}});
  EXPECT_TRUE(List());
  EXPECT_EQ(host.Effects(), Lines({QueryLine(all), Pushed(R"(["001-0-18", "002-0-16"])"), QueryLine(inUse),
                                   Removed("002-0-16"), Removed("001-0-18")}));
}

TEST_F(BoardPositions, OneThatCannotBeTakenOutEndsTheList) {
  host.Rows(all, {{1, 2}, {0, 0}, {18, 16}});
  host.Rows(inUse, {{"002-0-16", "001-0-18"}});
  host.Refuse("scRemoveFromValidValues");
  EXPECT_FALSE(List());
  EXPECT_EQ(host.Effects(), Lines({QueryLine(all), Pushed(R"(["001-0-18", "002-0-16"])"), QueryLine(inUse),
                                   Removed("002-0-16"), MessageLine("GetValidValForParam", R"(60015, "BPOS")")}));
}

TEST_F(BoardPositions, BoardsThatCannotBeReadAreReported) {
  host.Refuse("scRunQuery", all);
  EXPECT_FALSE(List());
  EXPECT_EQ(host.Effects(), Lines({QueryLine(all), MessageLine("CXCFIGetValidValForParam: ", "62000")}));
}

TEST_F(BoardPositions, APushThatIsRefusedIsNotReported) {
  host.Rows(all, {{1}, {0}, {18}});
  host.Refuse("scPushValidValues");
  EXPECT_FALSE(List());
  EXPECT_EQ(host.Effects(), Lines({QueryLine(all), Pushed(R"(["001-0-18"])")}));
}

TEST_F(BoardPositions, ThoseInUseThatCannotBeReadAreReported) {
  host.Rows(all, {{1}, {0}, {18}});
  host.Refuse("scRunQuery", inUse);
  EXPECT_FALSE(List());
  EXPECT_EQ(host.Effects(), Lines({QueryLine(all), Pushed(R"(["001-0-18"])"), QueryLine(inUse),
                                   MessageLine("CXCFIGetValidValForParam: ", "62000")}));
}

}  // namespace
}  // namespace cordboard
