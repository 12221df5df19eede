// Making the exchange as a line says.
#pragma once

#include "workbench/actions/UserAction.h"

namespace cordboard::workbench {

// Performs what of the line is not so yet: what stands as told is left alone and counted, what differs is edited, what
// is missing is added, and what is to be deleted and is not there has gone. What a line does not tell stays as it is.
// Of several values that tell records each is a record by itself. A line that does not tell which record it is about is
// refused.
Outcome EnsureLine(Session& session, const UserAction& line);

}  // namespace cordboard::workbench
