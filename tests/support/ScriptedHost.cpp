#include "support/ScriptedHost.h"

#include <gtest/gtest.h>

#include "script/Conversions.h"
#include "script/RunTimeFailure.h"

namespace cordboard {

std::string Lines(std::initializer_list<std::string> lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\n";
  return text;
}

// The trace refers to this host without owning it.
ScriptedHost::ScriptedHost()
    : trace_(std::make_shared<TracingHost>(std::shared_ptr<Host>(std::shared_ptr<Host>(), this))) {}

ScriptedHost::~ScriptedHost() = default;

void ScriptedHost::Rows(const std::string& sql, std::vector<std::vector<Value>> columns) {
  rows_[sql].emplace_back(std::move(columns));
}

bool ScriptedHost::Run(const Action& action) {
  CScript script;
  script.AddObject(trace_);
  return script.Run(action.Definition, action.oaRelease, action.FunctionName, action.CmdName, action.CmdId,
                    action.ParamList);
}

std::string ScriptedHost::Calls() const {
  std::string text;
  for (const TracedCall& call : trace_->calls()) text += call.call + "\n";
  return text;
}

std::string ScriptedHost::Effects() const {
  std::string text;
  for (const TracedCall& call : trace_->calls()) {
    if (!call.call.starts_with("scGetParamValue(")) text += call.call + "\n";
  }
  return text;
}

bool ScriptedHost::Done(std::string_view operation, const std::string& first) {
  const std::string name(operation);
  if (failed_.contains({name, first}))
    throw RunTimeFailure(RunTimeFailure::Cause::HostFailure, name + " failed as scripted");
  return !refused_.contains({name, ""}) && !refused_.contains({name, first});
}

HostAnswer ScriptedHost::Answer(const HostCall& call) {
  const Value* first = call.arguments.empty() ? nullptr : std::get_if<Value>(&call.arguments.front());
  return {Done(call.operation, first != nullptr && first->IsText() ? first->text() : "")};
}

Value ScriptedHost::scGetParamValue(const std::string& name) {
  Done("scGetParamValue", name);
  const auto found = params_.find(name);
  return found == params_.end() ? Value() : found->second;
}

bool ScriptedHost::scSetParamValue(const std::string& name, const Value& value) {
  const bool answer = Done("scSetParamValue", name);
  if (answer) params_[name] = value;
  return answer;
}

bool ScriptedHost::scResetParam(const std::string& name) {
  const bool answer = Done("scResetParam", name);
  if (answer) params_.erase(name);
  return answer;
}

// Its name stands last, and where there is none the values are those of the current parameter.
bool ScriptedHost::scPushValidValues(const std::variant<Value, List>&, const std::optional<std::string>& name) {
  return Done("scPushValidValues", name.value_or(""));
}

bool ScriptedHost::scGetValidValues(const std::string& name, List& values) {
  const auto found = validValues_.find(name);
  const bool answer = Done("scGetValidValues", name);
  if (found != validValues_.end()) values = found->second;
  if (answer && found == validValues_.end()) ADD_FAILURE() << "unexpected: scGetValidValues of " << name;
  return answer;
}

bool ScriptedHost::scGetNumberOfValidValues(const std::string& name, const Value&, Value& count) {
  const auto found = counts_.find(name);
  const bool answer = Done("scGetNumberOfValidValues", name);
  if (found != counts_.end()) count = found->second;
  if (answer && found == counts_.end()) ADD_FAILURE() << "unexpected: scGetNumberOfValidValues of " << name;
  return answer;
}

bool ScriptedHost::scRunQuery(const std::string& sql, RowSet* rows, const Selector&) {
  const bool answer = Done("scRunQuery", sql);
  if (rows == nullptr) return answer;
  const auto found = rows_.find(sql);
  if (found != rows_.end()) {
    *rows = found->second.front();
    if (found->second.size() > 1) found->second.pop_front();
  } else if (answer) {
    ADD_FAILURE() << "unexpected query: " << TraceText(Value(sql));
  }
  return answer;
}
Value ScriptedHost::scBuildCmdID() {
  Done("scBuildCmdID");
  return ++lastCmdId_;
}
bool ScriptedHost::scGetAutoEquOptionValue(Value& clause) {
  clause = autoEqu_;
  return !autoEqu_.IsEmpty();
}

}  // namespace cordboard
