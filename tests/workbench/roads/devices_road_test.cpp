// External devices and their files as a user meets them, on a real exchange.

#include <gtest/gtest.h>

#include "support/Road.h"

namespace cordboard::workbench {
namespace {

// --- EDEQI.

const char* const devices = "SELECT EQU, DEV, PRIO FROM EDEQI ORDER BY rowid";

TEST(EDEQIRoad, APortTakesSeveralDevicesOfOtherDigitsAndPriorities) {
  Road road;
  EXPECT_EQ(road.Values("EDEQI", "EQU"), "001-0-22-00 001-0-22-01 002-0-18-00 002-0-18-01");
  EXPECT_EQ(road.Values("EDEQI", "DEV_D1D2"), "10 20 30 40");
  EXPECT_EQ(road.Do("EDEQI:EQU=001-0-22-00,DEV_D1D2=10,DEV_D3=1,PRIO=0;"), "done");
  EXPECT_EQ(road.Values("EDEQI", "EQU"), "001-0-22-00 001-0-22-01 002-0-18-00 002-0-18-01") << "the port is shared";
  EXPECT_EQ(road.Values("EDEQI", "DEV_D3", {{"EQU", "001-0-22-00"}}), "0 2 3 4 5 6 7 8 9");
  EXPECT_EQ(road.Values("EDEQI", "PRIO", {{"EQU", "001-0-22-00"}}), "1 2 3 4");
  EXPECT_EQ(road.Values("EDEQI", "DEV_D3", {{"EQU", "001-0-22-01"}}), "0 1 2 3 4 5 6 7 8 9");
  EXPECT_EQ(road.Do("EDEQI:EQU=001-0-22-00,DEV_D1D2=20,DEV_D3=1;"),
            "DEV_D3=1: this value is not possible here [0, 2, 3, 4, 5, 6, 7, 8, 9]");
  EXPECT_EQ(road.Do("EDEQI:EQU=001-0-22-00,DEV_D1D2=20,DEV_D3=2,PRIO=1;"), "done");
  EXPECT_EQ(road.Values("EDEQI", "DEV_D3", {{"EQU", "001-0-22-00"}}), "0 3 4 5 6 7 8 9");
  EXPECT_EQ(road.Values("EDEQI", "PRIO", {{"EQU", "001-0-22-00"}}), "2 3 4");
  EXPECT_EQ(road.Rows(devices), "001-0-22-00|101|0 001-0-22-00|202|1");
}

TEST(EDEQIRoad, ADeviceMovesToAnotherPortWithWhatIsFreeThere) {
  Road road;
  ASSERT_EQ(road.Do("EDEQI:EQU=001-0-22-00,DEV_D1D2=10,DEV_D3=1,PRIO=0;"), "done");
  ASSERT_EQ(road.Do("EDEQI:EQU=001-0-22-01,DEV_D1D2=20,DEV_D3=1,PRIO=0;"), "done");
  EXPECT_EQ(road.Do("edit EDEQI DEV=101:EQU=002-0-18-01;"), "done");
  EXPECT_EQ(road.Rows(devices), "002-0-18-01|101|0 001-0-22-01|201|0");
  EXPECT_EQ(road.Do("edit EDEQI DEV=101:PRIO=;"), "done");
  EXPECT_EQ(road.Do("delete EDEQI DEV=201;"), "done");
  EXPECT_EQ(road.Rows(devices), "002-0-18-01|101|-");
}

TEST(EDEQIRoad, APortLosesADigitAndAPriorityThatAreTakenThere) {
  Road road;
  ASSERT_EQ(road.Do("EDEQI:EQU=001-0-22-00,DEV_D1D2=10,DEV_D3=1,PRIO=0;"), "done");
  ASSERT_EQ(road.Do("EDEQI:EQU=001-0-22-01,DEV_D1D2=20,DEV_D3=1,PRIO=0;"), "done");
  EXPECT_EQ(road.Do("edit EDEQI DEV=101:EQU=001-0-22-01;"),
            "DEV_D3=: this parameter has to be given (Digit of the device, free on the port)");
  EXPECT_EQ(road.Do("edit EDEQI DEV=101:EQU=001-0-22-01,DEV_D3=2;"),
            "done\nPRIO=0: a check has cleared this value, since it does not go with the others");
  EXPECT_EQ(road.Rows(devices), "001-0-22-01|102|- 001-0-22-01|201|0");
}

// --- EDICC.

struct DevicesRoad : testing::Test {
  Road road;

  void SetUp() override {
    ASSERT_EQ(road.Do("EDEQI:EQU=001-0-22-00,DEV_D1D2=10,DEV_D3=1,PRIO=0;"), "done");
    ASSERT_EQ(road.Do("EDEQI:EQU=001-0-22-01,DEV_D1D2=20,DEV_D3=2,PRIO=0;"), "done");
  }
};

TEST_F(DevicesRoad, ADeviceHasOneRecordOfSettings) {
  const char* const settings = "SELECT DEV, BAUDR, WORDL, STPBIT, PARITY, ELLEV, PROC FROM EDICC ORDER BY rowid";
  EXPECT_EQ(road.Values("EDICC", "DEV"), "101 202");
  EXPECT_EQ(road.Values("EDICC", "BAUDR"), "300 1200 2400 4800 9600 19200");
  EXPECT_EQ(road.Do("EDICC:DEV=202,BAUDR=9600,WORDL=8,STPBIT=1,PARITY=0,ELLEV=1,PROC=2;"), "done");
  EXPECT_EQ(road.Values("EDICC", "DEV"), "101");
  EXPECT_EQ(road.Do("EDICC:DEV=202,BAUDR=300;"), "DEV=202: this value is not possible here [101]");
  EXPECT_EQ(road.Do("edit EDICC DEV=202:BAUDR=2400,PROC=;"), "done");
  EXPECT_EQ(road.Rows(settings), "202|2400|8|1|0|1|-");
  EXPECT_EQ(road.Do("delete EDICC DEV=202;"), "done");
  EXPECT_EQ(road.Rows(settings), "");
}

TEST_F(DevicesRoad, APortThatEndsIn0HasNoChoiceOfLevels) {
  EXPECT_EQ(road.Values("EDICC", "ELLEV", {{"DEV", "101"}}), "");
  EXPECT_EQ(road.Values("EDICC", "ELLEV", {{"DEV", "202"}}), "0 1");
  EXPECT_EQ(road.Values("EDICC", "ELLEV"), "0 1");
  EXPECT_EQ(road.Do("EDICC:DEV=101,BAUDR=300,ELLEV=0;"),
            "ELLEV=0: this value is not possible here [no value at present; leave it out]");
  EXPECT_EQ(road.Do("EDICC:DEV=101,BAUDR=300;"), "done");
}

TEST_F(DevicesRoad, AnotherDeviceLosesTheLevel) {
  ASSERT_EQ(road.Do("EDICC:DEV=202,BAUDR=9600,ELLEV=1;"), "done");
  EXPECT_EQ(road.Do("edit EDICC DEV=202:DEV=101;"),
            "done\nELLEV=1: a check has cleared this value, since it does not go with the others");
  EXPECT_EQ(road.Rows("SELECT DEV, BAUDR, ELLEV FROM EDICC"), "101|9600|-");
}

// --- EDFII.

const char* const files = "SELECT FILE FROM EDFII ORDER BY rowid";
const char* const usedFiles = "SELECT FILE FROM USEDFILES ORDER BY rowid";

TEST(EDFIIRoad, AFileIsInUseWhileItHasARecord) {
  Road road;
  EXPECT_EQ(road.Do("EDFII:FILE=ALARMS;"), "done");
  EXPECT_EQ(road.Do("EDFII:FILE=TRAFFIC;"), "done");
  EXPECT_EQ(road.Do("EDFII:FILE=ALARMS;"), "FILE=ALARMS: there is a record with this value already; give another one");
  EXPECT_EQ(road.Rows("SELECT FILE, NUMTYP FROM EDFII"), "ALARMS| TRAFFIC|");
  EXPECT_EQ(road.Rows(usedFiles), "ALARMS TRAFFIC");
  EXPECT_EQ(road.Do("delete EDFII FILE=ALARMS;"), "done");
  EXPECT_EQ(road.Rows(files), "TRAFFIC");
  EXPECT_EQ(road.Rows(usedFiles), "TRAFFIC");
}

TEST(EDFIIRoad, AnEditOfTheFileChangesTheFilesInUseAlone) {
  Road road;
  ASSERT_EQ(road.Do("EDFII:FILE=ALARMS;"), "done");
  EXPECT_EQ(road.Do("edit EDFII FILE=ALARMS:FILE=FAULTS;"), "done");
  EXPECT_EQ(road.Rows(files), "ALARMS");
  EXPECT_EQ(road.Rows(usedFiles), "FAULTS");
  EXPECT_EQ(road.Do("delete EDFII FILE=ALARMS;"), "done");
  EXPECT_EQ(road.Rows(files), "");
  EXPECT_EQ(road.Rows(usedFiles), "FAULTS") << "the old name is not among them";
}

// --- EDDFI.

TEST_F(DevicesRoad, AllDevicesShareTheFilesOfTheFirst) {
  const char* const assigned = "SELECT DEV, FILE FROM EDDFI ORDER BY rowid";
  ASSERT_EQ(road.Do("EDFII:FILE=ALARMS;"), "done");
  ASSERT_EQ(road.Do("EDFII:FILE=TRAFFIC;"), "done");
  EXPECT_EQ(road.Values("EDDFI", "DEV"), "101 202");
  EXPECT_EQ(road.Values("EDDFI", "FILE"), "ALARMS TRAFFIC");
  EXPECT_EQ(road.Do("EDDFI:DEV=101,FILE=TRAFFIC;"), "done");
  EXPECT_EQ(road.Values("EDDFI", "DEV"), "202");
  EXPECT_EQ(road.Values("EDDFI", "FILE"), "TRAFFIC");
  EXPECT_EQ(road.Do("EDDFI:DEV=202,FILE=ALARMS;"), "FILE=ALARMS: this value is not possible here [TRAFFIC]");
  EXPECT_EQ(road.Do("EDDFI:DEV=202,FILE=TRAFFIC;"), "done");
  EXPECT_EQ(road.Rows(assigned), "101|TRAFFIC 202|TRAFFIC");
  EXPECT_EQ(road.Do("edit EDDFI DEV=202:FILE=ALARMS;"), "FILE=ALARMS: this value is not possible here [TRAFFIC]");
  EXPECT_EQ(road.Do("delete EDDFI DEV=202;"), "done");
  EXPECT_EQ(road.Do("delete EDDFI DEV=101;"), "done");
  EXPECT_EQ(road.Values("EDDFI", "FILE"), "ALARMS TRAFFIC");
}

}  // namespace
}  // namespace cordboard::workbench
