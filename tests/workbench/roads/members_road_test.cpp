// Members of groups, and personal lists, as a user meets them: ACGMI, GHGMI, CBGMI, CHGMI, GPGMI, GDNDI and PELPI on a
// real exchange.

#include <gtest/gtest.h>

#include "support/Road.h"

namespace cordboard::workbench {
namespace {

// An exchange with the key extensions 100 to 105, of which the last two have an ADC that begins with 0 and 1, with the
// additional numbers 110 to 112, whose ADC begins with 0, 1 and 1, and with the directory records 150 to 199.
class Members : public testing::Test {
 protected:
  void SetUp() override {
    for (const char* line :
         {"NANSI:NUMTYP=EX,NUMSE=100&&199;", "NANSI:NUMTYP=EX,NUMSE=300&&309;",
          "EXCCS:CAT=1,TRAF=11,SERV_D6=1,CDIV_D1=1,ROC_D2=1;", "KSEXI:DIR=100&&103,ITYPE=3,EQU=next,CAT=1;",
          "KSEXI:DIR=104,ITYPE=12,EQU=next,CAT=1,ADC_D1=0,ADC_D2=1;",
          "KSEXI:DIR=105,ITYPE=12,ACCTYP=1,EQU=next,CAT=1,ADC_D1=1;", "KSANI:DIR=104,KEY=next,ADN=110,CAT=1,ADC_D1=0;",
          "KSANI:DIR=105,KEY=next,ADN=111,CAT=1,ADC_D1=1;", "KSANI:DIR=105,KEY=next,ADN=112,CAT=1,ADC_D1=1;",
          "GEDII:DIR=150&&199;"})
      ASSERT_EQ(road_.Do(line), "done") << line;
  }

  std::string Do(const std::string& line) { return road_.Do(line); }
  std::string Rows(const std::string& sql) { return road_.Rows(sql); }
  std::string Values(const std::string& command, const std::string& parameter,
                     const std::vector<Assignment>& given = {}) {
    return road_.Values(command, parameter, given);
  }

  // A group with a number of its own, as the command of its head leaves it.
  void MakeGroup(const std::string& table, const std::string& GRP) {
    Rows("INSERT INTO " + table + " (CMDID, NUMTYP, GRP) VALUES (9000, 'EX', '" + GRP + "')");
  }
  // That many members, numbered from 10000.
  void Fill(const std::string& table, const std::string& GRP, int members) {
    Rows("WITH RECURSIVE member(DIR) AS (SELECT 10000 UNION ALL SELECT DIR + 1 FROM member LIMIT " +
         std::to_string(members) + ") INSERT INTO " + table + " (CMDID, NUMTYP, GRP, DIR) SELECT DIR, 'EX', '" + GRP +
         "', CAST(DIR AS TEXT) FROM member");
  }
  std::string Count(const std::string& table) { return Rows("SELECT COUNT(*) FROM " + table); }

 private:
  Road road_;
};

std::string Numbers(int from, int to) {
  std::string text;
  for (int number = from; number <= to; ++number) text += (text.empty() ? "" : " ") + std::to_string(number);
  return text;
}

const std::string emptyGroupNeeded = "GRP=: this parameter has to be given (Group, by its number)";

// --- ACGMI.

using ACGMIRoad = Members;

const char* const membersOfACGMI = "SELECT GRP, NUMTYP, DIR FROM ACGMI ORDER BY rowid";

TEST_F(ACGMIRoad, MembersAreAddedMovedAndDeleted) {
  MakeGroup("ACGRI", "301");
  MakeGroup("ACGRI", "300");
  EXPECT_EQ(Values("ACGMI", "GRP"), "300 301");
  EXPECT_EQ(Values("ACGMI", "DIR"), "111 112");
  EXPECT_EQ(Do("ACGMI:DIR=111&112,GRP=300;"), "done");
  EXPECT_EQ(Rows(membersOfACGMI), "300|EX|111 300|EX|112");
  EXPECT_EQ(Do("edit ACGMI DIR=112:GRP=301;"), "done");
  EXPECT_EQ(Do("delete ACGMI GRP=300,DIR=111;"), "done");
  EXPECT_EQ(Rows(membersOfACGMI), "301|EX|112");
}

TEST_F(ACGMIRoad, TakesGroupsThatAreThereAndNumbersOfItsKindAlone) {
  EXPECT_EQ(Do("ACGMI:GRP=300,DIR=111;"), "GRP=300: this value is not possible here [no value at present]");
  MakeGroup("ACGRI", "300");
  EXPECT_EQ(Do("ACGMI:GRP=300,DIR=110;"), "DIR=110: this value is not possible here [111, 112]");
  EXPECT_EQ(Do("ACGMI:DIR=111;"), emptyGroupNeeded);
  EXPECT_EQ(Count("ACGMI"), "0");
}

TEST_F(ACGMIRoad, AGroupTakes250Members) {
  MakeGroup("ACGRI", "300");
  Fill("ACGMI", "300", 249);
  EXPECT_EQ(Do("ACGMI:GRP=300,DIR=111&112;"),
            "Group 300 has 249 members, and 2 more would exceed its limit of 250. Add fewer members, or the last ones "
            "one by one.");
  EXPECT_EQ(Count("ACGMI"), "249");
  EXPECT_EQ(Do("ACGMI:GRP=300,DIR=111;"), "done");
  EXPECT_EQ(Do("ACGMI:GRP=300,DIR=112;"),
            "Group 300 has its limit of 250 members. Remove a member before you add another.");
}

TEST_F(ACGMIRoad, ALineThatFitsMayBeRefusedAllTheSame) {
  MakeGroup("ACGRI", "300");
  Fill("ACGMI", "300", 248);
  EXPECT_EQ(Do("ACGMI:GRP=300,DIR=111&112;"),
            "Group 300 has 249 members, and 2 more would exceed its limit of 250. Add fewer members, or the last ones "
            "one by one.");
  EXPECT_EQ(Count("ACGMI"), "248");
}

TEST_F(ACGMIRoad, TheSystemTakes4000Members) {
  MakeGroup("ACGRI", "300");
  Fill("ACGMI", "301", 3999);
  EXPECT_EQ(Do("ACGMI:GRP=300,DIR=111&112;"),
            "The system has 3999 members, and 2 more would exceed its limit of 4000. Add fewer members.\n"
            "The members were not added: the system has no room for them. Add fewer, or remove some first.");
  EXPECT_EQ(Do("ACGMI:GRP=300,DIR=111;"), "done");
  EXPECT_EQ(Do("ACGMI:GRP=300,DIR=112;"),
            "The limit of 4000 members for the system is reached. Remove a member before you add another.\n"
            "The members were not added: the system has no room for them. Add fewer, or remove some first.");
}

// --- GHGMI.

using GHGMIRoad = Members;

TEST_F(GHGMIRoad, ANumberMayBeInSeveralGroupsButOnceInEach) {
  MakeGroup("GHGRI", "302");
  MakeGroup("GHGRI", "303");
  EXPECT_EQ(Values("GHGMI", "GRP"), "302 303");
  EXPECT_EQ(Values("GHGMI", "DIR"), "");
  // Key extensions are offered twice where there are additional numbers.
  EXPECT_EQ(Values("GHGMI", "DIR", {{"GRP", "302"}}), "104 104 110");
  EXPECT_EQ(Do("GHGMI:DIR=104&110,GRP=302;"), "done");
  EXPECT_EQ(Do("GHGMI:GRP=303,DIR=104;"), "done");
  EXPECT_EQ(Do("GHGMI:GRP=303,DIR=104;"), "DIR=104: this value is not possible here [110]");
  EXPECT_EQ(Rows("SELECT GRP, NUMTYP, DIR FROM GHGMI ORDER BY rowid"), "302|EX|104 302|EX|110 303|EX|104");
  EXPECT_EQ(Do("edit GHGMI GRP=302,DIR=104:GRP=303;"), "records of GHGMI cannot be changed");
  EXPECT_EQ(Do("delete GHGMI DIR=104;"),
            "there are several records of GHGMI with DIR=104; select one by more of its parameters");
  EXPECT_EQ(Do("delete GHGMI GRP=302,DIR=104;"), "done");
  EXPECT_EQ(Values("GHGMI", "DIR", {{"GRP", "302"}}), "104 104");
}

TEST_F(GHGMIRoad, AMemberOfACGMIIsNotPossible) {
  MakeGroup("GHGRI", "302");
  Rows("INSERT INTO ACGMI (GRP, DIR) VALUES ('300', '104')");
  EXPECT_EQ(Values("GHGMI", "DIR", {{"GRP", "302"}}), "110");
}

TEST_F(GHGMIRoad, AGroupTakes75Members) {
  MakeGroup("GHGRI", "302");
  Fill("GHGMI", "302", 74);
  EXPECT_EQ(Do("GHGMI:GRP=302,DIR=104&110;"),
            "Group 302 has 74 members, and 2 more would exceed its limit of 75. Add fewer members, or the last ones "
            "one by one.");
  EXPECT_EQ(Do("GHGMI:GRP=302,DIR=104;"), "done");
  EXPECT_EQ(Do("GHGMI:GRP=302,DIR=110;"),
            "Group 302 has its limit of 75 members. Remove a member before you add another.");
}

// --- CBGMI.

using CBGMIRoad = Members;

TEST_F(CBGMIRoad, MembersAreAddedAndDeleted) {
  MakeGroup("CBELI", "304");
  EXPECT_EQ(Values("CBGMI", "GRP"), "304");
  EXPECT_EQ(Values("CBGMI", "DIR"), Numbers(100, 105) + " 110 111 112 " + Numbers(150, 199));
  EXPECT_EQ(Do("CBGMI:GRP=304,DIR=100&&102&110;"), "done");
  EXPECT_EQ(Rows("SELECT GRP, NUMTYP, DIR FROM CBGMI ORDER BY rowid"), "304|EX|100 304|EX|101 304|EX|102 304|EX|110");
  EXPECT_EQ(Values("CBGMI", "DIR"), "103 104 105 111 112 " + Numbers(150, 199));
  EXPECT_EQ(Do("edit CBGMI DIR=100:DIR=103;"), "records of CBGMI cannot be changed");
  EXPECT_EQ(Do("delete CBGMI DIR=100;"), "done");
  EXPECT_EQ(Count("CBGMI"), "3");
}

TEST_F(CBGMIRoad, AGroupTakes30MembersAndALineOfThem) {
  MakeGroup("CBELI", "304");
  EXPECT_EQ(Do("CBGMI:GRP=304,DIR=150&&180;"),
            "Group 304 has 0 members, and 31 more would exceed its limit of 30. Add fewer members, or the last ones "
            "one by one.\n"
            "The members were not added: the group has no room for them. Add fewer, or remove some first.");
  EXPECT_EQ(Do("CBGMI:GRP=304,DIR=150&&179;"), "done");
  EXPECT_EQ(Do("CBGMI:GRP=304,DIR=180;"),
            "Group 304 has its limit of 30 members. Remove a member before you add another.\n"
            "The members were not added: the group has no room for them. Add fewer, or remove some first.");
  EXPECT_EQ(Count("CBGMI"), "30");
}

TEST_F(CBGMIRoad, TheSystemTakes1500Members) {
  MakeGroup("CBELI", "304");
  Fill("CBGMI", "305", 1500);
  EXPECT_EQ(Do("CBGMI:GRP=304,DIR=100;"),
            "The limit of 1500 members for the system is reached. Remove a member before you add another.\n"
            "The members were not added: the system has no room for them. Add fewer, or remove some first.");
}

TEST(CBGMIOfR6, OffersTheExtensionsOfAdditionalNumbersAndNoDirectoryRecords) {
  Road road("R6");
  for (const char* line :
       {"NANSI:NUMTYP=EX,NUMSE=100&&199;", "EXCCS:CAT=1,TRAF=11,SERV_D6=1,CDIV_D1=1,ROC_D2=1;",
        "KSEXI:DIR=100&101,ITYPE=3,EQU=next,CAT=1;", "KSANI:DIR=100,KEY=next,ADN=110,CAT=1;", "GEDII:DIR=150;"})
    ASSERT_EQ(road.Do(line), "done") << line;
  EXPECT_EQ(road.Values("CBGMI", "DIR"), "100 101 100");
}

// --- CHGMI.

using CHGMIRoad = Members;

TEST_F(CHGMIRoad, TheFirstMemberMakesTheGroup) {
  EXPECT_EQ(Values("CHGMI", "GRP"), Numbers(0, 254));
  EXPECT_EQ(Values("CHGMI", "DIR"), Numbers(100, 105) + " " + Numbers(150, 199));
  EXPECT_EQ(Do("CHGMI:GRP=7,DIR=100&101;"), "done");
  EXPECT_EQ(Do("CHGMI:GRP=7,DIR=102;"), "done");
  EXPECT_EQ(Do("CHGMI:GRP=0,DIR=150&&199;"), "done");
  EXPECT_EQ(Rows("SELECT GRP FROM CS_CHGRI ORDER BY rowid"), "7 0");
  EXPECT_EQ(Rows("SELECT NUMTYP, DIR FROM CHGMI WHERE GRP = '7' ORDER BY rowid"), "EX|100 EX|101 EX|102");
  EXPECT_EQ(Values("CHGMI", "DIR"), "103 104 105");
  EXPECT_EQ(Do("CHGMI:GRP=255,DIR=103;"),
            "GRP=255: this value is not possible here [0, 1, 2, 3, 4, 5, 6, 7, 8, 9, ...]");
}

TEST_F(CHGMIRoad, AMemberIsMovedAndItsOldGroupStays) {
  ASSERT_EQ(Do("CHGMI:GRP=7,DIR=100;"), "done");
  EXPECT_EQ(Do("edit CHGMI DIR=100:GRP=8;"), "done");
  EXPECT_EQ(Rows("SELECT GRP FROM CHGMI"), "8");
  EXPECT_EQ(Do("edit CHGMI DIR=100:DIR=101&102;"), "DIR=101&102: several values are not possible here; give one value");
  EXPECT_EQ(Do("delete CHGMI DIR=100;"), "done");
  EXPECT_EQ(Count("CHGMI"), "0");
  EXPECT_EQ(Rows("SELECT GRP FROM CS_CHGRI"), "7");
}

// --- GPGMI.

using GPGMIRoad = Members;

TEST_F(GPGMIRoad, TheFirstMemberMakesTheGroupInItsLIM) {
  EXPECT_EQ(Values("GPGMI", "GRP"), "");
  EXPECT_EQ(Values("GPGMI", "DIR"), Numbers(100, 105) + " " + Numbers(150, 199) + " 110 111 112");
  EXPECT_EQ(Values("GPGMI", "LIM", {{"LOCATION", "WORKS"}}), "2");
  EXPECT_EQ(Do("GPGMI:GRP=12,LOCATION=WORKS,LIM=2,DIR=100&101;"), "done");
  EXPECT_EQ(Do("GPGMI:GRP=12,DIR=110;"), "done");
  EXPECT_EQ(Values("GPGMI", "GRP"), "12");
  EXPECT_EQ(Rows("SELECT GRP, LIM, LOCATION FROM CS_GPGRI"), "12|2|-");
  EXPECT_EQ(Rows("SELECT NUMTYP, DIR, LIM, LOCATION FROM GPGMI ORDER BY rowid"),
            "EX|100|2|WORKS EX|101|2|WORKS EX|110|-|-");
  EXPECT_EQ(Do("edit GPGMI DIR=110:DIR=111,LOCATION=HQ,LIM=1;"), "done");
  EXPECT_EQ(Do("delete GPGMI DIR=100;"), "done");
  EXPECT_EQ(Rows("SELECT DIR, LIM FROM GPGMI ORDER BY rowid"), "101|2 111|1");
}

TEST_F(GPGMIRoad, ANewGroupTakesAnyNumberAtOnceAndThenNoMore) {
  EXPECT_EQ(Do("GPGMI:GRP=12,DIR=150&&198;"), "done");
  EXPECT_EQ(Count("GPGMI"), "49");
  EXPECT_EQ(Do("GPGMI:GRP=12,DIR=199;"),
            "Group 12 has 49 members, and 1 more would exceed its limit of 48. Add fewer members, or the last ones one "
            "by one.");
}

TEST_F(GPGMIRoad, AGroupThatStandsTakes48Members) {
  ASSERT_EQ(Do("GPGMI:GRP=12,DIR=150&&196;"), "done");
  EXPECT_EQ(Do("GPGMI:GRP=12,DIR=197&198;"),
            "Group 12 has 47 members, and 2 more would exceed its limit of 48. Add fewer members, or the last ones one "
            "by one.");
  EXPECT_EQ(Do("GPGMI:GRP=12,DIR=197;"), "done");
  EXPECT_EQ(Do("GPGMI:GRP=12,DIR=198;"),
            "Group 12 has its limit of 48 members. Remove a member before you add another.");
}

TEST_F(GPGMIRoad, AddsPartOfALineWhereTheGroupBecomesFull) {
  ASSERT_EQ(Do("GPGMI:GRP=12,DIR=150&&195;"), "done");
  EXPECT_EQ(Do("GPGMI:GRP=12,DIR=196&197;"),
            "Group 12 has 47 members, and 2 more would exceed its limit of 48. Add fewer members, or the last ones one "
            "by one.");
  EXPECT_EQ(Rows("SELECT DIR FROM GPGMI WHERE DIR > '195'"), "196");
}

// --- GDNDI.

using GDNDIRoad = Members;

TEST_F(GDNDIRoad, TheFirstMemberMakesTheGroup) {
  EXPECT_EQ(Values("GDNDI", "GRP"), Numbers(1, 99));
  EXPECT_EQ(Values("GDNDI", "DIR"), Numbers(100, 105) + " 110 111 112");
  EXPECT_EQ(Do("GDNDI:GRP=3,DIR=100&&102;"), "done");
  EXPECT_EQ(Do("GDNDI:GRP=3,DIR=110;"), "done");
  EXPECT_EQ(Rows("SELECT GRP FROM CS_GDNDI"), "3");
  EXPECT_EQ(Do("edit GDNDI DIR=110:DIR=111;"), "done");
  EXPECT_EQ(Do("delete GDNDI DIR=100;"), "done");
  EXPECT_EQ(Rows("SELECT GRP, NUMTYP, DIR FROM GDNDI ORDER BY rowid"), "3|EX|101 3|EX|102 3|EX|111");
  EXPECT_EQ(Values("GDNDI", "DIR"), "100 103 104 105 110 112");
}

TEST_F(GDNDIRoad, ANumberThatIsAlsoAnOperatorsTakesItsType) {
  Rows("INSERT INTO OPERI (CMDID, NUMTYP, DIR) VALUES (9000, 'OI', '101')");
  ASSERT_EQ(Do("GDNDI:GRP=3,DIR=100&101;"), "done");
  ASSERT_EQ(Do("CHGMI:GRP=3,DIR=100&101;"), "done");
  EXPECT_EQ(Rows("SELECT DIR, NUMTYP FROM GDNDI ORDER BY rowid"), "100|EX 101|OI");
  EXPECT_EQ(Rows("SELECT DIR, NUMTYP FROM CHGMI ORDER BY rowid"), "100|EX 101|OI");
}

// --- PELPI.

using PELPIRoad = Members;

const char* const places =
    "SELECT DIR, LIST, CHO, ANSPOS, TIME, BSYCHO, ONECAL, ORGSEL, SMSSEL FROM PELPI ORDER BY rowid";

TEST_F(PELPIRoad, PlacesAreAddedChangedAndDeleted) {
  EXPECT_EQ(Values("PELPI", "DIR"), Numbers(100, 105) + " " + Numbers(150, 199));
  EXPECT_EQ(Do("PELPI:DIR=100,CHO=1,ANSPOS=101,TIME=20,BSYCHO=3,ONECAL=1,ORGSEL_D1=1,ORGSEL_D3=1,SMSSEL=0;"), "done");
  EXPECT_EQ(Do("PELPI:DIR=100,LIST=2,CHO=1;"), "done");
  EXPECT_EQ(Rows(places), "100|1|1|101|20|3|1|101|0 100|2|1|-|-|-|-|-|-");
  EXPECT_EQ(Do("edit PELPI DIR=100,LIST=1:TIME=30,ORGSEL_D2=1;"), "done");
  EXPECT_EQ(Do("edit PELPI DIR=100,LIST=2:TIME=15;"), "done");
  EXPECT_EQ(Do("edit PELPI DIR=100,LIST=1:TIME=;"), "done");
  EXPECT_EQ(Rows(places), "100|1|1|101|-|3|1|111|0 100|2|1|-|15|-|-|-|-");
  EXPECT_EQ(Do("delete PELPI DIR=100,LIST=1;"), "done");
  EXPECT_EQ(Rows(places), "100|2|1|-|15|-|-|-|-");
}

TEST_F(PELPIRoad, TheFirstListComesFirstAndAFullOneIsFullForEveryNumber) {
  EXPECT_EQ(Values("PELPI", "LIST"), "1");
  EXPECT_EQ(Do("PELPI:DIR=100,LIST=2,CHO=1;"), "LIST=2: this value is not possible here [1]");
  for (const char* CHO : {"1", "2", "3", "4"}) ASSERT_EQ(Do(std::string("PELPI:DIR=100,CHO=") + CHO + ";"), "done");
  EXPECT_EQ(Values("PELPI", "LIST", {{"DIR", "101"}}), "1 2 3 4 5");
  EXPECT_EQ(Do("PELPI:DIR=101,LIST=1,CHO=1;"), "done");
  EXPECT_EQ(Values("PELPI", "LIST", {{"DIR", "102"}}), "2 3 4 5");
  EXPECT_EQ(Values("PELPI", "LIST"), "1 2 3 4 5");
  EXPECT_EQ(Do("PELPI:DIR=102,LIST=1,CHO=1;"), "LIST=1: this value is not possible here [2, 3, 4, 5]");
}

TEST_F(PELPIRoad, APlaceIsGivenOnceInEachListOfANumber) {
  EXPECT_EQ(Values("PELPI", "CHO"), "1 2 3 4 5");
  ASSERT_EQ(Do("PELPI:DIR=100,CHO=2;"), "done");
  EXPECT_EQ(Values("PELPI", "CHO", {{"DIR", "100"}}), "1 3 4 5");
  EXPECT_EQ(Values("PELPI", "CHO", {{"DIR", "100"}, {"LIST", "2"}}), "1 2 3 4 5");
  EXPECT_EQ(Values("PELPI", "CHO", {{"DIR", "101"}}), "1 2 3 4 5");
}

TEST_F(PELPIRoad, ThePlaceWhenBusyComesAfterThePlace) {
  EXPECT_EQ(Values("PELPI", "BSYCHO"), "1 2 3 4 5");
  EXPECT_EQ(Values("PELPI", "BSYCHO", {{"CHO", "3"}}), "4 5");
  EXPECT_EQ(Do("PELPI:DIR=100,CHO=3,BSYCHO=3;"), "BSYCHO=3: this value is not possible here [4, 5]");
  ASSERT_EQ(Do("PELPI:DIR=100,CHO=3,BSYCHO=4;"), "done");
  EXPECT_EQ(Do("edit PELPI DIR=100:CHO=1;"),
            "done\nBSYCHO=4: a check has cleared this value, since it does not go with the others");
  EXPECT_EQ(Do("edit PELPI DIR=100:LIST=2;"), "CHO=: this parameter has to be given (Place in the list)");
  EXPECT_EQ(Do("edit PELPI DIR=100:LIST=2,CHO=1;"), "done");
  EXPECT_EQ(Rows(places), "100|2|1|-|-|-|-|-|-");
}

}  // namespace
}  // namespace cordboard::workbench
