#include "workbench/actions/Reasons.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

#include "workbench/data/DataFile.h"
#include "workbench/data/Resources.h"
#include "workbench/plans/Plan.h"
#include "workbench/plans/PlanLine.h"
#include "workbench/support/TestExchange.h"

namespace cordboard::workbench {
namespace {

// The example exchange with most of its plans, for all tests: none of them keeps anything.
struct ReasonsTest : testing::Test {
  static void SetUpTestSuite() {
    exchange = ExampleExchange().release();
    session = new Session(*exchange);
    for (const char* name :
         {"example", "extensions", "authorisation", "routes", "directory", "terminals", "templates", "groups",
          "members", "general", "operators", "desk", "trunks", "cordless", "ip", "logging", "devices", "links"}) {
      std::istringstream plan{std::string(Resource("plans/" + std::string(name) + ".plan"))};
      ASSERT_TRUE(ApplyPlan(*session, {{name, plan}}, {}).kept) << name;
    }
  }
  static void TearDownTestSuite() {
    delete session;
    delete exchange;
  }

  static Outcome Do(const std::string& line) {
    Transaction transaction(*exchange);
    return Perform(*session, *ParsePlanLine(line));
  }
  // "DIR=200: used by ...", of the first problem.
  static std::string Why(const std::string& line) {
    const Outcome outcome = Do(line);
    if (outcome.problems.empty()) return "done";
    const Problem& problem = outcome.problems.front();
    return problem.parameter + "=" + problem.value + ": " + problem.reason;
  }

  static Exchange* exchange;
  static Session* session;
};
Exchange* ReasonsTest::exchange = nullptr;
Session* ReasonsTest::session = nullptr;

TEST_F(ReasonsTest, AValueThatARecordHasIsToldWithTheRecord) {
  EXPECT_EQ(Why("KSEXI:DIR=200,ITYPE=3,EQU=next,CAT=1;"),
            "DIR=200: there is already the key extension DIR=200 (KSEXI)");
  EXPECT_EQ(Why("GEDII:DIR=200;"), "DIR=200: 200 is used by the key extension DIR=200 (KSEXI)");
  EXPECT_EQ(Why("KSEXI:DIR=300,ITYPE=3,EQU=next,CAT=1;"),
            "DIR=300: 300 is used by the group with a queue GRP=300 (ACGRI)");
  EXPECT_EQ(Why("KSEXI:DIR=126,ITYPE=3,EQU=001-0-10-03,CAT=1;"),
            "EQU=001-0-10-03: 001-0-10-03 is used by the key extension DIR=203 (KSEXI)");
  EXPECT_EQ(Why("KSFKC:DIR=200,KEY=1,FCN=CBK;"), "KEY=1: there is already the function key DIR=200,KEY=1 (KSFKC)");
  EXPECT_EQ(Why("edit KSEXI DIR=200:DIR=201;"), "DIR=201: there is already the key extension DIR=201 (KSEXI)");
}

TEST_F(ReasonsTest, AValueThatThereIsNotIsToldAsThat) {
  EXPECT_EQ(Why("KSEXI:DIR=999,ITYPE=3,EQU=next,CAT=1;"), "DIR=999: no series holds 999 (NANSI)");
  EXPECT_EQ(Why("KSEXI:DIR=126,ITYPE=3,EQU=001-0-99-00,CAT=1;"),
            "EQU=001-0-99-00: there is no board with the position 001-0-99-00");
  EXPECT_EQ(Why("KSEXI:DIR=126,ITYPE=3,EQU=next,CAT=7;"), "CAT=7: there is no category 7 (EXCCS)");
  EXPECT_EQ(Why("ACGRI:GRP=126,LIM=9;"), "LIM=9: there is no LIM 9");
  EXPECT_EQ(Why("IPEXI:DIR=200;"),
            "DIR=200: there is no directory record 200 (GEDII); 200 is used by the key extension DIR=200 (KSEXI)");
  EXPECT_EQ(Why("IPEXI:DIR=999;"), "DIR=999: no series holds 999 (NANSI)");
}

TEST_F(ReasonsTest, AValueThatIsFreeIsToldWithWhatItIs) {
  EXPECT_EQ(Why("KSEXI:DIR=904,ITYPE=3,EQU=next,CAT=1;"), "DIR=904: 904 is a free number of type OI");
  EXPECT_EQ(Why("KSEXI:DIR=126,ITYPE=3,EQU=001-0-19-00,CAT=1;"),
            "EQU=001-0-19-00: there is no board with the position 001-0-19-00");
  EXPECT_EQ(Why("GHGMI:GRP=310,DIR=190;"), "DIR=190: 190 is a number of type EX that no record has");
}

TEST_F(ReasonsTest, OfSeveralValuesThoseAreNamedThatAreWrong) {
  EXPECT_EQ(Why("KSEXI:DIR=126&200&&205&999,ITYPE=3,EQU=next,CAT=1;"),
            "DIR=200&&205&999: there are already records of KSEXI for 200&&205; no series holds 999 (NANSI)");
  EXPECT_EQ(Why("GEDII:DIR=200&202&300&904;"),
            "DIR=200&202&300&904: 200&202 are used by records of KSEXI; 300 is used by the group with a queue GRP=300 "
            "(ACGRI); 904 is a free number of type OI");
}

TEST_F(ReasonsTest, OfVeryManyTheFirstAreLookedUp) {
  EXPECT_EQ(Why("GEDII:DIR=1000&&1999;"), "DIR=1000&&1999: no series holds 1000&&1011 (NANSI); and so on");
}

TEST_F(ReasonsTest, AMessageAboutUseTellsTheValueAndWhoHasIt) {
  EXPECT_EQ(Why("AOCOI:ACO=4711;"), "ACO=4711: there is already the authorisation code ACO=4711 (AOCOI)");
  EXPECT_EQ(Why("NANSI:NUMTYP=EX,NUMSE=240&&260;"), "NUMSE=240&&260: 240&&260 collides with the series 200&&249");
  EXPECT_EQ(Why("NACDS:NUM=01,CDCAT=1;"), "NUM=01: 01 begins the number 0110 (NACDS)");
  EXPECT_EQ(Why("edit IPBOI BPOS=002-0-17:IP=10.1.0.19,ROUTER=0.0.0.0;"),
            "IP=10.1.0.19: 10.1.0.19 is used by the IP board BPOS=001-0-19 (IPBOI)");
  EXPECT_EQ(Why("VMPOI:DIR=403,PORT=100,ICUIND=1,IFCIND=1;"),
            "PORT=100: 100 is used by the port DIR=400,PORT=100 (VMPOI)");
}

TEST_F(ReasonsTest, ARefusedDeleteTellsWhoNamesTheRecord) {
  EXPECT_EQ(Why("delete EXCCS CAT=1;"),
            "=: the category 1 is named by the central authorisation code AUTH=8102 (AUCOI)");
}

TEST_F(ReasonsTest, NoReasonTellsASecret) {
  FormDefinition form = *FindForm("GEDII");
  form.parameters[form.Place("DIR")].secret = true;
  Filling filling(*session, form);
  EXPECT_EQ(WhyRefused(filling, "DIR", {"200"}), "");
}

// --- Messages.

Problem ExplainedAs(const std::string& code, const std::vector<Value>& arguments) {
  Session& session = *ReasonsTest::session;
  Filling filling(session, *FindForm("SPEXI"), {{"DIR", "999"}, {"NDC", "909"}});
  session.form().Set("DIR", "999");
  session.form().Set("NDC", "909");
  const auto problems = Explained(filling, {{.code = code, .arguments = arguments, .text = "text"}});
  return problems.at(0);
}

TEST_F(ReasonsTest, AMessageIsAProblemOfTheParameterThatItNames) {
  EXPECT_EQ(ExplainedAs("61011", {"NDC"}).parameter, "NDC");
  EXPECT_EQ(ExplainedAs("61011", {" NDC"}).value, "909");
  EXPECT_EQ(ExplainedAs("60004", {"DIR, EQU", "EXTEIDIR"}).parameter, "DIR");
  EXPECT_EQ(ExplainedAs("60043", {}).parameter, "");
  EXPECT_EQ(ExplainedAs("61024", {"SPEXI"}).parameter, "");
  EXPECT_EQ(ExplainedAs("61005", {"999"}).parameter, "DIR");
}

// Whatever a message says of a parameter that it names, the problem has the parameter and its value.
TEST_F(ReasonsTest, EveryMessageThatNamesAParameterIsAProblemOfIt) {
  for (const auto& [code, texts] : ReadResource("messages.json").Entries()) {
    for (const auto& [count, text] : texts.Entries()) {
      if (count == "0") continue;
      const Problem problem = ExplainedAs(code, std::vector<Value>(std::stoul(count), "NDC"));
      EXPECT_EQ(problem.parameter + "=" + problem.value, "NDC=909") << code;
    }
  }
}

TEST_F(ReasonsTest, AMessageThatIsReportedTwiceIsToldOnce) {
  Filling filling(*session, *FindForm("SPEXI"));
  const ReportedMessage message{.code = "60043", .text = "text"};
  EXPECT_EQ(Explained(filling, {message, message}).size(), 1u);
}

}  // namespace
}  // namespace cordboard::workbench
