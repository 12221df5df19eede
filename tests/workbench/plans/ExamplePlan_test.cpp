// The example plan on the example plant: it has to be applied as a whole, on every release, and so have those after it.

#include <gmock/gmock.h>

#include <sstream>

#include "support/Road.h"
#include "workbench/data/Resources.h"
#include "workbench/plans/Plan.h"
#include "workbench/support/RoadTest.h"

namespace cordboard::workbench {
namespace {

const char* const plans[] = {
    "extensions.plan", "authorisation.plan", "routes.plan",   "directory.plan", "terminals.plan",
    "templates.plan",  "groups.plan",        "members.plan",  "general.plan",   "operators.plan",
    "desk.plan",       "trunks.plan",        "cordless.plan", "ip.plan",        "logging.plan"};

struct ExamplePlan : testing::TestWithParam<std::string> {
  Road road{GetParam()};

  void SetUp() override { Apply("example.plan"); }

  void Apply(const std::string& name) {
    std::istringstream plan{std::string(Resource("plans/" + name))};
    const PlanResult result = ApplyPlan(road.session(), {{name, plan}}, {});
    for (const LineReport& report : result.reports)
      ADD_FAILURE() << name << ":" << report.line << ": " << report.problems.front().message;
    ASSERT_TRUE(result.kept);
  }
};

TEST_P(ExamplePlan, IsAppliedWithoutARefusalOrAWarning) {
  EXPECT_EQ(road.Rows("SELECT EXGID FROM SYIDI"), "7700");
  EXPECT_EQ(road.Rows("SELECT CDIV, SERV, TRAF FROM GESPI WHERE CSP = '1'"), "10210000|104001100000|310");
}

TEST_P(ExamplePlan, IsFollowedByThePlansThatBuildOnIt) {
  for (const char* name : plans) Apply(name);
  EXPECT_EQ(road.Rows("SELECT COUNT(*) FROM GEDII"), "15");
  EXPECT_EQ(road.Rows("SELECT COUNT(*) FROM SPEXI"), "7");
  EXPECT_EQ(road.Rows("SELECT COUNT(*) FROM KSEXI WHERE CUST = '2' AND CALALT = '1' AND LANG = '2'"), "11");
  EXPECT_EQ(road.Rows("SELECT DIR, NAME1, PRES FROM NIINI_DIR WHERE DIR IN ('214', '216') ORDER BY DIR"),
            "214|Gatehouse, works|11 216|Director|10");
  EXPECT_EQ(road.Rows("SELECT EQU, COUNT(*) FROM ITNUI GROUP BY EQU ORDER BY EQU"),
            "001-0-11-00|2 001-0-11-01|1 001-0-11-02|1 001-0-11-03|1 002-0-12-00|1 002-0-12-02|1 002-0-12-04|1");
  EXPECT_EQ(road.Rows("SELECT GRP, COUNT(*) FROM CHGMI GROUP BY GRP"), "1|6 2|4");
  EXPECT_EQ(road.Rows("SELECT GRP, LIM FROM CS_GPGRI ORDER BY GRP"), "1|1 10|2 11|2 2|1");
  EXPECT_EQ(road.Rows("SELECT LIST, CHO, TIME FROM PELPI WHERE DIR = '217'"), "2|1|30");
  EXPECT_EQ(road.Rows("SELECT DIR FROM UsedGroups"), "300 301 302 310 311 320 321");
  EXPECT_EQ(road.Rows("SELECT GRP, AGRP FROM GPAGI"), "1|2 1|10 2|1");
  EXPECT_EQ(road.Rows("SELECT GRP, NAME1 FROM NIINI_GRP"), "300|Order desk 310|Shop 320|Bell, works");
  EXPECT_EQ(road.Rows("SELECT TYPE, COUNT(*), COUNT(DISTINCT SUBSTR(EQU, 1, 8)) FROM EXTEIDIR GROUP BY TYPE"),
            "EL6|33|3 EL7|12|2 EL8|2|1");
  EXPECT_EQ(road.Rows("SELECT AUX, DIR_AUX, EQU FROM EXTEIAUX ORDER BY AUX"),
            "460|420|001-0-14-00 461|420|001-0-14-00 462|400|001-0-13-00");
  EXPECT_EQ(road.Rows("SELECT EQU, ICAT FROM EXTEIDIR WHERE DIR IN ('407', '413', '429', '445', '455') ORDER BY DIR"),
            "001-0-13-15|- 001-0-13-13|0010 001-0-14-09|2200 001-0-16-05|2113 002-0-11-31|0202");
  EXPECT_EQ(road.Rows("SELECT ROU, SDM, LANG, STRING FROM OPRSC WHERE ROU IN ('1', '4')"),
            "1|1|2|Public network 4|1|-|Sweden");
  EXPECT_EQ(road.Rows("SELECT DIR, USED FROM CPDNI INNER JOIN NANSI ON NUMSE = DIR"), "95|True 96|True");
  EXPECT_EQ(road.Rows("SELECT DIR, EQU, TYPE, PCM, OPC FROM OPERI ORDER BY DIR"),
            "900|001-0-11-24|3|-|1102 901|002-0-11-00|3|-|1102 903|001-0-11-26|5|2|0200");
  EXPECT_EQ(road.Rows("SELECT DIR, ANSW, LANG FROM OPISS ORDER BY DIR"), "900|0|0 901|0|0 903|2|-");
  EXPECT_EQ(road.Rows("SELECT OPE, NAME1 FROM NIINI_OPE"), "900|Switchboard 901|Gatehouse, works");
}

// The whole exchange, in the earliest and in the latest release.
struct WholeExample : ExamplePlan {};

TEST_P(WholeExample, GivesTheLinesOfAllPlans) {
  for (const char* name : plans) Apply(name);
  std::string lines;
  for (const std::string& line : road.Lines()) lines += line + "\n";
  EXPECT_EQ(lines, Golden("example-" + GetParam() + ".txt"));
}

TEST_P(ExamplePlan, GivesTheLinesOfTheSeriesAndTheParameters) {
  EXPECT_THAT(road.Lines(),
              testing::IsSupersetOf({"NANSI:NUMTYP=EX,NUMSE=100&&199;", "NANSI:NUMTYP=AI,NUMSE=9;",
                                     "NANSI:NUMTYP=EN,NUMSE=7700&&7701;", "ASPAC:PARNUM=102,PARVAL=1500;"}));
}

TEST_P(ExamplePlan, GivesLinesOfSeriesAndParametersThatBuildThemAgain) {
  std::vector<std::string> lines = road.Lines();
  std::erase_if(lines,
                [](const std::string& line) { return !line.starts_with("NANSI:") && !line.starts_with("ASPAC:"); });
  Road again(GetParam());
  for (const std::string& line : lines) EXPECT_EQ(again.Do(line), "done") << line;
  EXPECT_EQ(again.Lines(), lines);
}

INSTANTIATE_TEST_SUITE_P(OnTwoReleases, WholeExample, testing::Values("R6", "R8"));

INSTANTIATE_TEST_SUITE_P(OnEveryRelease, ExamplePlan, testing::ValuesIn(Releases()),
                         [](const auto& parameter) { return parameter.param == "R6/1" ? "R6_1" : parameter.param; });

}  // namespace
}  // namespace cordboard::workbench
