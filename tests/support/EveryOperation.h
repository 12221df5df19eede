// The 37 operations of a host, each called once with arguments of its own: for tests of what stands between the library
// and its host.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "script/HostCall.h"

namespace cordboard {

struct OperationCall {
  HostCall given;
  std::string call;     // as a trace writes it
  HostAnswer returned;  // by a host that answers True
  std::string answer;   // as a trace writes it

  // Calls the host and gives what came back, as a trace writes it.
  std::string perform(Host& host) const;
};

// Every operation in the order of script/Host.h. scRunQuery stands there four times, scPushValidValues three times.
const std::vector<OperationCall>& EveryOperation();

enum class Behaviour { AnswersTrue, AnswersFalse, Fails };

// A host that gives the same answer to every question that is answered by a truth value, and a value of its own to
// every other, out-arguments included; or that fails every operation.
std::shared_ptr<Host> AnsweringHost(Behaviour behaviour);

// What comes back from a host that behaves so.
std::string ExpectedAnswer(const OperationCall& operation, Behaviour behaviour);

}  // namespace cordboard
