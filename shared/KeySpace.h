// The keys of a key extension. A key of one DIR is taken if it stands in KSFKC, KSANI or KSMDI: the three tables share
// it. Which keys there are, and which carry a preset function, depends on the instrument.
#pragma once

#include <string>

#include "script/Action.h"
#include "script/List.h"
#include "script/Value.h"

namespace cordboard {

// The definition that has the keys of an instrument: its leading digits and 1. Without a value that is 1.
double KeyDefinition(const Value& ITYPE);

// The row of the instrument of an extension: none for one that is not in KSEXI. Gives the statement's answer.
bool SelectITYPE(const Value& DIR, RowSet& rows);
// The same for generated lines: an extension that is not in KSEXI leaves ITYPE as the line before had it.
bool ReadITYPE(const Value& DIR, Value& ITYPE);

// Takes the keys of one DIR out of the list of KEY: those that `keysWithFunction` finds in KSFKC, then those of KSANI
// and of KSMDI. That none is left is reported, and answers False like a step that fails.
bool SubtractTakenKeys(const Action& action, const Value& DIR, const std::string& keysWithFunction);

// The composite key text "{DIR}-{KEY}".
std::string ComposeDIRK(const Value& DIR, const Value& KEY);
// Reads one: DIR is all before the first "-", KEY what follows it. Without a "-" all of it is DIR.
void SplitDIRK(const Value& DIRK, std::string& DIR, std::string& KEY);

// Some keys of an instrument carry a preset function, which the exchange must release before it accepts another. The
// line that releases the key, with a line feed after it, to stand in front of the line that uses the key; nothing for
// a key that is free to use.
std::string ReleaseOfFixedKey(const Value& ITYPE, const Value& DIR, const Value& KEY);

}  // namespace cordboard
