#include "support/FailingHost.h"

#include <string>

#include "script/MessageCodes.h"
#include "script/RunTimeFailure.h"

namespace cordboard {

namespace {

// A series that is refused tells why: a statement failed.
HostAnswer RefusalOf(const HostCall& call) {
  if (call.operation == "scNANSIinitiate") return {false, static_cast<int>(Message::StatementFailed)};
  return {false};
}

}  // namespace

HostAnswer FailingHost::Answer(const HostCall& call) {
  if (++calls_ != call_) return ForwardingHost::Answer(call);
  if (fault_ == Fault::Refuses && FindOperation(call.operation).CanRefuse()) return RefusalOf(call);
  throw RunTimeFailure(RunTimeFailure::Cause::HostFailure, std::string(call.operation) + " was made to fail");
}

}  // namespace cordboard
