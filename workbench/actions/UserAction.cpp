#include "workbench/actions/UserAction.h"

#include <algorithm>
#include <iterator>

#include "script/Conversions.h"
#include "workbench/actions/Filling.h"
#include "workbench/actions/FormRules.h"
#include "workbench/actions/Reasons.h"
#include "workbench/actions/Selection.h"
#include "workbench/actions/ShownValues.h"
#include "workbench/actions/ValueWarnings.h"
#include "workbench/forms/Unknown.h"

namespace cordboard::workbench {

namespace {

Outcome Refused(Problem problem) { return {.problems = {std::move(problem)}}; }
Outcome Refused(Filling& filling) { return {.problems = filling.problems(), .debugLines = filling.TakeDebugLines()}; }

// Runs the action and turns its answer and messages into the outcome.
Outcome Act(Filling& filling, const std::string& function, std::int32_t CmdId, const List& ParamList) {
  Session& session = filling.session();
  const RunResult result = session.Run(function, CmdId, ParamList);
  for (Problem& problem : Explained(filling, session.host().TakeMessages()))
    result.answer ? filling.Warn(std::move(problem)) : filling.Refuse(std::move(problem));
  // Where the rules fail at a value, it is mostly one of those that they would have to refuse.
  for (std::size_t i = 0; result.failure && i < filling.warnings().size(); ++i) filling.Refuse(filling.warnings()[i]);
  if (result.failure)
    filling.Refuse({.message = filling.WithoutSecrets(result.failure->inWords), .cause = result.failure->cause});
  if (!result.answer && !filling.IsRefused())
    filling.Refuse({.message = "the rules of " + filling.definition().command + " refuse this and do not say why"});
  return {.done = result.answer,
          .problems = filling.problems(),
          .warnings = filling.warnings(),
          .taken = filling.taken(),
          .debugLines = filling.TakeDebugLines()};
}

List Names(const std::vector<std::string>& names) { return List(std::vector<Value>(names.begin(), names.end())); }

Outcome Add(Session& session, const FormDefinition& definition, const UserAction& action) {
  Filling filling = FillForm(session, definition, action.values, action.from);
  CheckWholeForm(filling);
  if (filling.IsRefused()) return Refused(filling);
  WarnOfValues(filling);
  Outcome outcome = Act(filling, "SetInfo", 0, Names(filling.definition().columns));
  if (!outcome.done && StandingRecord(session.exchange(), definition))
    outcome.problems.push_back({.message = "there is one record of " + definition.command +
                                           ", and it stands already; change it with: edit " + definition.command +
                                           ":NAME=value;"});
  return outcome;
}

// Adds what there is to tell of one of several records.
void Tell(std::vector<Problem>& told, std::vector<Problem> problems, const std::string& record) {
  for (Problem& problem : problems) {
    problem.message = "record " + record + ": " + problem.message;
    told.push_back(std::move(problem));
  }
}

}  // namespace

std::string WithReason(const Problem& problem) {
  const std::string& message = problem.message;
  if (problem.reason.empty()) return message;
  return message + (message.ends_with('.') ? " (" + problem.reason + ")" : ": " + problem.reason);
}

std::string InWords(const Problem& problem) {
  std::string text = WithReason(problem);
  if (problem.possible) text += (text.ends_with('.') ? " " : ". ") + ("Possible: " + InWords(*problem.possible));
  return text;
}

Outcome Edit(Session& session, const StoredRecord& record, const std::vector<Assignment>& values) {
  const FormDefinition& definition = *record.definition;
  const std::int32_t CmdId = record.CmdId;
  Filling filling(session, definition, values);
  ShowRecord(session, definition, CmdId);
  const ShownValues shown(filling.form());
  CheckEdit(filling);
  filling.SetGiven();
  CheckWholeForm(filling);
  std::vector<std::string> changed = GivenColumns(filling);
  if (!filling.IsRefused() && changed.empty())
    filling.Refuse({.message = "nothing is changed: give the new values after the colon"});
  if (filling.IsRefused()) return Refused(filling);
  WarnOfValues(filling);
  for (const std::string& column : shown.ChangedByChecks(filling)) changed.push_back(column);
  Outcome outcome = Act(filling, "EditInfo", CmdId, Names(changed));
  if (outcome.done) WriteKeysAfterEdit(session.exchange(), definition, CmdId, changed, session.form());
  return outcome;
}

Outcome Delete(Session& session, const StoredRecord& record) {
  const FormDefinition& definition = *record.definition;
  Filling filling(session, definition);
  LoadRecord(session.exchange(), definition, record.CmdId, session.form());
  Outcome outcome = Act(filling, "DeleteInfo", record.CmdId, List());
  if (!outcome.done && !outcome.problems.empty() && outcome.problems.back().reason.empty())
    outcome.problems.back().reason = WhoNames(session.exchange(), definition, session.form());
  if (outcome.done && definition.handling.removeRowAfterDelete) RemoveRow(session.exchange(), definition, record.CmdId);
  return outcome;
}

Outcome PerformOnEach(Session& session, const Selection& selection,
                      const std::function<Outcome(const StoredRecord& record)>& perform) {
  if (!selection.several) return perform(selection.records.front().record);
  Outcome whole{.done = true, .warnings = selection.notThere};
  for (const auto& [record, name] : selection.records) {
    Transaction transaction(session.exchange());
    if (!IsHeld(session.exchange(), *record.definition, "CmdId", std::to_string(record.CmdId))) {
      Tell(whole.warnings, {{.message = "it has gone with one before it"}}, name);
      continue;
    }
    Outcome outcome = perform(record);
    if (outcome.done) transaction.Commit();
    whole.done = whole.done && outcome.done;
    whole.standing += outcome.standing;
    Tell(whole.problems, std::move(outcome.problems), name);
    Tell(whole.warnings, std::move(outcome.warnings), name);
    std::ranges::move(outcome.taken, std::back_inserter(whole.taken));
    std::ranges::move(outcome.debugLines, std::back_inserter(whole.debugLines));
  }
  return whole;
}

Outcome Perform(Session& session, const UserAction& action) {
  const FormDefinition* definition = FindForm(action.command);
  if (definition == nullptr) return Refused(Problem{.message = UnknownCommand(action.command)});
  return Perform(session, *definition, action);
}

Outcome Perform(Session& session, const FormDefinition& definition, const UserAction& action) {
  const auto cannot = [&](const std::string& what) {
    return Refused(Problem{.message = "records of " + action.command + " cannot be " + what});
  };
  if (action.kind == UserAction::Kind::Add) return definition.adds ? Add(session, definition, action) : cannot("added");
  const bool edit = action.kind == UserAction::Kind::Edit;
  if (edit && !definition.edits) return cannot("changed");
  if (!edit && !definition.deletes) return cannot("deleted");
  const auto found = FindRecords(session.exchange(), definition, action.selection);
  if (const auto* problem = std::get_if<Problem>(&found)) return Refused(*problem);
  return PerformOnEach(session, std::get<Selection>(found), [&](const StoredRecord& record) {
    return edit ? Edit(session, record, action.values) : Delete(session, record);
  });
}

}  // namespace cordboard::workbench
