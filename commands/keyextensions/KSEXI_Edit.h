// The edit of key extensions, and of templates for them: in the same order, with the same tests and messages. Only
// where some of its statements go is different.
#pragma once

#include <string>

#include "script/Action.h"
#include "script/Host.h"

namespace cordboard {

// The table that is written, and the databases of the statements that may go to another one.
struct EditedRecords {
  std::string table;
  Selector updates = std::nullopt;
  Selector oldEQU = std::nullopt;
  Selector KSFKC = std::nullopt;
};

bool EditKeyExtension(const Action& action, const EditedRecords& records);

}  // namespace cordboard
