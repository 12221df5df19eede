// The road of a user through the route commands, on a real exchange.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <sstream>

#include "script/Conversions.h"
#include "support/SourceFolder.h"
#include "workbench/actions/Filling.h"
#include "workbench/actions/Generation.h"
#include "workbench/data/Resources.h"
#include "workbench/exchange/Plant.h"
#include "workbench/plans/Plan.h"
#include "workbench/plans/PlanLine.h"
#include "workbench/support/RoadTest.h"

namespace cordboard::workbench {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

const std::string series = "NANSI:NUMTYP=ED,NUMSE=80&&89;";
const std::string route1 = "ROCAI:ROU=1,PROTOCOL=ISDN,MARKET=DE,TRAF=1,DIST=5;";
const std::string route2 = "ROCAI:ROU=2,PROTOCOL=CAS,MARKET=DE,TRAF=2;";

class Routes : public RoadTest {
 protected:
  void SetUp() override { OpenNew("R7"); }
};

// --- Categories.

TEST_F(Routes, TheListsFollowThePoolTheReleaseAndTheProtocol) {
  EXPECT_THAT(Valid("ROCAI", "ROU"), SizeIs(20));
  EXPECT_THAT(Valid("ROCAI", "PROTOCOL"), ElementsAre("CAS", "ISDN", "QSIG"));
  EXPECT_THAT(Valid("ROCAI", "MARKET"), IsEmpty());
  EXPECT_THAT(Valid("ROCAI", "MARKET", {{"PROTOCOL", "ISDN"}}), ElementsAre("DE", "SE", "UK"));
  OpenNew("R6");
  EXPECT_THAT(Valid("ROCAI", "MARKET", {{"PROTOCOL", "ISDN"}}), ElementsAre("DE", "SE"));
  OpenNew("R8");
  EXPECT_THAT(Valid("ROCAI", "PROTOCOL"), ElementsAre("CAS", "ISDN", "QSIG", "SIP"));
}

TEST_F(Routes, EveryProtocolAndMarketOfEveryReleaseGivesLines) {
  for (const std::string& release : Releases()) {
    OpenNew(release);
    int route = 0;
    for (const std::string& protocol : Valid("ROCAI", "PROTOCOL")) {
      const std::vector<std::string> markets = Valid("ROCAI", "MARKET", {{"PROTOCOL", protocol}});
      EXPECT_GE(markets.size(), 2u) << protocol;
      for (const std::string& market : markets)
        Prepare({"ROCAI:ROU=" + std::to_string(++route) + ",PROTOCOL=" + protocol + ",MARKET=" + market + ",TRAF=1;"});
    }
    EXPECT_GE(route, 6) << release;
    EXPECT_THAT(Generate(session()).problems, IsEmpty()) << release;
    EXPECT_THAT(Lines("ROCAI"), SizeIs(route)) << release;
    EXPECT_THAT(Lines("RODAI"), SizeIs(route)) << release;
  }
}

TEST_F(Routes, AnAddTakesTheRouteAndADeleteFreesIt) {
  Prepare({route1});
  EXPECT_THAT(Valid("ROCAI", "ROU").front(), "2");
  EXPECT_THAT(Valid("RODAI", "ROU").front(), "2");
  EXPECT_FALSE(Do(route1));
  EXPECT_THAT(texts(), ElementsAre(StartsWith("ROU: this value is not possible here Possible: 2, 3, ")));
  Prepare({"delete ROCAI ROU=1;"});
  EXPECT_THAT(Valid("ROCAI", "ROU").back(), "20");
  EXPECT_THAT(Valid("ROCAI", "ROU").front(), "1");
  EXPECT_FALSE(Do("delete ROCAI ROU=1;"));
  EXPECT_THAT(texts(), ElementsAre("there is no record of ROCAI with ROU=1"));
}

TEST_F(Routes, AnEditMovesTheRouteAndKeepsWhatIsLeftOut) {
  Prepare({route1, "edit ROCAI ROU=1:ROU=5,TRAF=7;"});
  EXPECT_THAT(Lines("ROCAI"), ElementsAre(StartsWith("ROCAI:ROU=5,SEL=1000000001,SIG=100100000080,TRAF=7,TRM=4,"
                                                     "SERV=1101,DIST =5,")));
  EXPECT_THAT(Valid("ROCAI", "ROU").front(), "1");
  EXPECT_THAT(Valid("ROCAI", "ROU"), testing::Not(testing::Contains("5")));
}

TEST_F(Routes, AnEditNeverClearsAColumn) {
  Prepare({route1, "edit ROCAI ROU=1:DIST=;"});
  EXPECT_EQ(Single("SELECT DIST FROM ROCAI"), Value("5"));
  EXPECT_FALSE(Do("edit ROCAI ROU=1:TRAF=;"));
  EXPECT_THAT(texts(), ElementsAre("TRAF: this parameter has to be given (Traffic classes)"));
}

TEST_F(Routes, ADescriptionIsAddedEditedAndCleared) {
  Prepare({"ROCAI:ROU=1,PROTOCOL=ISDN,MARKET=DE,TRAF=1,DESCRIPTION=North;"});
  EXPECT_EQ(Single("SELECT DESCRIPTION FROM ROCAI"), Value("North"));
  Prepare({"edit ROCAI ROU=1:DESCRIPTION=South;"});
  EXPECT_EQ(Single("SELECT DESCRIPTION FROM ROCAI"), Value("South"));
  Prepare({"edit ROCAI ROU=1:DESCRIPTION=;"});
  EXPECT_TRUE(Single("SELECT DESCRIPTION FROM ROCAI").IsNull());
}

TEST_F(Routes, AMarketThatTheNewProtocolHasStays) {
  Prepare({route1, "edit ROCAI ROU=1:PROTOCOL=QSIG;"});
  EXPECT_EQ(Single("SELECT PROTOCOL FROM ROCAI"), Value("QSIG"));
  EXPECT_EQ(Single("SELECT MARKET FROM ROCAI"), Value("DE"));
}

TEST_F(Routes, AMarketThatTheNewProtocolLacksHasToBeGivenAnew) {
  Prepare({"ROCAI:ROU=1,PROTOCOL=ISDN,MARKET=SE,TRAF=1;"});
  EXPECT_FALSE(Do("edit ROCAI ROU=1:PROTOCOL=CAS;"));
  EXPECT_THAT(texts(), ElementsAre(StartsWith("MARKET: this parameter has to be given")));
  EXPECT_FALSE(Do("edit ROCAI ROU=1:PROTOCOL=CAS,MARKET=SE;"));
  EXPECT_THAT(texts(), ElementsAre("MARKET: this value is not possible here Possible: DE, UK"));
  Prepare({"edit ROCAI ROU=1:PROTOCOL=CAS,MARKET=UK;"});
  EXPECT_EQ(Single("SELECT MARKET FROM ROCAI"), Value("UK"));
}

TEST_F(Routes, DeletingARouteLeavesItsDestinations) {
  Prepare({series, route1, "RODDI:ROU=1,DEST=80,CHO=0;", "delete ROCAI ROU=1;"});
  EXPECT_THAT(Lines("RODDI"), ElementsAre("RODDI:ROU=1,DEST=80,CHO=0;"));
  EXPECT_THAT(Valid("RODDI", "ROU"), IsEmpty());
}

// --- Data.

TEST_F(Routes, ADataRecordChangesNothing) {
  Prepare({route1, "RODAI:ROU=9;"});
  EXPECT_THAT(Lines("RODAI"), ElementsAre("RODAI:ROU=1,TYPE=T30,VARI=11,VARO=11,VARC=3,FILTER=2;"));
  EXPECT_THAT(Valid("ROCAI", "ROU"), testing::Contains("9"));
  EXPECT_FALSE(Do("RODAI:ROU=1;"));
  EXPECT_FALSE(Do("delete RODAI ROU=9;"));
  EXPECT_THAT(texts(), ElementsAre("records of RODAI cannot be deleted"));
}

TEST_F(Routes, ARouteWithoutSignallingValuesEndsTheLinesAndIsNamed) {
  Prepare({series, route1, route2, "ROCAI:ROU=3,PROTOCOL=QSIG,MARKET=DE,TRAF=1;", "RODDI:ROU=1,DEST=80;"});
  Single("UPDATE ROCAI SET MARKET = 'NO' WHERE ROU = '2' RETURNING 1");
  const Generated generated = Generate(session());
  const auto ended = [](const std::string& command) {
    return "lines are missing: the generation ended after 1 line; the rules of " + command +
           " found no row of ROUTEDATA with PROTOCOL='CAS' AND Market='NO' AND RELEASE='R7'; a record that it belongs "
           "to may be missing, or have been changed by hand";
  };
  ASSERT_THAT(generated.problems, SizeIs(2));
  EXPECT_EQ(generated.problems[0].first, "ROCAI");
  EXPECT_EQ(generated.problems[0].second.message, ended("ROCAI"));
  EXPECT_THAT(generated.problems[0].second.cause, HasSubstr("SELECT SEL, SIG, TRM, SERV, NODG, BCAP"));
  EXPECT_EQ(generated.problems[1].first, "RODAI");
  EXPECT_EQ(generated.problems[1].second.message, ended("RODAI"));
  EXPECT_THAT(Lines("ROCAI"), ElementsAre(StartsWith("ROCAI:ROU=1,")));
  EXPECT_THAT(Lines("RODDI"), ElementsAre("RODDI:ROU=1,DEST=80;"));
}

// --- Destinations.

class Destinations : public Routes {
 protected:
  void SetUp() override {
    Routes::SetUp();
    Prepare({series, route1, route2});
  }
};

// What was looked for may be as long as somebody has made it by hand: then it is not told.
TEST_F(Routes, AnEndlessValueEndsTheLinesInGoodOrder) {
  Prepare({series, "ROCAI:ROU=3,PROTOCOL=QSIG,MARKET=DE,TRAF=1;"});
  Single("UPDATE ROCAI SET MARKET = '" + std::string(200000, 'N') + "' RETURNING 1");
  const Generated generated = Generate(session());
  ASSERT_FALSE(generated.problems.empty());
  EXPECT_THAT(generated.problems[0].second.message, HasSubstr("found no row of those that they need"));
}

TEST_F(Destinations, TheListsHoldTheRoutesAndTheFreeNumbersOfTheirType) {
  Prepare({"NANSI:NUMTYP=EX,NUMSE=100&&109;"});
  EXPECT_THAT(Valid("RODDI", "ROU"), ElementsAre("1", "2"));
  EXPECT_THAT(Valid("RODDI", "DEST"), SizeIs(10));
  EXPECT_FALSE(Do("RODDI:ROU=1,DEST=100;"));
  EXPECT_THAT(texts(), ElementsAre(StartsWith("DEST: this value is not possible here Possible: 80, 81, ")));
}

TEST_F(Destinations, SeveralAreAddedAtOnceAndTakeTheirNumbers) {
  Prepare({"RODDI:ROU=1,DEST=80&82&&83,CHO=0,TRC=1;"});
  EXPECT_THAT(Lines("RODDI"), ElementsAre("RODDI:ROU=1,DEST=80,CHO=0,TRC=1;", "RODDI:ROU=1,DEST=82,CHO=0,TRC=1;",
                                          "RODDI:ROU=1,DEST=83,CHO=0,TRC=1;"));
  EXPECT_THAT(Valid("RODDI", "DEST"), ElementsAre("81", "84", "85", "86", "87", "88", "89"));
  EXPECT_EQ(Single("SELECT COUNT(*) FROM UsedExtOpeGrp WHERE NUMTYP = 'ED'"), Value(3));
}

TEST_F(Destinations, ADestinationThatARouteHasIsPossibleOnAnotherAsFurtherChoice) {
  Prepare({"RODDI:ROU=1,DEST=80,CHO=0;", "RODDI:ROU=2,DEST=80,CHO=1;"});
  EXPECT_THAT(Lines("RODDI"), ElementsAre("RODDI:ROU=1,DEST=80,CHO=0;", "RODDI:ROU=2,DEST=80,CHO=1;"));
}

TEST_F(Destinations, ANewOneIsForAllCustomersAndOffersEveryChoice) {
  const std::vector<Assignment> given = {{"ROU", "1"}, {"DEST", "80"}};
  EXPECT_THAT(Valid("RODDI", "CUST", given), IsEmpty());
  EXPECT_THAT(Valid("RODDI", "CHO", given), ElementsAre("0", "1", "2", "3", "4", "5", "6", "7"));
  EXPECT_FALSE(Do("RODDI:ROU=1,DEST=80,CUST=1,CHO=0;"));
  EXPECT_THAT(texts(), ElementsAre("CUST: this value is not possible here Possible: no value at present; leave it "
                                   "out"));
}

TEST_F(Destinations, OneThatTheRouteHasTakesTheCustomers) {
  Prepare({"RODDI:ROU=1,DEST=80,CHO=0;"});
  const std::vector<Assignment> given = {{"ROU", "1"}, {"DEST", "80"}};
  EXPECT_THAT(Valid("RODDI", "CUST", given), ElementsAre("1", "2"));
  EXPECT_THAT(Valid("RODDI", "CHO", given), ElementsAre("0", "1", "2", "3", "4", "5", "6", "7"));
  Prepare({"RODDI:ROU=1,DEST=80,CUST=2,CHO=0;"});
  EXPECT_THAT(Lines("RODDI"), ElementsAre("RODDI:ROU=1,DEST=80,CHO=0;", "RODDI:ROU=1,DEST=80,CHO=0,CUST=2;"));
  EXPECT_FALSE(Do("RODDI:ROU=1,DEST=80,CUST=3,CHO=0;"));
  EXPECT_THAT(texts(), ElementsAre("CUST: this value is not possible here Possible: 1, 2"));
}

TEST_F(Destinations, CustomerAndChoiceComeBehindRouteAndDestination) {
  Prepare({"RODDI:ROU=1,DEST=80;"});
  EXPECT_FALSE(Do("RODDI:CHO=1,ROU=1,DEST=80;"));
  EXPECT_THAT(texts(), ElementsAre(HasSubstr("CHO: a check of the values after it has cleared this value")));
}

// The mark outlives the form on which a check set it, but opening a record checks its own pair.
TEST_F(Destinations, AnEditMeetsTheListsOfThePairOfItsRecord) {
  Prepare({"RODDI:ROU=1,DEST=80;", "RODDI:ROU=1,DEST=81;"});
  Prepare({"edit RODDI DEST=80:CUST=1;"});
  EXPECT_THAT(Lines("RODDI"), ElementsAre("RODDI:ROU=1,DEST=80,CUST=1;", "RODDI:ROU=1,DEST=81;"));
  Prepare({"edit RODDI DEST=81:CUST=2;"});
  EXPECT_THAT(Lines("RODDI"), ElementsAre("RODDI:ROU=1,DEST=80,CUST=1;", "RODDI:ROU=1,DEST=81,CUST=2;"));
}

TEST_F(Destinations, ADuplicateIsRefusedWithOrWithoutCustomer) {
  for (const std::string line : {"RODDI:ROU=1,DEST=80;", "RODDI:ROU=1,DEST=80,CUST=1,CHO=3;"}) {
    Prepare({line});
    EXPECT_FALSE(Do(line));
    EXPECT_THAT(texts(), ElementsAre("The change could not be saved. Check whether the record exists already, then try "
                                     "again."));
  }
  EXPECT_THAT(Lines("RODDI"), SizeIs(2));
}

TEST_F(Destinations, BeforeADuplicateTheRecordsStayAndBehindItNoneIsTried) {
  Prepare({"RODDI:ROU=1,DEST=81,CHO=0;"});
  EXPECT_FALSE(Do("RODDI:ROU=1,DEST=80&81&82,CHO=0;"));
  EXPECT_THAT(Lines("RODDI"), ElementsAre("RODDI:ROU=1,DEST=81,CHO=0;", "RODDI:ROU=1,DEST=80,CHO=0;"));
  EXPECT_EQ(Single("SELECT COUNT(*) FROM UsedNumbers WHERE DIR = '81'"), Value(2));
  EXPECT_THAT(Valid("RODDI", "DEST").front(), "82");
}

TEST_F(Destinations, InAPlanARefusedLineLeavesNothing) {
  Prepare({"RODDI:ROU=1,DEST=81,CHO=0;"});
  std::istringstream in("RODDI:ROU=1,DEST=80&81&82,CHO=0;\nRODDI:ROU=2,DEST=83;\n");
  const PlanResult result = ApplyPlan(session(), {{"plan", in}}, {.keepGoing = true});
  EXPECT_EQ(result.done, 1u);
  EXPECT_EQ(result.refused, 1u);
  EXPECT_THAT(Lines("RODDI"), ElementsAre("RODDI:ROU=1,DEST=81,CHO=0;", "RODDI:ROU=2,DEST=83;"));
}

TEST_F(Destinations, AnEditKeepsWhatIsLeftOutAndMovesTheUseOfTheNumber) {
  Prepare({"RODDI:ROU=1,DEST=80,CHO=2,TRC=1,ADC_D5=2;", "edit RODDI DEST=80:DEST=84,TRC=,PRE=00;"});
  EXPECT_THAT(Lines("RODDI"), ElementsAre("RODDI:ROU=1,DEST=84,CHO=2,TRC=1,PRE=00,ADC=00002000000000000000000;"));
  EXPECT_THAT(Valid("RODDI", "DEST"), ElementsAre("80", "81", "82", "83", "85", "86", "87", "88", "89"));
  EXPECT_EQ(Single("SELECT DIR FROM UsedExtOpeGrp"), Value("84"));
}

TEST_F(Destinations, AnEditTakesOneDestination) {
  Prepare({"RODDI:ROU=1,DEST=80;"});
  for (const std::string several : {"81&82", "81&&82"}) {
    EXPECT_FALSE(Do("edit RODDI DEST=80:DEST=" + several + ";"));
    EXPECT_THAT(texts(), ElementsAre(HasSubstr("not possible here; give one value"))) << several;
  }
}

TEST_F(Destinations, AnEditTakesNoDestinationOfSixDigits) {
  Prepare({"NANSI:NUMTYP=ED,NUMSE=701234;", "RODDI:ROU=1,DEST=701234;", "RODDI:ROU=1,DEST=80;"});
  EXPECT_FALSE(Do("edit RODDI DEST=80:DEST=701234;"));
  EXPECT_THAT(texts(), ElementsAre(StartsWith("DEST: The value of DEST is not valid: it is too long")));
  EXPECT_THAT(Lines("RODDI"), ElementsAre("RODDI:ROU=1,DEST=701234;", "RODDI:ROU=1,DEST=80;"));
}

TEST_F(Destinations, ADeleteFreesTheNumberEvenWhereAnotherRecordHasIt) {
  Prepare({"RODDI:ROU=1,DEST=80,CHO=0;", "RODDI:ROU=2,DEST=80,CHO=1;"});
  EXPECT_FALSE(Do("delete RODDI DEST=80;"));
  EXPECT_THAT(texts(), ElementsAre(HasSubstr("there are several records")));
  Prepare({"delete RODDI ROU=1,DEST=80;"});
  EXPECT_THAT(Lines("RODDI"), ElementsAre("RODDI:ROU=2,DEST=80,CHO=1;"));
  EXPECT_THAT(Valid("RODDI", "DEST").front(), "80");
}

TEST_F(Destinations, TheDigitsOfADCFoldIntoOneValueAndAreChecked) {
  Prepare({"RODDI:ROU=1,DEST=80,ADC_D1=2,ADC_D13=1,ADC_D16=1,ADC_D23=2;"});
  EXPECT_THAT(Lines("RODDI"), ElementsAre("RODDI:ROU=1,DEST=80,ADC=20000000000010010000002;"));
  Prepare({"edit RODDI DEST=80:ADC_D22=3;"});
  EXPECT_THAT(Lines("RODDI"), ElementsAre("RODDI:ROU=1,DEST=80,ADC=20000000000010010000032;"));
  EXPECT_FALSE(Do("RODDI:ROU=1,DEST=81,ADC_D1=9;"));
  EXPECT_THAT(texts(), ElementsAre("ADC_D1: this value is not possible here Possible: 0, 1, 2"));
}

TEST_F(Destinations, EveryDigitOfADCHasValues) {
  for (const ParameterDefinition& parameter : FindForm("RODDI")->parameters) {
    if (parameter.name.starts_with("ADC_D")) {
      EXPECT_THAT(Valid("RODDI", parameter.name), testing::Not(IsEmpty())) << parameter.name;
    }
  }
}

// --- Imported routes.

TEST_F(Routes, AnImportFoldsItsDigitsAndLeavesTheRouteFree) {
  Prepare({"ROCAI_IMPORT:ROU=7,SIG_D11=8,SIG_D12=0,SEL_D3=4,SEL_D10=1;"});
  EXPECT_EQ(Single("SELECT SIG FROM ROCAI_IMPORT"), Value("000000000080"));
  EXPECT_EQ(Single("SELECT SEL FROM ROCAI_IMPORT"), Value("0040000001"));
  EXPECT_THAT(Valid("ROCAI_IMPORT", "ROU"), SizeIs(20));
  EXPECT_THAT(Generate(session()).lines, IsEmpty());
  Prepare({"ROCAI_IMPORT:ROU=8,SIG=100100000070,SEL=1000000001;"});
  EXPECT_EQ(Single("SELECT SIG FROM ROCAI_IMPORT WHERE ROU = '8'"), Value("100100000070"));
}

TEST_F(Routes, TheDigitsOfAnImportFollowTheKindOfLine) {
  EXPECT_THAT(Valid("ROCAI_IMPORT", "SEL_D3"), IsEmpty());
  EXPECT_THAT(Valid("ROCAI_IMPORT", "SEL_D3", {{"SIG_D11", "8"}}), ElementsAre("0", "1", "2", "3", "4"));
  EXPECT_THAT(Valid("ROCAI_IMPORT", "SEL_D3", {{"SIG_D11", "3"}}), ElementsAre("0", "1", "2", "3"));
  EXPECT_THAT(Valid("ROCAI_IMPORT", "SEL_D10", {{"SIG_D11", "3"}}), ElementsAre("0", "1"));
  EXPECT_THAT(Valid("ROCAI_IMPORT", "SEL_D10", {{"SIG_D11", "1"}}), ElementsAre("0"));
  EXPECT_THAT(Valid("ROCAI_IMPORT", "SIG_D12", {{"SIG_D11", "1"}}), ElementsAre("0", "1"));
  EXPECT_THAT(Valid("ROCAI_IMPORT", "SIG_D12", {{"SIG_D11", "8"}}), ElementsAre("0"));
}

TEST_F(Routes, AChangedKindOfLineKeepsTheDigitsThatFitAndDropsTheOthers) {
  Filling filling(session(), *FindForm("ROCAI_IMPORT"));
  const std::vector<Assignment> typed = {{"SIG_D11", "8"}, {"SIG_D12", "0"}, {"SEL_D3", "4"}, {"SEL_D10", "1"}};
  for (const Assignment& assignment : typed) filling.Set(assignment);
  filling.Set({"SIG_D11", "3"});
  EXPECT_THAT(filling.problems(), IsEmpty());
  EXPECT_THAT(filling.warnings(), IsEmpty());
  EXPECT_EQ(session().form().Get("SIG_D12"), Value("0"));
  EXPECT_TRUE(session().form().Get("SEL_D3").IsEmpty());
  EXPECT_EQ(session().form().Get("SEL_D10"), Value("1"));
}

// --- The example.

TEST_F(Routes, TheExampleGivesTheLinesOfItsRelease) {
  for (const std::string release : {"R6", "R8"}) {
    OpenNew(release);
    Apply("plans/example.plan");
    Apply("plans/routes.plan");
    std::string lines;
    for (const char* command : {"ROCAI", "RODAI", "RODDI"}) {
      for (const std::string& line : Lines(command)) lines += line + "\n";
    }
    EXPECT_EQ(lines, Golden("routes-" + release + ".txt")) << release;
  }
}

TEST_F(Routes, TheLinesOfDestinationsCanBeReadAsAPlan) {
  Apply("plans/example.plan");
  Apply("plans/routes.plan");
  const std::vector<std::string> lines = Lines("RODDI");
  OpenNew("R7");
  Prepare({series, route1, route2, "ROCAI:ROU=3,PROTOCOL=QSIG,MARKET=DE,TRAF=1;",
           "ROCAI:ROU=4,PROTOCOL=ISDN,MARKET=SE,TRAF=1;"});
  Prepare(lines);
  EXPECT_EQ(Lines("RODDI"), lines);
}

}  // namespace
}  // namespace cordboard::workbench
