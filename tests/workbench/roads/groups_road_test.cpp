// The commands of the family groups as a user meets them, on a real exchange.

#include <gmock/gmock.h>

#include "support/Road.h"

namespace cordboard::workbench {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

const char* const numbersInUse = "SELECT NUMSE FROM NANSI WHERE USED = 1 ORDER BY NUMSE";
const char* const usedNumbers = "SELECT DIR, NUMTYP FROM UsedExtOpeGrp ORDER BY DIR";

// What is told of a LIM that takes no more groups, by an add and by a move.
std::string Full(int limit) {
  return "The limit of " + std::to_string(limit) +
         " groups for a LIM is reached. Choose another LIM, or delete a group there.";
}
std::string NoRoom(int limit, const std::string& given) {
  return Full(limit) + "\n" + given + "LIM was not changed, as the new one has no room. Choose another LIM.";
}

// An exchange with the numbers 300 to 319, and where a table can be filled by as many groups as a test needs.
struct GroupRoad : testing::Test {
  Road road;

  void SetUp() override { ASSERT_EQ(road.Do("NANSI:NUMTYP=EX,NUMSE=300&&319;"), "done"); }

  void Insert(const std::string& table, const std::string& column, const std::string& value, int count) {
    for (int i = 0; i < count; ++i)
      road.exchange().Dynamic().Run("INSERT INTO " + table + " (CmdId, GRP, " + column + ") VALUES (?, 'G', ?)",
                                    {9000 + i, value});
  }
};

// --- ACGRI.

struct ACGRIRoad : GroupRoad {};

const char* const queueGroups =
    "SELECT GRP, NUMTYP, TRAF, SERV, QUE, CUST, LIM, SEL, QIC, ACTC, DESCRIPTION, LOCATION FROM ACGRI ORDER BY rowid";

TEST_F(ACGRIRoad, AGroupTakesAFreeNumberAndItsDigitsFold) {
  EXPECT_EQ(road.Values("ACGRI", "CUST"), "1 2");
  EXPECT_EQ(road.Values("ACGRI", "LIM"), "1 2");
  EXPECT_EQ(road.Values("ACGRI", "LIM", {{"LOCATION", "WORKS"}}), "2");
  EXPECT_THAT(road.Values("ACGRI", "GRP"), StartsWith("300 301 302"));
  EXPECT_EQ(road.Do("ACGRI:GRP=300,LIM=1,CUST=1,TRAF=11,SERV_D1=1,SERV_D3=2,QUE_D1=1,QUE_D2D3=05,QUE_D4D5=20,"
                    "SEL_D1=2,QIC=4,ACTC=5,DESCRIPTION=\"Order desk\",LOCATION=HQ;"),
            "done");
  EXPECT_EQ(road.Do("ACGRI:GRP=next,LIM=2;"), "done");
  EXPECT_EQ(road.Rows(queueGroups), "300|EX|11|1020|10520|1|1|200|4|5|Order desk|HQ 301|EX|-|-|-|-|2|-|-|-|-|-");
  EXPECT_EQ(road.Rows(numbersInUse), "300 301");
  EXPECT_EQ(road.Rows(usedNumbers), "300|EX 301|EX");
  EXPECT_EQ(road.Rows("SELECT DIR FROM UsedGroups"), "300 301");
  EXPECT_THAT(road.Values("ACGRI", "GRP"), StartsWith("302 303"));
  EXPECT_THAT(road.Do("ACGRI:GRP=300,LIM=1;"), HasSubstr("GRP=300: this value is not possible here"));
  EXPECT_EQ(road.Do("ACGRI:GRP=302;"), "LIM=: this parameter has to be given (LIM that carries the group)");
}

TEST_F(ACGRIRoad, EveryDigitHasItsList) {
  for (const char* parameter : {"QUE_D1", "SEL_D1", "SEL_D2", "SEL_D3", "SERV_D1", "SERV_D2", "SERV_D3", "SERV_D4"})
    EXPECT_THAT(road.Values("ACGRI", parameter), StartsWith("0 1")) << parameter;
}

TEST_F(ACGRIRoad, TheUpperLengthOfTheQueueIsAboveTheLowerOne) {
  EXPECT_THAT(road.Values("ACGRI", "QUE_D4D5", {{"QUE_D2D3", "10"}}), StartsWith("11 12 13"));
  EXPECT_THAT(road.Values("ACGRI", "QUE_D4D5", {{"QUE_D2D3", "10"}}), testing::EndsWith("98 99"));
  EXPECT_THAT(road.Values("ACGRI", "QUE_D5D6D7", {{"QUE_D2D3D4", "100"}}), StartsWith("101 102"));
  EXPECT_THAT(road.Values("ACGRI", "QUE_D5D6D7", {{"QUE_D2D3D4", "100"}}), testing::EndsWith("249 250"));
  EXPECT_EQ(road.Do("ACGRI:GRP=300,LIM=1,QUE_D2D3=10,QUE_D4D5=10;"),
            "QUE_D4D5=10: this value is not possible here [11, 12, 13, 14, 15, 16, 17, 18, 19, 20, ...]");
  EXPECT_EQ(road.Do("ACGRI:GRP=300,LIM=1,QUE_D2D3=9,QUE_D4D5=10;"), "done");
  EXPECT_EQ(road.Do("ACGRI:GRP=301,LIM=1,QUE_D1=2,QUE_D2D3D4=090,QUE_D5D6D7=250;"), "done");
  EXPECT_EQ(road.Rows("SELECT GRP, QUE FROM ACGRI"), "300|00910 301|2090250");
}

TEST_F(ACGRIRoad, TheQueueIsGivenInDigitsOfOneWidth) {
  const std::string otherDigits =
      "this parameter does not go together with the other digits of QUE; clear or leave out the one or the others";
  EXPECT_EQ(road.Do("ACGRI:GRP=300,LIM=1,QUE_D2D3=10,QUE_D5D6D7=250;"), "QUE_D5D6D7=250: " + otherDigits);
  ASSERT_EQ(road.Do("ACGRI:GRP=300,LIM=1,QUE_D1=1,QUE_D2D3=10,QUE_D4D5=20;"), "done");
  EXPECT_EQ(road.Do("edit ACGRI GRP=300:QUE_D2D3D4=100;"), "QUE_D2D3D4=100: " + otherDigits);
  EXPECT_EQ(road.Rows("SELECT GRP, QUE FROM ACGRI"), "300|11020");
  EXPECT_EQ(road.Do("edit ACGRI GRP=300:QUE_D2D3=,QUE_D4D5=,QUE_D2D3D4=100,QUE_D5D6D7=200;"), "done");
  EXPECT_EQ(road.Rows("SELECT GRP, QUE FROM ACGRI"), "300|1100200");
  EXPECT_EQ(road.Do("edit ACGRI GRP=300:QUE=11020;"), "done");
  EXPECT_EQ(road.Do("edit ACGRI GRP=300:QUE_D4D5=21;"), "done");
  EXPECT_EQ(road.Rows("SELECT GRP, QUE FROM ACGRI"), "300|11021");
}

TEST_F(ACGRIRoad, ALowerLengthComesAboveTheUpperOneInAnEdit) {
  ASSERT_EQ(road.Do("ACGRI:GRP=300,LIM=1,QUE_D1=1,QUE_D2D3=05,QUE_D4D5=20;"), "done");
  EXPECT_EQ(road.Do("edit ACGRI GRP=300:QUE_D2D3=15;"), "done");
  EXPECT_EQ(road.Rows("SELECT GRP, QUE FROM ACGRI"), "300|11520");
  EXPECT_EQ(road.Do("edit ACGRI GRP=300:QUE_D2D3=30,QUE_D4D5=40;"), "done");
  EXPECT_EQ(road.Rows("SELECT GRP, QUE FROM ACGRI"), "300|13040");
  EXPECT_EQ(road.Do("edit ACGRI GRP=300:QUE_D2D3=50;"), "done");
  EXPECT_EQ(road.Rows("SELECT GRP, QUE FROM ACGRI"), "300|15000") << "the upper one is cleared";
}

TEST_F(ACGRIRoad, ALIMTakesSixteenGroupsByAddsAndAHundredByMoves) {
  Insert("ACGRI", "LIM", "1", 15);
  EXPECT_EQ(road.Do("ACGRI:GRP=300,LIM=1;"), "done");
  EXPECT_EQ(road.Do("ACGRI:GRP=301,LIM=1;"), Full(16));
  EXPECT_EQ(road.Rows(numbersInUse), "300");
  EXPECT_EQ(road.Do("ACGRI:GRP=301,LIM=2;"), "done");
  EXPECT_EQ(road.Do("edit ACGRI GRP=301:LIM=1;"), "done");
  EXPECT_EQ(road.Do("ACGRI:GRP=302,LIM=1;"), "done") << "beyond the limit a LIM takes more";
  Insert("ACGRI", "LIM", "2", 100);
  EXPECT_EQ(road.Do("edit ACGRI GRP=301:LIM=2;"), NoRoom(100, "LIM=2: "));
  EXPECT_EQ(road.Rows("SELECT LIM FROM ACGRI WHERE GRP = '301'"), "1");
  EXPECT_EQ(road.Do("edit ACGRI GRP=301:LIM=1,DESCRIPTION=Orders;"), "done");
}

TEST_F(ACGRIRoad, The129thGroupOfTheSystemIsRefused) {
  Insert("ACGRI", "LIM", "2", 127);
  EXPECT_EQ(road.Do("ACGRI:GRP=300,LIM=1;"), "done");
  EXPECT_EQ(road.Do("ACGRI:GRP=301,LIM=1;"),
            "The limit of 128 records for the system is reached. Delete one before you add another.");
  EXPECT_EQ(road.Rows("SELECT COUNT(*) FROM ACGRI"), "128");
  EXPECT_EQ(road.Rows(numbersInUse), "300");
}

TEST_F(ACGRIRoad, AnotherLocationDropsALIMThatStandsElsewhere) {
  ASSERT_EQ(road.Do("ACGRI:GRP=300,LIM=1,LOCATION=HQ;"), "done");
  EXPECT_EQ(road.Do("edit ACGRI GRP=300:LOCATION=WORKS;"),
            "LIM=: this parameter has to be given (LIM that carries the group)");
  EXPECT_EQ(road.Do("edit ACGRI GRP=300:LOCATION=WORKS,LIM=2;"), "done");
  EXPECT_EQ(road.Rows("SELECT LIM, LOCATION FROM ACGRI"), "2|WORKS");
}

TEST_F(ACGRIRoad, AGroupIsGivenAnotherNumberAndDeleted) {
  ASSERT_EQ(road.Do("ACGRI:GRP=300,LIM=1,DESCRIPTION=Orders;"), "done");
  EXPECT_EQ(road.Do("edit ACGRI GRP=300:GRP=305,DESCRIPTION=;"), "done");
  EXPECT_EQ(road.Rows("SELECT GRP, DESCRIPTION FROM ACGRI"), "305|");
  EXPECT_EQ(road.Rows(numbersInUse), "305");
  EXPECT_EQ(road.Rows(usedNumbers), "305|EX");
  EXPECT_EQ(road.Do("delete ACGRI GRP=305;"), "done");
  EXPECT_EQ(road.Rows(queueGroups), "");
  EXPECT_EQ(road.Rows(numbersInUse), "");
  EXPECT_EQ(road.Rows(usedNumbers), "");
  EXPECT_EQ(road.Rows("SELECT DIR FROM UsedGroups"), "300") << "stays as it was entered";
}

// --- GHGRI.

struct GHGRIRoad : GroupRoad {};

const char* const huntingGroups =
    "SELECT GRP, NUMTYP, TRAF, SERV, QUE, CUST, LIM, SEL, RLTC, LOCATION, DESCRIPTION FROM GHGRI ORDER BY rowid";

TEST_F(GHGRIRoad, AGroupTakesAFreeNumberAndItsDigitsFold) {
  EXPECT_EQ(road.Values("GHGRI", "LIM", {{"LOCATION", "WORKS"}}), "2");
  EXPECT_EQ(road.Values("GHGRI", "SERV_D1_SUB2"), "0 4");
  EXPECT_THAT(road.Values("GHGRI", "SEL_D4D5"), StartsWith("00 05 06"));
  EXPECT_EQ(road.Do("GHGRI:GRP=300,LIM=1,CUST=1,TRAF=11,SERV_D1_SUB1=1,SERV_D1_SUB2=4,SERV_D2=2,QUE=3,SEL_D1=1,"
                    "SEL_D4D5=15,RLTC=1,LOCATION=HQ,DESCRIPTION=Shop;"),
            "done");
  EXPECT_EQ(road.Rows(huntingGroups), "300|EX|11|5200|3|1|1|10015|1|HQ|Shop");
  EXPECT_EQ(road.Rows(numbersInUse), "300");
}

TEST_F(GHGRIRoad, TheLimitsOfALIMAndOfTheSystemRefuseAnAdd) {
  Insert("GHGRI", "LIM", "1", 100);
  EXPECT_EQ(road.Do("GHGRI:GRP=300,LIM=1;"), Full(100));
  EXPECT_EQ(road.Do("GHGRI:GRP=300,LIM=2;"), "done");
  EXPECT_EQ(road.Do("edit GHGRI GRP=300:LIM=1;"), NoRoom(100, "LIM=1: "));
  Insert("GHGRI", "LIM", "3", 399);
  EXPECT_EQ(road.Do("GHGRI:GRP=301,LIM=2;"),
            "The limit of 500 records for the system is reached. Delete one before you add another.");
  EXPECT_EQ(road.Rows(numbersInUse), "300");
}

TEST_F(GHGRIRoad, AGroupIsChangedAndDeleted) {
  ASSERT_EQ(road.Do("GHGRI:GRP=300,LIM=1,SERV_D1_SUB1=1,SERV_D1_SUB2=4;"), "done");
  EXPECT_EQ(road.Do("edit GHGRI GRP=300:GRP=301,LIM=2,SERV_D2=1;"), "done");
  EXPECT_EQ(road.Rows(huntingGroups), "301|EX|-|5100|-|-|2|-|-|-|-");
  EXPECT_EQ(road.Do("delete GHGRI GRP=301;"), "done");
  EXPECT_EQ(road.Rows(huntingGroups), "");
  EXPECT_EQ(road.Rows(numbersInUse), "");
}

// --- CBELI.

struct CBELIRoad : GroupRoad {};

const char* const bells = "SELECT GRP, NUMTYP, EQU, CUST, LOCATION, SERV FROM CBELI ORDER BY rowid";
const char* const positionsInUse = "SELECT EQU FROM Equipment WHERE USED = 1 ORDER BY EQU";

TEST_F(CBELIRoad, AGroupTakesANumberAndAPositionForItsBell) {
  EXPECT_THAT(road.Values("CBELI", "EQU"), StartsWith("001-0-13-00 001-0-13-01"));
  EXPECT_THAT(road.Values("CBELI", "EQU"), testing::EndsWith("002-0-15-15"));
  EXPECT_THAT(road.Values("CBELI", "EQU", {{"LOCATION", "WORKS"}}), StartsWith("002-0-13-00"));
  EXPECT_THAT(road.Values("CBELI", "GRP"), StartsWith("300 301"));
  EXPECT_EQ(road.Values("CBELI", "SERV"), "0 1 2");
  EXPECT_EQ(road.Do("CBELI:GRP=300,EQU=next,CUST=1,SERV=2;"), "done");
  EXPECT_EQ(road.Do("CBELI:GRP=next,LOCATION=WORKS,EQU=next;"), "done");
  EXPECT_THAT(road.Do("CBELI:GRP=302,EQU=001-0-13-00;"), HasSubstr("this value is not possible here"));
  EXPECT_EQ(road.Rows(bells), "300|EX|001-0-13-00|1|-|2 301|EX|002-0-13-00|-|WORKS|-");
  EXPECT_EQ(road.Rows(positionsInUse), "001-0-13-00 002-0-13-00");
  EXPECT_EQ(road.Rows(numbersInUse), "300 301");
}

TEST_F(CBELIRoad, FiftyGroupsAreTheLimit) {
  Insert("CBELI", "EQU", "001-0-17-07", 49);
  EXPECT_EQ(road.Do("CBELI:GRP=300,EQU=002-0-15-00;"), "done");
  EXPECT_EQ(road.Do("CBELI:GRP=301,EQU=002-0-15-01;"),
            "The limit of 50 records for the system is reached. Delete one before you add another.");
  EXPECT_EQ(road.Do("edit CBELI GRP=300:EQU=001-0-17-00;"), "done");
  EXPECT_EQ(road.Rows(positionsInUse), "001-0-17-00");
}

TEST_F(CBELIRoad, AMoveNeedsRoomInTheOtherLIM) {
  ASSERT_EQ(road.Do("CBELI:GRP=300,EQU=002-0-15-00;"), "done");
  Insert("CBELI", "EQU", "001-0-17-07", 50);
  EXPECT_EQ(road.Do("edit CBELI GRP=300:EQU=001-0-17-00;"), NoRoom(50, ""));
  EXPECT_EQ(road.Do("edit CBELI GRP=300:EQU=002-0-15-01,SERV=1;"), "done");
  EXPECT_EQ(road.Rows("SELECT EQU, SERV FROM CBELI WHERE GRP = '300'"), "002-0-15-01|1");
  EXPECT_EQ(road.Rows(positionsInUse), "002-0-15-01");
}

TEST_F(CBELIRoad, AnotherLocationDropsAPositionThatStandsElsewhere) {
  ASSERT_EQ(road.Do("CBELI:GRP=300,EQU=001-0-17-00;"), "done");
  EXPECT_EQ(road.Do("edit CBELI GRP=300:LOCATION=WORKS;"),
            "EQU=: this parameter has to be given (Equipment position of the bell)");
  EXPECT_EQ(road.Do("edit CBELI GRP=300:LOCATION=HQ;"), "done");
  EXPECT_EQ(road.Rows(bells), "300|EX|001-0-17-00|-|HQ|-");
}

TEST_F(CBELIRoad, AGroupIsGivenAnotherNumberAndDeleted) {
  ASSERT_EQ(road.Do("CBELI:GRP=300,EQU=001-0-17-00;"), "done");
  EXPECT_EQ(road.Do("edit CBELI GRP=300:GRP=301;"), "done");
  EXPECT_EQ(road.Rows(numbersInUse), "301");
  EXPECT_EQ(road.Do("delete CBELI GRP=301;"), "done");
  EXPECT_EQ(road.Rows(bells), "");
  EXPECT_EQ(road.Rows(numbersInUse), "");
  EXPECT_EQ(road.Rows(positionsInUse), "");
}

// --- CS_GPGRI.

TEST(CS_GPGRIRoad, AGroupIsNamedByAnyNumberUpTo8191) {
  Road road;
  EXPECT_EQ(road.Values("CS_GPGRI", "GRP"), "no list");
  EXPECT_EQ(road.Values("CS_GPGRI", "LIM", {{"LOCATION", "WORKS"}}), "2");
  EXPECT_EQ(road.Do("CS_GPGRI:GRP=8191,LIM=1,LOCATION=HQ;"), "done");
  EXPECT_EQ(
      road.Do("CS_GPGRI:GRP=8192;"),
      "done\nGRP=8192: GRP is outside its range, or begins with or holds a code that is in use. Give another value.");
  EXPECT_EQ(road.Rows("SELECT GRP, LIM, LOCATION FROM CS_GPGRI"), "8191|1|HQ 8192|-|-");
}

TEST(CS_GPGRIRoad, AGroupIsChangedAndDeletedAndGivesNoLine) {
  Road road;
  ASSERT_EQ(road.Do("CS_GPGRI:GRP=7,LIM=1,LOCATION=HQ;"), "done");
  EXPECT_EQ(road.Do("edit CS_GPGRI GRP=7:LOCATION=WORKS,LIM=2,GRP=8;"), "done");
  EXPECT_EQ(road.Do("edit CS_GPGRI GRP=8:LOCATION=;"),
            "done\nLIM=2: a check has cleared this value, since it does not go with the others");
  EXPECT_EQ(road.Rows("SELECT GRP, LIM, LOCATION FROM CS_GPGRI"), "8|-|-");
  EXPECT_THAT(road.Lines(), testing::IsEmpty());
  EXPECT_EQ(road.Do("delete CS_GPGRI GRP=8;"), "done");
  EXPECT_EQ(road.Rows("SELECT GRP FROM CS_GPGRI"), "");
}

// --- CS_GDNDI and CS_CHGRI.

TEST(CS_GDNDIRoad, AGroupTakesANumberFrom1To99) {
  Road road;
  EXPECT_THAT(road.Values("CS_GDNDI", "GRP"), StartsWith("1 2 3"));
  EXPECT_THAT(road.Values("CS_GDNDI", "GRP"), testing::EndsWith("98 99"));
  EXPECT_EQ(road.Do("CS_GDNDI:GRP=1;"), "done");
  EXPECT_EQ(road.Do("CS_GDNDI:GRP=next;"), "done");
  EXPECT_THAT(road.Do("CS_GDNDI:GRP=2;"), HasSubstr("GRP=2: this value is not possible here"));
  EXPECT_THAT(road.Do("CS_GDNDI:GRP=0;"), HasSubstr("GRP=0: this value is not possible here"));
  EXPECT_EQ(road.Do("edit CS_GDNDI GRP=2:GRP=99;"), "done");
  EXPECT_EQ(road.Do("delete CS_GDNDI GRP=1;"), "done");
  EXPECT_EQ(road.Rows("SELECT GRP FROM CS_GDNDI"), "99");
  EXPECT_THAT(road.Lines(), testing::IsEmpty());
}

TEST(CS_CHGRIRoad, AGroupTakesANumberFrom0To254) {
  Road road;
  EXPECT_THAT(road.Values("CS_CHGRI", "GRP"), StartsWith("0 1 2"));
  EXPECT_THAT(road.Values("CS_CHGRI", "GRP"), testing::EndsWith("253 254"));
  EXPECT_EQ(road.Do("CS_CHGRI:GRP=0;"), "done");
  EXPECT_EQ(road.Do("CS_CHGRI:GRP=254;"), "done");
  EXPECT_THAT(road.Do("CS_CHGRI:GRP=255;"), HasSubstr("GRP=255: this value is not possible here"));
  EXPECT_EQ(road.Do("edit CS_CHGRI GRP=0:GRP=5;"), "done");
  EXPECT_EQ(road.Do("delete CS_CHGRI GRP=254;"), "done");
  EXPECT_EQ(road.Rows("SELECT GRP FROM CS_CHGRI"), "5");
  EXPECT_THAT(road.Lines(), testing::IsEmpty());
}

// --- GPAGI.

struct GPAGIRoad : testing::Test {
  Road road;

  void SetUp() override {
    for (const char* GRP : {"1", "2", "3", "4"}) ASSERT_EQ(road.Do(std::string("CS_GPGRI:GRP=") + GRP + ";"), "done");
  }
};

const char* const pairs = "SELECT GRP, AGRP FROM GPAGI ORDER BY rowid";

TEST_F(GPAGIRoad, AGroupIsPairedWithSeveralOthersButNeverWithItself) {
  EXPECT_EQ(road.Values("GPAGI", "GRP"), "1 2 3 4");
  EXPECT_EQ(road.Values("GPAGI", "AGRP", {{"GRP", "2"}}), "1 3 4");
  EXPECT_EQ(road.Do("GPAGI:GRP=1,AGRP=1;"), "AGRP=1: this value is not possible here [2, 3, 4]");
  EXPECT_EQ(road.Do("GPAGI:GRP=1,AGRP=2&3;"), "done");
  EXPECT_EQ(road.Rows(pairs), "1|2 1|3");
  EXPECT_EQ(road.Values("GPAGI", "GRP"), "2 3 4");
  EXPECT_EQ(road.Values("GPAGI", "AGRP", {{"GRP", "4"}}), "1");
}

TEST_F(GPAGIRoad, APairIsChangedAndDeleted) {
  ASSERT_EQ(road.Do("GPAGI:GRP=1,AGRP=2;"), "done");
  EXPECT_EQ(road.Do("edit GPAGI GRP=1:AGRP=3;"), "done");
  EXPECT_EQ(road.Rows(pairs), "1|3");
  EXPECT_EQ(road.Do("edit GPAGI GRP=1:GRP=2;"),
            "AGRP=: this parameter has to be given (Group that may pick up its calls as well)");
  EXPECT_EQ(road.Do("edit GPAGI GRP=1:GRP=2,AGRP=4;"), "done");
  EXPECT_EQ(road.Rows(pairs), "2|4");
  EXPECT_EQ(road.Do("delete GPAGI GRP=2;"), "done");
  EXPECT_EQ(road.Rows(pairs), "");
}

}  // namespace
}  // namespace cordboard::workbench
