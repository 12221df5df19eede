#include "workbench/actions/FormRules.h"

#include <algorithm>
#include <span>

#include "script/Conversions.h"
#include "script/Text.h"
#include "workbench/actions/Filling.h"
#include "workbench/actions/ValueRules.h"
#include "workbench/text/Elements.h"
#include "workbench/text/Separated.h"

namespace cordboard::workbench {

namespace {

// Refuses what it finds wrong with the form.
using FormRule = void (*)(Filling& filling);

// --- An edit, before its values are set.

void AddOnlyIsLeftAlone(Filling& filling) {
  for (const Assignment& assignment : filling.given()) {
    const ParameterDefinition* parameter = filling.definition().Find(assignment.name);
    if (parameter != nullptr && parameter->addOnly)
      filling.Refuse(assignment, "the " + assignment.name + " of a record cannot be changed; add another record");
  }
}

constexpr FormRule rulesOfEdit[] = {SharedDigitsAreGivenTogether, AddOnlyIsLeftAlone};

// --- The whole form.

void MandatoryIsGiven(Filling& filling) {
  for (const ParameterDefinition& parameter : filling.definition().parameters) {
    if (!filling.form().IsMandatory(parameter) || !filling.form().Get(parameter.name).IsBlank()) continue;
    // A parameter whose value was refused has been spoken of.
    const auto& problems = filling.problems();
    if (std::ranges::find(problems, parameter.name, &Problem::parameter) == problems.end())
      filling.Refuse(
          {.parameter = parameter.name, .message = "this parameter has to be given (" + parameter.title + ")"});
  }
}

// "A, B and C"
std::string Listed(const std::vector<std::string>& names) {
  std::string text;
  for (const std::string& name : names) text += (text.empty() ? "" : name == names.back() ? " and " : ", ") + name;
  return text;
}

// One of the sets of parameters has to be given whole.
void OneSetIsGiven(Filling& filling) {
  const auto& sets = filling.definition().oneOf;
  const auto missing = [&filling](const std::string& name) { return filling.form().Get(name).IsBlank(); };
  const auto given = [&](const std::vector<std::string>& set) { return std::ranges::none_of(set, missing); };
  if (sets.empty() || std::ranges::any_of(sets, given)) return;
  filling.Refuse({.parameter = sets.front().front(), .message = "give " + Separated(sets, ", or ", Listed)});
}

// The values of parameters that go in step are paired by their place.
void InStepAreAsMany(Filling& filling) {
  const auto number = [&](const std::string& name) {
    const std::string typed = Joined(filling.form().Get(name));
    return typed.empty() ? 0 : Elements(typed).size();
  };
  const auto compare = [&](const std::string& one, std::size_t ofOne, const std::string& other) {
    const std::size_t ofOther = number(other);
    if (ofOther == ofOne) return;
    filling.Refuse({.parameter = other,
                    .message = one + " and " + other + " go in pairs, and there are " + std::to_string(ofOne) +
                               " and " + std::to_string(ofOther) + " of them; give as many of each"});
  };
  const auto isElsewhere = [&](const std::string& name) { return filling.definition().IsElsewhere(name); };
  for (const std::vector<std::string>& together : filling.definition().inStep) {
    if (together.empty() || std::ranges::any_of(together, isElsewhere)) continue;
    const std::size_t ofOne = number(together.front());
    for (const std::string& other : std::span(together).subspan(1)) compare(together.front(), ofOne, other);
  }
}

// Parts that add up to a digit give one that its list has.
void SumsArePossible(Filling& filling) {
  for (const Assignment& assignment : filling.given()) {
    const DigitPlace* place = filling.form().PlaceOf(assignment.name);
    if (place == nullptr || place->digit.empty() || place->digit == assignment.name) continue;
    const std::string digit = Joined(filling.form().Get(place->digit));
    const ValueList* list = digit.empty() ? nullptr : filling.ListOf(place->digit);
    if (list == nullptr || list->Contains(digit)) continue;
    filling.Refuse(assignment, "its parts make " + place->digit + " " + digit + ", which is not possible here");
    return;
  }
}

constexpr FormRule rulesOfWholeForm[] = {MandatoryIsGiven, OneSetIsGiven, InStepAreAsMany, SumsArePossible,
                                         GivenValuesStand};

}  // namespace

// Parameters that add up to the same digits cannot be told apart in a stored whole: where one of them is given anew,
// the others have to be given too, or their part would be lost in silence.
void SharedDigitsAreGivenTogether(Filling& filling) {
  const auto given = [&filling](const std::string& name) { return filling.IsGiven(name); };
  for (const Folding& folding : filling.definition().foldings) {
    if (!filling.form().IsActive(folding)) continue;
    for (const DigitPlace& place : folding.places) {
      if (std::ranges::none_of(place.parameters, given)) continue;
      const std::string digits = Middle(Joined(filling.form().Get(folding.parameter)), place.first, place.width);
      if (digits.find_first_not_of(folding.fill) == digits.npos) continue;
      for (const std::string& name : place.parameters) {
        if (!given(name))
          filling.Refuse(
              {.parameter = name,
               .message = "this parameter has to be given as well: it and the one that is changed add up to " + digits +
                          " in " + folding.parameter});
      }
    }
  }
}

void CheckEdit(Filling& filling) {
  for (const FormRule rule : rulesOfEdit) rule(filling);
}

// Only the first rule is asked of a form that is refused already, and each of the others of one that all before it let
// pass.
void CheckWholeForm(Filling& filling) {
  for (const FormRule rule : rulesOfWholeForm) {
    rule(filling);
    if (filling.IsRefused()) return;
  }
}

}  // namespace cordboard::workbench
