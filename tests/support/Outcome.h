// What an operation comes to, as one text: its result, or the cause of its failure.
#pragma once

#include <ostream>
#include <string>

#include "script/RunTimeFailure.h"
#include "script/TracingHost.h"

namespace cordboard {

template <typename Operation>
std::string Outcome(Operation operation) {
  try {
    return TraceText(Value(operation()));
  } catch (const RunTimeFailure& failure) {
    return std::string(Name(failure.cause()));
  }
}

// How a failed expectation shows a value.
inline void PrintTo(const Value& value, std::ostream* out) { *out << TraceText(value); }

}  // namespace cordboard
