// cordboard commands: the commands of the exchange, by family.

#include <iostream>
#include <nlohmann/json.hpp>

#include "cli/Output.h"
#include "cli/Subcommands.h"
#include "workbench/forms/Families.h"

namespace cordboard::cli {

int Commands(const CommandsOptions& options) {
  nlohmann::json data = nlohmann::json::array();
  bool isFirst = true;
  for (const workbench::Family& family : workbench::Families()) {
    std::vector<std::vector<std::string>> rows;
    for (const workbench::FormDefinition* form : FormsOf(family)) {
      data.push_back(
          {{"command", form->command}, {"family", family.name}, {"title", form->title}, {"help", form->help}});
      rows.push_back({form->command, form->title});
    }
    if (options.json) continue;
    if (!std::exchange(isFirst, false)) std::cout << '\n';
    PrintTable({family.title, ""}, rows);
  }
  if (options.json) PrintJson({{"commands", data}});
  return Done;
}

}  // namespace cordboard::cli
