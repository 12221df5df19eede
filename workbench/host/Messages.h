// The texts of the messages (data/messages.json): a clear sentence for every code, with place-holders for the
// arguments.
#pragma once

#include <string>
#include <vector>

#include "script/Value.h"

namespace cordboard::workbench {

// A message as the library reported it, with the text that a user sees.
struct ReportedMessage {
  int third = 2;  // the last of the three leading numbers; 1 marks a report of lesser weight
  std::string context = {};
  std::string code = {};
  std::vector<Value> arguments = {};
  std::string text = {};
  std::string reason = {};  // which number or range it is about, where the workbench reported it
};

// The text of a message: its place-holders {1}, {2}, ... filled with the arguments. A code or a number of arguments
// that the catalogue does not know still gives a sentence that names them.
std::string MessageText(const Value& code, const std::vector<Value>& arguments);

}  // namespace cordboard::workbench
