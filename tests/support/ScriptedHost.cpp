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

bool ScriptedHost::Answer(const std::string& operation, const std::string& first) {
  if (failed_.contains({operation, first}))
    throw RunTimeFailure(RunTimeFailure::Cause::HostFailure, operation + " failed as scripted");
  return !refused_.contains({operation, ""}) && !refused_.contains({operation, first});
}

Value ScriptedHost::scGetParamValue(const std::string& name) {
  Answer("scGetParamValue", name);
  const auto found = params_.find(name);
  return found == params_.end() ? Value() : found->second;
}

bool ScriptedHost::scSetParamValue(const std::string& name, const Value& value) {
  const bool answer = Answer("scSetParamValue", name);
  if (answer) params_[name] = value;
  return answer;
}

bool ScriptedHost::scResetParam(const std::string& name) {
  const bool answer = Answer("scResetParam", name);
  if (answer) params_.erase(name);
  return answer;
}

bool ScriptedHost::scSetParamOptional(const std::string& name, bool) { return Answer("scSetParamOptional", name); }
void ScriptedHost::scSetCanHaveParamRange(const std::string& name, bool) { Answer("scSetCanHaveParamRange", name); }
void ScriptedHost::scSetCanHaveParamMultiple(const std::string& name, bool) {
  Answer("scSetCanHaveParamMultiple", name);
}

Value ScriptedHost::scIsValueEqual(const Value& value) {
  const auto found = equal_.find(TraceText(value));
  return found == equal_.end() ? Value(false) : found->second;
}

bool ScriptedHost::scGetValueArray(const std::string& name, List& values) {
  const auto found = arrays_.find(name);
  const bool answer = Answer("scGetValueArray", name);
  if (found != arrays_.end()) values = found->second;
  if (answer && found == arrays_.end()) ADD_FAILURE() << "unexpected: scGetValueArray of " << name;
  return answer;
}

void ScriptedHost::scGetPreviousValue(Value& previous) { previous = previous_; }
bool ScriptedHost::scActiveDefinition(const std::string& name, const Value&) {
  return Answer("scActiveDefinition", name);
}
void ScriptedHost::SetTemplate(bool) {}

bool ScriptedHost::scCollectSingleValues(const std::string& sql, const Selector&) {
  return Answer("scCollectSingleValues", sql);
}
bool ScriptedHost::scAddSingleValues(const std::string& sql) { return Answer("scAddSingleValues", sql); }
bool ScriptedHost::scSubtractSingleValues(const std::string& sql) { return Answer("scSubtractSingleValues", sql); }
bool ScriptedHost::scCollectValuesAndDesc(const std::string& sql, const Selector&) {
  return Answer("scCollectValuesAndDesc", sql);
}
bool ScriptedHost::scSQLSelectValuesAndDesc() { return Answer("scSQLSelectValuesAndDesc"); }
bool ScriptedHost::scSQLSelectValuesAndDescByDefinition(const Value&) {
  return Answer("scSQLSelectValuesAndDescByDefinition");
}
bool ScriptedHost::scPushValidValues(const std::variant<Value, List>&, const std::optional<std::string>& name) {
  return Answer("scPushValidValues", name.value_or(""));
}
bool ScriptedHost::scPushValidRangeValues(const Value&, const Value&) { return Answer("scPushValidRangeValues"); }
bool ScriptedHost::scRemoveFromValidValues(const std::string& name, const Value&) {
  return Answer("scRemoveFromValidValues", name);
}
bool ScriptedHost::scRemoveFromValidRangeValues(const std::string& name, const Value&, const Value&) {
  return Answer("scRemoveFromValidRangeValues", name);
}

bool ScriptedHost::scGetValidValues(const std::string& name, List& values) {
  const auto found = validValues_.find(name);
  const bool answer = Answer("scGetValidValues", name);
  if (found != validValues_.end()) values = found->second;
  if (answer && found == validValues_.end()) ADD_FAILURE() << "unexpected: scGetValidValues of " << name;
  return answer;
}

bool ScriptedHost::scGetNumberOfValidValues(const std::string& name, const Value&, Value& count) {
  const auto found = counts_.find(name);
  const bool answer = Answer("scGetNumberOfValidValues", name);
  if (found != counts_.end()) count = found->second;
  if (answer && found == counts_.end()) ADD_FAILURE() << "unexpected: scGetNumberOfValidValues of " << name;
  return answer;
}

bool ScriptedHost::scRunQuery(const std::string& sql, RowSet* rows, const Selector&) {
  const bool answer = Answer("scRunQuery", sql);
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

bool ScriptedHost::scSQLInsert(const std::string& table, const List&, const List&) {
  return Answer("scSQLInsert", table);
}
bool ScriptedHost::scSQLUpdate(const std::string& table, const List&, const List&, const List&, const List&) {
  return Answer("scSQLUpdate", table);
}
RowSet ScriptedHost::scSQLSelect(const std::string& table, const List&, const List&, const List&) {
  Answer("scSQLSelect", table);
  return selected_;
}
Value ScriptedHost::scBuildCmdID() {
  Answer("scBuildCmdID");
  return ++lastCmdId_;
}
bool ScriptedHost::scStartTransaction() { return Answer("scStartTransaction"); }
bool ScriptedHost::scCommitTransaction() { return Answer("scCommitTransaction"); }
bool ScriptedHost::scRollBackTransaction() { return Answer("scRollBackTransaction"); }

bool ScriptedHost::scNANSIinitiate(const Value&, const Value&, Value& code) {
  code = initiateCode_;
  return Answer("scNANSIinitiate");
}
bool ScriptedHost::scNANSIremoveFromBlockedRange(const Value&, const Value&) {
  return Answer("scNANSIremoveFromBlockedRange");
}
bool ScriptedHost::scGetAutoEquOptionValue(Value& clause) {
  clause = autoEqu_;
  return !autoEqu_.IsEmpty();
}
void ScriptedHost::scFilterEQU(const Value&, const Value&) {}

void ScriptedHost::scErrorMessage(int, int, int, const std::string&, const Value&, const std::vector<Value>&) {}
void ScriptedHost::scPrintToDebugWindow(const std::string&) {}

}  // namespace cordboard
