// Operators as a user meets them: OPERI and OPISS on a real exchange.

#include <gmock/gmock.h>

#include "support/Road.h"

namespace cordboard::workbench {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

// An exchange with five numbers for operators.
class Operators : public testing::Test {
 protected:
  explicit Operators(const std::string& release = "R7") : road(release) {}

  void SetUp() override { ASSERT_EQ(road.Do("NANSI:NUMTYP=OI,NUMSE=900&&904;"), "done"); }

  Road road;
};

const char* const operators = "SELECT DIR, NUMTYP, EQU, TYPE, PCM, OPC FROM OPERI ORDER BY DIR";
const char* const numbersInUse = "SELECT NUMSE FROM NANSI WHERE USED = 1 ORDER BY NUMSE";
const char* const operatorNumbers = "SELECT DIR, NUMTYP FROM UsedExtOpeGrp ORDER BY DIR";
const char* const positionsInUse = "SELECT EQU FROM Equipment WHERE USED = 1 ORDER BY EQU";

// --- OPERI.

using OPERIRoad = Operators;

TEST_F(OPERIRoad, ThePositionsFollowFromTheTypeAndTheLocation) {
  EXPECT_EQ(road.Values("OPERI", "DIR"), "900 901 902 903 904");
  EXPECT_EQ(road.Values("OPERI", "TYPE"), "0 1 2 3 4 5 6");
  EXPECT_THAT(road.Values("OPERI", "EQU", {{"TYPE", "2"}}), StartsWith("001-0-10-00 001-0-10-01"));
  EXPECT_THAT(road.Values("OPERI", "EQU", {{"TYPE", "2"}}), EndsWith("002-0-10-15"));
  EXPECT_THAT(road.Values("OPERI", "EQU", {{"TYPE", "5"}}), StartsWith("001-0-11-00"));
  EXPECT_THAT(road.Values("OPERI", "EQU", {{"TYPE", "5"}}), EndsWith("002-0-11-31"));
  EXPECT_THAT(road.Values("OPERI", "EQU", {{"TYPE", "5"}, {"LOCATION", "WORKS"}}), StartsWith("002-0-11-00"));
  EXPECT_THAT(road.Values("OPERI", "EQU", {{"TYPE", "6"}}), StartsWith("001-0-10-00"));
  EXPECT_THAT(road.Values("OPERI", "EQU", {{"TYPE", "6"}}), EndsWith("002-0-11-31"));
}

TEST_F(OPERIRoad, OperatorsTakeNumbersAndPositionsInPairs) {
  EXPECT_EQ(road.Do("OPERI:DIR=900&&902,TYPE=1,EQU=next,OPC_D1=1,OPC_D4=2;"), "done");
  EXPECT_EQ(road.Rows(operators),
            "900|OI|001-0-10-00|1|-|1002 901|OI|001-0-10-01|1|-|1002 902|OI|001-0-10-02|1|-|1002");
  EXPECT_EQ(road.Rows(numbersInUse), "900 901 902");
  EXPECT_EQ(road.Rows(operatorNumbers), "900|OI 901|OI 902|OI");
  EXPECT_EQ(road.Rows("SELECT COUNT(*) FROM UsedExtensionsAndOperators"), "3");
  EXPECT_EQ(road.Rows(positionsInUse), "001-0-10-00 001-0-10-01 001-0-10-02");
  EXPECT_THAT(road.Do("OPERI:DIR=903,TYPE=1,EQU=001-0-10-00;"), HasSubstr("this value is not possible here"));
  EXPECT_THAT(road.Do("OPERI:DIR=903,TYPE=1,EQU=001-0-11-00;"), HasSubstr("this value is not possible here"));
  EXPECT_EQ(road.Rows(numbersInUse), "900 901 902");
  EXPECT_EQ(road.Lines().size(), 1U) << "of the series alone";
}

const std::string noPosition = "EQU=: this parameter has to be given (Equipment position, one for each number)";

TEST_F(OPERIRoad, Type5HasToBeGivenTimeSlots) {
  EXPECT_EQ(road.Values("OPERI", "PCM", {{"TYPE", "5"}}), "0 1 2");
  EXPECT_EQ(road.Do("OPERI:DIR=900,TYPE=5,EQU=next;"),
            "PCM=: this parameter has to be given (Time slots of the voice, for consoles of type 5)");
  EXPECT_THAT(road.Do("OPERI:DIR=900,TYPE=5,EQU=next,PCM=3;"), HasSubstr("PCM=3: this value is not possible here"));
  EXPECT_EQ(road.Do("OPERI:DIR=900,TYPE=5,EQU=next,PCM=1;"), "done");
  EXPECT_EQ(road.Do("OPERI:DIR=901,TYPE=4,EQU=next;"), "done");
  EXPECT_EQ(road.Do("edit OPERI DIR=900:TYPE=3,EQU=next;"),
            "done\nPCM=1: a check has cleared this value, since it does not go with the others");
  EXPECT_EQ(road.Rows(operators), "900|OI|001-0-11-02|3|-|- 901|OI|001-0-11-01|4|-|-");
}

// The position of the record itself is not among the free ones, so that a check of the type always clears it.
TEST_F(OPERIRoad, AnotherTypeNeedsAnotherPosition) {
  ASSERT_EQ(road.Do("OPERI:DIR=900,TYPE=1,EQU=next;"), "done");
  EXPECT_EQ(road.Do("edit OPERI DIR=900:TYPE=2;"), noPosition);
  EXPECT_EQ(road.Do("edit OPERI DIR=900:TYPE=3,EQU=next;"), "done");
  EXPECT_EQ(road.Rows(operators), "900|OI|001-0-11-00|3|-|-");
  EXPECT_EQ(road.Rows(positionsInUse), "001-0-11-00");
}

TEST_F(OPERIRoad, AnotherLocationDropsAPositionThatStandsElsewhere) {
  ASSERT_EQ(road.Do("OPERI:DIR=900,TYPE=3,EQU=next;"), "done");
  EXPECT_EQ(road.Do("edit OPERI DIR=900:LOCATION=HQ;"), "done");
  EXPECT_EQ(road.Do("edit OPERI DIR=900:LOCATION=WORKS;"), noPosition);
  EXPECT_EQ(road.Do("edit OPERI DIR=900:LOCATION=WORKS,EQU=next;"), "done");
  EXPECT_EQ(road.Rows(positionsInUse), "002-0-11-00");
}

TEST_F(OPERIRoad, AnOperatorIsGivenAnotherNumberAndDeleted) {
  ASSERT_EQ(road.Do("OPERI:DIR=900,TYPE=1,EQU=next;"), "done");
  EXPECT_EQ(road.Do("edit OPERI DIR=900:DIR=904,MODE=1;"), "done");
  EXPECT_EQ(road.Rows("SELECT DIR, MODE FROM OPERI"), "904|1");
  EXPECT_EQ(road.Rows(operatorNumbers), "904|OI");
  EXPECT_EQ(road.Rows(numbersInUse), "904");
  EXPECT_EQ(road.Do("delete OPERI DIR=904;"), "done");
  EXPECT_EQ(road.Rows(operators), "");
  EXPECT_EQ(road.Rows(numbersInUse), "");
  EXPECT_EQ(road.Rows(operatorNumbers), "");
  EXPECT_EQ(road.Rows(positionsInUse), "");
}

TEST_F(OPERIRoad, ANumberOfSixDigitsIsNotTakenInAnEdit) {
  ASSERT_EQ(road.Do("NANSI:NUMTYP=OI,NUMSE=123456;"), "done");
  ASSERT_EQ(road.Do("OPERI:DIR=900,TYPE=1,EQU=next;"), "done");
  EXPECT_EQ(road.Do("edit OPERI DIR=900:MODE=1,DIR=123456;"),
            "DIR=123456: The value of DIR is not valid: it is too long, or not of the right kind. Give another value.");
  EXPECT_EQ(road.Rows("SELECT DIR, MODE FROM OPERI"), "900|-");
  EXPECT_EQ(road.Rows(numbersInUse), "900");
}

TEST_F(OPERIRoad, TwoHundredAndFiftyOperatorsAreTheLimit) {
  road.Rows(
      "WITH RECURSIVE operator(DIR) AS (SELECT 10000 UNION ALL SELECT DIR + 1 FROM operator LIMIT 249) "
      "INSERT INTO OPERI (CMDID, NUMTYP, DIR) SELECT DIR, 'OI', CAST(DIR AS TEXT) FROM operator");
  EXPECT_EQ(road.Do("OPERI:DIR=900&901,TYPE=1,EQU=next;"),
            "The limit of 250 records for the system is reached. Delete one before you add another.");
  EXPECT_EQ(road.Rows(numbersInUse), "");
  EXPECT_EQ(road.Rows(positionsInUse), "");
  EXPECT_EQ(road.Do("OPERI:DIR=900,TYPE=1,EQU=next;"), "done");
}

// --- OPISS.

class OPISSRoad : public Operators {
 protected:
  explicit OPISSRoad(const std::string& release = "R7") : Operators(release) {}

  void SetUp() override {
    Operators::SetUp();
    for (const char* line : {"OPERI:DIR=900&901,TYPE=3,EQU=next;", "OPERI:DIR=902,TYPE=1,EQU=next;"})
      ASSERT_EQ(road.Do(line), "done") << line;
  }
};

const char* const services = "SELECT DIR, NUMTYP, ANSW, MODE, LANG FROM OPISS ORDER BY DIR";

TEST_F(OPISSRoad, OperatorsAreGivenARecordChangedAndDeleted) {
  EXPECT_EQ(road.Values("OPISS", "DIR"), "900 901 902");
  EXPECT_EQ(road.Values("OPISS", "LANG"), "0 1 2 3 4 5");
  EXPECT_EQ(road.Do("OPISS:DIR=900&902,ANSW=1,MODE=0,LANG=2;"), "done");
  EXPECT_EQ(road.Values("OPISS", "DIR"), "901");
  EXPECT_EQ(road.Rows(services), "900||1|0|2 902||1|0|2");
  EXPECT_EQ(road.Do("edit OPISS DIR=902:DIR=901,LANG=;"), "done");
  EXPECT_EQ(road.Rows(services), "900||1|0|2 901||1|0|-");
  EXPECT_EQ(road.Do("delete OPISS DIR=900;"), "done");
  EXPECT_EQ(road.Rows(services), "901||1|0|-");
  EXPECT_EQ(road.Lines().size(), 1U) << "of the series alone";
}

struct OPISSRoadInR8 : OPISSRoad {
  OPISSRoadInR8() : OPISSRoad("R8") {}
};

TEST_F(OPISSRoadInR8, OneOperatorOfAnotherTypeCutsTheLanguages) {
  EXPECT_EQ(road.Values("OPISS", "LANG", {{"DIR", "900&901"}}), "0 1 2 3 4 5 6 7 8 9 E F");
  EXPECT_EQ(road.Values("OPISS", "LANG", {{"DIR", "902"}}), "E");
  EXPECT_EQ(road.Values("OPISS", "LANG", {{"DIR", "902&900"}}), "E");
  EXPECT_THAT(road.Do("OPISS:DIR=900&902,LANG=1;"), HasSubstr("LANG=1: this value is not possible here"));
  EXPECT_EQ(road.Do("OPISS:DIR=900&901,LANG=1;"), "done");
  EXPECT_EQ(road.Do("OPISS:DIR=902,LANG=E;"), "done");
  EXPECT_EQ(road.Rows(services), "900||-|-|1 901||-|-|1 902||-|-|E");
}

}  // namespace
}  // namespace cordboard::workbench
