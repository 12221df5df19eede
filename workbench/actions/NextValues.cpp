#include "workbench/actions/NextValues.h"

#include <algorithm>
#include <charconv>
#include <optional>

#include "script/Conversions.h"
#include "workbench/actions/FormFilling.h"
#include "workbench/text/Elements.h"

namespace cordboard::workbench {

namespace {

const std::string word = "next";

bool IsNext(const std::string& value) { return value == word || value.starts_with(word + ":"); }

// The number behind "next:"; 1 for "next" alone. Nothing where it is no number that can be meant.
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
std::size_t Number(const Form& form, const std::vector<Assignment>& all, const ParameterDefinition& parameter) {
  const auto given = std::ranges::find(all, parameter.name, &Assignment::name);
  const std::string value = given == all.end() ? Joined(form.Get(parameter.name)) : given->value;
  if (parameter.next && IsNext(value)) return Count(value).value_or(1);
  try {
    return value.empty() ? 1 : Elements(value).size();
  } catch (const ElementsError&) {
    return 1;
  }
}

// As many as the other parameters that go in step have.
std::size_t NumberInStep(const Form& form, const std::vector<Assignment>& all, const std::string& name) {
  std::size_t number = 1;
  for (const std::vector<std::string>& together : form.definition().inStep) {
    if (std::ranges::find(together, name) == together.end()) continue;
    for (const std::string& other : together) {
      if (other != name) number = std::max(number, Number(form, all, *form.definition().Find(other)));
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

bool TakeNext(Session& session, const std::vector<Assignment>& all, Assignment& assignment,
              std::vector<Problem>& problems) {
  const ParameterDefinition* parameter = session.form().definition().Find(assignment.name);
  if (parameter == nullptr || !parameter->next || !IsNext(assignment.value)) return true;
  const auto refuse = [&](const std::string& message) {
    problems.push_back({assignment.name, assignment.value, message, ""});
    return false;
  };
  auto count = Count(assignment.value);
  if (!count) return refuse("behind next: the number of values is missing, such as next:20");
  if (assignment.value == word) count = NumberInStep(session.form(), all, assignment.name);

  if (*count > 1 && !session.form().TakesSeveral(assignment.name))
    return refuse("several values are not possible here; give one value");

  const ValueList* list = session.host().FreshList(assignment.name);
  const std::vector<Problem> reported = TakeProblems(session, assignment.name, assignment.value);
  problems.insert(problems.end(), reported.begin(), reported.end());
  if (!reported.empty()) return false;
  if (list == nullptr) return refuse("there is no list of values at present from which the next could be taken");
  const std::vector<ValidValue> free =
      list->First(*count, [&](const std::string& value) { return IsFree(session.exchange(), parameter->pool, value); });
  if (free.size() < *count)
    return refuse("of the values that are free there are " + std::to_string(free.size()) + " and not " +
                  std::to_string(*count));

  assignment.value.clear();
  for (const ValidValue& entry : free) assignment.value += (assignment.value.empty() ? "" : "&") + entry.value;
  return true;
}

}  // namespace cordboard::workbench
