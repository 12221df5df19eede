// The road of a user through categories, key extensions and what is on their keys, on a real exchange.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <sstream>

#include "script/Conversions.h"
#include "support/Road.h"
#include "support/SourceFolder.h"
#include "workbench/actions/Filling.h"
#include "workbench/actions/Generation.h"
#include "workbench/data/Resources.h"
#include "workbench/database/Schema.h"
#include "workbench/exchange/Plant.h"
#include "workbench/plans/Plan.h"
#include "workbench/plans/PlanLine.h"
#include "workbench/support/RoadTest.h"

namespace cordboard::workbench {
namespace {

using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
using testing::StartsWith;

const std::string series = "NANSI:NUMTYP=EX,NUMSE=100&&199;";
const std::string category1 = "EXCCS:CAT=1,TRAF=11,SERV_D6=1,CDIV_D1=1,ROC_D2=1;";
const std::string category2 = "EXCCS:CAT=2,TRAF=22,SERV_D6=2,CDIV_D1=1,ROC_D2=1;";

class KeyExtensions : public RoadTest {
 protected:
  // An exchange that has numbers and two categories.
  void Open(const std::string& release) {
    OpenNew(release);
    Prepare({series, category1, category2});
  }

  void SetUp() override { Open("R7"); }
};

// --- What every form needs.

TEST_F(KeyExtensions, EveryDigitAndCodeHasValuesInEveryRelease) {
  for (const std::string& release : Releases()) {
    Open(release);
    Prepare({"KSEXI:DIR=100,ITYPE=3,EQU=next,CAT=1;"});
    for (const char* command : {"EXCCS", "KSEXI", "KSFKC", "KSMDI", "KSANI", "ITNUI"}) {
      for (const ParameterDefinition& parameter : FindForm(command)->parameters) {
        if (!parameter.list || !parameter.IsIn(release)) continue;
        // The tail of CDIV has no list without digit 6, and nothing but the extension itself could be its MDN.
        const bool tail = parameter.name >= "CDIV_D7" && parameter.name <= "CDIV_D9";
        if (tail || parameter.name == "MDN") continue;
        const std::vector<std::string> values = Valid(command, parameter.name);
        EXPECT_THAT(values, Not(IsEmpty())) << release << " " << command << " " << parameter.name;
        EXPECT_NE(values.front(), "no list") << release << " " << command << " " << parameter.name;
      }
    }
  }
}

TEST_F(KeyExtensions, TheOrderInWhichParametersAreTypedDoesNotCount) {
  Prepare({"KSEXI:CAT=1,EQU=001-0-10-00&&001-0-10-03,ITYPE=3,DIR=100&&103;"});
  EXPECT_THAT(Lines("KSEXI"), SizeIs(4));
  EXPECT_EQ(Lines("KSEXI").back(), "KSEXI:DIR=103,ITYPE=3,EQU=001-0-10-03,CAT=1;");
}

// --- Categories.

TEST_F(KeyExtensions, AnAddFillsTheRowOfItsCategoryAndKeepsWhatIsNotGiven) {
  EXPECT_THAT(Valid("EXCCS", "CAT"), SizeIs(32));
  EXPECT_THAT(Valid("KSEXI", "CAT"), ElementsAre("1", "2"));
  Prepare({"EXCCS:CAT=12,SERV=000001000,DESCRIPTION=Stores;", "EXCCS:CAT=12,TRAF=33;"});
  EXPECT_THAT(Valid("KSEXI", "CAT"), ElementsAre("1", "2", "12"));
  EXPECT_EQ(Single("SELECT COUNT(*) FROM EXCCS"), Value(32));
  EXPECT_EQ(Single("SELECT SERV || TRAF || DESCRIPTION FROM EXCCS WHERE CAT = '12'"), Value("00000100033Stores"));
  EXPECT_FALSE(Do("EXCCS:CAT=40,TRAF=1;"));
  EXPECT_THAT(texts(), ElementsAre(StartsWith("CAT: this value is not possible here Possible: 0, 1, 10,")));
}

TEST_F(KeyExtensions, AnEditWritesAllOfACategoryAndLeavesItsNumber) {
  Prepare({"edit EXCCS CAT=1:ROC=;"});
  EXPECT_THAT(Lines("EXCCS"), Contains("EXCCS:CAT=1,CDIV=100000000,SERV=000001000,TRAF=11;"));
  EXPECT_FALSE(Do("edit EXCCS CAT=1:CAT=5;"));
  EXPECT_THAT(texts(), Contains("CAT: the CAT of a record cannot be changed; add another record"));
}

TEST_F(KeyExtensions, TwoCategoriesCannotHaveTheSameStrings) {
  EXPECT_FALSE(Do("EXCCS:CAT=3,TRAF=11,SERV_D6=1,CDIV_D1=1,ROC_D2=1;"));
  EXPECT_THAT(texts(), ElementsAre("Another category has the same values. Change TRAF, SERV, CDIV or ROC."));
  EXPECT_TRUE(Single("SELECT TRAF FROM EXCCS WHERE CAT = '3'").IsNull());
}

TEST_F(KeyExtensions, TheRolesOfCategoriesAreGivenOnce) {
  Prepare({"EXCCS:CAT=1,CATTYP=1;"});
  EXPECT_THAT(Valid("EXCCS", "CATTYP", {{"CAT", "1"}}), ElementsAre("1", "2", "1&2"));
  EXPECT_THAT(Valid("EXCCS", "CATTYP", {{"CAT", "2"}}), ElementsAre("2", "1&2"));
  EXPECT_FALSE(Do("EXCCS:CAT=2,CATTYP=1;"));
  EXPECT_THAT(texts(), ElementsAre("CATTYP: this value is not possible here Possible: 2, 1&2"));
  Prepare({"EXCCS:CAT=1,CATTYP=1&2;"});
  EXPECT_THAT(Lines("EXCCS"), ElementsAre(StartsWith("EXCCS:CAT=1,CDIV"), StartsWith("EXCCS:CAT=2,CDIV"),
                                          "EXCCS:CAT=1,CATTYP=1;", "EXCCS:CAT=1,CATTYP=2;"));
}

TEST_F(KeyExtensions, DigitSixOfDiversionDecidesAboutTheDigitsBehindIt) {
  EXPECT_THAT(Valid("EXCCS", "CDIV_D9"), ElementsAre());
  EXPECT_THAT(Valid("EXCCS", "CDIV_D9", {{"CDIV_D6", "0"}}), ElementsAre("0"));
  EXPECT_THAT(Valid("EXCCS", "CDIV_D9", {{"CDIV_D6", "1"}}), ElementsAre("0", "1", "2"));
  Prepare({"EXCCS:CAT=4,SERV_D6=1,CDIV_D6=1,CDIV_D7=1,CDIV_D9=2;"});
  EXPECT_EQ(Single("SELECT CDIV FROM EXCCS WHERE CAT = '4'"), Value("000001102"));
  Prepare({"edit EXCCS CAT=4:CDIV_D6=0;"});
  EXPECT_EQ(Single("SELECT CDIV FROM EXCCS WHERE CAT = '4'"), Value("000000000"));
}

TEST_F(KeyExtensions, ADeletedCategoryIsBlankUnlessSomethingUsesIt) {
  Prepare({"KSEXI:DIR=100,ITYPE=3,EQU=next,CAT=1;"});
  EXPECT_FALSE(Do("delete EXCCS CAT=1;"));
  EXPECT_THAT(texts(), ElementsAre("Cannot delete as there are extensions initiated with this category"));
  Prepare({"delete EXCCS CAT=2;"});
  EXPECT_THAT(Valid("KSEXI", "CAT"), ElementsAre("1"));
  EXPECT_THAT(Valid("EXCCS", "CAT"), SizeIs(32));
  EXPECT_THAT(Lines("EXCCS"), ElementsAre(StartsWith("EXCCS:CAT=1,")));
}

TEST_F(KeyExtensions, AnEditOfACategoryFreesTheAdditionalNumbersThatHaveIt) {
  Prepare({"KSEXI:DIR=100&101,ITYPE=3,EQU=next,CAT=1;", "KSANI:DIR=100,KEY=1,ADN=150,CAT=2;",
           "KSANI:DIR=101,KEY=1,ADN=151,CAT=2;", "KSANI:DIR=101,KEY=2,ADN=152,CAT=1;"});
  ASSERT_TRUE(Do("edit EXCCS CAT=2:TRAF=33;"));
  EXPECT_THAT(texts(),
              ElementsAre("Additional numbers use category 2, and their numbers are released. Check these records in "
                          "KSANI."));
  EXPECT_FALSE(IsNumberUsed("150"));
  EXPECT_FALSE(IsNumberUsed("151"));
  EXPECT_TRUE(IsNumberUsed("152"));
  EXPECT_EQ(Single("SELECT COUNT(*) FROM KSANI"), Value(3));
}

// --- Key extensions.

TEST_F(KeyExtensions, AnExtensionNeedsACategoryOrAllClassStrings) {
  EXPECT_FALSE(Do("KSEXI:DIR=100,ITYPE=3,EQU=next,TRAF=1,SERV_D1=1;"));
  EXPECT_THAT(texts(), ElementsAre("CAT: give CAT, or TRAF, SERV, CDIV and ROC"));
  Prepare(
      {"KSEXI:DIR=100,ITYPE=3,EQU=next,TRAF=1,SERV_D3D4_SUB1=02,SERV_D3D4_SUB2=04,SERV_D3D4_SUB3=16,"
       "SERV_D7D8_SUB1=10,SERV_D7D8_SUB2=03,CDIV_D4D5=02,ROC_D5D6=07,ADC_D2=1,ADC_D10=1,TRM=5;"});
  EXPECT_THAT(Lines("KSEXI"), ElementsAre("KSEXI:DIR=100,ITYPE=3,EQU=001-0-10-00,TRAF=1,SERV=002200130,CDIV=000020000,"
                                          "ROC=000007,ADC=01000000010,TRM=5;"));
}

TEST_F(KeyExtensions, TheInstrumentDecidesAboutTheBoard) {
  const auto boards = [this](const std::string& ITYPE) {
    std::vector<std::string> slots;
    for (const std::string& EQU : Valid("KSEXI", "EQU", {{"ITYPE", ITYPE}})) {
      const std::string slot = EQU.substr(0, 8);
      if (slots.empty() || slots.back() != slot) slots.push_back(slot);
    }
    return slots;
  };
  EXPECT_THAT(Valid("KSEXI", "EQU"), SizeIs(16 + 32 + 16 + 32));
  EXPECT_THAT(boards("3"), ElementsAre("001-0-10", "002-0-10"));
  EXPECT_THAT(boards("18"), ElementsAre("001-0-10", "002-0-10"));
  EXPECT_THAT(boards("0"), ElementsAre("001-0-11", "002-0-11"));
  EXPECT_THAT(boards("12"), ElementsAre("001-0-11", "002-0-11"));
  EXPECT_FALSE(Do("KSEXI:DIR=100,ITYPE=3,EQU=001-0-11-00,CAT=1;"));
  EXPECT_THAT(texts(), Contains(StartsWith("EQU: this value is not possible here Possible: 001-0-10-00, ")));
}

TEST_F(KeyExtensions, NumbersAndPositionsThatAreTakenLeaveTheLists) {
  Prepare({"KSEXI:DIR=100&&109,ITYPE=3,EQU=next,CAT=1;"});
  EXPECT_THAT(Valid("KSEXI", "DIR"), SizeIs(90));
  EXPECT_EQ(Valid("KSEXI", "DIR").front(), "110");
  EXPECT_EQ(Valid("KSEXI", "EQU", {{"ITYPE", "3"}}).front(), "001-0-10-10");
  EXPECT_FALSE(Do("KSEXI:DIR=105,ITYPE=3,EQU=next,CAT=1;"));
  EXPECT_THAT(texts(), ElementsAre(StartsWith("DIR: this value is not possible here Possible: 110, 111,")));
  EXPECT_FALSE(Do("KSEXI:DIR=110,ITYPE=3,EQU=001-0-10-05,CAT=1;"));
  EXPECT_THAT(texts(), Contains(StartsWith("EQU: this value is not possible here Possible: 001-0-10-10, ")));
  EXPECT_TRUE(IsPositionUsed("001-0-10-09"));
  EXPECT_FALSE(IsPositionUsed("001-0-10-10"));
}

TEST_F(KeyExtensions, OneLineSetsUpSeveralInStep) {
  Prepare({"KSEXI:DIR=100&&103&110,ITYPE=12,EQU=001-0-11-04&&001-0-11-07&001-0-11-00,CAT=1;"});
  EXPECT_EQ(Single("SELECT EQU FROM KSEXI WHERE DIR = '100'"), Value("001-0-11-04"));
  EXPECT_EQ(Single("SELECT EQU FROM KSEXI WHERE DIR = '103'"), Value("001-0-11-07"));
  EXPECT_EQ(Single("SELECT EQU FROM KSEXI WHERE DIR = '110'"), Value("001-0-11-00"));
}

TEST_F(KeyExtensions, NumbersWithoutAPositionEachAreRefusedBeforeAnythingIsDone) {
  EXPECT_FALSE(Do("KSEXI:DIR=100&&103,ITYPE=12,EQU=001-0-11-00&&001-0-11-02,CAT=1;"));
  EXPECT_THAT(texts(),
              ElementsAre("EQU: DIR and EQU go in pairs, and there are 4 and 3 of them; give as many of each"));
  EXPECT_FALSE(Do("KSEXI:DIR=100,ITYPE=12,EQU=001-0-11-00&001-0-11-02,CAT=1;"));
  EXPECT_THAT(texts(),
              ElementsAre("EQU: DIR and EQU go in pairs, and there are 1 and 2 of them; give as many of each"));
  EXPECT_FALSE(Do("KSEXI:DIR=100&100,ITYPE=12,EQU=next,CAT=1;"));
  EXPECT_THAT(texts(), Contains("DIR: this value is given twice"));
  EXPECT_EQ(Single("SELECT COUNT(*) FROM KSEXI"), Value(0));
  EXPECT_FALSE(IsNumberUsed("100"));
}

TEST_F(KeyExtensions, TheLocationNarrowsTheChoiceOfPositions) {
  EXPECT_THAT(Valid("KSEXI", "LOCATION"), ElementsAre("HQ", "WORKS"));
  EXPECT_THAT(Valid("KSEXI", "EQU", {{"ITYPE", "3"}, {"LOCATION", "WORKS"}}), Each(StartsWith("002-0-10-")));
  Prepare({"KSEXI:DIR=100,ITYPE=3,LOCATION=WORKS,EQU=next,CAT=1;",
           "KSEXI:DIR=101,ITYPE=12,LOCATION=WORKS,EQU=next,CAT=1;"});
  EXPECT_EQ(Single("SELECT EQU FROM KSEXI WHERE DIR = '100'"), Value("002-0-10-00"));
  EXPECT_EQ(Single("SELECT EQU FROM KSEXI WHERE DIR = '101'"), Value("002-0-11-00"));
  EXPECT_FALSE(Do("KSEXI:DIR=102,ITYPE=3,LOCATION=WORKS,EQU=001-0-10-00,CAT=1;"));
  EXPECT_THAT(texts(), Contains(StartsWith("EQU: this value is not possible here Possible: 002-0-10-01, ")));
}

TEST_F(KeyExtensions, AnotherInstrumentClearsAPositionThatDoesNotSuitIt) {
  Filling filling(session(), *FindForm("KSEXI"));
  const auto set = [&](const char* name, const char* value) { filling.Set({name, value}); };
  set("ITYPE", "12");
  set("EQU", "001-0-11-00");
  set("ITYPE", "15");
  EXPECT_EQ(session().form().Get("EQU"), Value("001-0-11-00"));
  set("ITYPE", "3");
  EXPECT_TRUE(session().form().Get("EQU").IsBlank());
  set("ITYPE", "0");
  set("EQU", "001-0-11-00");
  set("ITYPE", "0");
  EXPECT_TRUE(session().form().Get("EQU").IsBlank());
  EXPECT_THAT(filling.problems(), IsEmpty());
  EXPECT_THAT(filling.warnings(), IsEmpty());

  Prepare({"KSEXI:DIR=100,ITYPE=12,EQU=001-0-11-00,CAT=1;", "edit KSEXI DIR=100:ITYPE=15;"});
  EXPECT_FALSE(Do("edit KSEXI DIR=100:ITYPE=3;"));
  EXPECT_THAT(texts(), ElementsAre("EQU: this parameter has to be given (Equipment position, one for each number)"));
  Prepare({"edit KSEXI DIR=100:ITYPE=3,EQU=next;"});
  EXPECT_EQ(Single("SELECT EQU FROM KSEXI"), Value("001-0-10-00"));
  EXPECT_FALSE(IsPositionUsed("001-0-11-00"));
  EXPECT_TRUE(IsPositionUsed("001-0-10-00"));
}

TEST_F(KeyExtensions, AnotherInstrumentLosesTheKeysThatItDoesNotHave) {
  Prepare({"KSEXI:DIR=100&101,ITYPE=3,EQU=next,CAT=1;", "KSFKC:DIR=100,KEY=4,FCN=DND;", "KSFKC:DIR=100,KEY=12,FCN=LNR;",
           "KSMDI:DIR=100,KEY=13,MDN=101;", "KSANI:DIR=100,KEY=14,ADN=150,CAT=1;", "KSANI:DIR=100,KEY=3,ADN=151,CAT=1;",
           "KSFKC:DIR=101,KEY=12,FCN=LNR;", "edit KSEXI DIR=100:ITYPE=2;"});
  EXPECT_THAT(Lines("KSFKC"), ElementsAre("KSFKC:DIR=100,KEY=4,FCN=DND;", "KSFKC:DIR=101,KEY=12,FCN=LNR;"));
  EXPECT_THAT(Lines("KSMDI"), IsEmpty());
  EXPECT_THAT(Lines("KSANI"), ElementsAre(HasSubstr("ADN=151,KEY=3")));
  // The number of a record that went this way stays in use.
  EXPECT_TRUE(IsNumberUsed("150"));
}

TEST_F(KeyExtensions, AnotherNumberIsWrittenAndTakenIntoUse) {
  Prepare({"KSEXI:DIR=100,ITYPE=3,EQU=next,CAT=1;", "edit KSEXI DIR=100:DIR=142,CUST=2;"});
  EXPECT_THAT(Lines("KSEXI"), ElementsAre("KSEXI:DIR=142,ITYPE=3,EQU=001-0-10-00,CAT=1,CUST=2;"));
  EXPECT_FALSE(IsNumberUsed("100"));
  EXPECT_TRUE(IsNumberUsed("142"));
  EXPECT_EQ(Single("SELECT DIR FROM UsedExtOpeGrp"), Value("142"));
  EXPECT_FALSE(Do("edit KSEXI DIR=142:DIR=900;"));
  EXPECT_THAT(Lines("KSEXI"), ElementsAre(StartsWith("KSEXI:DIR=142,")));
}

TEST_F(KeyExtensions, ADeletedExtensionFreesItsNumberAndPositionAndIsGone) {
  Prepare({"KSEXI:DIR=100&101,ITYPE=3,EQU=next,CAT=1;", "delete KSEXI DIR=100;"});
  EXPECT_THAT(Lines("KSEXI"), ElementsAre(StartsWith("KSEXI:DIR=101,")));
  EXPECT_FALSE(IsNumberUsed("100"));
  EXPECT_FALSE(IsPositionUsed("001-0-10-00"));
  EXPECT_THAT(Valid("KSEXI", "DIR").front(), "100");
  EXPECT_FALSE(Do("delete KSEXI DIR=100;"));
  EXPECT_THAT(texts(), ElementsAre("there is no record of KSEXI with DIR=100"));
}

TEST_F(KeyExtensions, WhatACheckClearsInAnEditIsWrittenToo) {
  Prepare({"KSEXI:DIR=100,ITYPE=12,ACCTYP=1,EQU=next,CAT=1,ADC_D2=1,ADC_D11=2;"});
  EXPECT_EQ(Single("SELECT ADC FROM KSEXI"), Value("01000000002"));
  Prepare({"edit KSEXI DIR=100:ACCTYP=1,CUST=1;"});
  EXPECT_THAT(texts(), IsEmpty());
  EXPECT_EQ(Single("SELECT ADC FROM KSEXI"), Value("01000000002"));
  Prepare({"edit KSEXI DIR=100:ACCTYP=2;"});
  EXPECT_THAT(texts(), ElementsAre("ADC: a check has changed this value to 01000000000"));
  EXPECT_EQ(Single("SELECT ADC FROM KSEXI"), Value("01000000000"));
}

TEST_F(KeyExtensions, AValueThatARecordHasAlreadyIsPossibleInItsEdit) {
  Prepare({"KSEXI:DIR=100,ITYPE=3,EQU=next,CAT=1;", "edit KSEXI DIR=100:DIR=100,EQU=001-0-10-00,ITYPE=3,CUST=2;"});
  EXPECT_THAT(Lines("KSEXI"), ElementsAre("KSEXI:DIR=100,ITYPE=3,EQU=001-0-10-00,CAT=1,CUST=2;"));
  EXPECT_TRUE(IsNumberUsed("100"));
  EXPECT_TRUE(IsPositionUsed("001-0-10-00"));
}

TEST_F(KeyExtensions, AHighServiceForbidsAValueOfTheFirstDigit) {
  EXPECT_THAT(Valid("KSEXI", "ADC_D1", {{"SERV_D7D8_SUB2", "01"}}), ElementsAre("0", "1", "2"));
  EXPECT_THAT(Valid("KSEXI", "ADC_D1", {{"SERV_D7D8_SUB2", "02"}}), ElementsAre("0", "1"));
  EXPECT_THAT(Valid("KSEXI", "ADC_D1", {{"CAT", "1"}}), ElementsAre("0", "1", "2"));
}

// --- Keys.

TEST_F(KeyExtensions, EveryInstrumentHasItsOwnKeys) {
  Prepare({"KSEXI:DIR=100,ITYPE=1,EQU=next,CAT=1;", "KSEXI:DIR=101,ITYPE=7,EQU=next,CAT=1;",
           "KSEXI:DIR=102,ITYPE=10,EQU=next,CAT=1;"});
  for (const char* command : {"KSFKC", "KSMDI", "KSANI"}) {
    EXPECT_THAT(Valid(command, "KEY", {{"DIR", "100"}}), ElementsAre("1", "2", "3", "4")) << command;
    EXPECT_THAT(Valid(command, "KEY", {{"DIR", "101"}}), SizeIs(32)) << command;
    EXPECT_EQ(Valid(command, "KEY", {{"DIR", "101"}}).back(), "A16") << command;
    EXPECT_THAT(Valid(command, "KEY", {{"DIR", "102"}}), SizeIs(20)) << command;
  }
  EXPECT_THAT(Valid("KSFKC", "KEY", {{"ITYPE", "12"}}), SizeIs(48));
  EXPECT_FALSE(Do("KSFKC:DIR=100,KEY=5,FCN=DND;"));
  EXPECT_THAT(texts(), ElementsAre("KEY: this value is not possible here Possible: 1, 2, 3, 4"));
}

TEST_F(KeyExtensions, AnEditKnowsTheKeysOfTheInstrument) {
  Prepare(
      {"KSEXI:DIR=100,ITYPE=7,EQU=next,CAT=1;", "KSFKC:DIR=100,KEY=5,FCN=DND;", "edit KSFKC DIR=100,KEY=5:KEY=A5;"});
  EXPECT_THAT(Lines("KSFKC"), ElementsAre("KSFKC:DIR=100,KEY=A5,FCN=DND;"));
  EXPECT_EQ(Single("SELECT DIRK FROM KSFKC"), Value("100-A5"));
  EXPECT_FALSE(Do("edit KSFKC DIR=100,KEY=A5:KEY=20;"));
  EXPECT_THAT(texts(), ElementsAre(StartsWith("KEY: this value is not possible here Possible: 1, 2, 3,")));
}

TEST_F(KeyExtensions, TheThreeCommandsShareTheKeys) {
  Prepare({"KSEXI:DIR=100&101,ITYPE=1,EQU=next,CAT=1;", "KSFKC:DIR=100,KEY=1,FCN=DND;",
           "KSFKC:DIR=100,KEY=2,FCN=TNS,DIG=9;", "KSANI:DIR=100,KEY=3,ADN=150,CAT=1;"});
  EXPECT_THAT(Valid("KSFKC", "KEY", {{"DIR", "100"}}), ElementsAre("4"));
  EXPECT_THAT(Valid("KSMDI", "KEY", {{"DIR", "100"}}), ElementsAre("2", "4"));
  EXPECT_THAT(Valid("KSANI", "KEY", {{"DIR", "100"}}), ElementsAre("2", "4"));
  EXPECT_THAT(Valid("KSFKC", "KEY", {{"DIR", "100&101"}}), ElementsAre("4"));
  // A number takes the place of a stored number.
  Prepare({"KSMDI:DIR=100,KEY=next,MDN=101;", "KSMDI:DIR=100,KEY=next,MDN=150;"});
  EXPECT_THAT(Lines("KSFKC"), ElementsAre("KSFKC:DIR=100,KEY=1,FCN=TNS;", "KSFKC:DIR=100,KEY=1,FCN=DND;"));
  EXPECT_FALSE(Do("KSANI:DIR=100,KEY=next,ADN=next,CAT=1;"));
  EXPECT_THAT(
      texts(),
      Contains("KEY: 100 has no free key. Remove a function from one of its keys, or choose another extension."));
}

TEST_F(KeyExtensions, AKeyOnSeveralExtensionsNeedsOneInstrument) {
  Prepare({"KSEXI:DIR=100&101,ITYPE=3,EQU=next,CAT=1;", "KSEXI:DIR=102,ITYPE=4,EQU=next,CAT=1;",
           "KSFKC:DIR=100&&101,KEY=3,FCN=DND;"});
  EXPECT_THAT(Lines("KSFKC"), SizeIs(2));
  EXPECT_FALSE(Do("KSFKC:DIR=100&&102,KEY=5,FCN=LNR;"));
  EXPECT_THAT(texts(), Contains("DIR: The extensions differ in their ITYPE. Choose extensions of the same type."));
  EXPECT_THAT(Lines("KSFKC"), SizeIs(2));
}

TEST_F(KeyExtensions, FunctionsFollowTheExtension) {
  Prepare(
      {"KSEXI:DIR=100,ITYPE=12,EQU=next,CAT=1,ADC_D2=1;", "KSEXI:DIR=101,ITYPE=12,ACCTYP=1,EQU=next,CAT=1,ADC_D1=1;"});
  EXPECT_THAT(Valid("KSFKC", "FCN", {{"DIR", "100"}}), Not(Contains(testing::AnyOf("SBC", "RDC", "CLT"))));
  EXPECT_THAT(Valid("KSFKC", "FCN", {{"DIR", "101"}}), testing::IsSupersetOf({"SBC", "RDC", "CLT"}));
  Prepare({"KSFKC:DIR=100,KEY=3,FCN=DND;", "KSFKC:DIR=100,KEY=4,FCN=TNS,DIG=1;", "KSFKC:DIR=100,KEY=5,FCN=TNS,DIG=2;"});
  EXPECT_THAT(Valid("KSFKC", "FCN", {{"DIR", "100"}}), Not(Contains("DND")));
  EXPECT_THAT(Valid("KSFKC", "FCN", {{"DIR", "100"}}), Contains("TNS"));
  EXPECT_FALSE(Do("KSFKC:DIR=100,KEY=6,FCN=LNR,DIG=7;"));
  EXPECT_THAT(texts(), ElementsAre("DIG: DIG is given, and FCN is not TNS. Leave DIG empty, or set FCN to TNS."));
  Prepare({"delete KSFKC DIR=100,KEY=3;"});
  EXPECT_THAT(Valid("KSFKC", "FCN", {{"DIR", "100"}}), Contains("DND"));
}

TEST_F(KeyExtensions, AFixedKeyIsReleasedInFront) {
  Prepare({"KSEXI:DIR=100,ITYPE=12,EQU=next,CAT=1;", "KSEXI:DIR=101,ITYPE=15,EQU=next,CAT=1;",
           "KSFKC:DIR=100,KEY=1,FCN=LNR;", "KSFKC:DIR=100,KEY=13,FCN=DND;", "KSFKC:DIR=101,KEY=A1,FCN=DND;",
           "KSFKC:DIR=101,KEY=13,FCN=LNR;", "KSMDI:DIR=100,KEY=12,MDN=101;", "KSANI:DIR=101,KEY=2,ADN=150,CAT=1;"});
  EXPECT_THAT(Lines("KSFKC"), ElementsAre("KSFKC:DIR=100,KEY=1,FCN=LNR;", "KSFKC:DIR=100,KEY=13,FCN=TNS;",
                                          "KSFKC:DIR=100,KEY=13,FCN=DND;", "KSFKC:DIR=101,KEY=A1,FCN=TNS;",
                                          "KSFKC:DIR=101,KEY=A1,FCN=DND;", "KSFKC:DIR=101,KEY=13,FCN=LNR;"));
  EXPECT_THAT(Lines("KSMDI"), ElementsAre("KSFKC:DIR=100,KEY=12,FCN=TNS;", "KSMDI:DIR=100,KEY=12,MDN=101;"));
  EXPECT_THAT(Lines("KSANI"), ElementsAre("KSFKC:DIR=101,KEY=2,FCN=TNS;", StartsWith("KSANI:DIR=101,ADN=150,")));
}

TEST_F(KeyExtensions, ANumberAndKeyTogetherTakeThePlaceOfBoth) {
  Prepare({"KSEXI:DIR=100&&102,ITYPE=3,EQU=next,CAT=1;", "KSMDI:DIRK_D1D2D3D4D5=100,DIRK_D6D7D8=3,MDN=102;",
           "KSMDI:DIRK=100-4&101-4,MDN=102;"});
  EXPECT_THAT(Lines("KSMDI"), ElementsAre("KSMDI:DIR=100,KEY=3,MDN=102;", "KSMDI:DIR=100,KEY=4,MDN=102;",
                                          "KSMDI:DIR=101,KEY=4,MDN=102;"));
  EXPECT_EQ(Single("SELECT DIRK FROM KSMDI"), Value("100-3"));
  EXPECT_FALSE(Do("KSMDI:DIRK_D1D2D3D4D5=100,MDN=102;"));
  EXPECT_THAT(texts(), ElementsAre("DIR: give DIR and KEY, or DIRK"));
  // A function is added as many times as its composite key has characters.
  Prepare({"KSFKC:DIRK=102-8,FCN=DND;"});
  EXPECT_THAT(Lines("KSFKC"), SizeIs(5));
  EXPECT_THAT(Lines("KSFKC"), Each(Lines("KSFKC").front()));
}

TEST_F(KeyExtensions, AnExtensionHasThirtyFurtherNumbers) {
  Prepare({"KSEXI:DIR=100&&131,ITYPE=3,EQU=next,CAT=1;", "KSEXI:DIR=199,ITYPE=12,EQU=next,CAT=1;"});
  for (int MDN = 100; MDN < 130; ++MDN) Prepare({"KSMDI:DIR=199,KEY=next,MDN=" + std::to_string(MDN) + ";"});
  EXPECT_FALSE(Do("KSMDI:DIR=199,KEY=next,MDN=130;"));
  EXPECT_THAT(texts(), ElementsAre("DIR: The limit of 30 MDNs is reached for DIR. Remove one before you add another."));
  Prepare({"delete KSMDI DIR=199,MDN=100;", "KSMDI:DIR=199,KEY=next,MDN=130;"});
  EXPECT_THAT(Lines("KSMDI"), SizeIs(32)) << "two of the keys are released first";
}

TEST_F(KeyExtensions, AFurtherNumberIsOpenAndOfAnotherExtension) {
  Prepare({"KSEXI:DIR=100&101,ITYPE=3,EQU=next,CAT=1;", "KSEXI:DIR=102,ITYPE=3,EQU=next,CAT=1,ADC_D1=1;",
           "KSANI:DIR=102,KEY=3,ADN=150,CAT=1,ADC_D1=1;", "KSANI:DIR=102,KEY=4,ADN=151,CAT=1,ADC_D1=0;"});
  EXPECT_THAT(Valid("KSMDI", "MDN", {{"DIR", "100"}}), ElementsAre("101", "151"));
  Prepare({"KSMDI:DIR=100,KEY=3,MDN=101;"});
  EXPECT_THAT(Valid("KSMDI", "MDN", {{"DIR", "100"}}), ElementsAre("151"));
}

// --- Additional numbers.

TEST_F(KeyExtensions, AnAdditionalNumberIsTakenMovedAndFreed) {
  Prepare(
      {"KSEXI:DIR=100,ITYPE=3,EQU=next,CAT=1,ADC_D2=1;", "KSANI:DIR=100,KEY=5,ADN=150,CAT=2,CUST=1,DESCRIPTION=Post;"});
  EXPECT_TRUE(IsNumberUsed("150"));
  EXPECT_THAT(Valid("KSANI", "ADN"), Not(Contains("150")));
  EXPECT_THAT(Valid("KSANI", "ADC_D1", {{"DIR", "100"}}), ElementsAre("0"));
  Prepare({"edit KSANI ADN=150:ADN=151,KEY=6;"});
  EXPECT_FALSE(IsNumberUsed("150"));
  EXPECT_TRUE(IsNumberUsed("151"));
  EXPECT_THAT(Lines("KSANI"), ElementsAre("KSANI:DIR=100,ADN=151,KEY=6,CAT=2,CUST=1;"));
  EXPECT_FALSE(Do("edit KSANI ADN=151:CAT=1;"));
  EXPECT_THAT(texts(),
              ElementsAre("This category cannot be given to an additional number. Choose a category without SERV."));
  Prepare({"delete KSANI ADN=151;"});
  EXPECT_FALSE(IsNumberUsed("151"));
  EXPECT_EQ(Single("SELECT COUNT(*) FROM KSANI"), Value(0));
}

// --- Releases.

TEST_F(KeyExtensions, ReleasesDifferInLanguageDigitsAndFurtherNumbers) {
  const std::vector<std::string> extensions = {"KSEXI:DIR=100&&102,ITYPE=3,EQU=next,CAT=1,ADC_D2=1,LANG=2;"};
  const std::string digit = "KSEXI:DIR=110,ITYPE=12,ACCTYP=1,EQU=next,CAT=1,ADC_D11=2;";
  const std::string withMNS = "KSMDI:DIR=100,KEY=3,MDN=101,MNS=YES,DIG=12;";
  const std::string withDIG = "KSMDI:DIR=100,KEY=4,MDN=102,DIG=34;";
  for (const std::string release : {"R6", "R6/1"}) {
    Open(release);
    Prepare(extensions);
    EXPECT_THAT(Lines("KSEXI"), Each(testing::EndsWith(",CAT=1,ADC=01000000000;"))) << release;
    EXPECT_THAT(Valid("KSEXI", "LANG"), ElementsAre("1", "2", "3"));
    EXPECT_THAT(Valid("KSEXI", "ADC_D11"), ElementsAre("no list"));
    EXPECT_FALSE(Do(digit));
    EXPECT_THAT(texts(), ElementsAre("ADC_D11: the release " + release + " does not have this parameter"));
    EXPECT_FALSE(Do("KSMDI:DIR=100,KEY=3,MDN=101,MNS=YES;"));
    EXPECT_THAT(texts(), ElementsAre(StartsWith("DIG: this parameter has to be given")));
    EXPECT_FALSE(Do("KSMDI:DIR=100,KEY=3,MDN=101,MNS=NO,DIG=12;"));
    Prepare({withMNS, withDIG});
    EXPECT_THAT(Lines("KSFKC"), ElementsAre("KSFKC:DIR=100,KEY=3,FCN=MNS,DIG=12;")) << release;
    EXPECT_THAT(Lines("KSMDI"), ElementsAre("KSMDI:DIR=100,KEY=3,MDN=101;", "KSMDI:DIR=100,KEY=4,MDN=102;"));
  }
  for (const std::string release : {"R7", "R8"}) {
    Open(release);
    Prepare(extensions);
    EXPECT_THAT(Lines("KSEXI"), Each(testing::EndsWith(",CAT=1,ADC=01000000000,LANG=2;"))) << release;
    EXPECT_THAT(Valid("KSEXI", "LANG"), SizeIs(6));
    EXPECT_THAT(Valid("KSEXI", "ADC_D11"), ElementsAre("0"));
    EXPECT_THAT(Valid("KSEXI", "ADC_D11", {{"ACCTYP", "1"}}), ElementsAre("0", "1", "2"));
    Prepare({digit, withDIG});
    EXPECT_FALSE(Do(withMNS));
    EXPECT_THAT(texts(), Contains("MNS: the release " + release + " does not have this parameter"));
    EXPECT_THAT(Lines("KSMDI"), ElementsAre("KSMDI:DIR=100,KEY=4,MDN=102,DIG=34;"));
    EXPECT_THAT(Lines("KSFKC"), IsEmpty());
  }
}

// --- The example.

TEST_F(KeyExtensions, TheExampleGivesTheLinesOfItsRelease) {
  for (const std::string release : {"R6", "R8"}) {
    OpenNew(release);
    Apply("plans/example.plan");
    Apply("plans/extensions.plan");
    EXPECT_EQ(Single("SELECT COUNT(*) FROM KSEXI"), Value(40));
    std::string lines;
    for (const char* command : {"EXCCS", "KSEXI", "KSFKC", "KSMDI", "KSANI"}) {
      for (const std::string& line : Lines(command)) lines += line + "\n";
    }
    EXPECT_EQ(lines, Golden("extensions-" + release + ".txt")) << release;
  }
}

TEST_F(KeyExtensions, TheExamplesOfTwoReleasesDifferAsTheirRulesDo) {
  std::istringstream r6(Golden("extensions-R6.txt"));
  std::set<std::string> stripped;
  for (std::string line; std::getline(r6, line);) stripped.insert(line);
  std::istringstream r8(Golden("extensions-R8.txt"));
  std::set<std::string> later;
  for (std::string line; std::getline(r8, line);) {
    const bool digits = line.starts_with("KSMDI") && line.find(",DIG=") != line.npos;
    const std::size_t cut = digits ? line.find(",DIG=") : line.starts_with("KSEXI") ? line.find(",LANG=") : line.npos;
    later.insert(cut == line.npos ? line : line.substr(0, cut) + ";");
  }
  // Without languages and the digits of further numbers the later release has all lines of the earlier one, but for
  // the stored numbers whose keys have been taken.
  std::vector<std::string> earlierAlone;
  std::ranges::set_difference(stripped, later, std::back_inserter(earlierAlone));
  EXPECT_THAT(earlierAlone,
              ElementsAre("KSFKC:DIR=200,KEY=2,FCN=TNS,DIG=216;", "KSFKC:DIR=201,KEY=2,FCN=TNS,DIG=216;",
                          "KSFKC:DIR=202,KEY=2,FCN=TNS,DIG=216;", "KSFKC:DIR=203,KEY=2,FCN=TNS,DIG=216;"));
  EXPECT_TRUE(std::ranges::includes(stripped, later));
}

TEST_F(KeyExtensions, TheLinesOfCategoriesExtensionsAndAdditionalNumbersCanBeReadAsAPlan) {
  OpenNew("R8");
  Apply("plans/example.plan");
  Apply("plans/extensions.plan");
  std::map<std::string, std::vector<std::string>> lines;
  for (const char* command : {"EXCCS", "KSEXI", "KSMDI", "KSANI"}) {
    // A line that releases a fixed key is none of the record's own.
    for (const std::string& line : Lines(command)) lines[command].push_back(line.substr(line.rfind('\n') + 1));
  }
  OpenNew("R8");
  Apply("plans/example.plan");
  for (const char* command : {"EXCCS", "KSEXI", "KSANI", "KSMDI"}) Prepare(lines[command]);
  EXPECT_EQ(Lines("KSEXI"), lines["KSEXI"]);
  EXPECT_EQ(Lines("KSANI"), lines["KSANI"]);
  EXPECT_EQ(Lines("EXCCS"), lines["EXCCS"]);
  EXPECT_THAT(Lines("KSMDI"), SizeIs(lines["KSMDI"].size()));
}

// --- Directory records.

const char* const directoryRecords =
    "SELECT DIR, NUMTYP, CSP, CUST, LANG, LIM, LOCATION, LIC, TYPE FROM GEDII ORDER BY rowid";
const char* const usedNumbers = "SELECT DIR, NUMTYP FROM UsedExtOpeGrp ORDER BY rowid";
const char* const takenNumbers = "SELECT NUMSE FROM NANSI WHERE USED ORDER BY NUMSE";

TEST(GEDIIRoad, EachNumberGetsARecordAndIsTaken) {
  Road road;
  ASSERT_EQ(road.Do("NANSI:NUMTYP=EX,NUMSE=100&&104;"), "done");
  EXPECT_EQ(road.Values("GEDII", "DIR"), "100 101 102 103 104");
  EXPECT_EQ(road.Do("GEDII:DIR=100&&101,CUST=1,LANG=2,LIM=1,LOCATION=HQ,LIC=1;"), "done");
  EXPECT_EQ(road.Do("GEDII:DIR=next;"), "done");
  EXPECT_EQ(road.Rows(directoryRecords), "100|EX|-|1|2|1|HQ|1|- 101|EX|-|1|2|1|HQ|1|- 102|EX|-|-|-|-|-|-|-");
  EXPECT_EQ(road.Rows(takenNumbers), "100 101 102");
  EXPECT_EQ(road.Rows(usedNumbers), "100|EX 101|EX 102|EX");
  EXPECT_EQ(road.Values("GEDII", "DIR"), "103 104");
  EXPECT_EQ(road.Do("GEDII:DIR=101;"), "DIR=101: this value is not possible here [103, 104]");
  EXPECT_THAT(road.Lines(), ElementsAre("NANSI:NUMTYP=EX,NUMSE=100&&104;")) << "it has no lines of its own";
}

TEST(GEDIIRoad, TheLocationFollowsFromTheLIM) {
  Road road;
  ASSERT_EQ(road.Do("NANSI:NUMTYP=EX,NUMSE=100&&104;"), "done");
  EXPECT_EQ(road.Values("GEDII", "LOCATION"), "HQ WORKS");
  EXPECT_EQ(road.Values("GEDII", "LOCATION", {{"LIM", "2"}}), "WORKS");
  EXPECT_EQ(road.Do("GEDII:DIR=100,LOCATION=HQ,LIM=2;"), "LOCATION=HQ: this value is not possible here [WORKS]");
  EXPECT_EQ(road.Do("GEDII:DIR=100,LOCATION=WORKS,LIM=2;"), "done");
  EXPECT_EQ(road.Do("edit GEDII DIR=100:LIM=1;"), "LIM=1: this value is not possible here [2]");
  EXPECT_EQ(road.Do("edit GEDII DIR=100:LOCATION=;"), "done");
  EXPECT_EQ(road.Rows(directoryRecords), "100|EX|-|-|-|2||-|-") << "what an edit clears is the empty text";
  EXPECT_EQ(road.Do("edit GEDII DIR=100:LIM=1,LOCATION=HQ;"), "done");
  EXPECT_EQ(road.Rows(directoryRecords), "100|EX|-|-|-|1|HQ|-|-");
}

TEST(GEDIIRoad, EveryReleaseHasServiceProfilesLanguagesAndLicences) {
  for (const std::string& release : Releases()) {
    Road road(release);
    ASSERT_EQ(road.Do("GESPI:CSP=0,CDIV_D1=0,NPRES_D1=1,ROC_D2=1,SERV_D6=1,TRAF_D1=1;"), "done");
    EXPECT_EQ(road.Values("GEDII", "CSP"), "0");
    EXPECT_EQ(road.Values("GEDII", "CUST"), "1 2");
    EXPECT_EQ(road.Values("GEDII", "LIM"), "1 2");
    EXPECT_EQ(road.Values("GEDII", "LIM", {{"LOCATION", "WORKS"}}), "2");
    EXPECT_EQ(road.Values("GEDII", "LANG"), release.starts_with("R6") ? "1 2 3" : "1 2 3 4 5 6");
    EXPECT_EQ(road.Values("GEDII", "LIC"), "0 1 2");
  }
}

TEST(GEDIIRoad, AnEditMovesTheNumber) {
  Road road;
  ASSERT_EQ(road.Do("NANSI:NUMTYP=EX,NUMSE=100&&104;"), "done");
  ASSERT_EQ(road.Do("NANSI:NUMTYP=EX,NUMSE=200000;"), "done");
  ASSERT_EQ(road.Do("GEDII:DIR=100,CUST=1;"), "done");
  EXPECT_EQ(road.Do("edit GEDII DIR=100:DIR=104,CUST=2;"), "done");
  EXPECT_EQ(road.Rows(directoryRecords), "104|EX|-|2|-|-|-|-|-");
  EXPECT_EQ(road.Rows(takenNumbers), "104");
  EXPECT_EQ(road.Rows(usedNumbers), "104|EX");
  EXPECT_EQ(road.Do("edit GEDII DIR=104:CUST=1,DIR=200000;"),
            "DIR=200000: The value of DIR is not valid: it is too long, or not of the right kind. Give another value.");
  EXPECT_EQ(road.Rows(directoryRecords), "104|EX|-|2|-|-|-|-|-");
}

TEST(GEDIIRoad, ADeleteFreesTheNumberAndLeavesTheCordlessSystem) {
  Road road;
  ASSERT_EQ(road.Do("NANSI:NUMTYP=EX,NUMSE=100&&104;"), "done");
  ASSERT_EQ(road.Do("GEDII:DIR=100&&102;"), "done");
  road.exchange().Dynamic().Run("INSERT INTO CXSYI (CMDID, SARI, SMSN) VALUES (90, '1234', '100'), (91, NULL, '101')");
  EXPECT_EQ(road.Do("delete GEDII DIR=100;"), "done");
  EXPECT_EQ(road.Rows("SELECT SARI, SMSN FROM CXSYI ORDER BY rowid"), "1234|- -|101");
  EXPECT_EQ(road.Do("delete GEDII DIR=101;"), "done");
  EXPECT_EQ(road.Rows("SELECT SARI, SMSN FROM CXSYI ORDER BY rowid"), "1234|-");
  EXPECT_EQ(road.Rows("SELECT DIR FROM GEDII"), "102");
  EXPECT_EQ(road.Rows(takenNumbers), "102");
  EXPECT_EQ(road.Values("GEDII", "DIR"), "100 101 103 104");
  EXPECT_EQ(road.Do("delete GEDII DIR=100;"), "there is no record of GEDII with DIR=100");
}

// --- Speed options.

const char* const speedOptions = "SELECT DIR, NUMTYP, OPT, NDC FROM SPEXI ORDER BY rowid";

// Three key extensions, of which the first has an additional number, and three general extensions, of which the last
// has a list of its own.
struct SPEXIRoad : testing::Test {
  Road road;

  void SetUp() override { Fill(road); }

  static void Fill(Road& on) {
    for (const std::string& line : {series, category1, std::string("KSEXI:DIR=100&&102,ITYPE=3,EQU=next,CAT=1;"),
                                    std::string("KSANI:DIR=100,KEY=1,ADN=150,CAT=1;")})
      ASSERT_EQ(on.Do(line), "done") << line;
    SQLite(on, "INSERT INTO EXTEIDIR (CmdId, DIR) VALUES (90, '160'), (91, '161'), (92, '162')");
    SQLite(on, "INSERT INTO PELPI (CmdId, DIR) VALUES (93, '162')");
    SQLite(on, "INSERT INTO ITNUI (CmdId, DIR) VALUES (94, '170')");
    SQLite(on, "INSERT INTO CXAKI (CmdId, DIR) VALUES (95, '180')");
  }

  static void SQLite(Road& on, const std::string& sql) { on.exchange().Dynamic().Run(sql); }
};

TEST_F(SPEXIRoad, TheFirstOptionDecidesWhichNumbersArePossible) {
  for (const std::string& release : Releases()) {
    Road of(release);
    Fill(of);
    EXPECT_EQ(of.Values("SPEXI", "OPT"), "A E L N D");
    EXPECT_EQ(of.Values("SPEXI", "DIR"), "160 161 162 100 101 102 180 170 150");
    EXPECT_EQ(of.Values("SPEXI", "DIR", {{"OPT", "L&A"}}), "160 161 162 100 101 102 180 170 150");
    EXPECT_EQ(of.Values("SPEXI", "DIR", {{"OPT", "E&L"}}), "160 161 150 180");
    EXPECT_EQ(of.Values("SPEXI", "DIR", {{"OPT", "A"}}), "160 161 162");
  }
}

TEST_F(SPEXIRoad, ANumberHasOneRecordAtMost) {
  EXPECT_EQ(road.Do("SPEXI:DIR=100&101,OPT=L;"), "done");
  EXPECT_EQ(road.Do("SPEXI:DIR=160,OPT=A&L;"), "done");
  EXPECT_EQ(road.Rows(speedOptions), "100|EX|L|- 101|EX|L|- 160|EX|A&L|-");
  EXPECT_EQ(road.Do("SPEXI:DIR=160,OPT=A;"), "DIR=160: this value is not possible here [161, 162]");
  EXPECT_EQ(road.Do("SPEXI:DIR=100,OPT=A;"), "DIR=100: this value is not possible here [161, 162]");
  EXPECT_EQ(road.Do("delete SPEXI DIR=160;"), "done");
  EXPECT_EQ(road.Values("SPEXI", "DIR", {{"OPT", "A"}}), "160 161 162");
  EXPECT_EQ(road.Rows("SELECT COUNT(*) FROM EXTEIDIR"), "3") << "the number stays in use";
}

TEST_F(SPEXIRoad, TheOptionsNAndDExcludeEachOtherAndNeedANumber) {
  const std::string missing = "NDC=: this parameter has to be given (Number that the options N and D dial)";
  EXPECT_EQ(road.Do("SPEXI:DIR=100,OPT=N;"), missing);
  EXPECT_EQ(road.Do("SPEXI:DIR=100,OPT=L&D;"), missing);
  EXPECT_EQ(road.Do("SPEXI:DIR=100,OPT=N&D,NDC=101;"),
            "OPT=N&D: these values do not go together with the others of OPT");
  EXPECT_EQ(road.Rows(speedOptions), "");
  EXPECT_EQ(road.Do("SPEXI:DIR=100,NDC=101,OPT=N&L;"), "done");
  EXPECT_EQ(road.Rows(speedOptions), "100|EX|N&L|101");
  EXPECT_EQ(road.Values("SPEXI", "OPT", {{"OPT", "N"}}), "A E L N");
  EXPECT_EQ(road.Values("SPEXI", "OPT", {{"OPT", "L&D"}}), "A E L D");
}

TEST_F(SPEXIRoad, AnotherChoiceBringsTheExcludedOptionBack) {
  Filling filling(road.session(), *FindForm("SPEXI"));
  filling.Set({"OPT", "N"});
  EXPECT_TRUE(filling.form().IsMandatory("NDC"));
  EXPECT_EQ(road.Offered("OPT"), "A E L N");
  filling.Set({"OPT", "N&L"});
  EXPECT_TRUE(filling.form().IsMandatory("NDC"));
  filling.Set({"OPT", "L"});
  EXPECT_FALSE(filling.form().IsMandatory("NDC"));
  EXPECT_EQ(road.Offered("OPT"), "A E L N D");
  EXPECT_THAT(filling.problems(), IsEmpty());
}

TEST_F(SPEXIRoad, AnEditChangesTheOptions) {
  ASSERT_EQ(road.Do("SPEXI:DIR=100,OPT=N,NDC=101;"), "done");
  EXPECT_EQ(road.Do("edit SPEXI DIR=100:OPT=D;"), "OPT=D: this value is not possible here [A, E, L, N]");
  EXPECT_EQ(road.Do("edit SPEXI DIR=100:NDC=;"),
            "NDC=: this parameter has to be given (Number that the options N and D dial)");
  EXPECT_EQ(road.Do("edit SPEXI DIR=100:OPT=L,NDC=;"), "done");
  EXPECT_EQ(road.Rows(speedOptions), "100|EX|L|-");
  EXPECT_EQ(road.Do("edit SPEXI DIR=100:OPT=L&D,NDC=102,DIR=101;"), "done");
  EXPECT_EQ(road.Rows(speedOptions), "101|EX|L&D|102");
}

// --- Names.

const std::string names = "SELECT DIR, GRP, OPE, DNUM, NUMTYP, NAME1, NAME2, PRES, NAMDB, AUX FROM " +
                          ShippedSchema().Database("dynamic").RowsOf("NIINI");

struct NIINIRoad : testing::Test {
  Road road;

  void SetUp() override { Fill(road); }

  // Numbers of each kind: two key extensions, an additional number, a directory record, an abbreviated number, a group
  // and an operator.
  static void Fill(Road& on) {
    for (const std::string& line : {series, category1, std::string("KSEXI:DIR=100&101,ITYPE=3,EQU=next,CAT=1;"),
                                    std::string("KSANI:DIR=100,KEY=1,ADN=150,CAT=1;"), std::string("GEDII:DIR=160;")})
      ASSERT_EQ(on.Do(line), "done") << line;
    for (const char* sql :
         {"INSERT INTO ADCOI (CmdId, ABB) VALUES (90, '70')", "INSERT INTO GHGRI (CmdId, GRP) VALUES (91, '500')",
          "INSERT INTO OPERI (CmdId, DIR) VALUES (92, '900')"})
      on.exchange().Dynamic().Run(sql);
  }
};

TEST_F(NIINIRoad, TheReleaseAndTheNameDatabaseDecideWhichNumbersArePossible) {
  for (const std::string& release : Releases()) {
    Road of(release);
    Fill(of);
    const std::string records = release.starts_with("R6") ? "" : " 160";
    EXPECT_EQ(of.Values("NIINI", "DIR"), "100 101 150" + records);
    EXPECT_EQ(of.Values("NIINI", "DIR", {{"NAMDB", "YES"}}), "100 101 150 70" + records);
    EXPECT_EQ(of.Values("NIINI", "GRP"), "500");
    EXPECT_EQ(of.Values("NIINI", "OPE"), "900");
    EXPECT_EQ(of.Values("NIINI", "DNUM"), "no list");
    EXPECT_EQ(of.Values("NIINI", "NAMDB"), "YES NO");
    EXPECT_EQ(of.Values("NIINI", "PRES"), "00 10 01 11");
    EXPECT_EQ(of.Values("NIINI", "PRES_D2"), "0 1");
  }
}

TEST_F(NIINIRoad, ANameOfEachKindStandsInATableOfItsOwn) {
  for (const char* line : {"NIINI:DIR=100,NAME1=Smith;", "NIINI:DIR=70,NAMDB=YES,NAME1=Taxi,NAME2=Town;",
                           "NIINI:GRP=500,NAME1=Sales,PRES_D1=1,AUX=5,NAMDB=NO,NAME2=Shop;",
                           "NIINI:OPE=900,NAME1=Desk;", "NIINI:DNUM=4711,NAME1=Porter;"})
    EXPECT_EQ(road.Do(line), "done") << line;
  EXPECT_EQ(road.Rows(names),
            "100|-|-|-|EX|Smith|-|-|-|- 70|-|-|-|AC|Taxi|Town|-|YES|- -|500|-|-|EX|Sales|Shop|10|NO|5 "
            "-|-|900|-|OI|Desk|-|-|-|- -|-|-|4711|DN|Porter|-|-|-|-");
  EXPECT_EQ(road.Rows("SELECT COUNT(*) FROM NIINI_DIR"), "2");
  EXPECT_EQ(road.Rows("SELECT DIR, AUX FROM NIINI_DNUM"), "-|-");
}

TEST_F(NIINIRoad, ANameNeedsANumberAndTheNameDatabaseASecondName) {
  EXPECT_EQ(road.Do("NIINI:NAME1=Smith;"), "DIR=: give DIR, or GRP, or OPE, or DNUM");
  EXPECT_EQ(road.Do("NIINI:DIR=70,NAME1=Taxi;"), "DIR=70: this value is not possible here [100, 101, 150, 160]");
  EXPECT_EQ(road.Do("NIINI:DIR=100,NAME1=Smith,NAMDB=YES;"),
            "NAME2=: this parameter has to be given (Second name; the name database needs it)");
  EXPECT_EQ(road.Do("NIINI:DIR=100,NAME1=Smith,AUX=5;"),
            "NAMDB=: this parameter has to be given (Whether the name stands in the name database)");
  EXPECT_EQ(road.Rows(names), "");
}

TEST_F(NIINIRoad, ASecondNameForANumberGoesOverTheFirst) {
  for (const char* line : {"NIINI:DIR=100,NAME1=Smith,NAME2=John,PRES=11;", "NIINI:DIR=100,NAME1=Smythe;",
                           "NIINI:DNUM=4711,NAME1=Porter;", "NIINI:DNUM=4711,PRES=01;"})
    EXPECT_EQ(road.Do(line), "done") << line;
  EXPECT_EQ(road.Rows(names), "100|-|-|-|EX|Smythe|John|11|-|- -|-|-|4711|DN|Porter|-|01|-|-");
}

TEST_F(NIINIRoad, ANameIsChangedByItsNumber) {
  for (const char* line : {"NIINI:DIR=100,NAME1=Smith,NAME2=John;", "NIINI:GRP=500,NAME1=Sales;",
                           "NIINI:OPE=900,NAME1=Desk;", "NIINI:DNUM=4711,NAME1=Porter,PRES=11;"})
    ASSERT_EQ(road.Do(line), "done") << line;
  EXPECT_EQ(road.Do("edit NIINI DIR=100:NAME2=,PRES_D2=1;"), "done");
  EXPECT_EQ(road.Do("edit NIINI GRP=500:NAME1=Shop;"), "done");
  EXPECT_EQ(road.Do("edit NIINI OPE=900:NAME1=Switchboard;"), "done");
  EXPECT_EQ(road.Do("edit NIINI DNUM=4711:PRES_D1=0;"), "done");
  EXPECT_EQ(road.Rows(names),
            "100|-|-|-|EX|Smith|-|01|-|- -|500|-|-|EX|Shop|-|-|-|- -|-|900|-|OI|Switchboard|-|-|-|- "
            "-|-|-|4711|DN|Porter|-|01|-|-");
  EXPECT_EQ(road.Do("edit NIINI GRP=500:DIR=101;"),
            "DIR=101: the DIR of a record cannot be changed; add another record");
  EXPECT_EQ(road.Do("edit NIINI DIR=101:NAME1=Jones;"), "there is no record of NIINI with DIR=101");
}

TEST_F(NIINIRoad, ANameThatLeavesTheNameDatabaseKeepsItsNumber) {
  ASSERT_EQ(road.Do("NIINI:DIR=70,NAMDB=YES,NAME1=Taxi,NAME2=Town;"), "done");
  EXPECT_EQ(road.Do("edit NIINI DIR=70:NAMDB=;"), "DIR=: give DIR, or GRP, or OPE, or DNUM");
  ASSERT_EQ(road.Do("NIINI:DIR=100,NAMDB=YES,NAME1=Smith,NAME2=John;"), "done");
  EXPECT_EQ(road.Do("edit NIINI DIR=100:NAMDB=;"), "done");
  EXPECT_EQ(road.Rows(names), "70|-|-|-|AC|Taxi|Town|-|YES|- 100|-|-|-|EX|Smith|John|-|-|-");
}

TEST_F(NIINIRoad, ANameOfEachKindIsDeleted) {
  for (const char* line : {"NIINI:DIR=100,NAME1=Smith;", "NIINI:GRP=500,NAME1=Sales;", "NIINI:OPE=900,NAME1=Desk;",
                           "NIINI:DNUM=4711,NAME1=Porter;"})
    ASSERT_EQ(road.Do(line), "done") << line;
  EXPECT_EQ(road.Do("delete NIINI GRP=500;"), "done");
  EXPECT_EQ(road.Do("delete NIINI DNUM=4711;"), "done");
  EXPECT_EQ(road.Rows(names), "100|-|-|-|EX|Smith|-|-|-|- -|-|900|-|OI|Desk|-|-|-|-");
  EXPECT_EQ(road.Do("delete NIINI OPE=900;"), "done");
  EXPECT_EQ(road.Do("delete NIINI DIR=100;"), "done");
  EXPECT_EQ(road.Rows(names), "");
}

// --- ITNUI.

const char* const terminals = "SELECT DIR, EQU, ACCTYP, CAT FROM ITNUI ORDER BY DIR";

// Two telephones on a board of type 77, of which the first may have terminals beside it, and a board of type 70.
struct ITNUIRoad : testing::Test {
  Road road;

  void SetUp() override {
    for (const std::string& line :
         {series, category1, std::string("KSEXI:DIR=100,ITYPE=12,ACCTYP=1,EQU=001-0-11-00,CAT=1;"),
          std::string("KSEXI:DIR=101,ITYPE=12,EQU=001-0-11-01,CAT=1;")})
      ASSERT_EQ(road.Do(line), "done") << line;
  }

  void Add(int count, int from, const std::string& EQU) {
    for (int DIR = from; DIR < from + count; ++DIR)
      ASSERT_EQ(road.Do("ITNUI:DIR=" + std::to_string(DIR) + ",EQU=" + EQU + ",CAT=1;"), "done") << DIR;
  }
  std::string IsUsed(const std::string& DIR, const std::string& EQU) {
    return road.Rows("SELECT NANSI.USED, Equipment.USED FROM NANSI, Equipment WHERE NUMSE = '" + DIR + "' AND EQU = '" +
                     EQU + "'");
  }
};

TEST_F(ITNUIRoad, TerminalsStandBesideATelephoneThatMayHaveThemOrOnABoardOfTheirOwn) {
  EXPECT_EQ(road.Values("ITNUI", "EQU"), "001-0-11-00 002-0-12-00 002-0-12-02 002-0-12-04 002-0-12-06");
  for (const char* line :
       {"ITNUI:DIR=150,EQU=001-0-11-00,CAT=1;", "ITNUI:DIR=151,EQU=001-0-11-00,CAT=1,ADC_D7=2,CUST=2;",
        "ITNUI:DIR=152,EQU=002-0-12-02,ACCTYP=2,TRAF=11,SERV_D2=1,SERV_D7D8=11,CDIV_D6=0,ROC_D1=1,ROC_D5D6=07;"})
    EXPECT_EQ(road.Do(line), "done") << line;
  EXPECT_EQ(road.Rows(terminals), "150|001-0-11-00|-|1 151|001-0-11-00|-|1 152|002-0-12-02|2|-");
  EXPECT_EQ(road.Rows("SELECT NUMTYP, TRAF, SERV, CDIV, ROC, ADC, CUST FROM ITNUI ORDER BY DIR"),
            "EX|-|-|-|-|-|- EX|-|-|-|-|00000020|2 EX|11|010000110|000000000|100007|-|-");
  EXPECT_EQ(IsUsed("152", "002-0-12-02"), "True|True");
  EXPECT_EQ(road.Do("ITNUI:DIR=150,EQU=002-0-12-00,CAT=1;").substr(0, 42),
            "DIR=150: this value is not possible here [");
  EXPECT_EQ(road.Do("ITNUI:DIR=153,EQU=001-0-11-01,CAT=1;"),
            "EQU=001-0-11-01: this value is not possible here "
            "[001-0-11-00, 002-0-12-00, 002-0-12-02, 002-0-12-04, 002-0-12-06]");
  EXPECT_THAT(road.Lines(), Each(Not(StartsWith("ITNUI"))));
}

TEST_F(ITNUIRoad, ATerminalNeedsACategoryOrAllClassStrings) {
  EXPECT_EQ(road.Do("ITNUI:DIR=150,EQU=002-0-12-00,TRAF=1,SERV_D2=1;"), "CAT=: give CAT, or TRAF, SERV, CDIV and ROC");
  EXPECT_EQ(road.Rows(terminals), "");
}

TEST_F(ITNUIRoad, ATerminalBesideATelephoneHasNoAccessTypeOfItsOwn) {
  const std::string refused =
      "ACCTYP cannot be used at this equipment position. Leave ACCTYP empty, or choose another position.";
  EXPECT_EQ(road.Do("ITNUI:DIR=150,EQU=001-0-11-00,ACCTYP=1,CAT=1;"), "ACCTYP=1: " + refused);
  EXPECT_EQ(IsUsed("150", "002-0-12-00"), "False|False");
  EXPECT_EQ(road.Do("ITNUI:DIR=150,EQU=002-0-12-00,ACCTYP=1,CAT=1;"), "done");
  EXPECT_EQ(road.Do("edit ITNUI DIR=150:CUST=1,EQU=001-0-11-00;"), "ACCTYP=1: " + refused);
  EXPECT_EQ(road.Rows("SELECT EQU, CUST FROM ITNUI"), "002-0-12-00|-");
  EXPECT_EQ(road.Do("edit ITNUI DIR=150:EQU=001-0-11-00,ACCTYP=;"), "done");
  EXPECT_EQ(road.Rows(terminals), "150|001-0-11-00||1");
  EXPECT_EQ(road.Do("edit ITNUI DIR=150:ACCTYP=2;"), "ACCTYP=2: " + refused);
}

TEST_F(ITNUIRoad, APositionTakesUpTo32Terminals) {
  Add(31, 110, "001-0-11-00");
  Add(31, 150, "002-0-12-00");
  EXPECT_EQ(road.Values("ITNUI", "EQU"), "001-0-11-00 002-0-12-00 002-0-12-02 002-0-12-04 002-0-12-06");
  Add(1, 141, "001-0-11-00");
  EXPECT_EQ(road.Values("ITNUI", "EQU"), "002-0-12-00 002-0-12-02 002-0-12-04 002-0-12-06");
  Add(1, 181, "002-0-12-00");
  EXPECT_EQ(road.Values("ITNUI", "EQU"), "002-0-12-02 002-0-12-04 002-0-12-06");
  EXPECT_EQ(road.Do("ITNUI:DIR=190,EQU=002-0-12-00,CAT=1;"),
            "EQU=002-0-12-00: this value is not possible here [002-0-12-02, 002-0-12-04, 002-0-12-06]");
  EXPECT_EQ(road.Do("edit ITNUI DIR=150:EQU=002-0-12-00,CUST=1;"), "done");
}

// The statement for the positions of a location names a table that it does not join.
TEST_F(ITNUIRoad, TheLocationDoesNotNarrowThePositionsAndIsComparedWithTheOneChosen) {
  FillForm(road.session(), *FindForm("ITNUI"), {{"LOCATION", "WORKS"}});
  EXPECT_EQ(road.Offered("EQU"), "no list");
  const std::vector<ReportedMessage> messages = road.session().host().TakeMessages();
  ASSERT_THAT(messages, SizeIs(1));
  EXPECT_EQ(messages.front().text,
            "The values of EQU could not be read. Check it and the values that it depends on, then try again.");

  EXPECT_EQ(road.Values("ITNUI", "LOCATION"), "HQ WORKS");
  EXPECT_EQ(road.Values("ITNUI", "LOCATION", {{"EQU", "002-0-12-00"}}), "WORKS");
  EXPECT_EQ(road.Do("ITNUI:LOCATION=HQ,DIR=150,EQU=002-0-12-00,CAT=1;"),
            "LOCATION=HQ: this value is not possible here [WORKS]");
  EXPECT_EQ(road.Do("ITNUI:LOCATION=WORKS,DIR=150,EQU=002-0-12-00,CAT=1;"), "done");
}

TEST_F(ITNUIRoad, AnEditMovesTheNumberAndThePosition) {
  Add(2, 150, "002-0-12-00");
  EXPECT_EQ(road.Do("edit ITNUI DIR=150:DIR=160,EQU=002-0-12-04,CUST=2;"), "done");
  EXPECT_EQ(road.Rows(terminals), "151|002-0-12-00|-|1 160|002-0-12-04|-|1");
  EXPECT_EQ(road.Rows("SELECT CUST FROM ITNUI WHERE DIR = '160'"), "2");
  // The position counts as free although the other terminal still stands on it.
  EXPECT_EQ(IsUsed("150", "002-0-12-00"), "False|False");
  EXPECT_EQ(IsUsed("160", "002-0-12-04"), "True|True");
  EXPECT_EQ(road.Rows("SELECT DIR FROM UsedExtOpeGrp ORDER BY DIR"), "100 101 151 160");
}

TEST_F(ITNUIRoad, ADeletedTerminalFreesItsNumberAndThePositionOfAll) {
  Add(2, 150, "001-0-11-00");
  EXPECT_EQ(road.Do("delete ITNUI DIR=150;"), "done");
  EXPECT_EQ(road.Rows(terminals), "151|001-0-11-00|-|1");
  EXPECT_EQ(IsUsed("150", "001-0-11-00"), "False|False");
  EXPECT_EQ(road.Do("delete ITNUI DIR=150;"), "there is no record of ITNUI with DIR=150");
}

TEST_F(ITNUIRoad, WithTheTelephoneItsTerminalsGoAndTheirNumbersStayInUse) {
  Add(2, 150, "001-0-11-00");
  Add(1, 160, "002-0-12-00");
  EXPECT_EQ(road.Do("delete KSEXI DIR=100;"), "done");
  EXPECT_EQ(road.Rows(terminals), "160|002-0-12-00|-|1");
  EXPECT_EQ(IsUsed("150", "001-0-11-00"), "True|False");
}

// --- ITNUITEMPLATE.

TEST_F(ITNUIRoad, ATemplateOccupiesNothingAndTerminalsAreMadeFromIt) {
  const std::string used =
      "SELECT (SELECT COUNT(*) FROM NANSI WHERE USED), (SELECT COUNT(*) FROM Equipment WHERE USED)";
  const std::string before = road.Rows(used);
  for (const char* line : {"ITNUITEMPLATE:TEMPLATENAME=Fax,CAT=1,ADC_D7=1,CUST=1;",
                           "ITNUITEMPLATE:TEMPLATENAME=Data,ACCTYP=1,CAT=1;", "ITNUITEMPLATE:TEMPLATENAME=Idle;",
                           "edit ITNUITEMPLATE TEMPLATENAME=Fax:CUST=2;", "delete ITNUITEMPLATE TEMPLATENAME=Idle;"})
    EXPECT_EQ(road.Do(line), "done") << line;
  EXPECT_EQ(road.Rows(used), before);
  EXPECT_EQ(road.Do("edit ITNUITEMPLATE TEMPLATENAME=Data:ACCTYP=2;"),
            "ACCTYP=2: the ACCTYP of a record cannot be changed; add another record");

  EXPECT_EQ(road.Do("ITNUI from Fax:DIR=150,EQU=001-0-11-00;"), "done");
  EXPECT_EQ(
      road.Do("ITNUI from Data:DIR=151,EQU=001-0-11-00;"),
      "ACCTYP=1: ACCTYP cannot be used at this equipment position. Leave ACCTYP empty, or choose another position.");
  EXPECT_EQ(road.Do("ITNUI from Data:DIR=151,EQU=001-0-11-00,ACCTYP=;"), "done");
  EXPECT_EQ(road.Do("ITNUI from Data:DIR=152,EQU=002-0-12-00;"), "done");
  EXPECT_EQ(road.Rows(terminals), "150|001-0-11-00|-|1 151|001-0-11-00|-|1 152|002-0-12-00|1|1");
  EXPECT_EQ(road.Rows("SELECT ADC, CUST FROM ITNUI WHERE DIR = '150'"), "00000010|2");
}

}  // namespace
}  // namespace cordboard::workbench
