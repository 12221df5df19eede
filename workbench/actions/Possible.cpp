#include "workbench/actions/Possible.h"

#include "workbench/text/Separated.h"

namespace cordboard::workbench {

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
