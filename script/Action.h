// One user action on a command, as Run receives it.
#pragma once

#include <cstdint>
#include <string>

#include "script/List.h"

namespace cordboard {

struct Action {
  std::int32_t Definition = 0;  // the active definition: a DefinitionNo of ParamValueDesc
  std::string oaRelease{};      // the exchange's release: "R6", "R6/1", "R7", "R8"; any other text is any other release
  std::string FunctionName{};  // "SetInfo", "EditInfo", "DeleteInfo", "GetValidValForParam", "StatCheck", "GenerateCmd"
  std::string CmdName{};       // the command, and the name of its table for the generic workers
  std::int32_t CmdId = 0;      // the record, for "EditInfo" and "DeleteInfo"
  List ParamList{};  // column names, changed names, the parameter or the order number at index 0, by the action

  // ParamList index 0 as text: the parameter of a list of valid values or of a static check.
  std::string Parameter() const;
  // ParamList index 0 as a number, cut to a whole one and written as text: the order number of generated lines.
  std::string OrderNumber() const;
};

}  // namespace cordboard
