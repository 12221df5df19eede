#include "workbench/exchange/Plant.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>

#include "workbench/data/DataFile.h"
#include "workbench/data/Resources.h"
#include "workbench/exchange/PlantReader.h"
#include "workbench/text/Elements.h"
#include "workbench/text/Separated.h"

namespace cordboard::workbench {

namespace {

// Enough for the largest plant, and little for a computer: a file that does not end is not read until there is no
// memory left.
constexpr std::size_t longestFile = 8'000'000;

std::string InOneText(const std::vector<PlantProblem>& problems) {
  return Separated(problems, "\n", [](const PlantProblem& problem) {
    return (problem.file.empty() ? "" : problem.file + ": ") + problem.message;
  });
}

nlohmann::json WithDescription(nlohmann::json object, const std::string& description) {
  if (!description.empty()) object["description"] = description;
  return object;
}

}  // namespace

PlantError::PlantError(std::vector<PlantProblem> problems)
    : std::runtime_error(InOneText(problems)), problems_(std::move(problems)) {}

std::string Plant::Board::Position() const {
  char text[48];
  std::snprintf(text, sizeof text, "%03d-%d-%02d", lim, magazine, slot);
  return text;
}

int Plant::Positions() const {
  int positions = 0;
  for (const Board& board : boards) positions += board.type.positions;
  return positions;
}

const std::map<std::string, Plant::BoardType>& BoardTypes() {
  static const auto types = [] {
    std::map<std::string, Plant::BoardType> read;
    for (const auto& [type, item] : ReadResource("board-types.json").Entries())
      read[type] = item.Object([](Fields& fields) {
        return Plant::BoardType{fields.Get<std::string>("title"), fields.Get<int>("positions"), fields.Get("first", 0),
                                fields.Get("digits", 2)};
      });
    return read;
  }();
  return types;
}

// --- Where plants come from.

std::vector<std::string> PlantNames() {
  std::vector<std::string> names;
  for (const std::string_view path : ResourcesIn("plants/"))
    names.push_back(std::filesystem::path(path).stem().string());
  return names;
}

PlantText ReadPlantFile(const std::string& file) {
  std::ifstream in(file, std::ios::binary);
  std::string text(longestFile + 1, '\0');
  in.read(text.data(), static_cast<std::streamsize>(text.size()));
  text.resize(static_cast<std::size_t>(in.gcount()));
  if (text.empty()) throw PlantError({{"", "the plant file '" + file + "' is empty or cannot be read"}});
  if (text.size() > longestFile) throw PlantError({{"", "the plant file '" + file + "' is longer than 8 megabytes"}});
  return {file, text};
}

Plant ReadPlant(const std::string& nameOrFile) {
  const auto builtIn = Resources().find("plants/" + nameOrFile + ".json");
  if (builtIn != Resources().end()) return ParsePlant(builtIn->second, nameOrFile);
  if (!std::filesystem::exists(nameOrFile))
    throw PlantError(
        {{"", "there is no plant file '" + nameOrFile +
                  "', and no built-in plant of that name (there are: " + Separated(PlantNames(), ", ") + ")"}});
  const PlantText text = ReadPlantFile(nameOrFile);
  return ParsePlant(text.json, text.source);
}

Plant ParsePlant(std::string_view json, const std::string& source) {
  return ReadPieces({{source, std::string(json)}}, Plant{});
}

// --- A plant as it is counted and written.

std::vector<std::pair<std::string, std::size_t>> Counts(const Plant& plant) {
  return {{"locations", plant.locations.size()}, {"lims", plant.lims.size()},
          {"boards", plant.boards.size()},       {"positions", static_cast<std::size_t>(plant.Positions())},
          {"customers", plant.customers.size()}, {"trunkLines", plant.trunkLines.size()},
          {"routes", plant.routes.size()},       {"categories", static_cast<std::size_t>(plant.categories)}};
}

nlohmann::json JsonOf(const Plant& plant) {
  nlohmann::json json;
  if (!plant.name.empty()) json["name"] = plant.name;
  if (plant.categories > 0) json["categories"] = plant.categories;
  for (const char* list : {"locations", "lims", "boards", "customers", "trunkLines"})
    json[list] = nlohmann::json::array();
  for (const auto& [name, description] : plant.locations)
    json["locations"].push_back(WithDescription({{"location", name}}, description));
  for (const auto& [number, location, description] : plant.lims)
    json["lims"].push_back(WithDescription({{"lim", number}, {"location", location}}, description));
  for (const auto& board : plant.boards)
    json["boards"].push_back(
        {{"lim", board.lim}, {"magazine", board.magazine}, {"slot", board.slot}, {"type", board.boardId}});
  for (const auto& [number, description] : plant.customers)
    json["customers"].push_back(WithDescription({{"cust", number}}, description));
  // Lines of one LIM that stand together are one entry.
  for (std::size_t i = 0; i < plant.trunkLines.size();) {
    const int lim = plant.trunkLines[i].first;
    std::vector<std::string> lines;
    for (; i < plant.trunkLines.size() && plant.trunkLines[i].first == lim; ++i)
      lines.push_back(plant.trunkLines[i].second);
    json["trunkLines"].push_back({{"lim", lim}, {"tru", Separated(AsRanges(lines), "&")}});
  }
  json["routes"] = AsRanges(plant.routes);
  return json;
}

}  // namespace cordboard::workbench
