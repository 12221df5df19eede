#include "fault/World.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <utility>

#include "workbench/exchange/Exchange.h"

namespace cordboard {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class WorldTest : public testing::Test {
 protected:
  // What the table holds before the statement and after it. It touches no other.
  std::pair<std::string, std::string> Around(const std::string& statement, const std::string& table) {
    const std::string before = world_.Dump({table});
    world_.TakeTouched();
    world_.exchange().Dynamic().Run(statement);
    EXPECT_THAT(world_.TakeTouched(), ElementsAre(table)) << statement;
    EXPECT_THAT(world_.TakeTouched(), IsEmpty()) << statement;
    return {before, world_.Dump({table})};
  }

  World world_{"R7"};
};

TEST_F(WorldTest, TellsWhichTablesWereChangedAndWhatTheyHold) {
  for (const auto& [statement, table] :
       {std::pair{"INSERT INTO [KSEXI] ([CMDID], [DIR]) VALUES (1, '1')", "KSEXI"},
        std::pair{"UPDATE [NANSI] SET [USED] = NOT [USED]", "NANSI"}, std::pair{"DELETE FROM [KSEXI]", "KSEXI"},
        std::pair{"DELETE FROM [site.KSEXITemplate]", "site.KSEXITemplate"},
        std::pair{"INSERT INTO [BuiltCmd] VALUES (1, 'line')", "BuiltCmd"}}) {
    const auto [before, after] = Around(statement, table);
    EXPECT_NE(before, after) << statement;
  }
}

TEST_F(WorldTest, TellsATableOfWhichTheChangeWasTakenBack) {
  EXPECT_TRUE(world_.IsAsItWasMade());
  {
    const workbench::Transaction undone(world_.exchange());
    const auto [before, after] = Around("DELETE FROM [ROCAI]", "ROCAI");
    EXPECT_NE(before, after);
    EXPECT_FALSE(world_.IsAsItWasMade());
  }
  EXPECT_TRUE(world_.IsAsItWasMade());
}

TEST_F(WorldTest, KnowsEveryTableButThoseOfTheWorkbench) {
  EXPECT_THROW(world_.Dump({"NoTable"}), std::out_of_range);
  EXPECT_EQ(world_.Dump({"Cordboard", "Cordboard.States"}), "");
}

}  // namespace
}  // namespace cordboard
