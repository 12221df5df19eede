#include "workbench/exchange/Plant.h"

#include <cstdio>
#include <fstream>
#include <map>
#include <optional>
#include <set>
#include <sstream>

#include "workbench/data/DataFile.h"
#include "workbench/data/Resources.h"
#include "workbench/exchange/Exchange.h"
#include "workbench/text/Elements.h"

namespace cordboard::workbench {

namespace {

const std::map<std::string, Plant::BoardType>& BoardTypes() {
  static const auto types = [] {
    std::map<std::string, Plant::BoardType> read;
    for (const auto& [type, item] : ReadResource("board-types.json").Entries())
      read[type] = item.Object([](Fields& fields) {
        fields.Get<std::string>("title");  // for who reads the file
        return Plant::BoardType{fields.Get<int>("positions"), fields.Get("first", 0), fields.Get("digits", 2)};
      });
    return read;
  }();
  return types;
}

Plant::BoardType TypeOf(const DataItem& type) {
  const auto found = BoardTypes().find(type.Text());
  if (found == BoardTypes().end()) type.Fail("there is no board type '" + type.Text() + "'");
  return found->second;
}

std::string Individual(const Plant::Board& board, int number) {
  char text[16];
  std::snprintf(text, sizeof text, "%0*d", board.type.digits, number);
  return text;
}

std::string EQU(const Plant::Board& board, const std::string& individual) {
  char text[64];
  std::snprintf(text, sizeof text, "%03d-%d-%02d-%s", board.lim, board.magazine, board.slot, individual.c_str());
  return text;
}

// What stands in a place that there is not, or where something stands already.
void Check(const Plant& plant) {
  std::set<std::string> locations;
  for (const auto& location : plant.locations) locations.insert(location.name);
  std::set<int> lims;
  for (const auto& lim : plant.lims) {
    const std::string name = "LIM " + std::to_string(lim.number);
    if (lim.number < 1 || lim.number > 999) throw PlantError(name + " is not between 1 and 999");
    if (!lims.insert(lim.number).second) throw PlantError(name + " stands there twice");
    if (!locations.contains(lim.location)) throw PlantError(name + ": there is no location '" + lim.location + "'");
  }
  std::set<std::string> slots;
  for (const auto& board : plant.boards) {
    const std::string name = "the board in LIM " + std::to_string(board.lim) + ", magazine " +
                             std::to_string(board.magazine) + ", slot " + std::to_string(board.slot);
    if (!lims.contains(board.lim)) throw PlantError(name + ": there is no such LIM");
    if (board.magazine < 0 || board.magazine > 9) throw PlantError(name + ": a magazine is between 0 and 9");
    if (board.slot < 0 || board.slot > 99) throw PlantError(name + ": a slot is between 0 and 99");
    if (!slots.insert(EQU(board, "")).second) throw PlantError(name + " stands there twice");
  }
  for (const auto& [lim, line] : plant.trunkLines) {
    if (!lims.contains(lim)) throw PlantError("trunk line " + line + ": there is no LIM " + std::to_string(lim));
  }
}

using Text = std::string;

Plant::Location ReadLocation(Fields& fields) {
  return {fields.Get<Text>("location"), fields.Get<Text>("description", "")};
}

Plant::Lim ReadLim(Fields& fields) {
  return {fields.Get<int>("lim"), fields.Get<Text>("location"), fields.Get<Text>("description", "")};
}

Plant::Board ReadBoard(Fields& fields) {
  return {fields.Get<int>("lim"), fields.Get<int>("magazine"), fields.Get<int>("slot"), fields.Get<Text>("type"),
          TypeOf(fields.At("type"))};
}

Plant::Customer ReadCustomer(Fields& fields) { return {fields.Get<Text>("cust"), fields.Get<Text>("description", "")}; }

std::vector<std::string> ReadElements(const DataItem& item) {
  try {
    return Elements(item.Text());
  } catch (const ElementsError& error) {
    item.Fail(error.what());
  }
}

std::vector<DataItem> Listed(const std::optional<DataItem>& item) {
  return item ? item->List() : std::vector<DataItem>();
}

Plant ReadFields(Fields& fields) {
  Plant plant{.name = fields.Get<Text>("name")};
  for (const DataItem& item : fields.At("locations").List()) plant.locations.push_back(item.Object(ReadLocation));
  for (const DataItem& item : fields.At("lims").List()) plant.lims.push_back(item.Object(ReadLim));
  for (const DataItem& item : fields.At("boards").List()) plant.boards.push_back(item.Object(ReadBoard));
  for (const DataItem& item : Listed(fields.Find("customers"))) plant.customers.push_back(item.Object(ReadCustomer));
  for (const DataItem& item : Listed(fields.Find("trunkLines"))) {
    item.Object([&plant](Fields& lines) {
      const int lim = lines.Get<int>("lim");
      for (const std::string& line : ReadElements(lines.At("tru"))) plant.trunkLines.emplace_back(lim, line);
    });
  }
  for (const DataItem& item : Listed(fields.Find("routes"))) {
    for (const std::string& route : ReadElements(item)) plant.routes.push_back(route);
  }
  plant.categories = fields.Get("categories", 0);
  return plant;
}

}  // namespace

std::vector<std::string> PlantNames() {
  std::vector<std::string> names;
  for (const std::string_view path : ResourcesIn("plants/"))
    names.push_back(std::filesystem::path(path).stem().string());
  return names;
}

Plant ReadPlant(const std::string& nameOrFile) {
  const auto builtIn = Resources().find("plants/" + nameOrFile + ".json");
  if (builtIn != Resources().end()) return ParsePlant(builtIn->second, nameOrFile);
  std::ifstream in(nameOrFile, std::ios::binary);
  if (!in) {
    std::string names;
    for (const std::string& name : PlantNames()) names += (names.empty() ? "" : ", ") + name;
    throw PlantError("there is no plant file '" + nameOrFile +
                     "', and no built-in plant of that name (there is: " + names + ")");
  }
  std::ostringstream text;
  if (!(text << in.rdbuf())) throw PlantError("the plant file '" + nameOrFile + "' is empty or cannot be read");
  return ParsePlant(text.str(), nameOrFile);
}

Plant ParsePlant(std::string_view text, const std::string& source) {
  try {
    Plant plant = ReadData(text, source).Object(ReadFields);
    Check(plant);
    return plant;
  } catch (const DataError& error) {
    throw PlantError(error.what());
  } catch (const PlantError& error) {
    throw PlantError(source + ": " + error.what());
  }
}

void EnterPlant(Exchange& exchange, const Plant& plant) {
  Connection& database = exchange.Dynamic();
  for (const auto& location : plant.locations)
    database.Run("INSERT INTO [Locations] ([Location], [Description]) VALUES (?, ?)",
                 {location.name, location.description});
  std::map<int, std::string> locations;
  for (const auto& lim : plant.lims) {
    locations[lim.number] = lim.location;
    database.Run("INSERT INTO [LIMs] ([LIM], [Location], [Description]) VALUES (?, ?, ?)",
                 {lim.number, lim.location, lim.description});
  }
  for (const auto& board : plant.boards) {
    database.Run("INSERT INTO [Boards] ([LIM], [Magazine], [Slot], [BoardID]) VALUES (?, ?, ?, ?)",
                 {board.lim, board.magazine, board.slot, board.boardId});
    for (int position = 0; position < board.type.positions; ++position) {
      const std::string individual = Individual(board, board.type.first + position);
      const std::string kind = board.boardId + " " + individual + " " + locations[board.lim];
      database.Run(
          "INSERT INTO [Equipment] ([EQU], [LIM], [Magazine], [Slot], [Individual], [USED], [Kind]) "
          "VALUES (?, ?, ?, ?, ?, ?, ?)",
          {EQU(board, individual), board.lim, board.magazine, board.slot, individual, false, kind});
    }
  }
  for (const auto& customer : plant.customers)
    database.Run("INSERT INTO [CUSTOMERS] ([CUST], [DESCRIPTION]) VALUES (?, ?)",
                 {customer.number, customer.description});
  for (const auto& [lim, line] : plant.trunkLines)
    database.Run("INSERT INTO [TRKLINE] ([TRU], [LIM], [USED]) VALUES (?, ?, ?)", {line, lim, false});
  for (const auto& route : plant.routes)
    database.Run("INSERT INTO [ROUTE] ([ROU], [USED]) VALUES (?, ?)", {route, false});
  for (int category = 0; category < plant.categories; ++category)
    database.Run("INSERT INTO [EXCCS] ([CmdId], [CAT]) VALUES (?, ?)", {exchange.NewCmdId(), std::to_string(category)});
}

}  // namespace cordboard::workbench
