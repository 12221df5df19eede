#include "workbench/forms/Unknown.h"

#include <algorithm>

#include "workbench/text/Nearest.h"

namespace cordboard::workbench {

std::string UnknownCommand(const std::string& command) {
  std::vector<std::string> names;
  for (const FormDefinition* form : Forms()) names.push_back(form->command);
  return "there is no command " + command + "." + DidYouMean(command, names);
}

std::string UnknownParameter(const FormDefinition& form, const std::string& name) {
  if (std::ranges::find(form.lines.derived, name) != form.lines.derived.end())
    return name + " stands in lines of the exchange alone: it follows from the record, and cannot be given here";
  std::vector<std::string> names;
  for (const ParameterDefinition& parameter : form.parameters) names.push_back(parameter.name);
  return "there is no parameter " + name + " in " + form.command + "." + DidYouMean(name, names);
}

std::string UnknownColumn(const FormDefinition& form, const std::string& name) {
  return "a record of " + form.command + " has no " + name + "." + DidYouMean(name, form.columns);
}

}  // namespace cordboard::workbench
