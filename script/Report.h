// Messages to the user and lines to the developer's debug window.
#pragma once

#include <string>
#include <utility>

#include "script/HostOperations.h"
#include "script/MessageCodes.h"
#include "script/Statement.h"

namespace cordboard {

// Reports messages under one context. A worker makes one and calls it at each refusal: it shows the message, with the
// usual three leading numbers and the arguments in order, and gives False.
//
//   const Reporter fail("Delete: " + action.CmdName);
//   if (!scRunQuery(sql, rows)) return fail(ValueNotFound, "DIR, EQU", "EXTEIDIR");
//   return scRunQuery(sql) || fail(StatementFailed);
class Reporter {
 public:
  explicit Reporter(std::string context) : context_(std::move(context)) {}

  template <typename... Arguments>
  bool operator()(Message code, const Arguments&... arguments) const {
    scErrorMessage(0, 2, 2, context_, static_cast<int>(code), {Value(arguments)...});
    return false;
  }

  const std::string& context() const { return context_; }

 private:
  std::string context_;
};

template <typename... Pieces>
void Debug(const Pieces&... pieces) {
  scPrintToDebugWindow(Text(pieces...));
}

}  // namespace cordboard
