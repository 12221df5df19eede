#include "workbench/actions/ShownValues.h"

#include <algorithm>

#include "script/Conversions.h"
#include "workbench/actions/Records.h"

namespace cordboard::workbench {

std::vector<std::string> GivenColumns(const Filling& filling) {
  const FormDefinition& definition = filling.definition();
  std::vector<std::string> given;
  const auto add = [&](const std::string& name) {
    const bool stored = std::ranges::find(definition.columns, name) != definition.columns.end();
    if (stored && std::ranges::find(given, name) == given.end()) given.push_back(name);
  };
  for (const Assignment& assignment : filling.given()) {
    std::string name = assignment.name;
    const Folding* folding = definition.FoldingWith(name);
    if (folding == nullptr || folding->isList) add(name);
    for (; folding != nullptr; folding = definition.FoldingWith(name)) add(name = folding->parameter);
    const Folding* list = definition.FoldingOf(assignment.name);
    if (list == nullptr || !list->isList) continue;
    for (const DigitPlace& place : list->places) add(place.parameters.front());
  }
  return given;
}

void ShowRecord(Session& session, const FormDefinition& definition, std::int32_t CmdId) {
  LoadRecord(session.exchange(), definition, CmdId, session.form());
  for (const ParameterDefinition& parameter : definition.parameters) {
    if (parameter.check && !session.form().Get(parameter.name).IsBlank()) session.Check(parameter.name);
  }
  session.host().TakeMessages();
  LoadRecord(session.exchange(), definition, CmdId, session.form());
  session.form().ShowOneRecord();
}

ShownValues::ShownValues(const Form& form) {
  for (const std::string& column : form.definition().columns) columns_[column] = Joined(form.Get(column));
}

std::vector<std::string> ShownValues::ChangedByChecks(Filling& filling) const {
  const std::vector<std::string> given = GivenColumns(filling);
  std::vector<std::string> changed;
  for (const std::string& column : filling.definition().columns) {
    const std::string& before = columns_.at(column);
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
