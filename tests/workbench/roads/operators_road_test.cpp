// The minor commands of the family operators as a user meets them, on a real exchange.

#include <gtest/gtest.h>

#include "support/Road.h"

namespace cordboard::workbench {
namespace {

// --- OPCOI.

TEST(OPCOIRoad, AFreeCommonNumberThatNoGroupLeadsToIsTakenChangedAndDeleted) {
  Road road;
  ASSERT_EQ(road.Do("NANSI:NUMTYP=OC,NUMSE=907&&909;"), "done");
  road.Rows("INSERT INTO OPCTS (CORG, OACC) VALUES ('1', '908')");
  EXPECT_EQ(road.Values("OPCOI", "COACC"), "907 909");
  EXPECT_EQ(road.Do("OPCOI:COACC=908;"), "COACC=908: this value is not possible here [907, 909]");
  EXPECT_EQ(road.Do("OPCOI:COACC=907;"), "done");
  EXPECT_EQ(road.Rows("SELECT COACC, NUMTYP FROM OPCOI"), "907|OC");
  EXPECT_EQ(road.Values("OPCOI", "COACC"), "907 909") << "the number is not marked as used";
  EXPECT_EQ(road.Do("edit OPCOI COACC=907:COACC=909;"), "done");
  EXPECT_EQ(road.Rows("SELECT COACC, NUMTYP FROM OPCOI"), "909|OC");
  EXPECT_EQ(road.Do("delete OPCOI COACC=909;"), "done");
  EXPECT_EQ(road.Rows("SELECT COUNT(*) FROM OPCOI"), "0");
}

// --- OPCEI.

struct OPCEIRoad : testing::Test {
  Road road;

  void SetUp() override {
    ASSERT_EQ(road.Do("NANSI:NUMTYP=AC,NUMSE=70&&71;"), "done");
    ASSERT_EQ(road.Do("ADCOI:ABB=71,TRA=0112,DESCRIPTION=\"Fire brigade\";"), "done");
    road.Rows("INSERT INTO OPCTS (CORG, CALT) VALUES ('10', '1'), ('2', '1')");
  }
};

const char* const originsOfNumbers = "SELECT CENUM, CORG, NCA, PRIO FROM OPCEI ORDER BY rowid";

TEST_F(OPCEIRoad, AGroupIsChosenOnce) {
  EXPECT_EQ(road.Values("OPCEI", "CENUM"), "71");
  EXPECT_EQ(road.Values("OPCEI", "CORG"), "2 10");
  EXPECT_EQ(road.Do("OPCEI:CENUM=71,CORG=10,NCA=X,PRIO=3;"), "done");
  EXPECT_EQ(road.Values("OPCEI", "CORG"), "2");
  EXPECT_EQ(road.Do("OPCEI:CENUM=71,CORG=10;"), "CORG=10: this value is not possible here [2]");
  EXPECT_EQ(road.Rows(originsOfNumbers), "71|10|X|3");
  EXPECT_EQ(road.Do("delete OPCEI CORG=10;"), "done");
  EXPECT_EQ(road.Values("OPCEI", "CORG"), "2 10");
}

TEST_F(OPCEIRoad, ThePriorityFollowsTheKind) {
  EXPECT_EQ(road.Values("OPCEI", "PRIO"), "1 2 3");
  EXPECT_EQ(road.Values("OPCEI", "PRIO", {{"NCA", "CCOP"}}), "1 2");
  EXPECT_EQ(road.Do("OPCEI:CENUM=71,CORG=2,NCA=CCOP,PRIO=3;"), "PRIO=3: this value is not possible here [1, 2]");
  ASSERT_EQ(road.Do("OPCEI:CENUM=71,CORG=2,PRIO=3;"), "done");
  EXPECT_EQ(road.Do("edit OPCEI CORG=2:NCA=CCOP;"),
            "done\nPRIO=3: a check has cleared this value, since it does not go with the others");
  EXPECT_EQ(road.Rows(originsOfNumbers), "71|2|CCOP|-");
  EXPECT_EQ(road.Do("edit OPCEI CORG=2:PRIO=2;"), "done");
  EXPECT_EQ(road.Do("edit OPCEI CORG=2:NCA=;"), "done");
  EXPECT_EQ(road.Rows(originsOfNumbers), "71|2|-|2");
}

// --- OPRSC.

TEST(OPRSCRoad, ATextIsAddedChangedClearedAndDeleted) {
  Road road;
  ASSERT_EQ(road.Do("ROCAI:ROU=1,PROTOCOL=ISDN,MARKET=DE,TRAF=01020304,DESCRIPTION=Public;"), "done");
  EXPECT_EQ(road.Values("OPRSC", "ROU"), "1");
  EXPECT_EQ(road.Values("OPRSC", "SDM"), "0 1");
  EXPECT_EQ(road.Values("OPRSC", "LANG"), "1 2 3 4 5 6");
  EXPECT_EQ(road.Do("OPRSC:ROU=1,SDM=1,LANG=2,STRING=\"Public network\";"), "done");
  const char* const texts = "SELECT ROU, SDM, LANG, STRING FROM OPRSC ORDER BY rowid";
  EXPECT_EQ(road.Rows(texts), "1|1|2|Public network");
  EXPECT_EQ(road.Do("edit OPRSC ROU=1:STRING=Outside,SDM=0;"), "done");
  EXPECT_EQ(road.Rows(texts), "1|0|2|Outside");
  EXPECT_EQ(road.Do("edit OPRSC ROU=1:STRING=,LANG=;"), "done");
  EXPECT_EQ(road.Rows(texts), "1|0|-|-");
  EXPECT_EQ(road.Do("delete OPRSC ROU=1;"), "done");
  EXPECT_EQ(road.Rows(texts), "");
}

TEST(OPRSCRoad, R6KnowsThreeLanguages) { EXPECT_EQ(Road("R6").Values("OPRSC", "LANG"), "1 2 3"); }

// --- OPNEI.

TEST(OPNEIRoad, TheIdentityIsOfferedAgainThoughARecordHasIt) {
  Road road;
  ASSERT_EQ(road.Do("NANSI:NUMTYP=EN,NUMSE=7700;"), "done");
  ASSERT_EQ(road.Do("SYIDI:EXGID=7700;"), "done");
  EXPECT_EQ(road.Values("OPNEI", "OWNID"), "7700");
  EXPECT_EQ(road.Do("OPNEI:NEXGNO=1,OWNID=7700;"), "done");
  EXPECT_EQ(road.Values("OPNEI", "OWNID"), "7700");
  EXPECT_EQ(road.Do("OPNEI:NEXGNO=2;"), "done");
  EXPECT_EQ(road.Do("edit OPNEI NEXGNO=1:OWNID=,NEXGNO=3;"), "done");
  EXPECT_EQ(road.Rows("SELECT NEXGNO, OWNID FROM OPNEI ORDER BY rowid"), "3|- 2|-");
  EXPECT_EQ(road.Do("delete OPNEI NEXGNO=3;"), "done");
  EXPECT_EQ(road.Rows("SELECT NEXGNO, OWNID FROM OPNEI ORDER BY rowid"), "2|-");
}

TEST(OPNEIRoad, The65thExchangeIsRefused) {
  Road road;
  for (int number = 1; number <= 63; ++number)
    road.exchange().Dynamic().Run("INSERT INTO OPNEI (CmdId, NEXGNO) VALUES (?, ?)",
                                  {9000 + number, std::to_string(number)});
  EXPECT_EQ(road.Do("OPNEI:NEXGNO=64;"), "done");
  EXPECT_EQ(road.Do("OPNEI:NEXGNO=65;"),
            "The limit of 64 records for the system is reached. Delete one before you add another.");
  EXPECT_EQ(road.Rows("SELECT COUNT(*) FROM OPNEI"), "64");
  EXPECT_EQ(road.Do("edit OPNEI NEXGNO=64:NEXGNO=65;"), "done");
}

// --- OPDNC.

TEST(OPDNCRoad, ADayIsChosenOnce) {
  Road road;
  EXPECT_EQ(road.Values("OPDNC", "WDAY"), "1 2 3 4 5 6 7");
  EXPECT_EQ(road.Do("OPDNC:WDAY=1;"), "done");
  EXPECT_EQ(road.Do("OPDNC:WDAY=7;"), "done");
  EXPECT_EQ(road.Do("OPDNC:WDAY=1;"), "WDAY=1: this value is not possible here [2, 3, 4, 5, 6]");
  EXPECT_EQ(road.Do("edit OPDNC WDAY=7:WDAY=6;"), "done");
  EXPECT_EQ(road.Rows("SELECT WDAY FROM OPDNC ORDER BY rowid"), "1 6");
  EXPECT_EQ(road.Do("delete OPDNC WDAY=1;"), "done");
  EXPECT_EQ(road.Values("OPDNC", "WDAY"), "1 2 3 4 5 7");
}

// --- CPDLI.

const char* const servingLIMs = "SELECT LIM, LOCATION FROM CPDLI ORDER BY rowid";

TEST(CPDLIRoad, ALIMIsChosenOnceAtItsLocation) {
  Road road;
  EXPECT_EQ(road.Values("CPDLI", "LOCATION"), "HQ WORKS");
  EXPECT_EQ(road.Values("CPDLI", "LIM"), "1 2");
  EXPECT_EQ(road.Values("CPDLI", "LIM", {{"LOCATION", "WORKS"}}), "2");
  EXPECT_EQ(road.Do("CPDLI:LOCATION=WORKS,LIM=1;"), "LIM=1: this value is not possible here [2]");
  EXPECT_EQ(road.Do("CPDLI:LOCATION=HQ,LIM=1;"), "done");
  EXPECT_EQ(road.Values("CPDLI", "LIM"), "2");
  EXPECT_EQ(road.Do("CPDLI:LIM=1;"), "LIM=1: this value is not possible here [2]");
  EXPECT_EQ(road.Rows(servingLIMs), "1|HQ");
}

TEST(CPDLIRoad, ALocationDropsALIMThatStandsElsewhere) {
  Road road;
  ASSERT_EQ(road.Do("CPDLI:LOCATION=HQ,LIM=1;"), "done");
  EXPECT_EQ(road.Do("edit CPDLI LIM=1:LOCATION=WORKS;"),
            "LIM=: this parameter has to be given (LIM that has no record)");
  EXPECT_EQ(road.Do("edit CPDLI LIM=1:LOCATION=WORKS,LIM=2;"), "done");
  EXPECT_EQ(road.Do("edit CPDLI LIM=2:LOCATION=,LIM=1;"), "done");
  EXPECT_EQ(road.Rows(servingLIMs), "1|-");
  EXPECT_EQ(road.Do("edit CPDLI LIM=1:LOCATION=HQ;"), "done") << "the LIM stands there";
  EXPECT_EQ(road.Rows(servingLIMs), "1|HQ");
  EXPECT_EQ(road.Do("delete CPDLI LIM=1;"), "done");
  EXPECT_EQ(road.Values("CPDLI", "LIM"), "1 2");
}

// --- CPDNI.

TEST(CPDNIRoad, TheNumberIsMarkedAsItIsTakenChangedAndFreed) {
  Road road;
  const char* const numbers = "SELECT NUMSE, USED FROM NANSI WHERE NUMTYP = 'CP' ORDER BY NUMSE";
  const char* const publicNumbers = "SELECT DIR, NUMTYP FROM CPDNI ORDER BY rowid";
  for (const char* series : {"NANSI:NUMTYP=CP,NUMSE=95;", "NANSI:NUMTYP=CP,NUMSE=96;"})
    ASSERT_EQ(road.Do(series), "done");
  EXPECT_EQ(road.Values("CPDNI", "DIR"), "95 96");
  EXPECT_EQ(road.Do("CPDNI:DIR=95;"), "done");
  EXPECT_EQ(road.Rows(publicNumbers), "95|CP");
  EXPECT_EQ(road.Rows(numbers), "95|True 96|False");
  EXPECT_EQ(road.Do("CPDNI:DIR=95;"), "DIR=95: this value is not possible here [96]");
  EXPECT_EQ(road.Do("edit CPDNI DIR=95:DIR=96;"), "done");
  EXPECT_EQ(road.Rows(publicNumbers), "96|CP");
  EXPECT_EQ(road.Rows(numbers), "95|False 96|True");
  EXPECT_EQ(road.Do("delete CPDNI DIR=96;"), "done");
  EXPECT_EQ(road.Rows(publicNumbers), "");
  EXPECT_EQ(road.Rows(numbers), "95|False 96|False");
}

}  // namespace
}  // namespace cordboard::workbench
