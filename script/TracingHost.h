// A host that notes every operation with its arguments and its answer, and hands it on.
#pragma once

#include <string>
#include <vector>

#include "script/ForwardingHost.h"

namespace cordboard {

struct TracedCall {
  // The operation and its arguments as the library passed them, such as: scSetParamValue("LIM", "1").
  // Texts stand in quotes, line ends as {NL} (CR LF) and {LF}, a quote as {QT}; `out` marks an out-argument.
  std::string call;
  // What came back, such as: True, [["100"], ["EX"]]. Empty where an operation has no result.
  std::string answer;
  int depth = 0;  // 1 and more for the calls of a Run that was started from inside an operation
};

// The text of a value, a list and a row set in a trace, and of a call and an answer.
std::string TraceText(const Value& value);
std::string TraceText(const List& list);
std::string TraceText(const RowSet& rows);
std::string TraceText(const HostCall& call);
std::string TraceText(const HostAnswer& answer);

class TracingHost : public ForwardingHost {
 public:
  using ForwardingHost::ForwardingHost;

  // The calls in the order in which they began.
  const std::vector<TracedCall>& calls() const { return calls_; }

 protected:
  HostAnswer Answer(const HostCall& call) override;
  // What is noted of a call, and of its answer.
  virtual std::string Noted(const HostCall& call) const { return TraceText(call); }
  virtual std::string Noted(const HostAnswer& answer, const HostCall&) const { return TraceText(answer); }

 private:
  std::vector<TracedCall> calls_;
  int depth_ = 0;
};

}  // namespace cordboard
