// What is told of a state of an exchange.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>

#include "workbench/history/State.h"

namespace cordboard::cli {

// What the change was: "apply office.plan", "undo of 12, 13", and whether it was taken back.
std::string InWords(const workbench::State& state);
// In one line: the same with when, by whom, what for and how much.
std::string Told(const workbench::State& state);
nlohmann::json ToJson(const workbench::State& state);

}  // namespace cordboard::cli
