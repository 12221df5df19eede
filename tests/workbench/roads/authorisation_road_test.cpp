// Abbreviated numbers, authorisation codes and divisions as a user meets them: AOCOI, CDINI, ADINI, ADCOI and AUCOI on
// a real exchange.

#include <gmock/gmock.h>

#include <sstream>

#include "support/Road.h"
#include "workbench/data/Resources.h"
#include "workbench/plans/Plan.h"

namespace cordboard::workbench {
namespace {

using testing::HasSubstr;

// An exchange with the extensions 200 to 203 and the numbers 70 to 75 of type AC.
class Authorisation : public testing::Test {
 protected:
  void SetUp() override {
    for (const char* line :
         {"NANSI:NUMTYP=EX,NUMSE=200&&209;", "NANSI:NUMTYP=AC,NUMSE=70&&75;",
          "EXCCS:CAT=1,TRAF=11,SERV_D6=1,CDIV_D1=1,ROC_D2=1;", "KSEXI:DIR=200&&203,ITYPE=3,EQU=next,CAT=1;"})
      ASSERT_EQ(road_.Do(line), "done") << line;
  }

  std::string Do(const std::string& line) { return road_.Do(line); }
  std::string Rows(const std::string& sql) { return road_.Rows(sql); }
  std::string Values(const std::string& command, const std::string& parameter) {
    return road_.Values(command, parameter);
  }

 private:
  Road road_;
};

// --- AOCOI.

using AOCOIRoad = Authorisation;

const char* const codes = "SELECT ACO FROM AOCOI ORDER BY rowid";

TEST_F(AOCOIRoad, ACodeIsAddedChangedAndDeleted) {
  EXPECT_EQ(Values("AOCOI", "ACO"), "no list");
  EXPECT_EQ(Do("AOCOI:ACO=4711;"), "done");
  EXPECT_EQ(Do("AOCOI:ACO=4712;"), "done");
  EXPECT_EQ(Do("edit AOCOI ACO=4711:ACO=4713;"), "done");
  EXPECT_EQ(Rows(codes), "4713 4712");
  EXPECT_EQ(Do("delete AOCOI ACO=4713;"), "done");
  EXPECT_EQ(Rows(codes), "4712");
}

TEST_F(AOCOIRoad, ACodeThatIsInUseIsRefusedEvenForItsOwnRecord) {
  ASSERT_EQ(Do("AOCOI:ACO=4711;"), "done");
  const std::string inUse = "The code 4711 is already in use. Give another code.";
  EXPECT_EQ(Do("AOCOI:ACO=4711;"), "ACO=4711: " + inUse);
  EXPECT_EQ(Do("edit AOCOI ACO=4711:ACO=4711;"), "ACO=4711: " + inUse);
  EXPECT_EQ(Do("AOCOI:;"), "ACO=: this parameter has to be given (Authorisation code, one that no record has)");
  EXPECT_EQ(Rows(codes), "4711");
}

// --- CDINI.

using CDINIRoad = Authorisation;

const char* const divisions = "SELECT NUMTYP, DIR, DIV, DESCRIPTION FROM CDINI ORDER BY rowid";

TEST_F(CDINIRoad, EachNumberGetsItsDivisionAndLeavesTheList) {
  EXPECT_EQ(Values("CDINI", "DIR"), "200 201 202 203");
  EXPECT_EQ(Do("CDINI:DIR=200&&202,DIV=Sales;"), "done");
  EXPECT_EQ(Rows(divisions), "EX|200|Sales|- EX|201|Sales|- EX|202|Sales|-");
  EXPECT_EQ(Values("CDINI", "DIR"), "203");
  EXPECT_EQ(Do("CDINI:DIR=200,DIV=Sales;"), "DIR=200: this value is not possible here [203]");
  EXPECT_EQ(Do("edit CDINI DIR=201:DIV=Buying,DESCRIPTION=Attic;"), "done");
  EXPECT_EQ(Do("delete CDINI DIR=200;"), "done");
  EXPECT_EQ(Rows(divisions), "EX|201|Buying|Attic EX|202|Sales|-");
}

TEST_F(CDINIRoad, ADivisionThatIsTooLongIsRefusedWithoutAMessageAndAnEditTakesIt) {
  EXPECT_EQ(Do("CDINI:DIR=200,DIV=12345678901;"), "the rules of CDINI refuse this and do not say why");
  EXPECT_EQ(Rows(divisions), "");
  EXPECT_EQ(Do("CDINI:DIR=200,DIV=1234567890;"), "done");
  EXPECT_EQ(Do("edit CDINI DIR=200:DIV=12345678901;"), "done");
  EXPECT_EQ(Rows(divisions), "EX|200|12345678901|-");
}

// --- ADINI.

using ADINIRoad = Authorisation;

const char* const individual = "SELECT NUMTYP, DIR, ABB, TRA, IADTYP, DESCRIPTION FROM ADINI ORDER BY rowid";

TEST_F(ADINIRoad, ANumberGetsAbbreviatedNumbersOfItsOwn) {
  ASSERT_EQ(Do("AOCOI:ACO=4711;"), "done");
  EXPECT_EQ(Values("ADINI", "DIR"), "200 201 202 203");
  EXPECT_EQ(Values("ADINI", "IADTYP"), "AO AU RA");
  EXPECT_EQ(Do("ADINI:DIR=200,ABB=1,TRA=4711,IADTYP=AO;"), "done");
  EXPECT_EQ(Do("ADINI:DIR=200,ABB=2,TRA=0123;"), "done");
  EXPECT_EQ(Do("ADINI:DIR=200,ABB=1,TRA=0124;"),
            "DIR=200: This combination of DIR and ABB exists already. Give another ABB.");
  EXPECT_EQ(Do("ADINI:DIR=200,TRA=0124;"),
            "ABB=: This number has records already, and ABB is empty. Give a value for ABB.");
  EXPECT_EQ(Rows(individual), "EX|200|1|4711|AO|- EX|200|2|0123|-|-");
}

TEST_F(ADINIRoad, SeveralNumbersTakeNoCodesAndTheirRecordsGiveWayLater) {
  EXPECT_EQ(Do("ADINI:DIR=200&201,ABB=1;"),
            "DIR=200&201: DIR has several values, and ABB is given. Give one DIR, or leave ABB empty.");
  EXPECT_EQ(Do("ADINI:DIR=200&201,TRA=0123;"),
            "DIR=200&201: DIR has several values, and TRA is given. Give one DIR, or leave TRA empty.");
  EXPECT_EQ(Do("ADINI:DIR=200&201,IADTYP=AO;"),
            "DIR=200&201: DIR has several values, and IADTYP is given. Give one DIR, or leave IADTYP empty.");
  EXPECT_EQ(Rows(individual), "");
  EXPECT_EQ(Do("ADINI:DIR=200&201,DESCRIPTION=Later;"), "done");
  EXPECT_EQ(Do("ADINI:DIR=201,ABB=1,TRA=0123;"), "done");
  EXPECT_EQ(Rows(individual), "EX|200|-|-|-|Later EX|201|1|0123|-|-");
}

TEST_F(ADINIRoad, ACodeHasToBeDefined) {
  const std::string missing = "The value of TRA is not defined in AOCOI. Define it there first, or give another value.";
  EXPECT_EQ(Do("ADINI:DIR=200,ABB=1,TRA=4711,IADTYP=AO;"), "TRA=4711: " + missing);
  EXPECT_THAT(Do("ADINI:DIR=200,ABB=1,TRA=4711,IADTYP=AU;"), HasSubstr("not defined in AUCOI_Central"));
  EXPECT_THAT(Do("ADINI:DIR=200,ABB=1,TRA=4711,IADTYP=RA;"), HasSubstr("not defined in AUCOI_Regional"));
  EXPECT_EQ(Rows(individual), "");
  ASSERT_EQ(Do("AOCOI:ACO=4711;"), "done");
  ASSERT_EQ(Do("ADINI:DIR=200,ABB=1,TRA=4711,IADTYP=AO;"), "done");
  EXPECT_EQ(Do("edit ADINI DIR=200:TRA=4712;"), "TRA=4712: " + missing);
  EXPECT_EQ(Do("edit ADINI DIR=200:IADTYP=,TRA=4712,ABB=3;"), "done");
  EXPECT_EQ(Rows(individual), "EX|200|3|4712||-");
  EXPECT_EQ(Do("delete ADINI DIR=200;"), "done");
  EXPECT_EQ(Rows(individual), "");
}

// --- ADCOI.

using ADCOIRoad = Authorisation;

const char* const common = "SELECT NUMTYP, ABB, TRA, DESCRIPTION FROM ADCOI ORDER BY rowid";
const char* const inUse = "SELECT DIR FROM UsedExtOpeGrp WHERE NUMTYP = 'AC' ORDER BY DIR";

TEST_F(ADCOIRoad, ANumberIsTakenIntoUseMovedAndFreed) {
  EXPECT_EQ(Values("ADCOI", "ABB"), "70 71 72 73 74 75");
  EXPECT_EQ(Do("ADCOI:ABB=70,TRA=0123,DESCRIPTION=Bank;"), "done");
  EXPECT_EQ(Do("ADCOI:ABB=70,TRA=0124;"), "ABB=70: this value is not possible here [71, 72, 73, 74, 75]");
  EXPECT_EQ(Rows(inUse), "70");
  EXPECT_EQ(Do("edit ADCOI ABB=70:ABB=75,DESCRIPTION=;"), "done");
  EXPECT_EQ(Rows(common), "AC|75|0123|");
  EXPECT_EQ(Rows(inUse), "75");
  EXPECT_EQ(Values("ADCOI", "ABB"), "70 71 72 73 74");
  EXPECT_EQ(Do("delete ADCOI ABB=75;"), "done");
  EXPECT_EQ(Rows(common), "");
  EXPECT_EQ(Rows(inUse), "");
  EXPECT_EQ(Values("ADCOI", "ABB"), "70 71 72 73 74 75");
}

TEST_F(ADCOIRoad, ATranslationThatLeadsBackToAnAbbreviatedNumberIsRefused) {
  const std::string refused =
      "TRA is outside its range, or begins with or holds a code that is in use. Give another "
      "value.";
  EXPECT_EQ(Do("ADCOI:ABB=70,TRA=7012;"), "TRA=7012: " + refused);
  EXPECT_EQ(Rows(common), "");
  EXPECT_EQ(Do("ADCOI:ABB=71,TRA=7512;"), "TRA=7512: " + refused);
  EXPECT_EQ(Do("ADCOI:ABB=72,TRA=0172;"), "done");
  EXPECT_EQ(Do("edit ADCOI ABB=72:TRA=0272;"), "TRA=0272: " + refused) << "an edit looks anywhere in the translation";
  EXPECT_EQ(Do("edit ADCOI ABB=72:TRA=7512;"), "done") << "and for the own number alone";
  EXPECT_EQ(Do("edit ADCOI ABB=72:ABB=75;"), "TRA=7512: " + refused);
  EXPECT_EQ(Rows(common), "AC|72|7512|-");
}

// --- AUCOI.

class AUCOIRoad : public Authorisation {
 protected:
  void SetUp() override {
    Authorisation::SetUp();
    ASSERT_EQ(Do("GESPI:CSP=0,CDIV_D1=0,NPRES_D1=1,ROC_D2=1,SERV_D6=1,TRAF_D1=1;"), "done");
    // A cordless number.
    Rows("INSERT INTO GEDII (CMDID, NUMTYP, DIR) VALUES (9001, 'EX', '205')");
  }
};

const char* const centralCodes = "SELECT NUMTYP, AUTH, [CHECK], CAT, CSP, CUST FROM AUCOI_Central ORDER BY rowid";
const char* const regionalCodes = "SELECT NUMTYP, AUTH, DIR, CAT, CSP, CUST FROM AUCOI_Regional ORDER BY rowid";

TEST_F(AUCOIRoad, ACodeWithoutANumberIsCentralAndOneWithANumberRegional) {
  EXPECT_EQ(Do("AUCOI:AUTH=1111,CHECK=1,CAT=1,CUST=1;"), "done");
  EXPECT_EQ(Do("AUCOI:AUTH=2222,DIR=200,CAT=1;"), "done");
  EXPECT_EQ(Do("AUCOI:AUTH=3333,DIR=205,CSP=0;"), "done");
  EXPECT_EQ(Rows(centralCodes), "EX|1111|1|1|-|1");
  EXPECT_EQ(Rows(regionalCodes), "EX|2222|200|1|-|- EX|3333|205|-|0|-");
}

TEST_F(AUCOIRoad, TheListsOfferWhatIsPossible) {
  EXPECT_EQ(Values("AUCOI", "DIR"), "200 201 202 203 205");
  EXPECT_EQ(Values("AUCOI", "CHECK"), "0 1");
  EXPECT_EQ(Values("AUCOI", "CAT"), "1");
  EXPECT_EQ(Values("AUCOI", "CSP"), "0");
  EXPECT_EQ(Values("AUCOI", "CUST"), "1 2");
  ASSERT_EQ(Do("AUCOI:AUTH=2222,DIR=200,CAT=1;"), "done");
  EXPECT_EQ(Values("AUCOI", "DIR"), "201 202 203 205");
  EXPECT_EQ(Do("AUCOI:AUTH=2222,DIR=200,CAT=1;"), "DIR=200: this value is not possible here [201, 202, 203, 205]");
}

TEST_F(AUCOIRoad, ACordlessNumberTakesAProfileAndAnyOtherACategory) {
  EXPECT_EQ(Do("AUCOI:AUTH=2222,DIR=200,CSP=0;"),
            "CAT=: A number of the kind Normal takes CAT. Give CAT, and leave the other category empty.");
  EXPECT_EQ(Do("AUCOI:AUTH=2222,DIR=205,CAT=1;"),
            "CSP=: A number of the kind Cordless takes CSP. Give CSP, and leave the other category empty.");
  EXPECT_EQ(Do("AUCOI:AUTH=2222,DIR=200;"), "CAT=: give CAT, or CSP");
  EXPECT_EQ(Rows(regionalCodes), "");
}

TEST_F(AUCOIRoad, ARecordIsFoundChangedAndDeletedInItsOwnTable) {
  ASSERT_EQ(Do("AUCOI:AUTH=1111,CHECK=1,CAT=1;"), "done");
  ASSERT_EQ(Do("AUCOI:AUTH=1111,DIR=200,CAT=1;"), "done");
  EXPECT_EQ(Do("edit AUCOI AUTH=1111:CUST=1;"),
            "there are several records of AUCOI with AUTH=1111; select one by more of its parameters");
  EXPECT_EQ(Do("edit AUCOI AUTH=1111,DIR=201:CUST=1;"), "there is no record of AUCOI with AUTH=1111,DIR=201");
  EXPECT_EQ(Do("edit AUCOI CATE=1:CUST=1;"), "CATE=: a record of AUCOI has no CATE. Did you mean CAT?");
  EXPECT_EQ(Do("edit AUCOI DIR=200:DIR=201,CUST=2,AUTH=2222;"), "done");
  EXPECT_EQ(Do("edit AUCOI AUTH=1111:CHECK=0,CUST=1;"), "done");
  EXPECT_EQ(Rows(centralCodes), "EX|1111|0|1|-|1");
  EXPECT_EQ(Rows(regionalCodes), "EX|2222|201|1|-|2");
  EXPECT_EQ(Do("delete AUCOI CHECK=0;"), "done");
  EXPECT_EQ(Rows(centralCodes), "");
  EXPECT_EQ(Do("delete AUCOI AUTH=2222;"), "done");
  EXPECT_EQ(Rows(regionalCodes), "");
}

TEST_F(AUCOIRoad, WhatTheOtherTableHasIsRefusedAndNotLost) {
  EXPECT_EQ(Do("AUCOI:AUTH=1111,DIR=200,CHECK=1,CAT=1;"),
            "CHECK=1: a record of the table AUCOI_Regional does not have this parameter; leave it out");
  ASSERT_EQ(Do("AUCOI:AUTH=1111,CAT=1;"), "done");
  EXPECT_EQ(Do("edit AUCOI AUTH=1111:DIR=200;"),
            "DIR=200: a record of the table AUCOI_Central does not have this parameter; leave it out");
  ASSERT_EQ(Do("AUCOI:AUTH=2222,DIR=200,CAT=1;"), "done");
  EXPECT_EQ(Do("edit AUCOI DIR=200:CHECK=1;"),
            "CHECK=1: a record of the table AUCOI_Regional does not have this parameter; leave it out");
  EXPECT_EQ(Rows(centralCodes), "EX|1111|-|1|-|-");
  EXPECT_EQ(Rows(regionalCodes), "EX|2222|200|1|-|-");
}

// --- The example.

TEST(AuthorisationExample, IsAppliedOnEveryReleaseAndGivesNoLines) {
  for (const std::string& release : Releases()) {
    Road road(release);
    std::vector<std::string> before;
    for (const char* name : {"example.plan", "extensions.plan", "authorisation.plan"}) {
      before = road.Lines();
      std::istringstream plan{std::string(Resource("plans/" + std::string(name)))};
      const PlanResult result = ApplyPlan(road.session(), {{name, plan}}, {});
      for (const LineReport& report : result.reports)
        ADD_FAILURE() << release << " " << name << ":" << report.line << ": " << report.problems.front().message;
      ASSERT_TRUE(result.kept);
    }
    EXPECT_EQ(road.Lines(), before) << release;
    EXPECT_EQ(road.Rows("SELECT DIR, ABB, TRA, IADTYP FROM ADINI WHERE NOT ABB IS NULL ORDER BY rowid"),
              "216|1|4711|AO 216|2|4712|AO 217|1|8101|AU 218|1|8201|RA");
    EXPECT_EQ(road.Rows("SELECT ABB, TRA FROM ADCOI ORDER BY rowid"), "70|00891234567 71|0112 72|00897654321");
    EXPECT_EQ(road.Rows(centralCodes), "EX|8101|1|2|-|1 EX|8102|0|1|-|-");
    EXPECT_EQ(road.Rows(regionalCodes), "EX|8201|218|2|-|1");
    EXPECT_EQ(road.Rows("SELECT DIV, COUNT(*) FROM CDINI GROUP BY DIV"), "Management|12 Sales|8");
  }
}

}  // namespace
}  // namespace cordboard::workbench
