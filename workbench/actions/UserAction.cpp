#include "workbench/actions/UserAction.h"

#include <algorithm>
#include <map>

#include "script/Conversions.h"
#include "script/Text.h"
#include "workbench/actions/FormFilling.h"
#include "workbench/actions/NextValues.h"
#include "workbench/actions/Records.h"
#include "workbench/text/Nearest.h"

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

// The names of the columns that are given, each once: sub-digit parameters stand for the column that they fold into.
std::vector<std::string> GivenColumns(const FormDefinition& definition, const std::vector<Assignment>& values) {
  std::vector<std::string> given;
  for (const Assignment& assignment : values) {
    const Folding* folding = definition.FoldingWith(assignment.name);
    const std::string& name = folding == nullptr ? assignment.name : folding->parameter;
    const bool stored = std::ranges::find(definition.columns, name) != definition.columns.end();
    if (stored && std::ranges::find(given, name) == given.end()) given.push_back(name);
  }
  return given;
}

using ColumnValues = std::map<std::string, std::string>;

ColumnValues Columns(const Form& form) {
  ColumnValues values;
  for (const std::string& column : form.definition().columns) values[column] = Joined(form.Get(column));
  return values;
}

// Adds the columns that a check has changed since the record was shown, and says so.
void AddWhatChecksChanged(const Form& form, const ColumnValues& shown, std::vector<std::string>& changed,
                          std::vector<Problem>& warnings) {
  for (const std::string& column : form.definition().columns) {
    const std::string& before = shown.at(column);
    const std::string now = Joined(form.Get(column));
    if (now == before || std::ranges::find(changed, column) != changed.end()) continue;
    changed.push_back(column);
    warnings.push_back({column, before,
                        now.empty() ? "a check has cleared this value, since it does not go with the others"
                                    : "a check has changed this value to " + now,
                        ""});
  }
}

void CheckAddOnly(const FormDefinition& definition, const std::vector<Assignment>& values,
                  std::vector<Problem>& problems) {
  for (const Assignment& assignment : values) {
    const ParameterDefinition* parameter = definition.Find(assignment.name);
    if (parameter != nullptr && parameter->addOnly)
      problems.push_back({assignment.name, assignment.value,
                          "the " + assignment.name + " of a record cannot be changed; add another record", ""});
  }
}

// Sets the values, with what "next" stands for put in its place. A value that stands there already changes nothing, and
// so nothing is checked.
void SetAll(Session& session, std::vector<Assignment>& values, std::vector<Problem>& problems,
            std::vector<Problem>& warnings) {
  const FormDefinition& definition = session.form().definition();
  if (definition.ordered)
    std::ranges::stable_sort(values, {}, [&](const Assignment& value) { return definition.Place(value.name); });
  for (std::size_t i = 0; i < values.size(); ++i) {
    const auto twice = std::find_if(values.begin(), values.begin() + static_cast<std::ptrdiff_t>(i),
                                    [&](const Assignment& earlier) { return earlier.name == values[i].name; });
    if (twice != values.begin() + static_cast<std::ptrdiff_t>(i)) {
      problems.push_back({values[i].name, values[i].value, "this parameter is given twice", ""});
    } else if (TakeNext(session, values, values[i], problems) &&
               (values[i].value.empty() || Joined(session.form().Get(values[i].name)) != values[i].value)) {
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

// Opens the form and sets the values.
std::vector<Problem> Fill(Session& session, const FormDefinition& definition, std::vector<Assignment>& values,
                          std::vector<Problem>& warnings) {
  std::vector<Problem> problems;
  session.host().OpenForm(definition);
  // What is given is checked together with the record that stands.
  if (const auto record = StandingRecord(session.exchange(), definition))
    LoadRecord(session.exchange(), definition, *record, session.form());
  SetAll(session, values, problems, warnings);
  return problems;
}

Outcome Add(Session& session, const FormDefinition& definition, const UserAction& action) {
  std::vector<Problem> warnings;
  std::vector<Assignment> values = action.values;
  std::vector<Problem> problems = Fill(session, definition, values, warnings);
  CheckWhole(session, values, problems);
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

// Puts a stored record on the form. The checks of its values run, since they set up the rest of the form (the values
// that belong to an instrument, what has to be given); but whatever they think of the values, those are the stored
// ones.
void ShowRecord(Session& session, const FormDefinition& definition, std::int32_t CmdId) {
  LoadRecord(session.exchange(), definition, CmdId, session.form());
  for (const ParameterDefinition& parameter : definition.parameters) {
    if (!parameter.check || session.form().Get(parameter.name).IsBlank()) continue;
    session.host().Checking(parameter.name);
    session.Run("StatCheck", 0, {parameter.name}, parameter.name);
  }
  session.host().TakeMessages();
  LoadRecord(session.exchange(), definition, CmdId, session.form());
}

Outcome Edit(Session& session, const FormDefinition& definition, const UserAction& action) {
  std::vector<Problem> problems;
  std::vector<Problem> warnings;
  session.host().OpenForm(definition);
  const auto record = FindRecord(session.exchange(), definition, action.selection, problems);
  if (!record) return Refused(std::move(problems));
  ShowRecord(session, definition, *record);
  for (const ParameterDefinition& parameter : definition.parameters) {
    if (!parameter.oneInEdit) continue;
    session.form().SetTakesSeveral(parameter.name, false);
    session.form().SetTakesRange(parameter.name, false);
  }
  CheckSharedDigits(session.form(), action.values, problems);
  CheckAddOnly(definition, action.values, problems);
  const ColumnValues shown = Columns(session.form());
  std::vector<Assignment> values = action.values;
  SetAll(session, values, problems, warnings);
  CheckWhole(session, values, problems);
  std::vector<std::string> changed = GivenColumns(definition, values);
  if (problems.empty() && changed.empty())
    problems.push_back({"", "", "nothing is changed: give the new values behind the colon", ""});
  if (!problems.empty()) return Refused(std::move(problems));
  AddWhatChecksChanged(session.form(), shown, changed, warnings);
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

std::vector<Problem> FillForm(Session& session, const FormDefinition& definition, std::vector<Assignment> values,
                              std::vector<Problem>& warnings) {
  return Fill(session, definition, values, warnings);
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
