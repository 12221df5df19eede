#include "web/States.h"

#include <charconv>

#include "workbench/history/History.h"
#include "workbench/history/StateInWords.h"

namespace cordboard::web {

using workbench::State;

std::optional<int> StateNumberOf(const Fields& fields, const std::string& name) {
  const std::string& text = fields[name];
  if (text.empty()) return std::nullopt;
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size() || number < 0)
    throw Failed(BadRequest, text + " is no number of a state.");
  return number;
}

std::string AddressOf(const State& state) { return Address("/state", {{"number", std::to_string(state.number)}}); }

Html LinkTo(const State& state) {
  return Link(AddressOf(state), "state " + std::to_string(state.number)) + ": " + Told(state);
}

std::optional<State> NewestState(workbench::Exchange& exchange) {
  std::vector<State> states = workbench::History(exchange.Dynamic()).states();
  return states.empty() ? std::nullopt : std::optional(std::move(states.back()));
}

std::vector<std::pair<std::string, std::string>> StatesToChoose(workbench::Exchange& exchange) {
  const workbench::History history(exchange.Dynamic());
  const std::vector<State>& states = history.states();
  std::vector<std::pair<std::string, std::string>> choices;
  for (auto state = states.rbegin(); state != states.rend(); ++state) {
    const std::string number = std::to_string(state->number);
    choices.emplace_back(number, "state " + number + ": " + InWords(*state) + ", " + state->time);
  }
  return choices;
}

std::vector<std::pair<std::string, std::string>> PlansOf(workbench::Exchange& exchange, int state) {
  std::vector<std::pair<std::string, std::string>> plans;
  const workbench::StateStore store(exchange.Dynamic());
  store.ReadTexts(state, [&plans](const std::string& plan, const std::string& text) {
    if (plans.empty() || plans.back().first != plan) plans.emplace_back(plan, "");
    plans.back().second += text;
  });
  return plans;
}

}  // namespace cordboard::web
