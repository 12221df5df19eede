#include "workbench/actions/Generation.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <sstream>
#include <stdexcept>

#include "script/ForwardingHost.h"
#include "script/RunTimeFailure.h"
#include "workbench/plans/Plan.h"
#include "workbench/support/TestExchange.h"

namespace cordboard::workbench {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

// A host whose inserts of lines are refused, or whose statements fail.
class Faulty : public ForwardingHost {
 public:
  using ForwardingHost::ForwardingHost;
  bool refuseLines = false;
  bool fail = false;

  bool scRunQuery(const std::string& sql, RowSet* rows, const Selector& database) override {
    if (fail) throw RunTimeFailure(RunTimeFailure::Cause::HostFailure, "the host is gone");
    if (refuseLines && sql.starts_with("INSERT INTO BuiltCmd")) return false;
    return ForwardingHost::scRunQuery(sql, rows, database);
  }
};

class GenerationTest : public testing::Test {
 protected:
  void Apply(const std::string& plan) {
    std::istringstream in(plan);
    ASSERT_TRUE(ApplyPlan(session_, {{"plan", in}}, {}).kept);
  }

  std::vector<std::string> Lines() {
    std::vector<std::string> lines;
    for (const GeneratedLine& line : Generate(session_).lines) lines.push_back(line.command + " " + line.text);
    return lines;
  }

  std::unique_ptr<Exchange> exchange_ = ExampleExchange();
  std::shared_ptr<Faulty> faulty_;
  Session session_{*exchange_, [this](std::shared_ptr<Host> workbench) {
                     return faulty_ = std::make_shared<Faulty>(std::move(workbench));
                   }};
};

TEST_F(GenerationTest, AnEmptyExchangeHasNoLines) {
  const Generated generated = Generate(session_);
  EXPECT_THAT(generated.lines, IsEmpty());
  EXPECT_THAT(generated.problems, IsEmpty());
}

TEST_F(GenerationTest, LinesStandInTheNotationOfTheExchange) {
  Apply("NANSI:NUMTYP=EX,NUMSE=100&&199;\nNANSI:NUMTYP=AI,NUMSE=9;\n");
  EXPECT_THAT(Lines(), ElementsAre("NANSI NANSI:NUMTYP=EX,NUMSE=100&&199;", "NANSI NANSI:NUMTYP=AI,NUMSE=9;"));
}

TEST_F(GenerationTest, LinesAreTheSameEachTime) {
  Apply("NANSI:NUMTYP=EX,NUMSE=100&&199;\nNANSI:NUMTYP=AI,NUMSE=9;\ndelete NANSI NUMSE=150;\n");
  const auto first = Lines();
  EXPECT_EQ(first.size(), 3u);
  EXPECT_EQ(Lines(), first);
}

TEST_F(GenerationTest, TheExchangeIsLeftAsItIs) {
  Apply("NANSI:NUMTYP=EX,NUMSE=100&&199;\n");
  Lines();
  EXPECT_EQ(Count(*exchange_, "BuiltCmd"), 0);
  EXPECT_EQ(Rows(*exchange_, "SELECT COUNT(*) FROM [main].[BuiltCmd]"), "[[0]]");
  EXPECT_EQ(exchange_->OpenTransactions(), 0);
}

TEST_F(GenerationTest, LinesThatStoodThereBeforeAreNotTakenTwice) {
  exchange_->Dynamic().Run("INSERT INTO [main].[BuiltCmd] VALUES (1, 'old')");
  EXPECT_THAT(Lines(), IsEmpty());
}

TEST_F(GenerationTest, GeneratedLinesCanBeApplied) {
  Apply("NANSI:NUMTYP=EX,NUMSE=100&&199;\nNANSI:NUMTYP=AI,NUMSE=9;\n");
  const auto lines = Generate(session_).lines;
  const auto other = ExampleExchange();
  Session session(*other);
  std::string plan;
  for (const GeneratedLine& line : lines) plan += line.text + "\n";
  std::istringstream in(plan);
  EXPECT_TRUE(ApplyPlan(session, {{"plan", in}}, {}).kept);
  EXPECT_EQ(Rows(*other, "SELECT NUMSE, NUMTYP FROM NANSI"), Rows(*exchange_, "SELECT NUMSE, NUMTYP FROM NANSI"));
}

TEST_F(GenerationTest, ARecordThatGivesTwoLinesGivesTwo) {
  Apply(
      "NANSI:NUMTYP=EX,NUMSE=100;\nEXCCS:CAT=1,TRAF=11,SERV_D6=1,CDIV_D1=1,ROC_D2=1;\n"
      "KSEXI:DIR=100,ITYPE=3,EQU=next,CAT=1;\nKSFKC:DIR=100,KEY=1,FCN=DND;\n");
  const auto lines = Generate(session_, "dynamic", {"KSFKC"}).lines;
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_EQ(lines[0].text, "KSFKC:DIR=100,KEY=1,FCN=TNS;");
  EXPECT_EQ(lines[1].text, "KSFKC:DIR=100,KEY=1,FCN=DND;");
}

TEST_F(GenerationTest, LinesOfSomeCommandsComeInTheOrderOfGeneration) {
  Apply(
      "NANSI:NUMTYP=EX,NUMSE=100;\nEXCCS:CAT=1,TRAF=11,SERV_D6=1,CDIV_D1=1,ROC_D2=1;\n"
      "KSEXI:DIR=100,ITYPE=3,EQU=next,CAT=1;\n");
  std::vector<std::string> commands;
  for (const GeneratedLine& line : Generate(session_, "dynamic", {"KSEXI", "NANSI"}).lines)
    commands.push_back(line.command);
  EXPECT_THAT(commands, ElementsAre("NANSI", "KSEXI"));
}

TEST_F(GenerationTest, CommandsWithRecordsAndWithoutLinesAreTold) {
  EXPECT_THAT(Generate(session_).without, IsEmpty()) << "the rows of categories are blank";
  Apply("NANSI:NUMTYP=EX,NUMSE=100;\nNACDS:NUM=12,CDCAT=3;\nSYTDS:PGIV=3;\n");
  EXPECT_THAT(Generate(session_).without, ElementsAre("NACDS", "SYTDS"));
  EXPECT_THAT(Generate(session_, "dynamic", {"SYTDS", "NANSI"}).without, ElementsAre("SYTDS"));
  EXPECT_THAT(Generate(session_, "site").without, IsEmpty());
}

TEST_F(GenerationTest, WhatGoesWrongIsToldByCommand) {
  Apply("NANSI:NUMTYP=EX,NUMSE=100;\n");
  faulty_->refuseLines = true;
  const Generated generated = Generate(session_);
  EXPECT_THAT(generated.lines, IsEmpty());
  ASSERT_EQ(generated.problems.size(), 1u);
  EXPECT_EQ(generated.problems[0].first, "NANSI");
  EXPECT_EQ(exchange_->OpenTransactions(), 0);
}

TEST_F(GenerationTest, AFailureOfTheCallIsToldToo) {
  faulty_->fail = true;
  const Generated generated = Generate(session_);
  const auto ofNANSI = std::ranges::find(generated.problems, "NANSI", &std::pair<std::string, Problem>::first);
  ASSERT_NE(ofNANSI, generated.problems.end());
  EXPECT_THAT(ofNANSI->second.message, testing::EndsWith("the rules of NANSI broke off"));
  EXPECT_THAT(ofNANSI->second.cause, HasSubstr("the host is gone"));
  EXPECT_EQ(exchange_->OpenTransactions(), 0);
}

TEST_F(GenerationTest, RecordsAloneAreReadAndNoForm) {
  Apply("NANSI:NUMTYP=EX,NUMSE=100;\n");
  session_.host().OpenForm(*FindForm("NANSI")).Set("NUMSE", "7");
  EXPECT_THAT(Lines(), ElementsAre("NANSI NANSI:NUMTYP=EX,NUMSE=100;"));
  EXPECT_THROW(session_.form(), std::logic_error);
}

TEST(GenerationOrder, HoldsEveryCommandThatGeneratesOnceWhereItsRecordsStand) {
  std::multiset<std::pair<std::string, std::string>> ordered;
  for (const char* database : {"dynamic", "site"})
    for (const std::string& command : GenerationOrder(database)) ordered.emplace(database, command);
  std::multiset<std::pair<std::string, std::string>> generating;
  for (const FormDefinition* form : Forms())
    if (form->generates) generating.emplace(form->database, form->command);
  EXPECT_EQ(ordered, generating);
}

}  // namespace
}  // namespace cordboard::workbench
