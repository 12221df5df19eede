#include "shared/Equipment.h"

#include <gtest/gtest.h>

#include "script/RunTimeFailure.h"
#include "support/CallLines.h"
#include "support/ScriptedHost.h"

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
  return host.With([&] { return ReadBoardID("Edit: ITNUI", "001-0-10-01", BoardID); });
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

}  // namespace
}  // namespace cordboard
