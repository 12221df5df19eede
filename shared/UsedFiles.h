// Files that devices and logging write to, by their names (FILE).
#pragma once

#include "script/Action.h"

namespace cordboard {

// The workers of commands whose records are names of files: they keep USEDFILES, the names in use, beside the command's
// own table. All run in the envelope.

// Enters the name in USEDFILES and inserts the record, with the empty text as number type. A name that cannot be
// entered ends the add in silence. Where ParamList names FILE more than once the last value is entered, where it does
// not, the empty text.
bool AddFile(const Action& action);

// Writes each parameter of ParamList and stops at the first that fails. A new FILE goes to USEDFILES alone: the record
// keeps the old one.
bool EditFile(const Action& action);

// Takes the name out of USEDFILES alone: the record stays.
bool DeleteFile(const Action& action);

// Whether logging into the file on the form has a head in CLOHI. The file is read as often as ParamList names it, and
// the last value counts; a file that ParamList does not name is empty.
bool HasHead(const Action& action);

}  // namespace cordboard
