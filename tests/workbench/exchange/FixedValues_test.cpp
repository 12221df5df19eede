#include "workbench/exchange/FixedValues.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <tuple>

#include "workbench/data/DataFile.h"
#include "workbench/data/Resources.h"
#include "workbench/exchange/Exchange.h"
#include "workbench/forms/FormDefinition.h"
#include "workbench/support/TemporaryFolder.h"

namespace cordboard::workbench {
namespace {

using testing::ElementsAre;
using testing::Pair;

FixedValues Read(const std::string& json) {
  FixedValues values;
  ReadFixedValues(ReadData(json, "values/A.json"), values);
  return values;
}

std::string Refused(const std::string& json) {
  return Refusal<DataError>([&] { Read(json); });
}

std::string RefusedList(const std::string& list) {
  return Refused(R"({"commands": ["A"], "lists": [{"parameters": ["P"], )" + list + "}]}");
}

// --- Reading.

TEST(FixedValues, ParametersAndCommandsShareAList) {
  const FixedValues values = Read(R"({"commands": ["A", "B"], "lists": [
      {"parameters": ["P", "Q"], "values": {"1": "One", "0": "None"}},
      {"parameters": ["P"], "releases": ["R7"], "definitions": [2, 3], "values": {"2": "Two"}}]})");
  ASSERT_EQ(values.lists.size(), 2u);
  EXPECT_THAT(values.lists[0].commands, ElementsAre("A", "B"));
  EXPECT_THAT(values.lists[0].parameters, ElementsAre("P", "Q"));
  EXPECT_EQ(values.lists[0].releases, Releases());
  EXPECT_THAT(values.lists[0].definitions, ElementsAre(1));
  EXPECT_THAT(values.lists[0].values, ElementsAre(Pair("1", "One"), Pair("0", "None"))) << "in the order of the file";
  EXPECT_THAT(values.lists[1].releases, ElementsAre("R7"));
  EXPECT_THAT(values.lists[1].definitions, ElementsAre(2, 3));
}

TEST(FixedValues, ARangeStandsForItsValuesAndThePercentSignForEach) {
  const FixedValues values =
      Read(R"({"commands": ["A"], "lists": [{"parameters": ["P"], "values": {"09&&10": "Group % of these",
               "0&&1": "%", "A1&&A2": "Key %", "50": "50 %"}}]})");
  EXPECT_THAT(values.lists.at(0).values,
              ElementsAre(Pair("09", "Group 9 of these"), Pair("10", "Group 10 of these"), Pair("0", "0"),
                          Pair("1", "1"), Pair("A1", "Key A1"), Pair("A2", "Key A2"), Pair("50", "50 %")));
}

TEST(FixedValues, MistakesAreRefusedWithTheirPlace) {
  EXPECT_EQ(Refused(R"({"command": "A", "lists": []})"), "values/A.json: the key \"commands\" is missing");
  EXPECT_EQ(Refused(R"({"commands": ["A"], "lists": [], "list": []})"),
            "values/A.json: unknown key \"list\". Did you mean lists?");
  EXPECT_EQ(RefusedList(R"("value": {})"), "values/A.json: lists[0]: the key \"values\" is missing");
  EXPECT_EQ(RefusedList(R"("values": {}, "release": ["R6"])"),
            "values/A.json: lists[0]: unknown key \"release\". Did you mean releases?");
  EXPECT_EQ(RefusedList(R"("values": {"1": 1})"), "values/A.json: lists[0].values.1: a text is wanted, not a number");
  EXPECT_EQ(RefusedList(R"("values": {"": "None"})"), "values/A.json: lists[0].values.\"\": a value is not blank");
  EXPECT_EQ(RefusedList(R"("values": {"9&&10": "%"})"),
            "values/A.json: lists[0].values.9&&10: the range 9&&10 has ends of different length");
  EXPECT_EQ(RefusedList(R"("releases": ["R7", "R9"], "values": {})"),
            "values/A.json: lists[0].releases[1]: there is no release R9");
  EXPECT_EQ(Refused(R"({"table": "T", "columns": ["A", "B"], "rows": [["1", "2"], ["1"]]})"),
            "values/A.json: rows[1]: the row has 1 cells, and there are 2 columns");
}

// --- The files that are shipped.

TEST(FixedValues, AFileOfOneCommandIsNamedAfterIt) {
  for (const std::string_view path : ResourcesIn("values/")) {
    FixedValues values;
    ReadFixedValues(ReadResource(path), values);
    if (values.lists.empty() || values.lists[0].commands.size() > 1) continue;
    EXPECT_EQ(path, "values/" + values.lists[0].commands[0] + ".json");
  }
}

TEST(FixedValues, AListHoldsForAParameterOfAFormOfItsCommands) {
  for (const FixedList& list : AllFixedValues().lists) {
    for (const std::string& parameter : list.parameters)
      EXPECT_TRUE(std::ranges::any_of(list.commands, [&](const std::string& command) {
        const FormDefinition* form = FindForm(command);
        return form != nullptr && form->Find(parameter) != nullptr;
      })) << parameter;
  }
}

TEST(FixedValues, NoParameterHasAValueTwice) {
  std::set<std::tuple<std::string, std::string, std::string, int, std::string>> seen;
  for (const FixedList& list : AllFixedValues().lists) {
    for (const std::string& command : list.commands) {
      for (const std::string& parameter : list.parameters) {
        for (const std::string& release : list.releases) {
          for (const int definition : list.definitions) {
            for (const auto& [value, description] : list.values)
              EXPECT_TRUE(seen.emplace(command, parameter, release, definition, value).second)
                  << command << " " << parameter << "=" << value << " in " << release;
          }
        }
      }
    }
  }
}

}  // namespace
}  // namespace cordboard::workbench
