// The commands of the family links as a user meets them, on a real exchange.

#include <gtest/gtest.h>

#include "support/Road.h"

namespace cordboard::workbench {
namespace {

const char* const links = "SELECT ICUIND, IFCIND, EQU, RATE, USER FROM ICFUI ORDER BY rowid";
const char* const twins = "SELECT ICUIND, IFCIND, EQU, RATE FROM ICFUC ORDER BY rowid";
const char* const positions = "SELECT EQU FROM Equipment WHERE EQU LIKE '001-0-23-%' AND USED";

// --- ICFUI.

TEST(ICFUIRoad, ALinkStandsInBothTablesUntilItIsDeleted) {
  Road road;
  EXPECT_EQ(road.Values("ICFUI", "EQU"), "001-0-23-00 001-0-23-01 001-0-23-02 001-0-23-03");
  EXPECT_EQ(road.Do("ICFUI:IFCIND=2,EQU=next,RATE=4800,USER=Hotel;"), "done");
  EXPECT_EQ(road.Rows(links), "-|2|001-0-23-00|4800|Hotel");
  EXPECT_EQ(road.Rows(twins), "-|2|001-0-23-00|4800");
  EXPECT_EQ(road.Rows("SELECT COUNT(*) FROM ICFUI INNER JOIN ICFUC ON ICFUI.CMDID = ICFUC.CmdId"), "0");
  EXPECT_EQ(road.Values("ICFUI", "EQU"), "001-0-23-01 001-0-23-02 001-0-23-03");
  EXPECT_EQ(road.Values("ICFUI", "IFCIND"), "0 1 3 4 5 6 7");
  EXPECT_EQ(road.Do("ICFUI:EQU=next;"), "ICUIND=: give ICUIND, or IFCIND");
  EXPECT_EQ(road.Do("delete ICFUI IFCIND=2;"), "done");
  EXPECT_EQ(road.Rows(links) + road.Rows(twins) + road.Rows(positions), "");
}

TEST(ICFUIRoad, AChangeOfRATETouchesBothRecordsAndOneOfUSERItsOwnAlone) {
  Road road;
  ASSERT_EQ(road.Do("ICFUI:IFCIND=2,EQU=next,RATE=4800,USER=Hotel;"), "done");
  EXPECT_EQ(road.Do("edit ICFUI IFCIND=2:RATE=9600,USER=Clinic;"), "done");
  EXPECT_EQ(road.Rows(links), "-|2|001-0-23-00|9600|Clinic");
  EXPECT_EQ(road.Rows(twins), "-|2|001-0-23-00|9600");
  EXPECT_EQ(road.Do("edit ICFUI IFCIND=2:RATE=,IFCIND=3;"), "done");
  EXPECT_EQ(road.Rows(links), "-|3|001-0-23-00|-|Clinic");
  EXPECT_EQ(road.Rows(twins), "-|3|001-0-23-00|-");
}

TEST(ICFUIRoad, ANewPositionIsThatOfTheLinkAndNotOfItsTwin) {
  Road road;
  ASSERT_EQ(road.Do("ICFUI:IFCIND=2,EQU=next;"), "done");
  EXPECT_EQ(road.Do("edit ICFUI IFCIND=2:EQU=001-0-23-03;"), "done");
  EXPECT_EQ(road.Rows(links), "-|2|001-0-23-03|-|-");
  EXPECT_EQ(road.Rows(twins), "-|2|001-0-23-00|-");
  EXPECT_EQ(road.Rows(positions), "001-0-23-03");
}

TEST(ICFUIRoad, ATwinThatIsNotFoundLeavesTheLinkAsItIs) {
  Road road;
  ASSERT_EQ(road.Do("ICFUI:ICUIND=1,IFCIND=2,EQU=next,RATE=4800;"), "done");
  EXPECT_EQ(road.Do("edit ICFUI IFCIND=2:RATE=9600;"), "done") << "an ICUIND on the form says where it is looked for";
  EXPECT_EQ(road.Rows(links), "1|2|001-0-23-00|4800|-");
}

TEST(ICFUIRoad, ReleasesDifferInTheIndicatorsThatTheyOffer) {
  Road oldest("R6");
  ASSERT_EQ(oldest.Do("ICFUI:ICUIND=2,IFCIND=5,EQU=next;"), "done");
  EXPECT_EQ(oldest.Values("ICFUI", "ICUIND"), "0 1 3 4 5 6 7");
  EXPECT_EQ(oldest.Values("ICFUI", "IFCIND"), "0 1 3 4 5 6 7");
  Road latest("R8");
  ASSERT_EQ(latest.Do("ICFUI:IFCIND=2,EQU=next;"), "done");
  EXPECT_EQ(latest.Values("ICFUI", "IFCIND"), "0 1 2 3 4 5 6 7");
  EXPECT_EQ(latest.Do("ICFUI:IFCIND=2,EQU=next;"),
            "IFCIND=2: there is a record with this value already; give another one");
}

// --- ICFUC.

TEST(ICFUCRoad, HasALineForEachLinkInR6AndNoneInR7) {
  for (const auto& [release, lines] :
       {std::pair{"R6", std::vector<std::string>{"ICFUC:ICUIND=2,UPDTIM=30,RATE=4800,PARITY=1;"}},
        std::pair{"R7", std::vector<std::string>{}}}) {
    Road road(release);
    ASSERT_EQ(road.Do("ICFUI:ICUIND=2,IFCIND=2,EQU=next,RATE=4800,PARITY=1,UPDTIM=30,USER=Hotel;"), "done");
    EXPECT_EQ(road.Lines(), lines) << release;
  }
}

TEST(ICFUCRoad, CannotStandWithoutARecordOfICFUI) {
  Road road;
  EXPECT_EQ(road.Do("ICFUC:IFCIND=2,RATE=9600;"), "The link is not defined. Add it with ICFUI first.");
  EXPECT_EQ(road.Rows(twins), "");
  ASSERT_EQ(road.Do("ICFUI:IFCIND=2,EQU=next,RATE=4800,USER=Hotel;"), "done");
  EXPECT_EQ(road.Do("ICFUC:IFCIND=2,RATE=9600;"), "done");
  EXPECT_EQ(road.Rows(links), "-|2|-|9600|Hotel") << "what is not given is cleared";
  EXPECT_EQ(road.Rows(twins), "-|2|001-0-23-00|4800 -|2|-|9600");
  EXPECT_EQ(road.Values("ICFUC", "EQU"), "no list");
  EXPECT_EQ(Road("R6").Values("ICFUC", "EQU"), "001-0-23-00 001-0-23-01 001-0-23-02 001-0-23-03");
}

// --- VMFUI and VMPOI.

struct VoiceMailRoad : testing::TestWithParam<std::string> {
  Road road{GetParam()};
  const std::string indicator = GetParam().starts_with("R6") ? "ICUIND" : "IFCIND";

  void SetUp() override {
    for (const char* DIR : {"400", "401", "402"})
      road.Rows("INSERT INTO EXTEIDIR (CmdId, DIR) VALUES (1, '" + std::string(DIR) + "')");
    road.Rows("INSERT INTO GHGRI (CMDID, GRP) VALUES (1, '310'), (2, '311')");
    for (const char* link : {"2", "3", "4"}) ASSERT_EQ(Do("ICFUI:LINK=" + std::string(link) + ",EQU=next;"), "done");
    ASSERT_EQ(Do("VMFUI:LINK=2,VMF=1,POFMT=4;"), "done");
  }

  // The line with the indicator of the release in the place of LINK.
  std::string Do(std::string line) {
    for (auto at = line.find("LINK"); at != line.npos; at = line.find("LINK")) line.replace(at, 4, indicator);
    return road.Do(line);
  }
  std::string Ports() { return road.Rows("SELECT DIR, GRP, PORT, " + indicator + " FROM VMPOI ORDER BY rowid"); }
  std::string Systems() { return road.Rows("SELECT " + indicator + ", VMF, POFMT FROM VMFUI ORDER BY rowid"); }
};

TEST_P(VoiceMailRoad, ALinkHasOneSystem) {
  EXPECT_EQ(road.Values("VMFUI", indicator), "3 4");
  EXPECT_EQ(road.Values("VMFUI", "POFMT"), "1 2 3 4 5");
  EXPECT_EQ(Systems(), "2|1|4");
  EXPECT_EQ(Do("VMFUI:LINK=2,POFMT=4;"), indicator + "=2: this value is not possible here [3, 4]");
}

TEST_P(VoiceMailRoad, ANumberHasItsPortAndAGroupNeedsNone) {
  EXPECT_EQ(road.Values("VMPOI", "DIR"), "400 401 402");
  EXPECT_EQ(Do("VMPOI:DIR=400,PORT=1000,LINK=2;"), "done");
  EXPECT_EQ(Do("VMPOI:GRP=310&311,LINK=2;"), "done");
  EXPECT_EQ(road.Values("VMPOI", "DIR"), "401 402");
  EXPECT_EQ(road.Values("VMPOI", "GRP"), "");
  EXPECT_EQ(Ports(), "400|-|1000|2 -|310|-|2 -|311|-|2");
  EXPECT_EQ(Do("VMPOI:DIR=401,LINK=2;"), "DIR=: give DIR and PORT, or GRP");
  EXPECT_EQ(Do("VMPOI:DIR=401,PORT=1000,LINK=2;"), "PORT=1000: PORT is already taken. Give another value.");
  EXPECT_EQ(Do("delete VMPOI DIR=400;"), "done");
  EXPECT_EQ(Do("VMPOI:DIR=401,PORT=1000,LINK=2;"), "done");
}

TEST_P(VoiceMailRoad, APortIsAsLongAsTheFormatOfItsLink) {
  const std::string refused = "PORT does not have the number of digits that POFMT tells. Change PORT or POFMT.";
  EXPECT_EQ(Do("VMPOI:DIR=400,PORT=100,LINK=2;"), "PORT=100: " + refused);
  EXPECT_EQ(Ports(), "");
  ASSERT_EQ(Do("VMPOI:DIR=400,PORT=1000,LINK=2;"), "done");
  EXPECT_EQ(Do("edit VMPOI DIR=400:PORT=100;"), "PORT=100: " + refused);
  EXPECT_EQ(Do("edit VMPOI DIR=400:PORT=1001;"), "done");
  EXPECT_EQ(Do("edit VMFUI LINK=2:POFMT=3;"), "POFMT=3: " + refused);
  EXPECT_EQ(Systems(), "2|1|4");
  ASSERT_EQ(Do("delete VMPOI DIR=400;"), "done");
  ASSERT_EQ(Do("VMPOI:GRP=310,LINK=2;"), "done");
  EXPECT_EQ(Do("edit VMFUI LINK=2:POFMT=3;"), "POFMT=3: " + refused) << "a group without a port has one of length 0";
  ASSERT_EQ(Do("delete VMPOI GRP=310;"), "done");
  EXPECT_EQ(Do("edit VMFUI LINK=2:POFMT=3;"), "done");
  EXPECT_EQ(Systems(), "2|1|3");
}

TEST_P(VoiceMailRoad, AnotherIndicatorCostsThePortsOfTheOldOne) {
  ASSERT_EQ(Do("VMFUI:LINK=3,POFMT=2;"), "done");
  ASSERT_EQ(Do("VMPOI:DIR=400,PORT=1000,LINK=2;"), "done");
  ASSERT_EQ(Do("VMPOI:DIR=401,PORT=20,LINK=3;"), "done");
  EXPECT_EQ(Do("edit VMFUI LINK=2:LINK=4,POFMT=4;"), "done");
  EXPECT_EQ(Systems(), "4|1|4 3|-|2");
  EXPECT_EQ(Ports(), "401|-|20|3");
  EXPECT_EQ(Do("delete VMFUI LINK=3;"), "done");
  EXPECT_EQ(Ports(), "");
}

INSTANTIATE_TEST_SUITE_P(OnEveryRelease, VoiceMailRoad, testing::Values("R6", "R6/1", "R7", "R8"),
                         [](const auto& of) { return of.param == "R6/1" ? "R6_1" : of.param; });

TEST(VMPOIRoad, R8TakesAnyLinkAndRefusesOneWithoutVoiceMail) {
  Road road("R8");
  road.Rows("INSERT INTO EXTEIDIR (CmdId, DIR) VALUES (1, '400')");
  EXPECT_EQ(road.Values("VMPOI", "IFCIND"), "no list");
  EXPECT_EQ(road.Do("VMPOI:DIR=400,PORT=1000,IFCIND=9;"),
            "The database refused what the rules asked of it. Check the values; --debug tells what was asked.");
  Road before;
  before.Rows("INSERT INTO EXTEIDIR (CmdId, DIR) VALUES (1, '400')");
  EXPECT_EQ(before.Values("VMPOI", "IFCIND"), "");
}

// --- ICMWC.

TEST(ICMWCRoad, DigitsGoWithMWC) {
  Road road;
  const char* const functions = "SELECT SID, KFCN, DIG FROM ICMWC ORDER BY rowid";
  EXPECT_EQ(road.Do("ICMWC:SID=next,KFCN=MWC,DIG=310;"), "done");
  EXPECT_EQ(road.Do("ICMWC:SID=0,KFCN=MWR;").substr(0, 41), "SID=0: this value is not possible here [1");
  EXPECT_EQ(road.Do("ICMWC:SID=99,KFCN=MWC;"),
            "DIG=: this parameter has to be given (Digits that the function MWC dials)");
  EXPECT_EQ(road.Do("ICMWC:SID=99,KFCN=MWR,DIG=1;"),
            "DIG=1: DIG is given, and KFCN is not MWC. Leave DIG empty, or set KFCN to MWC.");
  EXPECT_EQ(road.Do("ICMWC:SID=99,KFCN=MWR;"), "done");
  EXPECT_EQ(road.Rows(functions), "0|MWC|310 99|MWR|-");
  EXPECT_EQ(road.Do("edit ICMWC SID=99:KFCN=MWD,SID=1;"), "done");
  EXPECT_EQ(road.Rows(functions), "0|MWC|310 1|MWD|-");
  EXPECT_EQ(road.Do("edit ICMWC SID=0:KFCN=MWR;"),
            "DIG=310: DIG is given, and KFCN is not MWC. Leave DIG empty, or set KFCN to MWC.");
  EXPECT_EQ(road.Do("edit ICMWC SID=0:KFCN=MWR,DIG=;"), "done");
  EXPECT_EQ(road.Rows(functions), "0|MWR|- 1|MWD|-");
  EXPECT_EQ(road.Do("delete ICMWC SID=0;"), "done");
  EXPECT_EQ(road.Rows(functions), "1|MWD|-");
}

}  // namespace
}  // namespace cordboard::workbench
