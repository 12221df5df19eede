#include "workbench/forms/FormDefinition.h"

#include <algorithm>
#include <map>
#include <nlohmann/json.hpp>

#include "workbench/data/Resources.h"
#include "workbench/text/Nearest.h"

namespace cordboard::workbench {

namespace {

using nlohmann::json;

std::optional<Pool> ReadPool(const json& data) {
  if (!data.contains("pool")) return std::nullopt;
  return Pool{data["pool"].at("table"), data["pool"].at("column")};
}

std::optional<Narrowing> ReadNarrowing(const json& data) {
  if (!data.contains("narrowed")) return std::nullopt;
  return Narrowing{data["narrowed"].at("by"), data["narrowed"].at("without")};
}

ParameterDefinition ReadParameter(const json& data) {
  return {.name = data.at("name"),
          .title = data.at("title"),
          .mandatory = data.value("mandatory", false),
          .multiple = data.value("multiple", false),
          .range = data.value("range", false),
          .list = data.value("list", false),
          .fixed = data.value("fixed", false),
          .check = data.value("check", false),
          .text = data.value("text", false),
          .reuse = data.value("reuse", false),
          .oneInEdit = data.value("oneInEdit", false),
          .next = data.value("next", false),
          .addOnly = data.value("addOnly", false),
          .releases = data.value("releases", std::vector<std::string>()),
          .pool = ReadPool(data),
          .narrowing = ReadNarrowing(data)};
}

Folding ReadFolding(const json& data) {
  Folding folding{.parameter = data.at("parameter"), .separator = data.value("separator", std::string())};
  if (!folding.separator.empty()) {
    for (const json& part : data.at("parts")) folding.places.push_back({.parameters = {part.get<std::string>()}});
    return folding;
  }
  folding.length = data.at("length");
  folding.fill = data.value("fill", std::string("0")).at(0);
  for (const json& place : data.at("places"))
    folding.places.push_back({place.at("first"), place.value("width", 1), place.at("parameters")});
  return folding;
}

FormDefinition ReadForm(std::string_view text) {
  const json data = json::parse(text);
  FormDefinition form{.command = data.at("command"),
                      .title = data.at("title"),
                      .help = data.at("help"),
                      .table = data.at("table"),
                      .columns = data.at("columns"),
                      .inStep = data.value("inStep", std::vector<std::vector<std::string>>()),
                      .oneOf = data.value("oneOf", std::vector<std::vector<std::string>>()),
                      .ordered = data.value("ordered", false),
                      .single = data.value("single", false)};
  for (const json& parameter : data.at("parameters")) form.parameters.push_back(ReadParameter(parameter));
  for (const json& folding : data.value("folding", json::array())) form.foldings.push_back(ReadFolding(folding));
  const json after = data.value("after", json::object());
  form.handling = {.removeRowAfterDelete = after.value("removeRowAfterDelete", false),
                   .writeAfterEdit = after.value("writeAfterEdit", std::vector<std::string>())};
  const std::vector<std::string> actions = data.at("actions");
  const auto serves = [&actions](const char* action) { return std::ranges::find(actions, action) != actions.end(); };
  form.adds = serves("add");
  form.edits = serves("edit");
  form.deletes = serves("delete");
  form.generates = serves("generate");
  return form;
}

const std::map<std::string, FormDefinition, std::less<>>& AllForms() {
  static const auto forms = [] {
    std::map<std::string, FormDefinition, std::less<>> read;
    for (const std::string_view path : ResourcesIn("forms/")) {
      FormDefinition form = ReadForm(Resource(path));
      read.emplace(form.command, std::move(form));
    }
    return read;
  }();
  return forms;
}

}  // namespace

bool ParameterDefinition::IsIn(std::string_view release) const {
  return releases.empty() || std::ranges::find(releases, release) != releases.end();
}

const ParameterDefinition* FormDefinition::Find(std::string_view name) const {
  const auto found = std::ranges::find(parameters, name, &ParameterDefinition::name);
  return found == parameters.end() ? nullptr : &*found;
}

std::size_t FormDefinition::Place(std::string_view name) const {
  return static_cast<std::size_t>(std::ranges::find(parameters, name, &ParameterDefinition::name) - parameters.begin());
}

const Folding* FormDefinition::FoldingOf(std::string_view parameter) const {
  const auto found = std::ranges::find(foldings, parameter, &Folding::parameter);
  return found == foldings.end() ? nullptr : &*found;
}

const Folding* FormDefinition::FoldingWith(std::string_view subDigit) const {
  for (const Folding& folding : foldings) {
    for (const DigitPlace& place : folding.places) {
      if (std::ranges::find(place.parameters, subDigit) != place.parameters.end()) return &folding;
    }
  }
  return nullptr;
}

const FormDefinition* FindForm(std::string_view command) {
  const auto found = AllForms().find(command);
  return found == AllForms().end() ? nullptr : &found->second;
}

std::vector<const FormDefinition*> Forms() {
  std::vector<const FormDefinition*> forms;
  for (const auto& [command, form] : AllForms()) forms.push_back(&form);
  return forms;
}

}  // namespace cordboard::workbench
