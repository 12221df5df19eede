// Putting in order what the rules have left behind, by actions that a user could take.
#pragma once

#include <string>
#include <vector>

#include "workbench/actions/UserAction.h"
#include "workbench/exchange/LeftBehind.h"

namespace cordboard::workbench {

// What is wrong: "there is no key extension 300 (KSEXI)".
std::string InWords(const LeftBehind& found);

struct Mended {
  LeftBehind found;
  std::vector<UserAction> by;  // nothing: no action puts it in order
};

// Finds what is left behind and puts it in order, also what comes to light by that. The way that keeps most is taken:
// the value is set again, or cleared, or another one that is possible takes its place; else the record goes. All
// actions one after the other are a plan.
std::vector<Mended> MendAll(Session& session);

}  // namespace cordboard::workbench
