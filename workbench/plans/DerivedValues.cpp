#include "workbench/plans/DerivedValues.h"

#include <algorithm>
#include <iterator>

#include "workbench/actions/Generation.h"
#include "workbench/plans/PlanLine.h"
#include "workbench/text/Separated.h"

namespace cordboard::workbench {

using Values = std::vector<Assignment>;

namespace {

// Leaves the records alone that have these values, as far as their table has them, so that only their lines are made.
void PutOthersAway(Exchange& exchange, const FormDefinition& form, Values values) {
  std::erase_if(values, [&form](const Assignment& value) {
    return value.value.empty() || std::ranges::find(form.columns, value.name) == form.columns.end();
  });
  if (values.empty()) return;
  std::vector<Value> parameters(values.size());
  std::ranges::transform(values, parameters.begin(), &Assignment::value);
  const std::string condition =
      Separated(values, " AND ", [](const Assignment& value) { return "[" + value.name + "] = ?"; });
  exchange.Dynamic().Run("DELETE FROM " + form.Rows() + " WHERE NOT (" + condition + ")", parameters);
}

}  // namespace

const std::string& ValueOf(const Values& values, const std::string& name) {
  static const std::string none;
  const auto found = std::ranges::find(values, name, &Assignment::name);
  return found == values.end() ? none : found->value;
}

bool Has(const Values& values, const std::string& name) {
  return std::ranges::find(values, name, &Assignment::name) != values.end();
}

Values TakeDerived(const FormDefinition& form, Values& values) {
  const auto isTaken = [&form, all = values](const Assignment& value) {
    return std::ranges::find(form.lines.derived, value.name) != form.lines.derived.end() &&
           std::ranges::count(all, value.name, &Assignment::name) == 1;
  };
  Values derived;
  std::ranges::copy_if(values, std::back_inserter(derived), isTaken);
  std::erase_if(values, isTaken);
  return derived;
}

std::vector<Problem> Differences(const FormDefinition& form, const Values& read, const Values& given) {
  if (given.empty())
    return {{.message = "the exchange gives no line with these values, so that those which follow from the record are "
                        "not compared"}};
  std::vector<Problem> differences;
  for (const std::string& name : form.lines.derived) {
    const std::string& here = ValueOf(read, name);
    const std::string& there = ValueOf(given, name);
    if (here != there)
      differences.push_back({.parameter = name,
                             .value = here,
                             .message = "the exchange's line will have " + (there.empty() ? "nothing" : there) +
                                        " here, which follows from the record"});
  }
  return differences;
}

Values LineWith(Session& session, const FormDefinition& form, const Values& values) {
  Transaction transaction(session.exchange());
  const FormDefinition* records = form.lines.from.empty() ? &form : FindForm(form.lines.from);
  PutOthersAway(session.exchange(), *records, values);
  for (const std::string& text : LinesOf(session, form)) {
    const auto line = ReadableLine(text);
    if (!line) continue;
    const auto isShared = [&](const Assignment& value) { return Has(line->values, value.name); };
    const auto agrees = [&](const Assignment& value) {
      return !isShared(value) || ValueOf(line->values, value.name) == value.value;
    };
    if (std::ranges::any_of(values, isShared) && std::ranges::all_of(values, agrees)) return line->values;
  }
  return {};
}

}  // namespace cordboard::workbench
