// A number of things: "1 board", "24 boards".
#pragma once

#include <cstddef>
#include <string>

namespace cordboard::workbench {

// For things of which there are several with an "s" alone.
inline std::string Counted(std::size_t number, const std::string& thing) {
  return std::to_string(number) + " " + thing + (number == 1 ? "" : "s");
}

}  // namespace cordboard::workbench
