#include "workbench/forms/ParameterTexts.h"

#include <algorithm>

#include "workbench/exchange/Exchange.h"
#include "workbench/text/Separated.h"

namespace cordboard::workbench {

namespace {

bool Has(const std::vector<std::string>& names, const std::string& name) {
  return std::ranges::find(names, name) != names.end();
}

}  // namespace

std::vector<const FixedList*> FixedListsOf(const FormDefinition& form, const ParameterDefinition& parameter) {
  std::vector<const FixedList*> lists = FixedListsOf(form.command);
  std::erase_if(lists, [&](const FixedList* list) { return !Has(list->parameters, parameter.name); });
  return lists;
}

std::string HoldsFor(const FixedList& list) {
  std::string text = list.releases == Releases() ? "all releases" : Separated(list.releases, " and ");
  if (list.definitions != std::vector<int>{1}) {
    const auto number = [](int definition) { return std::to_string(definition); };
    text += ", definition " + Separated(list.definitions, " and ", number);
  }
  return text;
}

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
  if (const Folding* whole = form.FoldingOf(parameter.name)) {
    std::vector<std::string> parts;
    for (const DigitPlace& place : whole->places) {
      if (!place.digit.empty()) parts.push_back(place.digit);
      parts.insert(parts.end(), place.parameters.begin(), place.parameters.end());
    }
    told.push_back("Its parts can be given one by one: " + Separated(parts, ", ") + ".");
  }
  return told;
}

}  // namespace cordboard::workbench
