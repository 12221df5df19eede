#include "workbench/plans/SavedPlan.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "workbench/exchange/Plant.h"
#include "workbench/history/Undo.h"
#include "workbench/support/ExamplePlans.h"
#include "workbench/support/TemporaryFolder.h"
#include "workbench/support/TestExchange.h"

namespace cordboard::workbench {
namespace {

using testing::HasSubstr;

class SavedPlanTest : public testing::Test {
 protected:
  // The plan as it is saved after it was tried.
  std::string Tried(const std::string& plan, bool ensure = false) {
    SavedPlan saved;
    const PlanResult result =
        ApplyText(session_, "office.plan", plan,
                  {.dryRun = true, .ensure = ensure, .read = [&](const std::string&, const std::string& line) {
                     saved.Add(line);
                   }});
    EXPECT_EQ(result.refused, 0);
    return saved.Written("tried", result.key);
  }
  std::string Applied(const std::string& plan, bool ensure = false) {
    return Refusal<StalePlan>([&] { EXPECT_TRUE(ApplyText(session_, "saved.plan", plan, {.ensure = ensure}).kept); });
  }
  int Numbers() { return Count(*exchange_, "NANSI"); }

  std::unique_ptr<Exchange> exchange_ = ExampleExchange();
  Session session_{*exchange_};
};

const std::string ten = "# ten\n\nNANSI:NUMTYP=EX,NUMSE=10;\n";
const std::string others = "saved.plan was tried, and the exchange or the options are others now; nothing was kept";

TEST_F(SavedPlanTest, IsAppliedToWhatItWasTriedOn) {
  const std::string saved = Tried(ten);
  EXPECT_EQ(saved.substr(saved.find('\n') + 1), ten);
  EXPECT_EQ(Numbers(), 0);
  EXPECT_EQ(Applied(saved), "no error");
  EXPECT_EQ(Numbers(), 1);
}

// An undo does not make it what it was: somebody has had it in his hands.
TEST_F(SavedPlanTest, IsRefusedWhereTheExchangeWasChanged) {
  const std::string saved = Tried(ten);
  EXPECT_EQ(Applied("NANSI:NUMTYP=EX,NUMSE=20;\n"), "no error");
  EXPECT_THAT(Applied(saved), HasSubstr(others));
  Undo(exchange_->Dynamic(), {}, false, "");
  EXPECT_THAT(Applied(saved), HasSubstr(others));
  EXPECT_EQ(Numbers(), 0);
  EXPECT_EQ(exchange_->OpenTransactions(), 0);
}

// Whatever stands in it: the first line may be as long as a line may be.
TEST_F(SavedPlanTest, IsRefusedWhereItsFirstLineIsNone) {
  const std::string changed = "saved.plan was changed after it was saved";
  const std::string beginning = "# saved by cordboard: ";
  EXPECT_THAT(Applied(beginning + std::string(60000, 'a') + ", key x, sum 0123456789abcdef\n" + ten),
              HasSubstr("others"));
  EXPECT_THAT(Applied(beginning + std::string(60000, 'a') + "\n" + ten), HasSubstr(changed));
  EXPECT_THAT(Applied(beginning + "tried, key x\n" + ten), HasSubstr(changed));
  EXPECT_THAT(Applied(beginning + "tried, sum 0123456789abcdef\n" + ten), HasSubstr(changed));
  EXPECT_THAT(Applied(beginning + "tried, key x, sum 0123\n" + ten), HasSubstr(changed));
  EXPECT_EQ(Numbers(), 0);
}

TEST_F(SavedPlanTest, IsRefusedByAnotherExchangeAndWithOtherOptions) {
  const std::string saved = Tried(ten);
  EXPECT_THAT(Applied(saved, true), HasSubstr(others));
  EXPECT_EQ(Applied(Tried(ten, true), true), "no error");
  const auto other = Exchange::CreateInMemory("R7", ReadPlant("example"));
  Session session(*other);
  EXPECT_THROW(ApplyText(session, "saved.plan", saved), StalePlan);
}

TEST_F(SavedPlanTest, IsRefusedWhereItWasChangedItself) {
  const std::string saved = Tried(ten);
  const std::string changed = "saved.plan was changed after it was saved; nothing was kept";
  for (const std::string& plan : {saved + "#", saved.substr(0, saved.size() - 3), "# saved by cordboard: tried\n" + ten,
                                  saved + "NANSI:NUMTYP=EX,NUMSE=20;\n"}) {
    EXPECT_THAT(Applied(plan), HasSubstr(changed)) << plan;
  }
  EXPECT_EQ(Numbers(), 0);
  EXPECT_EQ(Applied("\n" + saved), "no error") << "a head is the first line";
}

}  // namespace
}  // namespace cordboard::workbench
