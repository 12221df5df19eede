// What bears another name where the command is the template: its tables and the contexts of its messages.
#pragma once

#include <string>

#include "script/Action.h"

namespace cordboard {

// "EXTEIDIR" and "EXTEIAUX" as they are for extensions, and with "TEMPLATE" behind them for templates.
inline std::string TableOf(const Action& action, const std::string& table) {
  return action.CmdName == "EXTEITEMPLATE" ? table + "TEMPLATE" : table;
}

// "EXTEI_GetValuesFor_EQU", or "EXTEITEMPLATE_GetValuesFor_EQU".
inline std::string ContextOf(const Action& action, const std::string& routine) {
  return action.CmdName + "_" + routine;
}

}  // namespace cordboard
