// cordboard commands: the commands of the exchange, by family.

#include <iostream>
#include <nlohmann/json.hpp>

#include "cli/Output.h"
#include "cli/Subcommands.h"
#include "entry/Registry.h"
#include "workbench/forms/FormDefinition.h"

namespace cordboard::cli {

namespace {

struct Family {
  std::string_view name;
  const char* title;
};

// In the order in which an exchange is set up.
constexpr Family families[] = {
    {"numberplan", "Number plan"},
    {"system", "System data"},
    {"authorisation", "Abbreviated numbers and authorisation"},
    {"keyextensions", "Key extensions and directory numbers"},
    {"extensions", "General extensions"},
    {"groups", "Groups"},
    {"operators", "Operators"},
    {"routes", "Routes"},
    {"cordless", "Cordless system"},
    {"ip", "IP extensions and integrated voice mail"},
    {"logging", "Call logging and external devices"},
    {"links", "Links to information computers and voice mail"},
};

}  // namespace

int Commands(const CommandsOptions& options) {
  nlohmann::json data = nlohmann::json::array();
  for (const Family& family : families) {
    std::vector<std::vector<std::string>> rows;
    for (const Command& command : Registry()) {
      if (command.family != family.name) continue;
      const workbench::FormDefinition& form = *workbench::FindForm(command.name);
      data.push_back({{"command", form.command}, {"family", family.name}, {"title", form.title}, {"help", form.help}});
      rows.push_back({form.command, form.title});
    }
    if (options.json) continue;
    if (&family != families) std::cout << '\n';
    PrintTable({family.title, ""}, rows);
  }
  if (options.json) PrintJson({{"commands", data}});
  return Done;
}

}  // namespace cordboard::cli
