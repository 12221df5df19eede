#include "bench/Growth.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <nlohmann/json.hpp>
#include <sstream>
#include <stdexcept>

#include "bench/Folder.h"
#include "bench/Measure.h"
#include "script/Conversions.h"
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

constexpr const char* release = "R8";
constexpr int spare = 100;
constexpr int inARow = 20;  // actions in a row: now and then one of them splits a page
constexpr int repetitions = 15;
constexpr int counts[] = {100, 1000, 10000};

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
      : recipe_(recipe), first_(recipe.at("first")), lines_(records / recipe.value("recordsPerLine", 1)) {}

  std::string command() const { return recipe_.at("command"); }

  // Makes the exchange with its records.
  void Build(const std::string& file) const {
    const std::unique_ptr<Exchange> exchange = Exchange::Create(file, release, Plant());
    Session session(*exchange);
    std::string plan;
    for (const json& line : recipe_.value("before", json::array())) plan += Filled(line) + "\n";
    const RowSet positions = exchange->Dynamic().Run("SELECT [EQU] FROM [Equipment] ORDER BY rowid");
    for (int i = 0; i < lines_; ++i) {
      const auto row = std::min(static_cast<std::size_t>(i), positions.RowCount() - 1);
      const std::string line = Replaced(recipe_.at("line"), "{n}", std::to_string(first_ + i));
      plan += Replaced(line, "{position}", Joined(positions[0][row])) + "\n";
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
      const std::string parameter = list.at("parameter");
      const std::string value = list.at("value");
      all.emplace_back("check " + parameter, [*this, parameter, value](Session& session, int turn) {
        session.host().OpenForm(*workbench::FindForm(command()));
        if (!session.host().FreshList(parameter)->Contains(Filled(value, turn)))
          throw std::runtime_error(value + " is not listed");
      });
      all.emplace_back("list " + parameter, [*this, parameter](Session& session, int) {
        session.host().OpenForm(*workbench::FindForm(command()));
        if (session.host().FreshList(parameter)->All().empty()) throw std::runtime_error("the list is empty");
      });
    }
    return all;
  }

 private:
  std::string Filled(std::string line, int turn = 0) const {
    line = Replaced(line, "{next}", std::to_string(first_ + lines_ + turn));
    line = Replaced(line, "{used}", std::to_string(first_ + lines_ / 2 + turn));
    line = Replaced(line, "{middle}", std::to_string(first_ + lines_ / 2));
    line = Replaced(line, "{turn}", std::to_string(10 + turn));
    return Replaced(line, "{last}", std::to_string(first_ + lines_ + spare - 1));
  }

  // A small plant; where records take positions, one that leaves as many of them free at every count.
  workbench::Plant Plant() const {
    constexpr int boardsPerLim = 16;
    constexpr int firstLim = 10;
    json plant = json::parse(R"({"name": "growth", "locations": [{"location": "HQ"}], "lims": [], "boards": [],
                                 "customers": [{"cust": "1"}], "routes": ["1&&9"], "categories": 32})");
    const bool taken = recipe_.at("line").get<std::string>().find("{position}") != std::string::npos;
    for (int board = 0; board * 16 < (taken ? lines_ : 0) + spare; ++board) {
      const int lim = firstLim + board / boardsPerLim;
      if (board % boardsPerLim == 0) plant["lims"].push_back({{"lim", lim}, {"location", "HQ"}});
      plant["boards"].push_back({{"lim", lim},
                                 {"magazine", 0},
                                 {"slot", board % boardsPerLim},
                                 {"type", recipe_.value("board", std::string("31"))}});
    }
    return workbench::ParsePlant(plant.dump(), "growth");
  }

  const json& recipe_;
  int first_;
  int lines_;
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
  const std::unique_ptr<Exchange> exchange = Exchange::Open(file);
  Session session(*exchange);
  std::vector<double> times;
  for (int i = 0; i < repetitions; ++i) {
    const workbench::Transaction undone(*exchange);
    times.push_back(Seconds([&] { InARow(session, work); }));
  }
  return *std::ranges::min_element(times) / inARow;
}

bool HasValgrind() { return std::system("valgrind --version >/dev/null 2>&1") == 0; }

// The number that callgrind gives after "Collected :".
double Instructions(const std::string& program, const std::string& file, std::size_t recipe, const std::string& what) {
  const std::string command = "valgrind --tool=callgrind --callgrind-out-file=/dev/null " +
                              ("--toggle-collect=CordboardMeasured '" + program) + "' once '" + file + "' " +
                              std::to_string(recipe) + " '" + what + "' 2>&1";
  FILE* output = popen(command.c_str(), "r");
  if (output == nullptr) throw std::runtime_error("valgrind cannot be started");
  std::string text;
  for (int c = 0; (c = std::fgetc(output)) != EOF;) text += static_cast<char>(c);
  const std::string mark = "Collected : ";
  const std::size_t at = text.find(mark);
  if (pclose(output) != 0 || at == text.npos) throw std::runtime_error("valgrind failed: " + text);
  return std::stod(text.substr(at + mark.size())) / inARow;
}

// What one action costs at each count, and how the last is to the first.
void Print(const std::string& what, const char* unit, const std::vector<double>& costs) {
  std::printf("  %-16s", what.c_str());
  for (const double cost : costs) std::printf(" %12.1f", cost);
  std::printf(" %-18s %6.2f\n", unit, costs.back() / costs.front());
}

}  // namespace

void DoOnce(const std::string& file, std::size_t recipe, const std::string& what) {
  const std::unique_ptr<Exchange> exchange = Exchange::Open(file);
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

void MeasureGrowth(const std::string& program) {
  const bool instructions = HasValgrind();
  for (std::size_t i = 0; i < Recipes().size(); ++i) {
    const json& recipe = Recipes()[i];
    const std::string command = recipe.at("command");
    std::printf("\n%s, %s\n", command.c_str(), recipe.at("title").get<std::string>().c_str());
    if (workbench::FindForm(command) == nullptr) {
      std::printf("  the command has no form yet\n");
      continue;
    }
    const Folder folder;
    for (const int records : counts) Growth(recipe, records).Build(folder.File(std::to_string(records)));
    std::printf("  %-16s %12d %12d %12d records %13s\n", "", counts[0], counts[1], counts[2], "last to first");
    for (const auto& [what, ignored] : Growth(recipe, counts[0]).Measured()) {
      std::vector<double> times;
      std::vector<double> counted;
      for (const int records : counts) {
        const std::string file = folder.File(std::to_string(records));
        times.push_back(Shortest(file, Find(Growth(recipe, records), what)) * 1e6);
        if (instructions) counted.push_back(Instructions(program, file, i, what) / 1e3);
      }
      Print(what, "microseconds", times);
      if (instructions) Print("", "1000 instructions", counted);
    }
  }
}

}  // namespace cordboard::bench
