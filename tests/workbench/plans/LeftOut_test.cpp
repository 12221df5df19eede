// What the lines of a release leave out, as the lines of the others tell it.

#include "workbench/plans/LeftOut.h"

#include <gmock/gmock.h>

#include "support/Road.h"
#include "workbench/actions/Generation.h"
#include "workbench/support/ExamplePlans.h"
#include "workbench/support/TestExchange.h"
#include "workbench/text/Separated.h"

namespace cordboard::workbench {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> LeftOutOf(const std::string& release, const std::vector<std::string>& plans) {
  const auto exchange = ExampleExchange(release);
  {
    Session session(*exchange);
    for (const std::string& plan : plans) EXPECT_TRUE(ApplyExamplePlan(session, plan).kept) << plan;
  }
  std::vector<std::string> texts;
  for (const LeftOut& each : FindLeftOut(*exchange))
    texts.push_back(each.command + " " + each.parameter + " " + std::to_string(each.records) + " " +
                    Separated(each.toldBy, ","));
  EXPECT_EQ(exchange->release(), release);
  return texts;
}

TEST(LeftOut, OfAnEarlyReleaseParametersAreLeftOut) {
  EXPECT_THAT(LeftOutOf("R6", {"example.plan", "extensions.plan"}),
              ElementsAre("KSEXI LANG 34 R7,R8", "KSMDI DIG 4 R7,R8"));
  EXPECT_THAT(LeftOutOf("R8", {"example.plan", "extensions.plan"}), IsEmpty());
}

TEST(LeftOut, OfALateReleaseTheLinesOfACommandAre) {
  EXPECT_THAT(LeftOutOf("R7", ExamplePlans()), ElementsAre("ICFUC  2 R6,R6/1"));
}

}  // namespace
}  // namespace cordboard::workbench
