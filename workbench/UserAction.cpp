#include "workbench/UserAction.h"

#include <algorithm>

#include "script/Conversions.h"
#include "script/Text.h"
#include "workbench/FormFilling.h"
#include "workbench/Nearest.h"
#include "workbench/Records.h"

namespace cordboard::workbench {

namespace {

Outcome Refused(std::vector<Problem> problems) { return {.problems = std::move(problems)}; }

// Runs the action and turns its answer and messages into the outcome.
Outcome Act(Session& session, const std::string& function, std::int32_t CmdId, const List& ParamList) {
  Outcome outcome;
  const RunResult result = session.Run(function, CmdId, ParamList);
  std::vector<Problem> messages = TakeProblems(session, "", "");
  outcome.debugLines = session.host().TakeDebugLines();
  outcome.done = result.answer;
  if (result.answer) {
    outcome.warnings = std::move(messages);
    return outcome;
  }
  outcome.problems = std::move(messages);
  if (result.failure) outcome.problems.push_back({"", "", "the action failed (" + *result.failure + ")", ""});
  if (outcome.problems.empty()) outcome.problems.push_back({"", "", "the action was refused without a message", ""});
  return outcome;
}

List Names(const std::vector<std::string>& names) { return List(std::vector<Value>(names.begin(), names.end())); }

// The names of the changed columns, each once: sub-digit parameters stand for the column that they fold into.
std::vector<std::string> ChangedColumns(const FormDefinition& definition, const std::vector<Assignment>& values) {
  std::vector<std::string> changed;
  for (const Assignment& assignment : values) {
    const Folding* folding = definition.FoldingWith(assignment.name);
    const std::string& name = folding == nullptr ? assignment.name : folding->parameter;
    const bool stored = std::ranges::find(definition.columns, name) != definition.columns.end();
    if (stored && std::ranges::find(changed, name) == changed.end()) changed.push_back(name);
  }
  return changed;
}

void SetAll(Session& session, const std::vector<Assignment>& values, std::vector<Problem>& problems,
            std::vector<Problem>& warnings) {
  for (std::size_t i = 0; i < values.size(); ++i) {
    const auto twice = std::find_if(values.begin(), values.begin() + static_cast<std::ptrdiff_t>(i),
                                    [&](const Assignment& earlier) { return earlier.name == values[i].name; });
    if (twice != values.begin() + static_cast<std::ptrdiff_t>(i)) {
      problems.push_back({values[i].name, values[i].value, "this parameter is given twice", ""});
    } else {
      SetValue(session, values[i], problems, warnings);
    }
  }
}

// Parameters that add up to the same digits cannot be told apart in a stored whole: where one of them is given anew,
// the others have to be given too, or their part would be lost in silence.
void CheckSharedDigits(const Form& form, const std::vector<Assignment>& values, std::vector<Problem>& problems) {
  const auto given = [&values](const std::string& name) {
    return std::ranges::find(values, name, &Assignment::name) != values.end();
  };
  for (const Folding& folding : form.definition().foldings) {
    for (const DigitPlace& place : folding.places) {
      const std::string digits = Middle(Joined(form.Get(folding.parameter)), place.first, place.width);
      if (digits.find_first_not_of(folding.fill) == digits.npos || std::ranges::none_of(place.parameters, given))
        continue;
      for (const std::string& name : place.parameters) {
        if (!given(name))
          problems.push_back({name, "",
                              "this parameter has to be given as well: it and the one that is changed add up to " +
                                  digits + " in " + folding.parameter,
                              ""});
      }
    }
  }
}

Outcome Add(Session& session, const FormDefinition& definition, const UserAction& action) {
  std::vector<Problem> warnings;
  std::vector<Problem> problems = FillForm(session, definition, action.values, warnings);
  CheckWhole(session, action.values, problems);
  if (!problems.empty()) return Refused(std::move(problems));
  Outcome outcome = Act(session, "SetInfo", 0, Names(definition.columns));
  if (!outcome.done && StandingRecord(session.exchange(), definition))
    outcome.problems.push_back({"", "",
                                "there is one record of " + definition.command +
                                    ", and it stands already; change it with: edit " + definition.command +
                                    ":NAME=value;",
                                ""});
  outcome.warnings.insert(outcome.warnings.begin(), warnings.begin(), warnings.end());
  return outcome;
}

Outcome Edit(Session& session, const FormDefinition& definition, const UserAction& action) {
  std::vector<Problem> problems;
  std::vector<Problem> warnings;
  session.host().OpenForm(definition);
  const auto record = FindRecord(session.exchange(), definition, action.selection, problems);
  if (!record) return Refused(std::move(problems));
  LoadRecord(session.exchange(), definition, *record, session.form());
  for (const ParameterDefinition& parameter : definition.parameters) {
    if (!parameter.oneInEdit) continue;
    session.form().SetTakesSeveral(parameter.name, false);
    session.form().SetTakesRange(parameter.name, false);
  }
  CheckSharedDigits(session.form(), action.values, problems);
  SetAll(session, action.values, problems, warnings);
  CheckWhole(session, action.values, problems);
  const std::vector<std::string> changed = ChangedColumns(definition, action.values);
  if (problems.empty() && changed.empty())
    problems.push_back({"", "", "nothing is changed: give the new values behind the colon", ""});
  if (!problems.empty()) return Refused(std::move(problems));
  Outcome outcome = Act(session, "EditInfo", *record, Names(changed));
  if (outcome.done) WriteKeysAfterEdit(session.exchange(), definition, *record, changed, session.form());
  outcome.warnings.insert(outcome.warnings.begin(), warnings.begin(), warnings.end());
  return outcome;
}

Outcome Delete(Session& session, const FormDefinition& definition, const UserAction& action) {
  std::vector<Problem> problems;
  session.host().OpenForm(definition);
  const auto record = FindRecord(session.exchange(), definition, action.selection, problems);
  if (!record) return Refused(std::move(problems));
  LoadRecord(session.exchange(), definition, *record, session.form());
  Outcome outcome = Act(session, "DeleteInfo", *record, List());
  if (outcome.done && definition.handling.removeRowAfterDelete) RemoveRow(session.exchange(), definition, *record);
  return outcome;
}

}  // namespace

const FormDefinition* FindFormOr(const std::string& command, std::vector<Problem>& problems) {
  if (const FormDefinition* form = FindForm(command)) return form;
  std::vector<std::string> names;
  for (const FormDefinition* form : Forms()) names.push_back(form->command);
  problems.push_back({"", "", "there is no command " + command + "." + DidYouMean(command, names), ""});
  return nullptr;
}

std::vector<Problem> FillForm(Session& session, const FormDefinition& definition, const std::vector<Assignment>& values,
                              std::vector<Problem>& warnings) {
  std::vector<Problem> problems;
  session.host().OpenForm(definition);
  // What is given is checked together with the record that stands.
  if (const auto record = StandingRecord(session.exchange(), definition))
    LoadRecord(session.exchange(), definition, *record, session.form());
  SetAll(session, values, problems, warnings);
  return problems;
}

Outcome Perform(Session& session, const UserAction& action) {
  std::vector<Problem> problems;
  const FormDefinition* definition = FindFormOr(action.command, problems);
  return definition == nullptr ? Refused(std::move(problems)) : Perform(session, *definition, action);
}

Outcome Perform(Session& session, const FormDefinition& definition, const UserAction& action) {
  const auto cannot = [&](const char* what) {
    return Refused({{"", "", "records of " + action.command + " cannot be " + what, ""}});
  };
  switch (action.kind) {
    case UserAction::Kind::Add: return definition.adds ? Add(session, definition, action) : cannot("added");
    case UserAction::Kind::Edit: return definition.edits ? Edit(session, definition, action) : cannot("changed");
    case UserAction::Kind::Delete: return definition.deletes ? Delete(session, definition, action) : cannot("deleted");
  }
  return Refused({});
}

}  // namespace cordboard::workbench
