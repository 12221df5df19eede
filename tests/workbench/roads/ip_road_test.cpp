// The commands of the family ip as a user meets them, on a real exchange.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/Road.h"

namespace cordboard::workbench {
namespace {

using testing::ElementsAre;

// Numbers of the directory that no command has taken.
struct DirectoryRoad : testing::Test {
  Road road;

  void SetUp() override {
    ASSERT_EQ(road.Do("NANSI:NUMTYP=EX,NUMSE=350&&353;"), "done");
    ASSERT_EQ(road.Do("GEDII:DIR=350&&353,CUST=1;"), "done");
  }

  std::string Marks() { return road.Rows("SELECT DIR, TYPE FROM GEDII ORDER BY DIR"); }
  std::vector<std::string> LinesOf(const std::string& command) {
    std::vector<std::string> lines = road.Lines();
    std::erase_if(lines, [&](const std::string& line) { return !line.starts_with(command + ":"); });
    return lines;
  }
};

// --- IPBOI.

struct IPBOIRoad : testing::Test {
  Road road;
  std::string Boards() { return road.Rows("SELECT BPOS, IP, MASK, ROUTER FROM IPBOI ORDER BY rowid"); }
};

TEST_F(IPBOIRoad, ABoardIsOfferedOnce) {
  EXPECT_EQ(road.Values("IPBOI", "BPOS"), "001-0-19 002-0-17");
  EXPECT_EQ(road.Values("IPBOI", "BPOS", {{"LOCATION", "WORKS"}}), "002-0-17");
  EXPECT_EQ(road.Do("IPBOI:LOCATION=WORKS,BPOS=001-0-19,IP=10.0.0.5,MASK=255.255.255.0;"),
            "BPOS=001-0-19: this value is not possible here [002-0-17]");
  EXPECT_EQ(road.Do("IPBOI:BPOS=next,IP=10.0.0.5,MASK=255.255.255.0;"), "done");
  EXPECT_EQ(Boards(), "001-0-19|10.0.0.5|255.255.255.0|-");
  EXPECT_EQ(road.Values("IPBOI", "BPOS"), "002-0-17");
  EXPECT_EQ(road.Do("delete IPBOI BPOS=001-0-19;"), "done");
  EXPECT_EQ(road.Values("IPBOI", "BPOS"), "001-0-19 002-0-17");
}

TEST_F(IPBOIRoad, TheRouterHasToBeInTheSubnet) {
  EXPECT_EQ(road.Do("IPBOI:BPOS=next,IP=10.0.0.5,MASK=255.255.255.0,ROUTER=10.0.1.1;"),
            "The router is not in the subnet of the address. Check IP, MASK and ROUTER.");
  EXPECT_EQ(Boards(), "");
  EXPECT_EQ(road.Do("IPBOI:BPOS=next,IP=10.0.0.5,MASK=255.255.255.0,ROUTER=10.0.0.1;"), "done");
  EXPECT_EQ(road.Do("edit IPBOI BPOS=001-0-19:MASK=255.255.255.252;"),
            "The router is not in the subnet of the address. Check IP, MASK and ROUTER.");
  EXPECT_EQ(road.Do("edit IPBOI BPOS=001-0-19:MASK=255.255.255.252,ROUTER=10.0.0.6;"), "done");
  EXPECT_EQ(Boards(), "001-0-19|10.0.0.5|255.255.255.252|10.0.0.6");
  EXPECT_EQ(road.Do("edit IPBOI BPOS=001-0-19:ROUTER=;"), "done");
  EXPECT_EQ(Boards(), "001-0-19|10.0.0.5|255.255.255.252|-");
}

TEST_F(IPBOIRoad, AnAddressIsTakenOnceAndNotByItsOwnRecordAgain) {
  ASSERT_EQ(road.Do("IPBOI:BPOS=001-0-19,IP=10.0.0.5,MASK=255.0.0.0;"), "done");
  const std::string used = "The IP address is already in use. Give another address.";
  EXPECT_EQ(road.Do("IPBOI:BPOS=002-0-17,IP=10.0.0.5,MASK=255.0.0.0;"), "IP=10.0.0.5: " + used);
  EXPECT_EQ(road.Do("edit IPBOI BPOS=001-0-19:IP=10.0.0.5,ROUTER=10.0.0.1;"), "IP=10.0.0.5: " + used);
  EXPECT_EQ(road.Do("edit IPBOI BPOS=001-0-19:IP=10.0.0.6,ROUTER=10.0.0.1;"), "done");
  EXPECT_EQ(Boards(), "001-0-19|10.0.0.6|255.0.0.0|10.0.0.1");
}

TEST_F(IPBOIRoad, AnAddressThatIsNotSetIsRefused) {
  EXPECT_EQ(road.Do("IPBOI:BPOS=next,IP=0.0.0.0,MASK=0.0.0.0,ROUTER=0.0.0.0;"),
            "IP is missing or 0.0.0.0. Give an address.\nMASK is missing or 0.0.0.0. Give the mask of the subnet.");
  EXPECT_EQ(road.Do("IPBOI:BPOS=next,IP=10.0.0.5;"), "MASK=: this parameter has to be given (Mask of the subnet)");
  EXPECT_EQ(Boards(), "");
}

TEST_F(IPBOIRoad, AnAddressHasOneSpelling) {
  for (const std::string wrong :
       {"10.0.0", "10.0.0.5.6", "10.0.0.256", "10.0.0.05", "10.0.0.-1", "10..0.5", "10.0.0.5 ", "board", "10.0.0.x"}) {
    EXPECT_EQ(road.Do("IPBOI:BPOS=001-0-19,IP=\"" + wrong + "\",MASK=255.0.0.0;"),
              "IP=" + wrong + ": an address is four numbers from 0 to 255 with dots between them, such as 10.0.0.5");
  }
  EXPECT_EQ(road.Do("IPBOI:BPOS=001-0-19,IP=255.99.100.249,MASK=255.0.0.0,ROUTER=255.200.0.9;"), "done");
}

// --- IPEXI.

using IPEXIRoad = DirectoryRoad;

TEST_F(IPEXIRoad, TheNumberIsTakenMovedAndFreed) {
  EXPECT_EQ(road.Values("IPEXI", "DIR"), "350 351 352 353");
  EXPECT_EQ(road.Do("IPEXI:DIR=350,PASSW=first;"), "done");
  EXPECT_EQ(road.Values("IPEXI", "DIR"), "351 352 353");
  EXPECT_EQ(road.Do("IPEXI:DIR=350;"), "DIR=350: this value is not possible here [351, 352, 353]");
  EXPECT_EQ(road.Do("IPEXI:DIR=next,PASSW=\"a,b\";"), "done");
  EXPECT_EQ(Marks(), "350|IP 351|IP 352|- 353|-");
  EXPECT_EQ(road.Do("edit IPEXI DIR=350:DIR=353;"), "done");
  EXPECT_EQ(road.Do("edit IPEXI DIR=351:PASSW=;"), "done");
  EXPECT_EQ(Marks(), "350|- 351|IP 352|- 353|IP");
  EXPECT_EQ(road.Rows("SELECT DIR, PASSW FROM IPEXI ORDER BY rowid"), "353|first 351|-");
  EXPECT_EQ(road.Do("delete IPEXI DIR=351;"), "done");
  EXPECT_EQ(Marks(), "350|- 351|- 352|- 353|IP");
}

TEST_F(IPEXIRoad, APasswordIsPrintedInDoubleQuotes) {
  ASSERT_EQ(road.Do("IPEXI:DIR=350,PASSW=\"a,b;c#\";"), "done");
  ASSERT_EQ(road.Do("IPEXI:DIR=351;"), "done");
  EXPECT_THAT(LinesOf("IPEXI"), ElementsAre("IPEXI:DIR=350,PASSW=\"a,b;c#\";", "IPEXI:DIR=351;"));
}

TEST_F(IPEXIRoad, APasswordThatIsRefusedIsNotTold) {
  EXPECT_EQ(road.Do("IPEXI:DIR=350,PASSW=\"my secret\";"),
            "PASSW=***: PASSW holds a blank or a quote character. Leave it out.");
  EXPECT_EQ(road.Do("IPEXI:DIR=350,PASSW=my'secret;"), "PASSW=***: a value must not hold a quote character (')");
  EXPECT_EQ(road.Do("IPEXI:DIR=350,PASSW=schön;"),
            "PASSW=***: PASSW holds a character that cannot be used. Use unaccented letters, digits and signs, and no "
            "blanks.");
  EXPECT_EQ(road.Do("IPEXI:DIR=350,PASSW=1234567890123456789012345678901;"),
            "PASSW=***: The text of PASSW is too long. Give a shorter one.");
  EXPECT_EQ(road.Do("IPEXI:DIR=350,PASSW=secret,PASSW=secrets;"), "PASSW=***: this parameter is given twice");
  EXPECT_EQ(road.Do("edit IPEXI PASSW=secret:DIR=351;"), "there is no record of IPEXI with PASSW=***");
  EXPECT_EQ(Marks(), "350|- 351|- 352|- 353|-");
}

TEST_F(IPEXIRoad, APasswordBehindAWrongNameIsNotTold) {
  const std::string unknown = ": there is no parameter PASWS in IPEXI. Did you mean PASSW?";
  EXPECT_EQ(road.Do("IPEXI:DIR=350,PASWS=secret;"), "PASWS=" + unknown);
  EXPECT_EQ(road.Do("IPEXI:DIR=350,PASWS=secret,PASWS=secrets;"),
            "PASWS=" + unknown + "\nPASWS=: this parameter is given twice");
  EXPECT_EQ(road.Do("edit IPEXI PASWS=secret:DIR=351;"), "PASWS=: a record of IPEXI has no PASWS. Did you mean PASSW?");
  EXPECT_EQ(Marks(), "350|- 351|- 352|- 353|-");
}

// --- IPGDI.

struct IPGDIRoad : testing::Test {
  Road road;
  std::string Domains() { return road.Rows("SELECT LIM, DOMAIN FROM IPGDI ORDER BY rowid"); }
};

TEST_F(IPGDIRoad, EachLIMGetsARecordOfItsOwn) {
  EXPECT_EQ(road.Values("IPGDI", "LIM"), "1 2");
  EXPECT_EQ(road.Values("IPGDI", "LIM", {{"LOCATION", "WORKS"}}), "2");
  EXPECT_EQ(road.Do("IPGDI:LIM=1&2,DOMAIN=office.example;"), "done");
  EXPECT_EQ(Domains(), "1|office.example 2|office.example");
  EXPECT_THAT(road.Lines(),
              ElementsAre("IPGDI:LIM=1,DOMAIN=\"office.example\";", "IPGDI:LIM=2,DOMAIN=\"office.example\";"));
  EXPECT_EQ(road.Do("delete IPGDI LIM=1;"), "done");
  EXPECT_EQ(Domains(), "2|office.example");
}

TEST_F(IPGDIRoad, APairIsTakenOnce) {
  const std::string taken = "This combination of LIM and DOMAIN exists already. Give another DOMAIN.";
  ASSERT_EQ(road.Do("IPGDI:LIM=2,DOMAIN=a;"), "done");
  EXPECT_EQ(road.Do("IPGDI:LIM=1&2,DOMAIN=a;"), "LIM=1&2: " + taken);
  EXPECT_EQ(Domains(), "2|a") << "the record of LIM 1 is taken back";
  ASSERT_EQ(road.Do("IPGDI:LIM=1,DOMAIN=b;"), "done");
  EXPECT_EQ(road.Do("edit IPGDI LIM=1:LIM=2,DOMAIN=a;"), "LIM=2: " + taken);
  EXPECT_EQ(road.Do("edit IPGDI LIM=1:DOMAIN=b;"), "done");
  EXPECT_EQ(road.Do("edit IPGDI LIM=1:LIM=2;"), "done");
  EXPECT_EQ(Domains(), "2|a 2|b");
}

// --- IPGKC.

struct IPGKCRoad : testing::Test {
  Road road;
  std::string Gatekeepers() { return road.Rows("SELECT LIM, GKID, TMLOAD, TIMNET FROM IPGKC ORDER BY rowid"); }
};

TEST_F(IPGKCRoad, ALIMHasOneIdentityOfItsOwn) {
  EXPECT_EQ(road.Values("IPGKC", "LIM"), "1 2");
  EXPECT_EQ(road.Do("IPGKC:LIM=1,GKID=HQ,TMLOAD=30,TIMNET=120;"), "done");
  EXPECT_EQ(road.Values("IPGKC", "LIM"), "2");
  const std::string used = "The value of GKID is already used. Give another value.";
  EXPECT_EQ(road.Do("IPGKC:LIM=2,GKID=HQ;"), "GKID=HQ: " + used);
  EXPECT_EQ(road.Do("IPGKC:LIM=2,GKID=WORKS;"), "done");
  EXPECT_EQ(road.Do("edit IPGKC LIM=2:GKID=HQ;"), "GKID=HQ: " + used);
  EXPECT_EQ(road.Do("edit IPGKC LIM=1:TMLOAD=;"), "done");
  EXPECT_EQ(Gatekeepers(), "1|HQ|-|120 2|WORKS|-|-");
  EXPECT_THAT(road.Lines(),
              ElementsAre("IPGKC:LIM=1,GKID=HQ,TIMNET=120,TMLOAD=;", "IPGKC:LIM=2,GKID=WORKS,TIMNET=,TMLOAD=;"));
  EXPECT_EQ(road.Do("delete IPGKC LIM=1;"), "done");
  EXPECT_EQ(Gatekeepers(), "2|WORKS|-|-");
}

// --- IVMAI.

using IVMAIRoad = DirectoryRoad;

TEST_F(IVMAIRoad, TheNumberIsTakenMovedAndFreed) {
  EXPECT_EQ(road.Values("IVMAI", "VSD"), "350 351 352 353");
  EXPECT_EQ(road.Values("IVMAI", "BPOS"), "001-0-21");
  EXPECT_EQ(road.Values("IVMAI", "BPOS", {{"LOCATION", "WORKS"}}), "") << "the works have no such board";
  EXPECT_EQ(road.Do("IVMAI:VSD=350,BPOS=next,NOIND=30;"), "done");
  EXPECT_EQ(road.Values("IVMAI", "VSD"), "351 352 353");
  EXPECT_EQ(road.Values("IVMAI", "BPOS"), "");
  EXPECT_EQ(Marks(), "350|IVM 351|- 352|- 353|-");
  EXPECT_THAT(LinesOf("IVMAI"), ElementsAre("IVMAI:VSD=350,EQU=1-0-21-0&&1-0-21-29;"));
  EXPECT_EQ(road.Do("edit IVMAI VSD=350:VSD=352,NOIND=1,SID=7;"), "done");
  EXPECT_EQ(Marks(), "350|- 351|- 352|IVM 353|-");
  EXPECT_THAT(LinesOf("IVMAI"), ElementsAre("IVMAI:VSD=352,EQU=1-0-21-0,SID=7;"));
  EXPECT_EQ(road.Do("delete IVMAI VSD=352;"), "done");
  EXPECT_EQ(Marks(), "350|- 351|- 352|- 353|-");
}

TEST_F(IVMAIRoad, ABoardHasUpTo32Individuals) {
  EXPECT_EQ(road.Do("IVMAI:VSD=350,BPOS=next,NOIND=33;"),
            "NOIND=33: this value is not possible here [1, 2, 3, 4, 5, 6, 7, 8, 9, 10, ... (32 in all)]");
  EXPECT_EQ(road.Do("IVMAI:VSD=350,BPOS=next,NOIND=32;"), "done");
}

// --- IVBOI.

struct IVBOIRoad : DirectoryRoad {
  void SetUp() override {
    DirectoryRoad::SetUp();
    ASSERT_EQ(road.Do("IVMAI:VSD=350,BPOS=next,NOIND=4;"), "done");
    road.Rows("INSERT INTO EXTEIDIR (CmdId, DIR) VALUES (9001, '205')");
    road.Rows("INSERT INTO KSEXI (CMDID, DIR) VALUES (9002, '203')");
    road.Rows("INSERT INTO ITNUI (CMDID, DIR) VALUES (9003, '204')");
    road.Rows("INSERT INTO CXAKI (CmdId, DIR) VALUES (9004, '202')");
  }
  std::string Mailboxes() { return road.Rows("SELECT VSD, DIR, VCAT, LANG FROM IVBOI ORDER BY rowid"); }
};

TEST_F(IVBOIRoad, AnExtensionOfAnyKindHasOneMailbox) {
  EXPECT_EQ(road.Values("IVBOI", "VSD"), "350");
  EXPECT_EQ(road.Values("IVBOI", "DIR"), "205 203 204 202");
  EXPECT_EQ(road.Do("IVBOI:VSD=350,DIR=203,VCAT=1,LANG=2;"), "done");
  EXPECT_EQ(road.Values("IVBOI", "DIR"), "205 204 202");
  EXPECT_EQ(road.Do("edit IVBOI DIR=203:DIR=202,VCAT=,LANG=6;"), "done");
  EXPECT_EQ(Mailboxes(), "350|202|-|6");
  EXPECT_EQ(road.Values("IVBOI", "DIR"), "205 203 204");
  EXPECT_EQ(road.Do("delete IVBOI DIR=202;"), "done");
  EXPECT_EQ(Mailboxes(), "");
}

TEST_F(IVBOIRoad, AMailboxOutlivesItsSystem) {
  ASSERT_EQ(road.Do("IVBOI:VSD=350,DIR=203;"), "done");
  EXPECT_EQ(road.Do("delete IVMAI VSD=350;"), "done");
  EXPECT_EQ(Mailboxes(), "350|203|-|-");
  EXPECT_EQ(road.Values("IVBOI", "VSD"), "");
}

TEST(IVBOILanguages, R6KnowsThree) {
  EXPECT_EQ(Road("R6").Values("IVBOI", "LANG"), "1 2 3");
  EXPECT_EQ(Road("R8").Values("IVBOI", "LANG"), "1 2 3 4 5 6");
  EXPECT_EQ(Road("R8").Values("IVBOI", "VCAT"), "0 1 2 3");
}

}  // namespace
}  // namespace cordboard::workbench
