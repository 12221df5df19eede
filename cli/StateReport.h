// What --json tells of a state of an exchange.
#pragma once

#include <nlohmann/json_fwd.hpp>

#include "workbench/history/State.h"

namespace cordboard::cli {

nlohmann::json ToJson(const workbench::State& state);

}  // namespace cordboard::cli
