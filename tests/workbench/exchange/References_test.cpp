#include "workbench/exchange/References.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <sstream>

#include "support/Road.h"
#include "workbench/data/DataFile.h"
#include "workbench/data/Resources.h"
#include "workbench/database/Schema.h"
#include "workbench/forms/FormDefinition.h"
#include "workbench/plans/Plan.h"
#include "workbench/text/Names.h"

namespace cordboard::workbench {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const References& Shipped() { return ShippedReferences(); }

// The tables of all forms; of a view those that it shows.
std::set<std::pair<std::string, std::string>> TablesOfForms() {
  std::set<std::pair<std::string, std::string>> tables;
  for (const FormDefinition* form : Forms()) {
    for (const FormDefinition* each : form->OfEachTable()) {
      const auto& views = each->Database().views;
      const auto view = std::ranges::find_if(views, [&](const View& one) { return one.table.name == each->table; });
      if (view == views.end()) tables.emplace(each->database, each->table);
      if (view != views.end()) {
        for (const std::string& of : view->of) tables.emplace(each->database, of);
      }
    }
  }
  return tables;
}

const Thing& ThingNamed(const std::string& name) { return *std::ranges::find(Shipped().things(), name, &Thing::name); }

std::vector<std::string> Commands(const std::vector<Holder>& holders) {
  std::vector<std::string> commands;
  for (const Holder& holder : holders) {
    commands.push_back(holder.record->command);
    for (const auto& [column, value] : holder.key) commands.back() += " " + column + "=" + value;
  }
  return commands;
}

TEST(References, EveryTableOfAFormHasItsRecords) {
  std::set<std::pair<std::string, std::string>> described;
  for (const RecordKind& record : Shipped().records()) {
    EXPECT_NE(FindForm(record.command), nullptr) << record.command;
    EXPECT_FALSE(record.is.empty()) << record.table;
    EXPECT_TRUE(described.emplace(record.database, record.table).second) << record.table << " stands there twice";
  }
  EXPECT_EQ(described, TablesOfForms());
}

// Each column of each record is a reference, the name of what the record defines, or said to name nothing.
TEST(References, EveryColumnOfEveryFormIsDescribed) {
  for (const auto& [database, name] : TablesOfForms()) {
    const Table& table = *ShippedSchema().Database(database).Find(name);
    for (const Column& column : table.columns) {
      if (column.further || SameName(column.name, "CMDID")) continue;
      const bool refers =
          Shipped().Find(name, column.name) != nullptr || Shipped().DefinedIn(name, column.name) != nullptr;
      EXPECT_NE(refers, Shipped().NamesNothing(name, column.name)) << name << "." << column.name;
    }
  }
}

TEST(References, TheRecordsOfAViewAreFoundByItsName) {
  EXPECT_EQ(Shipped().Find("NIINI", "GRP"), Shipped().Find("NIINI_GRP", "GRP"));
  EXPECT_EQ(Shipped().Find("NIINI", "OPE")->thing->name, "operator");
}

// A refusal asks the columns that take a thing, and must not cost the more the larger the exchange is.
TEST(References, TheColumnsThatTakeAThingHaveAnIndex) {
  for (const Thing& thing : Shipped().things()) {
    for (const Reference* reference : thing.references) {
      if (!reference->takes) continue;
      const Table& table = *ShippedSchema().Database(reference->record->database).Find(reference->record->table);
      const bool indexed =
          std::ranges::any_of(table.indexes, [&](const auto& columns) { return columns.front() == reference->column; });
      EXPECT_TRUE(indexed) << table.name << "." << reference->column;
    }
  }
}

struct ReferencesOfTheExample : testing::Test {
  static void SetUpTestSuite() {
    road = new Road("R7");
    for (const char* name :
         {"example", "extensions", "authorisation", "routes", "directory", "terminals", "templates", "groups",
          "members", "general", "operators", "desk", "trunks", "cordless", "ip", "logging", "devices", "links"}) {
      std::istringstream plan{std::string(Resource("plans/" + std::string(name) + ".plan"))};
      ASSERT_TRUE(ApplyPlan(road->session(), {{name, plan}}, {}).kept) << name;
    }
  }
  static void TearDownTestSuite() {
    delete road;
    road = nullptr;
  }

  static Exchange& exchange() { return road->exchange(); }
  static RowSet Run(const std::string& sql) { return exchange().Dynamic().Run(sql); }

  static Road* road;
};
Road* ReferencesOfTheExample::road = nullptr;

TEST_F(ReferencesOfTheExample, AKeyTellsARecordFromAllOthers) {
  for (const RecordKind& record : Shipped().records()) {
    std::string columns = "''";
    for (const std::string& column : record.key) columns += ", [" + column + "]";
    // Rows of the plant that nobody has filled in are told apart as well.
    const RowSet twice = Run("SELECT 1 FROM " + record.Rows() + " GROUP BY " + columns + " HAVING COUNT(*) > 1");
    EXPECT_TRUE(twice.IsEmpty()) << record.table;
  }
}

// What a record takes or names is there: the description fits what the rules let in.
TEST_F(ReferencesOfTheExample, WhatIsNamedIsThere) {
  std::set<std::string> seen;
  for (const Thing& thing : Shipped().things()) {
    for (const Reference* reference : thing.references) {
      const std::string name = reference->record->table + "." + reference->column;
      const RowSet values = Run("SELECT DISTINCT [" + reference->column + "] FROM " + reference->record->Rows() +
                                " WHERE [" + reference->column + "] <> ''");
      for (std::size_t row = 0; row < values.RowCount(); ++row) {
        const std::string value = Joined(values[0][row]);
        seen.insert(name);
        EXPECT_EQ(value.find('&'), value.npos) << name << " holds several: " << value;
        EXPECT_TRUE(StandingOf(exchange(), thing, value).isThere) << name << "=" << value;
      }
    }
  }
  EXPECT_GT(seen.size(), 100u);
}

TEST_F(ReferencesOfTheExample, WhatIsMarkedAsUsedHasARecordThatTakesIt) {
  for (const Thing& thing : Shipped().things()) {
    if (!thing.home || thing.home->used.empty()) continue;
    const std::string also =
        thing.alsoTaken.empty() ? "" : " AND " + thing.home->value + " NOT IN (" + thing.alsoTaken + ")";
    const RowSet used =
        Run("SELECT " + thing.home->value + " FROM [" + thing.home->table + "] WHERE " + thing.home->used + also);
    EXPECT_FALSE(used.IsEmpty()) << thing.name;
    for (std::size_t row = 0; row < used.RowCount(); ++row)
      EXPECT_THAT(WhoTakes(exchange(), thing, Joined(used[0][row]), 1), testing::Not(IsEmpty()))
          << thing.name << " " << Joined(used[0][row]);
  }
}

TEST_F(ReferencesOfTheExample, WhoTakesAThingIsTold) {
  EXPECT_THAT(Commands(WhoTakes(exchange(), ThingNamed("number"), "350", 5)), ElementsAre("GEDII DIR=350"));
  EXPECT_THAT(Commands(WhoTakes(exchange(), ThingNamed("directory record"), "350", 5)), ElementsAre("IPEXI DIR=350"));
  EXPECT_THAT(Commands(WhoTakes(exchange(), ThingNamed("position"), "001-0-11-00", 5)),
              ElementsAre("KSEXI DIR=216", "ITNUI DIR=120", "ITNUI DIR=121"));
  EXPECT_THAT(Commands(WhoTakes(exchange(), ThingNamed("number"), "80", 1)), ElementsAre("RODDI ROU=1 DEST=80 CHO=0"));
  EXPECT_THAT(WhoTakes(exchange(), ThingNamed("number"), "249", 5), IsEmpty());
}

// A number is held under all that it is.
TEST_F(ReferencesOfTheExample, WhoHoldsAThingIsTold) {
  EXPECT_THAT(Commands(WhoHolds(exchange(), ThingNamed("number"), "358", 5)),
              ElementsAre("GEDII DIR=358", "IVMAI VSD=358", "IVBOI DIR=216", "IVBOI DIR=217", "IVBOI DIR=400",
                          "IVBOI DIR=401"));
  EXPECT_THAT(Commands(WhoHolds(exchange(), ThingNamed("number"), "214", 5)),
              ElementsAre("KSEXI DIR=214", "NIINI DIR=214", "SPEXI DIR=214", "GPGMI DIR=214"));
  EXPECT_THAT(Commands(WhoHolds(exchange(), ThingNamed("customer"), "2", 1)),
              testing::AllOf(testing::Contains("KSEXITEMPLATE TEMPLATENAME=Workshop"),
                             testing::Contains("CDCOI CUST=2"), testing::Contains(testing::StartsWith("EXTEI DIR="))));
}

TEST_F(ReferencesOfTheExample, HowAThingStands) {
  const auto standing = [](const std::string& thing, const std::string& value) {
    const Standing found = StandingOf(exchange(), ThingNamed(thing), value);
    return std::string(found.isThere ? "there" : "missing") + (found.isUsed ? ", used" : "") +
           (found.trait.empty() ? "" : ", " + found.trait);
  };
  EXPECT_EQ(standing("number", "200"), "there, used, of type EX");
  EXPECT_EQ(standing("number", "904"), "there, of type OI");
  EXPECT_EQ(standing("number", "999"), "missing");
  EXPECT_EQ(standing("position", "001-0-22-00"), "there, on a board of type 29");
  EXPECT_EQ(standing("board", "001-0-99"), "missing");
  EXPECT_EQ(standing("category", "1"), "there");
  EXPECT_EQ(standing("category", "7"), "missing");
  EXPECT_EQ(standing("LIM", "2"), "there");
  EXPECT_EQ(standing("authorisation code", "4711"), "there");
}

// --- The file.

TEST(References, AMistakeInTheFileIsNamed) {
  const auto error = [](const std::string& things, const std::string& key = "DIR") {
    try {
      const std::string json = R"({"records": [{"table": "KSEXI", "is": "key extension", "key": [")" + key +
                               R"("]}], "things": [)" + things + R"(], "nothing": []})";
      const References read(ReadData(json, "references.json"));
      return std::string("none");
    } catch (const DataError& wrong) {
      return std::string(wrong.what());
    }
  };
  EXPECT_EQ(error(R"({"name": "number", "takenBy": ["KSEXI.DIR"]})"), "none");
  EXPECT_THAT(error("", "NIR"), testing::HasSubstr("KSEXI has no column NIR"));
  EXPECT_THAT(error(R"({"name": "number", "takenBy": ["KSEXI.NIR"]})"), testing::HasSubstr("no column KSEXI.NIR"));
  EXPECT_THAT(error(R"({"name": "number", "of": "thing"})"), testing::HasSubstr("no such thing before it"));
  EXPECT_THAT(error(R"({"name": "number", "given": []})"), testing::HasSubstr("given"));
}

}  // namespace
}  // namespace cordboard::workbench
