#include "workbench/actions/Possible.h"

#include <algorithm>
#include <span>

#include "workbench/forms/ValueList.h"
#include "workbench/text/Separated.h"

namespace cordboard::workbench {

namespace {

constexpr std::size_t shownValues = 10;
// Where there are more they are not counted: that would cost what the whole list costs. Of a pool not even those are.
constexpr std::size_t countedValues = 50;

}  // namespace

Possible PossibleOf(const ValueList& list, const ParameterDefinition& parameter, bool mandatory) {
  const std::size_t counted = list.DrawsFromPool() ? shownValues : countedValues;
  const std::vector<ValidValue> values = list.First(counted + 1);
  Possible possible{.numbers = parameter.beside, .canBeLeftOut = !mandatory};
  if (values.size() <= counted) possible.total = values.size();
  for (const ValidValue& entry : std::span(values).first(std::min(values.size(), shownValues)))
    possible.values.push_back(entry.value);
  return possible;
}

std::string InWords(const Possible& possible) {
  const auto& [values, total, numbers, canBeLeftOut] = possible;
  std::string text = Separated(values, ", ");
  if (values.empty()) text = canBeLeftOut ? "no value at present; leave it out" : "no value at present";
  if (total != values.size()) text += ", ...";
  if (total && *total > values.size()) text += " (" + std::to_string(*total) + " in all)";
  if (numbers) text += ", or a number from " + std::to_string(numbers->from) + " to " + std::to_string(numbers->to);
  return text;
}

}  // namespace cordboard::workbench
