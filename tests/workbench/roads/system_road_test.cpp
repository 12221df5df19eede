// Customers and system data as a user meets them: CDCOI, SYDAS, SYTDS, SYIDI, ASPAC, GESPI and TCMAS on a real
// exchange.

#include <gmock/gmock.h>

#include "support/Road.h"

namespace cordboard::workbench {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

// --- CDCOI.

const char* const diversions = "SELECT INTDIV, PRIDIV, PUBDIV, CUST, DESCRIPTION FROM CDCOI ORDER BY rowid";
const char* const customerExists =
    "A record for this CUSTOMER exists already. Edit that record, or choose another CUSTOMER.";

TEST(CDCOIRoad, ACustomerThatHasARecordLeavesTheList) {
  for (const char* release : {"R6", "R7"}) {
    Road road(release);
    EXPECT_EQ(road.Values("CDCOI", "CUST"), "1 2");
    EXPECT_EQ(road.Do("CDCOI:CUST=1,INTDIV=909,DESCRIPTION=\"Head office, day\";"), "done");
    EXPECT_EQ(road.Values("CDCOI", "CUST"), "2");
    EXPECT_EQ(road.Do("CDCOI:CUST=1,INTDIV=900;"), "CUST=1: this value is not possible here [2]");
    EXPECT_EQ(road.Rows(diversions), "909|-|-|1|Head office, day");
  }
}

TEST(CDCOIRoad, OnlyR6TakesASecondRecordWithoutACustomer) {
  for (const char* release : {"R6/1", "R7", "R8"}) {
    Road road(release);
    EXPECT_EQ(road.Do("CDCOI:INTDIV=9;"), "done");
    EXPECT_EQ(road.Do("CDCOI:INTDIV=8;"), customerExists);
    EXPECT_EQ(road.Rows(diversions), "9|-|-|-|-");
  }
  Road road("R6");
  EXPECT_EQ(road.Do("CDCOI:INTDIV=9;"), "done");
  EXPECT_EQ(road.Do("CDCOI:INTDIV=8;"), "done");
  EXPECT_EQ(road.Rows(diversions), "9|-|-|-|- 8|-|-|-|-");
}

TEST(CDCOIRoad, TheDigitBIsCheckedAsItIsTyped) {
  Road road;
  EXPECT_EQ(
      road.Do("CDCOI:INTDIV=A12;"),
      "INTDIV=A12: INTDIV begins with A or B and does not end with B. End it with B, or begin with another digit.");
  EXPECT_EQ(road.Rows(diversions), "");
  EXPECT_EQ(road.Do("CDCOI:INTDIV=A12B,PRIDIV=B,PUBDIV=12B3;"),
            "done\nPUBDIV=12B3: PUBDIV has a B before its last place. Use B at the end only.");
  EXPECT_EQ(road.Rows(diversions), "A12B|B|12B3|-|-");
}

TEST(CDCOIRoad, ARecordIsChangedAndDeleted) {
  Road road;
  ASSERT_EQ(road.Do("CDCOI:CUST=1,INTDIV=909,PRIDIV=909;"), "done");
  EXPECT_EQ(road.Do("edit CDCOI CUST=1:INTDIV=900,PRIDIV=;"), "done");
  EXPECT_EQ(road.Rows(diversions), "900|-|-|1|-");
  EXPECT_EQ(road.Do("edit CDCOI CUST=1:DESCRIPTION=it's;"),
            "DESCRIPTION=it's: a value must not hold a quote character (')");
  EXPECT_EQ(road.Do("delete CDCOI CUST=1;"), "done");
  EXPECT_EQ(road.Values("CDCOI", "CUST"), "1 2");
}

// --- SYDAS.

const char* const systemData = "SELECT NTC, PGJOB, PGSTA, DIVPRI, TBA, CNFREL FROM SYDAS ORDER BY rowid";

TEST(SYDASRoad, ASecondAddAlwaysFailsAndPointsToTheEdit) {
  Road road;
  ASSERT_EQ(road.Do("SYDAS:NTC=1,PGJOB=3,CNFREL=1;"), "done");
  EXPECT_EQ(road.Do("SYDAS:NTC=2;"),
            "the rules of SYDAS found fewer or more values than they need; check the values and the records that they "
            "refer to\n"
            "there is one record of SYDAS, and it stands already; change it with: edit SYDAS:NAME=value;");
  EXPECT_EQ(road.Rows(systemData), "1|3|-|-|-|1");
  EXPECT_EQ(road.Do("edit SYDAS:NTC=2,PGJOB=,CNFREL=0;"), "done");
  EXPECT_EQ(road.Rows(systemData), "2|-|-|-|-|0");
  EXPECT_EQ(road.Do("delete SYDAS;"), "done");
  EXPECT_EQ(road.Do("SYDAS:NTC=5;"), "done");
  EXPECT_EQ(road.Rows(systemData), "5|-|-|-|-|-");
}

TEST(SYDASRoad, FixedValuesAreOfferedAndAskedFor) {
  Road road;
  EXPECT_EQ(road.Values("SYDAS", "PGJOB"), "0 1 2 3");
  EXPECT_EQ(road.Values("SYDAS", "NTC"), "no list");
  EXPECT_EQ(road.Do("SYDAS:DIVPRI=2;"), "DIVPRI=2: this value is not possible here [0, 1]");
  EXPECT_EQ(road.Do("SYDAS:DIVPRIO=1;"), "DIVPRIO=: there is no parameter DIVPRIO in SYDAS. Did you mean DIVPRI?");
  EXPECT_EQ(road.Do("edit SYDAS:NTC=1;"), "there is no record of SYDAS");
}

// --- SYTDS.

const char* const systemTimes = "SELECT CDNAL, CDNAS, OPTL, PGIV, PGTNA, PGAL FROM SYTDS ORDER BY rowid";

TEST(SYTDSRoad, TheListsFollowTheFormAsItIsNow) {
  Road road;
  const std::string all = "1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 19 20 21 22 23 24 25 26 27 28 29 30";
  EXPECT_EQ(road.Values("SYTDS", "CDNAL"), all);
  EXPECT_EQ(road.Values("SYTDS", "CDNAS"), all);
  EXPECT_EQ(road.Values("SYTDS", "CDNAS", {{"CDNAL", "10"}}), "1 2 3 4 5 6 7 8 9");
  EXPECT_EQ(road.Values("SYTDS", "CDNAL", {{"CDNAS", "27"}}), "28 29 30");
  EXPECT_EQ(road.Values("SYTDS", "CDNAS", {{"CDNAL", "1"}}), "");
  EXPECT_EQ(road.Do("SYTDS:CDNAL=4,CDNAS=4;"), "CDNAS=4: this value is not possible here [1, 2, 3]");
  EXPECT_EQ(road.Do("SYTDS:CDNAL=1,CDNAS=1;"),
            "CDNAS=1: this value is not possible here [no value at present; leave it out]");
  EXPECT_EQ(road.Do("SYTDS:CDNAL=31;"),
            "CDNAL=31: this value is not possible here [1, 2, 3, 4, 5, 6, 7, 8, 9, 10, ... (30 in all)]");
  EXPECT_EQ(road.Rows(systemTimes), "");
}

TEST(SYTDSRoad, ASecondAddKeepsWhatIsEmptyWhereAnEditClearsIt) {
  Road road;
  ASSERT_EQ(road.Do("SYTDS:CDNAL=20,CDNAS=10,PGIV=5,PGAL=60;"), "done");
  EXPECT_EQ(road.Rows(systemTimes), "20|10|-|5|-|60");
  EXPECT_EQ(road.Do("SYTDS:PGIV=,PGAL=90,OPTL=30;"), "done");
  EXPECT_EQ(road.Rows(systemTimes), "20|10|30|5|-|90");
  EXPECT_EQ(road.Do("edit SYTDS:PGIV=;"), "done");
  EXPECT_EQ(road.Rows(systemTimes), "20|10|30|-|-|90");
}

TEST(SYTDSRoad, ASecondAddIsCheckedTogetherWithTheRecordThatStands) {
  Road road;
  ASSERT_EQ(road.Do("SYTDS:CDNAL=5,CDNAS=2;"), "done");
  EXPECT_EQ(road.Values("SYTDS", "CDNAS"), "1 2 3 4");
  EXPECT_EQ(road.Do("SYTDS:CDNAS=9;"), "CDNAS=9: this value is not possible here [1, 2, 3, 4]");
  EXPECT_EQ(road.Do("SYTDS:CDNAS=4;"), "done");
  EXPECT_EQ(road.Rows("SELECT COUNT(*), MAX(CDNAS) FROM SYTDS"), "1|4");
}

TEST(SYTDSRoad, AnEditChangesBothTimesInTheOrderThatKeepsThemApart) {
  Road road;
  ASSERT_EQ(road.Do("SYTDS:CDNAL=20,CDNAS=10;"), "done");
  EXPECT_EQ(road.Do("edit SYTDS:CDNAL=5,CDNAS=3;"),
            "CDNAL=5: this value is not possible here [11, 12, 13, 14, 15, 16, 17, 18, 19, 20, ... (20 in all)]");
  EXPECT_EQ(road.Do("edit SYTDS:CDNAS=3,CDNAL=5;"), "done");
  EXPECT_EQ(road.Rows(systemTimes), "5|3|-|-|-|-");
  EXPECT_EQ(road.Do("edit SYTDS:CDNAS=;"), "done");
  EXPECT_EQ(road.Rows(systemTimes), "5|-|-|-|-|-");
  EXPECT_EQ(road.Do("delete SYTDS;"), "done");
  EXPECT_EQ(road.Rows(systemTimes), "");
}

// --- SYIDI.

const char* const identity = "SELECT EXGID, NUMTYP FROM SYIDI ORDER BY rowid";
const char* const numbers = "SELECT NUMSE, USED FROM NANSI WHERE NUMTYP = 'EN' ORDER BY NUMSE";

TEST(SYIDIRoad, TheNumberIsMarkedAsItIsTakenChangedAndFreed) {
  Road road;
  EXPECT_EQ(road.Do("SYIDI:EXGID=7700;"), "EXGID=7700: this value is not possible here [no value at present]");
  ASSERT_EQ(road.Do("NANSI:NUMTYP=EN,NUMSE=7700&&7702;"), "done");
  EXPECT_EQ(road.Values("SYIDI", "EXGID"), "7700 7701 7702");

  EXPECT_EQ(road.Do("SYIDI:EXGID=7700;"), "done");
  EXPECT_EQ(road.Rows(identity), "7700|EN");
  EXPECT_EQ(road.Rows(numbers), "7700|True 7701|False 7702|False");
  EXPECT_EQ(road.Values("SYIDI", "EXGID"), "7701 7702");

  EXPECT_EQ(road.Do("edit SYIDI:EXGID=7701;"), "done");
  EXPECT_EQ(road.Rows(numbers), "7700|False 7701|True 7702|False");

  // A second add changes the record that stands.
  EXPECT_EQ(road.Do("SYIDI:EXGID=7702;"), "done");
  EXPECT_EQ(road.Rows(identity), "7702|EN");
  EXPECT_EQ(road.Rows(numbers), "7700|False 7701|False 7702|True");

  EXPECT_EQ(road.Do("edit SYIDI:EXGID=;"),
            "EXGID=: this parameter has to be given (Number of the exchange, of type EN)");
  EXPECT_EQ(road.Do("delete SYIDI;"), "done");
  EXPECT_EQ(road.Rows(identity), "");
  EXPECT_EQ(road.Rows(numbers), "7700|False 7701|False 7702|False");
}

// --- ASPAC.

const char* const exchangeParameters = "SELECT PARNUM, PARVAL FROM ASPAC ORDER BY rowid";

TEST(ASPACRoad, OnlyParametersInUseThatHaveNoRecordAreOffered) {
  Road road;
  EXPECT_EQ(road.Values("ASPAC", "PARNUM"), "1 2 7 12 15 28 41 102");
  ASSERT_EQ(road.Do("ASPAC:PARNUM=7,PARVAL=1;"), "done");
  EXPECT_EQ(road.Values("ASPAC", "PARNUM"), "1 2 12 15 28 41 102");
  EXPECT_EQ(road.Do("ASPAC:PARNUM=22,PARVAL=1;"),
            "PARNUM=22: this value is not possible here [1, 2, 12, 15, 28, 41, 102]");
  EXPECT_EQ(road.Do("ASPAC:PARNUM=1;"), "PARVAL=: this parameter has to be given (Its value)");
}

TEST(ASPACRoad, AValueOnABoundPassesAndOneBeyondIsRefused) {
  Road road;
  EXPECT_EQ(road.Do("ASPAC:PARNUM=12,PARVAL=4;"),
            "PARVAL=4: PARVAL is outside its limits. Give a value from 5 to 120.");
  EXPECT_EQ(road.Do("ASPAC:PARNUM=12,PARVAL=121;"),
            "PARVAL=121: PARVAL is outside its limits. Give a value from 5 to 120.");
  EXPECT_EQ(road.Do("ASPAC:PARNUM=12,PARVAL=5;"), "done");
  EXPECT_EQ(road.Do("ASPAC:PARNUM=28,PARVAL=-10;"), "done");
  EXPECT_EQ(road.Do("edit ASPAC PARNUM=12:PARVAL=120;"), "done");
  EXPECT_EQ(road.Do("edit ASPAC PARNUM=12:PARVAL=121;"),
            "PARVAL=121: PARVAL is outside its limits. Give a value from 5 to 120.");
  EXPECT_EQ(road.Rows(exchangeParameters), "12|120 28|-10");
}

TEST(ASPACRoad, LinesComeInTheOrderOfTheNumbersAsTexts) {
  Road road;
  EXPECT_THAT(road.Lines(), ElementsAre());
  ASSERT_EQ(road.Do("ASPAC:PARNUM=2,PARVAL=8;"), "done");
  ASSERT_EQ(road.Do("ASPAC:PARNUM=12,PARVAL=45;"), "done");
  ASSERT_EQ(road.Do("ASPAC:PARNUM=102,PARVAL=1500;"), "done");
  EXPECT_THAT(road.Lines(),
              ElementsAre("ASPAC:PARNUM=102,PARVAL=1500;", "ASPAC:PARNUM=12,PARVAL=45;", "ASPAC:PARNUM=2,PARVAL=8;"));
  EXPECT_EQ(road.Do("delete ASPAC PARNUM=12;"), "done");
  EXPECT_EQ(road.Rows(exchangeParameters), "2|8 102|1500");
}

// --- GESPI.

const char* const profiles = "SELECT CSP, CDIV, NPRES, ROC, SERV, TRAF, DESCRIPTION FROM GESPI ORDER BY rowid";

TEST(GESPIRoad, Profile0ComesBeforeAnyOther) {
  Road road;
  EXPECT_EQ(road.Values("GESPI", "CSP"), "0");
  EXPECT_EQ(road.Do("GESPI:CSP=1;"), "CSP=1: this value is not possible here [0]");
  ASSERT_EQ(road.Do("GESPI:CSP=0;"), "done");
  EXPECT_THAT(road.Values("GESPI", "CSP"), testing::StartsWith("1 2 3 "));
  EXPECT_THAT(road.Values("GESPI", "CSP"), testing::EndsWith(" 255 256"));
  EXPECT_EQ(road.Do("GESPI:CSP=256;"), "done");
  EXPECT_THAT(road.Values("GESPI", "CSP"), testing::EndsWith(" 254 255"));
  EXPECT_THAT(road.Do("GESPI:CSP=0;"), HasSubstr("CSP=0: this value is not possible here"));
  EXPECT_THAT(road.Do("GESPI:CSP=257;"), HasSubstr("CSP=257: this value is not possible here"));
}

TEST(GESPIRoad, DigitsFoldIntoTheirStrings) {
  Road road;
  EXPECT_EQ(road.Do("GESPI:CSP=0,CDIV_D2D3=02,CDIV_D8=1,NPRES_D2=1,ROC_D5D6=10,TRAF_D1=3,DESCRIPTION=Plain;"), "done");
  EXPECT_EQ(road.Do("GESPI:CSP=1,SERV_D1=1,SERV_D2D3_SUB1=03,SERV_D2D3_SUB2=08,SERV_D4D5_SUB2=10,"
                    "SERV_D9_SUB1=3,SERV_D9_SUB2=4,SERV_D12=1;"),
            "done");
  EXPECT_EQ(road.Do("GESPI:CSP=2,TRAF=310;"), "done");
  EXPECT_EQ(road.Rows(profiles), "0|00200001|010|000010|-|300|Plain 1|-|-|-|111100007001|-|- 2|-|-|-|-|310|-");
}

TEST(GESPIRoad, EveryDigitHasItsList) {
  Road road;
  for (const ParameterDefinition& parameter : FindForm("GESPI")->parameters) {
    if (!parameter.list || parameter.name == "CSP") continue;
    EXPECT_THAT(road.Values("GESPI", parameter.name), testing::StartsWith("0")) << parameter.name;
    EXPECT_THAT(road.Do("GESPI:CSP=0," + parameter.name + "=99;"),
                HasSubstr(parameter.name + "=99: this value is not possible here"));
  }
}

TEST(GESPIRoad, AnEditChangesOneDigitAndKeepsTheOthers) {
  Road road;
  ASSERT_EQ(road.Do("GESPI:CSP=0,SERV_D1=1,SERV_D2D3_SUB1=03,SERV_D2D3_SUB2=08,SERV_D6=1;"), "done");
  EXPECT_EQ(road.Do("edit GESPI CSP=0:SERV_D6=0,SERV_D7=2;"), "done");
  EXPECT_EQ(road.Rows(profiles), "0|-|-|-|111000200000|-|-");
  EXPECT_EQ(
      road.Do("edit GESPI CSP=0:SERV_D2D3_SUB1=01;"),
      "SERV_D2D3_SUB2=: this parameter has to be given as well: it and the one that is changed add up to 11 in SERV");
  EXPECT_EQ(road.Do("edit GESPI CSP=0:SERV_D2D3_SUB1=01,SERV_D2D3_SUB2=04;"), "done");
  EXPECT_EQ(road.Do("edit GESPI CSP=0:SERV_D9_SUB1=2;"), "done");  // nothing stands there to be lost
  EXPECT_EQ(road.Rows(profiles), "0|-|-|-|105000202000|-|-");
  EXPECT_EQ(road.Do("edit GESPI CSP=0:SERV=,DESCRIPTION=Bare;"), "done");
  EXPECT_EQ(road.Rows(profiles), "0|-|-|-|-|-|Bare");
  EXPECT_EQ(road.Do("delete GESPI CSP=0;"), "done");
  EXPECT_EQ(road.Values("GESPI", "CSP"), "0");
}

// --- TCMAS.

TEST(TCMASRoad, AValueIsAddedChangedAndDeleted) {
  Road road;
  EXPECT_EQ(road.Values("TCMAS", "CON"), "0 1 2 3");
  EXPECT_EQ(road.Do("TCMAS:CON=4;"), "CON=4: this value is not possible here [0, 1, 2, 3]");
  EXPECT_EQ(road.Do("TCMAS:;"), "CON=: this parameter has to be given (Connections that are measured)");
  EXPECT_EQ(road.Do("TCMAS:CON=2;"), "done");
  EXPECT_EQ(road.Do("edit TCMAS:CON=3;"), "done");
  EXPECT_EQ(road.Rows("SELECT CON FROM TCMAS"), "3");
  EXPECT_EQ(road.Do("edit TCMAS:;"), "nothing is changed: give the new values after the colon");
  EXPECT_EQ(road.Do("delete TCMAS CON=3;"), "done");
  EXPECT_EQ(road.Rows("SELECT CON FROM TCMAS"), "");
}

}  // namespace
}  // namespace cordboard::workbench
