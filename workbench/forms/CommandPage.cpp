#include "workbench/forms/CommandPage.h"

#include <regex>
#include <sstream>

#include "workbench/data/Resources.h"
#include "workbench/text/Separated.h"

namespace cordboard::workbench {

namespace {

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

}  // namespace

std::string Traits(const FormDefinition& form, const ParameterDefinition& parameter) {
  std::vector<std::string> traits;
  const auto add = [&traits](const std::string& trait) {
    if (!trait.empty()) traits.push_back(trait);
  };
  for (const ParameterFlag& flag : ParameterFlags()) {
    if (parameter.*flag.flag) add(flag.words);
  }
  add(DigitsOf(form, parameter.name));
  if (!parameter.releases.empty()) add("only in " + Separated(parameter.releases, " and "));
  return Separated(traits, ", ");
}

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

std::string FromTemplates(const FormDefinition& form) {
  const auto& [command, name] = form.templates;
  if (command.empty()) return "";
  return "From a template of " + Quoted(command) + ", by its " + Quoted(name) + ": " +
         Quoted(form.command + " from NAME:...;");
}

std::string OfLines(const FormDefinition& form) {
  const auto& lines = form.lines;
  std::string text;
  if (!lines.derived.empty()) text = "have " + Separated(lines.derived, ", ", Quoted);
  if (!lines.untold.empty())
    text += " in the place of " + Separated(lines.untold, ", ", Quoted) + ", from which they follow";
  if (!lines.from.empty()) text += (text.empty() ? "" : ", and ") + ("come from the records of " + Quoted(lines.from));
  return text.empty() ? "" : "Lines of the exchange " + text + ".";
}

std::string Example(const FormDefinition& form) {
  const std::string start = form.command + ":";
  const std::regex line("(.*;)\\s*(#.*)?");
  for (const std::string_view path : ResourcesIn("plans/")) {
    std::istringstream plan{std::string(Resource(path))};
    std::smatch found;
    for (std::string text; std::getline(plan, text);) {
      if (text.starts_with(start) && std::regex_match(text, found, line)) return found[1];
    }
  }
  return "";
}

std::string Notes(const FormDefinition& form) {
  static constexpr std::string_view mark = "<!-- notes -->\n";
  const auto page = Resources().find("commands/" + form.command + ".md");
  if (page == Resources().end()) return "";
  const std::size_t at = page->second.find(mark);
  if (at == page->second.npos) return "";
  const std::string_view notes = page->second.substr(at + mark.size());
  return std::string(notes.substr(std::min(notes.find_first_not_of('\n'), notes.size())));
}

std::string Page(const FormDefinition& form) {
  std::ostringstream page;
  page << "# " << form.command << ": " << form.title << "\n\n" << form.help << "\n\n";
  page << "Actions: " << Separated(Actions(form), ", ") << '.'
       << (form.single ? " One record for the whole exchange." : "") << "\n\n";
  if (const std::string example = Example(form); !example.empty()) page << "    " << example << "\n\n";
  page << "| Parameter | Meaning | |\n| --- | --- | --- |\n";
  const ParameterDefinition* listed = nullptr;
  for (const auto& [parameter, names] : Parameters(form)) {
    const std::string traits = Traits(form, parameter);
    page << "| " << names << " | " << parameter.title << " | " << traits << (traits.empty() ? "|\n" : " |\n");
    if (listed == nullptr && (parameter.list || parameter.fixed)) listed = &parameter;
  }
  if (listed != nullptr)
    page << "\nWhat is possible now: `cordboard values FILE " << form.command << ' ' << listed->name << "`.\n";
  if (!form.templates.command.empty()) page << '\n' << FromTemplates(form) << ".\n";
  if (const std::string lines = OfLines(form); !lines.empty()) page << '\n' << lines << '\n';
  for (const FormDefinition* table : form.OfEachTable()) {
    std::vector<std::string> columns;
    for (const std::string& column : table->columns) columns.push_back(Quoted(column));
    page << '\n'
         << (table == &form ? "Record" : "Record with " + Quoted(form.secondWith)) << ": table " << Quoted(table->table)
         << ", columns " << Separated(columns, ", ") << ".\n";
  }
  return page.str();
}

}  // namespace cordboard::workbench
