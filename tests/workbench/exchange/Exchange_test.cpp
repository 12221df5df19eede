#include "workbench/exchange/Exchange.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "workbench/exchange/Plant.h"
#include "workbench/history/Recording.h"
#include "workbench/support/TemporaryFolder.h"
#include "workbench/support/TestExchange.h"

namespace cordboard::workbench {
namespace {

using testing::EndsWith;
using testing::HasSubstr;

const Plant& Example() {
  static const Plant plant = ReadPlant("example");
  return plant;
}

std::string CannotCreate(const std::filesystem::path& file, const std::string& release = "R7",
                         const Plant& plant = Example()) {
  return Refusal<ExchangeError>([&] { Exchange::Create(file, release, plant); });
}

std::string CannotOpen(const std::filesystem::path& file) {
  const std::string refusal = Refusal<ExchangeError>([&] { Exchange::OpenForReading(file); });
  EXPECT_EQ(Refusal<ExchangeError>([&] { Exchange::OpenForWriting(file); }), refusal);
  return refusal;
}

// --- Creating.

TEST(Exchange, IsOneFileThatCanBeOpenedAgain) {
  const TemporaryFolder folder;
  EXPECT_EQ(Exchange::Create(folder / "office.cbx", "R6/1", Example())->release(), "R6/1");
  EXPECT_EQ(folder.Files(), std::vector<std::string>{"office.cbx"});
  for (const auto& exchange :
       {Exchange::OpenForWriting(folder / "office.cbx"), Exchange::OpenForReading(folder / "office.cbx")}) {
    EXPECT_EQ(exchange->release(), "R6/1");
    EXPECT_EQ(Count(*exchange, "Boards"), static_cast<int>(Example().boards.size()));
  }
}

TEST(Exchange, AConfirmedActionSurvivesALossOfPower) {
  const TemporaryFolder folder;
  const auto made = Exchange::Create(folder / "office.cbx", "R7", Example());
  EXPECT_EQ(Rows(*made, "PRAGMA journal_mode"), R"([["delete"]])");
  EXPECT_EQ(Rows(*made, "PRAGMA synchronous"), "[[3]]");
}

TEST(Exchange, HasSmallPagesSinceMostTablesAreEmpty) {
  const TemporaryFolder folder;
  Exchange::Create(folder / "office.cbx", "R7", Example());
  EXPECT_EQ(Rows(*Exchange::OpenForReading(folder / "office.cbx"), "PRAGMA page_size"), "[[2048]]");
  EXPECT_LT(std::filesystem::file_size(folder / "office.cbx"), 1000000u);
}

TEST(Exchange, OfAnEarlierVersionGetsTheIndexesThatItHasNot) {
  const TemporaryFolder folder;
  const std::string asked = "SELECT COUNT(*) FROM sqlite_master WHERE name = 'ROUTE by USED'";
  Exchange::Create(folder / "office.cbx", "R7", Example())->Dynamic().Execute("DROP INDEX [ROUTE by USED]");
  EXPECT_EQ(Rows(*Exchange::OpenForReading(folder / "office.cbx"), asked), "[[1]]");
  const auto exchange = Exchange::OpenForWriting(folder / "office.cbx");
  EXPECT_EQ(Rows(*exchange, asked), "[[0]]");
  Recording(exchange->Dynamic()).Commit({});
  EXPECT_EQ(Rows(*exchange, asked), "[[1]]");
}

TEST(Exchange, IsBuiltForOneOfFourReleases) {
  EXPECT_EQ(Releases(), (std::vector<std::string>{"R6", "R6/1", "R7", "R8"}));
  for (const std::string& release : Releases()) EXPECT_EQ(ExampleExchange(release)->release(), release);
  EXPECT_EQ(Refusal<ExchangeError>([] { ExampleExchange("R9"); }), "there is no release R9");
}

TEST(Exchange, DoesNotTakeThePlaceOfAFile) {
  const TemporaryFolder folder;
  WriteFile(folder / "office.cbx", "mine");
  EXPECT_THAT(CannotCreate(folder / "office.cbx"), EndsWith("office.cbx exists already; choose another name"));
  EXPECT_THROW(Exchange::Create(folder / "office.cbx", "R7", Example()), ExistsAlready);
  EXPECT_EQ(ReadFile(folder / "office.cbx"), "mine");
  EXPECT_THAT(CannotCreate(folder / "."), HasSubstr("exists already"));
}

TEST(Exchange, NeedsAName) {
  EXPECT_EQ(CannotCreate(""), "an exchange needs the name of a file");
  const TemporaryFolder folder;
  EXPECT_EQ(CannotCreate(folder / ""), "an exchange needs the name of a file");
}

TEST(Exchange, OneThatCouldNotBeMadeLeavesNoFile) {
  const TemporaryFolder folder;
  EXPECT_EQ(CannotCreate(folder / "office.cbx", "R9"), "there is no release R9");
  EXPECT_TRUE(folder.IsEmpty());
  EXPECT_THAT(CannotCreate(folder / "missing" / "office.cbx"),
              EndsWith("office.cbx cannot be made: No such file or directory"));
  EXPECT_TRUE(folder.IsEmpty());
}

TEST(Exchange, HoldsEveryTableOfTheSchemaAndNoRowsButThoseOfThePlant) {
  const auto exchange = Exchange::CreateInMemory("R7", ReadPlant("example"));
  for (const char* table : {"NANSI", "NANSIBlockedRange", "KSEXI", "BuiltCmd", "UsedNumbers"})
    EXPECT_EQ(Count(*exchange, table), 0) << table;
  EXPECT_EQ(Count(*exchange, "LIMs"), 2);
}

// --- Opening.

TEST(Exchange, AMissingFileIsNotOpenedAndNotMade) {
  const TemporaryFolder folder;
  EXPECT_THAT(CannotOpen(folder / "office.cbx"), HasSubstr("there is no file "));
  EXPECT_TRUE(folder.IsEmpty());
  EXPECT_EQ(CannotOpen(""), "there is no file ");
}

TEST(Exchange, AnythingElseIsNotOpenedAndNotTouched) {
  const TemporaryFolder folder;
  WriteFile(folder / "empty.cbx", "");
  EXPECT_THAT(CannotOpen(folder / "empty.cbx"), EndsWith("empty.cbx is not an exchange"));
  EXPECT_EQ(ReadFile(folder / "empty.cbx"), "");

  const std::string text(5000, 'x');
  WriteFile(folder / "text.cbx", text);
  EXPECT_THAT(CannotOpen(folder / "text.cbx"), EndsWith("text.cbx is not an exchange"));
  EXPECT_EQ(ReadFile(folder / "text.cbx"), text);

  Connection other;
  other.Execute("CREATE TABLE t (a)");
  const std::string before = other.Content();
  WriteFile(folder / "other.cbx", before);
  EXPECT_THAT(CannotOpen(folder / "other.cbx"), EndsWith("other.cbx is not an exchange"));
  EXPECT_EQ(ReadFile(folder / "other.cbx"), before);

  EXPECT_THAT(CannotOpen(folder / "."), HasSubstr("is not an exchange"));
}

TEST(Exchange, OneOfAnotherVersionIsNotOpened) {
  const TemporaryFolder folder;
  Exchange::Create(folder / "office.cbx", "R7", Example())->Dynamic().Execute("PRAGMA user_version = 1");
  EXPECT_THAT(CannotOpen(folder / "office.cbx"), EndsWith("was made by another version of cordboard"));
}

TEST(Exchange, ADamagedOneIsNotOpened) {
  const TemporaryFolder folder;
  Exchange::Create(folder / "office.cbx", "R7", Example());
  std::string content = ReadFile(folder / "office.cbx");
  content.resize(5000);
  WriteFile(folder / "office.cbx", content);
  EXPECT_THROW(Exchange::OpenForReading(folder / "office.cbx"), StorageError);
  EXPECT_THROW(Exchange::OpenForWriting(folder / "office.cbx"), StorageError);
}

TEST(Exchange, WhatIsDoneToOneThatWasOpenedForReadingStaysWithIt) {
  const TemporaryFolder folder;
  Exchange::Create(folder / "office.cbx", "R7", Example());
  const auto copy = Exchange::OpenForReading(folder / "office.cbx");
  copy->Dynamic().Run("DELETE FROM [Boards]");
  EXPECT_EQ(Count(*copy, "Boards"), 0);
  EXPECT_NE(Count(*Exchange::OpenForReading(folder / "office.cbx"), "Boards"), 0);
}

// --- Databases.

TEST(Exchange, HasThreeDatabases) {
  const auto exchange = ExampleExchange();
  EXPECT_EQ(exchange->Database("dynamic"), &exchange->Dynamic());
  EXPECT_EQ(exchange->Database("site"), &exchange->Dynamic());
  EXPECT_EQ(Rows(*exchange, "SELECT COUNT(*) FROM [site.KSEXITemplate]", "site"), "[[0]]");
  EXPECT_NE(Rows(*exchange, "SELECT COUNT(*) FROM ParamValueDesc", "static"), "[[0]]");
  EXPECT_EQ(exchange->Database("static"), exchange->Database("static"));
  EXPECT_EQ(exchange->Database("other"), nullptr);
  EXPECT_EQ(exchange->Database(""), nullptr);
  EXPECT_EQ(exchange->Database("Dynamic"), nullptr);
}

TEST(Exchange, TheFixedValuesAreNotWritten) {
  const auto exchange = ExampleExchange();
  EXPECT_EQ(Refusal<DatabaseError>([&] { exchange->Database("static")->Run("DELETE FROM ParamValueDesc"); }),
            "attempt to write a readonly database");
}

// The templates stand in the file of the exchange, apart from tables of the same names in its configuration.
TEST(Exchange, TemplatesAreKeptInTheFileOfTheExchange) {
  const TemporaryFolder folder;
  {
    const auto exchange = Exchange::Create(folder / "office.cbx", "R7", Example());
    exchange->Dynamic().Run("INSERT INTO [site.KSEXITemplate] (CmdId) VALUES (1)");
  }
  const auto exchange = Exchange::OpenForReading(folder / "office.cbx");
  EXPECT_EQ(Count(*exchange, "site.KSEXITemplate"), 1);
  EXPECT_EQ(Count(*exchange, "KSEXITemplate"), 0);
}

TEST(Exchange, GivesEveryIdentifierOnce) {
  const TemporaryFolder folder;
  const auto exchange = Exchange::Create(folder / "office.cbx", "R7", Example());
  const double first = exchange->NewCmdId().number();
  EXPECT_EQ(exchange->NewCmdId(), Value(first + 1));
  EXPECT_EQ(Exchange::OpenForReading(folder / "office.cbx")->NewCmdId(), Value(first + 2));
}

// Generated lines are nobody's data: they never reach the file.
TEST(Exchange, GeneratedLinesStandInNoFile) {
  const TemporaryFolder folder;
  Exchange::Create(folder / "office.cbx", "R7", Example());
  {
    const auto exchange = Exchange::OpenForReading(folder / "office.cbx");
    for (const char* table : {"BuiltCmd", "site.BuiltCmd"}) {
      exchange->Dynamic().RunRule("INSERT INTO [" + std::string(table) + "] VALUES (1, 'NANSI:;')", {});
      EXPECT_EQ(Count(*exchange, table), 1);
    }
  }
  for (const char* table : {"BuiltCmd", "site.BuiltCmd"})
    EXPECT_EQ(Count(*Exchange::OpenForReading(folder / "office.cbx"), table), 0);
}

// --- Transactions.

TEST(Exchange, ATransactionCoversConfigurationAndTemplates) {
  const auto exchange = ExampleExchange();
  const auto counts = [&] { return std::pair(Count(*exchange, "NANSI"), Count(*exchange, "site.KSEXITemplate")); };
  const auto fill = [&] {
    exchange->Dynamic().Run("INSERT INTO [NANSI] (NUMSE) VALUES ('1')");
    exchange->Dynamic().Run("INSERT INTO [site.KSEXITemplate] (CmdId) VALUES (1)");
    EXPECT_EQ(counts(), std::pair(1, 1));
  };
  exchange->Start();
  exchange->Start();
  fill();
  exchange->RollBack();
  EXPECT_EQ(counts(), std::pair(0, 0));
  fill();
  exchange->Commit();
  EXPECT_EQ(counts(), std::pair(1, 1));
}

TEST(Exchange, ATransactionThatIsNotCommittedIsRolledBackAtItsEnd) {
  const auto exchange = ExampleExchange();
  {
    Transaction outer(*exchange);
    exchange->Dynamic().Run("INSERT INTO NANSI (NUMSE) VALUES ('1')");
    { Transaction inner(*exchange); }
    EXPECT_EQ(exchange->OpenTransactions(), 1);
  }
  EXPECT_EQ(exchange->OpenTransactions(), 0);
  EXPECT_EQ(Count(*exchange, "NANSI"), 0);
  {
    Transaction kept(*exchange);
    exchange->Dynamic().Run("INSERT INTO NANSI (NUMSE) VALUES ('1')");
    kept.Commit();
  }
  EXPECT_EQ(Count(*exchange, "NANSI"), 1);
}

TEST(Exchange, OneThatIsClosedInATransactionKeepsNothingOfIt) {
  const TemporaryFolder folder;
  {
    const auto exchange = Exchange::Create(folder / "office.cbx", "R7", Example());
    exchange->Start();
    exchange->Dynamic().Run("INSERT INTO NANSI (NUMSE) VALUES ('1')");
  }
  EXPECT_EQ(Count(*Exchange::OpenForReading(folder / "office.cbx"), "NANSI"), 0);
}

}  // namespace
}  // namespace cordboard::workbench
