// Forms made for tests, over commands that are built.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "workbench/forms/FormReader.h"

namespace cordboard::workbench {

inline FormDefinition TestForm(const std::string& command, std::vector<std::string> columns,
                               std::vector<ParameterDefinition> parameters) {
  FormDefinition form;
  form.command = command;
  form.title = command;
  form.table = command;
  form.columns = std::move(columns);
  form.parameters = std::move(parameters);
  form.shown = ShownColumns(form);
  form.adds = form.edits = form.deletes = true;
  return form;
}

inline ParameterDefinition Parameter(const std::string& name) {
  ParameterDefinition parameter;
  parameter.name = name;
  parameter.title = "title of " + name;
  return parameter;
}

inline ParameterDefinition FreeText(const std::string& name) {
  ParameterDefinition parameter = Parameter(name);
  parameter.characters = Characters::Any;
  return parameter;
}

inline ParameterDefinition Mandatory(ParameterDefinition parameter) {
  parameter.mandatory = true;
  return parameter;
}
inline ParameterDefinition WithList(ParameterDefinition parameter) {
  parameter.list = true;
  return parameter;
}
inline ParameterDefinition WithFixedList(ParameterDefinition parameter) {
  parameter.fixed = true;
  return parameter;
}
inline ParameterDefinition WithCheck(ParameterDefinition parameter) {
  parameter.check = true;
  return parameter;
}
inline ParameterDefinition WithElements(ParameterDefinition parameter) {
  parameter.multiple = parameter.range = true;
  return parameter;
}
inline ParameterDefinition AsText(ParameterDefinition parameter) {
  parameter.text = true;
  return parameter;
}

}  // namespace cordboard::workbench
