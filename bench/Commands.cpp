#include "bench/Commands.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <map>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <vector>

#include "bench/Bounds.h"
#include "tests/workbench/support/ExamplePlans.h"
#include "tests/workbench/support/Steps.h"
#include "workbench/actions/Generation.h"
#include "workbench/database/Schema.h"
#include "workbench/exchange/Plant.h"
#include "workbench/plans/PlanLine.h"

namespace cordboard::bench {

namespace {

using nlohmann::json;
using workbench::Assignment;
using workbench::Exchange;
using workbench::Session;
using workbench::StepCounter;
using workbench::UserAction;

constexpr const char* release = "R8";
constexpr int few = 5000;
constexpr int many = 50000;
constexpr int firstNumber = 2600000;  // of what is there besides: no number of the examples begins so

// By command and action.
using Costs = std::map<std::string, double>;

// What grows with the tables because of what the rules ask, by row: why.
std::map<std::string, std::string> Growing() {
  std::ifstream in(CORDBOARD_SOURCE_DIR "/bench/growing.json");
  const json reasons = json::parse(in);
  std::map<std::string, std::string> growing;
  for (const auto& [reason, rows] : reasons.items()) {
    for (const json& row : rows) growing[row] = reason;
  }
  return growing;
}

// --- The exchanges.

// The example plant, and beside it LIMs with boards of every type in turn.
workbench::Plant PlantWith(int positions) {
  json plant = json::parse(workbench::Resource("plants/example.json"));
  const json types = json::parse(workbench::Resource("board-types.json"));
  constexpr int firstLim = 11;
  constexpr int perLim = 16;
  auto type = types.begin();
  for (int board = 0, made = 0; made < positions; ++board) {
    const int lim = firstLim + board / perLim;
    if (board % perLim == 0) plant["lims"].push_back({{"lim", lim}, {"location", "HQ"}});
    const int place = board % perLim;
    plant["boards"].push_back({{"lim", lim}, {"magazine", 0}, {"slot", place}, {"type", type.key()}});
    made += type->at("positions").get<int>();
    if (++type == types.end()) type = types.begin();
  }
  return workbench::ParsePlant(plant.dump(), "commands");
}

void AddRows(Exchange& exchange, int count, const std::string& columns, const std::string& table,
             const std::string& values) {
  exchange.Dynamic().Run("WITH RECURSIVE [n]([i]) AS (SELECT " + std::to_string(firstNumber) +
                         " UNION ALL SELECT [i] + 1 FROM [n] LIMIT " + std::to_string(count) + ") INSERT INTO [" +
                         table + "] (" + columns + ") SELECT " + values + " FROM [n]");
}

std::unique_ptr<Exchange> ExchangeWith(int count) {
  auto exchange = Exchange::CreateInMemory(release, PlantWith(count));
  workbench::Transaction transaction(*exchange);
  for (const char* type : {"EX", "ED", "GH", "OI", "AD", "EP", "CO", "DN", "DG", "DE", "MA"})
    AddRows(*exchange, count, "[CmdId], [NUMSE], [NUMTYP], [USED]", "NANSI",
            "[i], [i], '" + std::string(type) + "', TRUE");
  for (const workbench::Table& table : workbench::ShippedSchema().Database("dynamic").tables) {
    // The rules know how many members such groups may have.
    if (table.name == "ACGMI" || table.name == "CBGMI") continue;
    const bool isRecord = table.Find("CmdId") != nullptr && table.Find("DIR") != nullptr;
    if (!isRecord || table.Find("DIR")->further || workbench::FindForm(table.command) == nullptr) continue;
    const bool typed = table.Find("NUMTYP") != nullptr;
    AddRows(*exchange, count, typed ? "[CmdId], [DIR], [NUMTYP]" : "[CmdId], [DIR]", table.name,
            typed ? "[i], [i], 'EX'" : "[i], [i]");
  }
  transaction.Commit();
  return exchange;
}

// --- The actions.

// Those parameters that tell a record from others, or the others.
std::vector<Assignment> Part(const UserAction& add, bool ofKey) {
  const auto& key = workbench::FindForm(add.command)->key;
  std::vector<Assignment> part;
  for (const Assignment& value : add.values) {
    if ((std::ranges::find(key, value.name) != key.end()) == ofKey && !value.value.starts_with("next"))
      part.push_back(value);
  }
  return part;
}

class Measurement {
 public:
  explicit Measurement(Exchange& exchange) : exchange_(exchange), session_(exchange) {}

  // The generation of each command, by line; each line of the plans; then, of each command, the last that added once
  // more, which is refused, an edit of that record that sets what it has, and from the last to the first a delete of
  // what was added.
  Costs Do() {
    CountGeneration();
    std::vector<UserAction> added;
    for (const std::string& plan : workbench::ExamplePlans()) {
      std::istringstream lines{std::string(workbench::Resource("plans/" + plan))};
      for (std::string line; std::getline(lines, line);) {
        const auto action = workbench::ParsePlanLine(line);
        if (action && Count(*action, "") && action->kind == UserAction::Kind::Add) added.push_back(*action);
      }
    }
    std::map<std::string, UserAction> last;
    for (const UserAction& add : added) last.insert_or_assign(add.command, add);
    for (const auto& [command, add] : last) {
      Count(add, " again");
      std::vector<Assignment> rest = Part(add, false);
      if (!rest.empty())
        Count({.kind = UserAction::Kind::Edit, .command = command, .selection = Part(add, true), .values = {rest[0]}},
              "");
    }
    for (auto add = added.rbegin(); add != added.rend(); ++add)
      Count({.kind = UserAction::Kind::Delete, .command = add->command, .selection = Part(*add, true), .values = {}},
            "");
    return costs_;
  }

 private:
  void CountGeneration() {
    for (const std::string& command : workbench::GenerationOrder()) {
      const workbench::FormDefinition* form = workbench::FindForm(command);
      if (form == nullptr || !form->generates) continue;
      std::size_t lines = 0;
      const long steps = StepCounter::Steps([&] { lines = LinesOf(session_, *form).size(); });
      costs_[command + " generate"] = static_cast<double>(steps) / static_cast<double>(std::max<std::size_t>(lines, 1));
    }
  }

  bool Count(const UserAction& action, const char* how) {
    static constexpr const char* kinds[] = {" add", " edit", " delete"};
    bool done = false;
    costs_[action.command + kinds[static_cast<int>(action.kind)] + how] += static_cast<double>(StepCounter::Steps([&] {
      workbench::Transaction transaction(exchange_);
      done = Perform(session_, action).done;
      done ? transaction.Commit() : transaction.RollBack();
    }));
    return done;
  }

  Exchange& exchange_;
  Session session_;
  Costs costs_;
};

Costs CostsWith(int count) {
  const StepCounter counter;
  const auto exchange = ExchangeWith(count);
  return Measurement(*exchange).Do();
}

}  // namespace

void MeasureCommands() {
  std::printf("\n%-24s %12d %12d %8s\n", "steps of the database", few, many, "ratio");
  const std::map<std::string, std::string> growing = Growing();
  const Costs small = CostsWith(few);
  const Costs large = CostsWith(many);
  for (const auto& [row, cost] : small) {
    const auto found = large.find(row);
    const double others = found == large.end() ? INFINITY : found->second;  // an action went another way
    const double ratio = others / std::max(cost, 1.0);
    const auto grows = growing.find(row);
    const double bound = grows == growing.end() ? 1.25 : 1.25 * many / few;
    std::printf("  %-22s %12.0f %12.0f %8.2f%s %s\n", row.c_str(), cost, others, ratio, Held(row, ratio, bound).c_str(),
                grows == growing.end() ? "" : grows->second.c_str());
  }
}

}  // namespace cordboard::bench
