// States of the history, as addresses name them and pages tell them.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "web/Html.h"
#include "web/Request.h"
#include "workbench/exchange/Exchange.h"
#include "workbench/history/State.h"

namespace cordboard::web {

// The number of a state that is asked for under this name; nothing where none is. Fails with Failed where it is none.
std::optional<int> StateNumberOf(const Fields& fields, const std::string& name);

std::string AddressOf(const workbench::State& state);
// "state 12: apply office.plan, by ...", with a link to it.
Html LinkTo(const workbench::State& state);

// The newest state of an exchange; nothing where it has no history.
std::optional<workbench::State> NewestState(workbench::Exchange& exchange);

// All states for a choice of one, the newest first: the number with what it was.
std::vector<std::pair<std::string, std::string>> StatesToChoose(workbench::Exchange& exchange);

// The plans that were applied for a state, each with its text.
std::vector<std::pair<std::string, std::string>> PlansOf(workbench::Exchange& exchange, int state);

}  // namespace cordboard::web
