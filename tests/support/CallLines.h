// More lines of a trace: reads of the form, calls with one text.
#pragma once

#include <string>

#include "script/TracingHost.h"
#include "script/Value.h"
#include "support/Transcript.h"

namespace cordboard {

inline std::string Read(const std::string& name) { return "scGetParamValue(\"" + name + "\")"; }
inline std::string Call(const std::string& operation) { return operation + "()"; }
inline std::string Call(const std::string& operation, const std::string& text) {
  return operation + "(" + TraceText(Value(text)) + ")";
}
inline std::string DebugLine(const std::string& line) { return Call("scPrintToDebugWindow", line); }

}  // namespace cordboard
