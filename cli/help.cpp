// cordboard help COMMAND: the parameters of a command.

#include <iostream>
#include <nlohmann/json.hpp>

#include "cli/Files.h"
#include "cli/Output.h"
#include "cli/Subcommands.h"

namespace cordboard::cli {

namespace {

using workbench::ParameterDefinition;

std::string Traits(const ParameterDefinition& parameter) {
  std::string traits = parameter.mandatory ? "has to be given" : "";
  const auto add = [&traits](bool holds, const char* trait) {
    if (holds) traits += std::string(traits.empty() ? "" : ", ") + trait;
  };
  add(parameter.multiple, "several (1&2)");
  add(parameter.range, "range (1&&9)");
  add(parameter.list || parameter.fixed, "list");
  add(parameter.check, "check");
  add(parameter.next, "next");
  return traits;
}

void HelpAsText(const workbench::FormDefinition& form) {
  std::cout << form.command << ": " << form.title << "\n\n" << form.help << "\n\n";
  std::vector<std::vector<std::string>> rows;
  for (const ParameterDefinition& parameter : form.parameters)
    rows.push_back({parameter.name, parameter.title, Traits(parameter)});
  PrintTable({"PARAMETER", "", ""}, rows);
  std::cout << "\nActions:" << (form.adds ? " add" : "") << (form.edits ? " edit" : "")
            << (form.deletes ? " delete" : "") << (form.generates ? " generate" : "") << '\n';
  std::cout << "list: see cordboard values FILE " << form.command << " PARAMETER\n";
}

void HelpAsJson(const workbench::FormDefinition& form) {
  nlohmann::json parameters = nlohmann::json::array();
  for (const ParameterDefinition& parameter : form.parameters)
    parameters.push_back({{"name", parameter.name},
                          {"title", parameter.title},
                          {"mandatory", parameter.mandatory},
                          {"multiple", parameter.multiple},
                          {"range", parameter.range},
                          {"list", parameter.list || parameter.fixed},
                          {"check", parameter.check},
                          {"next", parameter.next}});
  PrintJson({{"command", form.command},
             {"title", form.title},
             {"help", form.help},
             {"parameters", parameters},
             {"actions",
              {{"add", form.adds}, {"edit", form.edits}, {"delete", form.deletes}, {"generate", form.generates}}}});
}

}  // namespace

int Help(const HelpOptions& options) {
  const auto& form = FormOf(options.command);
  if (options.json) {
    HelpAsJson(form);
  } else {
    HelpAsText(form);
  }
  return Done;
}

}  // namespace cordboard::cli
