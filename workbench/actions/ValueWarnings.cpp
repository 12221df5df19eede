#include "workbench/actions/ValueWarnings.h"

#include <algorithm>
#include <set>

#include "script/Conversions.h"
#include "script/Text.h"
#include "workbench/actions/Filling.h"
#include "workbench/forms/FoldedValues.h"
#include "workbench/text/Separated.h"

namespace cordboard::workbench {

namespace {

// Gives what is wrong with the value, or nothing.
using ValueWarning = std::string (*)(Filling& filling, const Assignment& assignment);

const ParameterDefinition& ParameterOf(const Filling& filling, const Assignment& assignment) {
  return *filling.definition().Find(assignment.name);
}

// --- Characters.

// The sign that separates values is none of the value's own where the parameter takes several.
std::string WithoutSeparators(const Filling& filling, const Assignment& assignment) {
  std::string value = assignment.value;
  if (ParameterOf(filling, assignment).TakesElements()) std::erase(value, '&');
  return value;
}

std::string HasNoSignOfTheLine(Filling& filling, const Assignment& assignment) {
  if (ParameterOf(filling, assignment).characters == Characters::Any) return "";
  const std::string value = WithoutSeparators(filling, assignment);
  const std::size_t sign = value.find_first_of(",:;=&");
  if (sign == value.npos) return "";
  return std::string("the sign ") + value[sign] + " in this value makes a wrong command line, where it separates";
}

std::string HasItsCharacters(Filling& filling, const Assignment& assignment) {
  const std::string value = WithoutSeparators(filling, assignment);
  const auto isOf = [&value](const char* characters) { return value.find_first_not_of(characters) == value.npos; };
  switch (ParameterOf(filling, assignment).characters) {
    case Characters::Digits: return isOf("0123456789") ? "" : "this value should be a number: digits alone";
    case Characters::Dialled:
      return isOf("0123456789*#ABCD") ? "" : "this value should be what is dialled: digits, *, # and A to D";
    case Characters::Hexadecimal:
      return isOf("0123456789ABCDEFabcdef") ? "" : "this value should be of hexadecimal digits: 0 to 9 and A to F";
    default: return "";
  }
}

// --- A whole that is typed as a row of digits.

bool IsRowOfDigits(const Filling& filling, const Assignment& assignment) {
  const Folding* folding = filling.form().FoldingInForce(assignment.name);
  return folding != nullptr && folding->separator.empty();
}

// The last digits of some wholes came with a release.
int LengthIn(const Filling& filling, const Folding& folding) {
  const std::string& release = filling.session().exchange().release();
  int length = 0;
  for (const DigitPlace& place : folding.places) {
    const auto isIn = [&](const std::string& name) { return filling.definition().Find(name)->IsIn(release); };
    if (std::ranges::any_of(place.parameters, isIn)) length = std::max(length, place.first + place.width - 1);
  }
  return length;
}

// The digits that a place can have: those of its list, or the sums of what its parts can be. None where no list says
// so.
std::set<std::string> PossibleDigits(Filling& filling, const DigitPlace& place) {
  const auto valuesOf = [&filling](const std::string& parameter) {
    std::set<std::string> values;
    const ValueList* list = filling.session().host().FreshList(parameter);
    filling.session().host().TakeMessages();
    if (list == nullptr) return values;
    for (const ValidValue& each : list->All()) values.insert(each.value);
    return values;
  };
  const bool isOne = !place.digit.empty() || place.parameters.size() == 1;
  if (isOne) return valuesOf(place.digit.empty() ? place.parameters.front() : place.digit);
  std::set<long long> sums = {0};
  for (const std::string& part : place.parameters) {
    std::set<long long> with = sums;
    for (const std::string& value : valuesOf(part)) {
      for (const long long sum : sums) with.insert(sum + static_cast<long long>(NumericValue(value)));
    }
    sums = std::move(with);
  }
  std::set<std::string> digits;
  if (sums.size() == 1) return digits;
  for (const long long sum : sums) digits.insert(DigitsOf(sum, place.width));
  return digits;
}

// A digit that is the fill is one that nobody gave.
std::string HasPossibleDigits(Filling& filling, const Assignment& assignment) {
  if (!IsRowOfDigits(filling, assignment)) return "";
  const Folding& folding = *filling.form().FoldingInForce(assignment.name);
  for (const DigitPlace& place : folding.places) {
    const std::string digits = Middle(assignment.value, place.first, place.width);
    if (digits.find_first_not_of(folding.fill) == digits.npos) continue;
    const std::set<std::string> possible = PossibleDigits(filling, place);
    if (possible.empty() || possible.contains(digits)) continue;
    const std::string which = place.width == 1 ? "digit " + std::to_string(place.first)
                                               : "digits " + std::to_string(place.first) + " to " +
                                                     std::to_string(place.first + place.width - 1);
    return which + " of this value should be one of " + Separated(possible, ", ");
  }
  return "";
}

std::string HasItsLength(Filling& filling, const Assignment& assignment) { return WrongLength(filling, assignment); }

constexpr ValueWarning warningsOfValue[] = {HasNoSignOfTheLine, HasItsCharacters, HasItsLength, HasPossibleDigits};

}  // namespace

std::string WrongLength(const Filling& filling, const Assignment& assignment) {
  if (!IsRowOfDigits(filling, assignment)) return "";
  std::set<int> lengths;
  const auto length = static_cast<int>(Length(assignment.value));
  for (const Folding* folding : filling.definition().foldings.Of(assignment.name)) {
    if (!filling.form().IsActive(*folding)) continue;
    if (length == LengthIn(filling, *folding)) return "";
    lengths.insert(folding->length);
  }
  if (lengths.contains(length)) return "";
  const std::string should = Separated(lengths, " or ", [](int each) { return std::to_string(each); });
  return "this value has " + std::to_string(length) + " digits and should have " + should;
}

void WarnOfValues(Filling& filling) {
  for (const Assignment& assignment : filling.given()) {
    if (assignment.value.empty() || filling.IsFromList(assignment.name)) continue;
    for (const ValueWarning warning : warningsOfValue) {
      std::string wrong = warning(filling, assignment);
      if (wrong.empty()) continue;
      filling.Warn(assignment, std::move(wrong));
      break;
    }
  }
}

}  // namespace cordboard::workbench
