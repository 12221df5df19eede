// What is wrong with plants and with pieces of plants, all of it and by its place.
#include "workbench/exchange/PlantReader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "workbench/support/TemporaryFolder.h"

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

// What is wrong with a piece that is added to the small plant.
std::vector<std::string> WrongWithPiece(const std::string& piece) {
  std::vector<std::string> messages;
  try {
    ReadPieces({{"piece.json", piece}}, ParsePlant(small, "small"));
  } catch (const PlantError& error) {
    for (const auto& [file, message] : error.problems()) {
      EXPECT_EQ(file, "piece.json");
      messages.push_back(message);
    }
  }
  return messages;
}

// --- Descriptions that are refused.

TEST(PlantReader, WhatIsNoDescriptionIsRefused) {
  for (const char* text : {"", "{", "SQLite format 3"})
    EXPECT_THAT(Refused(text), StartsWith("office.json: parse error at line 1, column ")) << text;
  EXPECT_EQ(Refused("\xFF"), "office.json: this is not UTF-8 text");
  EXPECT_EQ(Refused("[]"), "office.json: an object is wanted, not a list");
  EXPECT_EQ(Refused("{}"),
            "office.json: the key \"name\" is missing\noffice.json: the key \"locations\" is missing\n"
            "office.json: the key \"lims\" is missing\noffice.json: the key \"boards\" is missing");
}

TEST(PlantReader, AMistakeIsRefusedWithItsPlace) {
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

TEST(PlantReader, AnUnknownBoardTypeIsRefused) {
  EXPECT_EQ(Refused(With("\"70\"", "\"99\"")),
            "office.json: boards[0].type: there is no board type '99'. Possible: 2, 27, 29, 31, 34, 41, 43, 44, 48, "
            "52, 57, 59, 70, 71, 72, 77, 87, 104, 106, 108, 112, 113");
}

TEST(PlantReader, RangesThatCannotBeTakenApartAreRefused) {
  EXPECT_EQ(Refused(With("1&&3", "3&&1")), "office.json: routes[0]: the range 3&&1 ends before it begins");
  EXPECT_EQ(Refused(With("001-0-20-00&&001-0-20-02", "1&&")),
            "office.json: trunkLines[0].tru: a value is missing beside an &");
}

TEST(PlantReader, EverythingStandsInAPlaceThatThereIs) {
  EXPECT_EQ(Refused(With("{\"lim\": 1, \"location\": \"HQ\"", "{\"lim\": 1, \"location\": \"X\"")),
            "office.json: lims[0].location: there is no location 'X'");
  EXPECT_EQ(Refused(With("{\"lim\": 1, \"magazine\"", "{\"lim\": 2, \"magazine\"")),
            "office.json: boards[0].lim: there is no LIM 2");
  EXPECT_EQ(Refused(With("{\"lim\": 12, \"tru\"", "{\"lim\": 2, \"tru\"")),
            "office.json: trunkLines[1].lim: there is no LIM 2");
}

TEST(PlantReader, NothingStandsInAPlaceThatIsTaken) {
  EXPECT_EQ(Refused(With("{\"lim\": 12, \"location\"", "{\"lim\": 1, \"location\"")),
            "office.json: lims[1].lim: there is a LIM 1 already");
  EXPECT_EQ(Refused(With("{\"lim\": 12, \"magazine\": 1, \"slot\": 10", "{\"lim\": 1, \"magazine\": 0, \"slot\": 3")),
            "office.json: boards[1].slot: there is a board in 001-0-03 already");
}

TEST(PlantReader, PlacesHaveNumbersThatFitInAPosition) {
  EXPECT_EQ(Refused(With("{\"lim\": 12, \"location\"", "{\"lim\": 1000, \"location\"")),
            "office.json: lims[1].lim: 1000 is not between 1 and 999");
  EXPECT_EQ(Refused(With("\"magazine\": 1,", "\"magazine\": 10,")),
            "office.json: boards[1].magazine: 10 is not between 0 and 9");
  EXPECT_EQ(Refused(With("\"slot\": 10", "\"slot\": 100")), "office.json: boards[1].slot: 100 is not between 0 and 99");
}

TEST(PlantReader, NothingHasANameThatIsTaken) {
  EXPECT_EQ(Refused(With("\"WORKS\"}]", "\"HQ\"}]")),
            "office.json: locations[1].location: there is a location 'HQ' already");
  EXPECT_EQ(Refused(With("\"cust\": \"10\"", "\"cust\": \"1\"")),
            "office.json: customers[1].cust: there is a customer 1 already");
  EXPECT_EQ(Refused(With("012-0-20-00", "001-0-20-01&&001-0-20-04")),
            "office.json: trunkLines[1].tru: there already: 001-0-20-01&&001-0-20-02");
  EXPECT_EQ(Refused(With("10&12", "2&10&3")), "office.json: routes[1]: there already: 2&&3");
}

// --- Bounds.

std::string List(const std::string& item, int count) {
  std::string list = "[" + item;
  for (int i = 1; i < count; ++i) list += ", " + item;
  return list + "]";
}

TEST(PlantReader, ListsHaveAnEnd) {
  const auto refused = [](const std::string& list, const std::string& items) {
    return WrongWithPiece("{\"" + list + "\": " + items + "}");
  };
  EXPECT_THAT(refused("locations", List("1", 999)),
              ElementsAre("locations: these would be 1001; an exchange has at most 1000"));
  EXPECT_THAT(refused("lims", List("1", 998)), ElementsAre("lims: these would be 1000; an exchange has at most 999"));
  EXPECT_THAT(refused("boards", List("1", 19999)),
              ElementsAre("boards: these would be 20001; an exchange has at most 20000"));
  EXPECT_THAT(refused("customers", List("1", 9999)),
              ElementsAre("customers: these would be 10001; an exchange has at most 10000"));
  EXPECT_THAT(refused("trunkLines", R"([{"lim": 1, "tru": "1-00000&&1-49996"}])"),
              ElementsAre("trunkLines[0].tru: these would be 50001; an exchange has at most 50000"));
  EXPECT_THAT(refused("routes", R"(["10000&&19995"])"),
              ElementsAre("routes[0]: these would be 10001; an exchange has at most 10000"));
  EXPECT_THAT(refused("routes", R"(["10000&&19994"])"), ElementsAre());
  EXPECT_THAT(refused("categories", "1001"), ElementsAre("categories: 1001 is not between 3 and 1000"));
  EXPECT_THAT(refused("categories", "1000"), ElementsAre());
}

TEST(PlantReader, TextsHoldWhatAFormAndALineCan) {
  const auto location = [](const std::string& text) {
    return WrongWithPiece(R"({"locations": [{"location": ")" + text + R"("}]})");
  };
  EXPECT_THAT(location("Mill, gate 2; \\\"north\\\""), ElementsAre());
  EXPECT_THAT(location("M\xC3\xBChle"), ElementsAre());
  EXPECT_THAT(location(""), ElementsAre("locations[0].location: a text is wanted that is not empty"));
  EXPECT_THAT(location("St. John's"), ElementsAre("locations[0].location: the character ' is not possible here"));
  EXPECT_THAT(location("A&B"), ElementsAre("locations[0].location: the character & is not possible here"));
  EXPECT_THAT(location("A\\nB"), ElementsAre("locations[0].location: a text must not hold control characters"));
  EXPECT_THAT(location(" A"), ElementsAre("locations[0].location: the text must not begin or end with a blank"));
  EXPECT_THAT(location(std::string(40, 'x')), ElementsAre());
  EXPECT_THAT(location(std::string(41, 'x')),
              ElementsAre("locations[0].location: a text of at most 40 characters is wanted, not of 41"));

  EXPECT_THAT(WrongWithPiece(R"({"customers": [{"cust": "1,2"}, {"cust": "1 2"}, {"cust": ""}]})"),
              ElementsAre("customers[0].cust: the character , is not possible here",
                          "customers[1].cust: a blank is not possible here",
                          "customers[2].cust: a text is wanted that is not empty"));
  EXPECT_THAT(WrongWithPiece(R"({"trunkLines": [{"lim": 1, "tru": "1;2"}], "routes": ["12345678901234567"]})"),
              ElementsAre("trunkLines[0].tru: the character ; is not possible here",
                          "routes[0]: a text of at most 16 characters is wanted, not of 17"));

  const auto description = [](const std::string& text) {
    return WrongWithPiece(R"({"locations": [{"location": "X", "description": ")" + text + R"("}]})");
  };
  EXPECT_THAT(description("St. John's & more, "), ElementsAre());
  EXPECT_THAT(description("A\\tB"), ElementsAre("locations[0].description: a text must not hold control characters"));
  EXPECT_THAT(description(std::string(201, 'x')),
              ElementsAre("locations[0].description: a text of at most 200 characters is wanted, not of 201"));
}

// --- All at once.

TEST(PlantReader, TellsAllThatIsWrong) {
  EXPECT_THAT(
      WrongWithPiece(R"({
    "nam": "x",
    "locations": [7, {"location": "MILL", "descripton": "a", "descriptio": "b"}],
    "lims": [{"lim": 2, "location": 7}, {"lim": 0}],
    "boards": [{"lim": 1, "magazine": 10, "slot": "1", "type": "1x"}, {"magazine": 0, "slot": 3}],
    "customers": {},
    "trunkLines": [{"lim": 1, "tru": "&"}, {"lim": 1, "tru": 3}],
    "routes": [1, "1"],
    "categories": 2})"),
      ElementsAre("locations[0]: an object is wanted, not a number",
                  "locations[1]: unknown key \"descripton\". Did you mean description?",
                  "locations[1]: unknown key \"descriptio\". Did you mean description?",
                  "lims[0].location: a text is wanted, not a number", "lims[1].lim: 0 is not between 1 and 999",
                  "lims[1]: the key \"location\" is missing", "boards[0].magazine: 10 is not between 0 and 9",
                  "boards[0].slot: a whole number is wanted, not a text",
                  StartsWith("boards[0].type: there is no board type '1x'. Possible: 2, 27, "),
                  "boards[1]: the key \"lim\" is missing", "boards[1]: the key \"type\" is missing",
                  "customers: a list is wanted, not an object", "trunkLines[0].tru: a value is missing beside an &",
                  "trunkLines[1].tru: a text is wanted, not a number", "routes[0]: a text is wanted, not a number",
                  "routes[1]: there already: 1", "categories: 2 is not between 3 and 1000",
                  "unknown key \"nam\". Did you mean name?"));
}

TEST(PlantReader, AMistakeInALimIsNotToldAgainOfWhatStandsInIt) {
  EXPECT_THAT(WrongWithPiece(R"({"locations": [{"locatio": "MILL"}], "lims": [{"lim": "2", "location": "MILL"}],
                                 "boards": [{"lim": 2, "magazine": 0, "slot": 1, "type": "31"}]})"),
              ElementsAre("locations[0]: the key \"location\" is missing",
                          "locations[0]: unknown key \"locatio\". Did you mean location?",
                          "lims[0].lim: a whole number is wanted, not a text"));
}

// --- Pieces.

TEST(PlantReader, APieceFitsIntoWhatStandsThere) {
  EXPECT_THAT(WrongWithPiece(R"({"boards": [{"lim": 12, "magazine": 0, "slot": 10, "type": "31"}]})"), ElementsAre());
  EXPECT_THAT(
      WrongWithPiece(R"({"locations": [{"location": "HQ"}], "lims": [{"lim": 12, "location": "WORKS"}]})"),
      ElementsAre("locations[0].location: there is a location 'HQ' already", "lims[0].lim: there is a LIM 12 already"));
  EXPECT_THAT(WrongWithPiece(R"({"boards": [{"lim": 2, "magazine": 1, "slot": 10, "type": "31"},
                                            {"lim": 12, "magazine": 1, "slot": 10, "type": "31"}]})"),
              ElementsAre("boards[0].lim: there is no LIM 2", "boards[1].slot: there is a board in 012-1-10 already"));
  EXPECT_THAT(WrongWithPiece(R"({"trunkLines": [{"lim": 1, "tru": "012-0-20-00"}], "customers": [{"cust": "1"}],
                                 "routes": ["4", "3"]})"),
              ElementsAre("customers[0].cust: there is a customer 1 already",
                          "trunkLines[0].tru: there already: 012-0-20-00", "routes[1]: there already: 3"));
}

TEST(PlantReader, APieceRefersToThoseBeforeIt) {
  const PlantText lim{"lim.json", R"({"lims": [{"lim": 2, "location": "HQ"}]})"};
  const PlantText board{"board.json", R"({"boards": [{"lim": 2, "magazine": 0, "slot": 1, "type": "31"}]})"};
  const Plant standing = ParsePlant(small, "small");
  const Plant read = ReadPieces({lim, board}, standing);
  EXPECT_EQ(read.lims.size(), 1u);
  EXPECT_EQ(read.boards.size(), 1u);
  EXPECT_EQ(read.Positions(), 16);
  EXPECT_EQ(read.categories, 0);
  EXPECT_EQ(Refusal<PlantError>([&] {
              ReadPieces({board, lim, board}, standing);
            }),
            "board.json: boards[0].lim: there is no LIM 2");
}

}  // namespace
}  // namespace cordboard::workbench
