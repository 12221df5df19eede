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

void Help(const workbench::FormDefinition& form) {
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

void AddHelp(CLI::App& app, int&) {
  struct Options {
    std::string command;
    bool json = false;
  };
  auto options = std::make_shared<Options>();
  CLI::App* sub = app.add_subcommand("help", "Show the parameters of a command");
  sub->add_option("COMMAND", options->command, "the command; none for the help of the program");
  sub->add_flag("--json", options->json, "print as JSON");
  sub->callback([options, &app] {
    if (options->command.empty()) {
      // app.help() would be the help of the subcommand that was chosen: this one.
      std::cout << app.get_formatter()->make_help(&app, app.get_name(), CLI::AppFormatMode::Normal);
    } else if (options->json) {
      HelpAsJson(FormOf(options->command));
    } else {
      Help(FormOf(options->command));
    }
  });
}

}  // namespace cordboard::cli
