// Work on an exchange that is kept as a whole or not at all, and that a user can end.
#pragma once

#include "cli/Subcommands.h"
#include "workbench/database/Connection.h"
#include "workbench/system/Signals.h"

namespace cordboard::cli {

// Does the work and gives its result. A signal ends it as long as it can still be undone; afterwards it comes too late.
// Where nothing was kept, because of a signal or of the file, the subcommand ends and says so.
template <typename Work>
auto AllOrNothing(const Work& work) {
  const workbench::SignalsHeldBack held;
  try {
    auto result = work();
    workbench::IgnoreSignals();
    return result;
  } catch (const workbench::Interrupted& interrupted) {
    workbench::IgnoreSignals();
    throw Exit{static_cast<ExitCode>(AfterSignal + interrupted.signal()), "interrupted; nothing was kept"};
  } catch (const workbench::StorageError& error) {
    throw Exit{Trouble, std::string(error.what()) + "; nothing was kept"};
  }
}

}  // namespace cordboard::cli
