#include "workbench/exchange/FixedDatabase.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "workbench/support/TestExchange.h"

namespace cordboard::workbench {
namespace {

TEST(FixedDatabase, AListStandsInTheOrderOfItsFile) {
  const auto exchange = ExampleExchange();
  EXPECT_EQ(Rows(*exchange,
                 "SELECT Value, ValDesc, DefinitionNo FROM ParamValueDesc WHERE Command = 'NANSI' AND Param = 'NUMTYP' "
                 "ORDER BY rowid LIMIT 2",
                 "static"),
            R"([["AC", "AI"], ["Abbreviated number codes", "Access digit to an operator or a service, one digit"], )"
            R"([1, 1]])");
}

TEST(FixedDatabase, EveryListIsEnteredForItsReleasesAlone) {
  for (const std::string& release : Releases()) {
    const auto exchange = ExampleExchange(release);
    std::size_t expected = 0;
    for (const FixedList& list : AllFixedValues().lists) {
      if (std::ranges::find(list.releases, release) != list.releases.end())
        expected += list.values.size() * list.commands.size() * list.parameters.size() * list.definitions.size();
    }
    EXPECT_EQ(exchange->Database("static")->Single("SELECT COUNT(*) FROM ParamValueDesc"), Value(expected)) << release;
  }
}

TEST(FixedDatabase, TheListsOfACommandAreEnteredWhenTheyAreAskedFor) {
  const auto exchange = ExampleExchange();
  Connection& database = exchange->Static().With("CLOHI");
  const auto commands = [&database] {
    return database.Single("SELECT GROUP_CONCAT(DISTINCT Command) FROM ParamValueDesc");
  };
  EXPECT_EQ(commands(), Value("CLOHI"));
  const Value rows = database.Single("SELECT COUNT(*) FROM ParamValueDesc");
  exchange->Static().With("CLOHI");
  EXPECT_EQ(database.Single("SELECT COUNT(*) FROM ParamValueDesc"), rows);
  exchange->Static().With("KSANI");
  EXPECT_EQ(commands(), Value("CLOHI,KSANI"));
  // Together with all others each stands there once.
  exchange->Database("static");
  EXPECT_EQ(database.Single("SELECT COUNT(*) FROM ParamValueDesc WHERE Command = 'CLOHI'"), rows);
}

TEST(FixedDatabase, AListIsReadOnce) {
  const auto exchange = ExampleExchange();
  const auto read = exchange->Static().List("NANSI", "NUMTYP", 1);
  ASSERT_FALSE(read->empty());
  EXPECT_EQ(read->front(), DescribedValues::value_type("AC", "Abbreviated number codes"));
  EXPECT_EQ(exchange->Static().List("NANSI", "NUMTYP", 1), read);
  EXPECT_TRUE(exchange->Static().List("NANSI", "NUMTYP", 2)->empty());
}

TEST(FixedDatabase, EveryRowOfATableIsEntered) {
  const auto exchange = ExampleExchange();
  ASSERT_FALSE(AllFixedValues().tables.empty());
  for (const FixedTable& table : AllFixedValues().tables)
    EXPECT_EQ(exchange->Database("static")->Single("SELECT COUNT(*) FROM [" + table.name + "]"),
              Value(table.rows.size()))
        << table.name;
}

}  // namespace
}  // namespace cordboard::workbench
