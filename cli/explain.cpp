// cordboard explain: what one action does, call by call, without doing it.

#include <iostream>
#include <nlohmann/json.hpp>
#include <set>

#include "cli/Files.h"
#include "cli/Output.h"
#include "cli/Subcommands.h"
#include "script/TracingHost.h"
#include "workbench/plans/PlanLine.h"

namespace cordboard::cli {

namespace {

// The secrets of an action, as they stand in its calls: what was typed, and what the library has read of the form.
std::set<std::string> SecretsOf(const workbench::UserAction& action, const workbench::FormDefinition& form,
                                const std::vector<TracedCall>& calls) {
  std::set<std::string> texts;
  for (const auto* given : {&action.selection, &action.values}) {
    for (const auto& [name, value] : *given) {
      if (form.IsSecret(name)) texts.insert(TraceText(Value(value)));
    }
  }
  for (const workbench::ParameterDefinition& parameter : form.parameters) {
    const std::string read = "scGetParamValue(" + TraceText(Value(parameter.name)) + ")";
    for (const TracedCall& call : calls) {
      if (parameter.secret && call.call == read && call.answer.starts_with('"')) texts.insert(call.answer);
    }
  }
  texts.erase(TraceText(Value("")));
  return texts;
}

// Hides a text where it stands as a whole, as a value or in a statement: `shown` has the quotes of a value.
void Hide(const std::string& shown, std::string& text) {
  const std::string content = shown.substr(1, shown.size() - 2);
  for (const char quote : {'"', '\''}) {
    const std::string whole = quote + content + quote;
    const std::string instead = quote + std::string(workbench::hiddenValue) + quote;
    for (std::size_t at = 0; (at = text.find(whole, at)) != text.npos; at += instead.size())
      text.replace(at, whole.size(), instead);
  }
}

std::vector<TracedCall> WithoutSecrets(std::vector<TracedCall> calls, const workbench::UserAction& action,
                                       const workbench::FormDefinition& form) {
  for (const std::string& secret : SecretsOf(action, form, calls)) {
    for (TracedCall& call : calls) {
      Hide(secret, call.call);
      Hide(secret, call.answer);
    }
  }
  return calls;
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
  std::shared_ptr<TracingHost> trace;
  workbench::Session session(*exchange, [&trace](std::shared_ptr<Host> host) {
    return trace = std::make_shared<TracingHost>(std::move(host));
  });
  workbench::Transaction transaction(*exchange);
  const workbench::Outcome outcome = Perform(session, action);
  transaction.RollBack();

  const auto calls = options.secrets ? trace->calls() : WithoutSecrets(trace->calls(), action, form);
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
