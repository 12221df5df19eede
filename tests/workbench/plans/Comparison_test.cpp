#include "workbench/plans/Comparison.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <random>

#include "support/Road.h"
#include "workbench/exchange/TableComparison.h"
#include "workbench/support/ExamplePlans.h"
#include "workbench/text/Separated.h"

namespace cordboard::workbench {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::IsSubsetOf;
using Texts = std::vector<std::string>;

const char* const base =
    "NANSI:NUMTYP=EX,NUMSE=100&&139;\n"
    "NANSI:NUMTYP=OC,NUMSE=909;\n"
    "EXCCS:CAT=1,TRAF=11,SERV_D6=1;\n"
    "EXCCS:CAT=2,TRAF=77,SERV_D6=2;\n"
    "KSEXI:DIR=100&&111,ITYPE=12,EQU=next,CAT=1,CUST=1;\n"
    "KSFKC:DIR=100&&103,KEY=13,FCN=DND;\n"
    "NACDS:NUM=0110&0112,CDCAT=1;\n"
    "CDINI:DIR=100&&104,DIV=Sales;\n"
    "SYTDS:PGIV=3;\n";

std::unique_ptr<Road> Exchanged(const std::string& plan, const std::string& release = "R7") {
  auto road = std::make_unique<Road>(release);
  EXPECT_TRUE(ApplyText(road->session(), "base", base).kept);
  if (!plan.empty()) ApplyText(road->session(), "plan", plan, {.keepGoing = true});
  return road;
}

// "KSEXI DIR=100 changed: CAT 1 -> 2"
std::string Told(const RecordChange& change) {
  const auto written = [](const Assignment& each) { return each.name + "=" + each.value; };
  std::string text = change.command() + " " + Separated(change.Key(), ",", written);
  if (change.kind() != RecordChange::Kind::Changed)
    return text + (change.kind() == RecordChange::Kind::Added ? " added" : " removed");
  for (const auto& [name, before, now] : change.Columns()) text += " " + name + " " + before + " -> " + now;
  return text;
}

Texts Differences(Road& first, Road& second) {
  RecordComparison comparison(first.exchange(), second.exchange());
  Texts told;
  for (const FormDefinition* form : Forms()) {
    for (const RecordChange& change : comparison.ChangesOf(*form)) told.push_back(Told(change));
  }
  return told;
}

TEST(Comparison, TheOrderInWhichRecordsCameIsNoDifference) {
  const auto first = Exchanged("NACDS:NUM=000,CDCAT=2;\nCDINI:DIR=110,DIV=Stores;\n");
  const auto second = Exchanged("CDINI:DIR=110,DIV=Stores;\nNACDS:NUM=000,CDCAT=2;\n");
  EXPECT_THAT(Differences(*first, *second), IsEmpty());
  EXPECT_THAT(DifferentTables(first->exchange(), second->exchange()), IsEmpty());
  EXPECT_THAT(OtherDifferences(first->exchange(), second->exchange()), IsEmpty());
}

TEST(Comparison, RecordsAreToldByTheirKeysInOrder) {
  const auto first = Exchanged("NACDS:NUM=000,CDCAT=2;\nKSFKC:DIR=105,KEY=10,FCN=CBK;\n");
  const auto second = Exchanged(
      "edit KSEXI DIR=102:CAT=2,CUST=;\nedit KSEXI DIR=100:CAT=2;\ndelete KSFKC DIR=103;\nCDINI:DIR=110,DIV=Stores;\n"
      "edit SYTDS:PGIV=4;\n");
  EXPECT_THAT(Differences(*first, *second),
              ElementsAre("CDINI DIR=110 added", "KSEXI DIR=100 CAT 1 -> 2", "KSEXI DIR=102 CAT 1 -> 2 CUST 1 -> ",
                          "KSFKC DIR=103,KEY=13 removed", "KSFKC DIR=105,KEY=10 removed", "NACDS NUM=000 removed",
                          "SYTDS  PGIV 3 -> 4"));
}

TEST(Comparison, RecordsOfOneKeyArePairedInTheirOrder) {
  const auto first = Exchanged("KSFKC:DIRK=105-10,FCN=CBK;\n");
  const auto second = Exchanged("KSFKC:DIRK=105-10,FCN=CBK;\n");
  for (Road* road : {first.get(), second.get()})
    road->exchange().Dynamic().Execute("INSERT INTO KSFKC SELECT * FROM KSFKC WHERE DIR = '105'");
  EXPECT_THAT(Differences(*first, *second), IsEmpty());
  second->exchange().Dynamic().Execute(
      "UPDATE KSFKC SET FCN = 'DND' WHERE rowid = (SELECT MAX(rowid) FROM KSFKC WHERE DIR = '105')");
  EXPECT_THAT(Differences(*first, *second), ElementsAre("KSFKC DIR=105,KEY=10 FCN CBK -> DND"));
}

TEST(Comparison, ReleasesAndPlantsAreCompared) {
  const auto first = Exchanged("");
  const auto second = Exchanged("", "R8");
  second->exchange().Dynamic().Execute("INSERT INTO ROUTE (ROU, USED) VALUES ('999', 0)");
  EXPECT_THAT(OtherDifferences(first->exchange(), second->exchange()),
              ElementsAre("the releases differ: R7 and R8", "the plants differ, in routes"));
}

TEST(Comparison, LinesAreComparedInTheOrderOfTheExchange) {
  const auto first = Exchanged("");
  const auto second = Exchanged("edit KSEXI DIR=100:CAT=2;\ndelete NANSI NUMSE=909;\nKSFKC:DIR=104,KEY=13,FCN=DND;\n");
  const DifferentLines different = CompareLines(first->exchange(), second->exchange(), {});
  Texts lines;
  for (const auto& [command, text, inSecond] : different.lines) lines.push_back((inSecond ? "+" : "-") + text);
  // A key that has a function loses it before it gets another one.
  EXPECT_THAT(lines, ElementsAre("-NANSI:NUMTYP=OC,NUMSE=909;", "-KSEXI:DIR=100,ITYPE=12,EQU=001-0-11-00,CAT=1,CUST=1;",
                                 "+KSEXI:DIR=100,ITYPE=12,EQU=001-0-11-00,CAT=2,CUST=1;",
                                 "+KSFKC:DIR=104,KEY=13,FCN=TNS;", "+KSFKC:DIR=104,KEY=13,FCN=DND;"));
  EXPECT_THAT(CompareLines(first->exchange(), second->exchange(), {"ASPAC"}).lines, IsEmpty());
}

// --- The plan from one to the other.

const Texts actions = {"KSEXI:DIR=112&&115,ITYPE=12,EQU=next,CAT=2;",
                       "KSEXI:DIR=120,ITYPE=3,EQU=next,CAT=1,LANG=2;",
                       "edit KSEXI DIR=100&&103:CAT=2;",
                       "edit KSEXI DIR=104:EQU=next;",
                       "edit KSEXI DIR=105:CUST=2,LANG=1;",
                       "delete KSEXI DIR=106&107;",
                       "delete KSEXI DIR=108;",
                       "delete KSFKC DIR=100;",
                       "KSFKC:DIR=108&109,KEY=next,FCN=CBK;",
                       "edit KSFKC DIR=101,KEY=13:FCN=CBK;",
                       "NANSI:NUMTYP=EX,NUMSE=140&&149;",
                       "delete NANSI NUMSE=130&&134;",
                       "edit NACDS NUM=0110:CDCAT=2;",
                       "edit NACDS NUM=0112:NUM=0113;",
                       "delete NACDS NUM=0112;",
                       "delete CDINI DIR=100&101;",
                       "edit CDINI DIR=102:DIV=Stores;",
                       "CDINI:DIR=110,DIV=Stores;",
                       "edit SYTDS:PGIV=5;",
                       "edit EXCCS CAT=1:TRAF=22;",
                       "EXCCS:CAT=3,TRAF=33,SERV_D6=1;",
                       "KSEXITEMPLATE:TEMPLATENAME=Hall,CAT=1;",
                       "KSANI:DIR=109,KEY=next,ADN=139,CAT=1;",
                       "KSMDI:DIR=110,KEY=next,MDN=111,CALALT=1;"};

// Some of the actions, in some order; those that are refused do nothing.
std::string SomeActions(std::mt19937& random) {
  Texts some;
  for (int i = 0; i < 12; ++i) some.push_back(actions[random() % actions.size()] + "\n");
  return Separated(some, "");
}

Texts Named(const std::vector<TableDifference>& tables) {
  Texts names;
  for (const TableDifference& each : tables) names.push_back(each.table);
  return names;
}

struct PlanFromOneToTheOther : testing::TestWithParam<unsigned> {};

TEST_P(PlanFromOneToTheOther, TurnsTheOneIntoTheOther) {
  std::mt19937 random(GetParam());
  const std::string toFirst = SomeActions(random);
  const std::string toSecond = SomeActions(random);
  const auto first = Exchanged(toFirst);
  const auto second = Exchanged(toSecond);
  const auto copy = Exchanged(toFirst);
  const ExportedPlan plan = PlanInto(copy->exchange(), second->exchange());
  EXPECT_FALSE(plan.plan.lines.empty());

  Session session(first->exchange());
  EXPECT_TRUE(ApplyText(session, "plan", Written(plan)).kept) << Written(plan);
  // In the fifth exchange a rule has left a function key of an extension that is no more: no line makes that.
  EXPECT_EQ(plan.plan.untold.size(), GetParam() == 5 ? 1 : 0) << Written(plan);
  EXPECT_EQ(Differences(*first, *second).size(), plan.plan.untold.size()) << Written(plan);
  const Texts tables = Named(plan.different);
  EXPECT_EQ(Named(DifferentTables(first->exchange(), second->exchange())), tables) << Written(plan);
  if (!plan.plan.untold.empty()) return;
  // Numbers that are deleted and added again are a series of their own; the rules leave some marks behind.
  EXPECT_THAT(tables, IsSubsetOf({"NANSIBlockedRange", "UsedExtensionsAndOperators", "UsedNumbers"})) << Written(plan);
  if (std::ranges::find(tables, "NANSIBlockedRange") == tables.end()) {
    EXPECT_THAT(CompareLines(first->exchange(), second->exchange(), {}).lines, IsEmpty()) << Written(plan);
  }
}

INSTANTIATE_TEST_SUITE_P(Random, PlanFromOneToTheOther, testing::Range(1U, 7U));

}  // namespace
}  // namespace cordboard::workbench
