#include "workbench/plans/Export.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "workbench/exchange/Plant.h"
#include "workbench/exchange/PlantTables.h"
#include "workbench/text/Counted.h"
#include "workbench/text/Escaped.h"
#include "workbench/text/Separated.h"

namespace cordboard::workbench {

namespace {

bool IsBuiltIn(const Plant& plant) {
  const std::vector<std::string> names = PlantNames();
  return std::ranges::find(names, plant.name) != names.end() && JsonOf(ReadPlant(plant.name)) == JsonOf(plant);
}

std::string Header(const std::string& release, const Plant& plant) {
  const bool builtIn = IsBuiltIn(plant);
  std::string text =
      "# An exchange of the plant " + Escaped(plant.name) + ", release " + release + ". It is made again by\n";
  if (!builtIn) text += "#   cordboard plant OLD.cbx --json > plant.json\n";
  return text + "#   cordboard new NEW.cbx --release " + release + " --plant " + (builtIn ? plant.name : "plant.json") +
         " && cordboard apply NEW.cbx THIS.plan\n";
}

std::string Untold(const ExportedPlan& exported) {
  const auto& untold = exported.plan.untold;
  std::string text;
  if (!untold.empty())
    text += "\n# Not in this plan: " + Counted(untold.size(), "record") + " that no line makes again.\n";
  for (const UntoldRecord& record : untold)
    text += "# " + Escaped(record.text) + "\n#   " + Escaped(record.reason) + "\n";
  const auto written = [](const TableDifference& each) { return each.table + " (" + Counted(each.rows, "row") + ")"; };
  if (!exported.different.empty())
    text += "\n# In an exchange that is made from this plan these tables differ: " +
            Separated(exported.different, ", ", written) + "\n";
  return text;
}

}  // namespace

ExportedPlan ExportPlan(Exchange& exchange, const std::string& oneALine) {
  const Plant plant = PlantOf(exchange);
  const auto scratch = Exchange::CreateInMemory(exchange.release(), plant);
  ExportedPlan exported{
      .header = Header(exchange.release(), plant), .plan = TurnInto(*scratch, exchange, oneALine), .different = {}};
  exported.different = DifferentTables(exchange, *scratch);
  return exported;
}

std::string Written(const ExportedPlan& plan) { return plan.header + Written(plan.plan.lines) + Untold(plan); }

}  // namespace cordboard::workbench
