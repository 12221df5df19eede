#include "bench/Growth.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <nlohmann/json.hpp>
#include <sstream>
#include <stdexcept>

#include "bench/Folder.h"
#include "bench/Measure.h"
#include "bench/Valgrind.h"
#include "script/Conversions.h"
#include "workbench/actions/Filling.h"
#include "workbench/exchange/Plant.h"
#include "workbench/plans/Plan.h"
#include "workbench/plans/PlanLine.h"

// The name by which valgrind knows what to count.
extern "C" [[gnu::noipa]] void CordboardMeasured(const std::function<void()>& work) { work(); }

namespace cordboard::bench {

namespace {

using nlohmann::json;
using workbench::Exchange;
using workbench::Session;
using workbench::ValueList;

constexpr const char* release = "R8";
constexpr int spare = 100;
constexpr int inARow = 20;  // actions in a row: now and then one of them splits a page
constexpr int repetitions = 15;
constexpr std::size_t firstOnes = 10;

const json& Recipes() {
  static const json recipes = [] {
    std::ifstream in(CORDBOARD_SOURCE_DIR "/bench/growth.json");
    return json::parse(in);
  }();
  return recipes;
}

std::string Replaced(std::string text, const std::string& name, const std::string& value) {
  for (std::size_t at = 0; (at = text.find(name, at)) != text.npos; at += value.size())
    text.replace(at, name.size(), value);
  return text;
}

// A recipe with its records counted out.
class Growth {
 public:
  Growth(const json& recipe, int records)
      : recipe_(recipe), first_(recipe.at("first")), lines_(records / recipe.value("recordsPerLine", 1)) {
    const auto without = board_.value("without", std::vector<int>());
    for (int individual = 0; individual < board_.at("positions").get<int>(); ++individual) {
      if (std::ranges::find(without, individual) == without.end()) individuals_.push_back(individual);
    }
  }

  std::string command() const { return recipe_.at("command"); }

  // Makes the exchange with its records.
  void Build(const std::string& file) const {
    const std::unique_ptr<Exchange> exchange = Exchange::Create(file, release, Plant());
    Session session(*exchange);
    std::string plan;
    for (const json& line : recipe_.value("before", json::array())) plan += Filled(line) + "\n";
    for (int i = 0; i < lines_; ++i) {
      const std::string line = Replaced(recipe_.at("line"), "{n}", std::to_string(first_ + i));
      plan += Replaced(line, "{position}", Position(i)) + "\n";
    }
    std::istringstream in(plan);
    const workbench::PlanResult result = workbench::ApplyPlan(session, {{"growth", in}}, {});
    if (!result.kept) throw std::runtime_error(command() + ": " + result.reports.front().problems.front().message);
  }

  // What is measured, by name: done for the `turn`th time in a row.
  using Work = std::function<void(Session&, int turn)>;
  std::vector<std::pair<std::string, Work>> Measured() const {
    std::vector<std::pair<std::string, Work>> all;
    for (const auto& [name, line] : recipe_.at("actions").items())
      all.emplace_back(name, [*this, text = line.get<std::string>()](Session& session, int turn) {
        const workbench::Outcome outcome = workbench::Perform(session, *workbench::ParsePlanLine(Filled(text, turn)));
        if (!outcome.done) throw std::runtime_error(outcome.problems.front().message);
      });
    for (const json& list : recipe_.value("lists", json::array())) {
      const std::string name = list.at("parameter");
      using Question = std::function<bool(const ValueList& values, int turn)>;
      const auto add = [&](const std::string& what, const Question& ask) {
        all.emplace_back(what, [*this, what, name, given = Given(list), ask](Session& session, int turn) {
          const workbench::Filling filling = FillForm(session, *workbench::FindForm(command()), given);
          if (filling.IsRefused()) throw std::runtime_error(filling.problems().front().message);
          if (!ask(*session.host().FreshList(name), turn)) throw std::runtime_error(what + ": there is nothing");
        });
      };
      add("check " + name, [*this, value = list.at("value").get<std::string>()](const ValueList& values, int turn) {
        return values.Contains(Filled(value, turn));
      });
      add("first " + name, [](const ValueList& values, int) { return !values.First(firstOnes).empty(); });
      if (!list.value("long", false))
        add("list " + name, [](const ValueList& values, int) { return !values.All().empty(); });
    }
    return all;
  }

 private:
  std::string Filled(std::string line, int turn = 0) const {
    line = Replaced(line, "{next}", std::to_string(first_ + lines_ + turn));
    line = Replaced(line, "{used}", std::to_string(first_ + lines_ / 2 + turn));
    line = Replaced(line, "{position}", Position(lines_ + turn));
    line = Replaced(line, "{usedPosition}", Position(lines_ / 2 + turn));
    line = Replaced(line, "{middle}", std::to_string(first_ + lines_ / 2));
    line = Replaced(line, "{turn}", std::to_string(10 + turn));
    return Replaced(line, "{last}", std::to_string(first_ + lines_ + spare - 1));
  }

  // What a list is given before it is asked for.
  static std::vector<workbench::Assignment> Given(const json& list) {
    std::vector<workbench::Assignment> given;
    const auto values = list.value("given", std::map<std::string, std::string>());
    for (const auto& [name, value] : values) given.push_back({name, value});
    return given;
  }

  struct Slot {
    int lim;
    int magazine;
    int slot;
  };
  static Slot SlotOf(int board) {
    constexpr int perMagazine = 16;
    constexpr int perLim = 4 * perMagazine;
    return {1 + board / perLim, board % perLim / perMagazine, board % perMagazine};
  }

  // The positions that records may take, board by board, counted from 0.
  std::string Position(int n) const {
    const int perBoard = static_cast<int>(individuals_.size());
    const auto [lim, magazine, slot] = SlotOf(n / perBoard);
    char text[64];
    std::snprintf(text, sizeof text, "%03d-%d-%02d-%02d", lim, magazine, slot,
                  individuals_[static_cast<std::size_t>(n % perBoard)]);
    return text;
  }

  // A small plant; where the recipe names a board, one that has a position for each line and, but for what is left on
  // the last board, as many more at every count.
  workbench::Plant Plant() const {
    json plant = json::parse(R"({"name": "growth", "locations": [{"location": "HQ"}], "lims": [], "boards": [],
                                 "customers": [{"cust": "1"}], "routes": ["1&&9"], "categories": 32})");
    const int positions = (recipe_.contains("board") ? lines_ : 0) + spare;
    for (int board = 0; board * static_cast<int>(individuals_.size()) < positions; ++board) {
      const auto [lim, magazine, slot] = SlotOf(board);
      if (magazine == 0 && slot == 0) plant["lims"].push_back({{"lim", lim}, {"location", "HQ"}});
      plant["boards"].push_back({{"lim", lim}, {"magazine", magazine}, {"slot", slot}, {"type", board_.at("type")}});
    }
    return workbench::ParsePlant(plant.dump(), "growth");
  }

  const json& recipe_;
  int first_;
  int lines_;
  json board_ = recipe_.value("board", json{{"type", "31"}, {"positions", 16}});
  std::vector<int> individuals_;  // those positions of a board that records may take
};

Growth::Work Find(const Growth& growth, const std::string& what) {
  for (auto& [name, work] : growth.Measured()) {
    if (name == what) return work;
  }
  throw std::runtime_error("there is nothing called " + what);
}

void InARow(Session& session, const Growth::Work& work) {
  for (int turn = 0; turn < inARow; ++turn) work(session, turn);
}

// The shortest of several times: the machine can only add to it.
double Shortest(const std::string& file, const Growth::Work& work) {
  const std::unique_ptr<Exchange> exchange = Exchange::OpenForWriting(file);
  Session session(*exchange);
  std::vector<double> times;
  for (int i = 0; i < repetitions; ++i) {
    const workbench::Transaction undone(*exchange);
    times.push_back(Seconds([&] { InARow(session, work); }));
  }
  return *std::ranges::min_element(times) / inARow;
}

double Instructions(const std::string& program, const std::string& file, std::size_t recipe, const std::string& what) {
  return InstructionsOf("--toggle-collect=CordboardMeasured",
                        "'" + program + "' once '" + file + "' " + std::to_string(recipe) + " '" + what + "'") /
         inARow;
}

// What one action costs at each count, how the last is to the first, and the power of the count that this makes.
void Print(const std::string& what, const char* unit, const std::vector<int>& counts,
           const std::vector<double>& costs) {
  std::printf("  %-16s", what.c_str());
  for (const double cost : costs) std::printf(" %12.1f", cost);
  const double ratio = costs.back() / costs.front();
  const double exponent = std::log(ratio) / std::log(static_cast<double>(counts.back()) / counts.front());
  std::printf(" %-18s %6.2f %8.3f\n", unit, ratio, exponent);
}

}  // namespace

void DoOnce(const std::string& file, std::size_t recipe, const std::string& what) {
  const std::unique_ptr<Exchange> exchange = Exchange::OpenForWriting(file);
  Session session(*exchange);
  const json& wanted = Recipes().at(recipe);
  const int records = std::stoi(std::filesystem::path(file).stem());
  const Growth::Work work = Find(Growth(wanted, records), what);
  // Once to have the statements prepared and the pages read, then once more to count.
  for (const bool counted : {false, true}) {
    const workbench::Transaction undone(*exchange);
    if (counted) {
      CordboardMeasured([&] { InARow(session, work); });
    } else {
      InARow(session, work);
    }
  }
}

void MeasureGrowth(const std::string& program, const std::string& only) {
  const bool instructions = HasValgrind();
  for (std::size_t i = 0; i < Recipes().size(); ++i) {
    const json& recipe = Recipes()[i];
    const std::string command = recipe.at("command");
    if (!only.empty() && command != only) continue;
    std::printf("\n%s, %s\n", command.c_str(), recipe.at("title").get<std::string>().c_str());
    if (workbench::FindForm(command) == nullptr) {
      std::printf("  the command has no form yet\n");
      continue;
    }
    const Folder folder;
    const auto counts = recipe.value("counts", std::vector<int>{100, 1000, 10000});
    for (const int records : counts) Growth(recipe, records).Build(folder.File(std::to_string(records)));
    std::printf("  %-16s", "");
    for (const int records : counts) std::printf(" %12d", records);
    std::printf(" %-18s %6s %8s\n", "records", "ratio", "exponent");
    for (const auto& [what, ignored] : Growth(recipe, counts.front()).Measured()) {
      std::vector<double> times;
      std::vector<double> counted;
      for (const int records : counts) {
        const std::string file = folder.File(std::to_string(records));
        times.push_back(Shortest(file, Find(Growth(recipe, records), what)) * 1e6);
        if (instructions) counted.push_back(Instructions(program, file, i, what) / 1e3);
      }
      Print(what, "microseconds", counts, times);
      if (instructions) Print("", "1000 instructions", counts, counted);
    }
  }
}

}  // namespace cordboard::bench
