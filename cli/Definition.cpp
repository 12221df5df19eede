#include "cli/Definition.h"

#include <algorithm>
#include <iomanip>
#include <nlohmann/json.hpp>
#include <sstream>

#include "workbench/text/Separated.h"

namespace cordboard::cli {

namespace {

using Rows = std::vector<std::pair<std::string, std::string>>;

// Rows under a heading, their second column aligned; nothing where there are none.
std::string Section(const char* heading, const Rows& rows) {
  if (rows.empty()) return "";
  int width = 0;
  for (const auto& [left, right] : rows) width = std::max(width, static_cast<int>(left.size()));
  std::ostringstream text;
  text << '\n' << heading << ":\n";
  for (const auto& [left, right] : rows) text << "  " << std::left << std::setw(width + 2) << left << right << '\n';
  return text.str();
}

}  // namespace

std::string ArgumentDefinition::Written() const {
  return workbench::Separated(names, ", ") + (value.empty() ? "" : " " + value) + (takesSeveral ? "..." : "");
}

std::string ArgumentDefinition::Described() const {
  if (isOption && isRequired) return description + " (has to be given)";
  if (!otherwise.empty()) return description + " (else " + otherwise + ")";
  return description;
}

const Definition* Definition::Find(const std::string& subcommand) const {
  const auto found = std::ranges::find(subcommands, subcommand, &Definition::name);
  return found == subcommands.end() ? nullptr : &*found;
}

const ArgumentDefinition* Definition::FindOption(const std::string& option) const {
  const auto found = std::ranges::find_if(arguments, [&](const ArgumentDefinition& argument) {
    return argument.isOption && std::ranges::find(argument.names, option) != argument.names.end();
  });
  return found == arguments.end() ? nullptr : &*found;
}

std::string Definition::Synopsis() const {
  std::string synopsis = calledAs + " [OPTIONS]";
  for (const ArgumentDefinition& argument : arguments) {
    if (argument.isOption) continue;
    synopsis += argument.isRequired ? " " + argument.Written() : " [" + argument.Written() + "]";
  }
  return synopsis + (subcommands.empty() ? "" : " SUBCOMMAND");
}

std::string HelpText(const Definition& definition) {
  Rows arguments;
  Rows options;
  for (const ArgumentDefinition& argument : definition.arguments)
    (argument.isOption ? options : arguments).emplace_back(argument.Written(), argument.Described());
  Rows subcommands;
  for (const Definition& subcommand : definition.subcommands)
    subcommands.emplace_back(subcommand.name, subcommand.description);
  return definition.description + "\n\nUsage: " + definition.Synopsis() + "\n" + Section("Arguments", arguments) +
         Section("Options", options) + Section("Subcommands", subcommands) +
         (definition.footer.empty() ? "" : "\n" + definition.footer + "\n");
}

nlohmann::json ToJson(const Definition& definition) {
  nlohmann::json arguments = nlohmann::json::array();
  for (const ArgumentDefinition& argument : definition.arguments) {
    arguments.push_back({{"names", argument.names},
                         {"value", argument.value},
                         {"description", argument.description},
                         {"otherwise", argument.otherwise},
                         {"option", argument.isOption},
                         {"required", argument.isRequired},
                         {"several", argument.takesSeveral}});
  }
  nlohmann::json subcommands = nlohmann::json::array();
  for (const Definition& subcommand : definition.subcommands) subcommands.push_back(ToJson(subcommand));
  return {{"name", definition.name},
          {"description", definition.description},
          {"usage", definition.Synopsis()},
          {"arguments", arguments},
          {"subcommands", subcommands}};
}

}  // namespace cordboard::cli
