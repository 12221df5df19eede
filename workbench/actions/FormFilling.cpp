#include "workbench/actions/FormFilling.h"

#include <algorithm>
#include <unordered_set>

#include "script/Conversions.h"
#include "workbench/actions/Records.h"
#include "workbench/text/Elements.h"
#include "workbench/text/Nearest.h"

namespace cordboard::workbench {

namespace {

constexpr std::size_t shownValues = 10;

std::vector<std::string> ParameterNames(const FormDefinition& definition) {
  std::vector<std::string> names;
  for (const ParameterDefinition& parameter : definition.parameters) names.push_back(parameter.name);
  return names;
}

// "10, 20, 30 ... (57 in all)"; a list of nothing says so.
std::string Shown(const ValueList& list, bool mandatory) {
  const std::vector<ValidValue> all = list.All();
  if (all.empty()) return mandatory ? "no value at present" : "no value at present; leave it out";
  std::string text;
  for (std::size_t i = 0; i < std::min(all.size(), shownValues); ++i) text += (i == 0 ? "" : ", ") + all[i].value;
  return all.size() <= shownValues ? text : text + ", ... (" + std::to_string(all.size()) + " in all)";
}

std::string WrongCharacters(const std::string& value) {
  if (value.find('\'') != value.npos) return "a value must not hold a quote character (')";
  const bool control = std::ranges::any_of(value, [](char c) { return static_cast<unsigned char>(c) < 0x20; });
  return control ? "a value must not hold control characters" : "";
}

// Why the form does not take this many values at present, or nothing.
std::string WrongNumber(const Form& form, const Assignment& assignment) {
  const bool range = HoldsRange(assignment.value);
  if (range && !form.TakesRange(assignment.name)) return "a range is not possible here; give one value";
  if (HoldsSeveral(assignment.value) && !form.TakesSeveral(assignment.name))
    return "several values are not possible here; give one value";
  return "";
}

// The first of the elements that was there before, or nothing.
std::string GivenTwice(const std::vector<std::string>& elements) {
  std::unordered_set<std::string> seen;
  for (const std::string& element : elements) {
    if (!seen.insert(element).second) return element;
  }
  return "";
}

std::string Listed(const std::vector<std::string>& names) {
  std::string text;
  for (const std::string& name : names) text += (text.empty() ? "" : name == names.back() ? " and " : ", ") + name;
  return text;
}

// One of the sets of parameters has to be given whole.
void CheckOneOf(const Form& form, std::vector<Problem>& problems) {
  const auto& sets = form.definition().oneOf;
  std::string choice;
  for (const std::vector<std::string>& set : sets) {
    if (std::ranges::none_of(set, [&form](const std::string& name) { return form.Get(name).IsBlank(); })) return;
    choice += (choice.empty() ? "" : ", or ") + Listed(set);
  }
  if (!sets.empty()) problems.push_back({sets.front().front(), "", "give " + choice, ""});
}

// The values of parameters that go in step are paired by their place.
void CheckInStep(const Form& form, std::vector<Problem>& problems) {
  for (const std::vector<std::string>& together : form.definition().inStep) {
    const auto number = [&form](const std::string& name) { return Elements(Joined(form.Get(name))).size(); };
    const std::string& first = together.front();
    for (const std::string& other : together) {
      if (number(first) != number(other))
        problems.push_back({other, "",
                            first + " and " + other + " go in pairs, and there are " + std::to_string(number(first)) +
                                " and " + std::to_string(number(other)) + " of them; give as many of each",
                            ""});
    }
  }
}

void CheckAgainstList(Session& session, const Assignment& assignment, const std::vector<std::string>& elements,
                      std::vector<Problem>& problems) {
  const ValueList* list = session.host().FreshList(assignment.name);
  const std::vector<Problem> reported = TakeProblems(session, assignment.name, assignment.value);
  problems.insert(problems.end(), reported.begin(), reported.end());
  // A list that is not built, in silence, is no list: the rules leave the value to the form.
  if (list == nullptr || !reported.empty()) return;
  if (const std::string twice = GivenTwice(elements); !twice.empty())
    problems.push_back({assignment.name, twice, "this value is given twice", ""});
  const Form& form = session.form();
  const bool reuse = form.definition().Find(assignment.name)->reuse;
  for (const std::string& element : elements) {
    if (list->Contains(element)) continue;
    if (reuse && IsHeld(session.exchange(), form.definition(), assignment.name, element)) continue;
    problems.push_back(
        {assignment.name, element, "this value is not possible here", Shown(*list, form.IsMandatory(assignment.name))});
    return;
  }
}

}  // namespace

std::vector<Problem> TakeProblems(Session& session, const std::string& parameter, const std::string& value) {
  std::vector<Problem> problems;
  for (const ReportedMessage& message : session.host().TakeMessages())
    problems.push_back({parameter, value, message.text, ""});
  return problems;
}

void SetValue(Session& session, const Assignment& assignment, std::vector<Problem>& problems,
              std::vector<Problem>& warnings) {
  const std::string& name = assignment.name;
  const std::string& value = assignment.value;
  Form& form = session.form();
  const ParameterDefinition* parameter = form.definition().Find(name);
  const auto refuse = [&](const std::string& message) { problems.push_back({name, value, message, ""}); };
  if (parameter == nullptr)
    return refuse("there is no parameter " + name + " in " + form.definition().command + "." +
                  DidYouMean(name, ParameterNames(form.definition())));
  if (const std::string& release = session.exchange().release(); !parameter->IsIn(release))
    return refuse("the release " + release + " does not have this parameter");
  if (const std::string wrong = WrongCharacters(value); !wrong.empty()) return refuse(wrong);

  // Nothing behind the equals sign clears the parameter.
  if (value.empty()) {
    session.host().scResetParam(name);
  } else {
    std::vector<std::string> elements = {value};
    if (parameter->TakesElements()) {
      try {
        elements = Elements(value);
      } catch (const ElementsError& error) {
        return refuse(error.what());
      }
    }
    if (parameter->list || parameter->fixed) {
      const std::size_t before = problems.size();
      CheckAgainstList(session, assignment, elements, problems);
      if (problems.size() > before) return;
    }
    form.Set(name, value);
  }

  if (!parameter->check) return;
  session.host().Checking(name);
  const RunResult check = session.Run("StatCheck", 0, {name}, name);
  if (check.failure) refuse("the check failed (" + *check.failure + ")");
  // A check stops the user where it answers False and says why; one that answers False in silence found nothing.
  for (const Problem& problem : TakeProblems(session, name, value))
    (check.answer ? warnings : problems).push_back(problem);
}

void CheckWhole(Session& session, const std::vector<Assignment>& values, std::vector<Problem>& problems) {
  const Form& form = session.form();
  for (const ParameterDefinition& parameter : form.definition().parameters) {
    // A parameter whose value was refused has been spoken of.
    const bool refused = std::ranges::find(problems, parameter.name, &Problem::parameter) != problems.end();
    if (!refused && form.IsMandatory(parameter.name) && form.Get(parameter.name).IsBlank())
      problems.push_back({parameter.name, "", "this parameter has to be given (" + parameter.title + ")", ""});
  }
  if (problems.empty()) CheckOneOf(form, problems);
  if (problems.empty()) CheckInStep(form, problems);
  for (const Assignment& assignment : values) {
    const ParameterDefinition* parameter = form.definition().Find(assignment.name);
    if (parameter == nullptr || !problems.empty()) continue;
    if (parameter->TakesElements()) {
      if (const std::string wrong = WrongNumber(form, assignment); !wrong.empty())
        problems.push_back({assignment.name, assignment.value, wrong, ""});
    }
    // A parameter of the form alone may come and go; one that is stored must not be lost in silence.
    const bool stored =
        std::ranges::find(form.definition().columns, assignment.name) != form.definition().columns.end();
    const std::string present = Joined(form.Get(assignment.name));
    if (stored && present != assignment.value)
      problems.push_back(
          {assignment.name, assignment.value,
           present.empty() ? "a check of the values behind it has cleared this value, since the two do not go together"
                           : "a check has changed this value to " + present + "; give that, or leave it out",
           ""});
  }
}

}  // namespace cordboard::workbench
