#include "workbench/actions/FormRules.h"

#include <arpa/inet.h>

#include <algorithm>
#include <span>

#include "script/Conversions.h"
#include "script/Text.h"
#include "workbench/actions/Filling.h"
#include "workbench/actions/Records.h"
#include "workbench/actions/ValueWarnings.h"
#include "workbench/forms/Unknown.h"
#include "workbench/text/Elements.h"
#include "workbench/text/Separated.h"

namespace cordboard::workbench {

namespace {

// Gives why a value is wrong, or nothing.
using ValueRule = std::string (*)(const Filling& filling, const Assignment& assignment);
// Refuses what it finds wrong with the form.
using FormRule = void (*)(Filling& filling);

// --- One value, before it is set.

std::string IsOfTheForm(const Filling& filling, const Assignment& assignment) {
  const bool known = filling.definition().Find(assignment.name) != nullptr;
  return known ? "" : UnknownParameter(filling.definition(), assignment.name);
}

std::string IsOfTheRelease(const Filling& filling, const Assignment& assignment) {
  const std::string& release = filling.session().exchange().release();
  const bool has = filling.definition().Find(assignment.name)->IsIn(release);
  return has ? "" : "the release " + release + " does not have this parameter";
}

// Where records stand in two tables, those of one have parameters that those of the other do not.
std::string IsOfTheTable(const Filling& filling, const Assignment& assignment) {
  if (assignment.value.empty() || !filling.definition().IsElsewhere(assignment.name)) return "";
  return "a record of the table " + filling.definition().table + " does not have this parameter; leave it out";
}

std::string IsOfTheDefinition(const Filling& filling, const Assignment& assignment) {
  if (assignment.value.empty() || filling.form().IsInDefinition(assignment.name)) return "";
  return filling.definition().FoldingWith(assignment.name)->parameter +
         " does not have this digit here: its digits follow from the values before it; leave it out";
}

// A digit is given as a whole or by its parts.
std::string IsNotGivenByParts(const Filling& filling, const Assignment& assignment) {
  const DigitPlace* place = filling.form().PlaceOf(assignment.name);
  if (place == nullptr || place->digit == assignment.name || !filling.IsGiven(place->digit)) return "";
  return "this is a part of " + place->digit + ", which is given as well; give one of the two";
}

std::string HasPlainCharacters(const Filling&, const Assignment& assignment) {
  const std::string& value = assignment.value;
  if (value.find('\'') != value.npos) return "a value must not hold a quote character (')";
  const bool control = std::ranges::any_of(value, [](char c) { return static_cast<unsigned char>(c) < 0x20; });
  return control ? "a value must not hold control characters" : "";
}

// An address has one spelling, so that two that are the same can be told: no zeros in front.
std::string IsAnAddress(const Filling& filling, const Assignment& assignment) {
  const auto& [name, value] = assignment;
  in_addr address{};
  if (value.empty() || !filling.definition().Find(name)->address || inet_pton(AF_INET, value.c_str(), &address) == 1)
    return "";
  return "an address is four numbers from 0 to 255 with dots between them, such as 10.0.0.5";
}

std::string IsNotHeld(const Filling& filling, const Assignment& assignment) {
  const auto& [name, value] = assignment;
  const FormDefinition& definition = filling.definition();
  if (value.empty() || !definition.Find(name)->unique) return "";
  const bool held = IsHeld(filling.session().exchange(), definition, name, value);
  return held ? "there is a record with this value already; give another one" : "";
}

constexpr ValueRule rulesOfValue[] = {IsOfTheForm,       IsOfTheRelease,     IsOfTheTable, IsOfTheDefinition,
                                      IsNotGivenByParts, HasPlainCharacters, IsAnAddress,  IsNotHeld};

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
  const auto number = [&](const std::string& name) { return Elements(Joined(filling.form().Get(name))).size(); };
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

// A check may have forbidden ranges or several values after they were set.
std::string IsTakenAsTyped(const Filling& filling, const Assignment& assignment) {
  const auto& [name, value] = assignment;
  if (!filling.definition().Find(name)->TakesElements()) return "";
  if (HoldsRange(value) && !filling.form().TakesRange(name)) return "a range is not possible here; give one value";
  if (HoldsSeveral(value) && !filling.form().TakesSeveral(name))
    return "several values are not possible here; give one value";
  return "";
}

// A parameter of the form alone may come and go with the checks; one that is stored, and a digit of one, must not be
// lost in silence.
std::string IsKeptByChecks(const Filling& filling, const Assignment& assignment) {
  const auto& columns = filling.definition().columns;
  const bool isDigit = filling.definition().FoldingWith(assignment.name) != nullptr;
  if (std::ranges::find(columns, assignment.name) == columns.end() && !isDigit) return "";
  const std::string present = Joined(filling.form().Get(assignment.name));
  if (present == assignment.value) return "";
  if (std::string wrong = WrongLength(filling, assignment); !wrong.empty()) return wrong;
  return present.empty() ? "a check of the values after it has cleared this value, since the two do not go together"
                         : "a check has changed this value to " +
                               filling.definition().Told({assignment.name, present}) + "; give that, or leave it out";
}

// Of alternatives one makes the whole, and a digit of another must not be lost in silence.
std::string IsInItsWhole(const Filling& filling, const Assignment& assignment) {
  const Folding* folding = filling.definition().FoldingWith(assignment.name);
  if (assignment.value.empty() || folding == nullptr) return "";
  const Folding* inForce = filling.form().FoldingInForce(folding->parameter);
  if (inForce == nullptr || inForce->Has(assignment.name)) return "";
  return "this parameter does not go together with the other digits of " + folding->parameter +
         "; clear or leave out the one or the others";
}

// Of a whole that is its parts with a separator between them, one part alone would be lost in silence.
std::string IsNotAlone(const Filling& filling, const Assignment& assignment) {
  const Folding* folding = filling.definition().FoldingWith(assignment.name);
  if (folding == nullptr || folding->separator.empty() || folding->isList) return "";
  const auto isMissing = [&](const std::string& name) { return filling.form().Get(name).IsBlank(); };
  if (assignment.value.empty())
    return isMissing(folding->parameter) ? "" : "this is a part of " + folding->parameter + "; clear that as a whole";
  for (const DigitPlace& place : folding->places) {
    const std::string& part = place.parameters.front();
    if (isMissing(part)) return "this is a part of " + folding->parameter + "; give " + part + " as well";
  }
  return "";
}

constexpr ValueRule rulesOfSetValue[] = {IsTakenAsTyped, IsKeptByChecks, IsInItsWhole, IsNotAlone};

void GivenValuesStand(Filling& filling) {
  for (const Assignment& assignment : filling.given()) {
    for (const ValueRule rule : rulesOfSetValue) {
      if (std::string wrong = rule(filling, assignment); !wrong.empty()) filling.Refuse(assignment, std::move(wrong));
    }
    if (filling.IsRefused()) return;
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

std::string WrongValue(const Filling& filling, const Assignment& assignment) {
  for (const ValueRule rule : rulesOfValue) {
    if (std::string wrong = rule(filling, assignment); !wrong.empty()) return wrong;
  }
  return "";
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
