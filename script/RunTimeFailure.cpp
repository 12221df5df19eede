#include "script/RunTimeFailure.h"

namespace cordboard {

std::string_view Name(RunTimeFailure::Cause cause) {
  switch (cause) {
    case RunTimeFailure::Cause::Overflow: return "Overflow";
    case RunTimeFailure::Cause::SubscriptOutOfRange: return "SubscriptOutOfRange";
    case RunTimeFailure::Cause::TypeMismatch: return "TypeMismatch";
    case RunTimeFailure::Cause::InvalidUseOfNull: return "InvalidUseOfNull";
    case RunTimeFailure::Cause::InvalidCall: return "InvalidCall";
    case RunTimeFailure::Cause::NoHost: return "NoHost";
    case RunTimeFailure::Cause::HostFailure: return "HostFailure";
  }
  return "HostFailure";
}

}  // namespace cordboard
