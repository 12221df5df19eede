// cordboard values: the values of a parameter that are valid now.

#include <iostream>
#include <nlohmann/json.hpp>

#include "cli/Files.h"
#include "cli/Output.h"
#include "cli/Subcommands.h"
#include "workbench/actions/FormFilling.h"
#include "workbench/plans/PlanLine.h"
#include "workbench/text/Nearest.h"

namespace cordboard::cli {

namespace {

void CheckParameter(const workbench::FormDefinition& form, const std::string& name, const std::string& release) {
  if (const workbench::ParameterDefinition* parameter = form.Find(name)) {
    if (parameter->IsIn(release)) return;
    throw Exit{NotFound, "the release " + release + " does not have the parameter " + name + " in " + form.command};
  }
  std::vector<std::string> names;
  for (const auto& parameter : form.parameters) names.push_back(parameter.name);
  throw Exit{NotFound,
             "there is no parameter " + name + " in " + form.command + "." + workbench::DidYouMean(name, names)};
}

}  // namespace

int Values(const ValuesOptions& options) {
  const auto exchange = OpenExchange(options.file);
  const workbench::FormDefinition& form = FormOf(options.command);
  CheckParameter(form, options.parameter, exchange->release());
  std::vector<workbench::Assignment> given;
  for (const std::string& text : options.given) {
    try {
      given.push_back(workbench::ParseAssignment(text));
    } catch (const workbench::PlanLineError& error) {
      throw Exit{Usage, error.what()};
    }
  }

  workbench::Session session(*exchange);
  std::vector<workbench::Problem> warnings;
  std::vector<workbench::Problem> problems = FillForm(session, form, given, warnings);
  const workbench::ValueList* list = problems.empty() ? session.host().FreshList(options.parameter) : nullptr;
  for (auto& problem : workbench::TakeProblems(session, options.parameter, "")) problems.push_back(problem);
  for (const auto& problem : problems) Error(Written(form.command, problem));
  if (!problems.empty()) return Refused;
  if (list == nullptr)
    throw Exit{NotFound, form.command + " has no list of values for " + options.parameter + "; any value may be typed"};

  const std::vector<workbench::ValidValue> all = options.limit > 0 ? list->First(options.limit) : list->All();
  if (options.json) {
    nlohmann::json data = nlohmann::json::array();
    for (const auto& [value, description] : all) data.push_back({{"value", value}, {"description", description}});
    PrintJson(data);
    return Done;
  }
  for (const auto& [value, description] : all)
    std::cout << value << (description.empty() ? "" : "\t" + description) << '\n';
  return Done;
}

}  // namespace cordboard::cli
