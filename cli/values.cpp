// cordboard values: the values of a parameter that are valid now.

#include <iostream>
#include <nlohmann/json.hpp>
#include <optional>

#include "cli/EditedForm.h"
#include "cli/Files.h"
#include "cli/Output.h"
#include "cli/Subcommands.h"
#include "workbench/actions/EmptyList.h"
#include "workbench/forms/Unknown.h"

namespace cordboard::cli {

namespace {

void CheckParameter(const workbench::FormDefinition& form, const std::string& name, const std::string& release) {
  const workbench::ParameterDefinition* parameter = form.Find(name);
  if (parameter == nullptr) throw Exit{NotFound, workbench::UnknownParameter(form, name)};
  if (!parameter->IsIn(release))
    throw Exit{NotFound, "the release " + release + " does not have the parameter " + name + " in " + form.command};
}

// Prints one value after the other. Gives whether there was any.
bool Print(const workbench::ValueList& list, std::size_t limit, std::optional<JsonList>& json) {
  bool any = false;
  const auto print = [&](std::string_view value, std::string_view description) {
    any = true;
    if (json) {
      json->Add({{"value", value}, {"description", description}});
    } else {
      std::cout << Printed(std::string(value));
      if (!description.empty()) std::cout << '\t' << Printed(std::string(description));
      std::cout << '\n';
    }
    return true;
  };
  if (limit == 0) {
    list.Each(print);
  } else {
    for (const auto& [value, description] : list.First(limit)) print(value, description);
  }
  return any;
}

}  // namespace

int Values(const ValuesOptions& options) { return Values(*OpenToRead(options.file), options); }

int Values(workbench::Exchange& exchange, const ValuesOptions& options) {
  const workbench::FormDefinition& form = FormOf(options.command);
  CheckParameter(form, options.parameter, exchange.release());
  const std::vector<workbench::Assignment> given = AssignmentsOf(options.given);
  const std::vector<workbench::Assignment> selection = AssignmentsOf(options.of);

  std::shared_ptr<workbench::ListSources> sources;
  workbench::Session session(exchange, [&sources](std::shared_ptr<Host> host) {
    return sources = std::make_shared<workbench::ListSources>(std::move(host));
  });
  workbench::Filling filling =
      selection.empty() ? FillForm(session, form, given) : FillSelected(session, form, selection, given);
  sources->Forget();
  const workbench::ValueList* list = filling.IsRefused() ? nullptr : filling.ListOf(options.parameter);
  for (const auto& problem : filling.problems()) Error({.command = form.command}, problem);
  if (filling.IsRefused()) return Refused;
  if (list == nullptr)
    throw Exit{NotFound, form.command + " has no list of values for " + options.parameter + "; any value may be typed"};

  std::optional<JsonList> json;
  if (options.json) json.emplace("values");
  if (!Print(*list, options.limit, json))
    Note({.command = form.command},
         {.parameter = options.parameter, .message = WhyEmpty(filling, options.parameter, *sources)});
  if (json) json->End();
  return Done;
}

}  // namespace cordboard::cli
