// Work on an exchange that is kept as a whole or not at all, and that a user can end.
#pragma once

#include "cli/Subcommands.h"
#include "workbench/database/Connection.h"
#include "workbench/system/Signals.h"

namespace cordboard::cli {

// Does the work and gives its result. Where nothing was kept because of the file, the subcommand ends and says so.
template <typename Work>
auto KeptOrNothing(const Work& work) {
  try {
    return work();
  } catch (const workbench::StorageError& error) {
    throw Exit{Trouble, std::string(error.what()) + "; nothing was kept"};
  }
}

// The same for the one work of a process. A signal ends it as long as it can still be undone, and the subcommand says
// so; afterwards it comes too late.
template <typename Work>
auto AllOrNothing(const Work& work) {
  const workbench::SignalsHeldBack held;
  try {
    auto result = KeptOrNothing(work);
    workbench::IgnoreSignals();
    return result;
  } catch (const workbench::Interrupted& interrupted) {
    workbench::IgnoreSignals();
    throw Exit{static_cast<ExitCode>(AfterSignal + interrupted.signal()), "interrupted; nothing was kept"};
  }
}

}  // namespace cordboard::cli
