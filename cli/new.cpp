// cordboard new: makes an exchange from a plant description.

#include <algorithm>

#include "cli/Output.h"
#include "cli/Subcommands.h"
#include "workbench/exchange/Exchange.h"
#include "workbench/exchange/Plant.h"
#include "workbench/text/Nearest.h"

namespace cordboard::cli {

int New(const NewOptions& options) {
  if (std::filesystem::exists(options.file))
    throw Exit{Refused, options.file + " exists already; choose another name or remove it"};
  const std::vector<std::string> builtIn = workbench::PlantNames();
  if (std::ranges::find(builtIn, options.plant) == builtIn.end() && !std::filesystem::exists(options.plant))
    throw Exit{NotFound, "there is no plant file '" + options.plant + "', and no built-in plant of that name." +
                             workbench::DidYouMean(options.plant, builtIn)};
  const workbench::Plant plant = workbench::ReadPlant(options.plant);
  workbench::Exchange::Create(options.file, options.release, plant);
  Note("made", options.file + ": release " + options.release + ", plant " + plant.name + ", " +
                   std::to_string(plant.boards.size()) + " boards with " + std::to_string(plant.Positions()) +
                   " positions");
  return Done;
}

}  // namespace cordboard::cli
