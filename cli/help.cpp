// cordboard help: what a command and its parameters are, what a subcommand takes, and the guides.

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <nlohmann/json.hpp>

#include "cli/Definition.h"
#include "cli/Markdown.h"
#include "cli/Output.h"
#include "cli/ParameterHelp.h"
#include "cli/Subcommands.h"
#include "workbench/data/Resources.h"
#include "workbench/forms/CommandPage.h"
#include "workbench/forms/Unknown.h"
#include "workbench/text/Nearest.h"
#include "workbench/text/Separated.h"

namespace cordboard::cli {

namespace {

using workbench::FormDefinition;

void HelpAsText(const FormDefinition& form) {
  std::cout << form.command << ": " << form.title << "\n\n" << form.help << "\n\n";
  if (const std::string example = Example(form); !example.empty()) std::cout << "    " << example << "\n\n";
  std::vector<std::vector<std::string>> rows;
  for (const auto& [parameter, names] : Parameters(form))
    rows.push_back({AsText(names), AsText(parameter.title), AsText(Traits(form, parameter))});
  PrintTable({"PARAMETER", "", ""}, rows);
  std::cout << "\nActions: " << workbench::Separated(Actions(form), " ") << '\n';
  if (!form.templates.command.empty()) std::cout << AsText(FromTemplates(form)) << '\n';
  if (const std::string lines = OfLines(form); !lines.empty()) std::cout << AsText(lines) << '\n';
  std::cout << "list: see cordboard values FILE " << form.command << " PARAMETER\n";
  if (const std::string notes = Notes(form); !notes.empty()) std::cout << '\n' << AsText(notes);
}

void HelpAsJson(const FormDefinition& form) {
  nlohmann::json parameters = nlohmann::json::array();
  for (const workbench::ParameterDefinition& parameter : form.parameters) parameters.push_back(ToJson(parameter));
  PrintJson({{"command", form.command},
             {"title", form.title},
             {"help", form.help},
             {"example", Example(form)},
             {"notes", Notes(form)},
             {"parameters", parameters},
             {"templates", form.templates.command},
             {"lines", {{"derived", form.lines.derived}, {"untold", form.lines.untold}, {"from", form.lines.from}}},
             {"actions",
              {{"add", form.adds}, {"edit", form.edits}, {"delete", form.deletes}, {"generate", form.generates}}}});
}

int HelpOnCommand(const HelpOptions& options, const FormDefinition& form) {
  if (options.json) {
    HelpAsJson(form);
  } else if (options.page) {
    std::cout << Page(form);
  } else {
    HelpAsText(form);
  }
  return Done;
}

int HelpOnParameter(const HelpOptions& options, const FormDefinition& form) {
  const workbench::ParameterDefinition* parameter = form.Find(options.parameter);
  if (parameter == nullptr) throw Exit{NotFound, workbench::UnknownParameter(form, options.parameter)};
  if (options.json) {
    PrintJson(ParameterHelpAsJson(form, *parameter));
  } else {
    PrintParameterHelp(form, *parameter);
  }
  return Done;
}

int HelpOnProgram(const HelpOptions& options, const Definition& definition) {
  if (options.json) {
    PrintJson(ToJson(definition));
  } else {
    std::cout << HelpText(definition);
  }
  return Done;
}

int WritePages(const std::filesystem::path& folder) {
  std::filesystem::create_directories(folder);
  for (const FormDefinition* form : workbench::Forms()) {
    std::ofstream page(folder / (form->command + ".md"));
    page << Page(*form);
    if (!page.flush()) throw Exit{Trouble, "the pages cannot be written to " + folder.string()};
  }
  return Done;
}

[[noreturn]] void FailUnknown(const std::string& name, const Definition& program) {
  std::vector<std::string> names;
  for (const FormDefinition* form : workbench::Forms()) names.push_back(form->command);
  for (const Definition& subcommand : program.subcommands) names.push_back(subcommand.name);
  throw Exit{NotFound, "there is no command " + name + "." + workbench::DidYouMean(name, names)};
}

}  // namespace

int Help(const HelpOptions& options, const Definition& program) {
  if (!options.pages.empty()) return WritePages(options.pages);
  if (options.name.empty()) return HelpOnProgram(options, program);
  if (const FormDefinition* form = workbench::FindForm(options.name))
    return options.parameter.empty() ? HelpOnCommand(options, *form) : HelpOnParameter(options, *form);
  if (!options.parameter.empty()) throw Exit{NotFound, workbench::UnknownCommand(options.name)};
  const auto guide = workbench::Resources().find(options.name + ".md");
  const bool hasGuide = guide != workbench::Resources().end();
  // A subcommand may have a guide of its name.
  const Definition* subcommand = program.Find(options.name);
  if (subcommand != nullptr && !(options.page && hasGuide)) return HelpOnProgram(options, *subcommand);
  if (!hasGuide) FailUnknown(options.name, program);
  if (options.json) {
    PrintJson({{"guide", options.name}, {"text", guide->second}});
  } else {
    std::cout << guide->second;
  }
  return Done;
}

}  // namespace cordboard::cli
