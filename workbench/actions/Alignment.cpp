#include "workbench/actions/Alignment.h"

#include <algorithm>
#include <iterator>

#include "script/Conversions.h"
#include "workbench/actions/NextValues.h"
#include "workbench/actions/ShownValues.h"
#include "workbench/text/Elements.h"
#include "workbench/text/Separated.h"

namespace cordboard::workbench {

namespace {

using Values = std::vector<Assignment>;

// Whether the form takes the parameter, once; whatever is wrong with it is left to the edit, which refuses it.
bool IsTaken(Session& session, const FormDefinition& definition, const Values& told, const std::string& name) {
  const ParameterDefinition* parameter = definition.Find(name);
  return parameter != nullptr && parameter->IsIn(session.exchange().release()) &&
         std::ranges::count(told, name, &Assignment::name) == 1;
}

// The columns in which the values change what the open form shows. No check runs: whatever is told has passed them,
// where it stands.
std::vector<std::string> ChangedColumns(const Form& shown, const Values& told) {
  Form form = shown;
  for (const auto& [name, value] : told) value.empty() ? form.Reset(name) : form.Set(name, value);
  std::vector<std::string> changed;
  std::ranges::copy_if(shown.definition().columns, std::back_inserter(changed), [&](const std::string& column) {
    return !AreSame(shown.definition(), column, Joined(form.Get(column)), Joined(shown.Get(column)));
  });
  return changed;
}

// Those of the values that the record does not have.
Values Different(Session& session, const StoredRecord& record, Values told) {
  const FormDefinition& definition = *record.definition;
  session.host().OpenForm(definition);
  ShowRecord(session, definition, record.CmdId);
  const Form& shown = session.form();
  std::erase_if(told,
                [&](const Assignment& each) { return IsNext(definition, each) && !shown.Get(each.name).IsBlank(); });
  const std::vector<std::string> changed = ChangedColumns(shown, told);
  std::erase_if(told, [&, all = told](const Assignment& each) {
    const auto isChanged = [&](const std::string& column) {
      return std::ranges::find(changed, column) != changed.end();
    };
    return IsTaken(session, definition, all, each.name) &&
           std::ranges::none_of(ColumnsOf(definition, each.name), isChanged);
  });
  return told;
}

std::string Written(const FormDefinition& definition, const Values& values) {
  return Separated(values, ",", [&](const Assignment& each) { return each.name + "=" + definition.Told(each); });
}

}  // namespace

bool AreSame(const FormDefinition& definition, const std::string& parameter, const std::string& one,
             const std::string& other) try {
  if (one == other) return true;
  const ParameterDefinition* typed = definition.Find(parameter);
  return typed != nullptr && typed->TakesElements() && !one.empty() && !other.empty() &&
         Elements(one) == Elements(other);
} catch (const ElementsError&) {
  return false;
}

// An edit may clear a value that is told as well and was there: a second one sets it.
Outcome Align(Session& session, const StoredRecord& record, const Values& told) {
  const FormDefinition& definition = *record.definition;
  Values different = Different(session, record, told);
  if (different.empty()) return {.done = true, .standing = 1};
  if (!definition.edits)
    return {
        .problems = {{.message = "the record stands with other values than " + Written(definition, different) +
                                 ", and records of " + definition.command + " cannot be changed; delete it first"}}};
  Outcome outcome = Edit(session, record, different);
  if (!outcome.done) return outcome;
  different = Different(session, record, told);
  if (different.empty()) return outcome;
  Outcome second = Edit(session, record, different);
  second.warnings.insert(second.warnings.begin(), outcome.warnings.begin(), outcome.warnings.end());
  second.taken.insert(second.taken.begin(), outcome.taken.begin(), outcome.taken.end());
  return second;
}

}  // namespace cordboard::workbench
