// cordboard new: makes an exchange from a plant description.

#include <algorithm>
#include <nlohmann/json.hpp>

#include "cli/Output.h"
#include "cli/Subcommands.h"
#include "workbench/exchange/Exchange.h"
#include "workbench/exchange/Plant.h"
#include "workbench/text/Counted.h"
#include "workbench/text/Nearest.h"

namespace cordboard::cli {

int New(const NewOptions& options) {
  const std::vector<std::string> builtIn = workbench::PlantNames();
  if (std::ranges::find(builtIn, options.plant) == builtIn.end() && !std::filesystem::exists(options.plant))
    throw Exit{NotFound, "there is no plant file '" + options.plant + "', and no built-in plant of that name." +
                             workbench::DidYouMean(options.plant, builtIn)};
  const workbench::Plant plant = workbench::ReadPlant(options.plant);
  try {
    workbench::Exchange::Create(options.file, options.release, plant);
  } catch (const workbench::ExistsAlready& error) {
    throw Exit{Refused, error.what()};
  }
  const std::size_t positions = plant.Positions();
  if (options.json) {
    PrintJson({{"file", options.file},
               {"release", options.release},
               {"plant", plant.name},
               {"boards", plant.boards.size()},
               {"positions", positions}});
  } else {
    Note("made", options.file + ": release " + options.release + ", plant " + plant.name + ", " +
                     workbench::Counted(plant.boards.size(), "board") + " with " +
                     workbench::Counted(positions, "position"));
  }
  return Done;
}

}  // namespace cordboard::cli
