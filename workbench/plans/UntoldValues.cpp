#include "workbench/plans/UntoldValues.h"

#include <algorithm>
#include <iterator>
#include <span>
#include <string>

#include "workbench/actions/Filling.h"
#include "workbench/plans/DerivedValues.h"
#include "workbench/text/Separated.h"

namespace cordboard::workbench {

namespace {

using Names = std::vector<std::string>;
using Values = std::vector<Assignment>;

// Values that are possible, and in what the line that they give differs from the one that was read.
struct Candidate {
  Values values;
  std::vector<Problem> differences;
};

struct Found {
  std::vector<Candidate> candidates;
  std::vector<Problem> refusal;  // why values that are possible were refused all the same
};

std::string Written(const Values& values) {
  return Separated(values, ",", [](const Assignment& value) { return value.name + "=" + value.value; });
}

std::string And(const Names& names) { return Separated(names, " and ", std::identity()); }

class Search {
 public:
  Search(Session& session, const FormDefinition& form, const Values& derived)
      : session_(session), form_(form), derived_(derived) {}

  // Tries all that is possible for the parameters, one after the other: what is possible for one may depend on those
  // before it.
  void Try(const UserAction& add, std::span<const std::string> parameters, const Values& chosen = {}) {
    if (parameters.empty()) return Try(add, chosen);
    for (const std::string& value : Possible(add, parameters.front())) {
      UserAction more = add;
      Values all = chosen;
      for (Values* values : {&more.values, &all}) values->push_back({parameters.front(), value});
      Try(more, parameters.subspan(1), all);
    }
  }

  const Found& found() const { return found_; }

 private:
  Names Possible(const UserAction& add, const std::string& parameter) {
    Filling filling = FillForm(session_, form_, add.values, add.from);
    const ValueList* list = filling.ListOf(parameter);
    Names values;
    if (list != nullptr) std::ranges::transform(list->All(), std::back_inserter(values), &ValidValue::value);
    return values;
  }

  void Try(const UserAction& add, const Values& chosen) {
    Transaction transaction(session_.exchange());
    Outcome outcome = Perform(session_, add);
    if (outcome.done) {
      const Values line = LineWith(session_, form_, add.values);
      if (!line.empty()) found_.candidates.push_back({chosen, Differences(form_, derived_, line)});
    } else if (found_.refusal.empty()) {
      found_.refusal = std::move(outcome.problems);
    }
    transaction.RollBack();
  }

  Session& session_;
  const FormDefinition& form_;
  const Values& derived_;
  Found found_;
};

// The one that comes nearest to the line that was read.
const Candidate& Nearest(const std::vector<Candidate>& candidates) {
  return *std::ranges::min_element(candidates, {}, [](const Candidate& each) { return each.differences.size(); });
}

Possible Choice(const std::vector<Candidate>& candidates) {
  Possible possible{.total = candidates.size()};
  for (const Candidate& each : candidates) possible.values.push_back(Written(each.values));
  return possible;
}

Problem NotFound(const Names& parameters, const std::vector<Candidate>& candidates,
                 const std::vector<Candidate>& fitting) {
  const std::string untold = "the line does not tell " + And(parameters) + ", and ";
  if (!fitting.empty())
    return {.message = untold + "several records give this line; give them as well", .possible = Choice(fitting)};
  const std::string none = untold + "no record gives a line with these values";
  if (candidates.empty()) return {.message = none};
  const Candidate& nearest = Nearest(candidates);
  return {.message = none + "; give them, and what is different is told: at the least " +
                     Separated(nearest.differences, ", ", &Problem::parameter),
          .possible = Choice({nearest})};
}

}  // namespace

std::vector<Problem> FindUntold(Session& session, const FormDefinition& form, UserAction& add, const Values& derived) {
  Names parameters;
  const auto isGiven = [&add](const std::string& name) { return Has(add.values, name); };
  std::ranges::remove_copy_if(form.lines.untold, std::back_inserter(parameters), isGiven);
  if (parameters.empty()) return {};
  if (const Filling told = FillForm(session, form, add.values, add.from); told.IsRefused()) return told.problems();

  Search search(session, form, derived);
  search.Try(add, parameters);
  const auto& [candidates, refusal] = search.found();
  if (candidates.empty() && !refusal.empty()) return refusal;
  std::vector<Candidate> fitting;
  std::ranges::copy_if(candidates, std::back_inserter(fitting),
                       [](const Candidate& each) { return each.differences.empty(); });
  if (fitting.size() != 1) return {NotFound(parameters, candidates, fitting)};
  const Values& values = fitting.front().values;
  add.values.insert(add.values.end(), values.begin(), values.end());
  return {};
}

}  // namespace cordboard::workbench
