// cordboard values: the values of a parameter that are valid now.

#include <iostream>
#include <nlohmann/json.hpp>

#include "cli/Files.h"
#include "cli/Output.h"
#include "cli/Subcommands.h"
#include "workbench/actions/Filling.h"
#include "workbench/forms/Unknown.h"

namespace cordboard::cli {

namespace {

void CheckParameter(const workbench::FormDefinition& form, const std::string& name, const std::string& release) {
  const workbench::ParameterDefinition* parameter = form.Find(name);
  if (parameter == nullptr) throw Exit{NotFound, workbench::UnknownParameter(form, name)};
  if (!parameter->IsIn(release))
    throw Exit{NotFound, "the release " + release + " does not have the parameter " + name + " in " + form.command};
}

}  // namespace

int Values(const ValuesOptions& options) {
  const auto exchange = OpenExchange(options.file);
  const workbench::FormDefinition& form = FormOf(options.command);
  CheckParameter(form, options.parameter, exchange->release());
  const std::vector<workbench::Assignment> given = AssignmentsOf(options.given);

  workbench::Session session(*exchange);
  workbench::Filling filling = FillForm(session, form, given);
  const workbench::ValueList* list = filling.IsRefused() ? nullptr : filling.ListOf(options.parameter);
  for (const auto& problem : filling.problems()) Error({.command = form.command}, problem);
  if (filling.IsRefused()) return Refused;
  if (list == nullptr)
    throw Exit{NotFound, form.command + " has no list of values for " + options.parameter + "; any value may be typed"};

  const std::vector<workbench::ValidValue> all = options.limit > 0 ? list->First(options.limit) : list->All();
  if (options.json) {
    nlohmann::json data = nlohmann::json::array();
    for (const auto& [value, description] : all) data.push_back({{"value", value}, {"description", description}});
    PrintJson({{"values", data}});
    return Done;
  }
  for (const auto& [value, description] : all)
    std::cout << value << (description.empty() ? "" : "\t" + description) << '\n';
  return Done;
}

}  // namespace cordboard::cli
