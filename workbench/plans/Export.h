// An exchange as a plan that makes it again.
#pragma once

#include <string>
#include <vector>

#include "workbench/exchange/Exchange.h"
#include "workbench/exchange/TableComparison.h"
#include "workbench/plans/PlanBetween.h"

namespace cordboard::workbench {

struct ExportedPlan {
  std::string header;  // comments: what it is, and how the exchange is made again
  PlanBetween plan;
  std::vector<TableDifference> different;  // the tables in which an exchange differs that is made from the plan
};

// The plan is tried on a new exchange of the same plant and release, and that is compared with this one. It is the same
// from run to run, as long as the exchange is. One command's records can have a line each.
ExportedPlan ExportPlan(Exchange& exchange, const std::string& oneALine = "");

// The whole as a file that "apply" reads: with what is not made again as comments at its end.
std::string Written(const ExportedPlan& plan);

}  // namespace cordboard::workbench
