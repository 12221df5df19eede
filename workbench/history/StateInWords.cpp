#include "workbench/history/StateInWords.h"

#include "workbench/text/Counted.h"
#include "workbench/text/Separated.h"

namespace cordboard::workbench {

std::string InWords(const State& state) {
  std::string words = Named(state.note.kind);
  // A row of a table has no room for many names.
  if (!state.plans.empty()) words += " " + state.plans.front();
  if (state.plans.size() > 1) words += " and " + std::to_string(state.plans.size() - 1) + " more";
  if (!state.concerns.empty())
    words += " of " + Separated(state.concerns, ", ", [](int number) { return std::to_string(number); });
  if (state.takenBackBy != 0) words += " (taken back by " + std::to_string(state.takenBackBy) + ")";
  return words;
}

std::string Told(const State& state) {
  const StateNote& note = state.note;
  std::string text = InWords(state) + ", by " + state.user + " at " + state.time;
  const auto add = [&text](std::size_t count, const std::string& what) {
    if (count > 0) text += ", " + what;
  };
  add(note.lines, Counted(note.lines, "line"));
  add(note.added, Counted(note.added, "record") + " added");
  add(note.changed, Counted(note.changed, "record") + " changed");
  add(note.removed, Counted(note.removed, "record") + " removed");
  return note.message.empty() ? text : text + ": " + note.message;
}

}  // namespace cordboard::workbench
