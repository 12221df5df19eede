#include "web/Since.h"

#include <algorithm>

#include "web/ChangedRecords.h"
#include "web/Frame.h"
#include "workbench/actions/StateChanges.h"
#include "workbench/history/History.h"

namespace cordboard::web {

namespace {

using workbench::State;

// Of more states the first are only named.
constexpr std::ptrdiff_t mostStates = 5;

Html Told(const Visit& visit, const State& state) {
  return Element("h2", "State " + std::to_string(state.number) + ", " + Named(state.note.kind) + " by " + state.user +
                           " at " + state.time) +
         ChangedRecords(workbench::StateChanges(*visit.Read(), state.number).records());
}

}  // namespace

Html ChangesSince(const Visit& visit, const std::string& mark) {
  const std::vector<State> states = workbench::History(visit.Read()->Dynamic()).states();
  const Html head = Element("p",
                            "The exchange has changed since this page was made, so nothing was done. Look at the "
                            "values below as they now are, and try again.");
  const auto then = std::ranges::find(states, mark, &State::mark);
  if (then == states.end()) return Notice("error", head + Element("p", "Another program has written it."));
  Html changes;
  const auto first = std::max(then + 1, states.end() - std::min(mostStates, states.end() - then - 1));
  for (auto state = first; state != states.end(); ++state) changes += Told(visit, *state);
  return Notice("error", head) + changes;
}

}  // namespace cordboard::web
