#include "cli/StateReport.h"

#include <nlohmann/json.hpp>

#include "workbench/text/Counted.h"
#include "workbench/text/Separated.h"

namespace cordboard::cli {

using workbench::State;
using workbench::StateKind;

std::string InWords(const State& state) {
  std::string words = Named(state.note.kind);
  // A row of the table has no room for many names; --json has all.
  if (!state.plans.empty()) words += " " + state.plans.front();
  if (state.plans.size() > 1) words += " and " + std::to_string(state.plans.size() - 1) + " more";
  if (!state.concerns.empty())
    words += " of " + workbench::Separated(state.concerns, ", ", [](int number) { return std::to_string(number); });
  if (state.takenBackBy != 0) words += " (taken back by " + std::to_string(state.takenBackBy) + ")";
  return words;
}

std::string Told(const State& state) {
  const workbench::StateNote& note = state.note;
  std::string text = InWords(state) + ", by " + state.user + " at " + state.time;
  const auto add = [&text](std::size_t count, const std::string& what) {
    if (count > 0) text += ", " + what;
  };
  add(note.lines, workbench::Counted(note.lines, "line"));
  add(note.added, workbench::Counted(note.added, "record") + " added");
  add(note.changed, workbench::Counted(note.changed, "record") + " changed");
  add(note.removed, workbench::Counted(note.removed, "record") + " removed");
  return note.message.empty() ? text : text + ": " + note.message;
}

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
