// What one more line of a plan costs, in steps of the database: the same where the exchange holds little and much.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <sstream>

#include "workbench/actions/Records.h"
#include "workbench/exchange/Plant.h"
#include "workbench/plans/Plan.h"
#include "workbench/support/Steps.h"

namespace cordboard::workbench {
namespace {

using std::string;

class Cost : public testing::Test {
 protected:
  // An exchange with so many boards of 32 positions each.
  void Open(int boards) {
    nlohmann::json plant = {{"name", "cost"},
                            {"locations", {{{"location", "HQ"}}}},
                            {"lims", nlohmann::json::array()},
                            {"boards", nlohmann::json::array()}};
    for (int board = 0; board < boards; ++board) {
      const int lim = 1 + board / 16;
      if (board % 16 == 0) plant["lims"].push_back({{"lim", lim}, {"location", "HQ"}});
      plant["boards"].push_back({{"lim", lim}, {"magazine", 0}, {"slot", board % 16}, {"type", "77"}});
    }
    session_.reset();
    exchange_ = Exchange::CreateInMemory("R8", ParsePlant(plant.dump(), "cost"));
    session_.emplace(*exchange_);
  }

  PlanResult Apply(const string& plan) {
    std::istringstream in(plan);
    return ApplyPlan(*session_, {{"plan", in}}, {.keepGoing = true});
  }
  // A line for each number; {n} stands for it.
  static string Lines(const string& line, int first, int count) {
    string plan;
    for (int number = first; number < first + count; ++number) {
      plan += line + "\n";
      plan.replace(plan.rfind("{n}"), 3, std::to_string(number));
    }
    return plan;
  }

  long StepsOf(const string& plan, int done, int refused = 0) {
    return StepCounter::Steps([&] {
      const PlanResult result = Apply(plan);
      EXPECT_EQ(result.done, static_cast<std::size_t>(done)) << plan;
      EXPECT_EQ(result.refused, static_cast<std::size_t>(refused)) << plan;
    });
  }

  Exchange& exchange() { return *exchange_; }
  Session& session() { return *session_; }

  static void ExpectNoGrowth(long few, long many) {
    EXPECT_GT(few, 0);
    EXPECT_LE(many, few + few / 10);
  }

 private:
  const StepCounter counter_;
  std::unique_ptr<Exchange> exchange_;
  std::optional<Session> session_;
};

// Each is compared with all that stand: the database reads but the last of them.
TEST_F(Cost, OfOneNumberMoreThatIsComparedWithAllOthersStays) {
  const auto perLine = [this](int lines) {
    Open(1);
    return StepsOf(Lines("NACDS:NUM={n},CDCAT=1;", 1000, lines), lines) / lines;
  };
  ExpectNoGrowth(perLine(100), perLine(500));
}

TEST_F(Cost, OfOneValueMoreInALineStays) {
  const auto perValue = [this](const string& line, int last) {
    Open(40);
    Apply("NANSI:NUMTYP=EX,NUMSE=1000&&9999;\n");
    return StepsOf(line.substr(0, line.find('|')) + std::to_string(last) + line.substr(line.find('|') + 1), 1) /
           (last - 999);
  };
  for (const char* line : {"NACDS:NUM=1000&&|,CDCAT=1;\n",
                           "KSEXI:DIR=1000&&|,ITYPE=9,EQU=next,TRAF=00,SERV=000000000,CDIV=000000000,ROC=010000;\n"}) {
    SCOPED_TRACE(line);
    ExpectNoGrowth(perValue(line, 1049), perValue(line, 1399));
  }
}

// With each number go the marks of positions that no record holds.
TEST_F(Cost, OfADeletedNumberStaysAsPositionsBecomeMany) {
  const auto perLine = [this](int boards) {
    Open(boards);
    Apply("NANSI:NUMTYP=EX,NUMSE=1000&&9999;\n");
    return StepsOf(Lines("delete NANSI NUMSE={n};", 2000, 10), 10) / 10;
  };
  ExpectNoGrowth(perLine(5), perLine(100));
}

TEST_F(Cost, OfDeletedNumbersStaysAsTakenPositionsBecomeMany) {
  const auto perLine = [this](int taken) {
    Open(40);
    Apply("NANSI:NUMTYP=EX,NUMSE=1000&&9999;\nKSEXI:DIR=1000&&" + std::to_string(999 + taken) +
          ",ITYPE=9,EQU=next,TRAF=00,SERV=000000000,CDIV=000000000,ROC=010000;\n");
    Apply("delete NANSI NUMSE=4999;\n");
    const long one = StepsOf("delete NANSI NUMSE=5000;\n", 1);
    return (StepsOf(Lines("delete NANSI NUMSE={n};", 5001, 11), 11) - one) / 10;
  };
  ExpectNoGrowth(perLine(50), perLine(400));
}

TEST_F(Cost, OfARefusedValueStaysAsPossibleOnesBecomeMany) {
  const auto perLine = [this](int boards) {
    Open(boards);
    Apply("NANSI:NUMTYP=EX,NUMSE=1000&&9999;\n");
    return StepsOf(Lines("KSEXI:DIR={n},ITYPE=9,EQU=999-0-00-00;", 1000, 2), 0, 2);
  };
  // A list of positions looks at as many of each kind as are wanted, the ten that are told and one more: there have to
  // be as many.
  const long few = perLine(60);
  EXPECT_LT(few / 2, 20000);
  ExpectNoGrowth(few, perLine(300));
}

TEST_F(Cost, OfAnEditAndADeleteIsOneStatementForTheStoredRecord) {
  Open(1);
  Apply(
      "NANSI:NUMTYP=EX,NUMSE=1000&&1009;\n"
      "KSEXI:DIR=1000&&1009,ITYPE=9,EQU=next,TRAF=00,SERV=000000000,CDIV=000000000,ROC=010000;\n");
  const FormDefinition& form = *FindForm("KSEXI");
  session().host().OpenForm(form);
  EXPECT_EQ(StepCounter::Statements([&] { LoadRecord(exchange(), form, 11, session().form()); }), 1);
  EXPECT_EQ(session().form().Get("DIR"), Value("1000"));
}

}  // namespace
}  // namespace cordboard::workbench
