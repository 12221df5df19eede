#include "web/Performing.h"

#include <sstream>

#include "web/ChangedRecords.h"
#include "web/Visit.h"
#include "workbench/history/StateStore.h"
#include "workbench/host/Session.h"
#include "workbench/plans/SavedPlan.h"

namespace cordboard::web {

using workbench::LineReport;

std::string MarkOf(workbench::Exchange& exchange) { return workbench::StateStore(exchange.Dynamic()).Mark(); }

Performed PerformOn(workbench::Exchange& exchange, const workbench::UserAction& action, const std::string& mark) {
  Performed performed{.line = WrittenLine(action)};
  workbench::SavedPlan plan;
  plan.Add(performed.line);
  std::istringstream text(plan.Written("shown on a page", mark));
  workbench::Session session(exchange);
  const auto take = [&performed](const LineReport& report) {
    performed.changes = ChangedRecords(report.changes);
    performed.taken = report.taken;
  };
  const workbench::PlanResult result = ApplyPlan(session, {{.name = planOfPage, .in = text}}, {.done = take});
  performed.done = result.refused == 0;
  performed.state = result.state;
  for (const LineReport& report : result.reports)
    performed.problems.insert(performed.problems.end(), report.problems.begin(), report.problems.end());
  return performed;
}

}  // namespace cordboard::web
