#include "workbench/exchange/Plant.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <set>

#include "workbench/data/Resources.h"
#include "workbench/support/TemporaryFolder.h"
#include "workbench/support/TestExchange.h"

namespace cordboard::workbench {
namespace {

using testing::ElementsAre;
using testing::Pair;

const char* const small = R"({
  "name": "small",
  "locations": [{"location": "HQ", "description": "Head office"}, {"location": "WORKS"}],
  "lims": [{"lim": 1, "location": "HQ", "description": "Cellar"}, {"lim": 12, "location": "WORKS"}],
  "boards": [{"lim": 1, "magazine": 0, "slot": 3, "type": "70"}, {"lim": 12, "magazine": 1, "slot": 10, "type": "48"}],
  "customers": [{"cust": "1", "description": "Ours"}, {"cust": "10"}],
  "trunkLines": [{"lim": 1, "tru": "001-0-20-00&&001-0-20-02"}, {"lim": 12, "tru": "012-0-20-00"}],
  "routes": ["1&&3", "10&12"],
  "categories": 3
})";

TEST(Plant, IsReadFromItsDescription) {
  const Plant plant = ParsePlant(small, "office.json");
  EXPECT_EQ(plant.name, "small");
  EXPECT_EQ(plant.locations.size(), 2u);
  EXPECT_EQ(plant.lims.size(), 2u);
  ASSERT_EQ(plant.boards.size(), 2u);
  EXPECT_EQ(plant.boards[0].type.positions, 8);
  EXPECT_EQ(plant.boards[1].type.positions, 16);
  EXPECT_THAT(plant.routes, ElementsAre("1", "2", "3", "10", "12"));
  ASSERT_EQ(plant.trunkLines.size(), 4u);
  EXPECT_EQ(plant.trunkLines[2], std::pair(1, std::string("001-0-20-02")));
  EXPECT_EQ(plant.categories, 3);
}

const char* const bare = R"({"name": "bare", "locations": [], "lims": [], "boards": []})";

TEST(Plant, NeedsNoMoreThanPlacesLimsAndBoards) {
  const Plant plant = ParsePlant(bare, "bare");
  EXPECT_TRUE(plant.boards.empty());
  EXPECT_EQ(plant.categories, 0);
}

TEST(Plant, FillsAnExchange) {
  const auto exchange = Exchange::CreateInMemory("R7", ParsePlant(small, "small"));
  EXPECT_EQ(Rows(*exchange, "SELECT Location, Description FROM Locations"),
            R"([["HQ", "WORKS"], ["Head office", ""]])");
  EXPECT_EQ(Rows(*exchange, "SELECT LIM, Location, Description FROM LIMs"),
            R"([[1, 12], ["HQ", "WORKS"], ["Cellar", ""]])");
  EXPECT_EQ(Rows(*exchange, "SELECT LIM, Magazine, Slot, BoardID FROM Boards"),
            R"([[1, 12], [0, 1], [3, 10], ["70", "48"]])");
  EXPECT_EQ(Rows(*exchange, "SELECT CUST, DESCRIPTION FROM CUSTOMERS"), R"([["1", "10"], ["Ours", ""]])");
  EXPECT_EQ(Rows(*exchange, "SELECT TRU, LIM, USED FROM TRKLINE WHERE LIM = 12"),
            R"([["012-0-20-00"], [12], [False]])");
  EXPECT_EQ(Rows(*exchange, "SELECT ROU, USED FROM ROUTE"),
            R"([["1", "2", "3", "10", "12"], [False, False, False, False, False]])");
}

TEST(Plant, PositionsFollowFromTheBoards) {
  const auto exchange = Exchange::CreateInMemory("R7", ParsePlant(small, "small"));
  EXPECT_EQ(Count(*exchange, "Equipment"), 24);
  EXPECT_EQ(Rows(*exchange, "SELECT EQU, LIM, Magazine, Slot, Individual, USED FROM Equipment WHERE Individual = '07'"),
            R"([["001-0-03-07", "012-1-10-07"], [1, 12], [0, 1], [3, 10], ["07", "07"], [False, False]])");
  EXPECT_EQ(Rows(*exchange, "SELECT MIN(EQU), MAX(EQU) FROM Equipment WHERE LIM = 12"),
            R"([["012-1-10-00"], ["012-1-10-15"]])");
}

TEST(Plant, RadioPortsAreOneDigitAndBeginWithOne) {
  const auto exchange =
      Exchange::CreateInMemory("R7", ParsePlant(R"({"name": "radio", "locations": [{"location": "HQ"}],
      "lims": [{"lim": 1, "location": "HQ"}], "boards": [{"lim": 1, "magazine": 0, "slot": 18, "type": "108"}]})",
                                                "radio"));
  EXPECT_EQ(Count(*exchange, "Equipment"), 8);
  EXPECT_EQ(Rows(*exchange, "SELECT EQU, Individual FROM Equipment WHERE Individual IN ('0', '1', '8')"),
            R"([["001-0-18-1", "001-0-18-8"], ["1", "8"]])");
}

TEST(Plant, CategoriesAreProvidedBlankWithIdentifiersOfTheirOwn) {
  const auto exchange = Exchange::CreateInMemory("R7", ParsePlant(small, "small"));
  EXPECT_EQ(Rows(*exchange, "SELECT CmdId, CAT, SERV FROM EXCCS"),
            R"([[1, 2, 3], ["0", "1", "2"], [Null, Null, Null]])");
  EXPECT_EQ(exchange->NewCmdId(), Value(4));
}

// --- Where plants come from.

TEST(Plant, BuiltInOnesAreReadByTheirNames) {
  EXPECT_THAT(PlantNames(), testing::Contains("example"));
  for (const std::string& name : PlantNames()) EXPECT_EQ(ReadPlant(name).name, name);
}

TEST(Plant, OnesOfTheUserAreReadFromTheirFiles) {
  const TemporaryFolder folder;
  WriteFile(folder / "mine.json", small);
  EXPECT_EQ(ReadPlant((folder / "mine.json").string()).name, "small");
}

TEST(Plant, AMissingOneIsToldWithTheNamesThatThereAre) {
  EXPECT_EQ(Refusal<PlantError>([] { ReadPlant("nowhere"); }),
            "there is no plant file 'nowhere', and no built-in plant of that name (there are: example, large, small)");
}

TEST(Plant, AFileThatCannotBeReadIsTold) {
  const TemporaryFolder folder;
  WriteFile(folder / "empty.json", "");
  for (const std::filesystem::path& file : {folder / "", folder / "empty.json"})
    EXPECT_EQ(Refusal<PlantError>([&] { ReadPlant(file.string()); }),
              "the plant file '" + file.string() + "' is empty or cannot be read");
}

TEST(Plant, AFileThatDoesNotEndIsTold) {
  EXPECT_EQ(Refusal<PlantError>([] { ReadPlant("/dev/zero"); }),
            "the plant file '/dev/zero' is longer than 8 megabytes");
}

// --- Plants as they are written.

TEST(Plant, BuiltInOnesAreWrittenAsTheyWereRead) {
  for (const std::string& name : PlantNames())
    EXPECT_EQ(JsonOf(ReadPlant(name)), nlohmann::json::parse(Resource("plants/" + name + ".json")));
}

TEST(Plant, WhatIsNotThereIsWrittenAsNothing) {
  const nlohmann::json json = JsonOf(ParsePlant(bare, "bare"));
  EXPECT_EQ(json["boards"], nlohmann::json::array());
  EXPECT_EQ(json["routes"], nlohmann::json::array());
  EXPECT_EQ(JsonOf(ParsePlant(json.dump(), "again")), json);
}

TEST(Plant, IsCountedByTheNamesOfItsParts) {
  const std::vector<std::pair<std::string, std::size_t>> counts = Counts(ParsePlant(small, "small"));
  EXPECT_THAT(counts,
              ElementsAre(Pair("locations", 2), Pair("lims", 2), Pair("boards", 2), Pair("positions", 24),
                          Pair("customers", 2), Pair("trunkLines", 4), Pair("routes", 5), Pair("categories", 3)));
}

// How many positions there are on boards to which telephones are connected.
int PlacesForTelephones(const Plant& plant) {
  int places = 0;
  for (const auto& board : plant.boards)
    if (std::set<std::string>{"31", "59", "77", "44", "104"}.contains(board.boardId)) places += board.type.positions;
  return places;
}

TEST(Plant, BuiltInOnesHaveRoomForTheExtensionsOfAnOffice) {
  EXPECT_GE(PlacesForTelephones(ReadPlant("small")), 50);
  EXPECT_GE(PlacesForTelephones(ReadPlant("large")), 1000);
}

}  // namespace
}  // namespace cordboard::workbench
