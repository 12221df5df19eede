// A host that hands every operation on to another: the base of decorators, which override one operation or Answer.
#pragma once

#include <memory>

#include "script/CallHost.h"

namespace cordboard {

class ForwardingHost : public CallHost {
 public:
  explicit ForwardingHost(std::shared_ptr<Host> next) : next_(std::move(next)) {}

  Host& next() { return *next_; }

 protected:
  HostAnswer Answer(const HostCall& call) override { return Perform(*next_, call); }

 private:
  std::shared_ptr<Host> next_;
};

}  // namespace cordboard
