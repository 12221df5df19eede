#include "workbench/history/History.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

#include "script/Conversions.h"
#include "workbench/database/Schema.h"
#include "workbench/exchange/PlantTables.h"
#include "workbench/history/Recording.h"
#include "workbench/history/Undo.h"
#include "workbench/support/ExamplePlans.h"
#include "workbench/support/TemporaryFolder.h"
#include "workbench/support/TestExchange.h"

namespace cordboard::workbench {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

// All that stands in an exchange, its history apart: every table with the places of its rows and their stored bytes.
std::string Dump(Exchange& exchange) {
  Connection& database = exchange.Dynamic();
  std::string dump = Rows(exchange, "SELECT [Name], [Value] FROM [Cordboard] ORDER BY [Name]");
  const RowSet tables = database.Run(
      "SELECT [name] FROM [main].sqlite_master WHERE [type] = 'table' AND [name] NOT LIKE 'Cordboard%' ORDER BY "
      "[name]");
  for (std::size_t i = 0; i < tables.RowCount(); ++i) {
    const std::string table = Joined(tables[0][i]);
    const std::string columns =
        Joined(database.Single("SELECT GROUP_CONCAT('[' || [name] || ']') FROM pragma_table_info(?)", {table}));
    const RowSet rows =
        database.Run("SELECT rowid, row_bytes(" + columns + ") FROM [main].[" + table + "] ORDER BY rowid");
    dump += "\n" + table;
    for (std::size_t row = 0; row < rows.RowCount(); ++row)
      dump += "\n " + Joined(rows[0][row]) + " " + Joined(rows[1][row]);
  }
  return dump;
}

// An exchange with a history, and short ways to change it. The states of its plans are 1 and on.
class HistoryTest : public testing::Test {
 protected:
  PlanResult Apply(const std::string& plan, const PlanOptions& options = {}) {
    return ApplyText(session_, "office.plan", plan, options);
  }
  void Number(int number) { ASSERT_TRUE(Apply("NANSI:NUMTYP=EX,NUMSE=" + std::to_string(number) + ";\n").kept); }
  // The numbers that there are.
  std::string Numbers() { return Joined(database().Single("SELECT GROUP_CONCAT([NUMSE], ' ') FROM [NANSI]")); }

  State Undone(std::optional<int> number = {}, bool withLater = false) {
    return Undo(database(), number, withLater, "");
  }
  std::string CannotUndo(std::optional<int> number = {}, bool withLater = false) {
    const std::string before = Dump(*exchange_);
    const std::string refusal = Refusal<HistoryError>([&] { Undone(number, withLater); });
    EXPECT_EQ(Dump(*exchange_), before);
    return refusal;
  }

  // "2 undo of 1", the newest first.
  std::vector<std::string> States() {
    std::vector<std::string> told;
    const History history(database());
    for (const State& state : history.states()) {
      std::string text = std::to_string(state.number) + " " + Named(state.note.kind);
      for (const int number : state.concerns) text += " " + std::to_string(number);
      if (state.takenBackBy != 0) text += ", taken back by " + std::to_string(state.takenBackBy);
      told.insert(told.begin(), text);
    }
    return told;
  }

  Connection& database() { return exchange_->Dynamic(); }

  std::unique_ptr<Exchange> exchange_ = ExampleExchange();
  Session session_{*exchange_};
};

// --- States.

TEST_F(HistoryTest, BeginsWhenTheExchangeIsMade) {
  EXPECT_THAT(States(), ElementsAre("0 new"));
  const State made = History(database()).Find(0);
  EXPECT_EQ(made.note.message, "release R7, plant example");
  EXPECT_THAT(made.time, testing::ContainsRegex("^20..-..-..T..:..:..Z$"));
  EXPECT_FALSE(made.user.empty());
}

TEST_F(HistoryTest, APlanIsAStateWithItsTextAndWhatItDid) {
  const std::string plan =
      "# a comment\nNANSI:NUMTYP=EX,NUMSE=100&&199;\n\nNACDS:NUM=12,CDCAT=3;\nedit NACDS NUM=12:CDCAT=1;\n";
  EXPECT_EQ(Apply(plan, {.message = "the numbers"}).state, 1);
  const State state = History(database()).Find(1);
  EXPECT_EQ(state.note.message, "the numbers");
  EXPECT_EQ(state.note.lines, 3);
  EXPECT_EQ(state.note.added, 101);
  EXPECT_EQ(state.note.changed, 1);
  EXPECT_EQ(state.note.removed, 0);
  EXPECT_THAT(state.plans, ElementsAre("office.plan"));
  std::string text;
  StateStore(database()).ReadTexts(1, [&](const std::string&, const std::string& piece) { text += piece; });
  EXPECT_EQ(text, plan);
}

TEST_F(HistoryTest, WhatKeepsNothingOrChangesNothingIsNoState) {
  ASSERT_TRUE(Apply("NACDS:NUM=12,CDCAT=3;\n").kept);
  Apply("NACDS:NUM=13,CDCAT=3;\n", {.dryRun = true});
  EXPECT_FALSE(Apply("NACDS:NUM=13,CDCAT=3;\nNANSI:NUMTYP=XX,NUMSE=1;\n").kept);
  EXPECT_TRUE(Apply("edit NACDS NUM=12:CDCAT=3;\n").kept);
  EXPECT_EQ(Apply("edit NACDS NUM=12:CDCAT=3;\n").state, std::nullopt);
  EXPECT_THAT(States(), ElementsAre("1 apply", "0 new"));
}

TEST_F(HistoryTest, WhatIsAddedToThePlantIsAState) {
  const std::string before = Dump(*exchange_);
  AddToPlant(*exchange_, {{"more.json", R"({"lims": [{"lim": 9, "location": "HQ"}], "categories": 40})"}}, "a LIM");
  EXPECT_THAT(States(), ElementsAre("1 plant", "0 new"));
  EXPECT_THAT(History(database()).Find(1).plans, ElementsAre("more.json"));
  Undone();
  EXPECT_EQ(Dump(*exchange_), before);
}

// --- Back and forth.

TEST_F(HistoryTest, UndoGoesFurtherBackAndRedoComesTheSameWay) {
  for (const int number : {10, 20, 30}) Number(number);
  Undone();
  EXPECT_EQ(Numbers(), "10 20");
  Undone();
  EXPECT_EQ(Numbers(), "10");
  EXPECT_THAT(States(), ElementsAre("5 undo 2", "4 undo 3", "3 apply, taken back by 4", "2 apply, taken back by 5",
                                    "1 apply", "0 new"));
  Redo(database(), "");
  EXPECT_EQ(Numbers(), "10 20");
  Redo(database(), "");
  EXPECT_EQ(Numbers(), "10 20 30");
  EXPECT_THROW(Redo(database(), ""), HistoryError);
  Undone();
  EXPECT_EQ(Numbers(), "10 20");
  EXPECT_THAT(States(), ElementsAre("8 undo 3", "7 redo 3", "6 redo 2", "5 undo 2", "4 undo 3",
                                    "3 apply, taken back by 8", "2 apply", "1 apply", "0 new"));
}

TEST_F(HistoryTest, WhatCameAfterAnUndoStaysAndThereIsNoRedo) {
  Number(10);
  Undone();
  Number(20);
  EXPECT_THAT(Refusal<HistoryError>([&] { Redo(database(), ""); }), StartsWith("there is nothing to bring again"));
  EXPECT_EQ(Numbers(), "20");
  Undone();
  EXPECT_EQ(CannotUndo(), "there is nothing to take back");
}

TEST_F(HistoryTest, AStateGoesWithThoseAfterItAndComesBackWithThem) {
  for (const int number : {10, 20, 30}) Number(number);
  EXPECT_THAT(CannotUndo(2), StartsWith("state 2 is not the last: 3 came after it."));
  EXPECT_THAT(CannotUndo(1), HasSubstr("2, 3 came after it"));
  const State undo = Undone(2, true);
  EXPECT_THAT(undo.concerns, ElementsAre(2, 3));
  EXPECT_EQ(undo.note.removed, 2);
  EXPECT_EQ(Numbers(), "10");
  EXPECT_EQ(CannotUndo(3), "state 3 was taken back already, by state 4");
  Redo(database(), "");
  EXPECT_EQ(Numbers(), "10 20 30");
  Undone(3);
  EXPECT_EQ(Numbers(), "10 20");
}

// What they do together is nothing; that they are taken back is kept all the same.
TEST_F(HistoryTest, StatesThatUndoEachOtherAreTakenBack) {
  Apply("NACDS:NUM=12,CDCAT=3;\n");
  Apply("edit NACDS NUM=12:CDCAT=1;\n");
  Apply("edit NACDS NUM=12:CDCAT=3;\n");
  Undone(2, true);
  EXPECT_THAT(States().front(), "4 undo 2 3");
  EXPECT_EQ(CannotUndo(2), "state 2 was taken back already, by state 4");
}

TEST_F(HistoryTest, OnlyWhatAUserChangedCanBeTakenBack) {
  Number(10);
  Undone();
  EXPECT_EQ(CannotUndo(0), "state 0 is the beginning of the history and cannot be taken back");
  EXPECT_EQ(CannotUndo(2), "state 2 has taken back 1; redo brings that again");
  EXPECT_EQ(CannotUndo(7), "there is no state 7; there are 0 to 2");
  EXPECT_THROW(Undone(7), NoSuchState);
}

TEST_F(HistoryTest, TemplatesAreTakenBackToo) {
  const std::string before = Dump(*exchange_);
  ASSERT_TRUE(Apply("KSEXITEMPLATE:TEMPLATENAME=Office,LANG=2;\n").kept);
  Undone();
  EXPECT_EQ(Dump(*exchange_), before);
}

// A row that is not as the state has left it, whoever did that: nothing is forced.
TEST_F(HistoryTest, RowsThatAreNotAsTheyWereLeftAreRefused) {
  Number(10);
  database().Run("UPDATE [NANSI] SET [USED] = 1");
  EXPECT_THAT(CannotUndo(), HasSubstr("rows of NANSI are not what they were; nothing was taken back"));
  database().Run("DELETE FROM [NANSI]");
  EXPECT_THAT(CannotUndo(), HasSubstr("rows of NANSI"));
  EXPECT_THAT(States(), ElementsAre("1 apply", "0 new"));
}

// --- Every state, to the byte.

// Plans that add, change and remove, some lines of which are refused, and what lies between them.
TEST_F(HistoryTest, EveryStateIsReachedAgainToTheByte) {
  std::mt19937 random(20);
  const auto any = [&](int bound) { return std::to_string(std::uniform_int_distribution(0, bound - 1)(random)); };
  ASSERT_TRUE(Apply("NANSI:NUMTYP=EX,NUMSE=100&&199;\nEXCCS:CAT=1,TRAF=11,SERV_D6=1;\n").kept);
  std::vector<std::string> dumps = {"", Dump(*exchange_)};
  while (dumps.size() < 14) {
    std::string plan;
    for (int line = 0; line < 12; ++line) {
      const std::string number = "1" + any(2) + any(10);
      const std::vector<std::string> lines = {"KSEXI:DIR=" + number + ",ITYPE=3,EQU=next,CAT=1;",
                                              "delete KSEXI DIR=" + number + ";",
                                              "edit KSEXI DIR=" + number + ":EQU=next,CUST=1;",
                                              "KSFKC:DIR=" + number + ",KEY=next,FCN=TNS;",
                                              "NACDS:NUM=" + any(1000) + ",CDCAT=1;",
                                              "KSEXITEMPLATE:TEMPLATENAME=T" + any(9) + ",LANG=2;",
                                              "delete NANSI NUMSE=" + number + ";"};
      plan += lines[std::uniform_int_distribution<std::size_t>(0, lines.size() - 1)(random)] + "\n";
    }
    if (Apply(plan, {.keepGoing = true}).state) dumps.push_back(Dump(*exchange_));
  }
  const int last = static_cast<int>(dumps.size()) - 1;
  for (int state = last; state > 1; --state) {
    ASSERT_EQ(Undone().concerns, std::vector{state});
    ASSERT_EQ(Dump(*exchange_), dumps[static_cast<std::size_t>(state) - 1]) << state;
  }
  for (int state = 2; state <= last; ++state) {
    ASSERT_EQ(Redo(database(), "").concerns, std::vector{state});
    ASSERT_EQ(Dump(*exchange_), dumps[static_cast<std::size_t>(state)]) << state;
  }
  for (const int state : {5, 9, 3}) {
    Undone(state, true);
    ASSERT_EQ(Dump(*exchange_), dumps[static_cast<std::size_t>(state) - 1]) << state;
    Redo(database(), "");
    ASSERT_EQ(Dump(*exchange_), dumps.back());
  }
  for (int state = last; state > 0; --state) {
    GoBackTo(database(), state);
    ASSERT_EQ(Dump(*exchange_), dumps[static_cast<std::size_t>(state)]) << state;
  }
}

// --- Files.

class HistoryOfAFile : public testing::Test {
 protected:
  HistoryOfAFile() { Exchange::Create(file_, "R7", ReadPlant("example")); }

  void Apply(const std::string& plan) {
    const auto exchange = Exchange::OpenForWriting(file_);
    Session session(*exchange);
    EXPECT_TRUE(ApplyText(session, "office.plan", plan).kept);
  }
  // Somebody writes the file who keeps no history.
  void WriteOtherwise(const std::string& sql) { Connection(file_).Execute(sql); }
  std::string CannotUndo() {
    return Refusal<HistoryError>([&] { Undo(Exchange::OpenForWriting(file_)->Dynamic(), {}, false, ""); });
  }
  std::string NumbersAsOf(int state) { return Rows(*Exchange::OpenAsOf(file_, state), "SELECT NUMSE FROM NANSI"); }

  TemporaryFolder folder_;
  const std::filesystem::path file_ = folder_ / "office.cbx";
};

const std::string ten = "NANSI:NUMTYP=EX,NUMSE=10;\n";
const std::string twenty = "NANSI:NUMTYP=EX,NUMSE=20;\n";

TEST_F(HistoryOfAFile, IsReadAsOfEachState) {
  Apply(ten);
  Apply(twenty);
  Undo(Exchange::OpenForWriting(file_)->Dynamic(), {}, false, "");
  EXPECT_EQ(NumbersAsOf(0), "Empty");
  EXPECT_EQ(NumbersAsOf(1), R"([["10"]])");
  EXPECT_EQ(NumbersAsOf(2), R"([["10", "20"]])");
  EXPECT_EQ(NumbersAsOf(3), R"([["10"]])");
  EXPECT_THROW(NumbersAsOf(4), NoSuchState);
}

// Within a transaction nothing that is written is counted before its end.
TEST_F(HistoryOfAFile, ACopyGoesBackStateByStateWithinATransaction) {
  Apply(ten);
  Apply(twenty);
  const auto copy = Exchange::OpenForReading(file_);
  const Transaction undone(*copy);
  GoBackTo(copy->Dynamic(), 1);
  EXPECT_EQ(Rows(*copy, "SELECT NUMSE FROM NANSI"), R"([["10"]])");
  GoBackTo(copy->Dynamic(), 0);
  EXPECT_EQ(Rows(*copy, "SELECT NUMSE FROM NANSI"), "Empty");
}

TEST_F(HistoryOfAFile, EndsWhereAnotherProgramWrites) {
  Apply(ten);
  WriteOtherwise("DELETE FROM [ROUTE] WHERE rowid = 1");
  const std::string others = "another program, or an older cordboard, has written the file after state 1";
  EXPECT_THAT(CannotUndo(), StartsWith(others));
  EXPECT_THAT(Refusal<HistoryError>([&] { NumbersAsOf(0); }), StartsWith(others));
  Apply(twenty);
  EXPECT_EQ(NumbersAsOf(3), R"([["10", "20"]])");
  EXPECT_EQ(NumbersAsOf(2), R"([["10"]])");
  EXPECT_THROW(NumbersAsOf(1), HistoryError);
  EXPECT_EQ(CannotUndo(), "no error");
  EXPECT_THAT(CannotUndo(), HasSubstr("there is nothing to take back"));
}

TEST_F(HistoryOfAFile, BeginsWithTheNextChangeOfOneThatWasMadeBefore) {
  WriteOtherwise("DROP TABLE [Cordboard.States]; DROP TABLE [Cordboard.Changes]; DROP TABLE [Cordboard.Plans]");
  EXPECT_THAT(History(Exchange::OpenForReading(file_)->Dynamic()).states(), IsEmpty());
  EXPECT_THAT(CannotUndo(), HasSubstr("there is nothing to take back"));
  Apply(ten);
  EXPECT_EQ(NumbersAsOf(0), "Empty");
  EXPECT_EQ(CannotUndo(), "no error");
  EXPECT_EQ(NumbersAsOf(2), "Empty");
}

TEST_F(HistoryOfAFile, KeepsTheNewestStatesAlone) {
  for (const std::string& plan : {ten, twenty, std::string("NANSI:NUMTYP=EX,NUMSE=30;\n")}) Apply(plan);
  EXPECT_EQ(KeepNewest(Exchange::OpenForWriting(file_)->Dynamic(), 2), 2);
  EXPECT_EQ(NumbersAsOf(2), R"([["10", "20"]])");
  EXPECT_THROW(NumbersAsOf(1), NoSuchState);
  EXPECT_EQ(KeepNewest(Exchange::OpenForWriting(file_)->Dynamic(), 2), 0);
  EXPECT_EQ(CannotUndo(), "no error");
  EXPECT_EQ(CannotUndo(), "no error");
  EXPECT_EQ(NumbersAsOf(5), R"([["10"]])");
  EXPECT_THAT(CannotUndo(), HasSubstr("there is nothing to take back"));
}

}  // namespace
}  // namespace cordboard::workbench
