// What a connection does not do again: statements of the library that changed nothing, and rows that it has read.
#include <gtest/gtest.h>

#include <random>

#include "script/TracingHost.h"
#include "workbench/database/Connection.h"
#include "workbench/support/Steps.h"
#include "workbench/support/TemporaryFolder.h"

namespace cordboard::workbench {
namespace {

const std::string whole = "SELECT [Name], [Mark] FROM [t] ORDER BY [t].rowid";
const std::string mark = "UPDATE [t] SET [Mark] = ? WHERE ([Name] NOT IN (SELECT [Name] FROM [u])) AND [Mark] IS NOT ?";
const std::string clear = "DELETE FROM [u] WHERE [Name] = ?";
const std::string tables = "CREATE TABLE [t] ([Name] TEXT, [Mark] BOOLEAN); CREATE TABLE [u] ([Name] TEXT)";

class ConnectionRepeats : public testing::Test {
 protected:
  ConnectionRepeats() { database_.Execute(tables); }

  void Insert(const char* table, const std::string& name) {
    database_.RunRule(std::string("INSERT INTO [") + table + "] ([Name]) VALUES (?)", {name});
  }
  bool Runs(const std::string& sql, const std::vector<Value>& parameters) {
    return StepCounter::Statements([&] { database_.RunRule(sql, parameters); }) > 0;
  }
  bool Marks() { return Runs(mark, {true, true}); }
  long StepsToRead() {
    return StepCounter::Steps([&] { database_.RunRule(whole, {}); });
  }

  const StepCounter counter_;
  Connection database_;
};

// --- Statements that changed nothing.

TEST_F(ConnectionRepeats, WhatChangedNothingIsNotRunAgain) {
  database_.Start();
  Insert("t", "a");
  EXPECT_TRUE(Marks());
  EXPECT_TRUE(Marks());
  EXPECT_FALSE(Marks());
  EXPECT_TRUE(Runs(mark, {false, false}));
  EXPECT_TRUE(Marks());
}

TEST_F(ConnectionRepeats, ItIsRunAgainOnceATableThatItReadsOrWritesHasChanged) {
  database_.Start();
  Insert("t", "a");
  Marks();
  Marks();
  Insert("t", "b");
  EXPECT_TRUE(Marks());
  EXPECT_TRUE(Marks());
  EXPECT_FALSE(Marks());
  Insert("u", "a");
  EXPECT_TRUE(Marks());
  EXPECT_FALSE(Marks());
  database_.Execute("UPDATE [t] SET [Mark] = NULL");
  EXPECT_TRUE(Marks());
}

TEST_F(ConnectionRepeats, ItIsRunAgainAfterARollBackAndInAnotherTransaction) {
  database_.Start();
  Insert("t", "a");
  database_.Start();
  Marks();
  Marks();
  database_.RollBack();
  EXPECT_TRUE(Marks());
  EXPECT_TRUE(Marks());
  EXPECT_FALSE(Marks());
  database_.Commit();
  EXPECT_TRUE(Marks());
  EXPECT_TRUE(Marks());
  database_.Start();
  EXPECT_TRUE(Marks());
}

// --- Tables that are read whole.

TEST_F(ConnectionRepeats, OfATableThatIsReadWholeOnlyNewRowsAreRead) {
  database_.Start();
  long steps[2];
  for (long& atThisSize : steps) {
    for (int i = 0; i < 500; ++i) Insert("t", std::to_string(i));
    StepsToRead();
    StepsToRead();
    Insert("t", "new");
    atThisSize = StepsToRead();
  }
  EXPECT_GT(steps[0], 0);
  EXPECT_EQ(steps[0], steps[1]);
}

TEST_F(ConnectionRepeats, NothingIsKeptOfWhatIsReadOnce) {
  database_.Start();
  for (int i = 0; i < 100; ++i) Insert("t", std::to_string(i));
  EXPECT_GT(StepsToRead(), 100);
  EXPECT_GT(StepsToRead(), 100);
  EXPECT_LT(StepsToRead(), 50);
}

TEST_F(ConnectionRepeats, RowsThatAnotherProcessAddsOrTakesAwayAreSeen) {
  const TemporaryFolder folder;
  WriteFile(folder / "a.db", "");
  Connection made(folder / "a.db");
  made.Execute(tables);
  Connection other(folder / "a.db");
  const auto read = [&] {
    made.Start();
    for (int i = 0; i < 3; ++i) made.RunRule(whole, {});
    const std::string rows = TraceText(made.RunRule(whole, {}));
    made.Commit();
    return rows;
  };
  other.Run("INSERT INTO [t] VALUES ('a', 1), ('b', 0)");
  EXPECT_EQ(read(), R"([["a", "b"], [True, False]])");
  other.Run("DELETE FROM [t] WHERE [Name] = 'a'");
  EXPECT_EQ(read(), R"([["b"], [False]])");
}

// --- The same as a connection that does everything again.

// Does things at random with one connection, or says them to another as statements of its own, which are always run.
TEST_F(ConnectionRepeats, AreNotSeenInWhatStatementsDo) {
  std::mt19937 random(1);  // the same things in every run
  const auto below = [&](std::size_t limit) { return random() % limit; };
  Connection plain;
  plain.Execute(tables);
  const auto both = [&](const auto& work) {
    work(database_);
    work(plain);
  };
  int skipped = 0;
  for (int round = 0; round < 8000; ++round) {
    const std::string name = std::to_string(below(6));
    const bool on = below(2) == 0;
    const int open = database_.OpenTransactions();
    std::string sql;
    std::vector<Value> parameters;
    switch (below(14)) {
      case 0:
        if (open < 4) both([](Connection& each) { each.Start(); });
        break;
      case 1:
        if (open > 0) both([](Connection& each) { each.Commit(); });
        break;
      case 2:
        if (open > 0) both([](Connection& each) { each.RollBack(); });
        break;
      case 3: sql = "INSERT INTO [t] ([Name]) VALUES (?)"; break;
      case 4: sql = "INSERT INTO [u] ([Name]) VALUES (?)"; break;
      case 5: sql = "DELETE FROM [t] WHERE [Name] = ?"; break;
      case 6: sql = "UPDATE [t] SET [Name] = '9' WHERE [Name] = ?"; break;
      case 7: sql = clear; break;
      case 8:
      case 9:
      case 10:
        sql = mark;
        parameters = {on, on};
        break;
      default: sql = whole;
    }
    if (sql.empty()) continue;
    if (parameters.empty() && sql != whole) parameters = {name};
    RowSet rows;
    if (StepCounter::Statements([&] { rows = database_.RunRule(sql, parameters); }) == 0) ++skipped;
    ASSERT_EQ(TraceText(rows), TraceText(plain.Run(sql, parameters))) << round << ": " << sql;
  }
  EXPECT_EQ(TraceText(database_.Run(whole)), TraceText(plain.Run(whole)));
  EXPECT_GT(skipped, 50);
}

}  // namespace
}  // namespace cordboard::workbench
