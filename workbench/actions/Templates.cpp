#include "workbench/actions/Templates.h"

#include <algorithm>

#include "script/Conversions.h"
#include "workbench/actions/FormRules.h"
#include "workbench/actions/Records.h"

namespace cordboard::workbench {

namespace {

// The stored values of the template, in the order of its form.
std::vector<Assignment> ValuesOf(Exchange& exchange, const FormDefinition& ofTemplate, std::int32_t CmdId) {
  Form shown(ofTemplate);
  LoadRecord(exchange, ofTemplate, CmdId, shown);
  std::vector<Assignment> values;
  for (const ParameterDefinition& parameter : ofTemplate.parameters) {
    const bool stored = std::ranges::find(ofTemplate.columns, parameter.name) != ofTemplate.columns.end();
    const Value value = stored ? shown.Get(parameter.name) : Value();
    if (!value.IsBlank()) values.push_back({parameter.name, Joined(value)});
  }
  return values;
}

// The names that there are, the first few of them.
Possible NamesOf(Exchange& exchange, const FormDefinition& ofTemplate, const std::string& key) {
  constexpr std::size_t shown = 10;
  const RowSet names = SelectRecords(exchange, ofTemplate, "[" + key + "]", {}, " LIMIT " + std::to_string(shown + 1));
  Possible possible;
  for (std::size_t row = 0; row < std::min(names.RowCount(), shown); ++row)
    possible.values.push_back(Joined(names[0][row]));
  if (names.RowCount() <= shown) possible.total = names.RowCount();
  return possible;
}

void Put(Filling& filling, const std::string& name, const Assignment& value) {
  const FormDefinition& definition = filling.definition();
  const ParameterDefinition* parameter = definition.Find(value.name);
  if (parameter == nullptr || !parameter->IsIn(filling.session().exchange().release()) ||
      definition.IsElsewhere(value.name)) {
    filling.Warn({.parameter = value.name,
                  .value = value.value,
                  .message = "the template " + name + " has this value, and " + definition.command +
                             " does not take it here; it is left out"});
    return;
  }
  const std::size_t before = filling.problems().size();
  filling.Set(value);
  if (filling.problems().size() > before)
    filling.Refuse(value, "this value is the template's (" + name + "); give another one, or change the template");
}

}  // namespace

std::variant<std::vector<Assignment>, Problem> TemplateValues(Exchange& exchange, const FormDefinition& definition,
                                                              const std::string& name) {
  const FormDefinition* ofTemplate = FindForm(definition.templates.command);
  if (ofTemplate == nullptr)
    return Problem{.message = "records of " + definition.command + " are not made from templates"};
  const std::string& key = definition.templates.name;
  const auto found = FindRecord(exchange, *ofTemplate, {{key, name}});
  if (const auto* problem = std::get_if<Problem>(&found))
    return Problem{.message = problem->message, .possible = NamesOf(exchange, *ofTemplate, key)};
  std::vector<Assignment> values = ValuesOf(exchange, *ofTemplate, std::get<StoredRecord>(found).CmdId);
  std::erase_if(values, [&key](const Assignment& value) { return value.name == key; });
  return values;
}

void PutTemplate(Filling& filling, const std::string& name) {
  const auto values = TemplateValues(filling.session().exchange(), filling.definition(), name);
  if (const auto* problem = std::get_if<Problem>(&values)) return filling.Refuse(*problem);
  for (const Assignment& value : std::get<0>(values)) {
    if (!filling.IsGiven(value.name)) Put(filling, name, value);
  }
  SharedDigitsAreGivenTogether(filling);
}

}  // namespace cordboard::workbench
