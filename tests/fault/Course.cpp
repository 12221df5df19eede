#include "fault/Course.h"

#include <algorithm>
#include <iterator>
#include <set>
#include <sstream>

namespace cordboard {

namespace {

List ParamListOf(const Scenario& scenario, const Deed& deed) {
  if (deed.function == "SetInfo") return scenario.columns;
  if (deed.function == "EditInfo") return scenario.changed;
  return deed.parameter.empty() ? List() : List{deed.parameter};
}

// As the workbench does it: a generation reads records alone, and finds no form.
workbench::RunResult Do(workbench::Session& session, const Scenario& scenario, const Deed& deed) {
  const workbench::FormDefinition& form = scenario.form.definition();
  if (deed.function == "GenerateCmd") return session.Generate(form.command, 7);
  session.host().OpenForm(form) = scenario.form;
  session.host().Checking(deed.parameter);
  return session.Run(deed.function, scenario.CmdId, ParamListOf(scenario, deed), deed.parameter);
}

bool IsTrue(const TracedCall& call) { return call.answer.starts_with("True"); }

// The lines that only one of two contents of the tables has.
std::string Difference(const std::string& before, const std::string& after) {
  const auto lines = [](const std::string& text) {
    std::multiset<std::string> all;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) all.insert(line);
    return all;
  };
  std::vector<std::string> gone;
  std::vector<std::string> come;
  std::ranges::set_difference(lines(before), lines(after), std::back_inserter(gone));
  std::ranges::set_difference(lines(after), lines(before), std::back_inserter(come));
  std::string text;
  for (const std::string& line : gone) text += "  - " + line + "\n";
  for (const std::string& line : come) text += "  + " + line + "\n";
  return text.empty() ? "the order of the rows differs\n" : text;
}

}  // namespace

// Texts in single quotes and digits are values.
std::string WithoutValues(const std::string& call) {
  std::string words;
  bool quoted = false;
  for (const char c : call) {
    if (c == '\'') quoted = !quoted;
    if (!quoted && (c < '0' || c > '9')) words += c;
  }
  return words;
}

std::string OperationOf(const TracedCall& call) { return call.call.substr(0, call.call.find('(')); }

std::size_t Course::Count(const std::string& operation) const {
  return static_cast<std::size_t>(
      std::ranges::count_if(calls, [&](const TracedCall& call) { return OperationOf(call) == operation; }));
}

std::size_t Course::CountTrue(const std::string& operation) const {
  return static_cast<std::size_t>(std::ranges::count_if(
      calls, [&](const TracedCall& call) { return IsTrue(call) && OperationOf(call) == operation; }));
}

int Course::Deepest() const {
  int open = 0;
  int deepest = 0;
  for (const TracedCall& call : calls) {
    if (!IsTrue(call)) continue;
    const std::string operation = OperationOf(call);
    if (operation == "scStartTransaction") deepest = std::max(deepest, ++open);
    if (operation == "scCommitTransaction" || operation == "scRollBackTransaction") --open;
  }
  return deepest;
}

std::string Course::LastRefused() const {
  const auto last = std::ranges::find_if(calls.rbegin(), calls.rend(), [](const TracedCall& call) {
    return call.answer.starts_with("False") && FindOperation(OperationOf(call)).CanRefuse();
  });
  return last == calls.rend() ? "" : last->call;
}

std::string Course::Road() const {
  std::string road;
  std::string last;
  for (const TracedCall& call : calls) {
    // The arguments of these are values alone.
    const std::string operation = OperationOf(call);
    const bool values = operation == "scErrorMessage" || operation.find("Valid") != operation.npos ||
                        operation == "scPrintToDebugWindow" || operation == "scNANSIinitiate";
    const std::string step =
        (values ? operation : WithoutValues(call.call)) + (call.answer.starts_with("False") ? "-" : "+") + "\n";
    if (step != last) road += step;  // a loop that goes round once more is no other road
    last = step;
  }
  return road + (failure ? "failed" : answer ? "True" : "False");
}

std::string Course::Transcript() const {
  std::string text;
  for (const TracedCall& call : calls) text += "  " + call.call + " -> " + call.answer + "\n";
  return text + "  => " + (failure ? *failure : answer ? "True" : "False") + "\n";
}

Course Go(World& world, const Scenario& scenario, const Deed& deed, std::size_t wrongCall, Fault fault) {
  Course course;
  std::set<std::string> touched;
  std::string after;
  {
    workbench::Transaction undone(world.exchange());
    std::shared_ptr<TracingHost> trace;
    workbench::Session session(world.exchange(), [&](std::shared_ptr<Host> workbench) {
      return trace = std::make_shared<TracingHost>(std::make_shared<FailingHost>(workbench, wrongCall, fault));
    });
    world.TakeTouched();
    course.openBefore = world.exchange().OpenTransactions();
    try {
      const workbench::RunResult result = Do(session, scenario, deed);
      course.answer = result.answer;
      if (result.failure) course.failure = result.failure->cause;
    } catch (const std::exception& escaped) {
      course.escaped = escaped.what();
    }
    course.openAfter = world.exchange().OpenTransactions();
    course.calls = trace->calls();
    // A session shows a box among its messages, where it is the one without a code.
    course.box =
        std::ranges::any_of(session.host().TakeMessages(), [](const auto& shown) { return shown.code.empty(); });
    if (course.Succeeded()) return course;
    touched = world.TakeTouched();
    after = world.Dump(touched);
  }
  // What was before stands there again, since no action closes the transaction around it. To read it beforehand would
  // cost each action as much that leaves nothing.
  if (const std::string before = world.Dump(touched); before != after) course.left = Difference(before, after);
  return course;
}

}  // namespace cordboard
