// The one failure that leaves a call: what no worker tests for ends the call with this exception.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace cordboard {

class RunTimeFailure : public std::runtime_error {
 public:
  enum class Cause {
    Overflow,             // a number does not fit a 16- or 32-bit whole number
    SubscriptOutOfRange,  // an index outside a list or a row set, or one that was left without bounds
    TypeMismatch,         // a text that is not a number where a number is converted, and the like
    InvalidUseOfNull,     // a null where a text, a number or a truth value is needed
    InvalidCall,          // an argument that the operation cannot take, such as a negative length
    NoHost,               // a host operation while the library has no host
    HostFailure,          // the host itself failed instead of answering
  };

  RunTimeFailure(Cause cause, const std::string& what) : std::runtime_error(what), cause_(cause) {}

  Cause cause() const { return cause_; }

 private:
  Cause cause_;
};

// The cause's own name, such as "TypeMismatch".
std::string_view Name(RunTimeFailure::Cause cause);

}  // namespace cordboard
