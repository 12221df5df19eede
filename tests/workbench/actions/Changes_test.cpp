#include "workbench/actions/Changes.h"

#include <gmock/gmock.h>

#include <sstream>

#include "support/Road.h"
#include "workbench/plans/Plan.h"

namespace cordboard::workbench {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ChangesTest : public testing::Test {
 protected:
  ChangesTest() {
    Told({"NANSI:NUMTYP=EX,NUMSE=100&&199;", "EXCCS:CAT=1,TRAF=1,SERV_D6=1,CDIV_D1=1,ROC_D2=1;",
          "EXCCS:CAT=2,TRAF=2,SERV_D6=1,CDIV_D1=1,ROC_D2=1;", "KSEXI:DIR=100&&104,ITYPE=3,EQU=next,CAT=1;"});
  }

  static std::string Written(const RecordChange& change) {
    std::string text = std::string(1, "+~-"[static_cast<int>(change.kind())]) + change.command();
    for (const auto& [name, value] : change.Key()) text += " " + name + "=" + value;
    for (const auto& [name, before, now] : change.Columns()) text += " " + name + ":" + before + ">" + now;
    return text;
  }

  // What the lines did, one after the other; a refused one says so.
  std::vector<std::string> Told(const std::vector<std::string>& lines, bool dryRun = false) {
    std::stringstream plan;
    for (const std::string& line : lines) plan << line << '\n';
    std::vector<std::string> texts;
    const auto done = [&](const LineReport& report) {
      for (const RecordChange& change : report.changes) texts.push_back(Written(change));
    };
    const PlanResult result =
        ApplyPlan(road_.session(), {{"plan", plan}}, {.dryRun = dryRun, .keepGoing = true, .done = done});
    for (const LineReport& report : result.reports) texts.push_back("refused: " + report.problems.front().message);
    counts_ = result.commands;
    return texts;
  }

  std::string Counts(const std::string& command) {
    const RecordCounts& counts = counts_.at(command);
    return std::to_string(counts.added) + " " + std::to_string(counts.changed) + " " + std::to_string(counts.removed);
  }

  Road road_;
  std::map<std::string, RecordCounts> counts_;
};

TEST_F(ChangesTest, AnAddedRecordIsToldWithAllThatItHas) {
  EXPECT_THAT(Told({"KSEXI:DIR=150&&151,ITYPE=3,EQU=next,CAT=1,CUST=2;"}),
              ElementsAre("+KSEXI DIR=150 EQU:>001-0-10-05 CAT:>1 ITYPE:>3 CUST:>2",
                          "+KSEXI DIR=151 EQU:>001-0-10-06 CAT:>1 ITYPE:>3 CUST:>2"));
  EXPECT_EQ(counts_.size(), 1) << "marks of use are no news";
  EXPECT_EQ(Counts("KSEXI"), "2 0 0");
}

TEST_F(ChangesTest, AnEditIsToldByWhatItChanges) {
  EXPECT_THAT(Told({"edit KSEXI DIR=100:CAT=2,CUST=1;", "edit KSEXI DIR=100:CUST=;", "edit KSEXI DIR=101:DIR=160;"}),
              ElementsAre("~KSEXI DIR=100 CAT:1>2 CUST:>1", "~KSEXI DIR=100 CUST:1>", "~KSEXI DIR=101 DIR:101>160"));
  EXPECT_THAT(Told({"edit KSEXI DIR=100:CAT=2;"}), IsEmpty()) << "as it is already";
  EXPECT_TRUE(counts_.empty());
}

TEST_F(ChangesTest, ARefusedLineDoesNothingAndADryRunTellsTheSame) {
  const std::vector<std::string> lines = {"KSEXI:DIR=150,ITYPE=3,EQU=next,CAT=1;",
                                          "NANSI:NUMTYP=EX,NUMSE=20&&29&15&&22;", "NANSI:NUMTYP=EX,NUMSE=30;"};
  const std::vector<std::string> dry = Told(lines, true);
  EXPECT_THAT(dry, ElementsAre(testing::StartsWith("+KSEXI DIR=150 "), "+NANSI NUMSE=30 NUMTYP:>EX",
                               testing::StartsWith("refused: ")));
  EXPECT_EQ(Told(lines), dry);
}

TEST_F(ChangesTest, APreparedRowIsARecordWhileItIsFilledIn) {
  const std::string add = "EXCCS:CAT=7,TRAF=4,SERV_D6=1,CDIV_D1=1,ROC_D2=1;";
  EXPECT_THAT(
      Told({add, "edit EXCCS CAT=7:TRAF=3;", "delete EXCCS CAT=7;"}),
      ElementsAre(testing::StartsWith("+EXCCS CAT=7 "), "~EXCCS CAT=7 TRAF:4>3", testing::StartsWith("-EXCCS CAT=7 ")));
}

TEST_F(ChangesTest, ASecretIsToldToHaveChangedAndNoMore) {
  EXPECT_THAT(Told({"GEDII:DIR=120,CUST=1;", "IPEXI:DIR=120,PASSW=old;"}),
              ElementsAre("+GEDII DIR=120 CUST:>1", "+IPEXI DIR=120 PASSW:>***"));
  EXPECT_THAT(Told({"edit IPEXI DIR=120:PASSW=new;", "edit IPEXI DIR=120:PASSW=;", "edit IPEXI DIR=120:PASSW=new;"}),
              ElementsAre("~IPEXI DIR=120 PASSW:***>***", "~IPEXI DIR=120 PASSW:***>", "~IPEXI DIR=120 PASSW:>***"));
}

TEST_F(ChangesTest, RecordsOfAllTablesOfACommandAreTold) {
  EXPECT_THAT(
      Told({"NIINI:DIR=100,NAME1=Mill;", "AUCOI:AUTH=1111,CHECK=1,CAT=1;", "AUCOI:AUTH=2222,DIR=100,CAT=1;",
            "KSEXITEMPLATE:TEMPLATENAME=Office,CAT=1;", "SYTDS:PGIV=3;", "SYTDS:PGIV=4;"}),
      ElementsAre("+NIINI DIR=100 NAME1:>Mill", "+AUCOI AUTH=1111 CHECK:>1 CAT:>1", "+AUCOI AUTH=2222 DIR=100 CAT:>1",
                  "+KSEXITEMPLATE TEMPLATENAME=Office CAT:>1", "+SYTDS PGIV:>3", "~SYTDS PGIV:3>4"));
  EXPECT_EQ(Counts("SYTDS"), "1 1 0");
}

// A table is watched by the form of the command that its schema names.
TEST(Changes, TheSchemaNamesTheCommandOfEveryTableOfAForm) {
  for (const FormDefinition* command : Forms()) {
    for (const FormDefinition* form : command->OfEachTable()) {
      const DatabaseSchema& database = form->Database();
      EXPECT_TRUE(database.IsView(form->table) || database.Find(form->table)->command == form->command) << form->table;
    }
  }
}

}  // namespace
}  // namespace cordboard::workbench
