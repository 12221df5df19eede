// cordboard commands: the commands that are built.

#include <nlohmann/json.hpp>

#include "cli/Output.h"
#include "cli/Subcommands.h"
#include "workbench/forms/FormDefinition.h"

namespace cordboard::cli {

int Commands(const CommandsOptions& options) {
  nlohmann::json data = nlohmann::json::array();
  std::vector<std::vector<std::string>> rows;
  for (const workbench::FormDefinition* form : workbench::Forms()) {
    data.push_back({{"command", form->command}, {"title", form->title}, {"help", form->help}});
    rows.push_back({form->command, form->title});
  }
  if (options.json) {
    PrintJson(data);
  } else {
    PrintTable({"COMMAND", ""}, rows);
  }
  return Done;
}

}  // namespace cordboard::cli
