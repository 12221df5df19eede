#include "workbench/history/History.h"

#include "web/ChangedRecords.h"
#include "web/Frame.h"
#include "web/States.h"
#include "web/pages/Pages.h"
#include "workbench/actions/StateChanges.h"
#include "workbench/history/StateInWords.h"
#include "workbench/plans/SavedPlan.h"
#include "workbench/plans/ToldPlan.h"

namespace cordboard::web {

namespace {

using workbench::HistoryError;
using workbench::State;

// What other programs did is in no state.
Html WarningOfOthers(const workbench::History& history) {
  try {
    history.CheckUntouched();
    return {};
  } catch (const HistoryError& error) {
    return Notice("warning", error.what());
  }
}

bool CanBeTakenBack(const workbench::History& history, int number) {
  try {
    return !history.TakenWith(number, true).empty();
  } catch (const HistoryError&) {
    return false;
  }
}

bool CanBeBroughtAgain(const workbench::History& history) {
  try {
    history.LastUndo();
    return true;
  } catch (const HistoryError&) {
    return false;
  }
}

Html UndoOf(const State& state, const std::string& text) {
  const std::string number = std::to_string(state.number);
  return Element("a", {{"href", Address("/undo", {{"number", number}})}, {"aria-label", text + ": state " + number}},
                 text + "...");
}

Html TableOf(const Visit& visit, const workbench::History& history) {
  std::vector<std::vector<Html>> rows;
  bool isLast = true;  // of those that can be taken back
  const std::vector<State>& states = history.states();
  for (auto state = states.rbegin(); state != states.rend(); ++state) {
    Html way;
    if (!visit.readOnly() && CanBeTakenBack(history, state->number)) {
      way = UndoOf(*state, isLast ? "Undo" : "Undo with later ones");
      isLast = false;
    }
    const workbench::StateNote& note = state->note;
    rows.push_back({Link(AddressOf(*state), std::to_string(state->number)), way, state->time, state->user,
                    InWords(*state), std::to_string(note.lines), std::to_string(note.added),
                    std::to_string(note.changed), std::to_string(note.removed), note.message});
  }
  return Table("States, the newest first",
               {"State", "Actions", "Time", "User", "Change", "Lines", "Added", "Changed", "Removed", "Message"}, rows);
}

Html Plans(workbench::Exchange& exchange, int number) {
  Html content;
  for (const auto& [name, text] : PlansOf(exchange, number))
    content += Element("h2", "Plan " + name) + AsLines(workbench::ToldPlan(workbench::WithoutFirstLine(text)));
  return content;
}

}  // namespace

Answer History(const Visit& visit, const Request&) {
  const auto exchange = visit.Read();
  const workbench::History history(exchange->Dynamic());
  Html content = WarningOfOthers(history);
  if (!visit.readOnly() && CanBeBroughtAgain(history))
    content += Element("p", {{"class", "actions"}}, Link("/redo", "Redo what the last undo took back..."));
  content += history.states().empty() ? Element("p", "There is no history yet: it begins with the next change.")
                                      : TableOf(visit, history);
  return Page(visit, "History", content);
}

Answer OneState(const Visit& visit, const Request& request) {
  const auto number = StateNumberOf(request.query, "number");
  if (!number) throw Failed(BadRequest, "The number of a state is missing.");
  const auto exchange = visit.Read();
  const workbench::History history(exchange->Dynamic());
  const State& state = history.Find(*number);
  Html ways = Element("li", Link("/history", "History"));
  if (!visit.readOnly() && CanBeTakenBack(history, *number)) ways += Element("li", UndoOf(state, "Undo"));
  Html content = Element("p", Told(state)) + Element("ul", {{"class", "actions"}}, ways);
  const Html plans = Plans(*exchange, *number);
  // The exchange goes back to the state, so that what is read after this is what was there then.
  try {
    const workbench::StateChanges changes(*exchange, *number);
    content += ChangedRecords(changes.records());
  } catch (const HistoryError& error) {
    content += Notice("warning", error.what());
  }
  return Page(visit, "State " + std::to_string(*number), content + plans);
}

}  // namespace cordboard::web
