// Logging into files as a user meets it, on a real exchange.

#include <gtest/gtest.h>

#include "support/Road.h"

namespace cordboard::workbench {
namespace {

// Two devices that share the file CALLS; ALARMS is a file that no device has.
struct LoggingRoad : testing::Test {
  Road road;

  void SetUp() override {
    for (const char* line :
         {"EDEQI:EQU=001-0-22-00,DEV_D1D2=10,DEV_D3=1;", "EDEQI:EQU=001-0-22-01,DEV_D1D2=40,DEV_D3=1;",
          "EDFII:FILE=CALLS;", "EDFII:FILE=ALARMS;", "EDDFI:DEV=101,FILE=CALLS;", "EDDFI:DEV=401,FILE=CALLS;"})
      ASSERT_EQ(road.Do(line), "done") << line;
  }

  void DefineFormats() {
    road.Rows("INSERT INTO CLFOC (CmdId, FORM, DESCRIPTION) VALUES (9002, '2', 'Short'), (9005, '5', 'Long')");
  }
  // A second file that devices have, as an earlier choice may have left it.
  void GiveAlarmsToADevice() { road.Rows("INSERT INTO EDDFI (CmdId, DEV, FILE) VALUES (9000, '301', 'ALARMS')"); }
};

// --- CLDFI.

const char* const files = "SELECT FILE, PATH, PRIO, NUMTYP FROM CLDFI ORDER BY rowid";
const char* const usedFiles = "SELECT FILE FROM USEDFILES ORDER BY rowid";

TEST_F(LoggingRoad, AFileThatADeviceHasIsNamedAndDeleted) {
  EXPECT_EQ(road.Values("CLDFI", "FILE"), "CALLS CALLS") << "once for each device";
  EXPECT_EQ(road.Values("CLDFI", "PRIO"), "1 2");
  EXPECT_EQ(road.Do("CLDFI:FILE=ALARMS;"), "FILE=ALARMS: this value is not possible here [CALLS, CALLS]");
  EXPECT_EQ(road.Do("CLDFI:FILE=CALLS,PATH=\"/logs/calls\",PRIO=1;"), "done");
  EXPECT_EQ(road.Do("CLDFI:FILE=CALLS;"), "FILE=CALLS: there is a record with this value already; give another one");
  EXPECT_EQ(road.Do("edit CLDFI FILE=CALLS:PATH=,PRIO=2;"), "done");
  EXPECT_EQ(road.Rows(files), "CALLS|-|2|");
  EXPECT_EQ(road.Rows(usedFiles), "CALLS ALARMS CALLS");
  EXPECT_EQ(road.Do("delete CLDFI FILE=CALLS;"), "done");
  EXPECT_EQ(road.Rows(files), "");
  EXPECT_EQ(road.Rows(usedFiles), "ALARMS") << "the name of EDFII goes with it";
}

TEST_F(LoggingRoad, AnEditOfTheFileChangesTheFilesInUseAlone) {
  GiveAlarmsToADevice();
  ASSERT_EQ(road.Do("CLDFI:FILE=CALLS;"), "done");
  EXPECT_EQ(road.Do("edit CLDFI FILE=CALLS:FILE=ALARMS;"), "done");
  EXPECT_EQ(road.Rows(files), "CALLS|-|-|");
  EXPECT_EQ(road.Rows(usedFiles), "ALARMS ALARMS ALARMS");
}

// --- CLOHI.

const char* const heads = "SELECT FILE, FORM, DMPSIZ, LOGABN, HRTBT FROM CLOHI ORDER BY rowid";

TEST_F(LoggingRoad, AFileIsBoundToAFormatOnce) {
  DefineFormats();
  EXPECT_EQ(road.Values("CLOHI", "FILE"), "CALLS CALLS");
  EXPECT_EQ(road.Values("CLOHI", "FORM"), "2 5");
  EXPECT_EQ(road.Do("CLOHI:FILE=CALLS,FORM=5,DMPSIZ=3,LOGABN=ALL,HRTBT=1;"), "done");
  EXPECT_EQ(road.Rows(heads), "CALLS|5|3|ALL|1");
  EXPECT_EQ(road.Values("CLOHI", "FILE"), "");
  EXPECT_EQ(road.Do("edit CLOHI FILE=CALLS:HRTBT=;"), "done");
  EXPECT_EQ(road.Rows(heads), "CALLS|5|3|ALL|-");
  EXPECT_EQ(road.Do("delete CLOHI FILE=CALLS;"), "done");
  EXPECT_EQ(road.Rows(heads), "");
}

TEST_F(LoggingRoad, AFormatThatIsNotDefinedIsNotPossible) {
  EXPECT_EQ(road.Do("CLOHI:FILE=CALLS,FORM=5;"), "FORM=5: this value is not possible here [no value at present]");
  EXPECT_EQ(road.Rows(heads), "");
}

TEST_F(LoggingRoad, CallsThatNobodyAnswersFollowTheFormat) {
  DefineFormats();
  EXPECT_EQ(road.Values("CLOHI", "LOGABN"), "NO IN OUT ALL");
  EXPECT_EQ(road.Values("CLOHI", "LOGABN", {{"FORM", "2"}}), "NO");
  EXPECT_EQ(road.Values("CLOHI", "LOGABN", {{"FORM", "5"}}), "NO IN OUT ALL");
  ASSERT_EQ(road.Do("CLOHI:FILE=CALLS,FORM=5,LOGABN=ALL;"), "done");
  EXPECT_EQ(road.Do("edit CLOHI FILE=CALLS:FORM=2;"),
            "done\nLOGABN=ALL: a check has cleared this value, since it does not go with the others");
  EXPECT_EQ(road.Rows(heads), "CALLS|2|-|-|-");
}

TEST_F(LoggingRoad, TheSizeFollowsThePathOfTheFile) {
  DefineFormats();
  EXPECT_EQ(road.Values("CLOHI", "DMPSIZ"), "1 2 3 4 5 6");
  EXPECT_EQ(road.Values("CLOHI", "DMPSIZ", {{"FILE", "CALLS"}}), "1 2 3");
  ASSERT_EQ(road.Do("CLDFI:FILE=CALLS;"), "done");
  EXPECT_EQ(road.Values("CLOHI", "DMPSIZ", {{"FILE", "CALLS"}}), "1 2 3");
  ASSERT_EQ(road.Do("edit CLDFI FILE=CALLS:PATH=\"/logs\";"), "done");
  EXPECT_EQ(road.Values("CLOHI", "DMPSIZ", {{"FILE", "CALLS"}}), "3 4 5");
  EXPECT_EQ(road.Do("CLOHI:FILE=CALLS,FORM=2,DMPSIZ=1;"), "DMPSIZ=1: this value is not possible here [3, 4, 5]");
}

// --- CLODI and CLOMI.

const char* const calls = "SELECT FILE, ORIG, DIAL, TIME FROM CLODI ORDER BY rowid";
const char* const events = "SELECT FILE, DIR, LIM, LOCATION, BPOS, EVENT FROM CLOMI ORDER BY rowid";

struct SelectionRoad : LoggingRoad {
  void SetUp() override {
    LoggingRoad::SetUp();
    DefineFormats();
    ASSERT_EQ(road.Do("CLDFI:FILE=CALLS,PATH=\"/logs\";"), "done");
    road.Rows("INSERT INTO CXAKI (CmdId, DIR) VALUES (9101, '200'), (9102, '201'), (9103, '202')");
  }
};

TEST_F(SelectionRoad, NothingIsSelectedForAFileWithoutAHead) {
  EXPECT_EQ(road.Do("CLODI:FILE=CALLS,DIAL=00;"),
            "CLOHI is needed before CLODI for this file. Add the record of CLOHI first.");
  EXPECT_EQ(road.Do("CLOMI:FILE=CALLS,DIR=200;"),
            "CLOHI is needed before CLOMI  for this file. Add the record of CLOHI first.");
  EXPECT_EQ(road.Rows(calls), "");
  EXPECT_EQ(road.Rows(events), "");
}

TEST_F(SelectionRoad, CallsAreSelectedChangedAndDeleted) {
  ASSERT_EQ(road.Do("CLOHI:FILE=CALLS,FORM=5;"), "done");
  EXPECT_EQ(road.Values("CLODI", "FILE"), "CALLS CALLS CALLS") << "once for each device, and as a file of logging";
  EXPECT_EQ(road.Do("CLODI:FILE=CALLS,DIAL=00;"), "done");
  EXPECT_EQ(road.Do("CLODI:FILE=CALLS,ORIG=1,TIME=60;"), "done");
  EXPECT_EQ(road.Rows(calls), "CALLS|-|00|- CALLS|1|-|60");
  EXPECT_EQ(road.Do("edit CLODI ORIG=1:TIME=120,DIAL=07;"), "done");
  EXPECT_EQ(road.Rows(calls), "CALLS|-|00|- CALLS|1|07|120");
  EXPECT_EQ(road.Do("delete CLODI DIAL=00;"), "done");
  EXPECT_EQ(road.Rows(calls), "CALLS|1|07|120");
}

TEST_F(SelectionRoad, EventsAreSelectedForNumbersOrForABoard) {
  ASSERT_EQ(road.Do("CLOHI:FILE=CALLS,FORM=5;"), "done");
  EXPECT_EQ(road.Values("CLOMI", "FILE"), "CALLS");
  EXPECT_EQ(road.Values("CLOMI", "DIR"), "200 201 202");
  EXPECT_EQ(road.Values("CLOMI", "BPOS"), "001-0-18 002-0-16");
  EXPECT_EQ(road.Values("CLOMI", "BPOS", {{"LOCATION", "WORKS"}}), "002-0-16");
  EXPECT_EQ(road.Do("CLOMI:FILE=CALLS,DIR=200&&201,EVENT=1;"), "done");
  EXPECT_EQ(road.Do("CLOMI:FILE=CALLS,LOCATION=HQ,LIM=1,BPOS=001-0-18,EVENT=3;"), "done");
  EXPECT_EQ(road.Rows(events), "CALLS|200|-|-|-|1 CALLS|201|-|-|-|1 CALLS|-|1|HQ|001-0-18|3");
  EXPECT_EQ(road.Values("CLOMI", "DIR"), "202");
  EXPECT_EQ(road.Values("CLOMI", "BPOS"), "002-0-16");
  EXPECT_EQ(road.Do("edit CLOMI DIR=200:EVENT=2;"), "done");
  EXPECT_EQ(road.Do("edit CLOMI BPOS=001-0-18:LOCATION=WORKS;"),
            "done\nLIM=1: a check has cleared this value, since it does not go with the others\nBPOS=001-0-18: a check "
            "has cleared this value, since it does not go with the others");
  EXPECT_EQ(road.Do("delete CLOMI DIR=201;"), "done");
  EXPECT_EQ(road.Rows(events), "CALLS|200|-|-|-|2 CALLS|-|-|WORKS|-|3");
}

TEST_F(SelectionRoad, TheLastHeadTakesAllSelectionsAlong) {
  GiveAlarmsToADevice();
  ASSERT_EQ(road.Do("CLOHI:FILE=CALLS,FORM=5;"), "done");
  ASSERT_EQ(road.Do("CLOHI:FILE=ALARMS,FORM=2;"), "done");
  ASSERT_EQ(road.Do("CLODI:FILE=CALLS,DIAL=00;"), "done");
  ASSERT_EQ(road.Do("CLODI:FILE=ALARMS,DIAL=07;"), "done");
  ASSERT_EQ(road.Do("CLOMI:FILE=CALLS,DIR=200&201;"), "done");
  EXPECT_EQ(road.Do("delete CLOHI FILE=CALLS;"), "done");
  EXPECT_EQ(road.Rows(calls), "CALLS|-|00|- ALARMS|-|07|-") << "those of the file as well";
  EXPECT_EQ(road.Rows(events), "CALLS|200|-|-|-|- CALLS|201|-|-|-|-");
  EXPECT_EQ(road.Do("delete CLOHI FILE=ALARMS;"), "done");
  EXPECT_EQ(road.Rows(calls), "");
  EXPECT_EQ(road.Rows(events), "");
}

}  // namespace
}  // namespace cordboard::workbench
