// Indexes that a file of an earlier version does not have.
#pragma once

#include "workbench/database/Connection.h"

namespace cordboard::workbench {

// Adds them. They change no row, and what is asked of the exchange costs more without them.
void AddMissingIndexes(Connection& exchange);

}  // namespace cordboard::workbench
