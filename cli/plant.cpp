// cordboard plant: the plant of an exchange, shown or added to.

#include <iostream>
#include <map>
#include <nlohmann/json.hpp>
#include <regex>

#include "cli/AllOrNothing.h"
#include "cli/Files.h"
#include "cli/Output.h"
#include "cli/Subcommands.h"
#include "script/Conversions.h"
#include "workbench/exchange/PlantTables.h"
#include "workbench/text/Elements.h"
#include "workbench/text/Separated.h"

namespace cordboard::cli {

namespace {

using Rows = std::vector<std::vector<std::string>>;

// --- Showing.

// How many positions of each board are taken.
std::map<std::string, int> TakenPositions(workbench::Exchange& exchange) {
  const RowSet rows = exchange.Dynamic().Run(
      "SELECT [LIM], [Magazine], [Slot], COUNT(*) FROM [Equipment] WHERE [USED] GROUP BY [LIM], [Magazine], [Slot]");
  std::map<std::string, int> taken;
  for (std::size_t row = 0; row < rows.RowCount(); ++row) {
    const workbench::Plant::Board board{ToInt32(rows[0][row]), ToInt32(rows[1][row]), ToInt32(rows[2][row]), ""};
    taken[board.Position()] = ToInt32(rows[3][row]);
  }
  return taken;
}

void PrintTables(workbench::Exchange& exchange, const workbench::Plant& plant) {
  std::cout << "Plant " << plant.name << ", release " << exchange.release() << "\n\n";
  Rows rows;
  for (const auto& [name, description] : plant.locations) rows.push_back({name, description});
  PrintTable({"LOCATION", ""}, rows);
  std::cout << '\n';

  rows.clear();
  for (const auto& [number, location, description] : plant.lims)
    rows.push_back({std::to_string(number), location, description});
  PrintTable({"LIM", "LOCATION", ""}, rows);
  std::cout << '\n';

  rows.clear();
  std::map<std::string, int> taken = TakenPositions(exchange);
  for (const auto& board : plant.boards)
    rows.push_back({board.Position(), board.boardId, std::to_string(board.type.positions),
                    std::to_string(taken[board.Position()]), board.type.title});
  PrintTable({"BOARD", "TYPE", "POSITIONS", "TAKEN", ""}, rows);
  std::cout << '\n';

  rows.clear();
  for (const auto& [number, description] : plant.customers) rows.push_back({number, description});
  PrintTable({"CUSTOMER", ""}, rows);
  std::cout << '\n';

  const nlohmann::json json = JsonOf(plant);
  rows.clear();
  for (const auto& lines : json["trunkLines"]) rows.push_back({lines["lim"].dump(), lines["tru"]});
  PrintTable({"LIM", "TRUNK LINES"}, rows);
  std::cout << "\nRoutes " << workbench::Separated(workbench::AsRanges(plant.routes), "&") << "\nCategories "
            << plant.categories << '\n';
}

int ShowPlant(const PlantOptions& options) {
  const auto exchange = OpenToRead(options.file);
  const workbench::Plant plant = workbench::PlantOf(*exchange);
  if (options.json) {
    PrintJson(JsonOf(plant));
  } else {
    PrintTables(*exchange, plant);
  }
  return Done;
}

// --- Adding.

// "001-0-12=31" as a piece of a plant.
workbench::PlantText PieceWith(const std::string& board) {
  static const std::regex form(R"((\d{1,3})-(\d)-(\d{1,2})=(\w+))");
  std::smatch parts;
  if (!std::regex_match(board, parts, form))
    throw Exit{Usage, "--board " + board + ": a board is given as LIM-MAGAZINE-SLOT=TYPE, such as 001-0-12=31"};
  const nlohmann::json piece = {{"boards",
                                 {{{"lim", std::stoi(parts[1])},
                                   {"magazine", std::stoi(parts[2])},
                                   {"slot", std::stoi(parts[3])},
                                   {"type", parts[4].str()}}}}};
  return {"--board " + board, piece.dump()};
}

// "lims 1, boards 3, positions 32"
std::string Told(const std::vector<std::pair<std::string, std::size_t>>& counts) {
  std::vector<std::string> told;
  for (const auto& [what, count] : counts) {
    if (count > 0) told.push_back(what + " " + std::to_string(count));
  }
  return told.empty() ? "nothing" : workbench::Separated(told, ", ");
}

int AddPieces(const PlantOptions& options) {
  if (options.pieces.empty() && options.boards.empty())
    throw Exit{Usage, "nothing is given to add: a file with a piece of a plant, or --board"};
  std::vector<workbench::PlantText> pieces;
  for (const std::string& piece : options.pieces) {
    if (!std::filesystem::exists(piece)) throw Exit{NotFound, "there is no plant file '" + piece + "'"};
    pieces.push_back(workbench::ReadPlantFile(piece));
  }
  for (const std::string& board : options.boards) pieces.push_back(PieceWith(board));

  const auto exchange = OpenToWrite(options.file);
  try {
    const workbench::Plant added =
        AllOrNothing([&] { return workbench::AddToPlant(*exchange, pieces, options.message); });
    if (options.json) {
      PrintJson({{"added", JsonOf(added)}});
    } else {
      Note("added", options.file + ": " + Told(Counts(added)));
    }
    return Done;
  } catch (const workbench::PlantError& error) {
    Report(error);
    return Refused;
  }
}

}  // namespace

int Plant(const PlantOptions& options) { return options.add ? AddPieces(options) : ShowPlant(options); }

}  // namespace cordboard::cli
