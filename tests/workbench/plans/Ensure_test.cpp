#include "workbench/plans/Ensure.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <map>

#include "support/Road.h"
#include "workbench/actions/Records.h"
#include "workbench/database/Schema.h"
#include "workbench/support/ExamplePlans.h"
#include "workbench/text/Separated.h"

namespace cordboard::workbench {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using Texts = std::vector<std::string>;

// What each table of the configuration and of the templates holds, by its name.
std::map<std::string, std::string> Tables(Road& road) {
  std::map<std::string, std::string> tables;
  for (const char* selector : {"dynamic", "site"}) {
    const DatabaseSchema& database = ShippedSchema().Database(selector);
    for (const Table& table : database.tables) {
      const std::string stored = database.Stored(table.name);
      tables[stored] = road.Rows("SELECT * FROM " + stored);
    }
  }
  return tables;
}

// "KSEXI: 2 added, 3 standing", and what is wrong.
Texts Told(const PlanResult& result) {
  Texts told;
  for (const LineReport& report : result.reports) {
    for (const Problem& problem : report.problems) {
      const std::string value = problem.parameter.empty() ? "" : " " + problem.parameter + "=" + problem.value;
      told.push_back(report.command + value + ": " + problem.message);
    }
  }
  for (const auto& [command, counts] : result.commands) {
    std::string text;
    const auto add = [&text](std::size_t count, const char* what) {
      if (count > 0) text += (text.empty() ? ": " : ", ") + std::to_string(count) + " " + what;
    };
    add(counts.added, "added");
    add(counts.changed, "changed");
    add(counts.removed, "removed");
    add(counts.standing, "standing");
    told.push_back(command + text);
  }
  return told;
}

// --- The example.

std::string Replaced(std::string text, const std::string& from, const std::string& to) {
  const std::size_t at = text.find(from);
  return at == text.npos ? text : text.replace(at, from.size(), to);
}

std::string WithKeysTaken(std::string line, const LineReport& report) {
  const FormDefinition& form = *FindForm(report.command);
  for (const auto& [name, value] : report.taken) {
    if (std::ranges::find(form.key, name) == form.key.end()) continue;
    const std::size_t begin = line.find(name + "=next");
    line.replace(begin, line.find_first_of(",;", begin) - begin, name + "=" + value);
  }
  return line;
}

// The adds of the example, each of what its record is at the end. Applied, it puts what "next" takes for keys in the
// place of the word.
struct ExampleAdds {
  Texts lines;

  // By a line behind it.
  static bool IsTakenBack(const std::string& line) {
    return line.starts_with("NIINI:DIR=214,NAME1=Gatehouse,") || line.starts_with("KSFKC:DIR=200&&203,KEY=next");
  }

  ExampleAdds() {
    for (const std::string& name : ExamplePlans()) {
      std::istringstream in{std::string(Resource("plans/" + name))};
      for (std::string line; std::getline(in, line);) {
        const auto action = ReadableLine(line);
        if (!action || action->kind != UserAction::Kind::Add || IsTakenBack(line)) continue;
        if (line.starts_with("OP")) line = Replaced(Replaced(line, "DIR=902", "DIR=903"), "CORG=9", "CORG=6");
        lines.push_back(line + "\n");
      }
    }
  }

  void Apply(Road& road) {
    const auto note = [&](const LineReport& report) {
      lines[report.line - 1] = WithKeysTaken(lines[report.line - 1], report);
    };
    EXPECT_TRUE(ApplyText(road.session(), "plan", Separated(lines, ""), {.done = note}).kept);
  }
};

PlanResult Ensure(Road& road, const Texts& lines) {
  return ApplyText(road.session(), "plan", Separated(lines, ""), {.ensure = true});
}

Texts NotLeftAlone(const PlanResult& result) {
  Texts told = Told(result);
  std::erase_if(told, [](const std::string& text) {
    return text.ends_with(" standing") && text.find(',') == text.npos && text.find('=') == text.npos;
  });
  return told;
}

// Some records come with those of other commands, and no line of the plans tells them.
const Texts withOthers = {"CS_CHGRI", "CS_GDNDI", "CS_GPGRI", "ICFUC"};

struct EnsureExample : testing::TestWithParam<std::string> {};

TEST_P(EnsureExample, WhatStandsIsLeftAloneAndWhatIsMissingIsAdded) {
  ExampleAdds adds;
  Road plain(GetParam());
  adds.Apply(plain);
  Road road(GetParam());
  EXPECT_TRUE(Ensure(road, adds.lines).kept);
  const auto tables = Tables(plain);
  EXPECT_EQ(Tables(road), tables) << "on an empty exchange";

  const PlanResult again = Ensure(road, adds.lines);
  EXPECT_TRUE(again.kept);
  EXPECT_THAT(NotLeftAlone(again), IsEmpty());
  EXPECT_EQ(Tables(road), tables) << "the second time";
  Texts untold;
  for (const FormDefinition* form : Forms()) {
    const auto counts = again.commands.find(form->command);
    const std::size_t standing = counts == again.commands.end() ? 0 : counts->second.standing;
    if (standing != CountRecords(road.exchange(), *form).records) untold.push_back(form->command);
  }
  EXPECT_THAT(untold, ElementsAreArray(withOthers));

  Texts lines;
  for (const std::string& line : road.Lines()) lines.push_back(line + "\n");
  EXPECT_THAT(NotLeftAlone(Ensure(road, lines)), IsEmpty());
  EXPECT_EQ(Tables(road), tables) << "with the lines of the exchange";

  EXPECT_EQ(road.Do("delete OPCGS CORG=1,DIR=900&903;"), "done");
  EXPECT_EQ(road.Do("delete EXTEI DIR=402&404;"), "done");
  EXPECT_THAT(NotLeftAlone(Ensure(road, adds.lines)),
              ElementsAre("EXTEI: 2 added, 48 standing", "OPCGS: 2 added, 10 standing"));
}

INSTANTIATE_TEST_SUITE_P(OnTwoReleases, EnsureExample, testing::Values("R6", "R8"));

// --- Lines, each on an exchange with the numbers, categories and key extensions of the example.

struct Case {
  const char* line;
  Texts told;
};

void PrintTo(const Case& each, std::ostream* out) { *out << each.line; }

struct EnsuredLine : testing::TestWithParam<Case> {
  static void SetUpTestSuite() {
    road = std::make_unique<Road>();
    for (const char* plan : {"example.plan", "extensions.plan"})
      ASSERT_TRUE(ApplyExamplePlan(road->session(), plan).kept);
  }
  static void TearDownTestSuite() { road.reset(); }

  static inline std::unique_ptr<Road> road;
};

TEST_P(EnsuredLine, DoesWhatIsNotSoYet) {
  const PlanOptions options{.dryRun = true, .ensure = true};
  EXPECT_EQ(Told(ApplyText(road->session(), "plan", GetParam().line, options)), GetParam().told);
}

const Case cases[] = {
    {"KSEXI:DIR=200&&207,ITYPE=3,EQU=001-0-10-00&&001-0-10-07,CAT=1,CUST=1;", {"KSEXI: 8 standing"}},
    {"KSEXI:DIR=200&207,ITYPE=3,EQU=001-0-10-00&001-0-10-07,CAT=2;", {"KSEXI: 2 changed"}},
    {"KSEXI:DIR=206&&208,CUST=1,LANG=1;", {"KSEXI: 1 changed, 2 standing"}},
    {"KSEXI:DIR=199&200,ITYPE=3,EQU=next,CAT=1;", {"KSEXI: 1 added, 1 standing"}},
    {"KSEXI:DIR=200,LOCATION=WORKS,CAT=1;", {"KSEXI: 1 standing"}},
    {"KSEXI:DIR=200,CUST=;", {"KSEXI: 1 changed"}},
    {"KSEXI:DIR=200,NOTHING=1;", {"KSEXI NOTHING=: there is no parameter NOTHING in KSEXI."}},
    {"KSEXI:DIR=200,CAT=1,CAT=1;", {"KSEXI CAT=1: this parameter is given twice"}},
    {"KSEXI:DIR=200&201,CAT=9;",
     {"KSEXI CAT=9: record DIR=200: this value is not possible here",
      "KSEXI CAT=9: record DIR=201: this value is not possible here"}},
    {"KSEXI:DIR=next,ITYPE=3,EQU=next,CAT=1;", {"KSEXI: next finds no record again; give the value of DIR"}},
    {"KSFKC:DIRK=215-4,FCN=CBK;", {"KSFKC: records are found by DIR, KEY; give them in the place of DIRK"}},
    {"KSFKC:KEY=4,DIRK=215-4,FCN=CBK;", {"KSFKC: records are found by DIR, KEY; give them in the place of DIRK"}},
    {"NANSI:NUMTYP=EX,NUMSE=245&&252;", {"NANSI: 3 added, 5 standing"}},
    {"NANSI:NUMTYP=AI,NUMSE=100;",
     {"NANSI: the record stands with other values than NUMTYP=AI, and records of NANSI cannot be changed; delete it "
      "first"}},
    {"NACDS:NUM=000,CDCAT=2&&3;", {"NACDS: 1 standing"}},
    {"SYIDI:EXGID=7700;", {"SYIDI: 1 standing"}},
    {"SYIDI:EXGID=7701;", {"SYIDI: 1 changed"}},
    {"CDCOI:INTDIV=9,PRIDIV=9,PUBDIV=909;", {"CDCOI: 1 changed"}},
    // A part that is not told is nothing, as in an add.
    {"EXCCS:CAT=2,SERV_D3D4_SUB1=02,SERV_D3D4_SUB2=04,SERV_D3D4_SUB3=16;", {"EXCCS: 1 standing"}},
    {"EXCCS:CAT=2,SERV_D3D4_SUB2=04,SERV_D3D4_SUB3=16;", {"EXCCS: 1 changed"}},
    {"EXCCS:CAT=7,TRAF=11;", {"EXCCS: 1 added"}},
    {"edit KSEXI DIR=200:CAT=1,CUST=1;", {"KSEXI: 1 standing"}},
    {"edit KSEXI DIR=200&&209:LANG=1;", {"KSEXI: 2 changed, 8 standing"}},
    {"edit KSEXI DIR=200:EQU=next;",
     {"KSEXI EQU=next: next is another value each time that the line is applied; give the value itself"}},
    {"edit NACDS NUM=0114:NUM=0110;", {"NACDS: 1 standing"}},
    {"edit NACDS NUM=0114:NUM=0110,CDCAT=3;", {"NACDS: there is no record of NACDS with NUM=0114"}},
    {"delete NANSI NUMSE=248&&252;", {"NANSI: 2 removed, 3 standing"}},
    {"delete KSFKC DIR=100&102;", {"KSFKC: 2 standing"}},
    {"delete KSFKC NOTHING=1;", {"KSFKC NOTHING=: a record of KSFKC has no NOTHING."}}};

INSTANTIATE_TEST_SUITE_P(Lines, EnsuredLine, testing::ValuesIn(cases));

}  // namespace
}  // namespace cordboard::workbench
