// The commands of the family cordless as a user meets them, on a real exchange.

#include <gtest/gtest.h>

#include "support/Road.h"

namespace cordboard::workbench {
namespace {

// An exchange with six directory records.
struct CordlessRoad : testing::Test {
  Road road;

  void SetUp() override {
    ASSERT_EQ(road.Do("NANSI:NUMTYP=EX,NUMSE=340&&349;"), "done");
    ASSERT_EQ(road.Do("GEDII:DIR=340&&345,CUST=1;"), "done");
  }

  void Prepare(std::initializer_list<const char*> lines) {
    for (const char* line : lines) ASSERT_EQ(road.Do(line), "done") << line;
  }

  // The numbers that are taken, and by what.
  std::string Taken() { return road.Rows("SELECT DIR, TYPE FROM GEDII WHERE TYPE IS NOT NULL ORDER BY DIR"); }
  std::string UsedPositions() { return road.Rows("SELECT EQU FROM Equipment WHERE USED = TRUE ORDER BY EQU"); }
};

// --- CXSYI.

struct CXSYIRoad : CordlessRoad {
  std::string System() { return road.Rows("SELECT SARI, SMSN FROM CXSYI"); }
};

TEST_F(CXSYIRoad, TheSystemIsAddedAndTakesItsNumber) {
  EXPECT_EQ(road.Values("CXSYI", "SMSN"), "340 341 342 343 344 345");
  EXPECT_EQ(road.Do("CXSYI:SARI=31100411,SMSN=340;"), "done");
  EXPECT_EQ(System(), "31100411|340");
  EXPECT_EQ(Taken(), "340|SMSN");
  EXPECT_EQ(road.Values("CXSYI", "SMSN"), "341 342 343 344 345");
  EXPECT_EQ(road.Do("edit CXSYI SARI=31100411:SMSN=346;"),
            "SMSN=346: this value is not possible here [341, 342, 343, 344, 345]");
}

TEST_F(CXSYIRoad, TheIdentityHasEightCharactersAtLeast) {
  EXPECT_EQ(road.Do("CXSYI:SARI=1234567;"), "SARI=1234567: SARI is too short. Give at least 8 characters.");
  EXPECT_EQ(road.Do("CXSYI:SARI=;"), "SARI=: give SARI, or SMSN");
  EXPECT_EQ(road.Do("CXSYI:SARI=\"not a number\";"),
            "done\nSARI=not a number: this value should be of hexadecimal digits: 0 to 9 and A to F");
  EXPECT_EQ(System(), "not a number|-");
}

TEST_F(CXSYIRoad, AChangeTakesTheNewNumberAndFreesTheOldOne) {
  Prepare({"CXSYI:SARI=31100411,SMSN=340;"});
  EXPECT_EQ(road.Do("edit CXSYI SMSN=340:SMSN=341,SARI=FFFFFFFF;"), "done");
  EXPECT_EQ(System(), "FFFFFFFF|341");
  EXPECT_EQ(Taken(), "341|SMSN");
  EXPECT_EQ(road.Do("edit CXSYI SMSN=341:SMSN=;"), "done");
  EXPECT_EQ(System(), "FFFFFFFF|-");
  EXPECT_EQ(Taken(), "");
}

TEST_F(CXSYIRoad, AddedAgainItChangesAndItsNumberIsFreeThoughItKeepsIt) {
  Prepare({"CXSYI:SARI=31100411,SMSN=340;"});
  EXPECT_EQ(road.Do("CXSYI:SARI=FFFFFFFF;"), "done");
  EXPECT_EQ(System(), "FFFFFFFF|340");
  EXPECT_EQ(Taken(), "");
}

TEST_F(CXSYIRoad, IdentityAndNumberHaveALineEach) {
  EXPECT_EQ(road.Lines(), std::vector<std::string>{"NANSI:NUMTYP=EX,NUMSE=340&&349;"});
  Prepare({"CXSYI:SMSN=340;"});
  EXPECT_EQ(road.Lines(), (std::vector<std::string>{"NANSI:NUMTYP=EX,NUMSE=340&&349;", "CXSYI:SMSN=340;"}));
  Prepare({"edit CXSYI SMSN=340:SARI=31100411;"});
  EXPECT_EQ(road.Lines(),
            (std::vector<std::string>{"NANSI:NUMTYP=EX,NUMSE=340&&349;", "CXSYI:SARI=31100411;", "CXSYI:SMSN=340;"}));
  Prepare({"edit CXSYI SMSN=340:SMSN=;"});
  EXPECT_EQ(road.Lines(), (std::vector<std::string>{"NANSI:NUMTYP=EX,NUMSE=340&&349;", "CXSYI:SARI=31100411;"}));
}

TEST_F(CXSYIRoad, ADeleteFreesTheNumberAndTakesTheBoardsAlong) {
  Prepare({"CXSYI:SARI=31100411,SMSN=340;", "CXCFI:FPI=1,BPOS=next;", "CXCFI:FPI=2,BPOS=next;", "CXRFI:FPI=1,RPN=1;"});
  EXPECT_EQ(road.Do("delete CXSYI;"), "done");
  EXPECT_EQ(System(), "");
  EXPECT_EQ(Taken(), "");
  EXPECT_EQ(road.Rows("SELECT COUNT(*) FROM CXCFI"), "0");
  EXPECT_EQ(road.Rows("SELECT FPI, RPN FROM CXRFI"), "1|1");
  EXPECT_EQ(UsedPositions(), "001-0-18-1");
}

TEST_F(CXSYIRoad, ADirectoryRecordThatIsDeletedLeavesTheSystemItsIdentity) {
  Prepare({"CXSYI:SARI=31100411,SMSN=340;", "delete GEDII DIR=340;"});
  EXPECT_EQ(System(), "31100411|-");
}

// --- CXAKI.

struct CXAKIRoad : CordlessRoad {
  std::string Extensions() { return road.Rows("SELECT DIR, AUTKEY, IPEI, AUTPAR FROM CXAKI ORDER BY rowid"); }
};

TEST_F(CXAKIRoad, AnExtensionIsAddedChangedAndDeleted) {
  EXPECT_EQ(road.Values("CXAKI", "DIR"), "340 341 342 343 344 345");
  EXPECT_EQ(road.Do("CXAKI:DIR=next,AUTKEY=4711,IPEI=0A1B2C3;"), "done");
  EXPECT_EQ(Extensions(), "340|4711|0A1B2C3|-");
  EXPECT_EQ(Taken(), "340|CX");
  EXPECT_EQ(road.Values("CXAKI", "DIR"), "341 342 343 344 345");
  EXPECT_EQ(road.Do("CXAKI:DIR=340;"), "DIR=340: this value is not possible here [341, 342, 343, 344, 345]");
  EXPECT_EQ(road.Do("edit CXAKI DIR=340:AUTKEY=,IPEI=123456;"), "done");
  EXPECT_EQ(Extensions(), "340|-|123456|-");
  EXPECT_EQ(road.Do("edit CXAKI DIR=340:DIR=345;"), "done");
  EXPECT_EQ(Extensions(), "345|-|123456|-");
  EXPECT_EQ(Taken(), "345|CX");
  EXPECT_EQ(road.Do("delete CXAKI DIR=345;"), "done");
  EXPECT_EQ(Extensions(), "");
  EXPECT_EQ(Taken(), "");
}

TEST_F(CXAKIRoad, TheIdentityOfTheTelephoneHasSixToNineCharacters) {
  EXPECT_EQ(road.Do("CXAKI:DIR=340,IPEI=12345;"), "IPEI=12345: IPEI is too short. Give at least 6 characters.");
  EXPECT_EQ(road.Do("CXAKI:DIR=340,IPEI=1234567890;"), "IPEI=1234567890: IPEI is too long. Give at most 9 characters.");
  EXPECT_EQ(Extensions(), "");
  EXPECT_EQ(Taken(), "");
  Prepare({"CXAKI:DIR=340,IPEI=123456;"});
  EXPECT_EQ(road.Do("edit CXAKI DIR=340:IPEI=12345;"), "IPEI=12345: IPEI is too short. Give at least 6 characters.");
  EXPECT_EQ(Extensions(), "340|-|123456|-");
}

TEST_F(CXAKIRoad, AnAuthenticationParameterOfAnotherLengthIsAddedWithAWarningAndRefusedInAnEdit) {
  EXPECT_EQ(road.Do("CXAKI:DIR=340,AUTPAR=1234;"),
            "done\nAUTPAR=***: AUTPAR is too short. Give at least 48 characters.");
  EXPECT_EQ(Extensions(), "340|-|-|1234");
  EXPECT_EQ(Taken(), "340|CX");
  EXPECT_EQ(road.Do("edit CXAKI DIR=340:AUTPAR=12345;"),
            "AUTPAR=***: AUTPAR is too short. Give at least 48 characters.");
  EXPECT_EQ(Extensions(), "340|-|-|1234");
}

TEST_F(CXAKIRoad, WhatAuthenticatesATelephoneIsNotTold) {
  EXPECT_EQ(road.Do("CXAKI:DIR=340,AUTKEY=47'11;"), "AUTKEY=***: a value must not hold a quote character (')");
  EXPECT_EQ(road.Do("edit CXAKI AUTKEY=4711,AUTPAR=1234:DIR=341;"),
            "there is no record of CXAKI with AUTKEY=***,AUTPAR=***");
}

// --- CXCFI.

struct CXCFIRoad : CordlessRoad {
  std::string Boards() { return road.Rows("SELECT FPI, BPOS, LOCATION FROM CXCFI ORDER BY rowid"); }
};

TEST_F(CXCFIRoad, ABoardNeedsASystem) {
  EXPECT_EQ(road.Do("CXCFI:FPI=1,BPOS=001-0-18;"), "CXSYI is needed before CXCFI. Add the record of CXSYI first.");
  EXPECT_EQ(Boards(), "");
}

TEST_F(CXCFIRoad, ABoardIsAddedChangedAndDeleted) {
  Prepare({"CXSYI:SARI=31100411;"});
  EXPECT_EQ(road.Values("CXCFI", "BPOS"), "001-0-18 002-0-16");
  EXPECT_EQ(road.Values("CXCFI", "BPOS", {{"LOCATION", "WORKS"}}), "002-0-16");
  EXPECT_EQ(road.Do("CXCFI:FPI=1,LOCATION=WORKS,BPOS=001-0-18;"),
            "BPOS=001-0-18: this value is not possible here [002-0-16]");
  EXPECT_EQ(road.Do("CXCFI:FPI=1,LOCATION=WORKS,BPOS=002-0-16;"), "done");
  EXPECT_EQ(road.Values("CXCFI", "BPOS"), "001-0-18");
  EXPECT_EQ(road.Do("edit CXCFI FPI=1:LOCATION=HQ,BPOS=001-0-18;"), "done");
  EXPECT_EQ(Boards(), "1|001-0-18|HQ");
  EXPECT_EQ(road.Do("edit CXCFI FPI=1:LOCATION=WORKS;"),
            "BPOS=: this parameter has to be given (Position of the board)");
  EXPECT_EQ(road.Do("delete CXCFI FPI=1;"), "done");
  EXPECT_EQ(Boards(), "");
}

TEST_F(CXCFIRoad, TheNumberOfABoardIsItsOwn) {
  Prepare({"CXSYI:SARI=31100411;", "CXCFI:FPI=1,BPOS=next;"});
  EXPECT_EQ(road.Do("CXCFI:FPI=1,BPOS=next;"),
            "FPI=1: The value 1 is already in use, and the record was not written. Give another value.");
  EXPECT_EQ(road.Do("edit CXCFI FPI=1:FPI=1;"),
            "FPI=1: The value 1 is already in use, and the record was not written. Give another value.\n"
            "FPI=1: FPI could not be written. Check the value and try again.");
  EXPECT_EQ(road.Do("edit CXCFI FPI=1:FPI=7;"), "done");
  EXPECT_EQ(Boards(), "7|001-0-18|-");
}

// --- CXRFI.

struct CXRFIRoad : CordlessRoad {
  void SetUp() override {
    CordlessRoad::SetUp();
    Prepare({"CXSYI:SARI=31100411;", "CXCFI:FPI=1,BPOS=001-0-18;", "CXCFI:FPI=2,BPOS=002-0-16;"});
  }

  std::string Ports(const char* FPI) { return road.Values("CXRFI", "RPN", {{"FPI", FPI}}); }
  std::string Units() { return road.Rows("SELECT FPI, RPN FROM CXRFI ORDER BY rowid"); }
};

TEST_F(CXRFIRoad, PortsOfABoardAreTakenTogether) {
  EXPECT_EQ(Ports("1"), "1 2 3 4 5 6 7 8");
  EXPECT_EQ(road.Do("CXRFI:FPI=1,RPN=1&&3;"), "done");
  EXPECT_EQ(road.Do("CXRFI:FPI=2,RPN=1&3;"), "done");
  EXPECT_EQ(Units(), "1|1&2&3 2|1&3");
  EXPECT_EQ(UsedPositions(), "001-0-18-1 001-0-18-2 001-0-18-3 002-0-16-1 002-0-16-3");
  EXPECT_EQ(Ports("1"), "4 5 6 7 8");
  EXPECT_EQ(Ports("2"), "2 4 5 6 7 8");
  EXPECT_EQ(road.Do("CXRFI:FPI=2,RPN=1;"), "RPN=1: this value is not possible here [2, 4, 5, 6, 7, 8]");
}

TEST_F(CXRFIRoad, OnlyThePortsOfTheFirstRecordOfABoardAreLeftOut) {
  Prepare({"CXRFI:FPI=1,RPN=1&2;", "CXRFI:FPI=1,RPN=3;"});
  EXPECT_EQ(Ports("1"), "3 4 5 6 7 8");
  EXPECT_EQ(road.Do("CXRFI:FPI=1,RPN=3;"), "done");
}

TEST_F(CXRFIRoad, ABoardHasToBeKnown) {
  EXPECT_EQ(road.Do("CXRFI:FPI=9,RPN=1&2;"),
            "The record, or one that it depends on, was not found. Check that it exists, then try again.");
  EXPECT_EQ(Units(), "");
}

TEST_F(CXRFIRoad, OnePortIsChangedAndDeletedWithItsPosition) {
  Prepare({"CXRFI:FPI=1,RPN=4;"});
  EXPECT_EQ(road.Do("edit CXRFI RPN=4:RPN=5;"), "done");
  EXPECT_EQ(Units(), "1|5");
  EXPECT_EQ(UsedPositions(), "001-0-18-5");
  EXPECT_EQ(road.Do("edit CXRFI RPN=5:FPI=2,RPN=5;"),
            "FPI=2: the FPI of a record cannot be changed; add another record");
  EXPECT_EQ(road.Do("delete CXRFI RPN=5;"), "done");
  EXPECT_EQ(Units(), "");
  EXPECT_EQ(UsedPositions(), "");
}

TEST_F(CXRFIRoad, PositionsOfSeveralPortsStayUsed) {
  Prepare({"CXRFI:FPI=1,RPN=1&2;"});
  EXPECT_EQ(road.Do("edit CXRFI FPI=1:RPN=3&4;"), "done");
  EXPECT_EQ(Units(), "1|3&4");
  EXPECT_EQ(UsedPositions(), "001-0-18-1 001-0-18-2") << "neither the old nor the new ones are found";
  EXPECT_EQ(road.Do("delete CXRFI FPI=1;"), "done");
  EXPECT_EQ(UsedPositions(), "001-0-18-1 001-0-18-2");
  EXPECT_EQ(Ports("1"), "1 2 3 4 5 6 7 8");
}

TEST_F(CXRFIRoad, PortsOfABoardThatIsGoneCannotBeDeletedBeforeItIsBack) {
  Prepare({"CXRFI:FPI=1,RPN=1;", "delete CXCFI FPI=1;"});
  EXPECT_NE(road.Do("delete CXRFI FPI=1;"), "done");
  EXPECT_EQ(Units(), "1|1");
  Prepare({"CXCFI:FPI=1,BPOS=001-0-18;", "delete CXRFI FPI=1;"});
  EXPECT_EQ(UsedPositions(), "");
}

}  // namespace
}  // namespace cordboard::workbench
