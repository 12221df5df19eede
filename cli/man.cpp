// cordboard man: the manual pages, of the program and its subcommands (section 1) and of the commands (section 7).

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>

#include "cli/Definition.h"
#include "cli/Markdown.h"
#include "cli/Subcommands.h"
#include "workbench/forms/CommandPage.h"
#include "workbench/forms/Unknown.h"

namespace cordboard::cli {

namespace {

namespace fs = std::filesystem;

struct ManualPage {
  std::string name;
  int section;
  std::string markdown;

  std::string Roff() const { return AsManualPage(markdown, name, section); }
};

// "cordboard-apply" for "cordboard apply".
std::string NameOf(const Definition& definition) {
  std::string name = definition.calledAs;
  std::ranges::replace(name, ' ', '-');
  return name;
}

std::string Quoted(const std::string& text) { return "`" + text + "`"; }

std::string Items(const Definition& definition, bool options) {
  std::string items;
  for (const ArgumentDefinition& argument : definition.arguments) {
    if (argument.isOption == options)
      items += "| " + Quoted(argument.Written()) + " | " + argument.Described() + " |\n";
  }
  return items;
}

std::string Section(const std::string& heading, const std::string& text) {
  return text.empty() ? "" : "\n## " + heading + "\n\n" + text;
}

ManualPage PageOf(const Definition& definition, const std::string& seeAlso) {
  std::string subcommands;
  for (const Definition& subcommand : definition.subcommands)
    subcommands += "| " + Quoted(NameOf(subcommand)) + "(1) | " + subcommand.description + " |\n";
  return {NameOf(definition), 1,
          "# " + NameOf(definition) + ": " + definition.description + "\n" +
              Section("SYNOPSIS", "    " + definition.Synopsis() + "\n") +
              Section("ARGUMENTS", Items(definition, false)) + Section("OPTIONS", Items(definition, true)) +
              Section("SUBCOMMANDS", subcommands) + Section("NOTES", definition.footer + "\n") +
              Section("SEE ALSO", seeAlso + "\n")};
}

ManualPage PageOf(const workbench::FormDefinition& form) {
  return {"cordboard-" + form.command, 7, Page(form) + '\n' + Notes(form)};
}

void Write(const fs::path& folder, const ManualPage& page) {
  const fs::path section = folder / ("man" + std::to_string(page.section));
  fs::create_directories(section);
  const fs::path path = section / (page.name + "." + std::to_string(page.section));
  std::ofstream file(path);
  file << page.Roff();
  if (!file.flush()) throw Exit{Trouble, path.string() + " cannot be written"};
}

}  // namespace

int Man(const ManOptions& options, const Definition& program) {
  const auto pageOf = [](const Definition& subcommand) { return PageOf(subcommand, "`cordboard`(1)"); };
  const ManualPage whole = PageOf(program, "A page for each command of the exchange, such as `cordboard-NANSI`(7).");
  if (!options.pages.empty()) {
    Write(options.pages, whole);
    for (const Definition& subcommand : program.subcommands) Write(options.pages, pageOf(subcommand));
    for (const workbench::FormDefinition* form : workbench::Forms()) Write(options.pages, PageOf(*form));
  } else if (options.name.empty()) {
    std::cout << whole.Roff();
  } else if (const Definition* subcommand = program.Find(options.name)) {
    std::cout << pageOf(*subcommand).Roff();
  } else if (const workbench::FormDefinition* form = workbench::FindForm(options.name)) {
    std::cout << PageOf(*form).Roff();
  } else {
    throw Exit{NotFound, workbench::UnknownCommand(options.name)};
  }
  return Done;
}

}  // namespace cordboard::cli
