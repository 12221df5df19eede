#include "cli/shell/Input.h"

#include <utility>

#include "workbench/plans/Plan.h"
#include "workbench/system/Signals.h"

namespace cordboard::cli::shell {

std::optional<std::string> PipedInput::Next(const std::string&) {
  std::string row;
  const bool isThere = std::exchange(isFirst_, false) ? workbench::FirstLine(in_, row) : workbench::NextLine(in_, row);
  workbench::EndOnSignal();
  if (in_.bad()) throw workbench::PlanError("standard input cannot be read any further");
  return isThere ? std::optional(row) : std::nullopt;
}

}  // namespace cordboard::cli::shell
