#include "workbench/plans/ExchangeLine.h"

#include <gtest/gtest.h>

#include "support/Road.h"
#include "workbench/plans/DerivedValues.h"
#include "workbench/plans/PlanLine.h"
#include "workbench/plans/UntoldValues.h"
#include "workbench/support/ExamplePlans.h"

namespace cordboard::workbench {
namespace {

// What applying the lines tells: "2 refused: SIG=1: the message [what is possible]", one a line.
std::string Told(Session& session, const std::string& lines) {
  std::string text;
  for (const LineReport& report : ApplyText(session, "lines", lines, {.keepGoing = true}).reports) {
    for (const Problem& problem : report.problems)
      text += std::to_string(report.line) + (report.refused ? " refused: " : " done: ") + problem.parameter +
              (problem.parameter.empty() ? "" : "=" + problem.value + ": ") + problem.message +
              (problem.possible ? " [" + InWords(*problem.possible) + "]" : "") + "\n";
  }
  return text;
}

struct ExchangeLine : testing::Test {
  std::string Told(const std::string& lines) { return workbench::Told(road.session(), lines); }
  std::string Routes() { return road.Rows("SELECT ROU, PROTOCOL, MARKET, DIST FROM ROCAI"); }

  Road road;
};

const std::string values = "SEL=1000000001,SIG=100100000030,TRAF=01020304,TRM=2,SERV=1000";

// --- Derived values.

TEST_F(ExchangeLine, ValuesThatALineDoesNotTellAreFound) {
  EXPECT_EQ(Told("ROCAI:ROU=2," + values + ",DIST =10,NODG=4;"), "");
  EXPECT_EQ(Routes(), "2|CAS|DE|10");
}

TEST_F(ExchangeLine, WhereNoneGiveTheLineTheNearestAreNamed) {
  EXPECT_EQ(Told("ROCAI:ROU=2," + values + ",NODG=5;"),
            "1 refused: the line does not tell PROTOCOL and MARKET, and no record gives a line with these values; give "
            "them, and what is different is told: at the least NODG [PROTOCOL=CAS,MARKET=DE]\n");
  EXPECT_EQ(Routes(), "");
}

TEST_F(ExchangeLine, WithAllOfTheRecordEachDifferenceIsAWarning) {
  EXPECT_EQ(Told("ROCAI:ROU=2,PROTOCOL=CAS,MARKET=DE," + values + ",BCAP=9;"),
            "1 done: NODG=: the exchange's line will have 4 here, which follows from the record\n"
            "1 done: BCAP=9: the exchange's line will have nothing here, which follows from the record\n");
  EXPECT_EQ(Routes(), "2|CAS|DE|-");
}

TEST_F(ExchangeLine, APartOfTheUntoldValuesNarrowsTheSearch) {
  EXPECT_EQ(Told("ROCAI:ROU=2,PROTOCOL=CAS," + values + ",NODG=4;"), "");
  EXPECT_EQ(Routes(), "2|CAS|DE|-");
}

TEST_F(ExchangeLine, AFormWithoutDerivedValuesIsFilledInAsEver) {
  EXPECT_EQ(Told("ROCAI:ROU=2,PROTOCOL=CAS,MARKET=DE,TRAF=01;"), "");
  EXPECT_EQ(Told("ROCAI:ROU=3,TRAF=01;"),
            "1 refused: PROTOCOL=: this parameter has to be given (Signalling protocol)\n"
            "1 refused: MARKET=: this parameter has to be given (Market, one that the protocol has)\n");
}

TEST_F(ExchangeLine, WhatIsWrongWithTheLineItselfIsTold) {
  const std::string rest = ",SEL=1000000001,SIG=100100000030,TRM=2,SERV=1000,NODG=4;";
  EXPECT_EQ(Told("ROCAI:ROU=99,TRAF=01" + rest).substr(0, 53), "1 refused: ROU=99: this value is not possible here [1");
  EXPECT_EQ(Told("ROCAI:ROU=2" + rest), "1 refused: TRAF=: this parameter has to be given (Traffic classes)\n");
  EXPECT_EQ(Told("ROCAI:ROU=2,TRAF=01,SIG=1" + rest),
            "1 refused: SIG=: SIG stands in lines of the exchange alone: it follows from the record, and cannot be "
            "given here\n1 refused: SIG=: this parameter is given twice\n");
  EXPECT_EQ(Routes(), "");
}

TEST_F(ExchangeLine, DerivedValuesAreNotGivenInAnEdit) {
  ASSERT_EQ(Told("ROCAI:ROU=2,PROTOCOL=CAS,MARKET=DE,TRAF=01;"), "");
  EXPECT_EQ(Told("edit ROCAI ROU=2:SIG=1;"),
            "1 refused: SIG=: SIG stands in lines of the exchange alone: it follows from the record, and cannot be "
            "given here\n");
}

// A form that knows one of the derived values alone takes several protocols for the right one.
TEST_F(ExchangeLine, WhereSeveralGiveTheLineTheyAreNamed) {
  FormDefinition form = *FindForm("ROCAI");
  form.lines.derived = {"TRM"};
  UserAction add{.command = "ROCAI", .selection = {}, .values = {{"ROU", "2"}, {"TRAF", "01"}}};
  const auto problems = FindUntold(road.session(), form, add, {{"TRM", "2"}});
  ASSERT_EQ(problems.size(), 1u);
  EXPECT_EQ(problems[0].message,
            "the line does not tell PROTOCOL and MARKET, and several records give this line; give them as well");
  EXPECT_EQ(InWords(*problems[0].possible), "PROTOCOL=CAS,MARKET=DE, PROTOCOL=CAS,MARKET=UK");
  EXPECT_EQ(add.values.size(), 2u);
  EXPECT_EQ(Routes(), "");
}

TEST_F(ExchangeLine, BoardAndNumberOfAVoiceMailSystemAreFoundByItsPositions) {
  ASSERT_EQ(Told("NANSI:NUMTYP=EX,NUMSE=300&&309;\nGEDII:DIR=300,CUST=1,LIC=1;"), "");
  EXPECT_EQ(Told("IVMAI:VSD=300,EQU=1-0-21-0&&1-0-21-7,SID=1;"), "");
  EXPECT_EQ(road.Rows("SELECT VSD, BPOS, NOIND, SID FROM IVMAI"), "300|001-0-21|8|1");
}

TEST_F(ExchangeLine, WhereNoLineIsFoundThatIsTheRecordsNothingIsCompared) {
  ASSERT_EQ(Told("NANSI:NUMTYP=EX,NUMSE=300&&309;\nGEDII:DIR=300,CUST=1,LIC=1;"), "");
  EXPECT_EQ(Told("IVMAI:VSD=next,BPOS=001-0-21,NOIND=8,EQU=1-0-21-0;"),
            "1 done: the exchange gives no line with these values, so that those which follow from the record are not "
            "compared\n");
}

// --- Lines of the records of another command.

TEST_F(ExchangeLine, ALineOfAnotherCommandsRecordsIsComparedAndWritesNothing) {
  const std::string line = "RODAI:ROU=2,TYPE=T2,VARI=1,VARO=1,FILTER=1;\n";
  EXPECT_EQ(Told(line),
            "1 refused: this line comes from a record of ROCAI, and there is none that gives it; add that\n");
  ASSERT_EQ(Told("ROCAI:ROU=1,PROTOCOL=ISDN,MARKET=DE,TRAF=01;\nROCAI:ROU=2,PROTOCOL=CAS,MARKET=DE,TRAF=01;"), "");
  EXPECT_EQ(Told(line + "RODAI:ROU=1,TYPE=T30,VARI=12,VARO=11,VARC=3,FILTER=2;"),
            "2 done: VARI=12: the exchange's line will have 11 here, which follows from the record\n");
  EXPECT_EQ(road.Rows("SELECT ROU FROM RODAI"), "");
  EXPECT_EQ(Routes(), "1|ISDN|DE|- 2|CAS|DE|-") << "looking at the line of one leaves the others";
  EXPECT_EQ(Told("RODAI:ROU=3;"), "") << "a record of its own";
  EXPECT_EQ(road.Rows("SELECT ROU FROM RODAI"), "3");
}

TEST(ExchangeLineInR6, ALineThatStandsWritesNothingAndAnotherAddsARecord) {
  Road road("R6");
  ASSERT_EQ(Told(road.session(), "ICFUI:ICUIND=2,EQU=next,RATE=4800;"), "");
  EXPECT_EQ(Told(road.session(), "ICFUC:ICUIND=2,RATE=4800;"), "");
  EXPECT_EQ(road.Rows("SELECT RATE FROM ICFUC"), "4800");
  EXPECT_EQ(Told(road.session(), "ICFUC:ICUIND=2,RATE=9600;"), "");
  EXPECT_EQ(road.Rows("SELECT RATE FROM ICFUC"), "4800 9600");
}

// --- Two lines of one record.

// The values of the add that the two lines make; nothing where they are none.
std::string Add(const std::string& line, const std::string& behind) {
  const auto together = Together(*ParsePlanLine(line), behind);
  if (!together) return "";
  std::string text = together->command;
  for (const auto& [name, value] : together->values) text.append(" ").append(name).append("=").append(value);
  return text;
}

TEST(Release, IsALineThatGivesTheKeyOfTheLineBehindItNoFunction) {
  const std::string release = "KSFKC:DIR=200,KEY=1,FCN=TNS;";
  EXPECT_EQ(Add(release, "KSFKC:DIR=200,KEY=1,FCN=PCK;"), "KSFKC DIR=200 KEY=1 FCN=PCK");
  EXPECT_EQ(Add(release, "KSMDI:KEY=1,DIR=200,MDN=208;"), "KSMDI KEY=1 DIR=200 MDN=208");
  EXPECT_EQ(Add(release, "KSANI:DIR=200,KEY=1,ADN=2;"), "KSANI DIR=200 KEY=1 ADN=2");
  for (const char* behind : {"", "# KSFKC:DIR=200,KEY=1,FCN=PCK;", "KSFKC:DIR=200,KEY=2,FCN=PCK;",
                             "KSFKC:DIR=201,KEY=1,FCN=PCK;", "KSFKC:DIR=200,KEY=1,FCN=TNS;", "KSFKC:DIR=200,FCN=PCK;",
                             "edit KSFKC DIR=200,KEY=1:FCN=PCK;", "KSFKC:DIR=200,KEY=1,FCN=PCK"})
    EXPECT_EQ(Add(release, behind), "") << behind;
}

TEST(Release, GivesNoMoreThanTheKey) {
  const std::string behind = "KSFKC:DIR=200,KEY=1,FCN=PCK;";
  for (const char* line :
       {"KSFKC:DIR=200,KEY=1,FCN=TNS,DIG=9;", "KSFKC:DIR=200,KEY=1,FCN=CBK;", "KSFKC:DIR=200,FCN=TNS;",
        "KSFKC:DIR=200,KEY=1;", "KSMDI:DIR=200,KEY=1,FCN=TNS;", "edit KSFKC DIR=200:FCN=TNS;"})
    EXPECT_EQ(Add(line, behind), "") << line;
}

TEST(Continuation, GoesOnWhereTheLineBeforeItIsFull) {
  const std::string line = "CLFOC:FORM=5,DATA=1-6-F;";
  EXPECT_EQ(Add(line, "CLFOC:FORM=5,DATA=2-4-J&3-5-A,APPEND=YES;"), "CLFOC FORM=5 DATA=1-6-F&2-4-J&3-5-A");
  for (const char* behind :
       {"CLFOC:FORM=6,DATA=2-4-J,APPEND=YES;", "CLFOC:FORM=5,DATA=2-4-J;",
        "CLFOC:FORM=5,DATA=2-4-J,APPEND=YES,DESCRIPTION=x;", "CLFOC:FORM=5,APPEND=YES,DATA1=2-4-J;"})
    EXPECT_EQ(Add(line, behind), "") << behind;
  EXPECT_EQ(Add("CLFOC:FORM=5,DATA1=1-6-F;", "CLFOC:FORM=5,DATA=2-4-J,APPEND=YES;"), "");
  EXPECT_EQ(Add("CLFOC:FORM=5,DATA=1-6-F,APPEND=YES;", "CLFOC:FORM=5,DATA=2-4-J,APPEND=YES;"), "");
}

// To append writes the items of all forms, and the lines of a long form are made of them.
TEST(Continuation, LeavesTheLinesOfAnotherLongForm) {
  const auto line = [](const std::string& form, char kind, int from, int to) {
    std::string items;
    for (int i = from; i <= to; ++i) items += (i == from ? "" : "&") + std::to_string(i) + "-3-" + kind;
    return "CLFOC:FORM=" + form + ",DATA=" + items;
  };
  const std::string lines = line("4", 'Q', 1, 25) + ";\n" + line("4", 'Q', 26, 30) + ",APPEND=YES;\n" +
                            line("5", 'S', 1, 25) + ";\n" + line("5", 'S', 26, 30) + ",APPEND=YES;\n";
  Road road;
  const PlanResult result = ApplyText(road.session(), "lines", lines);
  EXPECT_EQ(result.done, 4u);
  EXPECT_TRUE(result.reports.empty());
  std::string given;
  for (const std::string& each : road.Lines()) given += each + "\n";
  EXPECT_EQ(given, lines);
}

TEST(TwoLinesOfOneRecord, AreEachOnTheirOwnWhereTheyAreRefused) {
  Road road;
  for (const char* plan : {"example.plan", "extensions.plan"}) ASSERT_TRUE(ApplyExamplePlan(road.session(), plan).kept);
  EXPECT_EQ(Told(road.session(), "KSFKC:DIR=200,KEY=6,FCN=TNS;\nKSMDI:DIR=200,KEY=6,MDN=999;\n").substr(0, 57),
            "2 refused: MDN=999: this value is not possible here [100,");
  EXPECT_EQ(road.Rows("SELECT FCN FROM KSFKC WHERE DIR = '200' AND KEY = '6'"), "TNS");
}

TEST(Release, MakesNoRecordAlsoWhereTheKeyStoresANumber) {
  Road road("R6");
  for (const char* plan : {"example.plan", "extensions.plan"}) ASSERT_TRUE(ApplyExamplePlan(road.session(), plan).kept);
  EXPECT_EQ(Told(road.session(),
                 "KSFKC:DIR=204,KEY=2,FCN=TNS,DIG=216;\n"
                 "KSFKC:DIR=204,KEY=2,FCN=TNS;\n"
                 "KSMDI:DIR=204,KEY=2,MDN=208;\n"
                 "KSFKC:DIR=205,KEY=2,FCN=TNS;\n"),
            "");
  EXPECT_EQ(road.Rows("SELECT DIR, DIG FROM KSFKC WHERE DIR IN ('204', '205') AND KEY = '2'"), "204|216 205|-");
}

// --- What the forms say.

TEST(LineForm, NamesCommandsThatThereAre) {
  for (const FormDefinition* form : Forms()) {
    const std::string& from = form->lines.from;
    EXPECT_TRUE(from.empty() || FindForm(from) != nullptr) << form->command << ": " << from;
  }
}

}  // namespace
}  // namespace cordboard::workbench
