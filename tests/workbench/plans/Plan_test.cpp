#include "workbench/plans/Plan.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

#include "workbench/exchange/Plant.h"
#include "workbench/plans/PlanLine.h"
#include "workbench/support/TemporaryFolder.h"
#include "workbench/support/TestExchange.h"

namespace cordboard::workbench {
namespace {

using testing::_;
using testing::ElementsAre;
using testing::HasSubstr;

class PlanTest : public testing::Test {
 protected:
  PlanResult Apply(const std::vector<std::string>& plans, const PlanOptions& options = {}) {
    std::vector<std::istringstream> streams;
    for (const std::string& plan : plans) streams.emplace_back(plan);
    std::vector<PlanFile> files;
    for (std::size_t i = 0; i < streams.size(); ++i) files.push_back({"plan" + std::to_string(i + 1), streams[i]});
    return ApplyPlan(session_, files, options);
  }

  // "plan1:2 NANSI refused: the message", a line for each problem.
  std::string Reports(const PlanResult& result) {
    std::string text;
    for (const LineReport& report : result.reports) {
      for (const Problem& problem : report.problems)
        text += report.file + ":" + std::to_string(report.line) + " " + report.command +
                (report.refused ? " refused: " : " done: ") + problem.message + "\n";
    }
    return text;
  }
  static std::string Counts(const PlanResult& result) {
    return std::to_string(result.done) + " done, " + std::to_string(result.refused) + " refused, " +
           (result.kept ? "kept" : "not kept");
  }

  std::string Numbers() { return Rows(*exchange_, "SELECT NUMSE FROM NANSI ORDER BY rowid"); }

  std::unique_ptr<Exchange> exchange_ = ExampleExchange();
  Session session_{*exchange_};
};

const std::string good = "NANSI:NUMTYP=EX,NUMSE=10;\n";
const std::string tooLong = "NANSI:NUMTYP=EC,NUMSE=1000;\n";

TEST_F(PlanTest, APlanIsKeptWhereEveryLineIsDone) {
  const PlanResult result = Apply({"# numbers\n\n" + good + "NANSI:NUMTYP=OI,NUMSE=90&&91;\ndelete NANSI NUMSE=90;\n"});
  EXPECT_EQ(Counts(result), "3 done, 0 refused, kept");
  EXPECT_TRUE(result.reports.empty());
  EXPECT_EQ(Numbers(), R"([["10", "91"]])");
  EXPECT_EQ(exchange_->OpenTransactions(), 0);
}

TEST_F(PlanTest, OneRefusedLineKeepsNothing) {
  const PlanResult result = Apply({good + tooLong + "NANSI:NUMTYP=EX,NUMSE=20;\n"});
  EXPECT_EQ(Counts(result), "2 done, 1 refused, not kept");
  EXPECT_EQ(Numbers(), "Empty");
  EXPECT_EQ(exchange_->OpenTransactions(), 0);
}

TEST_F(PlanTest, EveryBadLineIsReportedWithItsFileAndNumber) {
  const PlanResult result = Apply({good + "# comment\n" + tooLong + "NANSY:A=1;\n",
                                   "\nNANSI:NUMTYP=XX,NUMSE=20;\nNANSI:NUMTYP=EX\n" + std::string("\xFF\n") + good});
  EXPECT_EQ(Reports(result),
            "plan1:3 NANSI refused: The number is too long. Type EC takes at most 3 digits.\n"
            "plan1:4 NANSY refused: there is no command NANSY. Did you mean NANSI?\n"
            "plan2:2 NANSI refused: this value is not possible here\n"
            "plan2:3  refused: the line is not ended: a semicolon is missing\n"
            "plan2:4  refused: the line is not UTF-8 text\n"
            "plan2:5 NANSI refused: A number of this series lies in a range that is already in use. Give other "
            "numbers.\n");
  EXPECT_EQ(Counts(result), "1 done, 6 refused, not kept");
}

TEST_F(PlanTest, AReportNamesParameterValueAndWhatWouldBeAllowed) {
  const PlanResult result = Apply({"NANSI:NUMTYP=XX,NUMSE=20;"});
  ASSERT_EQ(result.reports.size(), 1u);
  const Problem& problem = result.reports[0].problems.at(0);
  EXPECT_EQ(problem.parameter, "NUMTYP");
  EXPECT_EQ(problem.value, "XX");
  ASSERT_TRUE(problem.possible);
  EXPECT_THAT(problem.possible->values, ElementsAre("AC", "AI", "CP", _, _, _, _, _, _, _));
  EXPECT_GT(problem.possible->total, 10u);
}

TEST_F(PlanTest, ARefusedLineLeavesNothingBehind) {
  const PlanOptions keepGoing{.keepGoing = true};
  // The second series collides when the first is in already.
  EXPECT_EQ(Counts(Apply({good + "NANSI:NUMTYP=EX,NUMSE=20&&29&10;\n"}, keepGoing)), "1 done, 1 refused, kept");
  EXPECT_EQ(Numbers(), R"([["10"]])");
  EXPECT_EQ(Rows(*exchange_, "SELECT [Start] FROM NANSIBlockedRange"), R"([["10"]])");
}

TEST_F(PlanTest, TheGoodLinesAreKeptOnDemand) {
  const PlanResult result = Apply({good + tooLong + "NANSI:NUMTYP=EX,NUMSE=20;\n"}, {.keepGoing = true});
  EXPECT_EQ(Counts(result), "2 done, 1 refused, kept");
  EXPECT_EQ(Numbers(), R"([["10", "20"]])");
}

TEST_F(PlanTest, ADryRunReportsTheSameAndKeepsNothing) {
  const std::string plan = good + tooLong + good;
  const PlanResult dry = Apply({plan}, {.dryRun = true, .keepGoing = true});
  EXPECT_EQ(Counts(dry), "1 done, 2 refused, not kept");
  EXPECT_EQ(Numbers(), "Empty");
  const PlanResult real = Apply({plan}, {.keepGoing = true});
  EXPECT_EQ(Counts(real), "1 done, 2 refused, kept");
  EXPECT_EQ(Reports(dry), Reports(real));
}

TEST_F(PlanTest, ADryRunDoesNotUseUpIdentifiers) {
  const Value before = exchange_->NewCmdId();
  Apply({good}, {.dryRun = true});
  EXPECT_EQ(exchange_->NewCmdId(), Value(before.number() + 1));
}

TEST_F(PlanTest, SeveralPlansAreOne) {
  const PlanResult result = Apply({good, tooLong});
  EXPECT_EQ(Counts(result), "1 done, 1 refused, not kept");
  EXPECT_EQ(Numbers(), "Empty");
  EXPECT_EQ(Counts(Apply({good, "delete NANSI NUMSE=10;"})), "2 done, 0 refused, kept");
  EXPECT_EQ(Numbers(), "Empty");
}

TEST_F(PlanTest, APlanWithoutActionsKeepsNothing) {
  EXPECT_EQ(Counts(Apply({""})), "0 done, 0 refused, not kept");
  EXPECT_EQ(Counts(Apply({"\n# nothing\n\r\n"})), "0 done, 0 refused, not kept");
  EXPECT_EQ(Counts(Apply({})), "0 done, 0 refused, not kept");
}

TEST_F(PlanTest, TheLastLineNeedsNoLineEnd) {
  EXPECT_EQ(Counts(Apply({"NANSI:NUMTYP=EX,NUMSE=10;"})), "1 done, 0 refused, kept");
}

TEST_F(PlanTest, PlansOfWindowsAreRead) {
  EXPECT_EQ(Counts(Apply({"\xEF\xBB\xBF# numbers\r\n\r\nNANSI:NUMTYP=EX,NUMSE=10;\r\n"})), "1 done, 0 refused, kept");
  EXPECT_EQ(Counts(Apply({"\xEF\xBB\xBFNANSI:NUMTYP=EX,NUMSE=20;\r\n"})), "1 done, 0 refused, kept");
  EXPECT_EQ(Counts(Apply({"\n\xEF\xBB\xBFNANSI:NUMTYP=EX,NUMSE=30;\n"})), "0 done, 1 refused, not kept");
}

TEST_F(PlanTest, ALineOfAMegabyteIsOneBadLine) {
  const PlanResult result = Apply({good + std::string(1 << 20, 'x') + "\n" + tooLong});
  EXPECT_EQ(Reports(result),
            "plan1:2  refused: the line is longer than 65536 bytes\n"
            "plan1:3 NANSI refused: The number is too long. Type EC takes at most 3 digits.\n");
}

TEST_F(PlanTest, ZeroBytesAreBadLines) {
  EXPECT_EQ(Reports(Apply({std::string("\0\0\n", 3) + good + std::string("NANSI:\0;\n", 9)})),
            "plan1:1  refused: the line holds a zero character\nplan1:3  refused: the line holds a zero character\n");
}

TEST_F(PlanTest, ProgressIsToldLineByLine) {
  std::vector<std::size_t> lines;
  Apply({good + "\n# x\n", tooLong}, {.progress = [&](std::size_t line) { lines.push_back(line); }});
  EXPECT_THAT(lines, ElementsAre(1, 2, 3, 4));
}

TEST_F(PlanTest, WhatTheLinesDidIsCountedByCommandAndToldLineByLine) {
  std::string told;
  const PlanResult result = Apply(
      {good + tooLong + "# x\nNANSI:NUMTYP=EX,NUMSE=20&&22;\ndelete NANSI NUMSE=20&22;\nCDCOI:CUST=next;\n"},
      {.dryRun = true, .done = [&](const LineReport& report) {
         told += report.file + ":" + std::to_string(report.line) + " " + std::to_string(report.changes.size()) + "; ";
       }});
  EXPECT_EQ(told, "plan1:1 1; plan1:4 3; plan1:5 2; ");
  ASSERT_EQ(result.commands.size(), 1);
  const RecordCounts& counts = result.commands.at("NANSI");
  EXPECT_THAT((std::vector{counts.added, counts.changed, counts.removed}), ElementsAre(4, 0, 2));
}

TEST_F(PlanTest, NoMoreThanSoManyProblemsAreKept) {
  std::string plan = good + "delete NANSI NUMSE=10&11;\n";
  for (std::size_t i = 0; i < mostProblems + 7; ++i) plan += "x\n";
  const PlanResult result = Apply({plan + good + "delete NANSI NUMSE=10&11;\n"});
  EXPECT_EQ(result.refused, mostProblems + 7);
  EXPECT_EQ(result.errors.told, mostProblems);
  EXPECT_EQ(result.errors.untold, 7);
  EXPECT_EQ(result.warnings.told, 2) << "they have room of their own";
  EXPECT_EQ(result.reports.size(), mostProblems + 2);
  EXPECT_EQ(result.reports.back().line, mostProblems + 11);
}

// A stream that breaks off after its first line.
class BrokenOff : public std::streambuf {
 public:
  explicit BrokenOff(std::string text) : text_(std::move(text)) { setg(text_.data(), text_.data(), &*text_.end()); }

 protected:
  int_type underflow() override { throw std::ios_base::failure("read error"); }

 private:
  std::string text_;
};

TEST_F(PlanTest, APlanThatBreaksOffKeepsNothing) {
  for (const bool keepGoing : {false, true}) {
    BrokenOff buffer(good);
    std::istream in(&buffer);
    EXPECT_EQ(Refusal<PlanError>([&] {
                ApplyPlan(session_, {{"plan", in}}, {.keepGoing = keepGoing});
              }),
              "plan cannot be read to its end; nothing was kept");
    EXPECT_EQ(Numbers(), "Empty");
    EXPECT_EQ(exchange_->OpenTransactions(), 0);
  }
}

TEST_F(PlanTest, ADatabaseThatGivesUpKeepsNothing) {
  const auto exchange = Exchange::CreateInMemory("R7", ReadPlant("example"));
  Session session(*exchange);
  // Room for the first lines, and no more.
  const double pages = exchange->Dynamic().Single("PRAGMA page_count").number();
  exchange->Dynamic().Execute("PRAGMA max_page_count = " + std::to_string(static_cast<int>(pages) + 3));
  std::string plan = good;
  for (int i = 1; i <= 9; ++i)
    plan += "NANSI:NUMTYP=EX,NUMSE=" + std::to_string(i) + "000&&" + std::to_string(i) + "999;\n";
  std::istringstream in(plan);
  EXPECT_EQ(Refusal<StorageError>([&] {
              ApplyPlan(session, {{"plan", in}}, {.keepGoing = true});
            }),
            "the database in memory: the disk is full");
  EXPECT_EQ(Count(*exchange, "NANSI"), 0);
  EXPECT_EQ(exchange->OpenTransactions(), 0);
}

TEST_F(PlanTest, AnExchangeIsHeldFromTheFirstLineOn) {
  class Input : public std::streambuf {
   public:
    explicit Input(Exchange& exchange) : exchange_(exchange) {}
    std::vector<int> open;  // the transactions, whenever more is asked for

   protected:
    int_type underflow() override {
      open.push_back(exchange_.OpenTransactions());
      if (open.size() == 3) return traits_type::eof();
      setg(comment_, comment_, comment_ + sizeof comment_);
      return *gptr();
    }

   private:
    Exchange& exchange_;
    char comment_[2] = {'#', '\n'};
  };
  Input input(*exchange_);
  std::istream in(&input);
  ApplyPlan(session_, {{"input", in}}, {});
  EXPECT_EQ(input.open, (std::vector<int>{0, 1, 1}));
  EXPECT_EQ(exchange_->OpenTransactions(), 0);
}

}  // namespace
}  // namespace cordboard::workbench
