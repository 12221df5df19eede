// cordboard values: the values of a parameter that are valid now.

#include <iostream>
#include <nlohmann/json.hpp>

#include "cli/Files.h"
#include "cli/Output.h"
#include "cli/Subcommands.h"
#include "workbench/actions/Filling.h"
#include "workbench/forms/Unknown.h"
#include "workbench/plans/PlanLine.h"

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
  const workbench::ParameterDefinition* parameter = form.Find(name);
  if (parameter == nullptr) throw Exit{NotFound, workbench::UnknownParameter(form, name)};
  if (!parameter->IsIn(release))
    throw Exit{NotFound, "the release " + release + " does not have the parameter " + name + " in " + form.command};
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
  workbench::Filling filling = FillForm(session, form, given);
  const workbench::ValueList* list = filling.IsRefused() ? nullptr : filling.ListOf(options.parameter);
  for (const auto& problem : filling.problems()) Error(Written(form.command, problem));
  if (filling.IsRefused()) return Refused;
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
