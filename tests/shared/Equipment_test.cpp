#include "shared/Equipment.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "script/RunTimeFailure.h"
#include "support/CallLines.h"
#include "support/ScriptedHost.h"
#include "support/SourceFolder.h"

namespace cordboard {
namespace {

TEST(EquipmentOrder, IsTheUsersClauseAsTheHostGivesIt) {
  ScriptedHost host;
  host.AutoEquOption(" ORDER BY Equipment.EQU DESC");
  EXPECT_EQ(host.With([] { return EquipmentOrder(); }), " ORDER BY Equipment.EQU DESC");
  EXPECT_EQ(host.Calls(), Lines({"scGetAutoEquOptionValue(out)"}));
}

TEST(EquipmentOrder, IsByPlaceWhereTheUserHasNoOption) {
  ScriptedHost host;
  EXPECT_EQ(host.With([] { return EquipmentOrder(); }),
            " ORDER BY Equipment.LIM, Equipment.Magazine, Equipment.Slot, Equipment.Individual");
}

const std::string readBoard =
    "SELECT Boards.BoardID FROM Boards INNER JOIN Equipment ON (Boards.Slot = Equipment.Slot) AND (Boards.Magazine = "
    "Equipment.Magazine) AND (Boards.LIM = Equipment.LIM) WHERE Equipment.EQU = '001-0-10-01'";

bool Read(ScriptedHost& host, Value& BoardID) {
  return host.With([&] { return ReadBoardID(Reporter("Edit: ITNUI"), "001-0-10-01", BoardID); });
}

TEST(BoardOfAPosition, IsThatOfTheFirstRow) {
  ScriptedHost host;
  host.Rows(readBoard, {{"77", "59"}});
  Value BoardID;
  EXPECT_TRUE(Read(host, BoardID));
  EXPECT_EQ(BoardID, Value("77"));
  EXPECT_EQ(host.Calls(), Lines({QueryLine(readBoard)}));
}

TEST(BoardOfAPosition, ThatCannotBeReadIsReported) {
  ScriptedHost host;
  host.Refuse("scRunQuery", readBoard);
  Value BoardID;
  EXPECT_FALSE(Read(host, BoardID));
  EXPECT_EQ(host.Calls(), Lines({QueryLine(readBoard), MessageLine("Edit: ITNUI", "60004, \"BoardIds\", \"EQU\"")}));
}

TEST(BoardOfAPosition, ThatIsNowhereFailsTheCall) {
  ScriptedHost host;
  host.Rows(readBoard, {});
  Value BoardID;
  EXPECT_THROW(Read(host, BoardID), RunTimeFailure);
}

// Each beginning is that of statements that the commands really make.
TEST(Equipment, BeginningsStandInTheInventoryOfStatements) {
  std::ifstream file(SourceFile("tests/workbench/dialect/statements.jsonl"));
  const std::string inventory((std::istreambuf_iterator<char>(file)), {});
  for (std::string beginning :
       {EquipmentAtLocations, EquipmentOnBoards, EquipmentInLIMs, EquipmentInLIMsInLine, BoardsInLIMs}) {
    for (std::size_t at = 0; (at = beginning.find("\r\n", at)) != beginning.npos;) beginning.replace(at, 2, "\\r\\n");
    EXPECT_NE(inventory.find("\"" + beginning + "WHERE "), inventory.npos) << beginning;
  }
}

}  // namespace
}  // namespace cordboard
