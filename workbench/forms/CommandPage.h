// What users read of a command, in Markdown: its page, docs/commands/<COMMAND>.md, and the pieces of it.
#pragma once

#include <string>
#include <vector>

#include "workbench/forms/FormDefinition.h"

namespace cordboard::workbench {

// What is told of together: one parameter, or all that differ in a number alone, with their names.
struct Told {
  const ParameterDefinition& first;
  std::string names;
};
std::vector<Told> Parameters(const FormDefinition& form);

// What has to be known of a parameter besides its title, in one line: whether it has to be given, its digits, ...
std::string Traits(const FormDefinition& form, const ParameterDefinition& parameter);
std::vector<std::string> Actions(const FormDefinition& form);
// How a record is made from a template; nothing where there are none.
std::string FromTemplates(const FormDefinition& form);
// In what the lines of an exchange differ from what the form takes; nothing where they do not.
std::string OfLines(const FormDefinition& form);
// The first line of the plans that the program carries which adds a record of the command.
std::string Example(const FormDefinition& form);
// What is written by hand at the end of the page.
std::string Notes(const FormDefinition& form);
// The page without the notes.
std::string Page(const FormDefinition& form);

}  // namespace cordboard::workbench
