#include "workbench/actions/ShownValues.h"

#include <algorithm>

#include "script/Conversions.h"
#include "workbench/actions/FormRules.h"

namespace cordboard::workbench {

std::vector<std::string> ColumnsOf(const FormDefinition& definition, const std::string& parameter) {
  std::vector<std::string> columns;
  const auto add = [&](const std::string& name) {
    if (std::ranges::find(definition.columns, name) != definition.columns.end()) columns.push_back(name);
  };
  std::string name = parameter;
  const Folding* folding = definition.FoldingWith(name);
  if (folding == nullptr || folding->isList) add(name);
  for (; folding != nullptr; folding = definition.FoldingWith(name)) add(name = folding->parameter);
  const Folding* list = definition.FoldingOf(parameter);
  if (list == nullptr || !list->isList) return columns;
  for (const DigitPlace& place : list->places) add(place.parameters.front());
  return columns;
}

std::vector<std::string> GivenColumns(const Filling& filling) {
  std::vector<std::string> given;
  for (const Assignment& assignment : filling.given()) {
    for (std::string& column : ColumnsOf(filling.definition(), assignment.name)) {
      if (std::ranges::find(given, column) == given.end()) given.push_back(std::move(column));
    }
  }
  return given;
}

void ShowRecord(Session& session, const FormDefinition& definition, std::int32_t CmdId) {
  const StoredValues stored = ReadRecord(session.exchange(), definition, CmdId);
  PutOnForm(stored, session.form());
  for (const ParameterDefinition& parameter : definition.parameters) {
    if (parameter.check && !session.form().Get(parameter.name).IsBlank()) session.Check(parameter.name);
  }
  session.host().TakeMessages();
  PutOnForm(stored, session.form());
  session.form().ShowOneRecord();
}

Filling FillFormOf(Session& session, const StoredRecord& record, std::vector<Assignment> given) {
  Filling filling(session, *record.definition, std::move(given));
  ShowRecord(session, *record.definition, record.CmdId);
  CheckEdit(filling);
  filling.SetGiven();
  return filling;
}

ShownValues::ShownValues(const Form& form) {
  for (const std::string& column : form.definition().columns) values_.push_back(Joined(form.Get(column)));
}

std::vector<std::string> ShownValues::ChangedByChecks(Filling& filling) const {
  const std::vector<std::string> given = GivenColumns(filling);
  std::vector<std::string> changed;
  for (std::size_t i = 0; i < values_.size(); ++i) {
    const std::string& column = filling.definition().columns[i];
    const std::string& before = values_[i];
    const std::string now = Joined(filling.form().Get(column));
    if (now == before || std::ranges::find(given, column) != given.end()) continue;
    changed.push_back(column);
    filling.Warn({.parameter = column,
                  .value = before,
                  .message = now.empty() ? "a check has cleared this value, since it does not go with the others"
                             : filling.definition().IsSecret(column) ? "a check has changed this value"
                                                                     : "a check has changed this value to " + now});
  }
  return changed;
}

}  // namespace cordboard::workbench
