#include "remote/RemoteHost.h"

#include <string>
#include <utility>

#include "script/RunTimeFailure.h"

namespace cordboard::remote {

namespace {

using Cause = RunTimeFailure::Cause;

struct ToParam {
  Message operator()(OutPlace) const { return Message{{"out", true}}; }
  template <typename Given>
  Message operator()(const Given& given) const {
    return ToJson(given);
  }
};

// A member that is left off is empty.
Answered Member(const Json& result, const char* name, AnswerKind kind) {
  const auto found = result.find(name);
  if (found == result.end()) return {};
  switch (kind) {
    case AnswerKind::Nothing: return {};
    case AnswerKind::Truth:
    case AnswerKind::Value: return ToValue(*found);
    case AnswerKind::List: return ToList(*found);
    case AnswerKind::Rows: return ToRowSet(*found);
  }
  return {};
}

// What the peer says went wrong: its message, or all of the error where it has none.
std::string MessageOf(const Json& error) {
  const bool usual = error.is_object() && error.contains("message") && error["message"].is_string();
  return usual ? error["message"].get<std::string>() : Line(error);
}

}  // namespace

HostAnswer RemoteHost::Answer(const HostCall& call) {
  const Operation& operation = FindOperation(call.operation);
  const std::string name(call.operation);
  Message params = Message::array();
  for (const Argument& argument : call.arguments) params.push_back(std::visit(ToParam(), argument));
  const Json answer = channel_.Ask(name, std::move(params));
  if (const auto error = answer.find("error"); error != answer.end() && !error->is_null())
    throw RunTimeFailure(Cause::HostFailure, name + ": " + MessageOf(*error));
  const auto result = answer.find("result");
  if (result == answer.end() || !result->is_object())
    throw RunTimeFailure(Cause::TypeMismatch, name + ": the peer's answer has no result object");
  HostAnswer given;
  if (call.AsksOut()) given.out = Member(*result, "out", operation.out);
  given.result = Member(*result, "return", operation.result);
  return given;
}

}  // namespace cordboard::remote
