// The example plan on the example plant: it has to be applied as a whole, on every release, and so have those after it.

#include <gmock/gmock.h>

#include <algorithm>
#include <span>

#include "support/Road.h"
#include "workbench/support/ExamplePlans.h"
#include "workbench/support/RoadTest.h"

namespace cordboard::workbench {
namespace {

struct ExamplePlan : testing::TestWithParam<std::string> {
  Road road{GetParam()};

  void SetUp() override { Apply("example.plan"); }

  void Apply(const std::string& name) {
    const PlanResult result = ApplyExamplePlan(road.session(), name);
    for (const LineReport& report : result.reports)
      ADD_FAILURE() << name << ":" << report.line << ": " << report.problems.front().message;
    ASSERT_TRUE(result.kept);
  }

  void ApplyThePlansBehind() {
    for (const std::string& name : std::span(ExamplePlans()).subspan(1)) Apply(name);
  }
};

TEST_P(ExamplePlan, IsAppliedWithoutARefusalOrAWarning) {
  EXPECT_EQ(road.Rows("SELECT EXGID FROM SYIDI"), "7700");
  EXPECT_EQ(road.Rows("SELECT CDIV, SERV, TRAF FROM GESPI WHERE CSP = '1'"), "10210000|104001100000|310");
}

TEST_P(ExamplePlan, IsFollowedByThePlansThatBuildOnIt) {
  ApplyThePlansBehind();
  EXPECT_EQ(road.Rows("SELECT COUNT(*) FROM GEDII WHERE DIR LIKE '1%'"), "15");
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
  EXPECT_EQ(road.Rows("SELECT CORG, CALT, OACC, ROU FROM OPCTS WHERE CORG > '3' ORDER BY CORG, CALT"),
            "4|6|905|1 4|7|906|1 5|4|-|4 6|0|910|-");
  EXPECT_EQ(road.Rows("SELECT CORG FROM USEDCALLORIGINGROUPS ORDER BY CORG"), "1 2 3 4 5 6");
  EXPECT_EQ(road.Rows("SELECT CENUM, CORG, NCA, PRIO FROM OPCEI ORDER BY CENUM"), "70|3|-|3 71|6|CCOP|1");
  EXPECT_EQ(road.Rows("SELECT DIR, COUNT(*) FROM OPCGS GROUP BY DIR"), "900|5 901|2 903|5");
  EXPECT_EQ(road.Rows("SELECT CORG, RERNUM FROM OPADC ORDER BY CORG"), "1|909 2|200 3|909 4|300 5|-");
  EXPECT_EQ(road.Rows("SELECT DIR FROM UsedExtOpeGrp WHERE NUMTYP = 'OC'"), "909");
  EXPECT_EQ(road.Rows("SELECT ROU, COUNT(*), MIN(EQU), MAX(TRU) FROM ROEQI GROUP BY ROU"),
            "1|8|001-0-20-01|1-08 2|2|001-0-15-30|1-10 3|4|002-0-20-01|2-04 4|2|001-0-20-09|1-22");
  EXPECT_EQ(road.Rows("SELECT LIM, COUNT(*) FROM TRKLINE WHERE USED GROUP BY LIM"), "1|12 2|4");
  EXPECT_EQ(road.Rows("SELECT CNVTYP, ENTRY, PRE FROM NUTRI WHERE ROU = '1'"), "3|1|000 3|2|00 2|1|30");
  EXPECT_EQ(road.Rows("SELECT DIR, TYPE, REMNUM FROM REEXI INNER JOIN GEDII USING (DIR)"),
            "330|RE|00304711 331|RE|001711234567");
  EXPECT_EQ(road.Rows("SELECT SARI, SMSN, TYPE FROM CXSYI INNER JOIN GEDII ON DIR = SMSN"), "31100411|340|SMSN");
  EXPECT_EQ(road.Rows("SELECT CXAKI.DIR, IPEI FROM CXAKI INNER JOIN GEDII ON GEDII.DIR = CXAKI.DIR AND TYPE = 'CX'"),
            "341|0A1B2C3 342|0A1B2C4 344|0A1B2D0 346|0A1B2D1");
  EXPECT_EQ(road.Rows("SELECT CXCFI.FPI, BPOS, RPN FROM CXCFI INNER JOIN CXRFI ON CXRFI.FPI = CXCFI.FPI"),
            "1|001-0-18|1&2&3&4 2|002-0-16|1&3 2|002-0-16|6");
  EXPECT_EQ(road.Rows("SELECT EQU, EDEQI.DEV, BAUDR FROM EDEQI LEFT JOIN EDICC ON EDICC.DEV = EDEQI.DEV"),
            "001-0-22-00|101|2400 001-0-22-00|202|- 002-0-18-01|401|19200");
  EXPECT_EQ(road.Rows("SELECT FILE FROM USEDFILES"), "CALLS ALARMS CALLS");
  EXPECT_EQ(road.Rows("SELECT ICFUI.IFCIND, ICFUI.EQU, ICFUC.EQU, ICFUC.RATE FROM ICFUI INNER JOIN ICFUC "
                      "ON ICFUC.ICUIND = ICFUI.ICUIND ORDER BY ICFUI.IFCIND"),
            "0|001-0-23-03|001-0-23-00|9600 1|001-0-23-01|001-0-23-01|9600");
  EXPECT_EQ(road.Rows("SELECT DIR, GRP, PORT FROM VMPOI"), "400|-|100 401|-|101 402|-|102 -|310|-");
  EXPECT_EQ(road.Rows("SELECT SID, KFCN, DIG FROM ICMWC"), "0|MWC|310 1|MWR|-");
  EXPECT_EQ(road.Rows("SELECT BPOS, IP, ROUTER FROM IPBOI"),
            "001-0-19|10.1.0.19|10.1.0.1 002-0-17|10.2.0.17|10.2.0.126");
  EXPECT_EQ(road.Rows("SELECT IPEXI.DIR, TYPE, LOCATION FROM IPEXI INNER JOIN GEDII ON GEDII.DIR = IPEXI.DIR"),
            "350|IP|HQ 351|IP|HQ 355|IP|WORKS 356|IP|WORKS");
  EXPECT_EQ(road.Rows("SELECT LIM, DOMAIN FROM IPGDI ORDER BY LIM, DOMAIN"),
            "1|office.example 2|office.example 2|works.example");
  EXPECT_EQ(road.Rows("SELECT LIM, GKID, TMLOAD FROM IPGKC"), "1|HQ-1|30 2|WORKS-2|-");
  EXPECT_EQ(road.Rows("SELECT IVMAI.VSD, BPOS, COUNT(*) FROM IVMAI INNER JOIN IVBOI ON IVBOI.VSD = IVMAI.VSD"),
            "358|001-0-21|4");
}

// The whole exchange, in the earliest and in the latest release.
struct WholeExample : ExamplePlan {};

TEST_P(WholeExample, GivesTheLinesOfAllPlans) {
  ApplyThePlansBehind();
  std::string lines;
  for (const std::string& line : road.Lines()) lines += line + "\n";
  EXPECT_EQ(lines, Golden("example-" + GetParam() + ".txt"));
}

TEST_P(WholeExample, HasNoTwoRecordsWithTheSameKey) {
  ApplyThePlansBehind();
  for (const FormDefinition* form : Forms()) {
    for (const FormDefinition* table : form->OfEachTable()) {
      std::string key = "'' AS [none]";
      for (const std::string& name : table->key) {
        if (std::ranges::find(table->columns, name) != table->columns.end()) key += ", [" + name + "]";
      }
      const std::string rows = " FROM " + table->Rows();
      EXPECT_EQ(road.Rows("SELECT COUNT(*) FROM (SELECT DISTINCT " + key + rows + ")"),
                road.Rows("SELECT COUNT(*)" + rows))
          << table->command << " " << table->table;
    }
  }
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
