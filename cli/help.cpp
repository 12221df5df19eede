// cordboard help COMMAND: the parameters of a command.

#include <algorithm>
#include <iostream>
#include <nlohmann/json.hpp>
#include <regex>
#include <sstream>

#include "cli/Files.h"
#include "cli/Output.h"
#include "cli/Subcommands.h"
#include "workbench/data/Resources.h"

namespace cordboard::cli {

namespace {

using workbench::DigitPlace;
using workbench::Folding;
using workbench::FormDefinition;
using workbench::ParameterDefinition;

std::string Joined(const std::vector<std::string>& texts, const char* separator) {
  std::string joined;
  for (const std::string& text : texts) joined += (joined.empty() ? "" : separator) + text;
  return joined;
}

std::string Quoted(const std::string& name) { return "`" + name + "`"; }

// A name in Markdown, or those of all parameters that differ from it in a number alone. A whole is not always a
// parameter.
std::string Names(const FormDefinition& form, const std::string& name) {
  const ParameterDefinition* first = form.Find(name);
  if (first == nullptr || first->ofSeries == 1) return Quoted(name);
  return Quoted(name) + " to " + Quoted(form.parameters[form.Place(name) + first->ofSeries - 1].name);
}

// Which digits of which whole a sub-digit parameter is.
std::string DigitsOf(const FormDefinition& form, const std::string& name) {
  const Folding* folding = form.FoldingWith(name);
  if (folding == nullptr) return "";
  if (!folding->separator.empty()) return "a part of " + Names(form, folding->parameter);
  for (const DigitPlace& place : folding->places) {
    if (!place.Has(name)) continue;
    const std::string first = std::to_string(place.first);
    std::string text = place.width == 1 ? "digit " + first
                                        : "digits " + first + " to " + std::to_string(place.first + place.width - 1);
    text += " of " + Quoted(folding->parameter);
    if (name == place.digit) return text + ", or by its parts";
    const char* joint = ", added to ";
    for (const std::string& other : place.parameters) {
      if (other == name) continue;
      text += joint + Quoted(other);
      joint = " and ";
    }
    return text;
  }
  return "";
}

// What a user has to know of a parameter besides its title, in Markdown.
std::string Traits(const FormDefinition& form, const ParameterDefinition& parameter) {
  std::string traits;
  const auto add = [&traits](const std::string& trait) {
    if (!trait.empty()) traits += (traits.empty() ? "" : ", ") + trait;
  };
  for (const workbench::ParameterFlag& flag : workbench::ParameterFlags()) {
    if (parameter.*flag.flag) add(flag.words);
  }
  add(DigitsOf(form, parameter.name));
  if (!parameter.releases.empty()) add("only in " + Joined(parameter.releases, " and "));
  return traits;
}

// What is told of together: one parameter, or all that differ in a number alone, with their names in Markdown.
struct Told {
  const ParameterDefinition& first;
  std::string names;
};

std::vector<Told> Parameters(const FormDefinition& form) {
  std::vector<Told> told;
  for (std::size_t i = 0; i < form.parameters.size(); i += form.parameters[i].ofSeries) {
    const ParameterDefinition& first = form.parameters[i];
    told.push_back({first, Names(form, first.name)});
  }
  return told;
}

std::vector<std::string> Actions(const FormDefinition& form) {
  std::vector<std::string> actions;
  if (form.adds) actions.emplace_back("add");
  if (form.edits) actions.emplace_back("edit");
  if (form.deletes) actions.emplace_back("delete");
  if (form.generates) actions.emplace_back("generate");
  return actions;
}

// How a record is made from a template, in Markdown; nothing where there are none.
std::string FromTemplates(const FormDefinition& form) {
  const auto& [command, name] = form.templates;
  if (command.empty()) return "";
  return "From a template of " + Quoted(command) + ", by its " + Quoted(name) + ": " +
         Quoted(form.command + " from NAME:...;");
}

// In what the lines of an exchange differ from what the form takes, in Markdown; nothing where they do not.
std::string OfLines(const FormDefinition& form) {
  const auto& lines = form.lines;
  const auto named = [](std::vector<std::string> names) {
    for (std::string& name : names) name = Quoted(name);
    return Joined(names, ", ");
  };
  std::string text;
  if (!lines.derived.empty()) text = "have " + named(lines.derived);
  if (!lines.untold.empty()) text += " in the place of " + named(lines.untold) + ", from which they follow";
  if (!lines.from.empty()) text += (text.empty() ? "" : ", and ") + ("come from the records of " + Quoted(lines.from));
  return text.empty() ? "" : "Lines of the exchange " + text + ".";
}

std::string Plain(std::string markdown) {
  std::erase(markdown, '`');
  return markdown;
}

void HelpAsText(const FormDefinition& form) {
  std::cout << form.command << ": " << form.title << "\n\n" << form.help << "\n\n";
  std::vector<std::vector<std::string>> rows;
  for (const auto& [parameter, names] : Parameters(form))
    rows.push_back({Plain(names), parameter.title, Plain(Traits(form, parameter))});
  PrintTable({"PARAMETER", "", ""}, rows);
  std::cout << "\nActions: " << Joined(Actions(form), " ") << '\n';
  if (!form.templates.command.empty()) std::cout << Plain(FromTemplates(form)) << '\n';
  if (const std::string lines = OfLines(form); !lines.empty()) std::cout << Plain(lines) << '\n';
  std::cout << "list: see cordboard values FILE " << form.command << " PARAMETER\n";
}

void HelpAsJson(const FormDefinition& form) {
  nlohmann::json parameters = nlohmann::json::array();
  for (const ParameterDefinition& parameter : form.parameters) {
    nlohmann::json entry{{"name", parameter.name}, {"title", parameter.title}};
    for (const workbench::ParameterFlag& flag : workbench::ParameterFlags()) entry[flag.key] = parameter.*flag.flag;
    entry["list"] = parameter.list || parameter.fixed;
    entry["releases"] = parameter.releases;
    parameters.push_back(entry);
  }
  PrintJson({{"command", form.command},
             {"title", form.title},
             {"help", form.help},
             {"parameters", parameters},
             {"templates", form.templates.command},
             {"lines", {{"derived", form.lines.derived}, {"untold", form.lines.untold}, {"from", form.lines.from}}},
             {"actions",
              {{"add", form.adds}, {"edit", form.edits}, {"delete", form.deletes}, {"generate", form.generates}}}});
}

// The first line of the plans that the program carries which adds a record of the command.
std::string Example(const FormDefinition& form) {
  const std::regex line("(" + form.command + ":.*;)\\s*(#.*)?");
  for (const std::string_view path : workbench::ResourcesIn("plans/")) {
    std::istringstream plan{std::string(workbench::Resource(path))};
    std::smatch found;
    for (std::string text; std::getline(plan, text);) {
      if (std::regex_match(text, found, line)) return found[1];
    }
  }
  return "";
}

// The page of the command, docs/commands/<COMMAND>.md, without the notes at its end.
void HelpAsPage(const FormDefinition& form) {
  std::cout << "# " << form.command << ": " << form.title << "\n\n" << form.help << "\n\n";
  std::cout << "Actions: " << Joined(Actions(form), ", ") << '.'
            << (form.single ? " One record for the whole exchange." : "") << "\n\n";
  if (const std::string example = Example(form); !example.empty()) std::cout << "    " << example << "\n\n";
  std::cout << "| Parameter | Meaning | |\n| --- | --- | --- |\n";
  const ParameterDefinition* listed = nullptr;
  for (const auto& [parameter, names] : Parameters(form)) {
    const std::string traits = Traits(form, parameter);
    std::cout << "| " << names << " | " << parameter.title << " | " << traits << (traits.empty() ? "|\n" : " |\n");
    if (listed == nullptr && (parameter.list || parameter.fixed)) listed = &parameter;
  }
  if (listed != nullptr)
    std::cout << "\nWhat is possible now: `cordboard values FILE " << form.command << ' ' << listed->name << "`.\n";
  if (!form.templates.command.empty()) std::cout << '\n' << FromTemplates(form) << ".\n";
  if (const std::string lines = OfLines(form); !lines.empty()) std::cout << '\n' << lines << '\n';
  for (const FormDefinition* table : form.OfEachTable()) {
    std::vector<std::string> columns;
    for (const std::string& column : table->columns) columns.push_back(Quoted(column));
    std::cout << '\n'
              << (table == &form ? "Record" : "Record with " + Quoted(form.secondWith)) << ": table "
              << Quoted(table->table) << ", columns " << Joined(columns, ", ") << ".\n";
  }
}

}  // namespace

int Help(const HelpOptions& options) {
  const FormDefinition& form = FormOf(options.command);
  if (options.json) {
    HelpAsJson(form);
  } else if (options.page) {
    HelpAsPage(form);
  } else {
    HelpAsText(form);
  }
  return Done;
}

}  // namespace cordboard::cli
