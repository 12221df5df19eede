// cordboard explain: what one action does, call by call, without doing it.

#include <iostream>
#include <nlohmann/json.hpp>

#include "cli/Files.h"
#include "cli/Output.h"
#include "cli/Subcommands.h"
#include "workbench/host/HidingTrace.h"
#include "workbench/plans/PlanLine.h"

namespace cordboard::cli {

namespace {

// Performs the action and undoes it; gives what it came to, and its calls.
template <typename Trace, typename... Given>
workbench::Outcome Try(workbench::Exchange& exchange, const workbench::UserAction& action,
                       std::vector<TracedCall>& calls, const Given&... given) {
  std::shared_ptr<Trace> trace;
  workbench::Session session(
      exchange, [&](std::shared_ptr<Host> host) { return trace = std::make_shared<Trace>(std::move(host), given...); });
  workbench::Transaction transaction(exchange);
  workbench::Outcome outcome = Perform(session, action);
  transaction.RollBack();
  calls = trace->calls();
  return outcome;
}

void Print(const std::vector<TracedCall>& calls, const workbench::Outcome& outcome) {
  for (const TracedCall& call : calls) {
    std::cout << std::string(static_cast<std::size_t>(call.depth) * 2, ' ') << call.call;
    if (!call.answer.empty()) std::cout << "  ->  " << call.answer;
    std::cout << '\n';
  }
  std::cout << (outcome.done ? "done" : "refused") << '\n';
}

void PrintAsJson(const std::vector<TracedCall>& calls, const workbench::Outcome& outcome) {
  nlohmann::json traced = nlohmann::json::array();
  for (const TracedCall& call : calls)
    traced.push_back({{"call", call.call}, {"answer", call.answer}, {"depth", call.depth}});
  nlohmann::json problems = nlohmann::json::array();
  for (const auto& problem : outcome.done ? outcome.warnings : outcome.problems) problems.push_back(ToJson(problem));
  PrintJson({{"calls", traced}, {"done", outcome.done}, {"problems", problems}});
}

workbench::UserAction Parsed(const std::string& line) {
  try {
    if (auto action = workbench::ParsePlanLine(line)) return *action;
  } catch (const workbench::PlanLineError& error) {
    throw Exit{Usage, error.what()};
  }
  throw Exit{Usage, "the line holds no action"};
}

}  // namespace

int Explain(const ExplainOptions& options) {
  const workbench::UserAction action = Parsed(options.line);
  const auto exchange = OpenToWrite(options.file);
  const workbench::FormDefinition& form = FormOf(action.command);
  WarnOfReaders(*exchange, options.file);
  std::vector<TracedCall> calls;
  const workbench::Outcome outcome = options.secrets ? Try<TracingHost>(*exchange, action, calls)
                                                     : Try<workbench::HidingTrace>(*exchange, action, calls, form);
  if (options.json) {
    PrintAsJson(calls, outcome);
  } else {
    Print(calls, outcome);
  }
  for (const auto& problem : outcome.problems) Error(Written(action.command, problem));
  for (const auto& problem : outcome.warnings) Warning(Written(action.command, problem));
  return outcome.done ? Done : Refused;
}

}  // namespace cordboard::cli
