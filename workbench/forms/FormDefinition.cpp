#include "workbench/forms/FormDefinition.h"

#include <algorithm>
#include <filesystem>
#include <map>

#include "workbench/data/DataFile.h"
#include "workbench/data/Resources.h"
#include "workbench/database/Schema.h"
#include "workbench/forms/FormReader.h"

namespace cordboard::workbench {

const DatabaseSchema& FormDefinition::Database() const { return ShippedSchema().Database(database); }

std::string FormDefinition::Rows() const { return Database().RowsOf(table); }

const ParameterDefinition* FormDefinition::Find(std::string_view name) const {
  const std::size_t place = parameters.PlaceOf(name);
  return place == parameters.size() ? nullptr : &parameters[place];
}

bool FormDefinition::Knows(std::string_view name) const {
  return Find(name) != nullptr || std::ranges::find(assumed, name, &Assignment::name) != assumed.end();
}

bool FormDefinition::Shows(std::string_view column) const {
  // A whole is shown by its digits, and a part of a list by the list.
  const Folding* folding = FoldingWith(column);
  return (Find(column) != nullptr || FoldingOf(column) != nullptr) && (folding == nullptr || !folding->isList);
}

std::size_t FormDefinition::Place(std::string_view name) const { return parameters.PlaceOf(name); }

bool FormDefinition::IsSecret(std::string_view name) const {
  const ParameterDefinition* parameter = Find(name);
  return parameter != nullptr && parameter->secret;
}

std::string FormDefinition::Told(const Assignment& assignment) const {
  const auto& [name, value] = assignment;
  if (!Knows(name) && std::ranges::find(columns, name) == columns.end()) return "";
  return !value.empty() && IsSecret(name) ? hiddenValue : value;
}

bool FormDefinition::IsElsewhere(std::string_view name) const {
  if (elsewhere.empty()) return false;
  const Folding* folding = FoldingWith(name);
  return std::ranges::find(elsewhere, folding == nullptr ? name : folding->parameter) != elsewhere.end();
}

const Folding* FormDefinition::FoldingOf(std::string_view parameter) const {
  const auto& found = foldings.Of(parameter);
  return found.empty() ? nullptr : found.front();
}

const Folding* FormDefinition::FoldingWith(std::string_view subDigit) const {
  const auto& found = foldings.With(subDigit);
  return found.empty() ? nullptr : found.front();
}

std::vector<const FormDefinition*> FormDefinition::OfEachTable() const {
  if (second == nullptr) return {this};
  return {this, second.get()};
}

const FormDefinition& FormDefinition::OfRecordWith(const std::vector<Assignment>& values) const {
  const bool given = std::ranges::any_of(
      values, [this](const Assignment& value) { return value.name == secondWith && !value.value.empty(); });
  return second != nullptr && given ? *second : *this;
}

const FormDefinition* FindForm(std::string_view command) {
  // Each is read when it is asked for, since a run of the program asks for few. They stay until it ends:
  // to take them down would only take time.
  static auto& read = *new std::map<std::string, FormDefinition, std::less<>>;
  if (const auto found = read.find(command); found != read.end()) return &found->second;
  const std::string name(command);
  const std::string path = "forms/" + name + ".json";
  if (!Resources().contains(path)) return nullptr;
  return &read.emplace(name, ReadForm(name, ReadResource(path))).first->second;
}

std::vector<const FormDefinition*> Forms() {
  std::vector<const FormDefinition*> forms;
  for (const std::string_view path : ResourcesIn("forms/"))
    forms.push_back(FindForm(std::filesystem::path(path).stem().string()));
  return forms;
}

}  // namespace cordboard::workbench
