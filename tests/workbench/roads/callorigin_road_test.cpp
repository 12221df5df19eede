// Call origin groups as a user meets them: OPCTS, OPCGS and OPADC on a real exchange.

#include <gmock/gmock.h>

#include "support/Road.h"

namespace cordboard::workbench {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

// An exchange with two routes, three operators, and numbers of the types that groups have.
class CallOrigin : public testing::Test {
 protected:
  explicit CallOrigin(const std::string& release = "R7") : road(release) {}

  void SetUp() override {
    for (const char* line :
         {"NANSI:NUMTYP=OI,NUMSE=900&&902;", "NANSI:NUMTYP=OC,NUMSE=907&&909;", "NANSI:NUMTYP=OD,NUMSE=905;",
          "NANSI:NUMTYP=OE,NUMSE=910;", "OPERI:DIR=900&&902,TYPE=3,EQU=next;",
          "ROCAI:ROU=1,PROTOCOL=ISDN,MARKET=DE,TRAF=01020304,DESCRIPTION=Public;",
          "ROCAI:ROU=10,PROTOCOL=ISDN,MARKET=DE,TRAF=01020304,DESCRIPTION=Works;"})
      ASSERT_EQ(road.Do(line), "done") << line;
  }

  Road road;
};

const char* const kinds = "SELECT CORG, CALT, OACC, ROU FROM OPCTS ORDER BY CORG, CALT";
const char* const groupsInUse = "SELECT CORG, NUMTYP FROM USEDCALLORIGINGROUPS ORDER BY CORG";

// --- OPCTS.

using OPCTSRoad = CallOrigin;

struct OPCTSRoadInR6 : CallOrigin {
  OPCTSRoadInR6() : CallOrigin("R6/1") {}
};

TEST_F(OPCTSRoadInR6, ThereAre32Groups) {
  EXPECT_THAT(road.Values("OPCTS", "CORG"), EndsWith(" 31 32"));
  EXPECT_THAT(road.Do("OPCTS:CORG=33,CALT=1,OACC=907;"), StartsWith("CORG=33: this value is not possible here"));
}

TEST_F(OPCTSRoad, ThereAre100Groups) {
  EXPECT_THAT(road.Values("OPCTS", "CORG"), StartsWith("1 2 3 "));
  EXPECT_THAT(road.Values("OPCTS", "CORG"), EndsWith(" 99 100"));
  EXPECT_EQ(road.Do("OPCTS:CORG=100,CALT=1,OACC=907;"), "done");
}

TEST_F(OPCTSRoad, AKindIsChosenOnceForAGroup) {
  EXPECT_EQ(road.Values("OPCTS", "CALT"), "0 1 2 3 4 5 6 7");
  EXPECT_EQ(road.Do("OPCTS:CORG=1,CALT=1,OACC=907;"), "done");
  EXPECT_EQ(road.Values("OPCTS", "CALT", {{"CORG", "1"}}), "0 2 3 4 5 6 7");
  EXPECT_EQ(road.Values("OPCTS", "CALT", {{"CORG", "2"}}), "0 1 2 3 4 5 6 7");
  EXPECT_THAT(road.Do("OPCTS:CORG=1,CALT=1,OACC=908;"), StartsWith("CALT=1: this value is not possible here"));
  EXPECT_EQ(road.Do("OPCTS:CORG=1,CALT=3,OACC=907;"), "done");
  EXPECT_EQ(road.Rows(kinds), "1|1|907|- 1|3|907|-");
  EXPECT_EQ(road.Rows(groupsInUse), "1|-") << "once for both records";
  EXPECT_EQ(road.Lines().size(), 8U) << "of the series and the routes";
}

TEST_F(OPCTSRoad, NumberAndRouteFollowFromTheKind) {
  EXPECT_EQ(road.Values("OPCTS", "OACC"), "905 907 908 909 910");
  EXPECT_EQ(road.Values("OPCTS", "OACC", {{"CALT", "0"}}), "910");
  EXPECT_EQ(road.Values("OPCTS", "OACC", {{"CALT", "3"}}), "907 908 909");
  EXPECT_EQ(road.Values("OPCTS", "OACC", {{"CALT", "5"}}), "");
  EXPECT_EQ(road.Values("OPCTS", "OACC", {{"CALT", "7"}}), "905");
  EXPECT_EQ(road.Values("OPCTS", "ROU"), "1 10");
  const std::string noNumber = "OACC=: this parameter has to be given (Number that is called, by the kind)";
  const std::string noRoute = "ROU=: this parameter has to be given (Route from which the calls come, by the kind)";
  EXPECT_EQ(road.Do("OPCTS:CORG=1,CALT=0;"), noNumber);
  EXPECT_EQ(road.Do("OPCTS:CORG=1,CALT=4;"), noRoute);
  EXPECT_EQ(road.Do("OPCTS:CORG=1,CALT=6;"), noNumber + "\n" + noRoute);
  EXPECT_EQ(road.Do("OPCTS:CORG=1,CALT=0,OACC=910;"), "done");
  EXPECT_EQ(road.Do("OPCTS:CORG=1,CALT=4,ROU=10;"), "done");
  EXPECT_EQ(road.Do("OPCTS:CORG=1,CALT=6,OACC=905,ROU=1;"), "done");
  EXPECT_EQ(road.Do("OPCTS:CORG=1,CALT=2,OACC=907,ROU=1;"), "done") << "the route may be given";
  EXPECT_EQ(road.Rows(kinds), "1|0|910|- 1|2|907|1 1|4|-|10 1|6|905|1");
}

TEST_F(OPCTSRoad, AnotherKindNeedsItsNumber) {
  ASSERT_EQ(road.Do("OPCTS:CORG=1,CALT=1,OACC=907,CUST=1;"), "done");
  EXPECT_EQ(road.Do("edit OPCTS CORG=1:CALT=2;"),
            "OACC=: this parameter has to be given (Number that is called, by the kind)");
  EXPECT_EQ(road.Do("edit OPCTS CORG=1:CALT=2,OACC=907;"), "done");
  EXPECT_EQ(road.Do("edit OPCTS CORG=1:CALT=4,ROU=1,DESCRIPTION=Lines;"),
            "done\nOACC=907: a check has cleared this value, since it does not go with the others");
  EXPECT_EQ(road.Rows(kinds), "1|4|-|1");
  EXPECT_EQ(road.Do("edit OPCTS CORG=1:CUST=;"), "done");
  EXPECT_EQ(road.Rows("SELECT CUST, DESCRIPTION FROM OPCTS"), "-|Lines");
}

TEST_F(OPCTSRoad, ARecordMovesToAnotherGroupWithItsKind) {
  ASSERT_EQ(road.Do("OPCTS:CORG=1,CALT=1,OACC=907;"), "done");
  ASSERT_EQ(road.Do("OPCTS:CORG=2,CALT=2,OACC=908;"), "done");
  EXPECT_EQ(road.Do("edit OPCTS CORG=1:CORG=5;"), "done");
  EXPECT_EQ(road.Rows(kinds), "2|2|908|- 5|1|907|-");
  EXPECT_EQ(road.Rows(groupsInUse), "2|- 5|-");
  ASSERT_EQ(road.Do("OPCTS:CORG=5,CALT=2,OACC=907;"), "done");
  EXPECT_EQ(road.Do("edit OPCTS CORG=2:CORG=5;"),
            "CALT=: this parameter has to be given (Kind of the calls, once for each group)");
  EXPECT_EQ(road.Rows(groupsInUse), "2|- 5|-");
}

TEST_F(OPCTSRoad, TheLastRecordTakesTheGroupOutOfUse) {
  ASSERT_EQ(road.Do("OPCTS:CORG=1,CALT=1,OACC=907;"), "done");
  ASSERT_EQ(road.Do("OPCTS:CORG=1,CALT=2,OACC=907;"), "done");
  ASSERT_EQ(road.Do("OPCTS:CORG=2,CALT=1,OACC=907;"), "done");
  EXPECT_EQ(road.Do("delete OPCTS CORG=1,CALT=2;"), "done");
  EXPECT_EQ(road.Rows(kinds), "1|1|907|- 2|1|907|-");
  EXPECT_EQ(road.Rows(groupsInUse), "1|- 2|-");
  EXPECT_EQ(road.Do("delete OPCTS CORG=1;"), "done");
  EXPECT_EQ(road.Rows(kinds), "2|1|907|-");
  EXPECT_EQ(road.Rows(groupsInUse), "2|-");
}

// --- OPCGS.

using OPCGSRoad = CallOrigin;

struct OPCGSRoadInR6 : CallOrigin {
  OPCGSRoadInR6() : CallOrigin("R6") {}
};

TEST_F(OPCGSRoadInR6, ThereAre32Groups) {
  EXPECT_EQ(road.Do("OPCGS:CORG=10&&30,DIR=900;"), "done");
  EXPECT_EQ(road.Values("OPCGS", "CORG"), "1 2 3 4 5 6 7 8 9 31 32");
}

const char* const access = "SELECT CORG, DIR, CHO FROM OPCGS ORDER BY rowid";

TEST_F(OPCGSRoad, EachOperatorTakesEachGroup) {
  EXPECT_EQ(road.Values("OPCGS", "DIR"), "900 901 902");
  EXPECT_EQ(road.Values("OPCGS", "CHO"), "1 2 3");
  EXPECT_EQ(road.Do("OPCGS:CORG=1&3,DIR=900&901,CHO=1;"), "done");
  EXPECT_EQ(road.Rows(access), "1|900|1 3|900|1 1|901|1 3|901|1");
  EXPECT_THAT(road.Values("OPCGS", "CORG"), StartsWith("2 4 5 "));
  EXPECT_THAT(road.Do("OPCGS:CORG=1,DIR=902;"), StartsWith("CORG=1: this value is not possible here"));
  EXPECT_EQ(road.Lines().size(), 8U) << "of the series and the routes";
}

TEST_F(OPCGSRoad, ThreeGroupsGoToOneOperatorAndThreeOperatorsTakeOneGroup) {
  EXPECT_EQ(road.Do("OPCGS:CORG=1&&3,DIR=900&901;"),
            "DIR=900&901: several values are not possible here; give one value");
  EXPECT_EQ(road.Do("OPCGS:CORG=1&2,DIR=900&&902;"), "CORG=1&2: several values are not possible here; give one value");
  EXPECT_EQ(road.Do("OPCGS:CORG=1&&3,DIR=900;"), "done");
  EXPECT_EQ(road.Do("OPCGS:CORG=4,DIR=900&&902;"), "done");
  EXPECT_EQ(road.Rows(access), "1|900|- 2|900|- 3|900|- 4|900|- 4|901|- 4|902|-");
}

TEST_F(OPCGSRoad, ARecordIsChangedAndDeleted) {
  ASSERT_EQ(road.Do("OPCGS:CORG=1&2,DIR=900,CHO=1;"), "done");
  EXPECT_EQ(road.Do("edit OPCGS CORG=1:CORG=7,DIR=901,CHO=2;"), "done");
  EXPECT_EQ(road.Rows(access), "7|901|2 2|900|1");
  EXPECT_EQ(road.Do("edit OPCGS CORG=7:CORG=8,DIR=901&902;"),
            "DIR=901&902: several values are not possible here; give one value");
  EXPECT_THAT(road.Do("edit OPCGS CORG=7:CORG=2;"), StartsWith("CORG=2: this value is not possible here"));
  EXPECT_EQ(road.Do("delete OPCGS CORG=2;"), "done");
  EXPECT_EQ(road.Rows(access), "7|901|2");
  EXPECT_THAT(road.Values("OPCGS", "CORG"), StartsWith("1 2 3 4 5 6 8 "));
}

// --- OPADC.

struct OPADCRoad : CallOrigin {
  void SetUp() override {
    CallOrigin::SetUp();
    for (const char* line : {"OPCTS:CORG=1,CALT=1,OACC=907,DESCRIPTION=Inside;",
                             "OPCTS:CORG=2,CALT=3,OACC=907,DESCRIPTION=Outside;", "OPCTS:CORG=3,CALT=4,ROU=1;"})
      ASSERT_EQ(road.Do(line), "done") << line;
  }
};

const char* const reroutings = "SELECT CORG, NDIR, RERNUM FROM OPADC ORDER BY rowid";
const char* const commonNumbers = "SELECT DIR, NUMTYP FROM UsedExtOpeGrp WHERE NUMTYP = 'OC'";

TEST_F(OPADCRoad, AGroupIsReroutedOnce) {
  EXPECT_EQ(road.Values("OPADC", "CORG"), "1 2 3");
  EXPECT_EQ(road.Values("OPADC", "NDIR"), "N Y");
  EXPECT_EQ(road.Do("OPADC:CORG=1&2,NDIR=Y,RERNUM=909;"), "done");
  EXPECT_EQ(road.Values("OPADC", "CORG"), "3");
  EXPECT_EQ(road.Rows(reroutings), "1|Y|909 2|Y|909");
  EXPECT_EQ(road.Rows(commonNumbers), "909|OC") << "once for both records";
  EXPECT_EQ(road.Do("OPADC:CORG=1,NDIR=N;"), "CORG=1: this value is not possible here [3]");
  EXPECT_EQ(road.Do("OPADC:CORG=3,NDIR=N;"), "done");
  EXPECT_EQ(road.Rows(reroutings), "1|Y|909 2|Y|909 3|N|-");
  EXPECT_EQ(road.Lines().size(), 8U) << "of the series and the routes";
}

TEST_F(OPADCRoad, ANumberIsOnlyGivenWhereTheCallsGoToOne) {
  EXPECT_EQ(road.Values("OPADC", "RERNUM", {{"NDIR", "Y"}}), "907 908 909 900 901 902");
  EXPECT_EQ(road.Values("OPADC", "RERNUM", {{"NDIR", "N"}}), "");
  EXPECT_THAT(road.Do("OPADC:CORG=1,NDIR=N,RERNUM=900;"), HasSubstr("RERNUM=900: this value is not possible here"));
  EXPECT_EQ(road.Do("OPADC:CORG=1,NDIR=Y,RERNUM=900;"), "done");
  EXPECT_EQ(road.Rows(commonNumbers), "") << "an operator has its mark already";
}

TEST_F(OPADCRoad, ARecordIsChangedAndDeletedAndTheMarkStays) {
  ASSERT_EQ(road.Do("OPADC:CORG=1,NDIR=Y,RERNUM=909;"), "done");
  EXPECT_EQ(road.Do("edit OPADC CORG=1:RERNUM=908,CORG=2;"), "done");
  EXPECT_EQ(road.Rows(reroutings), "2|Y|908");
  EXPECT_EQ(road.Do("edit OPADC CORG=2:NDIR=N;"),
            "done\nRERNUM=908: a check has cleared this value, since it does not go with the others");
  EXPECT_EQ(road.Rows(reroutings), "2|N|-");
  EXPECT_EQ(road.Do("delete OPADC CORG=2;"), "done");
  EXPECT_EQ(road.Rows(reroutings), "");
  EXPECT_EQ(road.Rows(commonNumbers), "909|OC");
  EXPECT_EQ(road.Values("OPADC", "CORG"), "1 2 3");
}

}  // namespace
}  // namespace cordboard::workbench
