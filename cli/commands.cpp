// cordboard commands: the commands that are built.

#include <nlohmann/json.hpp>

#include "cli/Output.h"
#include "cli/Subcommands.h"
#include "workbench/forms/FormDefinition.h"

namespace cordboard::cli {

namespace {

void Commands(bool json) {
  nlohmann::json data = nlohmann::json::array();
  std::vector<std::vector<std::string>> rows;
  for (const workbench::FormDefinition* form : workbench::Forms()) {
    data.push_back({{"command", form->command}, {"title", form->title}, {"help", form->help}});
    rows.push_back({form->command, form->title});
  }
  if (json) return PrintJson(data);
  PrintTable({"COMMAND", ""}, rows);
}

}  // namespace

void AddCommands(CLI::App& app, int&) {
  auto json = std::make_shared<bool>(false);
  CLI::App* sub = app.add_subcommand("commands", "List the commands that are built");
  sub->add_flag("--json", *json, "print as JSON");
  sub->callback([json] { Commands(*json); });
}

}  // namespace cordboard::cli
