// cordboard plants: the plants that the program carries.

#include <iostream>
#include <nlohmann/json.hpp>

#include "cli/Output.h"
#include "cli/Subcommands.h"
#include "workbench/data/Resources.h"
#include "workbench/exchange/Plant.h"
#include "workbench/text/Nearest.h"

namespace cordboard::cli {

namespace {

int PrintPlant(const PlantsOptions& options) {
  const auto found = workbench::Resources().find("plants/" + options.name + ".json");
  if (found == workbench::Resources().end())
    throw Exit{NotFound, "there is no built-in plant '" + options.name + "'." +
                             workbench::DidYouMean(options.name, workbench::PlantNames())};
  if (options.json) {
    PrintJson(nlohmann::json::parse(found->second));
  } else {
    std::cout << found->second;
  }
  return Done;
}

}  // namespace

int Plants(const PlantsOptions& options) {
  if (!options.name.empty()) return PrintPlant(options);
  nlohmann::json data = nlohmann::json::array();
  std::vector<std::vector<std::string>> rows;
  for (const std::string& name : workbench::PlantNames()) {
    nlohmann::json& told = data.emplace_back(nlohmann::json{{"name", name}});
    std::vector<std::string>& row = rows.emplace_back(1, name);
    for (const auto& [what, count] : Counts(workbench::ReadPlant(name))) {
      told[what] = count;
      row.push_back(std::to_string(count));
    }
  }
  if (options.json) {
    PrintJson({{"plants", data}});
  } else {
    PrintTable({"NAME", "LOCATIONS", "LIMS", "BOARDS", "POSITIONS", "CUSTOMERS", "TRUNK LINES", "ROUTES", "CATEGORIES"},
               rows);
  }
  return Done;
}

}  // namespace cordboard::cli
