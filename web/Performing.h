// An action of a page, done as a plan of one line: the same road, the same checks, the same history.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "web/Html.h"
#include "workbench/plans/Plan.h"

namespace cordboard::web {

struct Performed {
  std::string line;  // as a plan has it
  bool done = false;
  std::vector<workbench::Problem> problems = {};  // why it was refused, or what its user should know
  std::vector<workbench::Assignment> taken = {};  // what "next" stood for
  Html changes = {};                              // what it did to records
  std::optional<int> state = {};                  // of the history, where it was kept and changed anything
};

// Does it on the exchange, which is a copy or the file itself. `mark` is that of the exchange on which the page was
// made: where it is another one now, nothing is done, and it fails with workbench::StalePlan.
Performed PerformOn(workbench::Exchange& exchange, const workbench::UserAction& action, const std::string& mark);

// Of the exchange as it stands.
std::string MarkOf(workbench::Exchange& exchange);

}  // namespace cordboard::web
