#include "workbench/exchange/FixedValues.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <set>

#include "workbench/data/Resources.h"
#include "workbench/forms/FormDefinition.h"
#include "workbench/support/TestExchange.h"
#include "workbench/text/Elements.h"

namespace cordboard::workbench {
namespace {

using nlohmann::json;

// Every file of fixed values with its content.
std::vector<std::pair<std::string, json>> Files() {
  std::vector<std::pair<std::string, json>> files;
  for (const std::string_view path : ResourcesIn("values/")) files.emplace_back(path, json::parse(Resource(path)));
  return files;
}

TEST(FixedValues, AListStandsInTheOrderOfItsFile) {
  const auto exchange = ExampleExchange();
  EXPECT_EQ(Rows(*exchange,
                 "SELECT Value, ValDesc, DefinitionNo FROM ParamValueDesc WHERE Command = 'NANSI' AND Param = 'NUMTYP' "
                 "ORDER BY rowid LIMIT 2",
                 "static"),
            R"([["AC", "AI"], ["Abbreviated number codes", "Access digit to an operator or a service, one digit"], )"
            R"([1, 1]])");
}

std::vector<std::string> CommandsOf(const json& file) {
  if (file.contains("command")) return {file.at("command")};
  return file.at("commands").get<std::vector<std::string>>();
}

// How many values the list holds, ranges taken apart.
std::size_t CountOf(const json& values) {
  std::size_t count = 0;
  for (const json& entry : values) {
    const std::string typed = entry.at(0);
    count += HoldsRange(typed) ? Elements(typed).size() : 1;
  }
  return count;
}

TEST(FixedValues, EveryListIsEnteredForItsReleasesAlone) {
  for (const std::string& release : Releases()) {
    const auto exchange = ExampleExchange(release);
    std::size_t expected = 0;
    for (const auto& [path, file] : Files()) {
      if (file.contains("table")) continue;
      for (const auto& [parameter, lists] : file.at("parameters").items()) {
        for (const json& list : lists) {
          const json releases = list.value("releases", json(Releases()));
          if (std::find(releases.begin(), releases.end(), json(release)) != releases.end())
            expected += CountOf(list.at("values")) * CommandsOf(file).size() *
                        list.value("definitions", json::array({1})).size();
        }
      }
    }
    EXPECT_EQ(exchange->Database("static")->Single("SELECT COUNT(*) FROM ParamValueDesc"), Value(expected)) << release;
  }
}

TEST(FixedValues, EveryRowOfATableIsEntered) {
  const auto exchange = ExampleExchange();
  for (const auto& [path, file] : Files()) {
    if (!file.contains("table")) continue;
    for (const json& row : file.at("rows")) EXPECT_EQ(row.size(), file.at("columns").size()) << path << row;
    const std::string table = file.at("table");
    EXPECT_EQ(exchange->Database("static")->Single("SELECT COUNT(*) FROM [" + table + "]"),
              Value(file.at("rows").size()))
        << path;
  }
}

TEST(FixedValues, ReleasesAreNamedAsTheyAre) {
  for (const auto& [path, file] : Files()) {
    if (file.contains("table")) continue;
    for (const auto& [parameter, lists] : file.at("parameters").items()) {
      for (const json& list : lists) {
        for (const std::string release : list.value("releases", json::array()))
          EXPECT_NE(std::ranges::find(Releases(), release), Releases().end()) << path << " " << parameter;
      }
    }
  }
}

TEST(FixedValues, AFileOfOneCommandIsNamedAfterIt) {
  for (const auto& [path, file] : Files()) {
    if (!file.contains("command")) continue;
    EXPECT_EQ(path, "values/" + file.at("command").get<std::string>() + ".json");
  }
}

TEST(FixedValues, AFileHoldsParametersOfTheFormsOfItsCommands) {
  for (const auto& [path, file] : Files()) {
    if (file.contains("table")) continue;
    for (const auto& [parameter, lists] : file.at("parameters").items()) {
      const std::vector<std::string> commands = CommandsOf(file);
      EXPECT_TRUE(std::ranges::any_of(commands,
                                      [&name = parameter](const std::string& command) {
                                        const FormDefinition* form = FindForm(command);
                                        return form != nullptr && form->Find(name) != nullptr;
                                      }))
          << path << " " << parameter;
    }
  }
}

TEST(FixedValues, NoListHoldsAValueTwiceOrABlankOne) {
  for (const auto& [path, file] : Files()) {
    if (file.contains("table")) continue;
    for (const auto& [parameter, lists] : file.at("parameters").items()) {
      for (const json& list : lists) {
        std::set<std::string> values;
        for (const json& entry : list.at("values")) {
          EXPECT_TRUE(values.insert(entry.at(0)).second) << path << " " << parameter << " " << entry;
          EXPECT_NE(entry.at(0), "") << path << " " << parameter;
        }
      }
    }
  }
}

}  // namespace
}  // namespace cordboard::workbench
