#include "script/CurrentHost.h"

#include "script/RunTimeFailure.h"

namespace cordboard {

namespace {

std::shared_ptr<Host> MMLObj;

}  // namespace

std::shared_ptr<Host> CurrentHost() {
  if (!MMLObj) throw RunTimeFailure(RunTimeFailure::Cause::NoHost, "the library has no host: call AddObject first");
  return MMLObj;
}

void SetCurrentHost(std::shared_ptr<Host> host) { MMLObj = std::move(host); }

}  // namespace cordboard
