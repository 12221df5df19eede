#include "cli/ParameterHelp.h"

#include <algorithm>
#include <iostream>
#include <nlohmann/json.hpp>

#include "cli/CommandPage.h"
#include "cli/Markdown.h"
#include "cli/Output.h"
#include "workbench/exchange/Exchange.h"
#include "workbench/exchange/FixedValues.h"
#include "workbench/text/Separated.h"

namespace cordboard::cli {

namespace {

using workbench::FixedList;
using workbench::FormDefinition;
using workbench::ParameterDefinition;
using workbench::Separated;

bool Has(const std::vector<std::string>& names, const std::string& name) {
  return std::ranges::find(names, name) != names.end();
}

std::vector<const FixedList*> FixedListsOf(const FormDefinition& form, const ParameterDefinition& parameter) {
  std::vector<const FixedList*> lists = workbench::FixedListsOf(form.command);
  std::erase_if(lists, [&](const FixedList* list) { return !Has(list->parameters, parameter.name); });
  return lists;
}

// For which releases and, where it is not the first alone, for which definitions of the parameter: which of them is
// active follows from what else the form holds.
std::string HoldsFor(const FixedList& list) {
  std::string text = list.releases == workbench::Releases() ? "all releases" : Separated(list.releases, " and ");
  if (list.definitions != std::vector<int>{1}) {
    const auto number = [](int definition) { return std::to_string(definition); };
    text += ", definition " + Separated(list.definitions, " and ", number);
  }
  return text;
}

// What other parameters it goes with, in sentences.
std::vector<std::string> Companions(const FormDefinition& form, const ParameterDefinition& parameter) {
  std::vector<std::string> told;
  for (std::vector<std::string> names : form.inStep) {
    if (std::erase(names, parameter.name) > 0)
      told.push_back("It goes in step with " + Separated(names, ", ") + ": as many values of each.");
  }
  if (parameter.narrowing) told.push_back("While " + parameter.narrowing->by + " is given, its list is narrower.");
  if (parameter.beside)
    told.push_back("Any number from " + std::to_string(parameter.beside->from) + " to " +
                   std::to_string(parameter.beside->to) + " is possible as well.");
  if (const workbench::Folding* whole = form.FoldingOf(parameter.name)) {
    std::vector<std::string> parts;
    for (const workbench::DigitPlace& place : whole->places) {
      if (!place.digit.empty()) parts.push_back(place.digit);
      parts.insert(parts.end(), place.parameters.begin(), place.parameters.end());
    }
    told.push_back("Its parts can be given one by one: " + Separated(parts, ", ") + ".");
  }
  return told;
}

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
