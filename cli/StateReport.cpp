#include "cli/StateReport.h"

#include <nlohmann/json.hpp>

namespace cordboard::cli {

using workbench::State;

nlohmann::json ToJson(const State& state) {
  const workbench::StateNote& note = state.note;
  return {{"number", state.number},
          {"kind", Named(note.kind)},
          {"time", state.time},
          {"user", state.user},
          {"message", note.message},
          {"plans", state.plans},
          {"lines", note.lines},
          {"added", note.added},
          {"changed", note.changed},
          {"removed", note.removed},
          {"of", state.concerns},
          {"takenBackBy", state.takenBackBy == 0 ? nlohmann::json(nullptr) : nlohmann::json(state.takenBackBy)}};
}

}  // namespace cordboard::cli
