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

void Print(const std::vector<TracedCall>& calls, const workbench::Outcome& outcome) {
  for (const TracedCall& call : calls) {
    std::cout << std::string(static_cast<std::size_t>(call.depth) * 2, ' ') << Printed(call.call);
    if (!call.answer.empty()) std::cout << "  ->  " << Printed(call.answer);
    std::cout << '\n';
  }
  std::cout << (outcome.done ? "done" : "refused") << '\n';
}

void PrintAsJson(const std::vector<TracedCall>& calls, const workbench::Outcome& outcome) {
  nlohmann::json traced = nlohmann::json::array();
  for (const TracedCall& call : calls)
    traced.push_back({{"call", call.call}, {"answer", call.answer}, {"depth", call.depth}});
  PrintJson({{"calls", traced}, {"done", outcome.done}});
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
  const auto exchange = OpenToRead(options.file);
  const workbench::FormDefinition& form = FormOf(action.command);
  WarnOfReaders(*exchange, options.file);
  std::shared_ptr<TracingHost> trace;
  workbench::Session session(*exchange, [&](std::shared_ptr<Host> host) {
    return trace = options.secrets ? std::make_shared<TracingHost>(std::move(host))
                                   : std::make_shared<workbench::HidingTrace>(std::move(host), form);
  });
  const workbench::Outcome outcome = Perform(session, action);

  for (const auto& problem : outcome.problems) Error({.command = action.command}, problem);
  for (const auto& problem : outcome.warnings) Warning({.command = action.command}, problem);
  Debug(outcome.debugLines);
  if (options.json) {
    PrintAsJson(trace->calls(), outcome);
  } else {
    Print(trace->calls(), outcome);
  }
  return outcome.done ? Done : Refused;
}

}  // namespace cordboard::cli
