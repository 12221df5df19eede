// The workers of commands whose records are names of files (FILE): they keep USEDFILES, the names in use, beside the
// command's own table. All run in the envelope.
#pragma once

#include "script/Action.h"

namespace cordboard {

// Enters the name in USEDFILES and inserts the record, with the empty text as number type. Both have one message.
bool AddFile(const Action& action);

// Writes each parameter of ParamList and stops at the first that fails. A new FILE goes to USEDFILES alone: the record
// keeps the old one.
bool EditFile(const Action& action);

// Takes the name out of USEDFILES alone: the record stays.
bool DeleteFile(const Action& action);

}  // namespace cordboard
