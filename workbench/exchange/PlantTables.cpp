#include "workbench/exchange/PlantTables.h"

#include "script/Conversions.h"
#include "script/Statement.h"
#include "workbench/exchange/Exchange.h"
#include "workbench/exchange/PlantReader.h"
#include "workbench/history/Recording.h"

namespace cordboard::workbench {

namespace {

std::string Individual(const Plant::Board& board, int number) {
  const std::string text = std::to_string(number);
  return std::string(static_cast<std::size_t>(board.type.digits) - text.size(), '0') + text;
}

// Calls `read` with the texts of each row, in the order in which the rows were entered.
template <typename Read>
void ForEachRow(Exchange& exchange, const std::string& columns, const std::string& table, Read read) {
  const RowSet rows = exchange.Dynamic().Run("SELECT " + columns + " FROM [" + table + "] ORDER BY rowid");
  for (std::size_t row = 0; row < rows.RowCount(); ++row)
    read([&rows, row](std::size_t column) -> const Value& { return rows[column][row]; });
}

// An exchange that was made before names were kept has none.
std::string NameOf(Exchange& exchange) {
  const Value name = exchange.Dynamic().Single("SELECT [Value] FROM [Cordboard] WHERE [Name] = 'Plant'");
  return name.IsEmpty() ? "exchange" : Joined(name);
}

int CategoriesOf(Exchange& exchange) { return ToInt32(exchange.Dynamic().Single("SELECT COUNT(*) FROM [EXCCS]")); }

}  // namespace

void EnterPlant(Exchange& exchange, const Plant& plant) {
  Connection& database = exchange.Dynamic();
  for (const auto& location : plant.locations)
    database.Run("INSERT INTO [Locations] ([Location], [Description]) VALUES (?, ?)",
                 {location.name, location.description});
  for (const auto& lim : plant.lims)
    database.Run("INSERT INTO [LIMs] ([LIM], [Location], [Description]) VALUES (?, ?, ?)",
                 {lim.number, lim.location, lim.description});
  for (const auto& board : plant.boards) {
    database.Run("INSERT INTO [Boards] ([LIM], [Magazine], [Slot], [BoardID]) VALUES (?, ?, ?, ?)",
                 {board.lim, board.magazine, board.slot, board.boardId});
    const std::string location = Joined(database.Single("SELECT [Location] FROM [LIMs] WHERE [LIM] = ?", {board.lim}));
    for (int position = 0; position < board.type.positions; ++position) {
      const std::string individual = Individual(board, board.type.first + position);
      database.Run(
          "INSERT INTO [Equipment] ([EQU], [LIM], [Magazine], [Slot], [Individual], [USED], [Kind]) "
          "VALUES (?, ?, ?, ?, ?, ?, ?)",
          {board.Position() + "-" + individual, board.lim, board.magazine, board.slot, individual, false,
           Text(board.boardId, " ", individual, " ", location)});
    }
  }
  for (const auto& customer : plant.customers)
    database.Run("INSERT INTO [CUSTOMERS] ([CUST], [DESCRIPTION]) VALUES (?, ?)",
                 {customer.number, customer.description});
  for (const auto& [lim, line] : plant.trunkLines)
    database.Run("INSERT INTO [TRKLINE] ([TRU], [LIM], [USED]) VALUES (?, ?, ?)", {line, lim, false});
  for (const auto& route : plant.routes)
    database.Run("INSERT INTO [ROUTE] ([ROU], [USED]) VALUES (?, ?)", {route, false});
  for (int category = CategoriesOf(exchange); category < plant.categories; ++category)
    database.Run("INSERT INTO [EXCCS] ([CmdId], [CAT]) VALUES (?, ?)", {exchange.NewCmdId(), std::to_string(category)});
}

Plant PlantOf(Exchange& exchange) {
  Plant plant{.name = NameOf(exchange), .categories = CategoriesOf(exchange)};
  ForEachRow(exchange, "[Location], [Description]", "Locations", [&plant](auto cell) {
    plant.locations.push_back({Joined(cell(0)), Joined(cell(1))});
  });
  ForEachRow(exchange, "[LIM], [Location], [Description]", "LIMs", [&plant](auto cell) {
    plant.lims.push_back({ToInt32(cell(0)), Joined(cell(1)), Joined(cell(2))});
  });
  ForEachRow(exchange, "[LIM], [Magazine], [Slot], [BoardID]", "Boards", [&plant](auto cell) {
    const std::string type = Joined(cell(3));
    plant.boards.push_back({ToInt32(cell(0)), ToInt32(cell(1)), ToInt32(cell(2)), type, BoardTypes().at(type)});
  });
  ForEachRow(exchange, "[CUST], [DESCRIPTION]", "CUSTOMERS", [&plant](auto cell) {
    plant.customers.push_back({Joined(cell(0)), Joined(cell(1))});
  });
  ForEachRow(exchange, "[LIM], [TRU]", "TRKLINE",
             [&plant](auto cell) { plant.trunkLines.emplace_back(ToInt32(cell(0)), Joined(cell(1))); });
  ForEachRow(exchange, "[ROU]", "ROUTE", [&plant](auto cell) { plant.routes.push_back(Joined(cell(0))); });
  return plant;
}

Plant AddToPlant(Exchange& exchange, const std::vector<PlantText>& pieces, const std::string& message) {
  Recording recording(exchange.Dynamic());
  Plant added = ReadPieces(pieces, PlantOf(exchange));
  EnterPlant(exchange, added);
  for (const auto& [source, json] : pieces) recording.AddText(source, json);
  recording.CommitChanges({.kind = StateKind::Plant, .message = message});
  return added;
}

}  // namespace cordboard::workbench
