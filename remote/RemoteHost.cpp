#include "remote/RemoteHost.h"

#include <utility>

#include "script/Conversions.h"
#include "script/RunTimeFailure.h"

namespace cordboard::remote {

namespace {

using Cause = RunTimeFailure::Cause;

struct Out {};  // the place of an out-argument

// A row set and the selector behind it: null stands where the selector follows no row set.
struct RowsArgument {
  const RowSet* rows;
  const Selector& database;
};

void Put(Message& params, const Value& value) { params.push_back(ToJson(value)); }
void Put(Message& params, const std::string& text) { params.push_back(text); }
void Put(Message& params, int number) { params.push_back(number); }
void Put(Message& params, bool truth) { params.push_back(truth); }
void Put(Message& params, const List& list) { params.push_back(ToJson(list)); }
void Put(Message& params, Out) { params.push_back(Message{{"out", true}}); }
void Put(Message& params, const std::variant<Value, List>& values) {
  std::visit([&params](const auto& given) { Put(params, given); }, values);
}
// Arguments that are not passed are left off.
void Put(Message& params, const Selector& database) {
  if (database) Put(params, *database);
}
void Put(Message& params, const std::optional<std::string>& name) {
  if (name) Put(params, *name);
}
void Put(Message& params, const RowsArgument& argument) {
  if (argument.rows != nullptr) {
    Put(params, Out{});
  } else if (argument.database) {
    Put(params, Value::Null());
  }
  Put(params, argument.database);
}
void Put(Message& params, const std::vector<Value>& arguments) {
  for (const Value& argument : arguments) Put(params, argument);
}

// A member that is left off is empty.
const Json& Member(const Json& result, const char* name) {
  static const Json empty = {{"empty", true}};
  const auto found = result.find(name);
  return found == result.end() ? empty : *found;
}

const Json& Return(const Json& result) { return Member(result, "return"); }
const Json& OutOf(const Json& result) { return Member(result, "out"); }
bool Truth(const Json& result) { return ToTruth(ToValue(Return(result))); }

// What the peer says went wrong: its message, or all of the error where it has none.
std::string MessageOf(const Json& error) {
  const bool usual = error.is_object() && error.contains("message") && error["message"].is_string();
  return usual ? error["message"].get<std::string>() : Line(error);
}

}  // namespace

template <typename... Arguments>
Json RemoteHost::Ask(const char* operation, const Arguments&... arguments) {
  Message params = Message::array();
  (Put(params, arguments), ...);
  Json answer = channel_.Ask(operation, std::move(params));
  if (const auto error = answer.find("error"); error != answer.end() && !error->is_null())
    throw RunTimeFailure(Cause::HostFailure, std::string(operation) + ": " + MessageOf(*error));
  const auto result = answer.find("result");
  if (result == answer.end() || !result->is_object())
    throw RunTimeFailure(Cause::TypeMismatch, std::string(operation) + ": the peer's answer has no result object");
  return std::move(*result);
}
Value RemoteHost::scGetParamValue(const std::string& name) { return ToValue(Return(Ask("scGetParamValue", name))); }
bool RemoteHost::scSetParamValue(const std::string& name, const Value& value) {
  return Truth(Ask("scSetParamValue", name, value));
}
bool RemoteHost::scResetParam(const std::string& name) { return Truth(Ask("scResetParam", name)); }
bool RemoteHost::scSetParamOptional(const std::string& name, bool optional) {
  return Truth(Ask("scSetParamOptional", name, optional));
}
void RemoteHost::scSetCanHaveParamRange(const std::string& name, bool allowed) {
  Ask("scSetCanHaveParamRange", name, allowed);
}
void RemoteHost::scSetCanHaveParamMultiple(const std::string& name, bool allowed) {
  Ask("scSetCanHaveParamMultiple", name, allowed);
}
Value RemoteHost::scIsValueEqual(const Value& value) { return ToValue(Return(Ask("scIsValueEqual", value))); }
bool RemoteHost::scGetValueArray(const std::string& name, List& values) {
  const Json result = Ask("scGetValueArray", name, Out{});
  values = ToList(OutOf(result));
  return Truth(result);
}
void RemoteHost::scGetPreviousValue(Value& previous) { previous = ToValue(OutOf(Ask("scGetPreviousValue", Out{}))); }
bool RemoteHost::scActiveDefinition(const std::string& name, const Value& definition) {
  return Truth(Ask("scActiveDefinition", name, definition));
}
void RemoteHost::SetTemplate(bool on) { Ask("SetTemplate", on); }

bool RemoteHost::scCollectSingleValues(const std::string& sql, const Selector& database) {
  return Truth(Ask("scCollectSingleValues", sql, database));
}
bool RemoteHost::scAddSingleValues(const std::string& sql) { return Truth(Ask("scAddSingleValues", sql)); }
bool RemoteHost::scSubtractSingleValues(const std::string& sql) { return Truth(Ask("scSubtractSingleValues", sql)); }
bool RemoteHost::scCollectValuesAndDesc(const std::string& sql, const Selector& database) {
  return Truth(Ask("scCollectValuesAndDesc", sql, database));
}
bool RemoteHost::scSQLSelectValuesAndDesc() { return Truth(Ask("scSQLSelectValuesAndDesc")); }
bool RemoteHost::scSQLSelectValuesAndDescByDefinition(const Value& definition) {
  return Truth(Ask("scSQLSelectValuesAndDescByDefinition", definition));
}
bool RemoteHost::scPushValidValues(const std::variant<Value, List>& values, const std::optional<std::string>& name) {
  return Truth(Ask("scPushValidValues", values, name));
}
bool RemoteHost::scPushValidRangeValues(const Value& from, const Value& to) {
  return Truth(Ask("scPushValidRangeValues", from, to));
}
bool RemoteHost::scRemoveFromValidValues(const std::string& name, const Value& value) {
  return Truth(Ask("scRemoveFromValidValues", name, value));
}
bool RemoteHost::scRemoveFromValidRangeValues(const std::string& name, const Value& from, const Value& to) {
  return Truth(Ask("scRemoveFromValidRangeValues", name, from, to));
}
bool RemoteHost::scGetValidValues(const std::string& name, List& values) {
  const Json result = Ask("scGetValidValues", name, Out{});
  values = ToList(OutOf(result));
  return Truth(result);
}
bool RemoteHost::scGetNumberOfValidValues(const std::string& name, const Value& definition, Value& count) {
  const Json result = Ask("scGetNumberOfValidValues", name, definition, Out{});
  count = ToValue(OutOf(result));
  return Truth(result);
}

bool RemoteHost::scRunQuery(const std::string& sql, RowSet* rows, const Selector& database) {
  const Json result = Ask("scRunQuery", sql, RowsArgument{rows, database});
  if (rows != nullptr) *rows = ToRowSet(OutOf(result));
  return Truth(result);
}
bool RemoteHost::scSQLInsert(const std::string& table, const List& columns, const List& values) {
  return Truth(Ask("scSQLInsert", table, columns, values));
}
bool RemoteHost::scSQLUpdate(const std::string& table, const List& columns, const List& values, const List& keys,
                             const List& keyValues) {
  return Truth(Ask("scSQLUpdate", table, columns, values, keys, keyValues));
}
RowSet RemoteHost::scSQLSelect(const std::string& table, const List& columns, const List& keys, const List& keyValues) {
  return ToRowSet(Return(Ask("scSQLSelect", table, columns, keys, keyValues)));
}
Value RemoteHost::scBuildCmdID() { return ToValue(Return(Ask("scBuildCmdID"))); }
bool RemoteHost::scStartTransaction() { return Truth(Ask("scStartTransaction")); }
bool RemoteHost::scCommitTransaction() { return Truth(Ask("scCommitTransaction")); }
bool RemoteHost::scRollBackTransaction() { return Truth(Ask("scRollBackTransaction")); }

bool RemoteHost::scNANSIinitiate(const Value& numse, const Value& numtyp, Value& code) {
  const Json result = Ask("scNANSIinitiate", numse, numtyp, Out{});
  code = ToValue(OutOf(result));
  return Truth(result);
}
bool RemoteHost::scNANSIremoveFromBlockedRange(const Value& numse, const Value& numtyp) {
  return Truth(Ask("scNANSIremoveFromBlockedRange", numse, numtyp));
}
bool RemoteHost::scGetAutoEquOptionValue(Value& clause) {
  const Json result = Ask("scGetAutoEquOptionValue", Out{});
  clause = ToValue(OutOf(result));
  return Truth(result);
}
void RemoteHost::scFilterEQU(const Value& first, const Value& second) { Ask("scFilterEQU", first, second); }

void RemoteHost::scErrorMessage(int first, int second, int third, const std::string& context, const Value& code,
                                const std::vector<Value>& arguments) {
  Ask("scErrorMessage", first, second, third, context, code, arguments);
}
void RemoteHost::scPrintToDebugWindow(const std::string& line) { Ask("scPrintToDebugWindow", line); }

}  // namespace cordboard::remote
