#include "cli/ParameterHelp.h"

#include <iostream>
#include <nlohmann/json.hpp>

#include "cli/Markdown.h"
#include "cli/Output.h"
#include "workbench/forms/CommandPage.h"
#include "workbench/forms/ParameterTexts.h"
#include "workbench/text/Separated.h"

namespace cordboard::cli {

namespace {

using workbench::FixedList;
using workbench::FormDefinition;
using workbench::ParameterDefinition;
using workbench::Separated;

void PrintValues(const FormDefinition& form, const ParameterDefinition& parameter) {
  const auto lists = FixedListsOf(form, parameter);
  for (const FixedList* list : lists) {
    std::cout << "\nFixed values, " << HoldsFor(*list) << ":\n";
    for (const auto& [value, description] : list->values)
      std::cout << "  " << value << (description.empty() ? "" : "  " + description) << '\n';
  }
  if (!parameter.list && !parameter.fixed) {
    std::cout << "\nThere is no list of its values.\n";
  } else {
    std::cout << '\n'
              << (lists.empty() ? "Its values follow from what the exchange holds; those that are possible now: "
                                : "Those that are possible now: ")
              << "cordboard values FILE " << form.command << ' ' << parameter.name << '\n';
  }
}

}  // namespace

void PrintParameterHelp(const FormDefinition& form, const ParameterDefinition& parameter) {
  std::cout << form.command << ' ' << parameter.name << ": " << AsText(parameter.title) << '\n';
  if (const std::string traits = AsText(Traits(form, parameter)); !traits.empty()) std::cout << '\n' << traits << '\n';
  const std::vector<std::string> companions = Companions(form, parameter);
  if (!companions.empty()) std::cout << '\n' << Separated(companions, "\n") << '\n';
  PrintValues(form, parameter);
}

nlohmann::json ParameterHelpAsJson(const FormDefinition& form, const ParameterDefinition& parameter) {
  nlohmann::json values = nlohmann::json::array();
  for (const FixedList* list : FixedListsOf(form, parameter)) {
    for (const auto& [value, description] : list->values)
      values.push_back({{"value", value},
                        {"description", description},
                        {"releases", list->releases},
                        {"definitions", list->definitions}});
  }
  nlohmann::json told = ToJson(parameter);
  told["traits"] = AsText(Traits(form, parameter));
  return {{"command", form.command}, {"parameters", {told}}, {"values", values}};
}

nlohmann::json ToJson(const ParameterDefinition& parameter) {
  nlohmann::json entry{{"name", parameter.name}, {"title", parameter.title}};
  for (const workbench::ParameterFlag& flag : workbench::ParameterFlags()) entry[flag.key] = parameter.*flag.flag;
  entry["list"] = parameter.list || parameter.fixed;
  entry["releases"] = parameter.releases;
  return entry;
}

}  // namespace cordboard::cli
