#include "workbench/actions/Filling.h"

#include <algorithm>
#include <unordered_set>

#include "script/Conversions.h"
#include "workbench/actions/NextValues.h"
#include "workbench/actions/Reasons.h"
#include "workbench/actions/Records.h"
#include "workbench/actions/ShownValues.h"
#include "workbench/actions/Templates.h"
#include "workbench/actions/ValueRules.h"
#include "workbench/text/Elements.h"
#include "workbench/text/Separated.h"

namespace cordboard::workbench {

namespace {

std::string NotPossible(const ParameterDefinition& parameter, const std::vector<std::string>& wrong) {
  if (!parameter.TakesElements() && HoldsSeveral(wrong.front()))
    return "several values are not possible here; give one value";
  return wrong.size() == 1 ? "this value is not possible here" : "these values are not possible here";
}

// The first of the elements that was there before, or nothing.
std::string GivenTwice(const std::vector<std::string>& elements) {
  std::unordered_set<std::string> seen;
  for (const std::string& element : elements) {
    if (!seen.insert(element).second) return element;
  }
  return "";
}

}  // namespace

std::vector<Problem> TakeMessages(Session& session, const Assignment& about) {
  std::vector<Problem> problems;
  for (ReportedMessage& message : session.host().TakeMessages())
    problems.push_back({.parameter = about.name,
                        .value = about.value,
                        .message = std::move(message.text),
                        .reason = std::move(message.reason)});
  return problems;
}

Filling FillForm(Session& session, const FormDefinition& definition, std::vector<Assignment> given,
                 const std::string& from) {
  const FormDefinition& ofRecord = definition.OfRecordWith(given);
  Filling filling(session, ofRecord, std::move(given));
  if (const auto record = StandingRecord(session.exchange(), definition))
    LoadRecord(session.exchange(), definition, *record, session.form());
  if (from.empty()) {
    filling.SetGiven();
  } else {
    PutTemplate(filling, from);
    const ShownValues shown(filling.form());
    filling.SetGiven();
    shown.ChangedByChecks(filling);
  }
  return filling;
}

Filling::Filling(Session& session, const FormDefinition& definition, std::vector<Assignment> given)
    : session_(session), given_(std::move(given)) {
  session_.host().OpenForm(definition);
}

bool Filling::IsGiven(const std::string& name) const {
  return std::ranges::find(given_, name, &Assignment::name) != given_.end();
}

std::string Filling::WithoutSecrets(std::string text) const {
  const auto hide = [&text](const std::string& secret) {
    if (secret.empty()) return;
    for (std::size_t at = text.find(secret); at != text.npos; at = text.find(secret, at + 3))
      text.replace(at, secret.size(), hiddenValue);
  };
  for (const ParameterDefinition& parameter : definition().parameters) {
    if (parameter.secret) hide(Joined(form().Get(parameter.name)));
  }
  for (const Assignment& given : given_) {
    if (definition().IsSecret(given.name)) hide(given.value);
  }
  return text;
}

std::vector<std::string> Filling::TakeDebugLines() {
  std::vector<std::string> lines = session_.host().TakeDebugLines();
  for (std::string& line : lines) line = WithoutSecrets(std::move(line));
  return lines;
}

Problem Filling::Told(Problem problem) const {
  problem.value = definition().Told({problem.parameter, std::move(problem.value)});
  problem.cause = WithoutSecrets(std::move(problem.cause));
  return problem;
}

void Filling::Refuse(Problem problem) { problems_.push_back(Told(std::move(problem))); }

void Filling::Warn(Problem problem) { warnings_.push_back(Told(std::move(problem))); }

void Filling::Refuse(const Assignment& assignment, std::string message) {
  Refuse({.parameter = assignment.name, .value = assignment.value, .message = std::move(message)});
}

void Filling::Warn(const Assignment& assignment, std::string message) {
  Warn({.parameter = assignment.name, .value = assignment.value, .message = std::move(message)});
}

void Filling::SetGiven() {
  if (definition().ordered)
    std::ranges::stable_sort(given_, {}, [this](const Assignment& given) { return definition().Place(given.name); });
  for (Assignment& assignment : given_) {
    const Assignment& first = *std::ranges::find(given_, assignment.name, &Assignment::name);
    if (&first != &assignment) {
      Refuse(assignment, "this parameter is given twice");
    } else if (const auto meant = MeantValue(*this, assignment)) {
      if (*meant != assignment.value) taken_.push_back({assignment.name, *meant});
      assignment.value = *meant;
      if (meant->empty() || Joined(form().Get(assignment.name)) != *meant) Set(assignment);
    }
  }
}

void Filling::Set(const Assignment& assignment) {
  if (std::string wrong = WrongValue(*this, assignment); !wrong.empty()) return Refuse(assignment, std::move(wrong));
  const ParameterDefinition& parameter = *definition().Find(assignment.name);
  if (assignment.value.empty()) {
    session_.host().scResetParam(parameter.name);
  } else if (IsPossible(parameter, assignment)) {
    session_.form().Set(parameter.name, assignment.value);
  } else {
    return;
  }
  if (!parameter.check) return;
  RunCheck(assignment);
  if (parameter.multiple) CheckTogether(assignment);
}

// A check may find that values of one parameter exclude each other: it takes them out of the list.
void Filling::CheckTogether(const Assignment& assignment) {
  if (IsRefused() || !HoldsSeveral(assignment.value)) return;
  std::vector<std::string> excluded = Elements(assignment.value);
  std::erase_if(excluded,
                [&](const std::string& element) { return !session_.host().IsTakenOut(assignment.name, element); });
  if (excluded.empty()) return;
  Refuse({.parameter = assignment.name,
          .value = Separated(AsRanges(excluded), "&"),
          .message = (excluded.size() == 1 ? "this value does" : "these values do") +
                     std::string(" not go together with the others of ") + assignment.name});
}

bool Filling::IsPossible(const ParameterDefinition& parameter, const Assignment& assignment) {
  // The next free values have been taken from the list just now.
  if (std::ranges::find(taken_, assignment.name, &Assignment::name) != taken_.end()) {
    fromList_.insert(parameter.name);
    return true;
  }
  const std::size_t before = problems_.size();
  std::vector<std::string> elements = {assignment.value};
  try {
    if (parameter.TakesElements()) elements = Elements(assignment.value);
  } catch (const ElementsError& error) {
    Refuse(assignment, error.what());
    return false;
  }
  // A list that is not built, in silence, is no list: the rules leave the value to the form.
  if (const ValueList* list = ListOf(assignment.name, assignment.value)) CheckAgainst(*list, assignment, elements);
  return problems_.size() == before;
}

const ValueList* Filling::ListOf(const std::string& parameter, const std::string& value) {
  const ValueList* list = session_.host().FreshList(parameter);
  const std::vector<Problem> reported = TakeMessages(session_, {parameter, value});
  for (const Problem& problem : reported) Refuse(problem);
  return reported.empty() ? list : nullptr;
}

void Filling::CheckAgainst(const ValueList& list, const Assignment& assignment,
                           const std::vector<std::string>& elements) {
  const std::string& name = assignment.name;
  const ParameterDefinition& parameter = *definition().Find(name);
  if (const std::string twice = GivenTwice(elements); !twice.empty())
    Refuse({.parameter = name, .value = twice, .message = "this value is given twice"});
  std::vector<std::string> wrong = elements;
  std::erase_if(wrong, [&](const std::string& element) {
    return list.Contains(element) || (parameter.beside && parameter.beside->Has(element)) ||
           (parameter.reuse && IsHeld(session_.exchange(), definition(), name, element));
  });
  if (wrong.empty()) {
    fromList_.insert(name);
    return;
  }
  Refuse({.parameter = name,
          .value = Separated(AsRanges(wrong), "&"),
          .message = NotPossible(parameter, wrong),
          .reason = WhyRefused(*this, name, wrong),
          .possible = PossibleOf(list, parameter, form().IsMandatory(name))});
}

// A check stops the user where it answers False and says why; one that answers False in silence found nothing.
void Filling::RunCheck(const Assignment& assignment) {
  const RunResult check = session_.Check(assignment.name);
  if (check.failure)
    Refuse({.parameter = assignment.name,
            .value = assignment.value,
            .message = "the check of this value came to no end: " + WithoutSecrets(check.failure->inWords),
            .cause = check.failure->cause});
  for (Problem& message : TakeMessages(session_, assignment))
    check.answer ? Warn(std::move(message)) : Refuse(std::move(message));
}

}  // namespace cordboard::workbench
