#include "workbench/actions/ValueRules.h"

#include <arpa/inet.h>

#include <algorithm>
#include <utility>

#include "script/Conversions.h"
#include "workbench/actions/Filling.h"
#include "workbench/actions/Records.h"
#include "workbench/actions/ValueWarnings.h"
#include "workbench/forms/Unknown.h"
#include "workbench/text/Elements.h"

namespace cordboard::workbench {

namespace {

// Gives why a value is wrong, or nothing.
using ValueRule = std::string (*)(const Filling& filling, const Assignment& assignment);

// --- Before it is set.

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

// --- Once all are set.

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

}  // namespace

std::string WrongValue(const Filling& filling, const Assignment& assignment) {
  for (const ValueRule rule : rulesOfValue) {
    if (std::string wrong = rule(filling, assignment); !wrong.empty()) return wrong;
  }
  return "";
}

void GivenValuesStand(Filling& filling) {
  for (const Assignment& assignment : filling.given()) {
    for (const ValueRule rule : rulesOfSetValue) {
      if (std::string wrong = rule(filling, assignment); !wrong.empty()) filling.Refuse(assignment, std::move(wrong));
    }
    if (filling.IsRefused()) return;
  }
}

}  // namespace cordboard::workbench
