// Messages to the user and lines to the developer's debug window.
#pragma once

#include <string>

#include "script/HostOperations.h"
#include "script/MessageCodes.h"
#include "script/Statement.h"

namespace cordboard {

// Reports a message with the usual three leading numbers and its arguments in order.
template <typename... Arguments>
void Report(const std::string& context, Message code, const Arguments&... arguments) {
  scErrorMessage(0, 2, 2, context, static_cast<int>(code), {Value(arguments)...});
}

// Reports the message where `answer` is False, and gives the answer on: a step that names its own failure.
template <typename... Arguments>
bool OrReport(bool answer, const std::string& context, Message code, const Arguments&... arguments) {
  if (!answer) Report(context, code, arguments...);
  return answer;
}

template <typename... Pieces>
void Debug(const Pieces&... pieces) {
  scPrintToDebugWindow(Text(pieces...));
}

}  // namespace cordboard
