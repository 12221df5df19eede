#include "workbench/forms/ParameterList.h"

#include <algorithm>
#include <charconv>
#include <utility>

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

}  // namespace cordboard::workbench
