#include "workbench/data/DataFile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

#include "script/TracingHost.h"
#include "workbench/support/TemporaryFolder.h"

namespace cordboard::workbench {
namespace {

using testing::ElementsAre;
using testing::StartsWith;

DataItem Read(const std::string& text) { return ReadData(text, "a.json"); }

template <typename Use>
std::string Refused(const std::string& text, Use use) {
  return Refusal<DataError>([&] { use(Read(text)); });
}

std::string RefusedObject(const std::string& text, const std::function<void(Fields&)>& read) {
  return Refused(text, [&](const DataItem& item) { item.Object(read); });
}

TEST(DataFile, GivesWhatStandsThere) {
  Read(R"({"name": "EQU", "several": true, "width": 2, "in": ["R7", "R8"], "sets": [[1], [2, 3]]})")
      .Object([](Fields& fields) {
        EXPECT_EQ(fields.Get<std::string>("name"), "EQU");
        EXPECT_TRUE(fields.Get("several", false));
        EXPECT_FALSE(fields.Get("range", false));
        EXPECT_EQ(fields.Get("width", 1), 2);
        EXPECT_THAT(fields.Get<std::vector<std::string>>("in"), ElementsAre("R7", "R8"));
        EXPECT_THAT(fields.Get<std::vector<std::vector<int>>>("sets"), ElementsAre(ElementsAre(1), ElementsAre(2, 3)));
        EXPECT_TRUE(fields.Has("name"));
        EXPECT_FALSE(fields.Has("pool"));
      });
}

TEST(DataFile, EntriesStandInTheOrderOfTheFile) {
  std::vector<std::string> names;
  for (const auto& [name, item] : Read(R"({"B": "2", "A": "1"})").Entries()) names.push_back(name + item.Text());
  EXPECT_THAT(names, ElementsAre("B2", "A1"));
}

TEST(DataFile, CellsAreTakenAsTheyStand) {
  std::string cells;
  for (const DataItem& cell : Read(R"(["1", 1, true, null])").List()) cells += TraceText(cell.Cell()) + " ";
  EXPECT_EQ(cells, "\"1\" 1 True Null ");
}

TEST(DataFile, AListSaysHowManyItemsItHas) {
  EXPECT_EQ(Read("[]").List().size(), 0u);
  EXPECT_EQ(Read(R"([["1", "2"], {"a": ["3"]}, 4])").List().size(), 3u);
}

TEST(DataFile, AnObjectGivesWhatIsReadFromIt) {
  EXPECT_EQ(Read(R"({"a": 7})").Object([](Fields& fields) { return fields.Get<int>("a"); }), 7);
}

// --- What is refused: always the file, the place and the key.

TEST(DataFile, AnUnknownKeyIsRefusedWithTheNearestOne) {
  const auto read = [](Fields& fields) {
    fields.Get<std::string>("name");
    fields.Get("list", false);
  };
  EXPECT_EQ(RefusedObject(R"({"name": "A", "lst": true})", read), "a.json: unknown key \"lst\". Did you mean list?");
  EXPECT_EQ(RefusedObject(R"({"name": "A", "colour": true})", read), "a.json: unknown key \"colour\".");
}

TEST(DataFile, AMissingKeyIsRefused) {
  EXPECT_EQ(RefusedObject(R"({"nme": "A"})", [](Fields& fields) { fields.Get<std::string>("name"); }),
            "a.json: the key \"name\" is missing");
}

TEST(DataFile, AKeyThatStandsTwiceInOneObjectIsRefused) {
  EXPECT_EQ(Refused(R"({"a": {"b": 1}, "c": {"b": 1, "b": 2}})", [](const DataItem&) {}),
            "a.json: the key \"b\" stands there twice in one object");
}

TEST(DataFile, AValueOfAnotherKindIsRefused) {
  EXPECT_EQ(Refused("7", [](const DataItem& item) { item.Text(); }), "a.json: a text is wanted, not a number");
  EXPECT_EQ(Refused("\"yes\"", [](const DataItem& item) { item.Truth(); }),
            "a.json: a truth value is wanted, not a text");
  EXPECT_EQ(Refused("null", [](const DataItem& item) { item.Whole(); }), "a.json: a whole number is wanted, not null");
  EXPECT_EQ(Refused("1.5", [](const DataItem& item) { item.Whole(); }), "a.json: a whole number is wanted, not 1.5");
  EXPECT_EQ(Refused("3000000000", [](const DataItem& item) { item.Whole(); }),
            "a.json: a whole number is wanted, not 3000000000");
  EXPECT_EQ(Refused("{}", [](const DataItem& item) { item.List(); }), "a.json: a list is wanted, not an object");
  EXPECT_EQ(Refused("[]", [](const DataItem& item) { item.Entries(); }), "a.json: an object is wanted, not a list");
  EXPECT_EQ(RefusedObject("true", [](Fields&) {}), "a.json: an object is wanted, not a truth value");
  EXPECT_EQ(Refused("[[]]", [](const DataItem& item) { (*item.List().begin()).Cell(); }),
            "a.json: [0]: a text is wanted, not a list");
}

TEST(DataFile, ThePlaceIsNamedAllTheWayDown) {
  EXPECT_EQ(RefusedObject(R"({"parameters": [{}, {"name": "EQU", "pool": {"table": 1}}]})",
                          [](Fields& form) {
                            (*++form.At("parameters").List().begin()).Object([](Fields& parameter) {
                              parameter.Get<std::string>("name");
                              parameter.At("pool").Object([](Fields& pool) { pool.Get<std::string>("table"); });
                            });
                          }),
            "a.json: parameters[1] (EQU).pool.table: a text is wanted, not a number");
}

TEST(DataFile, WhatIsNoJsonIsRefusedWithItsLine) {
  EXPECT_THAT(Refused("{\n\"a\" 1}", [](const DataItem&) {}), StartsWith("a.json: parse error at line 2, column 5: "));
  EXPECT_THAT(Refused("", [](const DataItem&) {}), StartsWith("a.json: parse error at line 1, column 1: "));
  EXPECT_EQ(Refused("\xFF", [](const DataItem&) {}), "a.json: this is not UTF-8 text");
}

}  // namespace
}  // namespace cordboard::workbench
