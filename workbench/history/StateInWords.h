// What users are told of a state of an exchange.
#pragma once

#include <string>

#include "workbench/history/State.h"

namespace cordboard::workbench {

// What the change was: "apply office.plan", "undo of 12, 13", and whether it was taken back.
std::string InWords(const State& state);
// In one line: the same with when, by whom, what for and how much.
std::string Told(const State& state);

}  // namespace cordboard::workbench
