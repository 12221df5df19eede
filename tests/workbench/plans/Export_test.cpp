// An exchange as a plan that makes it again: what the lines are, and what is told of what they do not bring about.

#include "workbench/plans/Export.h"

#include <gmock/gmock.h>

#include "support/Road.h"
#include "workbench/support/ExamplePlans.h"
#include "workbench/support/TestExchange.h"

namespace cordboard::workbench {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;
using Texts = std::vector<std::string>;

// An exchange of some lines; nobody has a session on it any longer.
std::unique_ptr<Exchange> Made(const Texts& plans, const Texts& lines, const std::string& release = "R7") {
  auto exchange = ExampleExchange(release);
  Session session(*exchange);
  for (const std::string& plan : plans) EXPECT_TRUE(ApplyExamplePlan(session, plan).kept) << plan;
  for (const std::string& line : lines) EXPECT_TRUE(Perform(session, *ParsePlanLine(line)).done) << line;
  return exchange;
}

Texts LinesOf(const ExportedPlan& exported, const std::string& command) {
  Texts lines;
  for (const TriedLine& line : exported.plan.lines) {
    if (line.command == command) lines.push_back(line.text);
  }
  return lines;
}

Texts Told(const ExportedPlan& exported) {
  Texts told;
  for (const UntoldRecord& record : exported.plan.untold) told.push_back(record.text + " " + record.reason);
  return told;
}

TEST(Export, RecordsThatWereAddedOneAfterTheOtherAreOneLine) {
  const auto exchange = Made({"example.plan", "extensions.plan"},
                             {"KSEXI:DIR=241,ITYPE=3,EQU=next,CAT=1;", "KSEXI:DIR=243,ITYPE=3,EQU=next,CAT=1;",
                              "KSEXI:DIR=242,ITYPE=3,EQU=next,CAT=2;", "KSFKC:DIR=241&243&242,KEY=1,FCN=PCK;"});
  const ExportedPlan exported = ExportPlan(*exchange);
  EXPECT_THAT(LinesOf(exported, "KSEXI"), Contains(StartsWith("KSEXI:DIR=241&243,")));
  EXPECT_THAT(LinesOf(exported, "KSEXI"), Contains(StartsWith("KSEXI:DIR=242,")));
  EXPECT_THAT(LinesOf(exported, "KSFKC"), Contains("KSFKC:DIR=241&243&242,KEY=1,FCN=PCK;"));
}

TEST(Export, ASeriesStaysASeries) {
  const auto exchange = Made(
      {}, {"NANSI:NUMTYP=EX,NUMSE=100&&119;", "NANSI:NUMTYP=EX,NUMSE=120&&139&140&142;", "delete NANSI NUMSE=105;"});
  const ExportedPlan exported = ExportPlan(*exchange);
  EXPECT_THAT(
      LinesOf(exported, "NANSI"),
      ElementsAre("NANSI:NUMTYP=EX,NUMSE=100&&104;", "NANSI:NUMTYP=EX,NUMSE=106&&119;",
                  "NANSI:NUMTYP=EX,NUMSE=120&&139;", "NANSI:NUMTYP=EX,NUMSE=140;", "NANSI:NUMTYP=EX,NUMSE=142;"));
  EXPECT_THAT(exported.different, IsEmpty());
  EXPECT_THAT(exported.header, HasSubstr("cordboard new NEW.cbx --release R7 --plant example && cordboard apply"));
  EXPECT_EQ(Written(exported), Written(ExportPlan(*exchange)));
}

// The record for all customers has to be there first, and stands last.
TEST(Export, ALineThatIsRefusedIsTriedAgainAfterTheOthers) {
  const auto exchange =
      Made({"example.plan", "extensions.plan", "routes.plan"},
           {"delete RODDI ROU=1,DEST=80,CUST=1;", "delete RODDI ROU=1,DEST=80,CUST=2;", "delete RODDI ROU=1,DEST=80;",
            "RODDI:ROU=1,DEST=80,CHO=0,SRT=2;", "RODDI:ROU=1,DEST=80,CUST=1,CHO=3;",
            "delete RODDI ROU=1,DEST=80,CHO=0;", "RODDI:ROU=1,DEST=80,CHO=0,SRT=4;"});
  const ExportedPlan exported = ExportPlan(*exchange);
  EXPECT_THAT(Told(exported), IsEmpty());
  EXPECT_EQ(exported.plan.lines.back().text, "RODDI:ROU=1,DEST=80,CUST=1,CHO=3;");
}

// A group that has an operator takes no other one in a line of its own.
TEST(Export, RecordsThatOneLineAloneMakesAreMadeTogether) {
  const auto exchange =
      Made({"example.plan", "extensions.plan", "authorisation.plan", "routes.plan", "directory.plan", "terminals.plan",
            "templates.plan", "groups.plan", "members.plan", "general.plan", "operators.plan", "desk.plan"},
           {});
  const ExportedPlan exported = ExportPlan(*exchange);
  EXPECT_THAT(Told(exported), IsEmpty());
  EXPECT_THAT(LinesOf(exported, "OPCGS"), Contains("OPCGS:CORG=3,DIR=900&903,CHO=1;"));
  EXPECT_THAT(LinesOf(exported, "OPCGS"), Contains("edit OPCGS CORG=3,DIR=903:CHO=2;"));
}

TEST(Export, OneRecordAmongManyThatCannotBeMadeIsToldAlone) {
  const auto exchange = Made({"example.plan", "extensions.plan"}, {});
  exchange->Dynamic().Execute("UPDATE [KSEXI] SET [EQU] = '009-0-10-00' WHERE [DIR] = '203'");
  const ExportedPlan exported = ExportPlan(*exchange);
  EXPECT_THAT(Told(exported),
              Contains(AllOf(StartsWith("KSEXI:DIR=203,"), HasSubstr(" EQU=009-0-10-00: this value is not "))));
  EXPECT_THAT(LinesOf(exported, "KSEXI"), Contains(StartsWith("KSEXI:DIR=204&&207,")));
  EXPECT_THAT(LinesOf(exported, "KSEXI"), Not(Contains(StartsWith("KSEXI:DIR=203"))));
  EXPECT_THAT(Written(exported), HasSubstr("\n#   EQU=009-0-10-00: this value is not possible here"));
  EXPECT_THAT(exported.different, Contains(testing::Field(&TableDifference::table, "KSEXI")));
}

TEST(Export, TwoLinesThatWouldBeTakenForOneStandApart) {
  EXPECT_EQ(Written({{"KSFKC", "KSFKC:DIR=200,KEY=1,FCN=TNS;"}, {"KSFKC", "KSFKC:DIR=200,KEY=1,FCN=PCK;"}}),
            "\n# KSFKC: Function keys\nKSFKC:DIR=200,KEY=1,FCN=TNS;\n#\nKSFKC:DIR=200,KEY=1,FCN=PCK;\n");
}

TEST(Export, APlantThatIsNotBuiltInIsPrintedFirst) {
  Plant plant = ReadPlant("small");
  plant.name = "mill";
  const auto exchange = Exchange::CreateInMemory("R8", plant);
  EXPECT_THAT(
      ExportPlan(*exchange).header,
      HasSubstr("plant mill, release R8. It is made again by\n#   cordboard plant OLD.cbx --json > plant.json\n"));
}

}  // namespace
}  // namespace cordboard::workbench
