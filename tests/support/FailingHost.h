// A host that counts the operations, and lets one of them go wrong.
#pragma once

#include <cstddef>

#include "script/ForwardingHost.h"

namespace cordboard {

enum class Fault {
  Refuses,  // the operation gives False and does nothing; one that cannot refuse fails
  Fails,    // the operation fails with HostFailure, as a host does that is gone
};

class FailingHost : public ForwardingHost {
 public:
  // Operation number `call`, from 1 and in the order in which the library calls them, goes wrong; with 0 none does. All
  // others go on to the next host.
  FailingHost(std::shared_ptr<Host> next, std::size_t call, Fault fault)
      : ForwardingHost(std::move(next)), call_(call), fault_(fault) {}

  // The operations called so far.
  std::size_t calls() const { return calls_; }

 protected:
  HostAnswer Answer(const HostCall& call) override;

 private:
  std::size_t call_;
  Fault fault_;
  std::size_t calls_ = 0;
};

}  // namespace cordboard
