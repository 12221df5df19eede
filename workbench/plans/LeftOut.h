// What the lines of an exchange leave out because of its release.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "workbench/exchange/Exchange.h"

namespace cordboard::workbench {

// What records have and the lines of another release would tell.
struct LeftOut {
  std::string command;
  std::string parameter;  // empty: no line tells anything of the records
  std::size_t records;    // that have it
  std::vector<std::string> toldBy;
};

// In the order of the lines. The exchange is left as it is.
std::vector<LeftOut> FindLeftOut(Exchange& exchange);

}  // namespace cordboard::workbench
