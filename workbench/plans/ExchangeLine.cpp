#include "workbench/plans/ExchangeLine.h"

#include <algorithm>
#include <optional>

#include "workbench/plans/DerivedValues.h"
#include "workbench/plans/PlanLine.h"
#include "workbench/plans/UntoldValues.h"

namespace cordboard::workbench {

namespace {

using Values = std::vector<Assignment>;

// --- Lines with derived values.

// The outcome for a line that records of another command give. One that they do not give is an action like any other,
// unless it has derived values.
std::optional<Outcome> Compared(Session& session, const FormDefinition& form, const Values& values,
                                const Values& derived) {
  const Values given = LineWith(session, form, values);
  if (derived.empty()) {
    const auto isGiven = [&given](const Assignment& value) { return ValueOf(given, value.name) == value.value; };
    const bool same = !given.empty() && given.size() == values.size() && std::ranges::all_of(values, isGiven);
    return same ? std::optional(Outcome{.done = true}) : std::nullopt;
  }
  if (!given.empty()) return Outcome{.done = true, .warnings = Differences(form, derived, given)};
  return Outcome{.problems = {{.message = "this line comes from a record of " + form.lines.from +
                                          ", and there is none that gives it; add that"}}};
}

Outcome AddWithDerived(Session& session, const FormDefinition& form, UserAction add, const Values& derived) {
  if (const auto problems = FindUntold(session, form, add, derived); !problems.empty()) return {.problems = problems};
  Outcome outcome = Perform(session, add);
  if (!outcome.done) return outcome;
  const auto differences = Differences(form, derived, LineWith(session, form, add.values));
  outcome.warnings.insert(outcome.warnings.end(), differences.begin(), differences.end());
  return outcome;
}

// --- Records with two lines.

// Whether the line stands beside the other one, in which it has its record. Two such lines do not belong together.
bool IsBeside(const SideLine& side, const UserAction& line, const UserAction& other) {
  const auto isSide = [&side](const Values& values) { return ValueOf(values, side.with.name) == side.with.value; };
  const auto agrees = [&](const std::string& name) {
    return Has(line.values, name) && ValueOf(line.values, name) == ValueOf(other.values, name);
  };
  const std::size_t size = side.key.size() + (side.further.empty() ? 1 : 2);
  return !side.key.empty() && line.values.size() == size && isSide(line.values) &&
         (line.command != other.command || !isSide(other.values)) && std::ranges::all_of(side.key, agrees) &&
         (side.further.empty() || Has(line.values, side.further));
}

}  // namespace

UserAction OfTemplate(const FormDefinition& form, UserAction line) {
  if (!form.templates.command.empty() && Has(line.values, form.templates.name)) line.command = form.templates.command;
  return line;
}

Outcome PerformLine(Session& session, const UserAction& line) {
  const FormDefinition* form = FindForm(line.command);
  if (form == nullptr || line.kind != UserAction::Kind::Add) return Perform(session, line);
  UserAction add = OfTemplate(*form, line);
  if (add.command != line.command) return Perform(session, add);
  const Values derived = TakeDerived(*form, add.values);
  if (!form->lines.from.empty()) {
    if (const auto outcome = Compared(session, *form, add.values, derived)) return *outcome;
  }
  return derived.empty() ? Perform(session, add) : AddWithDerived(session, *form, std::move(add), derived);
}

std::optional<UserAction> Together(const UserAction& line, std::string_view behind) {
  const FormDefinition* form = FindForm(line.command);
  if (form == nullptr || line.kind != UserAction::Kind::Add) return std::nullopt;
  const SideLine& release = form->lines.release;
  const SideLine& continued = form->lines.continued;
  if (release.key.empty() && continued.key.empty()) return std::nullopt;
  auto next = ReadableLine(behind);
  if (!next || next->kind != UserAction::Kind::Add) return std::nullopt;
  if (IsBeside(release, line, *next)) return next;
  if (next->command != line.command || !IsBeside(continued, *next, line)) return std::nullopt;
  UserAction whole = line;
  const auto further = std::ranges::find(whole.values, continued.further, &Assignment::name);
  if (further == whole.values.end()) return std::nullopt;
  further->value += "&" + ValueOf(next->values, continued.further);
  return whole;
}

}  // namespace cordboard::workbench
