#include "remote/Channel.h"

#include <cmath>
#include <streambuf>
#include <utility>

#include "script/RunTimeFailure.h"

namespace cordboard::remote {

namespace {

// An id is a string, a number or null. A whole number that 64 bits do not hold could not be echoed as it came.
bool IsId(const Json& id) {
  if (id.is_number_float()) return std::abs(id.get<double>()) < 0x1p63;
  return id.is_string() || id.is_number() || id.is_null();
}

// The id to answer with: null where the message has none that can be echoed.
Json IdOf(const Json& message) {
  if (!message.is_object() || !message.contains("id") || !IsId(message["id"])) return nullptr;
  return message["id"];
}

Message Error(ErrorCode code, const std::string& message) {
  return {{"code", static_cast<int>(code)}, {"message", message}};
}

}  // namespace

Channel::Channel(std::istream& in, std::ostream& out, std::ostream& diagnostics, Server serve)
    : in_(in), out_(out), diagnostics_(diagnostics), serve_(std::move(serve)) {}

// Nothing at the end of input. Of a line beyond the limit only as much is kept as tells that it is.
std::optional<std::string> Channel::ReadLine() {
  constexpr auto end = std::char_traits<char>::eof();
  std::streambuf& input = *in_.rdbuf();
  auto c = input.sbumpc();
  if (c == end) return std::nullopt;
  std::string line;
  for (; c != end && c != '\n'; c = input.sbumpc()) {
    if (line.size() <= MaximumLine) line += static_cast<char>(c);
  }
  return line;
}

void Channel::Write(const Message& message) {
  if (ended_) return;
  out_ << Line(message) << '\n' << std::flush;
  if (!out_) {
    ended_ = true;
    diagnostics_ << "the peer no longer reads" << std::endl;
  }
}

void Channel::WriteError(const Json& id, ErrorCode code, const std::string& message) {
  Write({{"jsonrpc", "2.0"}, {"id", id}, {"error", Error(code, message)}});
}

bool Channel::TakeMessage() {
  try {
    const auto parse = [](const std::string& line) {
      if (line.size() > MaximumLine) throw RequestError(ErrorCode::NotJson, "the line is longer than 64 MiB");
      return Parse(line);
    };
    std::optional<std::string> line;
    if (!ended_) line = ReadLine();
    ended_ = !line;
    if (ended_) return false;
    Json message = parse(*line);
    line.reset();
    Take(std::move(message));
  } catch (const RequestError& error) {
    WriteError(nullptr, error.code(), error.what());
  } catch (const std::exception& failure) {
    WriteError(nullptr, ErrorCode::InternalError, failure.what());
  }
  return !ended_;
}

Json Channel::Ask(const std::string& method, Message params) {
  const std::string id = "h" + std::to_string(++lastId_);
  asked_[id];
  Write({{"jsonrpc", "2.0"}, {"id", id}, {"method", method}, {"params", std::move(params)}});
  while (!asked_[id]) {
    if (!TakeMessage())
      throw RunTimeFailure(RunTimeFailure::Cause::HostFailure, method + ": the peer went before it answered");
  }
  return std::move(*asked_.extract(id).mapped());
}

// Whatever has a method is a request, also with an id that looks like one of the library's.
void Channel::Take(Json message) {
  if (message.is_object() && message.contains("method")) return TakeRequest(message);
  if (message.is_object() && TakeAnswer(message)) return;
  WriteError(IdOf(message), ErrorCode::NotARequest, "the line is neither a request nor an answer");
}

bool Channel::TakeAnswer(Json& answer) {
  const Json id = IdOf(answer);
  const auto asked = id.is_string() ? asked_.find(id.get<std::string>()) : asked_.end();
  if (asked != asked_.end() && !asked->second) {
    asked->second = std::move(answer);
    return true;
  }
  if (!answer.contains("result") && !answer.contains("error")) return false;
  diagnostics_ << "ignored an answer to nothing that was asked, id " << Line(id).substr(0, 100) << std::endl;
  return true;
}

void Channel::TakeRequest(const Json& request) {
  const bool valid = request.value("jsonrpc", Json()) == "2.0" && request["method"].is_string() &&
                     (!request.contains("id") || IsId(request["id"]));
  if (!valid) return WriteError(IdOf(request), ErrorCode::NotARequest, "the line is no request of JSON-RPC 2.0");

  const auto params = request.find("params");
  const Message outcome =
      Outcome(request["method"].get_ref<const std::string&>(), params == request.end() ? nullptr : &*params);
  if (request.contains("id")) {
    Message answer = {{"jsonrpc", "2.0"}, {"id", request["id"]}};
    answer.update(outcome);
    Write(answer);
  } else if (outcome.contains("error")) {
    diagnostics_ << "a notification failed: " << Line(outcome["error"]) << std::endl;
  }
}

// The member of the answer that tells how the request went: result or error.
Message Channel::Outcome(const std::string& method, const Json* params) {
  try {
    return {{"result", serve_(method, params)}};
  } catch (const RequestError& error) {
    return {{"error", Error(error.code(), error.what())}};
  } catch (const RunTimeFailure& failure) {
    Message error = Error(ErrorCode::RunFailed, failure.what());
    error["data"] = {{"cause", Name(failure.cause())}};
    return {{"error", error}};
  } catch (const std::exception& failure) {
    return {{"error", Error(ErrorCode::InternalError, failure.what())}};
  }
}

}  // namespace cordboard::remote
