// The plans of the example exchange.
#pragma once

#include <sstream>
#include <string>
#include <vector>

#include "workbench/data/Resources.h"
#include "workbench/plans/Plan.h"

namespace cordboard::workbench {

// In the order in which they build on each other.
inline const std::vector<std::string>& ExamplePlans() {
  static const std::vector<std::string> plans = {
      "example.plan",   "extensions.plan", "authorisation.plan", "routes.plan",   "directory.plan",
      "terminals.plan", "templates.plan",  "groups.plan",        "members.plan",  "general.plan",
      "operators.plan", "desk.plan",       "trunks.plan",        "cordless.plan", "ip.plan",
      "logging.plan",   "devices.plan",    "links.plan"};
  return plans;
}

inline PlanResult ApplyText(Session& session, const std::string& name, const std::string& plan,
                            const PlanOptions& options = {}) {
  std::istringstream in{plan};
  return ApplyPlan(session, {{name, in}}, options);
}

inline PlanResult ApplyExamplePlan(Session& session, const std::string& name) {
  return ApplyText(session, name, std::string(Resource("plans/" + name)));
}

}  // namespace cordboard::workbench
