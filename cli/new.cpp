// cordboard new: makes an exchange from a plant description.

#include <algorithm>

#include "cli/Output.h"
#include "cli/Subcommands.h"
#include "workbench/exchange/Exchange.h"
#include "workbench/exchange/Plant.h"
#include "workbench/text/Nearest.h"

namespace cordboard::cli {

namespace {

struct Options {
  std::string file;
  std::string release;
  std::string plant = "example";
};

void New(const Options& options) {
  if (std::filesystem::exists(options.file))
    throw Exit{Refused, options.file + " exists already; choose another name or remove it"};
  const std::vector<std::string> builtIn = workbench::PlantNames();
  if (std::ranges::find(builtIn, options.plant) == builtIn.end() && !std::filesystem::exists(options.plant))
    throw Exit{NotFound, "there is no plant file '" + options.plant + "', and no built-in plant of that name." +
                             workbench::DidYouMean(options.plant, builtIn)};
  const workbench::Plant plant = workbench::ReadPlant(options.plant);
  workbench::Exchange::Create(options.file, options.release, plant);
  std::size_t positions = 0;
  for (const auto& board : plant.boards) positions += static_cast<std::size_t>(board.positions);
  Note("made", options.file + ": release " + options.release + ", plant " + plant.name + ", " +
                   std::to_string(plant.boards.size()) + " boards with " + std::to_string(positions) + " positions");
}

}  // namespace

void AddNew(CLI::App& app, int&) {
  auto options = std::make_shared<Options>();
  CLI::App* sub = app.add_subcommand("new", "Make an exchange file from a plant description");
  sub->add_option("FILE", options->file, "the exchange file to make, such as office.cbx")->required();
  sub->add_option("--release", options->release, "the release of the exchange")
      ->required()
      ->check(CLI::IsMember(workbench::Releases()));
  sub->add_option("--plant", options->plant, "a built-in plant or a plant file: places, LIMs, boards, lines, customers")
      ->capture_default_str();
  sub->callback([options] { New(*options); });
}

}  // namespace cordboard::cli
