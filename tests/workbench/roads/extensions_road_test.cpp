// General extensions as a user meets them: EXTEI on a real exchange.

#include <gmock/gmock.h>

#include "support/Road.h"

namespace cordboard::workbench {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

// An exchange with the numbers 400 to 419 and the category 1.
class EXTEIRoad : public testing::Test {
 protected:
  void SetUp() override {
    for (const char* line : {"NANSI:NUMTYP=EX,NUMSE=400&&419;", "EXCCS:CAT=1,TRAF=11,SERV_D6=1,CDIV_D1=1,ROC_D2=1;"})
      ASSERT_EQ(road_.Do(line), "done") << line;
  }

  std::string Do(const std::string& line) { return road_.Do(line); }
  std::string Rows(const std::string& sql) { return road_.Rows(sql); }
  std::string Values(const std::string& parameter, const std::vector<Assignment>& given = {}) {
    return road_.Values("EXTEI", parameter, given);
  }
  // The numbers and the positions that are in use.
  std::string Used() {
    return Rows("SELECT NUMSE FROM NANSI WHERE USED ORDER BY NUMSE") + " on " +
           Rows("SELECT EQU FROM Equipment WHERE USED ORDER BY EQU");
  }

 private:
  Road road_;
};

const char* const mainNumbers = "SELECT DIR, EQU, TYPE, CAT, ICAT FROM EXTEIDIR ORDER BY DIR";
const char* const furtherNumbers = "SELECT AUX, EQU, DIR_AUX, CAT FROM EXTEIAUX ORDER BY AUX";

// --- Adding.

TEST_F(EXTEIRoad, SeveralNumbersGoOnSeveralPositions) {
  EXPECT_EQ(Do("EXTEI:DIR=400&&402,TYPE=EL6,EQU=001-0-13-00&&001-0-13-02,ICAT_D1=1,CAT=1,CUST=1,LOCATION=HQ,ROOM=7;"),
            "done");
  EXPECT_EQ(Rows(mainNumbers), "400|001-0-13-00|EL6|1|1000 401|001-0-13-01|EL6|1|1000 402|001-0-13-02|EL6|1|1000");
  EXPECT_EQ(Rows("SELECT COUNT(DISTINCT CmdId), NUMTYP, CUST, LOCATION, ROOM, TRAF FROM EXTEIDIR"), "3|EX|1|HQ|7|-");
  EXPECT_EQ(Used(), "400 401 402 on 001-0-13-00 001-0-13-01 001-0-13-02");
  for (const char* table : {"UsedExtOpeGrp", "UsedExtensionsAndOperators", "UsedNumbers"})
    EXPECT_EQ(Rows(std::string("SELECT DIR FROM ") + table + " ORDER BY DIR"), "400 401 402");
}

TEST_F(EXTEIRoad, NextTakesTheFirstNumbersAndFreePositions) {
  ASSERT_EQ(Do("EXTEI:DIR=401,TYPE=EL6,EQU=001-0-13-01,CAT=1;"), "done");
  EXPECT_EQ(Do("EXTEI:DIR=next:3,TYPE=EL6,EQU=next,CAT=1;"), "done");
  EXPECT_EQ(Rows("SELECT DIR, EQU FROM EXTEIDIR ORDER BY DIR"),
            "400|001-0-13-00 401|001-0-13-01 402|001-0-13-02 403|001-0-13-03");
  EXPECT_EQ(Do("EXTEI:DIR=next:2,TYPE=EL7,EQU=next,CAT=1;"), "done");
  EXPECT_EQ(Do("EXTEI:DIR=next,TYPE=EL8,EQU=next,CAT=1;"), "done");
  EXPECT_EQ(Rows("SELECT DIR, EQU FROM EXTEIDIR WHERE TYPE <> 'EL6' ORDER BY DIR"),
            "404|001-0-15-01 405|001-0-15-02 406|001-0-11-00");
}

TEST_F(EXTEIRoad, AMainNumberNeedsItsTypeAndAPositionOfItsOwn) {
  EXPECT_EQ(Do("EXTEI:CAT=1;"),
            "DIR=: this parameter has to be given (Main number, a free one of type EX)\n"
            "TYPE=: this parameter has to be given (Type; the boards and the digits of ICAT follow from it)\n"
            "EQU=: this parameter has to be given (Equipment position, one for each main number)");
  EXPECT_EQ(Do("EXTEI:DIR=400&401,TYPE=EL6,EQU=001-0-13-00,CAT=1;"),
            "EQU=: DIR and EQU go in pairs, and there are 2 and 1 of them; give as many of each");
  EXPECT_EQ(Do("EXTEI:DIR=400,TYPE=EL6,EQU=001-0-13-00;"), "CAT=: give CAT, or TRAF, SERV, CDIV and ROC");
  EXPECT_EQ(Do("EXTEI:DIR=400,TYPE=EL6,EQU=001-0-13-00,CAT=1,DESCRIPTION=Hall;"),
            "DESCRIPTION=Hall: a record of the table EXTEIDIR does not have this parameter; leave it out");
  EXPECT_EQ(Rows(mainNumbers), "");
}

TEST_F(EXTEIRoad, ThePositionsAreThoseOfTheType) {
  const auto boards = [&](const std::string& type) {
    const std::string positions = Values("EQU", {{"TYPE", type}});
    std::string found;
    for (std::size_t at = 0; at < positions.size(); at += 12) {
      const std::string board = positions.substr(at, 8);
      if (!found.ends_with(board)) found += (found.empty() ? "" : " ") + board;
    }
    return found;
  };
  EXPECT_EQ(boards("EL6"), "001-0-13 001-0-14 001-0-15 001-0-17 002-0-13 002-0-14 002-0-15");
  EXPECT_EQ(boards("EL7"), "001-0-15 001-0-16");
  EXPECT_EQ(boards("EL8"), "001-0-11 002-0-11");
  EXPECT_EQ(Values("EQU", {{"TYPE", "EL7"}}).find("001-0-15-16"), std::string::npos);
  EXPECT_EQ(Values("ADC_D1", {{"TYPE", "EL6"}}), "0");
  EXPECT_EQ(Values("ADC_D1", {{"TYPE", "EL7"}}), "1 2");
}

TEST_F(EXTEIRoad, APositionOfASharedBoardIsListedAlsoWhereItIsUsed) {
  ASSERT_EQ(Do("EXTEI:DIR=400,TYPE=EL7,EQU=001-0-16-00,CAT=1;"), "done");
  EXPECT_THAT(Values("EQU", {{"TYPE", "EL7"}}), HasSubstr("001-0-16-00"));
  EXPECT_EQ(Do("EXTEI:DIR=401,TYPE=EL7,EQU=next,CAT=1;"), "done");
  EXPECT_EQ(Rows("SELECT EQU FROM EXTEIDIR WHERE DIR = '401'"), "001-0-15-01") << "next passes over used ones";
}

// --- The digits of ICAT.

TEST_F(EXTEIRoad, TheDigitsAreThoseOfTheType) {
  const std::string el6 = "EXTEI:DIR=400,TYPE=EL6,EQU=001-0-13-00,CAT=1,";
  const std::string el7 = "EXTEI:DIR=401,TYPE=EL7,EQU=001-0-15-01,CAT=1,";
  const std::string el8 = "EXTEI:DIR=402,TYPE=EL8,EQU=001-0-11-00,CAT=1,";
  const std::string notHere =
      ": ICAT does not have this digit here: its digits follow from the values before it; leave it out";
  EXPECT_EQ(Do(el6 + "ICAT_D1_SUB1=1;"), "ICAT_D1_SUB1=1" + notHere);
  EXPECT_EQ(Do(el7 + "ICAT_D1=1;"), "ICAT_D1=1" + notHere);
  EXPECT_EQ(Do(el8 + "ICAT_D3_SUB1=1;"), "ICAT_D3_SUB1=1" + notHere);
  EXPECT_THAT(Do(el6 + "ICAT_D3=6;"), StartsWith("ICAT_D3=6: this value is not possible here"));
  EXPECT_EQ(Do(el6 + "ICAT_D1=2,ICAT_D3=1,ICAT_D4_SUB1=1,ICAT_D4_SUB3=4;"), "done");
  EXPECT_EQ(Do(el7 + "ICAT_D1_SUB1=1,ICAT_D1_SUB2=2,ICAT_D1_SUB4=8,ICAT_D2=3,ICAT_D4=2;"), "done");
  EXPECT_EQ(Do(el8 + "ICAT_D2_SUB2=2,ICAT_D4_SUB2=2,ICAT_D4_SUB3=4;"), "done");
  EXPECT_EQ(Rows("SELECT ICAT FROM EXTEIDIR ORDER BY DIR"), "2015 B302 0206");
}

TEST_F(EXTEIRoad, ADigitIsGivenAsAWholeOrByItsParts) {
  const std::string onBoard104 = "EXTEI:DIR=400,TYPE=EL6,EQU=001-0-14-00,CAT=1,";
  EXPECT_EQ(Do(onBoard104 + "ICAT_D3=C,ICAT_D3_SUB1=0;"),
            "ICAT_D3_SUB1=0: this is a part of ICAT_D3, which is given as well; give one of the two");
  EXPECT_EQ(Do(onBoard104 + "ICAT_D3_SUB1=1,ICAT_D3_SUB2=4,ICAT_D3_SUB3=8;"), "done");
  EXPECT_EQ(Rows("SELECT ICAT FROM EXTEIDIR"), "00D0");
  EXPECT_EQ(
      Do("edit EXTEI DIR=400:ICAT_D3_SUB1=0;"),
      "ICAT_D3_SUB2=: this parameter has to be given as well: it and the one that is changed add up to D in ICAT\n"
      "ICAT_D3_SUB3=: this parameter has to be given as well: it and the one that is changed add up to D in ICAT");
  EXPECT_EQ(Do("edit EXTEI DIR=400:ICAT_D3=8;"), "done");
  EXPECT_EQ(Do("edit EXTEI DIR=400:ICAT_D3_SUB1=1,ICAT_D3_SUB2=2,ICAT_D3_SUB3=8;"), "done");
  EXPECT_EQ(Rows("SELECT ICAT FROM EXTEIDIR"), "00B0");
}

TEST_F(EXTEIRoad, TheDigitsThatABoardDoesNotHaveAreNotOffered) {
  const std::vector<Assignment> onBoard104 = {{"TYPE", "EL6"}, {"EQU", "001-0-14-00"}};
  EXPECT_EQ(Values("ICAT_D2", onBoard104), "0 1 2 3");
  EXPECT_EQ(Values("ICAT_D2", {{"TYPE", "EL6"}, {"EQU", "001-0-14-00"}, {"ICAT_D3", "C"}}), "0");
  EXPECT_EQ(Values("ICAT_D2", {{"TYPE", "EL6"}, {"EQU", "001-0-13-00"}}), "0");
  EXPECT_EQ(Values("ICAT_D3_SUB2", {{"TYPE", "EL6"}, {"EQU", "002-0-13-00"}}), "0 2");
  EXPECT_EQ(Values("ICAT_D3_SUB2", onBoard104), "0 2 4");
  EXPECT_EQ(Values("ICAT_D3_SUB3", {{"TYPE", "EL6"}, {"EQU", "002-0-13-00"}}), "0");
  EXPECT_EQ(Values("ICAT_D1_SUB4", {{"TYPE", "EL7"}, {"ICAT_D1_SUB1", "0"}}), "0");
  EXPECT_EQ(Values("ICAT_D1_SUB4", {{"TYPE", "EL7"}, {"ICAT_D1_SUB1", "1"}}), "0 8");
  EXPECT_EQ(Do("EXTEI:DIR=400,TYPE=EL6,EQU=001-0-13-00,CAT=1,ICAT_D2_SUB1=1;"),
            "ICAT_D2_SUB1=1: its parts make ICAT_D2 1, which is not possible here");
}

TEST_F(EXTEIRoad, ASharedBoardTakesOneSettingForAllButTheThirdDigit) {
  const std::string refused =
      "ICAT differs from the other extensions of this board. Give the same digits 1, 2 and 4, or choose another "
      "position.";
  ASSERT_EQ(Do("EXTEI:DIR=400,TYPE=EL7,EQU=001-0-16-00,ICAT_D2=1,ICAT_D4=3,CAT=1;"), "done");
  EXPECT_EQ(Do("EXTEI:DIR=401,TYPE=EL7,EQU=001-0-16-01,ICAT_D2=1,ICAT_D4=2,CAT=1;"), refused);
  EXPECT_EQ(Do("EXTEI:DIR=401,TYPE=EL7,EQU=001-0-16-01,ICAT_D2=1,ICAT_D3_SUB2=2,ICAT_D4=3,CAT=1;"), "done");
  EXPECT_EQ(Rows("SELECT ICAT FROM EXTEIDIR ORDER BY DIR"), "0103 0123");
  EXPECT_EQ(Do("edit EXTEI DIR=401:ICAT_D4=2;"), refused);
  EXPECT_EQ(Do("edit EXTEI DIR=400:ICAT_D4=2;"), "done") << "the first one sets the digits";
  EXPECT_EQ(Do("edit EXTEI DIR=401:ICAT_D4=2;"), "done");
  EXPECT_EQ(Rows("SELECT ICAT FROM EXTEIDIR ORDER BY DIR"), "0102 0122");
}

TEST_F(EXTEIRoad, ARefusedNumberLeavesThoseBeforeIt) {
  ASSERT_EQ(Do("EXTEI:DIR=410,TYPE=EL7,EQU=001-0-16-00,ICAT_D2=1,CAT=1;"), "done");
  EXPECT_THAT(Do("EXTEI:DIR=400&401,TYPE=EL7,EQU=001-0-15-01&001-0-16-01,ICAT_D2=2,CAT=1;"), HasSubstr("ICAT differs"));
  EXPECT_EQ(Used(), "400 410 on 001-0-15-01 001-0-16-00");
}

// --- Further numbers.

class EXTEIFurtherRoad : public EXTEIRoad {
 protected:
  void SetUp() override {
    EXTEIRoad::SetUp();
    ASSERT_EQ(Do("EXTEI:DIR=400&401,TYPE=EL6,EQU=next,CAT=1;"), "done");
  }
};

TEST_F(EXTEIFurtherRoad, AFurtherNumberIsAddedByItsMainNumberOrItsPosition) {
  EXPECT_EQ(Do("EXTEI:AUX=next,DIR_AUX=400,CAT=1,DESCRIPTION=Secretary;"), "done");
  EXPECT_EQ(Do("EXTEI:AUX=410,EQU=001-0-13-01,CAT=1;"), "done");
  EXPECT_EQ(Rows(furtherNumbers), "402|001-0-13-00|400|1 410|001-0-13-01|401|1");
  EXPECT_EQ(Used(), "400 401 402 410 on 001-0-13-00 001-0-13-01");
}

TEST_F(EXTEIFurtherRoad, AFurtherNumberHasNothingOfItsMainNumber) {
  EXPECT_EQ(Values("EQU", {{"AUX", "410"}}), "001-0-13-00 001-0-13-01");
  EXPECT_EQ(Do("EXTEI:AUX=410,CAT=1;"),
            "EQU=: this parameter has to be given (Equipment position, one for each main number)");
  EXPECT_EQ(Do("EXTEI:AUX=410,DIR=411,DIR_AUX=400,CAT=1;"),
            "DIR=411: a record of the table EXTEIAUX does not have this parameter; leave it out");
  EXPECT_EQ(Do("EXTEI:AUX=410,DIR_AUX=400,ICAT_D1=1,CAT=1;"),
            "ICAT_D1=1: a record of the table EXTEIAUX does not have this parameter; leave it out");
  EXPECT_EQ(Rows(furtherNumbers), "");
}

TEST_F(EXTEIFurtherRoad, AMainNumberTakesThreeFurtherNumbers) {
  for (const char* line : {"EXTEI:AUX=410,DIR_AUX=400,CAT=1;", "EXTEI:AUX=411,DIR_AUX=400,CAT=1;"})
    ASSERT_EQ(Do(line), "done") << line;
  EXPECT_EQ(Values("DIR_AUX"), "400 401");
  ASSERT_EQ(Do("EXTEI:AUX=412,DIR_AUX=400,CAT=1;"), "done");
  EXPECT_EQ(Values("DIR_AUX"), "401");
  EXPECT_THAT(Do("EXTEI:AUX=413,DIR_AUX=400,CAT=1;"), StartsWith("DIR_AUX=400: this value is not possible here [401]"));
}

// --- Changing and deleting.

TEST_F(EXTEIFurtherRoad, AMainNumberMovesToAnotherPositionAndAnotherNumber) {
  ASSERT_EQ(Do("EXTEI:AUX=410,DIR_AUX=400,CAT=1;"), "done");
  EXPECT_EQ(Do("edit EXTEI DIR=400:EQU=001-0-14-05,LOCATION=HQ;"), "done");
  EXPECT_EQ(Do("edit EXTEI DIR=400:DIR=405;"), "done");
  EXPECT_EQ(Rows(mainNumbers), "401|001-0-13-01|EL6|1|- 405|001-0-14-05|EL6|1|-");
  EXPECT_EQ(Rows(furtherNumbers), "410|001-0-13-00|400|1") << "it does not go along";
  EXPECT_EQ(Used(), "401 405 410 on 001-0-13-01 001-0-14-05");
  EXPECT_EQ(Rows("SELECT DIR FROM UsedExtOpeGrp ORDER BY DIR"), "401 405 410");
}

TEST_F(EXTEIFurtherRoad, AnotherPositionTakesTheLocationAway) {
  ASSERT_EQ(Do("edit EXTEI DIR=400:LOCATION=HQ;"), "done");
  EXPECT_THAT(Do("edit EXTEI DIR=400:EQU=002-0-13-00;"),
              StartsWith("EQU=002-0-13-00: this value is not possible here [001-0-13-02"));
  EXPECT_EQ(Do("edit EXTEI DIR=400:EQU=001-0-13-02;"),
            "done\nLOCATION=HQ: a check has cleared this value, since it does not go with the others");
  EXPECT_EQ(Do("edit EXTEI DIR=400:EQU=002-0-13-00,LOCATION=HQ;"),
            "LOCATION=HQ: this value is not possible here [WORKS]");
  EXPECT_EQ(Do("edit EXTEI DIR=400:EQU=002-0-13-00,LOCATION=WORKS;"), "done");
  EXPECT_EQ(Rows("SELECT EQU, LOCATION FROM EXTEIDIR WHERE DIR = '400'"), "002-0-13-00|WORKS");
}

TEST_F(EXTEIFurtherRoad, AnotherTypeNeedsAPositionThatSuitsItAndClearsICAT) {
  ASSERT_EQ(Do("edit EXTEI DIR=400:ICAT_D1=1;"), "done");
  EXPECT_EQ(Do("edit EXTEI DIR=400:TYPE=EL7;"),
            "EQU=: this parameter has to be given (Equipment position, one for each main number)");
  EXPECT_EQ(Do("edit EXTEI DIR=400:TYPE=EL7,EQU=001-0-16-00;"),
            "done\nICAT=1000: a check has cleared this value, since it does not go with the others");
  EXPECT_EQ(Rows(mainNumbers), "400|001-0-16-00|EL7|1|- 401|001-0-13-01|EL6|1|-");
  EXPECT_EQ(Used(), "400 401 on 001-0-13-01 001-0-16-00");
}

TEST_F(EXTEIFurtherRoad, AFurtherNumberIsChangedAndNeverWithoutMainNumber) {
  ASSERT_EQ(Do("EXTEI:AUX=410,DIR_AUX=400,CAT=1;"), "done");
  EXPECT_EQ(Do("edit EXTEI AUX=410:AUX=411,EQU=001-0-13-00;"), "done");
  EXPECT_EQ(Do("edit EXTEI AUX=411:DIR_AUX=401;"),
            "done\nEQU=001-0-13-00: a check has changed this value to 001-0-13-01");
  EXPECT_EQ(Do("edit EXTEI AUX=411:DIR_AUX=;"),
            "done\nDIR=: A value that belongs to DIR was removed and is needed. Give it again.");
  EXPECT_EQ(Rows(furtherNumbers), "411|001-0-13-01|401|1");
  EXPECT_EQ(Used(), "400 401 411 on 001-0-13-00 001-0-13-01");
}

TEST_F(EXTEIFurtherRoad, ADeletedMainNumberFreesItsFurtherNumbersAndLeavesTheirRecords) {
  ASSERT_EQ(Do("EXTEI:AUX=410,DIR_AUX=400,CAT=1;"), "done");
  ASSERT_EQ(Do("EXTEI:AUX=411,DIR_AUX=400,CAT=1;"), "done");
  EXPECT_EQ(Do("delete EXTEI AUX=411;"), "done");
  EXPECT_EQ(Used(), "400 401 410 on 001-0-13-00 001-0-13-01") << "the position is that of the main number";
  EXPECT_EQ(Do("delete EXTEI DIR=400;"), "done");
  EXPECT_EQ(Rows(mainNumbers), "401|001-0-13-01|EL6|1|-");
  EXPECT_EQ(Rows(furtherNumbers), "410|001-0-13-00|400|1");
  EXPECT_EQ(Used(), "401 on 001-0-13-01");
}

// --- Templates.

const char* const templates = "SELECT CmdId, TEMPLATENAME, NUMTYP, CAT, TYPE, ICAT, TITLE FROM [site.EXTEIDIRTEMPLATE]";

class EXTEITEMPLATERoad : public EXTEIRoad {
 protected:
  void SetUp() override {
    EXTEIRoad::SetUp();
    ASSERT_EQ(Do("EXTEITEMPLATE:TEMPLATENAME=Line,TYPE=EL7,ICAT_D1_SUB1=1,ICAT_D4=3,CAT=1,ADC_D1=1,CUST=1;"), "done");
  }
};

TEST_F(EXTEITEMPLATERoad, ATemplateIsChangedAndDeletedButItsTypeAndICATStay) {
  EXPECT_EQ(Do("edit EXTEITEMPLATE TEMPLATENAME=Line:TITLE=Clerk;"), "done");
  EXPECT_EQ(Rows(templates), "1|Line|EX|1|EL7|1003|Clerk");
  EXPECT_EQ(Do("edit EXTEITEMPLATE TEMPLATENAME=Line:ICAT_D4=1;"),
            "ICAT_D4=1: the ICAT_D4 of a record cannot be changed; add another record");
  EXPECT_EQ(Do("delete EXTEITEMPLATE TEMPLATENAME=Line;"), "done");
  EXPECT_EQ(Rows(templates), "");
}

TEST_F(EXTEITEMPLATERoad, ExtensionsAreMadeFromATemplate) {
  EXPECT_EQ(Do("EXTEI from Line:DIR=400&401,EQU=next,CUST=2;"), "done");
  EXPECT_EQ(Rows(mainNumbers), "400|001-0-15-01|EL7|1|1003 401|001-0-15-02|EL7|1|1003");
  EXPECT_EQ(Do("EXTEI from Line:AUX=410,DIR_AUX=400;"),
            "done\nTYPE=EL7: the template Line has this value, and EXTEI does not take it here; it is left out\n"
            "ICAT=1003: the template Line has this value, and EXTEI does not take it here; it is left out\n"
            "EQU=: a check has changed this value to 001-0-15-01");
  EXPECT_EQ(Rows(furtherNumbers), "410|001-0-15-01|400|1");
  EXPECT_EQ(Used(), "400 401 410 on 001-0-15-01 001-0-15-02");
}

}  // namespace
}  // namespace cordboard::workbench
