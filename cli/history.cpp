// cordboard history: the states of an exchange, and what each of them changed.

#include <iostream>
#include <nlohmann/json.hpp>

#include "cli/AllOrNothing.h"
#include "cli/Files.h"
#include "cli/Output.h"
#include "cli/PlanReport.h"
#include "cli/StateReport.h"
#include "cli/Subcommands.h"
#include "workbench/actions/StateChanges.h"
#include "workbench/history/History.h"
#include "workbench/history/StateInWords.h"
#include "workbench/history/Undo.h"
#include "workbench/text/Counted.h"

namespace cordboard::cli {

namespace {

// What other programs did is in no state.
void WarnOfOthers(const workbench::History& history) {
  try {
    history.CheckUntouched();
  } catch (const workbench::HistoryError& error) {
    Warning(error.what());
  }
}

int ShowStates(workbench::Exchange& exchange, const HistoryOptions& options) {
  const workbench::History history(exchange.Dynamic());
  nlohmann::json data = nlohmann::json::array();
  std::vector<std::vector<std::string>> rows;
  for (auto state = history.states().rbegin(); state != history.states().rend(); ++state) {
    data.push_back(ToJson(*state));
    const workbench::StateNote& note = state->note;
    rows.push_back({std::to_string(state->number), state->time, state->user, InWords(*state),
                    std::to_string(note.lines), std::to_string(note.added), std::to_string(note.changed),
                    std::to_string(note.removed), note.message});
  }
  if (rows.empty()) Note("note", options.file + " has no history yet: it begins with the next change");
  WarnOfOthers(history);
  if (options.json) {
    PrintJson({{"states", data}});
  } else if (!rows.empty()) {
    PrintTable({"STATE", "TIME", "USER", "CHANGE", "LINES", "ADDED", "CHANGED", "REMOVED", ""}, rows);
  }
  return Done;
}

void PrintTexts(const workbench::StateStore& store, int number) {
  std::string last;
  store.ReadTexts(number, [&last](const std::string& plan, const std::string& text) {
    if (plan != last) std::cout << "# " << Printed(plan) << '\n';
    last = plan;
    std::cout << text;
  });
}

nlohmann::json TextsOf(const workbench::StateStore& store, int number) {
  nlohmann::json texts = nlohmann::json::array();
  store.ReadTexts(number, [&texts](const std::string& plan, const std::string& text) {
    if (texts.empty() || texts.back()["file"] != plan) texts.push_back({{"file", plan}, {"text", ""}});
    texts.back()["text"] = texts.back()["text"].get<std::string>() + text;
  });
  return texts;
}

int ShowState(workbench::Exchange& exchange, const HistoryOptions& options) {
  const int number = *options.state;
  const workbench::State state = workbench::History(exchange.Dynamic()).Find(number);
  const workbench::StateStore store(exchange.Dynamic());
  if (options.plans && !options.json) {
    PrintTexts(store, number);
    return Done;
  }
  nlohmann::json document = {{"states", {ToJson(state)}}};
  if (options.plans) document["texts"] = TextsOf(store, number);
  const workbench::StateChanges changes(exchange, number);
  if (options.json) {
    document["changes"] = ToJson(changes.records());
    PrintJson(std::move(document));
  } else {
    Note("state " + std::to_string(number), Told(state));
    PrintChanges(changes.records());
  }
  return Done;
}

int Keep(const HistoryOptions& options) {
  if (*options.keep == 0) throw Exit{Usage, "--keep takes a number from 1 on: the last state always stays"};
  const auto exchange = OpenToWrite(options.file);
  const std::size_t gone = AllOrNothing([&] { return workbench::KeepNewest(exchange->Dynamic(), *options.keep); });
  const std::size_t left = workbench::History(exchange->Dynamic()).states().size();
  if (options.json) {
    PrintJson({{"forgotten", gone}, {"kept", left}});
  } else {
    Note("history",
         options.file + ": " + workbench::Counted(gone, "state") + " forgotten, " + std::to_string(left) + " kept");
  }
  return Done;
}

}  // namespace

int History(const HistoryOptions& options) {
  return options.keep ? Keep(options) : ShowHistory(*OpenToRead(options.file), options);
}

int ShowHistory(workbench::Exchange& exchange, const HistoryOptions& options) {
  return options.state ? ShowState(exchange, options) : ShowStates(exchange, options);
}

}  // namespace cordboard::cli
