#include "workbench/actions/Reasons.h"

#include <algorithm>
#include <array>

#include "script/Conversions.h"
#include "script/MessageCodes.h"
#include "workbench/actions/Called.h"
#include "workbench/actions/Facts.h"
#include "workbench/exchange/References.h"
#include "workbench/text/Elements.h"

namespace cordboard::workbench {

namespace {

// How many values are looked up.
constexpr std::size_t mostReasons = 12;

// The values of a parameter on the form, one by one.
std::vector<std::string> ValuesOf(const Filling& filling, const std::string& parameter) {
  const std::string value = Joined(filling.form().Get(parameter));
  const ParameterDefinition* definition = filling.definition().Find(parameter);
  try {
    return value.empty() || definition == nullptr || !definition->TakesElements() ? std::vector{value}
                                                                                  : Elements(value);
  } catch (const ElementsError&) {
    return {value};
  }
}

bool Is(const ReportedMessage& message, int code) { return message.code == std::to_string(code); }

// Messages that are about a value which is used.
bool IsAboutUse(const ReportedMessage& message) {
  static constexpr std::array codes = {
      NumberInUse, ConstantInBlockedRange, ValuePresentForKey, ValueUsedTwice,         ValueAgainstPrefixRule,
      PortTaken,   KeyExistsAlready,       CodeInUse,          CordlessRecordNotAdded, AddressRefused};
  return std::ranges::any_of(codes, [&](int code) { return Is(message, code); });
}

// The parameter that a message is about: one that it names, alone or as the first of several; the one that has the
// value that it tells; or, where it speaks of "the number", the one whose numbers the command sets up.
std::string About(const ReportedMessage& message, const Filling& filling) {
  const FormDefinition& definition = filling.definition();
  for (const Value& argument : message.arguments) {
    std::string name = Joined(Trim(argument));
    name = name.substr(0, name.find(','));
    if (definition.Find(name) != nullptr) return name;
  }
  for (const Assignment& given : filling.given()) {
    const bool isTold = message.arguments.size() == 1 && given.value == Joined(message.arguments.front());
    const bool isTheNumber = Is(message, NumberTooLong) || Is(message, NumberTooShort) || !message.reason.empty();
    if (isTold || (isTheNumber && ShippedReferences().DefinedIn(definition.table, given.name) != nullptr))
      return given.name;
  }
  return "";
}

// What the exchange tells of the values of one parameter.
std::string WhoHasOne(Filling& filling, const std::string& parameter, const ReportedMessage& message) {
  if (filling.definition().Find(parameter) == nullptr || filling.definition().IsSecret(parameter)) return "";
  Facts facts(filling, parameter);
  std::vector<std::string> values = ValuesOf(filling, parameter);
  values.resize(std::min(values.size(), mostReasons));
  for (const std::string& value : values) {
    if (value.empty()) continue;
    facts.LookWhoHas(value);
    if (facts.Told().empty() && Is(message, NumberInUse)) facts.LookForBeginning(value);
    if (facts.Told().empty() && Is(message, ConstantInBlockedRange)) facts.LookForRange(value);
  }
  return facts.Told();
}

// Finds out which value a message about use is about, where it does not say so, and who has it.
void LookWhoHas(Filling& filling, const ReportedMessage& message, Problem& problem) {
  if (!problem.parameter.empty()) {
    problem.reason = WhoHasOne(filling, problem.parameter, message);
    return;
  }
  for (const Assignment& given : filling.given()) {
    problem.reason = WhoHasOne(filling, given.name, message);
    if (problem.reason.empty()) continue;
    problem.parameter = given.name;
    return;
  }
}

}  // namespace

std::string WhyRefused(Filling& filling, const std::string& parameter, const std::vector<std::string>& values) {
  if (filling.definition().IsSecret(parameter)) return "";
  Facts facts(filling, parameter);
  for (std::size_t i = 0; i < std::min(values.size(), mostReasons); ++i) facts.Look(values[i]);
  const std::string told = facts.Told();
  return told.empty() || values.size() <= mostReasons ? told : told + "; and so on";
}

std::vector<Problem> Explained(Filling& filling, const std::vector<ReportedMessage>& messages) {
  std::vector<Problem> problems;
  for (const ReportedMessage& message : messages) {
    Problem problem{.parameter = About(message, filling), .message = message.text, .reason = message.reason};
    if (problem.reason.empty() && IsAboutUse(message)) LookWhoHas(filling, message, problem);
    if (!problem.parameter.empty()) problem.value = Joined(filling.form().Get(problem.parameter));
    const bool isNew = std::ranges::none_of(problems, [&](const Problem& before) {
      return before.message == problem.message && before.parameter == problem.parameter;
    });
    if (isNew) problems.push_back(std::move(problem));
  }
  return problems;
}

std::vector<Naming> NamedBy(Exchange& exchange, const FormDefinition& definition, const Form& form, std::size_t most) {
  std::vector<Naming> namings;
  for (const Thing& thing : ShippedReferences().things()) {
    if (thing.definedBy == nullptr || thing.definedBy->table != definition.table) continue;
    const std::string value = Joined(form.Get(thing.home->value));
    if (value.empty()) continue;
    std::vector<Holder> holders = WhoHolds(exchange, thing, value, most);
    if (!holders.empty()) namings.push_back({&thing, value, std::move(holders)});
  }
  return namings;
}

std::string WhoNames(Exchange& exchange, const FormDefinition& definition, const Form& form) {
  const std::vector<Naming> namings = NamedBy(exchange, definition, form, 1);
  if (namings.empty()) return "";
  const auto& [thing, value, holders] = namings.front();
  return "the " + thing->name + " " + value + " is named by the " + Called(holders.front());
}

}  // namespace cordboard::workbench
