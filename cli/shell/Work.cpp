#include "cli/shell/Work.h"

#include <algorithm>
#include <filesystem>
#include <sstream>

#include "cli/AllOrNothing.h"
#include "cli/Files.h"
#include "cli/Output.h"
#include "cli/PlanReport.h"
#include "cli/PlanStream.h"
#include "cli/shell/Telling.h"
#include "workbench/history/History.h"
#include "workbench/history/StateInWords.h"
#include "workbench/history/Undo.h"
#include "workbench/plans/SavedPlan.h"
#include "workbench/text/Counted.h"

namespace cordboard::cli::shell {

namespace {

using workbench::Counted;
using workbench::PlanResult;

int CodeOf(const PlanResult& result) { return result.refused == 0 ? Done : Refused; }

int TellState(const workbench::State& made) {
  Note("state " + std::to_string(made.number), Told(made));
  return Done;
}

// What has come since a trial began.
void TellStale(const Trial& trial, workbench::Exchange& now) {
  Error("the exchange was changed since the trial began; nothing was kept, and " + Counted(trial.lines(), "line") +
        (trial.lines() == 1 ? " is" : " are") +
        " still there: \"try again\" performs them on the exchange as it is now, \"drop\" throws them away");
  bool isTold = false;
  const workbench::History history(now.Dynamic());
  for (const workbench::State& state : history.states()) {
    if (!trial.base() || state.number <= *trial.base()) continue;
    TellState(state);
    isTold = true;
  }
  if (!isTold) Note("note", "it is another exchange, or somebody has written it who keeps no history");
}

}  // namespace

PlanResult Work::Apply(const workbench::PlanFile& plan, const std::string& text, workbench::PlanOptions options) {
  const auto file = trial_ ? nullptr : file_.ToWrite();
  workbench::Exchange& exchange = trial_ ? trial_->exchange() : *file;
  workbench::Session session(exchange);
  PlanResult result = KeptOrNothing([&] { return ApplyPlan(session, {plan}, options); });
  if (file) file_.WarnOfReaders(exchange);
  if (!result.kept) return result;
  if (trial_) {
    trial_->Add(text, result);
  } else {
    kept_.push_back({text, result.state});
  }
  return result;
}

int Work::Perform(const Entry& entry) {
  std::istringstream in(entry.text);
  Teller teller(entry, source_);
  const auto done = [&teller](const workbench::LineReport& report) { teller.Take(report); };
  const PlanResult result = Apply({source_, in}, entry.text, {.done = done});
  teller.Tell(result);
  if (result.kept && !result.state) Note("note", "nothing has changed");
  return CodeOf(result);
}

int Work::Read(const std::string& plan) {
  if (plan == "-") throw Exit{Usage, "standard input is what this shell reads"};
  PlanStream in(OpenPlan(plan));
  std::string text;
  const PlanResult result = Apply({plan, in}, text, {.read = [&](const std::string&, const std::string& line) {
                                    if (workbench::ReadableLine(line)) text += (text.empty() ? "" : "\n") + line;
                                  }});
  TellByCause(result);
  Note("plan", std::to_string(result.done) + " done, " + std::to_string(result.refused) + " refused" +
                   (result.kept ? "" : "; nothing was kept"));
  if (result.kept) TellCommands(result);
  return CodeOf(result);
}

Trial& Work::OpenTrial() {
  if (!trial_) throw Exit{Refused, "there is no trial; \"try\" begins one"};
  return *trial_;
}

int Work::Try() {
  if (trial_) throw Exit{Refused, "there is a trial already; \"keep\" or \"drop\" ends it"};
  trial_.emplace(file_.Copy());
  return Done;
}

int Work::TryAgain() {
  const std::vector<std::string> texts = OpenTrial().Texts();
  Trial again(file_.Copy());
  std::swap(*trial_, again);
  int code = Done;
  try {
    for (const std::string& text : texts) {
      if (Perform({.text = text, .isOneRow = false}) == Done) continue;
      Warning("left out of the trial: " + Named(text));
      code = Refused;
    }
  } catch (...) {
    std::swap(*trial_, again);
    throw;
  }
  return code;
}

int Work::Keep(const std::string& message) {
  Trial& trial = OpenTrial();
  const std::size_t lines = trial.lines();
  if (lines == 0) throw Exit{Refused, "the trial has no lines to keep; \"drop\" ends it"};
  const auto file = file_.ToWrite();
  const std::string name = std::filesystem::path(file_.name()).filename().string();
  std::istringstream in(trial.AsSavedPlan(name));
  workbench::Session session(*file);
  PlanResult result;
  try {
    result = KeptOrNothing([&] { return ApplyPlan(session, {{source_, in}}, {.message = message}); });
  } catch (const workbench::StalePlan&) {
    TellStale(trial, file_.Look());
    return Refused;
  }
  file_.WarnOfReaders(*file);
  if (!result.kept) {
    TellByCause(result);
    throw Exit{Refused, "nothing was kept; the lines of the trial are still there"};
  }
  kept_.push_back({trial.AsPlan(), result.state});
  trial_.reset();
  Note("kept", Counted(lines, "line") +
                   (result.state ? " as state " + std::to_string(*result.state) : ", which change nothing"));
  TellCommands(result);
  return Done;
}

int Work::Drop() {
  const std::size_t lines = OpenTrial().lines();
  trial_.reset();
  if (lines > 0) Note("dropped", Counted(lines, "line"));
  return Done;
}

int Work::Undo(std::optional<int> state, bool withLater) {
  if (!trial_) {
    const auto file = file_.ToWrite();
    return TellState(KeptOrNothing([&] { return workbench::Undo(file->Dynamic(), state, withLater, ""); }));
  }
  if (state || withLater)
    throw Exit{Usage, "in a trial undo takes back its last line; leave out what stands behind it"};
  const auto text = trial_->TakeBack();
  if (!text) throw Exit{Refused, "the trial has no line that could be taken back"};
  Note("taken back", Named(*text));
  return Done;
}

int Work::Redo() {
  if (!trial_) {
    const auto file = file_.ToWrite();
    return TellState(KeptOrNothing([&] { return workbench::Redo(file->Dynamic(), ""); }));
  }
  const auto text = trial_->BringAgain();
  if (!text) throw Exit{Refused, "the trial has no line that was taken back"};
  Note("brought again", Named(*text));
  return Done;
}

// A state that is forgotten holds all the same.
std::string Work::KeptLines() {
  const workbench::History history(file_.Look().Dynamic());
  std::string lines;
  for (const Kept& kept : kept_) {
    const auto state =
        std::ranges::find_if(history.states(), [&](const workbench::State& each) { return each.number == kept.state; });
    if (state != history.states().end() && state->takenBackBy != 0) continue;
    lines += kept.text + (kept.text.ends_with('\n') ? "" : "\n");
  }
  return lines;
}

int Work::Save(const std::string& plan) {
  const std::string lines = trial_ ? trial_->AsPlan() : KeptLines();
  if (lines.empty()) throw Exit{Refused, "there are no lines to save"};
  CheckOutput(file_.name(), plan);
  WriteOutput(plan, lines);
  Note("lines", std::to_string(CountLines(lines)) + " written to " + plan);
  return Done;
}

}  // namespace cordboard::cli::shell
