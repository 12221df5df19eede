#include "workbench/forms/FormDefinition.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <map>

#include "workbench/data/DataFile.h"
#include "workbench/data/Resources.h"
#include "workbench/database/Schema.h"
#include "workbench/forms/FormReader.h"

namespace cordboard::workbench {

namespace {

using Source = ParameterFlag::Source;

constexpr ParameterFlag flags[] = {
    {"mandatory", &ParameterDefinition::mandatory, Source::Form, "has to be given"},
    {"multiple", &ParameterDefinition::multiple, Source::Form, "several (`1&2`)"},
    {"range", &ParameterDefinition::range, Source::Form, "range (`1&&9`)"},
    {"oneInEdit", &ParameterDefinition::oneInEdit, Source::Form, "one value in an edit"},
    {"list", &ParameterDefinition::list, Source::Library, "list"},
    {"fixed", &ParameterDefinition::fixed, Source::Library, "list"},
    {"unique", &ParameterDefinition::unique, Source::Form, "one record each"},
    {"check", &ParameterDefinition::check, Source::Library, "check"},
    {"next", &ParameterDefinition::next, Source::Form, "next"},
    {"addOnly", &ParameterDefinition::addOnly, Source::Form, "when a record is added"},
    {"address", &ParameterDefinition::address, Source::Form, "address (`10.0.0.5`)"},
    {"secret", &ParameterDefinition::secret, Source::Form, "shown as `***`"},
    {"reuse", &ParameterDefinition::reuse, Source::Form, ""},
    {"text", &ParameterDefinition::text, Source::Form, ""},
    {"firstToRules", &ParameterDefinition::firstToRules, Source::Form, ""},
    {"onlyGiven", &ParameterDefinition::onlyGiven, Source::Form, ""},
};

}  // namespace

std::span<const ParameterFlag> ParameterFlags() { return flags; }

bool Numbers::Has(std::string_view text) const {
  long number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() && end == text.data() + text.size() && number >= from && number <= to;
}

bool ParameterDefinition::IsIn(std::string_view release) const {
  return releases.empty() || std::ranges::find(releases, release) != releases.end();
}

bool DigitPlace::Has(std::string_view name) const {
  return name == digit || std::ranges::find(parameters, name) != parameters.end();
}

bool Folding::Has(std::string_view subDigit) const {
  return std::ranges::any_of(places, [&](const DigitPlace& place) { return place.Has(subDigit); });
}

FoldingList::FoldingList() {
  static const auto none = std::make_shared<const Kept>();
  kept_ = none;
}

FoldingList::FoldingList(std::vector<Folding> foldings) {
  const auto kept = std::make_shared<Kept>(Kept{std::move(foldings)});
  const auto named = [&](const std::string& name) -> FoldedName& {
    return kept->names.try_emplace(name, FoldedName{.slot = kept->names.size()}).first->second;
  };
  const auto slotIn = [&](const std::string& name, const Folding& folding) {
    FoldedName& digit = named(name);
    if (digit.with.empty() || digit.with.back() != &folding) digit.with.push_back(&folding);
    return digit.slot;
  };
  for (Folding& folding : kept->all) {
    FoldedName& whole = named(folding.parameter);
    whole.of.push_back(&folding);
    folding.slot = whole.slot;
    for (DigitPlace& place : folding.places) {
      if (!place.digit.empty()) place.digitSlot = slotIn(place.digit, folding);
      place.slots.clear();
      for (const std::string& parameter : place.parameters) place.slots.push_back(slotIn(parameter, folding));
    }
  }
  kept_ = kept;
}

const FoldedName* FoldingList::Find(std::string_view name) const {
  const auto found = kept_->names.find(name);
  return found == kept_->names.end() ? nullptr : &found->second;
}

const std::vector<const Folding*>& FoldingList::Of(std::string_view whole) const {
  static const std::vector<const Folding*> none;
  const FoldedName* name = Find(whole);
  return name == nullptr ? none : name->of;
}

const std::vector<const Folding*>& FoldingList::With(std::string_view subDigit) const {
  static const std::vector<const Folding*> none;
  const FoldedName* name = Find(subDigit);
  return name == nullptr ? none : name->with;
}

ParameterList::ParameterList(std::vector<ParameterDefinition> parameters) {
  for (ParameterDefinition& parameter : parameters) push_back(std::move(parameter));
}

// Of two with one name the first is meant.
void ParameterList::push_back(ParameterDefinition parameter) {
  places_.try_emplace(parameter.name, all_.size());
  all_.push_back(std::move(parameter));
}

std::size_t ParameterList::PlaceOf(std::string_view name) const {
  const auto found = places_.find(name);
  return found == places_.end() ? all_.size() : found->second;
}

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
