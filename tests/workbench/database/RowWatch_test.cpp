#include "workbench/database/RowWatch.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "script/Conversions.h"

namespace cordboard::workbench {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// The watched table [site.t] has an identifier and a name; its mark is not watched, and [other] is not at all.
class RowWatchTest : public testing::Test {
 protected:
  RowWatchTest() {
    database_.Execute("CREATE TABLE [site.t] ([Mark] BOOLEAN, [Id] INTEGER, [Name] TEXT)");
    database_.Execute("CREATE TABLE [other] ([Id] INTEGER)");
    for (const char* name : {"one", "two", "three", "four"}) Insert(name);
  }

  void Insert(const std::string& name) {
    Run("INSERT INTO [site.t] VALUES (0, " + std::to_string(++id_) + ", '" + name + "')");
  }
  void Run(const std::string& sql) { database_.Run(sql); }

  // "2 two -> 2 second", with "-" for no row.
  static std::string Written(const std::optional<RowImage>& row) {
    return row ? Joined((*row)[0]) + " " + Joined((*row)[1]) : "-";
  }
  std::vector<std::string> Taken() {
    std::vector<std::string> texts;
    for (const RowDifference& row : watch_->Take()) {
      EXPECT_EQ(row.table->table, &table_);
      texts.push_back(Written(row.before) + " -> " + Written(row.now));
    }
    return texts;
  }

  Table table_{.name = "t", .columns = {{"Mark", Column::Type::Truth}, {"Id", Column::Type::Whole}, {"Name"}}};
  int id_ = 0;
  Connection database_;
  const RowWatch::Find find_ = [this](const std::string& stored) {
    return stored == "site.t" ? std::optional(WatchedTable{&table_, {1, 2}}) : std::nullopt;
  };
  std::optional<RowWatch> watch_{std::in_place, database_, find_};
};

TEST_F(RowWatchTest, TellsRowsThatHaveComeGoneAndChanged) {
  EXPECT_THAT(Taken(), ElementsAre("- -> 1 one", "- -> 2 two", "- -> 3 three", "- -> 4 four"));
  Run("UPDATE [site.t] SET [Name] = 'second' WHERE [Id] = 2");
  Run("DELETE FROM [site.t] WHERE [Id] = 3");
  Insert("five");
  Run("INSERT INTO [other] VALUES (1)");
  EXPECT_THAT(Taken(), ElementsAre("2 two -> 2 second", "3 three -> -", "- -> 5 five"));
  EXPECT_THAT(Taken(), IsEmpty());
}

TEST_F(RowWatchTest, TellsWhatARowIsAtTheEndAgainstWhatItWasAtFirst) {
  watch_->Forget();
  Insert("five");
  Run("UPDATE [site.t] SET [Name] = 'fifth' WHERE [Id] = 5");
  for (const char* name : {"a", "b"}) Run("UPDATE [site.t] SET [Name] = '" + std::string(name) + "' WHERE [Id] = 1");
  Run("UPDATE [site.t] SET [Name] = 'x' WHERE [Id] = 2");
  Run("DELETE FROM [site.t] WHERE [Id] = 2");
  EXPECT_THAT(Taken(), ElementsAre("1 one -> 1 b", "2 two -> -", "- -> 5 fifth"));
}

TEST_F(RowWatchTest, WhatIsUndoneOrRolledBackIsNoDifference) {
  watch_->Forget();
  Run("UPDATE [site.t] SET [Name] = 'x'");
  Run("UPDATE [site.t] SET [Name] = 'one' WHERE [Id] = 1");
  Insert("five");
  Run("DELETE FROM [site.t] WHERE [Id] = 5");
  EXPECT_THAT(Taken(), ElementsAre("2 two -> 2 x", "3 three -> 3 x", "4 four -> 4 x"));
  database_.Start();
  Run("DELETE FROM [site.t] WHERE [Id] = 1");
  database_.Start();
  Insert("six");
  Run("UPDATE [site.t] SET [Name] = 'y'");
  database_.RollBack();
  database_.Commit();
  EXPECT_THAT(Taken(), ElementsAre("1 one -> -"));
}

TEST_F(RowWatchTest, WhatGoesOnAfterARollBackIsTold) {
  watch_->Forget();
  database_.Start();
  Run("UPDATE [site.t] SET [Name] = 'x' WHERE [Id] < 3");
  database_.RollBack();
  Run("UPDATE [site.t] SET [Name] = 'y' WHERE [Id] = 2");
  Insert("five");
  EXPECT_THAT(Taken(), ElementsAre("2 two -> 2 y", "- -> 5 five"));
  Run("UPDATE [site.t] SET [Name] = 'z' WHERE [Id] = 2");
  EXPECT_THAT(Taken(), ElementsAre("2 y -> 2 z"));
}

// The third row cannot have the name, and so the first two do not get it either.
TEST_F(RowWatchTest, AStatementThatFailsHalfwayChangesNothing) {
  database_.Execute("CREATE UNIQUE INDEX [names] ON [site.t] ([Name])");
  watch_->Forget();
  EXPECT_THROW(Run("UPDATE [site.t] SET [Name] = CASE [Id] WHEN 3 THEN 'four' ELSE [Name] || '!' END"), DatabaseError);
  EXPECT_THAT(Taken(), IsEmpty());
}

// A number column makes a number of what is written, a text column a text.
TEST_F(RowWatchTest, TellsValuesAsTheTableHoldsThem) {
  watch_->Forget();
  Run("INSERT INTO [site.t] VALUES (0, '05', 7)");
  Run("UPDATE [site.t] SET [Id] = '1', [Name] = 8 WHERE [Id] = 1");
  Run("UPDATE [site.t] SET [Id] = '02' WHERE [Id] = 2");
  const std::vector<RowDifference> rows = watch_->Take();
  ASSERT_EQ(rows.size(), 2);
  EXPECT_EQ(rows[0].now, (RowImage{1, "8"}));
  EXPECT_EQ(rows[1].now, (RowImage{5, "7"}));
}

TEST_F(RowWatchTest, AMarkThatNobodyWatchesIsNoDifferenceAndNeitherAreTheTwoKindsOfNothing) {
  Run("UPDATE [site.t] SET [Name] = NULL WHERE [Id] = 1");
  watch_->Forget();
  Run("UPDATE [site.t] SET [Mark] = 1");
  Run("UPDATE [site.t] SET [Name] = '' WHERE [Id] = 1");
  EXPECT_THAT(Taken(), IsEmpty());
}

TEST_F(RowWatchTest, AnotherRowInThePlaceOfOneIsAnotherRow) {
  watch_->Forget();
  Run("DELETE FROM [site.t] WHERE [Id] = 4");
  Insert("five");
  EXPECT_THAT(Taken(), ElementsAre("4 four -> -", "- -> 5 five"));
}

TEST_F(RowWatchTest, ATableThatIsEmptiedByAStatementOfOldIsSeen) {
  watch_.reset();
  const std::string empty = "DELETE FROM [site.t]";
  database_.Start();
  Run(empty);
  database_.RollBack();
  watch_.emplace(database_, find_);
  Run(empty);
  EXPECT_EQ(Taken().size(), 4);
}

TEST_F(RowWatchTest, NothingIsWatchedAfterItsEnd) {
  watch_.reset();
  Insert("five");
  Run("DELETE FROM [site.t]");
  EXPECT_EQ(database_.Single("SELECT COUNT(*) FROM [site.t]"), Value(0));
}

}  // namespace
}  // namespace cordboard::workbench
