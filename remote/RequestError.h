// A request that cannot be served: the code and the message of the answer.
#pragma once

#include <stdexcept>
#include <string>

namespace cordboard::remote {

enum class ErrorCode {
  NotJson = -32700,
  NotARequest = -32600,
  UnknownMethod = -32601,
  WrongParameters = -32602,
  InternalError = -32603,
  RunFailed = -32000,      // a failure that left Run
  NestedTooDeep = -32001,  // a Run inside more Runs than the library takes
};

class RequestError : public std::runtime_error {
 public:
  RequestError(ErrorCode code, const std::string& what) : std::runtime_error(what), code_(code) {}

  ErrorCode code() const { return code_; }

 private:
  ErrorCode code_;
};

}  // namespace cordboard::remote
