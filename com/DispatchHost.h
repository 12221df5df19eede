// A host that is an object of the platform: every operation is called by its name at run time.
#pragma once

#include <utility>

#include "com/Pointer.h"
#include "script/CallHost.h"

namespace cordboard::com {

// An operation always has all of its arguments, as the object of a script class wants it: those at the end that are not
// given come as "parameter not found". Out-arguments are references to empty variants. What the object answers with a
// failure is a HostFailure; an answer of the wrong shape is a TypeMismatch.
class DispatchHost : public CallHost {
 public:
  explicit DispatchHost(Pointer<IDispatch> object) : object_(std::move(object)) {}

 protected:
  HostAnswer Answer(const HostCall& call) override;

 private:
  Pointer<IDispatch> object_;
};

}  // namespace cordboard::com
