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

struct Options {
  std::string file;
  std::string command;
  std::string parameter;
  std::vector<std::string> given;
  std::size_t limit = 0;
  bool json = false;
};

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

int Values(const Options& options) {
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

}  // namespace

void AddValues(CLI::App& app, int& exitCode) {
  auto options = std::make_shared<Options>();
  CLI::App* sub = app.add_subcommand("values", "List the values of a parameter that are valid now");
  sub->add_option("FILE", options->file, "the exchange file")->required();
  sub->add_option("COMMAND", options->command, "the command, such as NANSI")->required();
  sub->add_option("PARAM", options->parameter, "its parameter, such as NUMTYP")->required();
  sub->add_option("NAME=VALUE", options->given, "what else the form holds, in the order in which it is filled in");
  sub->add_option("--limit", options->limit, "the first so many values")->check(CLI::PositiveNumber);
  sub->add_flag("--json", options->json, "print as JSON");
  sub->callback([options, &exitCode] { exitCode = Values(*options); });
}

}  // namespace cordboard::cli
