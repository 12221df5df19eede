// A host that is reached by name: every operation is asked of the peer, with its arguments by position.
#pragma once

#include "remote/Channel.h"
#include "script/CallHost.h"

namespace cordboard::remote {

// An answer of the wrong shape fails the call with TypeMismatch, an error answer with HostFailure.
class RemoteHost : public CallHost {
 public:
  explicit RemoteHost(Channel& channel) : channel_(channel) {}

 protected:
  HostAnswer Answer(const HostCall& call) override;

 private:
  Channel& channel_;
};

}  // namespace cordboard::remote
