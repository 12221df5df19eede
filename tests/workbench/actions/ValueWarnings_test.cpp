#include "workbench/actions/ValueWarnings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

#include "workbench/plans/Plan.h"
#include "workbench/support/RoadTest.h"

namespace cordboard::workbench {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

class ValueWarnings : public RoadTest {
 protected:
  void SetUp() override {
    OpenNew("R7");
    Apply("plans/example.plan");
  }
  // What the user is warned of, or why the line was refused.
  std::vector<std::string> Warned(const std::string& line) {
    EXPECT_TRUE(Do(line)) << line << ": " << testing::PrintToString(texts());
    return texts();
  }
};

TEST_F(ValueWarnings, ASignOfTheLineMakesAWrongLine) {
  EXPECT_THAT(Warned("IPGKC:LIM=1,GKID=\"HQ,1\";"),
              ElementsAre("GKID: the sign , in this value makes a wrong command line, where it separates"));
  EXPECT_THAT(Warned("IPGKC:LIM=2,GKID=\"HQ=2\";"), ElementsAre(StartsWith("GKID: the sign = ")));
  EXPECT_THAT(Warned("ACGRI:GRP=110,LIM=1,QIC=\"1&2\";"), ElementsAre(StartsWith("QIC: the sign & ")));
}

TEST_F(ValueWarnings, ATextMayHoldAnything) {
  EXPECT_THAT(Warned("ACGRI:GRP=110,LIM=1,DESCRIPTION=\"a,b:c;d=e&f\";"), IsEmpty());
  EXPECT_THAT(Warned("IPGDI:LIM=1,DOMAIN=\"a=b\";"), IsEmpty());
}

TEST_F(ValueWarnings, ANumberIsOfDigits) {
  EXPECT_THAT(Warned("OPNEI:NEXGNO=x1;"), ElementsAre("NEXGNO: this value should be a number: digits alone"));
  EXPECT_THAT(Warned("NACDS:NUM=4&&6,CDCAT=1&2;"), IsEmpty());
  EXPECT_THAT(Warned("NACDS:NUM=x1,CDCAT=1;"), ElementsAre(StartsWith("NUM: this value should be what is dialled")));
  EXPECT_THAT(Warned("CXSYI:SARI=3110041Z;"), ElementsAre(StartsWith("SARI: this value should be of hexadecimal")));
}

TEST_F(ValueWarnings, TheDigitsOfAWholeAreThoseOfTheirPlaces) {
  EXPECT_THAT(Warned("GESPI:CSP=5,SERV=199001100000;"), ElementsAre(StartsWith("SERV: digits 2 to 3 of this value ")));
  EXPECT_THAT(Warned("GESPI:CSP=6,NPRES=900;"), ElementsAre("NPRES: digit 1 of this value should be one of 0, 1"));
  EXPECT_THAT(Warned("GESPI:CSP=7,SERV=104001100000,NPRES=110,TRAF=310;"), IsEmpty());
}

TEST_F(ValueWarnings, AWholeHasItsLength) {
  EXPECT_THAT(Warned("GESPI:CSP=5,NPRES=1100;"), ElementsAre("NPRES: this value has 4 digits and should have 3"));
  // A shorter one the form would fill up.
  EXPECT_FALSE(Do("GESPI:CSP=6,NPRES=11;"));
  EXPECT_THAT(texts(), ElementsAre("NPRES: this value has 2 digits and should have 3"));
  // Of several lengths any is right.
  EXPECT_THAT(Warned("ACGRI:GRP=110,LIM=1,QUE=10520;"), IsEmpty());
  EXPECT_THAT(Warned("ACGRI:GRP=111,LIM=1,QUE=2100200;"), IsEmpty());
  EXPECT_THAT(Warned("ACGRI:GRP=112,LIM=1,QUE=21002000;"),
              ElementsAre("QUE: this value has 8 digits and should have 5 or 7"));
}

TEST_F(ValueWarnings, AnEditWarnsToo) {
  EXPECT_THAT(Warned("edit GESPI CSP=1:NPRES=190;"), ElementsAre(StartsWith("NPRES: digit 2 of this value ")));
}

TEST_F(ValueWarnings, AStrictPlanRefusesWhatItsUserWouldBeWarnedOf) {
  const auto apply = [this](const std::string& line, bool strict) {
    std::istringstream plan(line);
    return ApplyPlan(session(), {{"plan", plan}}, {.dryRun = true, .strict = strict});
  };
  const std::string line = "OPNEI:NEXGNO=x1;";
  EXPECT_EQ(apply(line, false).refused, 0u);
  const PlanResult strict = apply(line, true);
  EXPECT_EQ(strict.refused, 1u);
  ASSERT_EQ(strict.reports.size(), 1u);
  EXPECT_TRUE(strict.reports[0].refused);
  EXPECT_EQ(strict.reports[0].problems.size(), 1u);
}

// A constant that begins a series ends the reading of the others, and the record is stored as far as it was read.
TEST_F(ValueWarnings, ARecordThatIsStoredInPartIsRefusedByAStrictPlan) {
  OpenNew("R7");
  Prepare({"NANSI:NUMTYP=EX,NUMSE=200&&249;"});
  for (const bool strict : {false, true}) {
    std::istringstream plan("NASCS:DDIV=601,CDDIV=20,AGP=604;");
    const PlanResult result = ApplyPlan(session(), {{"plan", plan}}, {.dryRun = true, .strict = strict});
    EXPECT_EQ(result.refused, strict ? 1u : 0u);
    ASSERT_EQ(result.reports.size(), 1u);
    EXPECT_EQ(result.reports[0].problems[0].parameter, "CDDIV");
    EXPECT_EQ(result.reports[0].problems[0].reason, "20 begins the number 200 (NANSI)");
  }
}

}  // namespace
}  // namespace cordboard::workbench
