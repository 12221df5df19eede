// The plan that turns one exchange into another, tried line by line.
#pragma once

#include <string>
#include <vector>

#include "workbench/exchange/Exchange.h"
#include "workbench/plans/Trial.h"

namespace cordboard::workbench {

// A record that no line brings about.
struct UntoldRecord {
  std::string command;
  std::string text;    // the line that was tried
  std::string reason;  // why it does not do
};

struct PlanBetween {
  std::vector<TriedLine> lines;      // in the order in which they apply
  std::vector<UntoldRecord> untold;  // in the order of the commands
};

// Turns `scratch` into the exchange, as far as lines of a plan do, and gives these. Both have the same plant and
// release; nothing else may have a session meanwhile. A line is tried as "apply" tries it, and is kept where the
// records are then those of the exchange; one that is refused is tried again after the others, until nothing more comes
// of it.
// One command's records can have a line each.
PlanBetween TurnInto(Exchange& scratch, Exchange& exchange, const std::string& oneALine = "");

// The lines as a text that "apply" reads: with a heading where another command begins, and a comment between two lines
// that it would take for one.
std::string Written(const std::vector<TriedLine>& lines);

}  // namespace cordboard::workbench
