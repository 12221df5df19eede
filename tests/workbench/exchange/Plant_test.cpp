#include "workbench/exchange/Plant.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "workbench/support/TemporaryFolder.h"
#include "workbench/support/TestExchange.h"

namespace cordboard::workbench {
namespace {

using testing::ElementsAre;
using testing::StartsWith;

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

// The small plant with one part replaced.
std::string With(const std::string& part, const std::string& other) {
  std::string text = small;
  text.replace(text.find(part), part.size(), other);
  return text;
}

std::string Refused(const std::string& text) {
  return Refusal<PlantError>([&] { ParsePlant(text, "office.json"); });
}

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

TEST(Plant, NeedsNoMoreThanPlacesLimsAndBoards) {
  const Plant plant = ParsePlant(R"({"name": "bare", "locations": [], "lims": [], "boards": []})", "bare");
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
            "there is no plant file 'nowhere', and no built-in plant of that name (there is: example)");
}

TEST(Plant, AFileThatCannotBeReadIsTold) {
  const TemporaryFolder folder;
  WriteFile(folder / "empty.json", "");
  for (const std::filesystem::path& file : {folder / "", folder / "empty.json"})
    EXPECT_EQ(Refusal<PlantError>([&] { ReadPlant(file.string()); }),
              "the plant file '" + file.string() + "' is empty or cannot be read");
}

// --- Descriptions that are refused.

TEST(Plant, WhatIsNoDescriptionIsRefused) {
  for (const char* text : {"", "{", "SQLite format 3"})
    EXPECT_THAT(Refused(text), StartsWith("office.json: parse error at line 1, column ")) << text;
  EXPECT_EQ(Refused("\xFF"), "office.json: this is not UTF-8 text");
  EXPECT_EQ(Refused("[]"), "office.json: an object is wanted, not a list");
  EXPECT_EQ(Refused("{}"), "office.json: the key \"name\" is missing");
}

TEST(Plant, AMistakeIsRefusedWithItsPlace) {
  EXPECT_EQ(Refused(With("\"lim\": 1, \"magazine\"", "\"lim\": \"1\", \"magazine\"")),
            "office.json: boards[0].lim: a whole number is wanted, not a text");
  EXPECT_EQ(Refused(With("\"slot\": 10, ", "")), "office.json: boards[1]: the key \"slot\" is missing");
  EXPECT_EQ(Refused(With("\"description\": \"Cellar\"", "\"descripton\": \"Cellar\"")),
            "office.json: lims[0]: unknown key \"descripton\". Did you mean description?");
  EXPECT_EQ(Refused(With("\"trunkLines\"", "\"trunklines\"")),
            "office.json: unknown key \"trunklines\". Did you mean trunkLines?");
  EXPECT_EQ(Refused(With("\"customers\"", "\"name\"")),
            "office.json: the key \"name\" stands there twice in one object");
}

TEST(Plant, AnUnknownBoardTypeIsRefused) {
  EXPECT_EQ(Refused(With("\"70\"", "\"99\"")), "office.json: boards[0].type: there is no board type '99'");
}

TEST(Plant, RangesThatCannotBeTakenApartAreRefused) {
  EXPECT_EQ(Refused(With("1&&3", "3&&1")), "office.json: routes[0]: the range 3&&1 ends before it begins");
  EXPECT_EQ(Refused(With("001-0-20-00&&001-0-20-02", "1&&")),
            "office.json: trunkLines[0].tru: a value is missing beside an &");
}

TEST(Plant, EverythingStandsInAPlaceThatThereIs) {
  EXPECT_EQ(Refused(With("{\"lim\": 1, \"location\": \"HQ\"", "{\"lim\": 1, \"location\": \"X\"")),
            "office.json: LIM 1: there is no location 'X'");
  EXPECT_EQ(Refused(With("{\"lim\": 1, \"magazine\"", "{\"lim\": 2, \"magazine\"")),
            "office.json: the board in LIM 2, magazine 0, slot 3: there is no such LIM");
  EXPECT_EQ(Refused(With("{\"lim\": 12, \"tru\"", "{\"lim\": 2, \"tru\"")),
            "office.json: trunk line 012-0-20-00: there is no LIM 2");
}

TEST(Plant, NothingStandsInAPlaceThatIsTaken) {
  EXPECT_EQ(Refused(With("{\"lim\": 12, \"location\"", "{\"lim\": 1, \"location\"")),
            "office.json: LIM 1 stands there twice");
  EXPECT_EQ(Refused(With("{\"lim\": 12, \"magazine\": 1, \"slot\": 10", "{\"lim\": 1, \"magazine\": 0, \"slot\": 3")),
            "office.json: the board in LIM 1, magazine 0, slot 3 stands there twice");
}

TEST(Plant, PlacesHaveNumbersThatFitInAPosition) {
  EXPECT_EQ(Refused(With("{\"lim\": 12, \"location\"", "{\"lim\": 1000, \"location\"")),
            "office.json: LIM 1000 is not between 1 and 999");
  EXPECT_EQ(Refused(With("\"magazine\": 1,", "\"magazine\": 10,")),
            "office.json: the board in LIM 12, magazine 10, slot 10: a magazine is between 0 and 9");
  EXPECT_EQ(Refused(With("\"slot\": 10", "\"slot\": 100")),
            "office.json: the board in LIM 12, magazine 1, slot 100: a slot is between 0 and 99");
}

}  // namespace
}  // namespace cordboard::workbench
