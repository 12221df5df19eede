// The road of a user from a route to its lines, the conversion of numbers and remote extensions, on a real exchange.

#include "workbench/support/RoadTest.h"

namespace cordboard::workbench {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
using testing::StartsWith;

class Trunks : public RoadTest {
 protected:
  void SetUp() override {
    OpenNew("R7");
    Prepare({"ROCAI:ROU=1,PROTOCOL=ISDN,MARKET=DE,TRAF=1,DESCRIPTION=Public;",
             "ROCAI:ROU=2,PROTOCOL=CAS,MARKET=DE,TRAF=1;", "ROCAI:ROU=3,PROTOCOL=QSIG,MARKET=DE,TRAF=1;"});
  }

  bool IsLineUsed(const std::string& TRU) {
    return Single("SELECT USED FROM TRKLINE WHERE TRU = '" + TRU + "'") == Value(true);
  }
};

// --- Lines.

TEST_F(Trunks, TheProtocolOfTheRouteDecidesOnTheBoard) {
  const std::vector<std::string> digital = Valid("ROEQI", "EQU", {{"ROU", "1"}});
  EXPECT_THAT(digital, SizeIs(30));
  EXPECT_THAT(digital, testing::Each(StartsWith("001-0-20-")));
  EXPECT_THAT(digital, Not(Contains("001-0-20-00")));
  EXPECT_THAT(digital, Not(Contains("001-0-20-16")));
  EXPECT_THAT(Valid("ROEQI", "EQU", {{"ROU", "2"}}), testing::Each(StartsWith("001-0-15-")));
  // 30 positions on each of the boards 57 and 27, 15 on each of the two boards 48.
  EXPECT_THAT(Valid("ROEQI", "EQU"), SizeIs(90));
  EXPECT_EQ(Valid("ROEQI", "EQU", {{"ROU", "3"}}), Valid("ROEQI", "EQU"));
}

TEST_F(Trunks, TheLineIsOnTheLIMOfThePosition) {
  EXPECT_THAT(Valid("ROEQI", "TRU"), SizeIs(80));
  const std::vector<std::string> lines = Valid("ROEQI", "TRU", {{"ROU", "3"}, {"EQU", "002-0-20-01"}});
  EXPECT_THAT(lines, SizeIs(40));
  EXPECT_THAT(lines, testing::Each(StartsWith("2-")));
  EXPECT_FALSE(Do("ROEQI:ROU=1,EQU=001-0-20-01,TRU=2-01;"));
  EXPECT_THAT(texts(), ElementsAre(StartsWith("TRU: this value is not possible here Possible: 1-01, 1-02, ")));
}

TEST_F(Trunks, PositionsAndLinesGoInPairsAndAreTaken) {
  Prepare({"ROEQI:ROU=1,EQU=001-0-20-01&001-0-20-03,TRU=1-05&1-04,CNTRL=2;"});
  EXPECT_THAT(Lines("ROEQI"),
              ElementsAre("ROEQI:ROU=1,EQU=001-0-20-01,TRU=1-05;", "ROEQI:ROU=1,EQU=001-0-20-03,TRU=1-04;"));
  EXPECT_TRUE(IsPositionUsed("001-0-20-01"));
  EXPECT_TRUE(IsPositionUsed("001-0-20-03"));
  EXPECT_TRUE(IsLineUsed("1-04"));
  EXPECT_TRUE(IsLineUsed("1-05"));
  EXPECT_EQ(Single("SELECT COUNT(DISTINCT CMDID) FROM ROEQI WHERE CNTRL = '2'"), Value(2));
  EXPECT_FALSE(Do("ROEQI:ROU=2,EQU=001-0-15-01,TRU=1-05;"));
  EXPECT_THAT(texts(),
              ElementsAre(StartsWith("TRU: this value is not possible here Possible: 1-01, 1-02, 1-03, 1-06")));
}

TEST_F(Trunks, AsManyLinesAsPositionsHaveToBeGiven) {
  EXPECT_FALSE(Do("ROEQI:ROU=1,EQU=001-0-20-01&&001-0-20-03,TRU=1-01&&1-02;"));
  EXPECT_THAT(texts(), SizeIs(1));
  EXPECT_THAT(Lines("ROEQI"), IsEmpty());
}

TEST_F(Trunks, TheNextPositionsTakeTheNextLines) {
  Prepare({"ROEQI:ROU=1,EQU=next:2,TRU=next;", "ROEQI:ROU=1,EQU=next,TRU=next;"});
  EXPECT_THAT(Lines("ROEQI"),
              ElementsAre("ROEQI:ROU=1,EQU=001-0-20-01,TRU=1-01;", "ROEQI:ROU=1,EQU=001-0-20-02,TRU=1-02;",
                          "ROEQI:ROU=1,EQU=001-0-20-03,TRU=1-03;"));
}

TEST_F(Trunks, AnEditMovesTheMarksAndKeepsWhatIsLeftOut) {
  Prepare({"ROEQI:ROU=1,EQU=001-0-20-01,TRU=1-01,CNTRL=2;", "edit ROEQI TRU=1-01:EQU=001-0-20-02;"});
  EXPECT_THAT(Lines("ROEQI"), ElementsAre("ROEQI:ROU=1,EQU=001-0-20-02,TRU=1-01;"));
  EXPECT_FALSE(IsPositionUsed("001-0-20-01"));
  EXPECT_TRUE(IsPositionUsed("001-0-20-02"));
  EXPECT_TRUE(IsLineUsed("1-01"));
  Prepare({"edit ROEQI TRU=1-01:TRU=1-09,CNTRL=1;"});
  EXPECT_FALSE(IsLineUsed("1-01"));
  EXPECT_TRUE(IsLineUsed("1-09"));
  EXPECT_TRUE(IsPositionUsed("001-0-20-02"));
  EXPECT_EQ(Single("SELECT CNTRL FROM ROEQI"), Value("1"));
}

TEST_F(Trunks, AnEditToAnotherRouteNeedsAPositionAndToAnotherLIMALine) {
  Prepare({"ROEQI:ROU=1,EQU=001-0-20-01,TRU=1-01;"});
  EXPECT_FALSE(Do("edit ROEQI TRU=1-01:ROU=3;"));
  EXPECT_THAT(texts(), ElementsAre(StartsWith("EQU: this parameter has to be given")));
  EXPECT_FALSE(Do("edit ROEQI TRU=1-01:ROU=3,EQU=002-0-20-01;"));
  EXPECT_THAT(texts(), ElementsAre(StartsWith("TRU: this parameter has to be given")));
  Prepare({"edit ROEQI TRU=1-01:ROU=3,EQU=002-0-20-01,TRU=2-01;"});
  EXPECT_THAT(Lines("ROEQI"), ElementsAre("ROEQI:ROU=3,EQU=002-0-20-01,TRU=2-01;"));
  EXPECT_FALSE(IsLineUsed("1-01"));
  EXPECT_FALSE(IsPositionUsed("001-0-20-01"));
}

TEST_F(Trunks, ADeleteFreesPositionAndLine) {
  Prepare({"ROEQI:ROU=1,EQU=001-0-20-01,TRU=1-01;", "delete ROEQI TRU=1-01;"});
  EXPECT_THAT(Lines("ROEQI"), IsEmpty());
  EXPECT_FALSE(IsPositionUsed("001-0-20-01"));
  EXPECT_FALSE(IsLineUsed("1-01"));
}

TEST_F(Trunks, TheLinesOfTrunksCanBeReadAsAPlan) {
  Prepare({"ROEQI:ROU=1,EQU=next:3,TRU=next;"});
  const std::vector<std::string> lines = Lines("ROEQI");
  Prepare({"delete ROEQI TRU=1-01;", "delete ROEQI TRU=1-02;", "delete ROEQI TRU=1-03;"});
  Prepare(lines);
  EXPECT_EQ(Lines("ROEQI"), lines);
}

// --- Conversion.

TEST_F(Trunks, AConversionGivesItsFieldsInTheOrderOfTheLine) {
  Prepare({"NUTRI:CNVTYP=3,ENTRY=2,ROU=1,NUMTYP=2,NEWTYP=0,CONT=1,PRE=00,TRC=1;", "NUTRI:CNVTYP=1,ENTRY=7700;",
           "NUTRI:CNVTYP=4,ENTRY=1,HLC=1,BCAP=2;"});
  EXPECT_THAT(Lines("NUTRI"), ElementsAre("NUTRI:CNVTYP=1,ENTRY=7700;",
                                          "NUTRI:CNVTYP=3,ENTRY=2,ROU=1,PRE=00,TRC=1,CONT=1,NUMTYP=2,NEWTYP=0;",
                                          "NUTRI:CNVTYP=4,ENTRY=1,BCAP=2,HLC=1;"));
  EXPECT_FALSE(Do("NUTRI:CNVTYP=1,ENTRY=1,ROU=9;"));
  EXPECT_THAT(texts(), ElementsAre("ROU: this value is not possible here Possible: 1, 2, 3"));
}

TEST_F(Trunks, TheSidesOfAConversionExcludeEachOther) {
  for (const std::string number : {"PRE=1", "TRC=1", "NUMTYP=1", "NEWTYP=1", "CONT=1"}) {
    EXPECT_FALSE(Do("NUTRI:CNVTYP=1,ENTRY=1,BCAP=1," + number + ";")) << number;
    EXPECT_THAT(texts(), ElementsAre(StartsWith("BCAP: a check of the values after it has cleared this value")));
  }
}

TEST_F(Trunks, AnEditChangesTheSideOfAConversion) {
  Prepare({"NUTRI:CNVTYP=3,ENTRY=2,NUMTYP=2,NEWTYP=0,CONT=1,PRE=00,TRC=1;", "edit NUTRI ENTRY=2:BCAP=1;"});
  EXPECT_THAT(Lines("NUTRI"), ElementsAre("NUTRI:CNVTYP=3,ENTRY=2,BCAP=1;"));
  EXPECT_TRUE(Single("SELECT PRE FROM NUTRI").IsNull());
  Prepare({"edit NUTRI ENTRY=2:TRC=2;"});
  EXPECT_THAT(Lines("NUTRI"), ElementsAre("NUTRI:CNVTYP=3,ENTRY=2,TRC=2;"));
  Prepare({"edit NUTRI ENTRY=2:PRE=0;", "edit NUTRI ENTRY=2:TRC=;"});
  EXPECT_THAT(Lines("NUTRI"), ElementsAre("NUTRI:CNVTYP=3,ENTRY=2,PRE=0;"));
  Prepare({"delete NUTRI ENTRY=2;"});
  EXPECT_THAT(Lines("NUTRI"), IsEmpty());
}

// --- Remote extensions.

class RemoteExtensions : public Trunks {
 protected:
  void SetUp() override {
    Trunks::SetUp();
    Prepare({"NANSI:NUMTYP=EX,NUMSE=330&&339;", "GEDII:DIR=330&&332;", "REEXI:DIR=330,TYP=0,REMNUM=004711;"});
  }

  std::string TypeOf(const std::string& DIR) {
    const Value TYPE = Single("SELECT TYPE FROM GEDII WHERE DIR = '" + DIR + "'");
    return TYPE.IsNull() ? "free" : TYPE.text();
  }
};

TEST_F(RemoteExtensions, ARecordTakesAFreeDirectoryNumber) {
  EXPECT_THAT(Lines("REEXI"), ElementsAre("REEXI:DIR=330,REMNUM=004711,TYP=0;"));
  EXPECT_EQ(TypeOf("330"), "RE");
  EXPECT_THAT(Valid("REEXI", "DIR"), ElementsAre("331", "332"));
  EXPECT_FALSE(Do("REEXI:DIR=330,TYP=0,REMNUM=004712;"));
  EXPECT_THAT(texts(), ElementsAre("DIR: this value is not possible here Possible: 331, 332"));
  Prepare({"REEXI:DIR=next,TYP=1,REMNUM=00171;"});
  EXPECT_EQ(TypeOf("331"), "RE");
}

TEST_F(RemoteExtensions, AnEditKeepsWhatIsLeftOut) {
  Prepare({"edit REEXI DIR=330:REMNUM=004713;"});
  EXPECT_THAT(Lines("REEXI"), ElementsAre("REEXI:DIR=330,REMNUM=004713,TYP=0;"));
  Prepare({"edit REEXI DIR=330:TYP=2;"});
  EXPECT_THAT(Lines("REEXI"), ElementsAre("REEXI:DIR=330,REMNUM=004713,TYP=2;"));
  EXPECT_EQ(TypeOf("330"), "RE");
}

TEST_F(RemoteExtensions, AnEditMovesTheNumber) {
  Prepare({"edit REEXI DIR=330:DIR=332;"});
  EXPECT_THAT(Lines("REEXI"), ElementsAre("REEXI:DIR=332,REMNUM=004711,TYP=0;"));
  EXPECT_EQ(TypeOf("330"), "free");
  EXPECT_EQ(TypeOf("332"), "RE");
}

TEST_F(RemoteExtensions, NothingOfARecordCanBeCleared) {
  EXPECT_FALSE(Do("edit REEXI DIR=330:REMNUM=;"));
  EXPECT_THAT(texts(), ElementsAre(StartsWith("REMNUM: this parameter has to be given")));
}

TEST_F(RemoteExtensions, ADeleteFreesTheNumber) {
  Prepare({"delete REEXI DIR=330;"});
  EXPECT_THAT(Lines("REEXI"), IsEmpty());
  EXPECT_EQ(TypeOf("330"), "free");
}

}  // namespace
}  // namespace cordboard::workbench
