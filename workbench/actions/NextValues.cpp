#include "workbench/actions/NextValues.h"

#include <algorithm>
#include <charconv>
#include <set>

#include "script/Conversions.h"
#include "workbench/text/Elements.h"
#include "workbench/text/Separated.h"

namespace cordboard::workbench {

namespace {

const std::string word = "next";

bool IsNext(const std::string& value) { return value == word || value.starts_with(word + ":"); }

// The number after "next:"; 1 for "next" alone. Nothing where it is no number that can be meant.
std::optional<std::size_t> Count(const std::string& value) {
  if (value == word) return 1;
  const std::string digits = value.substr(word.size() + 1);
  std::size_t count = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), count);
  const bool whole = error == std::errc() && end == digits.data() + digits.size();
  if (!whole || count == 0 || count > mostElements) return std::nullopt;
  return count;
}

// How many values a parameter has or will have.
std::size_t Number(const Filling& filling, const ParameterDefinition& parameter) {
  const auto given = std::ranges::find(filling.given(), parameter.name, &Assignment::name);
  const std::string value = given == filling.given().end() ? Joined(filling.form().Get(parameter.name)) : given->value;
  if (parameter.next && IsNext(value)) return Count(value).value_or(1);
  try {
    return value.empty() ? 1 : Elements(value).size();
  } catch (const ElementsError&) {
    return 1;
  }
}

// As many as the other parameters that go in step have.
std::size_t NumberInStep(const Filling& filling, const std::string& name) {
  std::size_t number = 1;
  for (const std::vector<std::string>& together : filling.definition().inStep) {
    if (std::ranges::find(together, name) == together.end()) continue;
    for (const std::string& other : together) {
      if (other != name) number = std::max(number, Number(filling, *filling.definition().Find(other)));
    }
  }
  return number;
}

// Some lists of the rules have values that are taken; the next free one is none of them.
bool IsFree(Exchange& exchange, const std::optional<Pool>& pool, const std::string& value) {
  return !pool ||
         exchange.Dynamic()
             .Run("SELECT 1 FROM [" + pool->table + "] WHERE [" + pool->column + "] = ? AND [USED] LIMIT 1", {value})
             .IsEmpty();
}

}  // namespace

bool IsNext(const FormDefinition& definition, const Assignment& assignment) {
  const ParameterDefinition* parameter = definition.Find(assignment.name);
  return parameter != nullptr && parameter->next && IsNext(assignment.value);
}

std::optional<std::string> MeantValue(Filling& filling, const Assignment& assignment) {
  const auto& [name, value] = assignment;
  if (!IsNext(filling.definition(), assignment)) return value;
  const ParameterDefinition* parameter = filling.definition().Find(name);
  const auto refuse = [&](const std::string& message) {
    filling.Refuse(assignment, message);
    return std::nullopt;
  };
  const auto count = value == word ? NumberInStep(filling, name) : Count(value);
  if (!count) return refuse("after next: the number of values is missing, such as next:20");
  if (*count > 1 && !filling.form().TakesSeveral(name))
    return refuse("several values are not possible here; give one value");

  const std::size_t before = filling.problems().size();
  const ValueList* list = filling.ListOf(name, value);
  if (filling.problems().size() > before) return std::nullopt;
  if (list == nullptr) return refuse("there is no list of values at present from which the next could be taken");
  Exchange& exchange = filling.session().exchange();
  std::set<std::string> seen;  // a list may give a value twice
  const auto accept = [&](const std::string& offered) {
    return IsFree(exchange, parameter->pool, offered) && seen.insert(offered).second;
  };
  const std::vector<ValidValue> free =
      list->First(*count, {.accept = accept, .unusedOf = parameter->pool ? parameter->pool->table : ""});
  if (free.size() < *count)
    return refuse("of the values that are free there " + std::string(free.size() == 1 ? "is " : "are ") +
                  std::to_string(free.size()) + " and not " + std::to_string(*count));

  return Separated(free, "&", &ValidValue::value);
}

}  // namespace cordboard::workbench
