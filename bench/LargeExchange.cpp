#include "bench/LargeExchange.h"

#include <map>
#include <nlohmann/json.hpp>
#include <string>

#include "workbench/data/Resources.h"
#include "workbench/database/Schema.h"
#include "workbench/exchange/Plant.h"
#include "workbench/forms/FormDefinition.h"

namespace cordboard::bench {

namespace {

using nlohmann::json;
using workbench::Exchange;
using workbench::Resource;

// LIMs with boards of every type in turn.
workbench::Plant PlantWith(json plant, int positions) {
  const json types = json::parse(Resource("board-types.json"));
  constexpr int firstLim = 11;
  constexpr int perLim = 16;
  auto type = types.begin();
  for (int board = 0, made = 0; made < positions; ++board) {
    const int lim = firstLim + board / perLim;
    if (board % perLim == 0) plant["lims"].push_back({{"lim", lim}, {"location", "HQ"}});
    plant["boards"].push_back({{"lim", lim}, {"magazine", 0}, {"slot", board % perLim}, {"type", type.key()}});
    made += type->at("positions").get<int>();
    if (++type == types.end()) type = types.begin();
  }
  return workbench::ParsePlant(plant.dump(), "commands");
}

json Before(Front front) {
  if (front == Front::ExamplePlant) return json::parse(Resource("plants/example.json"));
  return {
      {"name", "taken"}, {"locations", {{{"location", "HQ"}}}}, {"customers", {{{"cust", "1"}}}}, {"categories", 32}};
}

// Adds rows of values made from a number [i] that counts up.
void AddRows(Exchange& exchange, int count, const std::string& columns, const std::string& table,
             const std::string& values) {
  exchange.Dynamic().Run("WITH RECURSIVE [n]([i]) AS (SELECT " + std::to_string(firstOfMany) +
                         " UNION ALL SELECT [i] + 1 FROM [n] LIMIT " + std::to_string(count) + ") INSERT INTO [" +
                         table + "] (" + columns + ") SELECT " + values + " FROM [n]");
}

// What a table of records is told apart by where there may be very many of them: numbers, codes and trunks. Nothing for
// other tables, and for those of which the rules know a limit: members of some groups, operators and what these have.
std::string NumberIn(const workbench::Table& table) {
  for (const char* limited : {"ACGMI", "CBGMI", "OPERI", "OPISS", "OPCGS"}) {
    if (table.name == limited) return "";
  }
  if (table.Find("CmdId") == nullptr || workbench::FindForm(table.command) == nullptr) return "";
  if (const workbench::Column* column = table.Find("DIR"); column != nullptr && !column->further) return "DIR";
  static const std::map<std::string, std::string> others = {
      {"NACDS", "NUM"}, {"RODDI", "DEST"}, {"ROEQI", "TRU"}, {"ADCOI", "ABB"}, {"AUCOI_Central", "AUTH"}};
  const auto other = others.find(table.name);
  return other == others.end() ? "" : other->second;
}

// Key extensions have the first half of the positions behind those of the example plant.
void TakePositions(Exchange& exchange) {
  exchange.Dynamic().Run(
      "UPDATE [Equipment] SET [USED] = TRUE WHERE [LIM] > 10 AND rowid <= (SELECT MAX(rowid) FROM [Equipment]) / 2");
  exchange.Dynamic().Run(
      "UPDATE [KSEXI] SET [EQU] = (SELECT [EQU] FROM [Equipment] WHERE [LIM] > 10 AND [USED] AND [Equipment].rowid = "
      "[KSEXI].rowid)");
}

}  // namespace

std::unique_ptr<Exchange> LargeExchange(int count, Front front) {
  auto exchange = Exchange::CreateInMemory("R8", PlantWith(Before(front), count));
  workbench::Transaction transaction(*exchange);
  for (const char* type : {"EX", "ED", "GH", "OI", "AD", "EP", "CO", "DN", "DG", "DE", "MA"})
    AddRows(*exchange, count, "[CmdId], [NUMSE], [NUMTYP], [USED]", "NANSI",
            "[i], [i], '" + std::string(type) + "', TRUE");
  AddRows(*exchange, count, "[Start], [End], [Numtyp]", "NANSIBlockedRange", "[i], [i], 'EX'");
  for (const workbench::Table& table : workbench::ShippedSchema().Database("dynamic").tables) {
    const std::string number = NumberIn(table);
    if (number.empty()) continue;
    const bool typed = table.Find("NUMTYP") != nullptr;
    AddRows(*exchange, count, "[CmdId], [" + number + (typed ? "], [NUMTYP]" : "]"), table.name,
            typed ? "[i], [i], 'EX'" : "[i], [i]");
  }
  TakePositions(*exchange);
  transaction.Commit();
  return exchange;
}

}  // namespace cordboard::bench
