#include "workbench/exchange/Damage.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "workbench/exchange/Plant.h"
#include "workbench/support/TestExchange.h"

namespace cordboard::workbench {
namespace {

using testing::ElementsAre;
using testing::StartsWith;

TEST(Damage, ThereIsNoneInANewExchange) {
  EXPECT_THAT(FindDamage(*Exchange::CreateInMemory("R7", ReadPlant("example"))), ElementsAre());
}

TEST(Damage, IsATableOrAnIndexThatIsMissing) {
  const auto exchange = ExampleExchange();
  exchange->Dynamic().Execute("DROP TABLE [site.KSEXITemplate]; DROP TABLE [Boards]");
  EXPECT_THAT(FindDamage(*exchange), testing::Contains(StartsWith("this is missing: CREATE TABLE [Boards]")));
  EXPECT_THAT(FindDamage(*exchange), testing::Contains(StartsWith("this is missing: CREATE TABLE [site.KSEXITempl")));
}

TEST(Damage, IsAHistoryThatIsNotWhole) {
  const auto exchange = ExampleExchange();
  exchange->Dynamic().Execute("DROP TABLE [Cordboard.States]");
  EXPECT_THAT(FindDamage(*exchange), ElementsAre("a table of the history is missing"));
  exchange->Dynamic().Execute("DROP TABLE [Cordboard.Changes]; DROP TABLE [Cordboard.Plans]");
  EXPECT_THAT(FindDamage(*exchange), ElementsAre());
}

// What the database itself finds.
TEST(Damage, IsARowThatBreaksARuleOfItsTable) {
  const auto exchange = ExampleExchange();
  Connection& database = exchange->Dynamic();
  database.Execute("CREATE TABLE [c] ([x] CHECK ([x] > 1))");
  database.Execute("PRAGMA ignore_check_constraints = ON; INSERT INTO [c] VALUES (1)");
  database.Execute("PRAGMA ignore_check_constraints = OFF");
  EXPECT_THAT(FindDamage(*exchange), ElementsAre("CHECK constraint failed in c"));
}

}  // namespace
}  // namespace cordboard::workbench
