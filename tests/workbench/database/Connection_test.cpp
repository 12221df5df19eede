#include "workbench/database/Connection.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <memory>

#include "script/TracingHost.h"
#include "workbench/support/TemporaryFolder.h"

namespace cordboard::workbench {
namespace {

using testing::EndsWith;
using testing::HasSubstr;

// A table with a column of each type that the schema declares, and one without a type.
class ConnectionTest : public testing::Test {
 protected:
  ConnectionTest() {
    database_.Execute(
        "CREATE TABLE [t] ([Text] TEXT, [Whole] INTEGER, [Truth] BOOLEAN, [Any]); CREATE INDEX [by text] ON [t] "
        "([Text])");
    database_.Execute("CREATE TABLE [Cordboard] ([Name] TEXT, [Value])");
    database_.Execute("INSERT INTO [Cordboard] VALUES ('Release', 'R7')");
  }

  // What comes back of a value that goes into the column.
  std::string ThereAndBack(const std::string& column, const Value& value) {
    database_.Run("DELETE FROM [t]");
    database_.Run("INSERT INTO [t] ([" + column + "]) VALUES (?)", {value});
    return TraceText(database_.Single("SELECT [" + column + "] FROM [t]"));
  }

  std::string RuleRefusal(const std::string& sql, const std::vector<Value>& parameters = {}) {
    return Refusal<DatabaseError>([&] { database_.RunRule(sql, parameters); });
  }

  std::string Texts() { return TraceText(database_.Run("SELECT [Text] FROM [t] ORDER BY rowid")); }
  void Insert(const std::string& text) { database_.Run("INSERT INTO [t] ([Text]) VALUES (?)", {text}); }

  Connection database_;
};

// --- Values.

TEST_F(ConnectionTest, EmptyAndNullBothBecomeANull) {
  EXPECT_EQ(ThereAndBack("Text", Value()), "Null");
  EXPECT_EQ(ThereAndBack("Text", Value::Null()), "Null");
  EXPECT_EQ(ThereAndBack("Truth", Value()), "Null");
}

TEST_F(ConnectionTest, TheEmptyTextIsNotANull) {
  EXPECT_EQ(ThereAndBack("Text", ""), "\"\"");
  EXPECT_EQ(ThereAndBack("Any", ""), "\"\"");
}

TEST_F(ConnectionTest, TextsKeepEveryCharacter) {
  EXPECT_EQ(ThereAndBack("Text", "007"), "\"007\"");
  EXPECT_EQ(ThereAndBack("Text", " O'Neill; \"x\" "), TraceText(Value(" O'Neill; \"x\" ")));
  EXPECT_EQ(ThereAndBack("Text", "Zürich ☎"), TraceText(Value("Zürich ☎")));
  database_.Run("INSERT INTO [t] ([Text]) VALUES (?)", {std::string("a\0b", 3)});
  EXPECT_EQ(database_.Single("SELECT [Text] FROM [t] WHERE [Text] LIKE 'a%'").text(), std::string("a\0b", 3));
}

TEST_F(ConnectionTest, AWholeColumnMakesANumberOfATextOfDigits) {
  EXPECT_EQ(ThereAndBack("Whole", "007"), "7");
  EXPECT_EQ(ThereAndBack("Whole", "12A"), "\"12A\"");
}

TEST_F(ConnectionTest, NumbersKeepTheirValue) {
  EXPECT_EQ(ThereAndBack("Any", 0), "0");
  EXPECT_EQ(ThereAndBack("Any", -7), "-7");
  EXPECT_EQ(ThereAndBack("Any", std::numeric_limits<std::int32_t>::min()), "-2147483648");
  EXPECT_EQ(ThereAndBack("Any", 0.5), "0.5");
  EXPECT_EQ(ThereAndBack("Any", 1e300), TraceText(Value(1e300)));
  EXPECT_EQ(ThereAndBack("Any", -1e16), TraceText(Value(-1e16)));
  EXPECT_EQ(ThereAndBack("Whole", 2.0), "2");
}

TEST_F(ConnectionTest, AWholeNumberIsAWholeNumberInTheDatabaseToo) {
  database_.Run("INSERT INTO [t] ([Any]) VALUES (?), (?)", {5, 5.25});
  EXPECT_EQ(TraceText(database_.Run("SELECT typeof([Any]) FROM [t]")), R"([["integer", "real"]])");
}

TEST_F(ConnectionTest, ANumberInATextColumnIsAText) { EXPECT_EQ(ThereAndBack("Text", 100), "\"100\""); }

TEST_F(ConnectionTest, TruthColumnsGiveTruthValues) {
  EXPECT_EQ(ThereAndBack("Truth", true), "True");
  EXPECT_EQ(ThereAndBack("Truth", false), "False");
  EXPECT_EQ(ThereAndBack("Truth", 1), "True");
  EXPECT_EQ(ThereAndBack("Truth", -1), "True");
}

TEST_F(ConnectionTest, ATruthValueOutsideATruthColumnIsANumber) {
  EXPECT_EQ(ThereAndBack("Any", true), "1");
  EXPECT_EQ(ThereAndBack("Any", false), "0");
}

TEST_F(ConnectionTest, ATruthColumnStaysOneInASubSelect) {
  database_.Run("INSERT INTO [t] ([Truth]) VALUES (?)", {true});
  EXPECT_EQ(TraceText(database_.Single("SELECT [a] FROM (SELECT [Truth] AS [a] FROM [t])")), "True");
  EXPECT_EQ(TraceText(database_.Single("SELECT COUNT([Truth]) FROM [t]")), "1");
}

// --- Statements.

TEST_F(ConnectionTest, RowsStandByColumnAndThenByRow) {
  database_.Run("INSERT INTO [t] VALUES ('a', 1, 1, NULL), ('b', 2, 0, '')");
  EXPECT_EQ(TraceText(database_.Run("SELECT * FROM [t]")), R"([["a", "b"], [1, 2], [True, False], [Null, ""]])");
}

TEST_F(ConnectionTest, AQueryWithoutRowsLeavesTheRowSetEmpty) {
  EXPECT_TRUE(database_.Run("SELECT * FROM [t]").IsEmpty());
  EXPECT_TRUE(database_.Single("SELECT [Text] FROM [t]").IsEmpty());
  EXPECT_TRUE(database_.Run("DELETE FROM [t]").IsEmpty());
}

TEST_F(ConnectionTest, AStatementIsKeptAndTakesOtherParametersEachTime) {
  for (const char* text : {"a", "b", "c"}) Insert(text);
  EXPECT_EQ(Texts(), R"([["a", "b", "c"]])");
  const std::string query = "SELECT [Text] FROM [t] WHERE [Text] = ?";
  EXPECT_EQ(TraceText(database_.Single(query, {"b"})), "\"b\"");
  EXPECT_EQ(TraceText(database_.Single(query, {"x"})), "Empty");
  EXPECT_EQ(TraceText(database_.Single(query, {"a"})), "\"a\"");
}

TEST_F(ConnectionTest, AStatementThatFailedCanBeRunAgain) {
  database_.Execute("CREATE TABLE [u] ([a] TEXT UNIQUE)");
  const std::string insert = "INSERT INTO [u] VALUES (?)";
  database_.Run(insert, {"1"});
  EXPECT_THAT(Refusal<DatabaseError>([&] { database_.Run(insert, {"1"}); }), HasSubstr("UNIQUE constraint failed"));
  database_.Run(insert, {"2"});
  EXPECT_EQ(TraceText(database_.Single("SELECT COUNT(*) FROM [u]")), "2");
}

TEST_F(ConnectionTest, ManyShapesOfStatementsDoNotFillTheMemory) {
  for (int i = 0; i < 4500; ++i) {
    const Value one = database_.Single("SELECT " + std::to_string(i));
    ASSERT_EQ(one, Value(i));
  }
}

TEST_F(ConnectionTest, TheNumberOfParametersHasToFit) {
  const auto refusal = [&](const std::vector<Value>& parameters) {
    return Refusal<DatabaseError>([&] { database_.Run("SELECT ?, ?", parameters); });
  };
  EXPECT_EQ(refusal({1}), "the statement does not take these parameters");
  EXPECT_EQ(refusal({1, 2, 3}), "the statement does not take these parameters");
  EXPECT_EQ(refusal({1, 2}), "no error");
}

TEST_F(ConnectionTest, OneStatementAtATime) {
  for (const char* sql : {"", " ", "-- nothing", "SELECT 1; DELETE FROM [t]", "SELECT 1;;"}) {
    EXPECT_EQ(Refusal<DatabaseError>([&] { database_.Run(sql); }), "this is not one statement") << sql;
    EXPECT_EQ(RuleRefusal(sql), "this is not one statement") << sql;
  }
  EXPECT_EQ(Refusal<DatabaseError>([&] { database_.Run(std::string("SELECT 1\0SELECT 2", 17)); }),
            "this is not one statement");
  EXPECT_EQ(Refusal<DatabaseError>([&] { database_.Run("SELECT 1;"); }), "no error");
}

TEST_F(ConnectionTest, TheMessageOfAnErrorIsThatOfTheDatabase) {
  EXPECT_EQ(Refusal<DatabaseError>([&] { database_.Run("SELECT [x] FROM [t]"); }), "no such column: x");
  EXPECT_THAT(Refusal<DatabaseError>([&] { database_.Run("SELEC 1"); }), HasSubstr("syntax error"));
}

TEST_F(ConnectionTest, TextInDoubleQuotesIsNeverAValue) {
  EXPECT_EQ(Refusal<DatabaseError>([&] { database_.Run("SELECT * FROM [t] WHERE [Text] = \"x\""); }),
            "no such column: x");
}

// --- The guard around statements of the library.

TEST_F(ConnectionTest, ARuleReadsAndWritesRows) {
  database_.RunRule("INSERT INTO [t] ([Text], [Whole]) VALUES (?, ?)", {"a", 1});
  database_.RunRule("UPDATE [t] SET [Text] = ? WHERE [Whole] = ?", {"b", 1});
  EXPECT_EQ(TraceText(database_.RunRule("SELECT [Text], COUNT(*), VAL([Text]) FROM [t] GROUP BY [Text]", {})),
            R"([["b"], [1], [0]])");
  database_.RunRule("DELETE FROM [t]", {});
  EXPECT_EQ(Texts(), "Empty");
}

TEST_F(ConnectionTest, ARuleDoesNothingElse) {
  const char* const endless =
      "WITH RECURSIVE [n]([i]) AS (SELECT 1 UNION ALL SELECT [i] + 1 FROM [n]) SELECT [i] FROM [n] LIMIT 3";
  const char* const statements[] = {"CREATE TABLE [x] ([a])",
                                    "CREATE TEMP TABLE [x] ([a])",
                                    "CREATE INDEX [x] ON [t] ([Text])",
                                    "CREATE TRIGGER [x] AFTER INSERT ON [t] BEGIN DELETE FROM [t]; END",
                                    "CREATE VIEW [x] AS SELECT 1",
                                    "CREATE VIRTUAL TABLE [x] USING fts5(a)",
                                    "DROP TABLE [t]",
                                    "ALTER TABLE [t] RENAME TO [x]",
                                    "ALTER TABLE [t] ADD COLUMN [x]",
                                    "PRAGMA user_version",
                                    "PRAGMA user_version = 7",
                                    "PRAGMA journal_mode = OFF",
                                    "SELECT * FROM pragma_table_info('t')",
                                    "SELECT * FROM pragma_user_version",
                                    "ATTACH ':memory:' AS [x]",
                                    "DETACH [main]",
                                    "VACUUM INTO 'copy'",
                                    "REINDEX",
                                    "ANALYZE",
                                    "BEGIN",
                                    "COMMIT",
                                    "ROLLBACK",
                                    "SAVEPOINT [x]",
                                    endless};
  Insert("a");
  for (const char* sql : statements) EXPECT_NE(RuleRefusal(sql), "no error") << sql;
  EXPECT_EQ(Texts(), R"([["a"]])");
  EXPECT_EQ(TraceText(database_.Single("PRAGMA user_version")), "0");
}

TEST_F(ConnectionTest, ARuleNeitherReadsNorWritesTheTablesOfTheWorkbench) {
  for (const char* sql :
       {"SELECT [Value] FROM [Cordboard]", "SELECT [value] FROM [CORDBOARD]",
        "SELECT * FROM [t] WHERE [Text] IN (SELECT [Value] FROM [Cordboard])", "UPDATE [Cordboard] SET [Value] = 'R8'",
        "DELETE FROM [Cordboard]", "INSERT INTO [Cordboard] VALUES ('a', 'b')", "SELECT [sql] FROM sqlite_master",
        "SELECT [sql] FROM SQLITE_SCHEMA", "SELECT [name] FROM sqlite_temp_master",
        "INSERT INTO sqlite_master ([name]) VALUES ('a')", "DELETE FROM sqlite_sequence"}) {
    EXPECT_NE(RuleRefusal(sql), "no error") << sql;
  }
  EXPECT_EQ(TraceText(database_.Single("SELECT [Value] FROM [Cordboard]")), "\"R7\"");
}

TEST_F(ConnectionTest, TheWorkbenchItselfIsNotGuarded) {
  EXPECT_NE(RuleRefusal("SELECT [Value] FROM [Cordboard]"), "no error");
  EXPECT_EQ(TraceText(database_.Single("SELECT [Value] FROM [Cordboard]")), "\"R7\"");
  EXPECT_NE(RuleRefusal("SELECT [Value] FROM [Cordboard]"), "no error");
}

TEST_F(ConnectionTest, ARuleCanBePreparedToSeeWhetherItFits) {
  EXPECT_EQ(database_.PrepareRule("SELECT [Text], [Whole] FROM [t]"), 2);
  EXPECT_EQ(database_.PrepareRule("DELETE FROM [t]"), 0);
  EXPECT_EQ(Refusal<DatabaseError>([&] { database_.PrepareRule("SELECT [x] FROM [t]"); }), "no such column: x");
  EXPECT_NE(Refusal<DatabaseError>([&] { database_.PrepareRule("DROP TABLE [t]"); }), "no error");
}

// --- Transactions.

TEST_F(ConnectionTest, ATransactionThatIsRolledBackLeavesNothing) {
  database_.Start();
  Insert("a");
  database_.RollBack();
  EXPECT_EQ(Texts(), "Empty");
  EXPECT_EQ(database_.OpenTransactions(), 0);
}

TEST_F(ConnectionTest, AnInnerRollBackTakesItsOwnWorkAlone) {
  database_.Start();
  Insert("outer");
  database_.Start();
  Insert("inner");
  database_.Start();
  Insert("innermost");
  EXPECT_EQ(database_.OpenTransactions(), 3);
  database_.Commit();
  database_.RollBack();
  Insert("after");
  database_.Commit();
  EXPECT_EQ(database_.OpenTransactions(), 0);
  EXPECT_EQ(Texts(), R"([["outer", "after"]])");
}

TEST_F(ConnectionTest, AnOuterRollBackTakesWhatInnerOnesCommitted) {
  database_.Start();
  database_.Start();
  Insert("inner");
  database_.Commit();
  database_.RollBack();
  EXPECT_EQ(Texts(), "Empty");
}

TEST_F(ConnectionTest, WithoutATransactionThereIsNothingToClose) {
  EXPECT_EQ(Refusal<DatabaseError>([&] { database_.Commit(); }), "there is no transaction to commit");
  EXPECT_EQ(Refusal<DatabaseError>([&] { database_.RollBack(); }), "there is no transaction to roll back");
  EXPECT_EQ(database_.OpenTransactions(), 0);
}

// A full disk may end a transaction without a word to the program; what comes then must not be kept line by line.
TEST_F(ConnectionTest, WhatFollowsALostTransactionFailsUntilAllAreRolledBack) {
  database_.Execute("CREATE TABLE [u] ([a] TEXT UNIQUE ON CONFLICT ROLLBACK)");
  database_.Start();
  database_.Start();
  Insert("before");
  database_.Run("INSERT INTO [u] VALUES ('1')");
  EXPECT_THROW(database_.Run("INSERT INTO [u] VALUES ('1')"), DatabaseError);
  const std::string lost = "the database has given up the transaction: UNIQUE constraint failed: u.a";
  EXPECT_EQ(Refusal<DatabaseError>([&] { Insert("after"); }), lost);
  EXPECT_EQ(Refusal<DatabaseError>([&] { database_.Start(); }), lost);
  EXPECT_EQ(Refusal<DatabaseError>([&] { database_.Commit(); }), lost);
  EXPECT_EQ(database_.OpenTransactions(), 2);
  database_.RollBack();
  EXPECT_EQ(Refusal<DatabaseError>([&] { Insert("after"); }), lost);
  database_.RollBack();
  EXPECT_EQ(database_.OpenTransactions(), 0);
  EXPECT_EQ(Texts(), "Empty");
  database_.Start();
  Insert("anew");
  database_.Commit();
  EXPECT_EQ(Texts(), R"([["anew"]])");
}

// --- Files.

// Makes a file of what the statements make.
void MakeDatabase(const std::filesystem::path& file, const std::string& statements) {
  Connection made;
  made.Execute(statements);
  WriteFile(file, made.Content());
}

std::string CannotWrite(const std::filesystem::path& file) {
  return Refusal<StorageError>([&] { Connection opened(file); });
}

TEST(ConnectionFile, OneThatIsMissingIsNotMadeByOpening) {
  const TemporaryFolder folder;
  EXPECT_THAT(CannotWrite(folder / "a.db"), EndsWith("a.db: No such file or directory"));
  EXPECT_THROW(Connection::CopyOf(folder / "a.db"), std::filesystem::filesystem_error);
  EXPECT_TRUE(folder.IsEmpty());
}

TEST(ConnectionFile, ACopyIsChangedAloneAndLeavesNothingBesideTheFile) {
  const TemporaryFolder folder;
  MakeDatabase(folder / "a.db", "CREATE TABLE [t] ([a]); INSERT INTO [t] VALUES (1)");
  const std::string before = ReadFile(folder / "a.db");
  Connection copy = Connection::CopyOf(folder / "a.db");
  copy.Start();
  copy.Run("DELETE FROM [t]");
  copy.Commit();
  EXPECT_EQ(TraceText(copy.Single("SELECT COUNT(*) FROM [t]")), "0");
  EXPECT_EQ(ReadFile(folder / "a.db"), before);
  EXPECT_EQ(folder.Files(), std::vector<std::string>{"a.db"});
}

TEST(ConnectionFile, AWriterHoldsTheFileFromTheStartOfItsTransactionAndKeepsNoReaderOut) {
  const TemporaryFolder folder;
  MakeDatabase(folder / "a.db", "CREATE TABLE [t] ([a])");
  Connection first(folder / "a.db");
  Connection second(folder / "a.db", std::chrono::milliseconds(0));
  first.Start();
  // More than the pages that are kept in memory where a writer may write before its commit.
  first.Run(
      "WITH [n] AS (SELECT 1 AS [i] UNION ALL SELECT [i] + 1 FROM [n] WHERE [i] < 5000) "
      "INSERT INTO [t] SELECT randomblob(4000) FROM [n]");
  EXPECT_THAT(Refusal<StorageError>([&] { second.Start(); }), HasSubstr("a.db is held by "));
  EXPECT_EQ(second.OpenTransactions(), 0);
  EXPECT_EQ(TraceText(Connection::CopyOf(folder / "a.db").Single("SELECT COUNT(*) FROM [t]")), "0");
  first.Commit();
  EXPECT_EQ(TraceText(Connection::CopyOf(folder / "a.db").Single("SELECT COUNT(*) FROM [t]")), "5000");
  second.Start();
  second.Commit();
  EXPECT_EQ(folder.Files(), std::vector<std::string>{"a.db"});
}

// What a writer that was killed in its commit leaves: a file that is half written, and the journal to undo that.
TEST(ConnectionFile, AReaderSeesTheStateBeforeAKilledWriterAndLeavesItsJournal) {
  const TemporaryFolder folder;
  MakeDatabase(folder / "a.db", "CREATE TABLE [t] ([a]); INSERT INTO [t] VALUES ('old')");
  const std::string old = ReadFile(folder / "a.db");
  {
    Connection writer(folder / "a.db");
    // Written at once, as by a commit that does not come to its end.
    writer.Execute("PRAGMA cache_spill = ON; PRAGMA cache_size = 1");
    writer.Start();
    writer.Run("UPDATE [t] SET [a] = 'new'");
    writer.Run(
        "WITH [n] AS (SELECT 1 AS [i] UNION ALL SELECT [i] + 1 FROM [n] WHERE [i] < 500) "
        "INSERT INTO [t] SELECT randomblob(4000) FROM [n]");
    std::filesystem::copy_file(folder / "a.db", folder / "killed.db");
    std::filesystem::copy_file(folder / "a.db-journal", folder / "killed.db-journal");
  }
  const std::string half = ReadFile(folder / "killed.db");
  ASSERT_NE(half, old);
  EXPECT_EQ(TraceText(Connection::CopyOf(folder / "killed.db").Run("SELECT [a] FROM [t]")), R"([["old"]])");
  const TemporaryFolder elsewhere;
  std::filesystem::create_symlink(folder / "killed.db", elsewhere / "link.db");
  EXPECT_EQ(TraceText(Connection::CopyOf(elsewhere / "link.db").Run("SELECT [a] FROM [t]")), R"([["old"]])");
  EXPECT_EQ(ReadFile(folder / "killed.db"), half);
  EXPECT_EQ(folder.Files(), (std::vector<std::string>{"a.db", "killed.db", "killed.db-journal"}));
  EXPECT_EQ(TraceText(Connection(folder / "killed.db").Run("SELECT [a] FROM [t]")), R"([["old"]])");
  EXPECT_EQ(folder.Files(), (std::vector<std::string>{"a.db", "killed.db"}));
}

// Files of earlier versions have a journal that is read along, which readers left behind.
TEST(ConnectionFile, OneWithAJournalThatIsReadAlongIsReadAndPutInOrderByTheNextWriter) {
  const TemporaryFolder folder;
  MakeDatabase(folder / "a.db", "CREATE TABLE [t] ([a]); INSERT INTO [t] VALUES ('old')");
  {
    Connection writer(folder / "a.db");
    writer.Execute("PRAGMA journal_mode = WAL; UPDATE [t] SET [a] = 'new'");
    for (const char* ending : {"", "-wal"})
      std::filesystem::copy_file((folder / "a.db").string() + ending, (folder / "b.db").string() + ending);
  }
  EXPECT_EQ(TraceText(Connection::CopyOf(folder / "b.db").Run("SELECT [a] FROM [t]")), R"([["new"]])");
  EXPECT_EQ(folder.Files(), (std::vector<std::string>{"a.db", "b.db", "b.db-wal"}));
  Connection(folder / "b.db").Execute("INSERT INTO [t] VALUES ('newer')");
  EXPECT_EQ(folder.Files(), (std::vector<std::string>{"a.db", "b.db"}));
  EXPECT_EQ(TraceText(Connection::CopyOf(folder / "b.db").Run("SELECT [a] FROM [t]")), R"([["new", "newer"]])");
}

// A page of zeros: the file opens, and what stands there is gone.
TEST(ConnectionFile, ADamagedOneIsNotOpenedToBeWritten) {
  const TemporaryFolder folder;
  MakeDatabase(folder / "a.db", "CREATE TABLE [t] ([a]); CREATE TABLE [u] ([a])");
  std::string content = ReadFile(folder / "a.db");
  content.replace(4096, 4096, 4096, '\0');
  WriteFile(folder / "a.db", content);
  EXPECT_THAT(CannotWrite(folder / "a.db"), HasSubstr("a.db is damaged ("));
  EXPECT_THAT(Refusal<StorageError>([&] { Connection::CopyOf(folder / "a.db").FindDamage(); }),
              HasSubstr("a.db is damaged ("));
  EXPECT_TRUE(Connection().FindDamage().empty());
}

// A file may come from anybody, with more in it than tables.
TEST(ConnectionFile, TriggersAndViewsThatStandInAFileDoNotAct) {
  const TemporaryFolder folder;
  MakeDatabase(folder / "a.db",
               "CREATE TABLE [t] ([a]); CREATE TABLE [u] ([a]);"
               "CREATE TRIGGER [x] AFTER INSERT ON [t] BEGIN INSERT INTO [u] VALUES (1); END;"
               "CREATE VIEW [v] AS SELECT * FROM [t]");
  Connection opened(folder / "a.db");
  opened.RunRule("INSERT INTO [t] VALUES (1)", {});
  EXPECT_EQ(TraceText(opened.Single("SELECT COUNT(*) FROM [u]")), "0");
  EXPECT_THAT(Refusal<DatabaseError>([&] { opened.RunRule("SELECT * FROM [v]", {}); }), HasSubstr("view"));
}

TEST(ConnectionFile, ANameIsAlwaysThatOfAFile) {
  const TemporaryFolder folder;
  const auto here = std::filesystem::current_path();
  std::filesystem::current_path(folder / "");
  MakeDatabase(":memory:", "CREATE TABLE [t] ([a])");
  Connection(":memory:").Execute("INSERT INTO [t] VALUES (1)");
  EXPECT_EQ(TraceText(Connection::CopyOf(":memory:").Run("SELECT [a] FROM [t]")), "[[1]]");
  std::filesystem::current_path(here);
}

}  // namespace
}  // namespace cordboard::workbench
