// An exchange's lines, applied to an empty exchange of the same plant and release, give the same lines again. What
// stands against that is listed here, and on the page "Plans".

#include <gmock/gmock.h>

#include <algorithm>
#include <map>
#include <set>

#include "support/Road.h"
#include "workbench/support/ExamplePlans.h"

namespace cordboard::workbench {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using Lines = std::vector<std::string>;

std::string Joined(const Lines& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\n";
  return text;
}

std::string CommandOf(const std::string& line) { return line.substr(0, line.find(':')); }

// One line each: generated rows hold a release and the line behind it.
Lines Single(const Lines& rows) {
  Lines lines;
  std::istringstream in(Joined(rows));
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

void ApplyAllPlans(Road& road) {
  for (const std::string& plan : ExamplePlans()) EXPECT_TRUE(ApplyExamplePlan(road.session(), plan).kept) << plan;
}

// What the records of the commands that have these lines hold, by column: "ROCAI.DESCRIPTION".
using Columns = std::map<std::string, std::string>;
Columns Stored(Road& road, const Lines& lines) {
  Columns columns;
  for (const std::string& line : lines) {
    const FormDefinition& form = *FindForm(CommandOf(line));
    for (const std::string& column : form.columns) {
      std::string& stored = columns[form.command + "." + column];
      if (column != "CMDID" && stored.empty())
        stored = road.Rows("SELECT IFNULL([" + column + "], '') FROM " + form.Rows() + " ORDER BY 1");
    }
  }
  return columns;
}

// The example, made once for each release.
struct Example {
  Lines lines;
  Columns stored;
};

const Example& ExampleOf(const std::string& release) {
  static std::map<std::string, Example> made;
  Example& example = made[release];
  if (!example.lines.empty()) return example;
  Road road(release);
  ApplyAllPlans(road);
  example.lines = Single(road.Lines());
  example.stored = Stored(road, example.lines);
  return example;
}

// What applying the lines tells: "REEXI:DIR=330,...; refused: the first reason".
Lines Told(const Lines& lines, const PlanResult& result) {
  Lines told;
  for (const LineReport& report : result.reports)
    told.push_back(lines.at(report.line - 1) + (report.refused ? " refused: " : " done: ") +
                   report.problems.front().message);
  return told;
}

struct ReadBack : testing::TestWithParam<std::string> {
  const std::string& release = GetParam();
  bool inFirstReleases = release.starts_with("R6");  // R6 and R6/1
  const Lines& lines = ExampleOf(release).lines;
  Road empty{release};
};

const std::string notPossible = " refused: this value is not possible here";

// Lines whose records need those of a command that has none: directory records (GEDII) and links (ICFUI).
const Lines withoutTheirNumber = {"REEXI:DIR=330,REMNUM=00304711,TYP=0;",
                                  "REEXI:DIR=331,REMNUM=001711234567,TYP=1;",
                                  "CXSYI:SMSN=340;",
                                  "IPEXI:DIR=350,PASSW=\"Tulip-4-you\";",
                                  "IPEXI:DIR=351,PASSW=\"red,green#blue\";",
                                  "IPEXI:DIR=355,PASSW=\"Gate.house\";",
                                  "IPEXI:DIR=356;",
                                  "IVMAI:VSD=358,EQU=1-0-21-0&&1-0-21-7,SID=1;"};
// What no line tells; a number is free where a record without a line had it.
Lines Untold(bool inFirstReleases) {
  Lines untold = {"CLFOC.DESCRIPTION", "EXCCS.DESCRIPTION", "KSANI.DESCRIPTION",
                  "NANSI.USED",        "ROCAI.DESCRIPTION", "ROEQI.CNTRL"};
  if (inFirstReleases) untold.insert(untold.begin() + 3, {"KSEXI.LANG", "KSMDI.DIG"});
  return untold;
}
const Lines withoutTheirLink = {"ICFUC:ICUIND=0,UPDTIM=30,DFMT=0,RATE=9600,ICEXG=1,UPDFCN=1,PARITY=2,CCHECK=1,TXC=1;",
                                "ICFUC:ICUIND=1,MWF=1,RATE=9600,UPDFCN=2,PARITY=0,CCHECK=1,TXC=1;"};

TEST_P(ReadBack, AllLinesAreReadButThoseThatNeedRecordsWithoutLines) {
  Lines expected;
  Lines rest = lines;
  const auto isRefused = [&](const Lines& refused, const std::string& why) {
    for (const std::string& line : refused) {
      expected.push_back(line + why);
      std::erase(rest, line);
    }
  };
  isRefused(withoutTheirNumber, notPossible);
  if (inFirstReleases) isRefused(withoutTheirLink, " refused: The link is not defined. Add it with ICFUI first.");

  const PlanResult result = ApplyText(empty.session(), "lines", Joined(lines), {.keepGoing = true});
  EXPECT_EQ(Told(lines, result), expected);
  EXPECT_EQ(result.done + result.refused, lines.size());
  EXPECT_EQ(Single(empty.Lines()), rest);
}

TEST_P(ReadBack, WithThoseRecordsTheSameLinesAreGivenAgain) {
  const auto isNumbers = [](const std::string& line) { return line.starts_with("NANSI:"); };
  const auto behind = std::ranges::find_if_not(lines, isNumbers);
  Lines plan(lines.begin(), behind);
  plan.insert(plan.end(),
              {"GEDII:DIR=330&331&340&350&351&355&356&358,CUST=1,LIC=1;",
               "ICFUI:ICUIND=0,IFCIND=0,EQU=next,RATE=9600,PARITY=2,CCHECK=1,TXC=1,DFMT=0,ICEXG=1,UPDFCN=1,UPDTIM=30;",
               "ICFUI:ICUIND=1,IFCIND=1,EQU=next,RATE=9600,PARITY=0,CCHECK=1,TXC=1,MWF=1,UPDFCN=2;"});
  plan.insert(plan.end(), behind, lines.end());

  const PlanResult result = ApplyText(empty.session(), "plan", Joined(plan));
  EXPECT_THAT(Told(plan, result), IsEmpty());
  EXPECT_TRUE(result.kept);
  EXPECT_EQ(Single(empty.Lines()), lines);
  Lines lost;
  const Columns stored = Stored(empty, lines);
  for (const auto& [column, values] : ExampleOf(release).stored) {
    if (stored.at(column) != values) lost.push_back(column);
  }
  EXPECT_THAT(lost, ElementsAreArray(Untold(inFirstReleases)));
}

INSTANTIATE_TEST_SUITE_P(OnEveryRelease, ReadBack, testing::ValuesIn(Releases()),
                         [](const auto& parameter) { return parameter.param == "R6/1" ? "R6_1" : parameter.param; });

// --- The commands.

TEST(ReadBackCommands, TheseHaveLinesAndTheRecordsOfAllOthersHaveNone) {
  std::set<std::string> commands;
  for (const std::string& release : Releases()) {
    for (const std::string& line : ExampleOf(release).lines) commands.insert(CommandOf(line));
  }
  EXPECT_THAT(commands,
              ElementsAre("ASPAC", "CLFOC", "CXSYI", "EXCCS", "ICFUC", "IPEXI", "IPGDI", "IPGKC", "IVMAI", "KSANI",
                          "KSEXI", "KSFKC", "KSMDI", "NANSI", "NUTRI", "REEXI", "ROCAI", "RODAI", "RODDI", "ROEQI"));
}

// These have an action that generates, and their records give no line for all that.
TEST(ReadBackCommands, SomeRecordsGiveNoLineThoughTheirCommandGenerates) {
  Lines silent;
  Road example("R8");
  ApplyAllPlans(example);
  for (const FormDefinition* form : Forms()) {
    if (!form->generates || form->database != "dynamic" || example.Rows("SELECT 1 FROM " + form->Rows()).empty())
      continue;
    if (LinesOf(example.session(), *form).empty()) silent.push_back(form->command);
  }
  EXPECT_THAT(silent, ElementsAre("CS_CHGRI", "CS_GDNDI", "CS_GPGRI", "ICFUC"));
}

// --- Lines that cannot be read, though their command has lines.

struct Unreadable {
  const char* name;
  const char* release;
  Lines plan;      // behind the numbers, the categories and the extensions of the example
  Lines expected;  // what reading the lines of the exchange tells
};

struct UnreadableLines : testing::TestWithParam<Unreadable> {};

TEST_P(UnreadableLines, AreRefusedWhereNoAddGivesTheirRecord) {
  const Unreadable& each = GetParam();
  Road road(each.release);
  for (const char* plan : {"example.plan", "extensions.plan", "routes.plan"})
    ASSERT_TRUE(ApplyExamplePlan(road.session(), plan).kept);
  for (const std::string& line : each.plan) ASSERT_TRUE(road.Do(line).starts_with("done")) << line;
  const Lines lines = Single(road.Lines());
  Road again(each.release);
  const PlanResult result = ApplyText(again.session(), "lines", Joined(lines), {.keepGoing = true});
  EXPECT_EQ(Told(lines, result), each.expected);
}

const std::string twice = "KSFKC:DIR=215,KEY=4,FCN=CBK;" + notPossible;

const Unreadable unreadable[] = {
    {"ASecondFunctionThatAnotherRecordHasMade",
     "R6",
     {"KSMDI:DIR=230,KEY=5,MDN=200,CALALT=1,MNS=YES,DIG=44;"},
     {"KSFKC:DIR=230,KEY=5,FCN=MNS,DIG=44;" + notPossible}},
    {"AKeyThatWasMadeSeveralTimes", "R7", {"KSFKC:DIRK=215-4,FCN=CBK;"}, {twice, twice, twice, twice}},
    {"ANumberOfTheDirectoryOnAKey",
     "R7",
     {"GEDII:DIR=150,CUST=1,LIC=1;", "KSMDI:DIR=230,KEY=5,MDN=150,CALALT=1;"},
     {"KSMDI:DIR=230,KEY=5,MDN=150,CALALT=1;" + notPossible}},
    {"ADestinationOfOneCustomerWithoutTheRecordForAll",
     "R7",
     {"delete RODDI ROU=1,DEST=80,CUST=1;", "delete RODDI ROU=1,DEST=80,CUST=2;", "delete RODDI ROU=1,DEST=80;",
      "RODDI:ROU=1,DEST=80,CHO=0,SRT=2;", "RODDI:ROU=1,DEST=80,CUST=1,CHO=3;", "delete RODDI ROU=1,DEST=80,CHO=0;"},
     {"RODDI:ROU=1,DEST=80,CHO=3,CUST=1;" + notPossible}},
    {"AValueThatHoldsAComma",
     "R7",
     {"IPGKC:LIM=1,GKID=\"HQ,1\";"},
     {"IPGKC:LIM=1,GKID=HQ,1,TIMNET=,TMLOAD=; refused: an equals sign is missing at column 22; a "
      "value that holds a comma stands in double quotes"}},
    {"APasswordThatHoldsADoubleQuote",
     "R7",
     {"GEDII:DIR=150,CUST=1,LIC=1;", "IPEXI:DIR=150,PASSW=a\"b;"},
     {"IPEXI:DIR=150,PASSW=\"a\"b\"; refused: a comma or the semicolon is missing at column 24"}}};

INSTANTIATE_TEST_SUITE_P(Lines, UnreadableLines, testing::ValuesIn(unreadable),
                         [](const auto& parameter) { return parameter.param.name; });

// --- Lines that can be read since they stand in a fitting order, or begin with the name of another command.

TEST(ReadBack, AdditionalNumbersComeBeforeTheKeysOnWhichTheyAre) {
  Road road;
  for (const char* plan : {"example.plan", "extensions.plan"}) ASSERT_TRUE(ApplyExamplePlan(road.session(), plan).kept);
  ASSERT_EQ(road.Do("KSMDI:DIR=230,KEY=5,MDN=240,CALALT=1;"), "done");
  const Lines lines = Single(road.Lines());
  Road again;
  EXPECT_THAT(Told(lines, ApplyText(again.session(), "lines", Joined(lines))), IsEmpty());
  EXPECT_EQ(Single(again.Lines()), lines);
}

TEST(ReadBack, LinesOfTemplatesAreReadAsTemplates) {
  Road road;
  for (const char* plan : {"example.plan", "extensions.plan", "templates.plan"})
    ASSERT_TRUE(ApplyExamplePlan(road.session(), plan).kept);
  const Lines lines = road.Lines();
  const Lines templates = road.Lines("site");
  EXPECT_THAT(templates, testing::Not(IsEmpty()));
  Road again;
  EXPECT_THAT(Told(lines, ApplyText(again.session(), "lines", Joined(lines))), IsEmpty());
  EXPECT_THAT(Told(templates, ApplyText(again.session(), "templates", Joined(templates))), IsEmpty());
  EXPECT_EQ(again.Lines("site"), templates);
}

}  // namespace
}  // namespace cordboard::workbench
