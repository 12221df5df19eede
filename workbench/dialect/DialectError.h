// A statement that the dialect does not take.
#pragma once

#include <cstddef>
#include <stdexcept>
#include <string_view>

namespace cordboard::workbench {

class DialectError : public std::runtime_error {
 public:
  // The message with the place in the statement: "..., at character 8: ABS(x) FROM t".
  DialectError(std::string_view message, std::string_view statement, std::size_t place);
};

}  // namespace cordboard::workbench
